#pragma once

#include <QString>

#include <ostream>

/// Lets a failed expectation show a text instead of its bytes.
inline void PrintTo(const QString& text, std::ostream* stream)
{
    *stream << '"' << text.toStdString() << '"';
}
