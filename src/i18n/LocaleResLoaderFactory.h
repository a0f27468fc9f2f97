#pragma once

#include "i18n/ILocaleResLoader.h"

namespace quillon::i18n::internal {

template <class Char>
class LocaleResLoaderFactory;

/// Makes loaders of properties files for that kind, and of translation files for all others.
template <>
class LocaleResLoaderFactory<char> final : public ILocaleResLoaderFactory<char>
{
public:
    err::ResultCode create(ILocaleResLoader<char>** out, unsigned kind) override;
};

} // namespace quillon::i18n::internal
