#include "file/PropertiesFileReader.h"

#include "err/ErrorCodes.h"
#include "file/PropertiesParser.h"
#include "file/Words.h"

#include <optional>
#include <string>
#include <utility>

namespace quillon::file::internal {
namespace {

/// The road of each pair from the file to the variables.
struct PairSink
{
    vars::internal::IVariablesSetter<char>& setter;
    IKeyFilter<char>* filter;
    ITextExpander<char>* expander;
    const std::string& prefix;
    err::ResultCode firstError{};

    void take(PairWalk& pair)
    {
        if (expander != nullptr) {
            expander->expand(pair.key);
            expander->expand(pair.value);
            trim(pair.key);
            if (pair.key.empty())
                return;
        }
        pair.key.insert(0, prefix);
        if (filter != nullptr && !filter->accepts(pair.key))
            return;
        const err::ResultCode result = setter.setValue(pair.key, pair.value, {});
        if (err::succeeded(firstError))
            firstError = result;
    }
};

} // namespace

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, Filter* filter,
                                                         Expander* expander, bool skipFilter,
                                                         const Text& prefix, int encoding)
{
    if (path.empty() || setter == nullptr)
        return err::programError(err::kInvalidArgument);
    m_isStopped.set(false);
    Reader reader;
    if (const err::ResultCode opened = reader.open(path, encoding); !err::succeeded(opened))
        return opened;
    PairSink sink{*setter, skipFilter ? nullptr : filter, expander, prefix};
    LogicalLines lines;
    PairWalk pair;
    Text line;
    const auto take = [&](const Text& logicalLine) {
        if (!pair.add(logicalLine))
            return;
        sink.take(pair);
        pair.clear();
    };
    while (!m_isStopped.get() && reader.readLine(line)) {
        if (const std::optional<Text> logicalLine = lines.add(std::move(line)))
            take(*logicalLine);
    }
    if (!m_isStopped.get())
        take(lines.takeRest());
    return sink.firstError;
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, Filter* filter,
                                                         Expander* expander, bool skipFilter, int encoding)
{
    return read(path, setter, filter, expander, skipFilter, {}, encoding);
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, Filter* filter,
                                                         Expander* expander, int encoding)
{
    return read(path, setter, filter, expander, true, {}, encoding);
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, bool skipFilter,
                                                         const Text& prefix, int encoding)
{
    return read(path, setter, nullptr, nullptr, skipFilter, prefix, encoding);
}

template <class Char, class Reader>
err::ResultCode PropertiesFileReader<Char, Reader>::read(const Text& path, Setter* setter, int encoding)
{
    return read(path, setter, nullptr, nullptr, true, {}, encoding);
}

template <class Char, class Reader>
void PropertiesFileReader<Char, Reader>::stop()
{
    m_isStopped.set(true);
}

template class PropertiesFileReader<char, TextFileReader<char>>;

} // namespace quillon::file::internal
