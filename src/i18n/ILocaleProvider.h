#pragma once

#include "i18n/Locale.h"

namespace quillon::i18n::internal {

/// Tells the current locale. Any thread may ask.
template <class Char>
class ILocaleProvider
{
public:
    virtual ~ILocaleProvider() = default;

    virtual void getLocale(Locale<Char>& out) const = 0;
};

} // namespace quillon::i18n::internal
