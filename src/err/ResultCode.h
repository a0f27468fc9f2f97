#pragma once

#include <cstdint>

namespace quillon::err {

/// The result of an operation that can fail, passed by value. `code` 0 is success, whatever the group says;
/// otherwise `group` tells which numbering `code` belongs to (see ErrorGroup).
struct [[nodiscard]] ResultCode
{
    std::uint32_t group = 0;
    std::uint32_t code = 0;

    friend constexpr bool operator==(const ResultCode&, const ResultCode&) noexcept = default;
};

[[nodiscard]] constexpr bool succeeded(const ResultCode& result) noexcept
{
    return result.code == 0;
}

/// The result of an operation that passes through several layers, outermost first.
struct [[nodiscard]] ResultCodes
{
    ResultCode first;
    ResultCode second;
    ResultCode third;
};

/// The numberings that ResultCode::code may belong to.
enum ErrorGroup : std::uint32_t
{
    kGroupSystem = 1,  ///< the operating system's last error; errno on Unix
    kGroupRuntime = 3, ///< errno of the C runtime library
    kGroupProgram = 5, ///< the program's own codes, see ErrorCode
    kGroupCurl = 50,   ///< a CURLcode
    kGroupSkein = 54,  ///< a status of the Skein core
};

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

/// The ResultCode of one of the operating system's numbers, whose type differs by system.
template <class Number>
constexpr ResultCode systemError(Number number) noexcept
{
    return {kGroupSystem, static_cast<std::uint32_t>(number)};
}

} // namespace quillon::err
