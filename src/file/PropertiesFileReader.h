#pragma once

#include "file/IPropertiesFileReader.h"
#include "file/TextFileReader.h"
#include "sync/SafeData.h"

#include <string>

namespace quillon::file::internal {

/// The reader of properties files, with lines from a `Reader`.
///
/// One pair a line, key and value parted by the first "=" or ":" that has no backslash in front. White space
/// round the key and ahead of the value is dropped; a blank does not end a key. Lines that begin with "#" or
/// "!" are comments. A single backslash at the end joins the next line, if there is one. In a value \n, \r
/// and \t stand for line feed, carriage return and tab. A file must have no empty key, as it would take all
/// that follows into its value.
template <class Char, class Reader>
class PropertiesFileReader final : public IPropertiesFileReader<Char>
{
public:
    using typename IPropertiesFileReader<Char>::Text;
    using typename IPropertiesFileReader<Char>::Setter;
    using typename IPropertiesFileReader<Char>::Filter;
    using typename IPropertiesFileReader<Char>::Expander;

    err::ResultCode read(const Text& path, Setter* setter, Filter* filter, Expander* expander,
                         bool skipFilter, const Text& prefix, int encoding) override;
    err::ResultCode read(const Text& path, Setter* setter, Filter* filter, Expander* expander,
                         bool skipFilter, int encoding) override;
    err::ResultCode read(const Text& path, Setter* setter, Filter* filter, Expander* expander,
                         int encoding) override;
    err::ResultCode read(const Text& path, Setter* setter, bool skipFilter, const Text& prefix,
                         int encoding) override;
    err::ResultCode read(const Text& path, Setter* setter, int encoding) override;
    void stop() override;

private:
    sync::SafeData<sync::Locker, bool> m_isStopped;
};

extern template class PropertiesFileReader<char, TextFileReader<char>>;

} // namespace quillon::file::internal
