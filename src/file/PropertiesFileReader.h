#pragma once

#include "err/ResultCode.h"
#include "file/TextFileReader.h"
#include "sync/SafeData.h"
#include "vars/IVariablesSetter.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::file {

/// Decides by its key whether a pair is wanted.
template <class Char>
class IKeyFilter
{
public:
    virtual ~IKeyFilter() = default;

    [[nodiscard]] virtual bool accepts(const std::basic_string<Char>& key) = 0;
};

/// Rewrites a text in place, for example with the values of the variables that it names.
template <class Char>
class ITextExpander
{
public:
    virtual ~ITextExpander() = default;

    virtual void expand(std::basic_string<Char>& text) = 0;
};

/// Reads a file of keys and values into variables. One `read` at a time.
template <class Char>
class IPropertiesFileReader
{
public:
    using Text = std::basic_string<Char>;
    using Setter = vars::internal::IVariablesSetter<Char>;
    using Filter = IKeyFilter<Char>;
    using Expander = ITextExpander<Char>;

    virtual ~IPropertiesFileReader() = default;

    /// Reads the file with the UTF-8 name `path` and hands each pair to `setter`. The expander, if any, sees
    /// key and value first; then `prefix` goes in front of the key; then the filter, if any and unless
    /// `skipFilter`, decides. `encoding` is the number of an EBomKind for a file without a mark; 0 is UTF-8.
    /// Nothing is kept of the pointers. {5, 5} without path or setter, what opening gave, or the first
    /// failure of the setter, which does not end the reading.
    virtual err::ResultCode read(const Text& path, Setter* setter, Filter* filter, Expander* expander,
                                 bool skipFilter, const Text& prefix, int encoding) = 0;

    /// The same with less: no prefix; the filter skipped; neither filter nor expander.
    virtual err::ResultCode read(const Text& path, Setter* setter, Filter* filter, Expander* expander,
                                 bool skipFilter, int encoding) = 0;
    virtual err::ResultCode read(const Text& path, Setter* setter, Filter* filter, Expander* expander,
                                 int encoding) = 0;
    virtual err::ResultCode read(const Text& path, Setter* setter, bool skipFilter, const Text& prefix,
                                 int encoding) = 0;
    virtual err::ResultCode read(const Text& path, Setter* setter, int encoding) = 0;

    /// Ends the running `read` before its next line. Any thread may call.
    virtual void stop() = 0;
};

} // namespace quillon::file

namespace quillon::file::internal {

/// Makes logical lines of a properties file of its physical ones. UTF-8.
class LogicalLines
{
public:
    /// Takes a line without its line feed and gives back the logical line that it completes, if it does.
    /// Comments and empty lines neither complete nor end a line that is being continued.
    [[nodiscard]] std::optional<std::string> add(std::string line);

    /// What the end of the file leaves of a line that was to be continued; empty where nothing is left.
    [[nodiscard]] std::string takeRest() { return std::exchange(m_pending, {}); }

private:
    std::string m_pending;
};

/// Walks logical lines into a key and a value. A key that is empty at the end of its line does not end the
/// walk, so that what follows it goes on where it stopped.
class PairWalk
{
public:
    std::string key;
    std::string value;

    /// Reads to the end of the line. True where there is a key, trimmed; it is the caller's to `clear`.
    bool add(std::string_view line);

    /// Begins with the next pair.
    void clear();

private:
    void takeForKey(char c);
    void takeForValue(char c);
    void takeBackslash();

    bool m_isInValue = false;
    char m_before = '\0'; ///< the byte before, zero at the start of a pair
};

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
