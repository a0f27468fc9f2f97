// A helper library that does nothing and tells its calls.

#include "shellhelper/QxShellHelper.h"

#include <string>
#include <string_view>

namespace {

std::wstring& calls()
{
    static std::wstring text;
    return text;
}

void add(std::string_view text)
{
    calls().append(text.begin(), text.end());
}

void add(std::wstring_view text)
{
    calls().append(text);
}

} // namespace

/// The calls since the last question, each with its texts in one line.
extern "C" QXSHELL_EXPORT void takeCalls(std::wstring& text)
{
    text.clear();
    text.swap(calls());
}

#define RECORD_TEXT(text) (add("|"), add(text))
#define RECORD(family, suffix, Text)                                                                         \
    QxShellResult qxshell_##family##suffix(QXSHELL_##family(Text)) noexcept                                  \
    {                                                                                                        \
        add(#family #suffix);                                                                                \
        QXSHELL_##family(RECORD_TEXT);                                                                       \
        add("\n");                                                                                           \
        return {1, 77};                                                                                      \
    }
QXSHELL_FUNCTIONS(RECORD)
