#include "platform/ShellCommand.h"

#include "text/Unicode.h"

namespace quillon::platform {

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

} // namespace quillon::platform
