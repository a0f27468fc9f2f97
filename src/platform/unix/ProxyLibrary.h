#pragma once

#include <optional>
#include <string>

namespace quillon::platform {

/// The first answer of libproxy for the address `url`: an URL of a proxy, or "direct://". Nothing where the
/// library with the name `library` is missing, is not libproxy, or has no answer.
[[nodiscard]] std::optional<std::string> askProxyLibrary(const std::string& library, const std::string& url);

} // namespace quillon::platform
