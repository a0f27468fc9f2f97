#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::file::internal {

/// Makes logical lines of a properties file of its physical ones. UTF-8.
class LogicalLines
{
public:
    /// Takes a line without its line feed and gives back the logical line that it completes, if it does.
    /// Comments and empty lines neither complete nor end a line that is being continued.
    [[nodiscard]] std::optional<std::string> add(std::string line);

    /// What the end of the file leaves of a line that was to be continued; empty where nothing is left.
    [[nodiscard]] std::string takeRest() { return std::exchange(m_pending, {}); }

private:
    std::string m_pending;
};

/// Walks logical lines into a key and a value. A key that is empty at the end of its line does not end the
/// walk, so that what follows it goes on where it stopped.
class PairWalk
{
public:
    std::string key;
    std::string value;

    /// Reads to the end of the line. True where there is a key, trimmed; it is the caller's to `clear`.
    bool add(std::string_view line);

    /// Begins with the next pair.
    void clear();

private:
    void takeForKey(char c);
    void takeForValue(char c);
    void takeBackslash();

    bool m_isInValue = false;
    char m_before = '\0'; ///< the byte before, zero at the start of a pair
};

} // namespace quillon::file::internal
