#pragma once

#include "crypto/DigestText.h"
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
    std::int32_t whatCopy = kCopyNothing; ///< an EDigestCopy
    std::int32_t logLevel;                ///< see logger::ELogLevel; whoever makes the record sets it
    bool useLogFile = false;
    std::string fontName = "Arial"; ///< carried only, like the size
    std::int32_t fontSize = 9;      ///< points
    quillon::web::NetProxy<char> netProxy;
    quillon::web::EProxySelectType proxySelectType = quillon::web::EProxySelectType::None;
};

/// Takes over what the user chose in the options dialog.
class IAppOptionsChanged
{
public:
    virtual ~IAppOptionsChanged() = default;

    /// Stores `options` and applies them to the running program. Called on the user interface thread, also
    /// while the dialog is still open.
    virtual void onAppOptionsChanged(const SAppOptions& options) = 0;
};

} // namespace thisapp
