#pragma once

#include "err/ResultCode.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quillon::i18n::internal {

/// What a translation list may call the kind of a file. The files are all read the same way.
enum TranslationType : std::uint32_t
{
    kTranslationNone = 0,
    kTranslationProperties = 1,
    kTranslationTranslations = 16,
    kTranslationDll = 32,
};

/// One entry of the translation list. Texts are UTF-8.
template <class Char>
struct Translation
{
    std::uint32_t type = kTranslationNone;
    std::basic_string<Char> displayName; ///< as a list of languages shows it
    std::basic_string<Char> language;    ///< language code
    std::basic_string<Char> country;     ///< country code
    std::basic_string<Char> file;        ///< absolute, or relative to the languages folder
    std::basic_string<Char> description;
};

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

/// Reads the list of the translations that exist. One caller.
template <class Char>
class ITranslationListLoader
{
public:
    using Text = std::basic_string<Char>;

    virtual ~ITranslationListLoader() = default;

    /// Replaces the list by that of the file with the UTF-8 name `path`. `name` is that of the product. A
    /// failure leaves the list empty or partly filled.
    virtual err::ResultCode load(const Text& name, const Text& path) = 0;

    virtual void getList(std::vector<Translation<Char>>& out) const = 0;
};

template <class Char>
class ITranslationListLoaderFactory
{
public:
    virtual ~ITranslationListLoaderFactory() = default;

    /// Makes a loader, which belongs to the caller. {5, 6} for a null `out`.
    virtual err::ResultCode create(ITranslationListLoader<Char>** out) = 0;
};

} // namespace quillon::i18n::internal
