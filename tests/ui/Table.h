#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <ostream>

/// Lets a failed expectation show a text instead of its bytes.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}

namespace quillon::tests {

/// The lines of a table of this folder, without empty ones and comments.
inline QStringList tableLines(const char* name)
{
    QFile file(QString(KESTRUM_TEST_DATA "/ui/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly | QIODevice::Text)) << name;
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    return lines.filter(QRegularExpression("^[^#]"));
}

} // namespace quillon::tests
