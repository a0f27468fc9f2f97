#pragma once

#include "platform/Process.h"
#include "shellhelper/HelperLibrary.h"
#include "support/TempFolder.h"
#include "text/Unicode.h"

#include <cstdlib>
#include <iterator>
#include <map>

namespace quillon::tests {

inline constexpr err::ResultCode kSuccess;

/// A user with a home of the test's own and the file managers that the test puts into the search path.
class Desktop : public testing::Test
{
protected:
    Desktop()
    {
        const char* const folders[][2] = {{"HOME", ""},
                                          {"XDG_DATA_HOME", "data"},
                                          {"XDG_CONFIG_HOME", "config"},
                                          {"XDG_CONFIG_DIRS", "etc"},
                                          {"PATH", "bin"}};
        for (const auto& [variable, name] : folders)
            setenv(variable, path(name).c_str(), 1);
        std::filesystem::create_directories(path("bin"));
    }

    void install(std::initializer_list<std::string> programs) const
    {
        for (const std::string& program : programs)
            std::filesystem::permissions(write("bin/" + program, ""), std::filesystem::perms::owner_all);
    }

    [[nodiscard]] std::filesystem::path path(const std::string& name) const { return m_home.file(name); }

    std::filesystem::path write(const std::string& name, const std::string& bytes) const
    {
        std::filesystem::create_directories(path(name).parent_path());
        return m_home.write(name, bytes);
    }

    [[nodiscard]] std::string bytes(const std::string& name) const
    {
        std::ifstream stream(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    /// All files of the user, by their names.
    [[nodiscard]] std::map<std::string, std::string> files() const
    {
        std::map<std::string, std::string> found;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(m_home.path())) {
            const std::string name = entry.path().lexically_relative(m_home.path()).string();
            if (!entry.is_directory() && !name.starts_with("bin/"))
                found[name] = bytes(name);
        }
        return found;
    }

    static err::ResultCode create(const std::string& program = "/opt/k/kestrum",
                                  const wchar_t* text = L"Check")
    {
        const std::wstring command = platform::shellFileCommand(program);
        return asResult(helper().createShellContextMenuForUserT(L"*", text, command.c_str(), kId));
    }

    static err::ResultCode remove()
    {
        return asResult(helper().removeShellContextMenuForUserT(L"*", L"any text", kId));
    }

    static err::ResultCode exists()
    {
        return asResult(helper().existsShellContextMenuForUserT(L"*", L"any text", kId));
    }

    const std::string m_id = text::utf8FromWide(kId);
    const std::string m_actions = "config/Thunar/uca.xml";

private:
    TempFolder m_home;
};

} // namespace quillon::tests
