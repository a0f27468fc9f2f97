#pragma once

#include "crypto/HashCatalogue.h"
#include "i18n/Locale.h"
#include "web/NetProxy.h"

#include <cstdint>
#include <string>

namespace thisapp {

/// Everything that the options dialog lets the user change. Texts are UTF-8.
struct SAppOptions
{
    bool shellContextMenu = true;
    bool sendToLink = true;
    std::uint32_t localeId = quillon::i18n::kDefaultLocaleId;
    SHashAlgId defaultAlg = quillon::crypto::kDefaultHashAlg;
    bool useDefaultAlg = true;
    std::int32_t whatCopy = 1; ///< 1 nothing, 2 the hexadecimal digest, 4 the Base64 digest
    std::int32_t logLevel;     ///< see logger::ELogLevel; whoever makes the record sets it
    bool useLogFile = false;
    std::string fontName = "Arial"; ///< carried only, like the size
    std::int32_t fontSize = 9;      ///< points
    quillon::web::NetProxy<char> netProxy;
    quillon::web::EProxySelectType proxySelectType = quillon::web::EProxySelectType::None;
};

} // namespace thisapp
