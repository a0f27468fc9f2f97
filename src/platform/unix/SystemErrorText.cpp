#include "platform/SystemErrorText.h"

#include "text/AsciiText.h"

#include <cstring>

namespace quillon::platform {

std::string osErrorText(std::uint32_t code)
{
    // Unlike strerror this knows when a number is unknown, and does not depend on the locale.
    const char* description = strerrordesc_np(static_cast<int>(code));
    return description == nullptr ? std::string() : std::string(text::trimAscii(description));
}

} // namespace quillon::platform
