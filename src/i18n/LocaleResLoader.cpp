#include "i18n/LocaleResLoader.h"

#include "err/ResultCode.h"
#include "file/PropertiesFileReader.h"
#include "file/Words.h"
#include "i18n/TrResReader.h"
#include "i18n/Translation.h"
#include "io/IStreamUtf8File.h"
#include "platform/Files.h"

#include <memory>

namespace quillon::i18n::internal {
namespace {

// Every file of a chain of includes is open while the next one is read.
constexpr int kMostDepth = 32;
constexpr std::size_t kMostFiles = 1000;

} // namespace

err::ResultCode LocaleResLoaderPropFile<char>::load(const std::string& path,
                                                    ILocaleResLoaderCallback<char>* callback)
{
    m_callback = callback;
    file::internal::PropertiesFileReader<char, file::internal::TextFileReader<char>> reader;
    const err::ResultCode result = reader.read(path, this, static_cast<int>(io::EBomKind::Utf8));
    m_callback = nullptr;
    return result;
}

err::ResultCode LocaleResLoaderPropFile<char>::setValue(const std::string& key, const std::string& value,
                                                        const vars::internal::SVariableOptions& /*options*/)
{
    if (m_callback != nullptr)
        m_callback->onItem({}, key, value);
    return {};
}

err::ResultCode LocaleResLoaderPropFile<char>::setValue(const std::string& key, const std::string& value)
{
    return setValue(key, value, {});
}

err::ResultCode LocaleResLoaderTrFile<char>::load(const std::string& path,
                                                  ILocaleResLoaderCallback<char>* callback)
{
    forget(callback);
    const err::ResultCode result = loadOnce(path);
    forget(nullptr);
    return result;
}

void LocaleResLoaderTrFile<char>::onInclude(const std::string& path)
{
    if (m_depth == kMostDepth || m_loadedPaths.size() == kMostFiles)
        return;
    ++m_depth;
    // Translators get no messages: an include that leads nowhere is left out.
    static_cast<void>(loadOnce(path));
    --m_depth;
}

void LocaleResLoaderTrFile<char>::onUseItem(const std::string& name, const std::string& extra)
{
    if (const auto item = m_definedItems.find(name); item != m_definedItems.end())
        onItem(extra, item->second.first, item->second.second);
}

void LocaleResLoaderTrFile<char>::onDefineItem(const std::string& name, const std::string& first,
                                               const std::string& second, const std::string& extra)
{
    m_definedItems.insert_or_assign(name, std::pair(first, second));
    onItem(extra, first, second);
}

void LocaleResLoaderTrFile<char>::onItem(const std::string& context, const std::string& source,
                                         const std::string& translation)
{
    if (m_callback != nullptr)
        m_callback->onItem(context, source, translation);
}

err::ResultCode LocaleResLoaderTrFile<char>::loadOnce(std::string path)
{
    file::trim(path);
    if (path.empty())
        return err::programError(err::kPathEmpty);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    if (!m_loadedPaths.insert(path).second)
        return {};
    io::IStreamUtf8File stream;
    if (err::succeeded(stream.open(path.c_str())))
        TrResReader(stream, *this).read();
    return {};
}

void LocaleResLoaderTrFile<char>::forget(ILocaleResLoaderCallback<char>* next)
{
    m_callback = next;
    m_depth = 0;
    m_loadedPaths.clear();
    m_definedItems.clear();
}

err::ResultCode LocaleResLoaderFactory<char>::create(ILocaleResLoader<char>** out, unsigned kind)
{
    if (out == nullptr)
        return err::programError(err::kNullPointer);
    if (kind == kTranslationProperties)
        *out = std::make_unique<LocaleResLoaderPropFile<char>>().release();
    else
        *out = std::make_unique<LocaleResLoaderTrFile<char>>().release();
    return {};
}

} // namespace quillon::i18n::internal
