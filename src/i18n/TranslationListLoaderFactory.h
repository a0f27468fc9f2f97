#pragma once

#include "err/ErrorCodes.h"
#include "i18n/TranslationListLoaderXml.h"

#include <memory>

namespace quillon::i18n::internal {

template <class Char>
class TranslationListLoaderFactory;

/// Makes loaders of XML lists.
template <>
class TranslationListLoaderFactory<char> final : public ITranslationListLoaderFactory<char>
{
public:
    err::ResultCode create(ITranslationListLoader<char>** out) override
    {
        if (out == nullptr)
            return err::programError(err::kNullPointer);
        *out = std::make_unique<TranslationListLoaderXml<char>>().release();
        return {};
    }
};

} // namespace quillon::i18n::internal
