#pragma once

#include "err/ResultCode.h"
#include "i18n/TrResReader.h"
#include "vars/IVariablesSetter.h"

#include <map>
#include <set>
#include <string>
#include <utility>

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

template <class Char>
class LocaleResLoaderPropFile;

/// Reads a properties file: the key of each pair is a source text, the value its translation, for no context
/// in particular.
template <>
class LocaleResLoaderPropFile<char> final : public ILocaleResLoader<char>,
                                            private vars::internal::IVariablesSetter<char>
{
public:
    /// A file without a byte order mark is UTF-8. What the reader of the file gave.
    err::ResultCode load(const std::string& path, ILocaleResLoaderCallback<char>* callback) override;

private:
    err::ResultCode setValue(const std::string& key, const std::string& value,
                             const vars::internal::SVariableOptions& options) override;
    err::ResultCode setValue(const std::string& key, const std::string& value) override;
    err::ResultCode removeValue(const std::string& /*key*/) override { return {}; }
    err::ResultCode clearValues() override { return {}; }

    ILocaleResLoaderCallback<char>* m_callback = nullptr;
};

template <class Char>
class LocaleResLoaderTrFile;

/// Reads a translation file and the files that it includes, each file once.
template <>
class LocaleResLoaderTrFile<char> final : public ILocaleResLoader<char>,
                                          private trres::internal::ITrResReadCallback<char>
{
public:
    /// {5, 40} for an empty path and {5, 41} where there is no such file or it is a folder. A file that
    /// cannot be opened, an included file that does not exist and a faulty entry give nothing and are no
    /// failures; neither is an include more than 32 levels below the first file, or one after 1,000 files.
    /// An included relative path counts from the process's current folder.
    err::ResultCode load(const std::string& path, ILocaleResLoaderCallback<char>* callback) override;

private:
    void onInclude(const std::string& path) override;
    void onUseItem(const std::string& name, const std::string& extra) override;
    void onDefineItem(const std::string& name, const std::string& first, const std::string& second,
                      const std::string& extra) override;
    void onItem(const std::string& context, const std::string& source,
                const std::string& translation) override;

    err::ResultCode loadOnce(std::string path);
    void forget(ILocaleResLoaderCallback<char>* next);

    ILocaleResLoaderCallback<char>* m_callback = nullptr;
    int m_depth = 0;
    std::set<std::string> m_loadedPaths;
    std::map<std::string, std::pair<std::string, std::string>> m_definedItems;
};

template <class Char>
class LocaleResLoaderFactory;

/// Makes loaders of properties files for that kind, and of translation files for all others.
template <>
class LocaleResLoaderFactory<char> final : public ILocaleResLoaderFactory<char>
{
public:
    err::ResultCode create(ILocaleResLoader<char>** out, unsigned kind) override;
};

} // namespace quillon::i18n::internal
