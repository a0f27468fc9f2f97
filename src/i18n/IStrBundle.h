#pragma once

#include "err/ResultCode.h"
#include "i18n/Translation.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillon::i18n {
namespace internal {

/// Finds the translation of a text.
template <class Char>
class IStrBundle
{
public:
    using Text = std::basic_string<Char>;

    virtual ~IStrBundle() = default;

    /// The translation of the English text `source` in `context`, for forms and Qt objects the name of their
    /// class; `source` itself where there is none, and an empty text for a null pointer. Any thread.
    [[nodiscard]] virtual Text getString(const Char* context, const Char* source) const = 0;
};

/// A bundle of texts that can change its language. Loading happens on one thread at a time; lookups may come
/// from any thread meanwhile.
template <class Char>
class IStrBundleMgr : public IStrBundle<Char>
{
public:
    using typename IStrBundle<Char>::Text;

    /// Names the translation list; another name than before drops all texts.
    virtual err::ResultCode setProductName(const Text& name) = 0;

    /// Replaces all texts by those of a language. An unknown language is no failure and leaves the source
    /// texts. Without `force` a language that is loaded already is not loaded again. {5, 630} where the
    /// bundle was made without its factories, {5, 41} without a list file, and what reading the list gave.
    virtual err::ResultCode loadTranslation(const Text& language, const Text& country, bool force) = 0;

    /// Drops all texts and the translation list.
    virtual err::ResultCode clearItems() = 0;

    /// Reads the translation list anew. It always offers English.
    virtual err::ResultCode getTranslations(std::vector<Translation<Char>>& out) = 0;

    [[nodiscard]] virtual Text getProductName() const = 0;

    /// The codes of the last request that got as far as the list.
    [[nodiscard]] virtual Text getLanguage() const = 0;
    [[nodiscard]] virtual Text getCountry() const = 0;

    /// The number of source texts.
    [[nodiscard]] virtual std::size_t getItemCount() const = 0;
};

template <class Char>
class StrBundleTrMgr;

} // namespace internal

/// The bundle of the process, made on first use.
[[nodiscard]] internal::StrBundleTrMgr<char>& getStrBundleMgr();

} // namespace quillon::i18n
