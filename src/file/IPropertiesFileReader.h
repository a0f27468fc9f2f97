#pragma once

#include "err/ResultCode.h"
#include "vars/IVariablesSetter.h"

#include <string>

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
