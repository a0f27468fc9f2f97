#include "settings/SettingsKeys.h"

#include "settings/CAppSettings.h"

#include <cstdint>

namespace thisapp {

namespace crypto = quillon::crypto;

std::optional<SHashAlgId> readDefaultHashAlgorithm()
{
    const CAppSettings store;
    if (!settings::UseDefaultAlgorithmAtStarting.read(store))
        return std::nullopt;
    const SHashAlgId id{static_cast<std::uint32_t>(settings::DefaultCryptoLibrary.read(store)),
                        static_cast<std::uint32_t>(settings::DefaultCryptoHashAlgorithm.read(store))};
    if (!crypto::isHashLibraryValid(id.lib) || !crypto::isHashAlgValid(id.alg))
        return std::nullopt;
    return id;
}

void writeDefaultHashAlgorithm(const SHashAlgId& id)
{
    CAppSettings store;
    settings::DefaultCryptoLibrary.write(store, static_cast<int>(id.lib));
    settings::DefaultCryptoHashAlgorithm.write(store, static_cast<int>(id.alg));
}

} // namespace thisapp
