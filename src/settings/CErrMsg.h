#pragma once

#include "err/ErrorText.h"

#include <cstdint>
#include <string>

namespace thisapp {

/// The texts of the errors that this program reports: system errors in the system's words, its own codes in
/// the user's language. Holds no data; any thread may ask.
class CErrMsg final : public quillon::err::internal::CErrMsgBuilder<char>
{
public:
    bool buildMessage(std::uint32_t group, std::uint32_t code, std::string& text) const override;
};

} // namespace thisapp
