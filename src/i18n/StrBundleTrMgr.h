#pragma once

#include "err/ResultCode.h"
#include "i18n/LocaleResLoader.h"
#include "i18n/Translation.h"
#include "sync/SafeData.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
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

/// Orders names by their bytes, the letters A to Z taken as their small forms. A null text comes before all
/// others. Maps with this order can be searched without making a std::string.
struct ItemNameCmp
{
    using is_transparent = void;

    [[nodiscard]] constexpr bool operator()(std::string_view a, std::string_view b) const noexcept
    {
        if (a.data() == nullptr || b.data() == nullptr)
            return a.data() == nullptr && b.data() != nullptr;
        const auto [restOfA, restOfB] = std::ranges::mismatch(a, b, {}, lowerByte, lowerByte);
        return restOfB != b.end() && (restOfA == a.end() || lowerByte(*restOfA) < lowerByte(*restOfB));
    }

    [[nodiscard]] constexpr bool operator()(const char* a, const char* b) const noexcept
    {
        return (*this)(viewOf(a), viewOf(b));
    }

private:
    static constexpr unsigned char lowerByte(char c) noexcept
    {
        return static_cast<unsigned char>(text::toAsciiLower(c));
    }

    static constexpr std::string_view viewOf(const char* text) noexcept
    {
        return text == nullptr ? std::string_view() : std::string_view(text);
    }
};

/// The folder beside the running program that holds its translations.
[[nodiscard]] std::string languagesFolder();

template <class Char>
class StrBundleTrMgr;

/// Keeps the texts of one language by source text and context, both without regard to the case of letters,
/// and loads them from the files that the translation list names.
template <>
class StrBundleTrMgr<char> final : public IStrBundleMgr<char>,
                                   public ITranslationListProvider<char>,
                                   private ILocaleResLoaderCallback<char>
{
public:
    using ListLoaders = ITranslationListLoaderFactory<char>;
    using ResourceLoaders = ILocaleResLoaderFactory<char>;

    /// Relative names of files count from `folder`, which also holds the list.
    StrBundleTrMgr(std::shared_ptr<ListLoaders> listLoaders, std::shared_ptr<ResourceLoaders> resourceLoaders,
                   std::string folder = languagesFolder());

    /// A text for the very context wins over one for the context "*", that over one for the empty context;
    /// without a context the empty one comes first.
    [[nodiscard]] std::string getString(const char* context, const char* source) const override;

    err::ResultCode setProductName(const std::string& name) override;
    err::ResultCode loadTranslation(const std::string& language, const std::string& country,
                                    bool force) override;
    err::ResultCode clearItems() override;
    err::ResultCode getTranslations(std::vector<Translation<char>>& out) override;

    [[nodiscard]] std::string getProductName() const override { return m_productName.get(); }
    [[nodiscard]] std::string getLanguage() const override { return m_language.get(); }
    [[nodiscard]] std::string getCountry() const override { return m_country.get(); }
    [[nodiscard]] std::size_t getItemCount() const override;

    /// All that a load replaces.
    struct State
    {
        std::map<std::string, std::map<std::string, std::string, ItemNameCmp>, ItemNameCmp> items;
        std::vector<Translation<char>> translations;
        std::string language;
        std::string country;
    };

    /// For a load that is to change nothing where it fails.
    [[nodiscard]] State getState() const;
    void setState(State state);

    [[nodiscard]] int getTranslationCount() const override;
    bool getTranslation(Translation<char>& out, int index) const override;

private:
    using Contexts = std::map<std::string, std::string, ItemNameCmp>;
    using Items = std::map<std::string, Contexts, ItemNameCmp>;
    using Translations = std::vector<Translation<char>>;

    template <class T>
    using Guarded = sync::SafeData<sync::Locker, T>;

    void onItem(const std::string& context, const std::string& source,
                const std::string& translation) override;

    [[nodiscard]] bool isLoaded(const std::string& language, const std::string& country) const;
    err::ResultCode loadFirst(const std::string& language, const std::string& country,
                              ILocaleResLoader<char>& loader);
    err::ResultCode readList(Translations& out);

    const std::shared_ptr<ListLoaders> m_listLoaders;
    const std::shared_ptr<ResourceLoaders> m_resourceLoaders;
    const std::string m_folder;
    mutable Guarded<Items> m_items;
    mutable Guarded<Translations> m_translations;
    Guarded<std::string> m_productName;
    Guarded<std::string> m_language;
    Guarded<std::string> m_country;
};

} // namespace internal

/// The bundle of the process, made on first use.
[[nodiscard]] internal::StrBundleTrMgr<char>& getStrBundleMgr();

} // namespace quillon::i18n
