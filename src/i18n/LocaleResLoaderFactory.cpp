#include "i18n/LocaleResLoaderFactory.h"

#include "err/ErrorCodes.h"
#include "i18n/LocaleResLoaderPropFile.h"
#include "i18n/LocaleResLoaderTrFile.h"
#include "i18n/Translation.h"

#include <memory>

namespace quillon::i18n::internal {

err::ResultCode LocaleResLoaderFactory<char>::create(ILocaleResLoader<char>** out, unsigned kind)
{
    if (out == nullptr)
        return err::programError(err::kNullPointer);
    if (kind == kTranslationProperties)
        *out = std::make_unique<LocaleResLoaderPropFile<char>>().release();
    else
        *out = std::make_unique<LocaleResLoaderTrFile<char>>().release();
    return {};
}

} // namespace quillon::i18n::internal
