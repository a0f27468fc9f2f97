#include "file/Paths.h"

#include "platform/Files.h"
#include "text/AsciiText.h"

#include <algorithm>

namespace quillon::file {
namespace {

constexpr std::string_view kSeparators = "/\\";

bool isSeparator(char c) noexcept
{
    return kSeparators.find(c) != std::string_view::npos;
}

/// The prefix with which Windows takes a path as it is, in either spelling.
std::size_t prefixLength(std::string_view path) noexcept
{
    constexpr std::string_view kPrefixes[] = {"//?/UNC/", R"(\\?\UNC\)", "//?/", R"(\\?\)"};
    const auto* const prefix = std::ranges::find_if(kPrefixes, [path](std::string_view each) {
        return text::equalsIgnoringAsciiCase(path.substr(0, each.size()), each);
    });
    return prefix == std::end(kPrefixes) ? 0 : prefix->size();
}

bool isLetter(char c) noexcept
{
    const char lower = text::toAsciiLower(c);
    return lower >= 'a' && lower <= 'z';
}

} // namespace

bool isAbsolutePath(std::string_view path) noexcept
{
    if (!path.empty() && path.front() == '/' && platform::isSlashRoot())
        return true;
    path.remove_prefix(prefixLength(path));
    if (path.size() >= 3 && isLetter(path[0]) && path[1] == ':' && isSeparator(path[2]))
        return true;
    return path.size() >= 2 && isSeparator(path[0]) && isSeparator(path[1]);
}

std::string joinPath(std::string_view path, std::string_view tail)
{
    std::string joined(path);
    if (!joined.empty() && !isSeparator(joined.back()))
        joined += platform::nativeSeparator();
    while (joined.size() > 1 && isSeparator(joined.back()) && isSeparator(joined[joined.size() - 2]))
        joined.pop_back();
    const std::size_t start = tail.find_first_not_of(kSeparators);
    if (start != std::string_view::npos)
        joined += tail.substr(start);
    return joined;
}

std::string absolutePath(std::string_view base, std::string_view name)
{
    if (isAbsolutePath(name))
        return std::string(name);
    std::string joined = joinPath(base, name);
    std::string full = platform::fullPath(joined);
    return full.empty() ? joined : full;
}

std::string getFolder(std::string_view path)
{
    const std::size_t separator = path.find_last_of(kSeparators);
    if (separator != std::string_view::npos)
        return std::string(path.substr(0, separator + 1));
    const bool hasDrive = path.size() >= 2 && path[1] == ':';
    return std::string(path.substr(0, hasDrive ? 2 : 0));
}

} // namespace quillon::file
