#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What the sources for Unix have in common.
namespace quillon::platform {

/// A file descriptor with an owner.
class Descriptor
{
public:
    explicit Descriptor(int value) noexcept
        : m_value(value)
    {
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { static_cast<void>(close()); }

    [[nodiscard]] bool isOpen() const noexcept { return m_value >= 0; }
    [[nodiscard]] int get() const noexcept { return m_value; }

    /// Leaves the descriptor to the caller.
    [[nodiscard]] int release() noexcept { return std::exchange(m_value, -1); }

    /// False where what was written could not be stored.
    [[nodiscard]] bool close() noexcept { return !isOpen() || ::close(release()) == 0; }

private:
    int m_value;
};

/// The result of a system call that starts again where a signal interrupts it.
template <class Call>
ssize_t retryInterrupted(Call call)
{
    ssize_t result = 0;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

[[nodiscard]] bool isSameFile(const struct stat& a, const struct stat& b) noexcept;

/// The value of a variable of the environment; empty where there is none.
[[nodiscard]] std::string environmentText(const char* name);

/// The parts of `list` between colons that are full paths.
[[nodiscard]] std::vector<std::string> fullPaths(std::string_view list);

/// The full path of a program in the search path; empty where there is none.
[[nodiscard]] std::string findProgram(std::string_view name);

/// Starts the program at the full path `program` with one argument and forgets it: it is nobody's child here.
/// False where there is no process for it.
bool startDetached(std::string program, std::string argument);

} // namespace quillon::platform
