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
    kGroupProgram = 5, ///< the program's own codes, see ErrorCodes.h
    kGroupCurl = 50,   ///< a CURLcode
    kGroupSkein = 54,  ///< a status of the Skein core
};

} // namespace quillon::err
