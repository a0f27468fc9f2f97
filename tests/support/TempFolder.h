#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace quillon::tests {

/// The name of a file as the program takes it in narrow text, on every system.
inline std::string utf8Name(const std::filesystem::path& path)
{
    const std::u8string name = path.u8string();
    return {name.begin(), name.end()};
}

/// The name of a file as the program takes it in wide text. Asks no locale, unlike path::wstring on Unix.
inline std::wstring wideName(const std::filesystem::path& path)
{
    if constexpr (sizeof(wchar_t) == sizeof(char16_t)) {
        return path.wstring();
    } else {
        const std::u32string name = path.u32string();
        return {name.begin(), name.end()};
    }
}

/// An empty folder of the test's own below the system's temporary folder, removed with all it holds at the
/// end.
class TempFolder
{
public:
    TempFolder() { std::filesystem::create_directories(m_path); }
    TempFolder(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] const std::filesystem::path& path() const noexcept { return m_path; }

    /// The full name of `name` (UTF-8) in the folder, whether it exists or not.
    [[nodiscard]] std::filesystem::path file(std::string_view name) const
    {
        return m_path / std::filesystem::path(std::u8string(name.begin(), name.end()));
    }

    /// Writes a file with exactly `bytes`, in place of one that is there, and returns its full name.
    std::filesystem::path write(std::string_view name, std::string_view bytes) const
    {
        const std::filesystem::path target = file(name);
        if (!(std::ofstream(target, std::ios::binary) << bytes << std::flush))
            throw std::runtime_error("cannot write the test file " + utf8Name(target));
        return target;
    }

private:
    const std::filesystem::path m_path =
        std::filesystem::temp_directory_path() / ("kestrum-test-" + std::to_string(std::random_device()()));
};

} // namespace quillon::tests
