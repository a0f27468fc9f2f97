#include "settings/DefaultHashAlgorithm.h"

#include "crypto/HashCatalogue.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

#include <QVariant>

#include <cstdint>

namespace thisapp {
namespace {

namespace crypto = quillon::crypto;

std::optional<SHashAlgId> checkedId(const QVariant& library, const QVariant& algorithm)
{
    if (!library.isValid() || !algorithm.isValid())
        return std::nullopt;
    const SHashAlgId id{static_cast<std::uint32_t>(library.toInt()),
                        static_cast<std::uint32_t>(algorithm.toInt())};
    if (!crypto::isHashLibraryValid(id.lib) || !crypto::isHashAlgValid(id.alg))
        return std::nullopt;
    return id;
}

} // namespace

std::optional<SHashAlgId> readDefaultHashAlgorithm()
{
    const CAppSettings store;
    const QVariant use = store.value(settings::UseDefaultAlgorithmAtStarting, true);
    if (!use.isValid() || !use.toBool())
        return std::nullopt;
    return checkedId(store.value(settings::DefaultCryptoLibrary, crypto::kDefaultHashAlg.lib),
                     store.value(settings::DefaultCryptoHashAlgorithm, crypto::kDefaultHashAlg.alg));
}

void writeDefaultHashAlgorithm(const SHashAlgId& id)
{
    CAppSettings store;
    store.setValue(settings::DefaultCryptoLibrary, static_cast<int>(id.lib));
    store.setValue(settings::DefaultCryptoHashAlgorithm, static_cast<int>(id.alg));
}

} // namespace thisapp
