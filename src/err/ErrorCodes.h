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
    kFirstBufferNotAllocated = 13,
    kSecondBufferNotAllocated = 14,
    kOutputNotDefined = 16,
    kInputStreamNotDefined = 17,
    kOutputStreamNotDefined = 18,
    kOutputTooSmall = 21,
    kPathEmpty = 40,
    kFileNotFound = 41, ///< a folder counts as none
    kFileOpenFailed = 42,
    kFileReadFailed = 45,
    kReaderAlreadyOpen = 54,
    kStreamReadFailed = 60,
    kStreamWriteFailed = 61,
    kUnknownAlgorithm = 70,
    kLibraryNotLoaded = 90,
    kStreamNotOpen = 104,
    kFileNameNotDefined = 200,
    kFileSeekFailed = 204,
    kTextDecoderFailed = 205,
    kNoRunnable = 300,
    kThreadNotStarted = 303,
    kFactoryMissing = 630,
    kHashStopped = 1004,
    kLinkPathUnknown = 1300,
    kRequestNotCreated = 3000,
    kEngineUpdateFailed = 4000,
    kEngineFinalFailed = 4001,
    kCipherHeaderMismatch = 4003, ///< the pass phrase is not the right one
    kCipherTextTooShort = 4004,   ///< shorter than the header
    kCipherTextCut = 4005,        ///< shorter than its header says
    kEngineNotInitialised = 4006,
    kEngineAlreadyInitialised = 4007,
    kEngineInitFailed = 4008,
    kKeySizeWrong = 4040,
    kIvSizeWrong = 4041,
    kKeyDerivationFailed = 4042,
    kBufferSizeTooSmall = 4060,
    kXmlMalformed = 22112,
    kXmlProcessingFailed = 22120,
};

/// The ResultCode of one of the program's own codes.
constexpr ResultCode programError(ErrorCode code) noexcept
{
    return {kGroupProgram, code};
}

} // namespace quillon::err
