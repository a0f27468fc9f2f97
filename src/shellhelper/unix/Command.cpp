#include "shellhelper/unix/Command.h"

#include <algorithm>

namespace quillon::shellhelper {
namespace {

constexpr std::string_view kItem = "%L";

/// Takes one word off the front of `line`, with its quotes, and the blanks around it. Empty where a quote is
/// missing.
std::string_view takeWord(std::string_view& line)
{
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    bool isQuoted = false;
    std::size_t end = 0;
    for (; end < line.size() && (isQuoted || line[end] != ' '); ++end) {
        if (line[end] == '"')
            isQuoted = !isQuoted;
        else if (line[end] == '\\' && isQuoted)
            ++end;
    }
    if (isQuoted || end > line.size())
        return {};
    const std::string_view word = line.substr(0, end);
    line.remove_prefix(end);
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    return word;
}

/// The word without its quotes. Empty where it has a code in it.
std::string unquoted(std::string_view word)
{
    std::string text;
    bool isQuoted = false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '"') {
            isQuoted = !isQuoted;
            continue;
        }
        if (word[i] == '%' && word.substr(i, 2) != "%%")
            return {};
        if (word[i] == '%' || (word[i] == '\\' && isQuoted))
            ++i;
        text += word[i];
    }
    return text;
}

bool isItem(std::string_view word)
{
    return word == kItem || (word.size() == kItem.size() + 2 && word.front() == '"' && word.back() == '"' &&
                             word.substr(1, kItem.size()) == kItem);
}

} // namespace

std::string programOfCommand(std::string_view line)
{
    std::string program = unquoted(takeWord(line));
    const bool isKnownForm = program.starts_with('/') && isItem(takeWord(line)) && line.empty();
    return isKnownForm ? program : std::string();
}

} // namespace quillon::shellhelper
