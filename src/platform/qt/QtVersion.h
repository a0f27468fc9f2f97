#pragma once

// The one place, with the sources beside it, that asks which version of Qt this is.

#include <QCoreApplication>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
/// For functions that Qt 6 has no longer as const ones.
#define KESTRUM_CONST_WITH_QT5 const
#else
#define KESTRUM_CONST_WITH_QT5
#endif

namespace quillon::platform {

/// Whether QSettings writes texts into an INI file as UTF-8. Qt 5 writes escapes and knows no UTF-8 there.
inline constexpr bool kWritesUtf8Settings = QT_VERSION >= QT_VERSION_CHECK(6, 0, 0);

/// Sets what Qt 6 has without asking: windows that follow the scale of the desktop, sharp icons in them, and
/// file names that are UTF-8 on the road to the system, also where the locale names no such encoding. To be
/// called before the application object is made.
inline void useDefaultsOfQt6()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
}

} // namespace quillon::platform
