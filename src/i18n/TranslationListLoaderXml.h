#pragma once

#include "err/ResultCode.h"
#include "i18n/Translation.h"

#include <memory>

namespace quillon::i18n::internal {

template <class Char>
class TranslationListLoaderXml;

/// Reads a list in XML: an element "locales" with one "locale" for each translation, all data in the
/// attributes "language", "country", "displayname", "filetype", "file", "description" and "disabled".
template <>
class TranslationListLoaderXml<char> final : public ITranslationListLoader<char>
{
public:
    /// A file without "locales" is an empty list. What opening the file gave, {5, 22112} for a text that is
    /// no XML and {5, 22120} for one that is no UTF-8. Memory is bounded by the size of the file: a large one
    /// made up of all but empty elements is refused with one of these codes too.
    err::ResultCode load(const std::string& name, const std::string& path) override;

    void getList(std::vector<Translation<char>>& out) const override { out = m_list; }

private:
    err::ResultCode parse(const std::string& text);

    std::vector<Translation<char>> m_list;
};

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
