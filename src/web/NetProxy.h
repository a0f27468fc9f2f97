#pragma once

#include <cstdint>
#include <string>

namespace quillon::web {
namespace internal {

/// The proxy that the program uses. Texts are UTF-8 in the narrow form.
template <class Char>
struct NetProxy
{
    std::int32_t type = 0; ///< stored and carried only; nothing depends on it
    std::basic_string<Char> server;
    std::int32_t port = 0;
    std::basic_string<Char> login;
    std::basic_string<Char> password; ///< in clear; never logged

    /// False where the record means that there is no proxy.
    [[nodiscard]] bool isProxy() const noexcept { return !server.empty() && port != 0; }
};

} // namespace internal

using internal::NetProxy;

/// Where the proxy comes from; the numbers are stored.
enum class EProxySelectType : std::int32_t
{
    None = 0,
    System = 1,
    Manual = 2,
};

} // namespace quillon::web
