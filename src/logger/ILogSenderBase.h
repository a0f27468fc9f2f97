#pragma once

#include "logger/LogLevel.h"
#include "logger/LogLine.h"

namespace quillon::logger::internal {

/// Takes finished log lines. Counts its references; any thread may call any operation.
template <class Char>
class ILogSenderBase
{
public:
    virtual ~ILogSenderBase() = default;

    /// Adds a reference, or gives one back; both answer the new count. The sender must not be touched after
    /// the last reference was given back.
    virtual int addRef() = 0;
    virtual int release() = 0;

    /// True where a line of this level passes the threshold.
    [[nodiscard]] virtual bool isEnabled(ELogLevel level) const = 0;

    virtual void send(const LogLine<Char>& line) = 0;
};

} // namespace quillon::logger::internal
