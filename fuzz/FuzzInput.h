#pragma once

#include "support/TempFolder.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

namespace quillon::fuzz {

inline std::string_view asText(const std::uint8_t* data, std::size_t size) noexcept
{
    return {reinterpret_cast<const char*>(data), size};
}

/// The UTF-8 name of a file that holds exactly `bytes`, until the next call.
inline std::string fileWith(std::string_view bytes)
{
    static const tests::TempFolder folder;
    // Some file systems wait for the disk where the bytes of a file are replaced.
    std::filesystem::remove(folder.file("input"));
    return tests::utf8Name(folder.write("input", bytes));
}

/// Ends the program where something does not hold that must hold for any input.
inline void require(bool holds, const char* what)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

} // namespace quillon::fuzz

/// What libFuzzer calls for each input.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
