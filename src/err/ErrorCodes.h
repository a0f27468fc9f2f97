#pragma once

#include "err/ResultCode.h"

#include <cstdint>

namespace quillon::err {

/// The program's own error codes, group 5. The numbers are shown to users and written to logs, so they never
/// change.
enum ErrorCode : std::uint32_t
{
    kEndOfFile = 3,
    kInvalidArgument = 5,
    kNullPointer = 6,
    kAlreadyExists = 7, ///< a stream that is open already, a registered id
    kAlreadyRunning = 8,
    kBufferTooSmall = 10,
    kFileReadFailed = 45,
    kStreamReadFailed = 60,
    kUnknownAlgorithm = 70,
    kStreamNotOpen = 104,
    kFileNameNotDefined = 200,
    kFileSeekFailed = 204,
    kNoRunnable = 300,
    kThreadNotStarted = 303,
    kHashStopped = 1004,
    kEngineUpdateFailed = 4000,
    kEngineFinalFailed = 4001,
    kEngineNotInitialised = 4006,
    kEngineInitFailed = 4008,
};

/// The ResultCode of one of the program's own codes.
constexpr ResultCode programError(ErrorCode code) noexcept
{
    return {kGroupProgram, code};
}

} // namespace quillon::err
