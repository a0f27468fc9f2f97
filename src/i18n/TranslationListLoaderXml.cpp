#include "i18n/TranslationListLoaderXml.h"

#include "err/ResultCode.h"
#include "file/TextFileReader.h"
#include "file/Words.h"
#include "text/Unicode.h"

#include <pugixml.hpp>

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace quillon::i18n::internal {
namespace {

constexpr int kUtf8 = static_cast<int>(io::EBomKind::Utf8);

// Texts up to this size may be as dense as they like.
constexpr std::size_t kSmallTextBytes = 1U << 16;

// What a larger text may cost, for each of its bytes: the parser's tree, beside which stand the text and the
// parser's copy of it, and the records, of which the caller of the loader holds a second copy.
constexpr std::size_t kMostTreeBytes = 18;
constexpr std::size_t kMostRecordBytes = 24;

// As the parser lays them out: a node has eight pointers, an attribute five.
constexpr std::size_t kNodeBytes = 8 * sizeof(void*);
constexpr std::size_t kAttributeBytes = 5 * sizeof(void*);

/// Counts what the tree of an XML text may have at most: what looks like a tag opens a node, any text between
/// two of them is another, and each "=" an attribute.
class TreeEstimate
{
public:
    void take(char c) noexcept
    {
        if (c == ' ' || c == '\t' || c == '\r' || c == '\n')
            return;
        m_nodes += c == '<' ? m_hasText : m_former == '<' && c != '/';
        m_attributes += c == '=';
        m_hasText = c != '<' && (m_hasText || !m_isInTag);
        m_isInTag = c == '<' || (m_isInTag && c != '>');
        m_former = c;
    }

    [[nodiscard]] std::size_t bytes() const noexcept
    {
        return m_nodes * kNodeBytes + m_attributes * kAttributeBytes;
    }

private:
    std::size_t m_nodes = 0;
    std::size_t m_attributes = 0;
    bool m_hasText = false;
    bool m_isInTag = false;
    char m_former = '>';
};

bool isTooDense(std::string_view xml)
{
    if (xml.size() <= kSmallTextBytes)
        return false;
    TreeEstimate estimate;
    for (const char c : xml)
        estimate.take(c);
    return estimate.bytes() > xml.size() * kMostTreeBytes;
}

err::ResultCode readText(std::string& text, const std::string& path)
{
    file::Utf8FileReader reader;
    const err::ResultCode result = reader.open(path, kUtf8);
    if (err::succeeded(result))
        text = reader.readAll();
    return result;
}

err::ResultCode loadDocument(pugi::xml_document& document, const std::string& text)
{
    if (!text::isUtf8(text))
        return err::programError(err::kXmlProcessingFailed);
    // What an XML declaration says of the encoding has no effect.
    const bool isLoaded = !isTooDense(text) && document.load_buffer(text.data(), text.size(),
                                                                    pugi::parse_default, pugi::encoding_utf8);
    return isLoaded ? err::ResultCode{} : err::programError(err::kXmlMalformed);
}

std::string textOf(const pugi::xml_node& element, const char* attribute)
{
    std::string text = element.attribute(attribute).value();
    file::trim(text);
    return text;
}

std::wstring wideTextOf(const pugi::xml_node& element, const char* attribute)
{
    std::wstring text = text::wideFromUtf8(element.attribute(attribute).value());
    // Wide white space goes too, where a system knows it.
    file::trim(text);
    return text;
}

TranslationType typeOf(const pugi::xml_node& element)
{
    constexpr std::pair<std::wstring_view, TranslationType> kNames[] = {
        {L"properties", kTranslationProperties},
        {L"translations", kTranslationTranslations},
        {L"dll", kTranslationDll},
    };
    const std::wstring name = wideTextOf(element, "filetype");
    const auto* const found = std::ranges::find_if(
        kNames, [&name](const auto& each) { return file::equalsIgnoringCase(name, each.first); });
    return found == std::end(kNames) ? kTranslationNone : found->second;
}

Translation<char> translationOf(const pugi::xml_node& element)
{
    return {typeOf(element),
            textOf(element, "displayname"),
            textOf(element, "language"),
            textOf(element, "country"),
            textOf(element, "file"),
            textOf(element, "description")};
}

void appendAll(std::vector<Translation<char>>& list, const pugi::xml_document& document,
               std::size_t textBytes)
{
    const auto elements = document.child("locales").children("locale");
    const auto count = static_cast<std::size_t>(std::distance(elements.begin(), elements.end()));
    if (textBytes > kSmallTextBytes && 2 * count * sizeof(Translation<char>) > textBytes * kMostRecordBytes)
        throw std::length_error("a translation list of all but empty elements");
    // Growing step by step would need twice the memory.
    list.reserve(count);
    for (const pugi::xml_node& element : elements)
        if (!file::isBoolWord(wideTextOf(element, "disabled"), true))
            list.push_back(translationOf(element));
}

} // namespace

err::ResultCode TranslationListLoaderXml<char>::load(const std::string& /*name*/, const std::string& path)
{
    m_list = {};
    std::string text;
    if (const err::ResultCode result = readText(text, path); !err::succeeded(result))
        return result;
    return text.empty() ? err::ResultCode{} : parse(text);
}

err::ResultCode TranslationListLoaderXml<char>::parse(const std::string& text)
{
    pugi::xml_document document;
    try {
        const err::ResultCode result = loadDocument(document, text);
        if (err::succeeded(result))
            appendAll(m_list, document, text.size());
        return result;
    } catch (const std::exception&) {
        return err::programError(err::kXmlProcessingFailed);
    }
}

} // namespace quillon::i18n::internal
