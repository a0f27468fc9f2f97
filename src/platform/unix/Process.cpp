#include "platform/Process.h"

#include "text/AsciiText.h"
#include "text/Unicode.h"

#include <sys/auxv.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace quillon::platform {

// Asked for once, as a log statement would cost most of its time in these system calls. Right for as long as
// the process forks only to start another program.

std::uint32_t currentProcessId() noexcept
{
    static const auto id = static_cast<std::uint32_t>(getpid());
    return id;
}

std::uint32_t currentThreadId() noexcept
{
    thread_local const auto id = static_cast<std::uint32_t>(gettid());
    return id;
}

std::vector<std::string> programArguments(int argc, const char* const* argv)
{
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        if (argv[i] != nullptr)
            arguments.emplace_back(argv[i]);
    }
    return arguments;
}

void dropRelativeFolders()
{
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"}) {
        const char* const folder = std::getenv(name);
        if (folder != nullptr && *folder != '/')
            unsetenv(name);
    }
}

std::string programPath()
{
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    if (!error)
        return path.string();
    // Without /proc: as it was started, by a name that may count from the folder of that time.
    static const std::string kStarted = [&error] {
        const auto* const name =
            reinterpret_cast<const char*>(getauxval(AT_EXECFN)); // NOLINT(performance-no-int-to-ptr)
        return name == nullptr ? std::string() : std::filesystem::absolute(name, error).string();
    }();
    return kStarted;
}

std::wstring shellFileCommand(const std::string& program)
{
    std::string quoted;
    for (const char c : program) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        quoted.append(c == '%' ? 2U : 1U, c);
    }
    return text::wideFromUtf8('"' + quoted + "\" \"%L\"");
}

std::string osErrorText(std::uint32_t code)
{
    // Unlike strerror this knows when a number is unknown, and does not depend on the locale.
    const char* description = strerrordesc_np(static_cast<int>(code));
    return description == nullptr ? std::string() : std::string(text::trimAscii(description));
}

} // namespace quillon::platform
