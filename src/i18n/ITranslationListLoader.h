#pragma once

#include "err/ResultCode.h"
#include "i18n/Translation.h"

#include <string>
#include <vector>

namespace quillon::i18n::internal {

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
