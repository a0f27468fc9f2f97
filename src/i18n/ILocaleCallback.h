#pragma once

#include "callback/ICallback.h"

#include <string>
#include <tuple>

namespace quillon::i18n::internal {

/// What a change of locale carries: language code, country code, and a value that its sender chooses.
template <class Char>
using LocaleTuple = std::tuple<std::basic_string<Char>, std::basic_string<Char>, long>;

/// Hears of a change of locale.
template <class Char>
class ILocaleCallback : public callback::ICallback<LocaleTuple<Char>>
{
public:
    using Text = std::basic_string<Char>;

    void onCallback(const LocaleTuple<Char>& tuple) override
    {
        const auto& [language, country, id] = tuple;
        onLocaleChanged(language, country, id);
    }

    /// `country` may be empty where the language alone is known.
    virtual void onLocaleChanged(const Text& language, const Text& country, long id) = 0;
};

} // namespace quillon::i18n::internal
