#pragma once

#include <QDesktopServices>
#include <QObject>
#include <QUrl>

namespace quillon::tests {

/// Takes what the program gives to the desktop to open.
class UrlDesktop final : public QObject
{
    Q_OBJECT

public:
    UrlDesktop()
    {
        for (const char* scheme : {"file", "https", "mailto"})
            QDesktopServices::setUrlHandler(QString::fromLatin1(scheme), this, "open");
    }
    ~UrlDesktop() override
    {
        for (const char* scheme : {"file", "https", "mailto"})
            QDesktopServices::unsetUrlHandler(QString::fromLatin1(scheme));
    }

    QList<QUrl> opened;

public slots:
    void open(const QUrl& url) { opened.append(url); }
};

} // namespace quillon::tests
