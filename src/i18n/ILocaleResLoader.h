#pragma once

#include "err/ResultCode.h"

#include <string>

namespace quillon::i18n::internal {

/// Takes translations from a loader, on the thread that loads.
template <class Char>
class ILocaleResLoaderCallback
{
public:
    using Text = std::basic_string<Char>;

    virtual ~ILocaleResLoaderCallback() = default;

    virtual void onItem(const Text& context, const Text& source, const Text& translation) = 0;
};

/// Reads a file of translations. One load at a time.
template <class Char>
class ILocaleResLoader
{
public:
    using Text = std::basic_string<Char>;

    virtual ~ILocaleResLoader() = default;

    /// Hands all translations in the file with the UTF-8 name `path` to `callback`, which is not kept.
    virtual err::ResultCode load(const Text& path, ILocaleResLoaderCallback<Char>* callback) = 0;
};

template <class Char>
class ILocaleResLoaderFactory
{
public:
    virtual ~ILocaleResLoaderFactory() = default;

    /// Makes a loader for files of `kind`, a TranslationType; it belongs to the caller. {5, 6} for a null
    /// `out`.
    virtual err::ResultCode create(ILocaleResLoader<Char>** out, unsigned kind) = 0;
};

} // namespace quillon::i18n::internal
