#pragma once

#include "logger/ILogRecBase.h"

namespace quillon::logger {

/// Manipulators to stream into a record: a line feed, the base of whole numbers, the form of fractions.
inline internal::ILogRecBase& endl(internal::ILogRecBase& record)
{
    record.endLine();
    return record;
}

inline internal::ILogRecBase& dec(internal::ILogRecBase& record)
{
    record.setDecimal();
    return record;
}

inline internal::ILogRecBase& hex(internal::ILogRecBase& record)
{
    record.setHexadecimal();
    return record;
}

inline internal::ILogRecBase& fixed(internal::ILogRecBase& record)
{
    record.setFixed();
    return record;
}

inline internal::ILogRecBase& scientific(internal::ILogRecBase& record)
{
    record.setScientific();
    return record;
}

} // namespace quillon::logger
