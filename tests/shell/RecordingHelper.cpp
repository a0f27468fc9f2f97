// A helper library that does nothing and tells its calls.

#include "shellhelper/QxShellHelper.h"

#include <string>

/// The calls since somebody emptied it, each with its texts in one line.
extern "C" QXSHELL_EXPORT std::wstring* recordedCalls()
{
    static std::wstring calls;
    return &calls;
}

template <class Char>
void record(const Char* text)
{
    for (; *text != Char(); ++text)
        *recordedCalls() += static_cast<wchar_t>(*text);
}

#define RECORD_TEXT(text) (record("|"), record(text))
#define RECORD(family, suffix, Text)                                                                         \
    QxShellResult qxshell_##family##suffix(QXSHELL_##family(Text)) noexcept                                  \
    {                                                                                                        \
        record(#family #suffix);                                                                             \
        QXSHELL_##family(RECORD_TEXT);                                                                       \
        record("\n");                                                                                        \
        return {1, 77};                                                                                      \
    }
QXSHELL_FUNCTIONS(RECORD)
