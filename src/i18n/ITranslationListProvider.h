#pragma once

#include "i18n/Translation.h"

namespace quillon::i18n::internal {

/// Hands out the translation list that was read last; reads no file. Any thread may ask.
template <class Char>
class ITranslationListProvider
{
public:
    virtual ~ITranslationListProvider() = default;

    [[nodiscard]] virtual int getTranslationCount() const = 0;

    /// True, and `out` filled, for an index from 0 to one below the count.
    virtual bool getTranslation(Translation<Char>& out, int index) const = 0;
};

} // namespace quillon::i18n::internal
