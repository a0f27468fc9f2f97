#pragma once

#include "i18n/IStrBundle.h"
#include "i18n/LocaleResLoader.h"
#include "i18n/Translation.h"
#include "sync/SafeData.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::i18n::internal {

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

} // namespace quillon::i18n::internal
