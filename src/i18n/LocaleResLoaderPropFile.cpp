#include "i18n/LocaleResLoaderPropFile.h"

#include "file/PropertiesFileReader.h"

namespace quillon::i18n::internal {

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

} // namespace quillon::i18n::internal
