#pragma once

#include "i18n/ILocaleResLoader.h"
#include "i18n/ITrResReadCallback.h"

#include <map>
#include <set>
#include <string>
#include <utility>

namespace quillon::i18n::internal {

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
    /// failures. An included relative path counts from the process's current folder.
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
    std::set<std::string> m_loadedPaths;
    std::map<std::string, std::pair<std::string, std::string>> m_definedItems;
};

} // namespace quillon::i18n::internal
