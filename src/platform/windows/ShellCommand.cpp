#include "platform/ShellCommand.h"

#include "text/Unicode.h"

namespace quillon::platform {

std::wstring shellFileCommand(const std::string& program)
{
    return text::wideFromUtf8('"' + program + "\" /ifile \"%L\"");
}

} // namespace quillon::platform
