#include "settings/DefaultHashAlgorithm.h"

#include "crypto/HashCatalogue.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

#include <cstdint>

namespace thisapp {
namespace {

namespace crypto = quillon::crypto;

std::optional<SHashAlgId> checkedId(int library, int algorithm)
{
    const SHashAlgId id{static_cast<std::uint32_t>(library), static_cast<std::uint32_t>(algorithm)};
    if (!crypto::isHashLibraryValid(id.lib) || !crypto::isHashAlgValid(id.alg))
        return std::nullopt;
    return id;
}

} // namespace

std::optional<SHashAlgId> readDefaultHashAlgorithm()
{
    const CAppSettings store;
    if (!settings::UseDefaultAlgorithmAtStarting.read(store))
        return std::nullopt;
    return checkedId(settings::DefaultCryptoLibrary.read(store),
                     settings::DefaultCryptoHashAlgorithm.read(store));
}

void writeDefaultHashAlgorithm(const SHashAlgId& id)
{
    CAppSettings store;
    settings::DefaultCryptoLibrary.write(store, static_cast<int>(id.lib));
    settings::DefaultCryptoHashAlgorithm.write(store, static_cast<int>(id.alg));
}

} // namespace thisapp
