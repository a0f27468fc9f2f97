#pragma once

#include "i18n/ILocaleResLoader.h"
#include "vars/IVariablesSetter.h"

namespace quillon::i18n::internal {

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

} // namespace quillon::i18n::internal
