#include "i18n/StrBundleTrMgr.h"

#include "err/ResultCode.h"
#include "file/Paths.h"
#include "i18n/Locale.h"
#include "i18n/LocaleResLoader.h"
#include "i18n/TranslationListLoaderXml.h"
#include "platform/Files.h"
#include "platform/Process.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <initializer_list>
#include <mutex>
#include <string_view>
#include <utility>

namespace quillon::i18n {
namespace internal {
namespace {

/// So many source texts a file can bring at most; what comes after them is dropped.
constexpr std::size_t kMostSources = 25000;

constexpr const char* kAnyContext = "*";
constexpr const char* kListSuffix = ".langs.xml";

bool hasCodes(const Translation<char>& entry, std::string_view language, std::string_view country)
{
    return text::equalsIgnoringAsciiCase(entry.language, language) &&
           text::equalsIgnoringAsciiCase(entry.country, country);
}

bool isInCatalogue(const Translation<char>& entry)
{
    Locale<char> locale;
    return findLocale(locale, entry.language, entry.country);
}

/// English needs no file: its texts are the source texts.
void offerEnglish(std::vector<Translation<char>>& list)
{
    const Locale<char> english = getDefaultLocale();
    const bool isOffered = std::ranges::any_of(list, [&english](const Translation<char>& entry) {
        return hasCodes(entry, english.languageCode, english.countryCode);
    });
    if (!isOffered)
        list.push_back({kTranslationTranslations,
                        english.displayName,
                        english.languageCode,
                        english.countryCode,
                        {},
                        {}});
}

std::string toLower(std::string text)
{
    std::ranges::transform(text, text.begin(), text::toAsciiLower);
    return text;
}

/// The first text that there is for one of `contexts`, or null.
template <class Contexts>
const std::string* findFirst(const Contexts& texts, std::initializer_list<std::string_view> contexts)
{
    for (const std::string_view context : contexts)
        if (const auto text = texts.find(context); text != texts.end())
            return &text->second;
    return nullptr;
}

} // namespace

std::string languagesFolder()
{
    return file::joinPath(file::getFolder(platform::programPath()), "languages");
}

StrBundleTrMgr<char>::StrBundleTrMgr(std::shared_ptr<ListLoaders> listLoaders,
                                     std::shared_ptr<ResourceLoaders> resourceLoaders, std::string folder)
    : m_listLoaders(std::move(listLoaders))
    , m_resourceLoaders(std::move(resourceLoaders))
    , m_folder(std::move(folder))
{
}

std::string StrBundleTrMgr<char>::getString(const char* context, const char* source) const
{
    if (source == nullptr)
        return {};
    const std::lock_guard guard(m_items);
    const auto item = m_items.value.find(std::string_view(source));
    if (item == m_items.value.end())
        return source;
    const bool hasContext = context != nullptr && *context != '\0';
    const std::string* const text = hasContext ? findFirst(item->second, {context, kAnyContext, ""})
                                               : findFirst(item->second, {"", kAnyContext});
    return text != nullptr ? *text : source;
}

err::ResultCode StrBundleTrMgr<char>::setProductName(const std::string& name)
{
    if (text::equalsIgnoringAsciiCase(name, m_productName.get()))
        return {};
    m_productName.set(name);
    return clearItems();
}

err::ResultCode StrBundleTrMgr<char>::loadTranslation(const std::string& language, const std::string& country,
                                                      bool force)
{
    if (m_listLoaders == nullptr || m_resourceLoaders == nullptr)
        return err::programError(err::kFactoryMissing);
    if (!force && isLoaded(language, country))
        return {};
    static_cast<void>(clearItems());
    // All files are in this format, whatever kind the list gives them.
    ILocaleResLoader<char>* made = nullptr;
    const err::ResultCode making = m_resourceLoaders->create(&made, kTranslationTranslations);
    const std::unique_ptr<ILocaleResLoader<char>> loader(made);
    if (!err::succeeded(making))
        return making;
    const err::ResultCode result = loadFirst(language, country, *loader);
    m_language.set(language);
    m_country.set(country);
    return result;
}

err::ResultCode StrBundleTrMgr<char>::clearItems()
{
    m_items.set({});
    m_translations.set({});
    return {};
}

err::ResultCode StrBundleTrMgr<char>::getTranslations(std::vector<Translation<char>>& out)
{
    if (const err::ResultCode result = readList(out); !err::succeeded(result))
        return result;
    offerEnglish(out);
    m_translations.set(out);
    return {};
}

std::size_t StrBundleTrMgr<char>::getItemCount() const
{
    const std::lock_guard guard(m_items);
    return m_items.value.size();
}

StrBundleTrMgr<char>::State StrBundleTrMgr<char>::getState() const
{
    return {m_items.get(), m_translations.get(), m_language.get(), m_country.get()};
}

void StrBundleTrMgr<char>::setState(State state)
{
    m_items.set(std::move(state.items));
    m_translations.set(std::move(state.translations));
    m_language.set(std::move(state.language));
    m_country.set(std::move(state.country));
}

int StrBundleTrMgr<char>::getTranslationCount() const
{
    const std::lock_guard guard(m_translations);
    return static_cast<int>(m_translations.value.size());
}

bool StrBundleTrMgr<char>::getTranslation(Translation<char>& out, int index) const
{
    const std::lock_guard guard(m_translations);
    const Translations& translations = m_translations.value;
    if (index < 0 || static_cast<std::size_t>(index) >= translations.size())
        return false;
    out = translations[static_cast<std::size_t>(index)];
    return true;
}

void StrBundleTrMgr<char>::onItem(const std::string& context, const std::string& source,
                                  const std::string& translation)
{
    const std::lock_guard guard(m_items);
    Items& items = m_items.value;
    auto item = items.lower_bound(source);
    if (item == items.end() || items.key_comp()(source, item->first)) {
        if (items.size() >= kMostSources)
            return;
        item = items.try_emplace(item, source);
    }
    item->second.insert_or_assign(context, translation);
}

bool StrBundleTrMgr<char>::isLoaded(const std::string& language, const std::string& country) const
{
    return text::equalsIgnoringAsciiCase(language, m_language.get()) &&
           text::equalsIgnoringAsciiCase(country, m_country.get()) && getItemCount() > 0;
}

/// Loads the first file of the language that can be loaded.
err::ResultCode StrBundleTrMgr<char>::loadFirst(const std::string& language, const std::string& country,
                                                ILocaleResLoader<char>& loader)
{
    Translations list;
    if (const err::ResultCode result = getTranslations(list); !err::succeeded(result))
        return result;
    for (const Translation<char>& entry : list)
        if (hasCodes(entry, language, country) && isInCatalogue(entry) &&
            err::succeeded(loader.load(file::absolutePath(m_folder, entry.file), this)))
            break;
    return {};
}

err::ResultCode StrBundleTrMgr<char>::readList(Translations& out)
{
    if (m_listLoaders == nullptr)
        return err::programError(err::kFactoryMissing);
    ITranslationListLoader<char>* made = nullptr;
    const err::ResultCode making = m_listLoaders->create(&made);
    const std::unique_ptr<ITranslationListLoader<char>> loader(made);
    if (!err::succeeded(making))
        return making;
    const std::string name = m_productName.get();
    const std::string path = file::joinPath(m_folder, toLower(name) + kListSuffix);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    const err::ResultCode result = loader->load(name, path);
    if (err::succeeded(result))
        loader->getList(out);
    return result;
}

} // namespace internal

internal::StrBundleTrMgr<char>& getStrBundleMgr()
{
    static internal::StrBundleTrMgr<char> manager(
        std::make_shared<internal::TranslationListLoaderFactory<char>>(),
        std::make_shared<internal::LocaleResLoaderFactory<char>>());
    return manager;
}

} // namespace quillon::i18n
