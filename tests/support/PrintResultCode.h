#pragma once

#include "err/ResultCode.h"

#include <ostream>

namespace quillon::err {

/// Lets a failed expectation show a result as "{group,code}".
inline void PrintTo(const ResultCode& result, std::ostream* stream)
{
    *stream << '{' << result.group << ',' << result.code << '}';
}

} // namespace quillon::err
