#pragma once

#include "err/ResultCode.h"

#include <cstdint>

namespace quillon::thread {

/// The work of one or several Threads.
class IRunnable
{
public:
    virtual ~IRunnable() = default;

    /// Does the work, on the worker. `id` is that of the Thread on which it runs; an unknown id is answered
    /// with success and no work. `param` is what `start` was given. Must not let an exception escape.
    virtual err::ResultCode run(std::uint32_t id, std::int64_t param) = 0;
};

} // namespace quillon::thread
