#pragma once

#include "io/IStreamUtf8File.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::trres::internal {

/// Takes what a translation file says, in the order of the file, on the thread that reads.
template <class Char>
class ITrResReadCallback
{
public:
    using Text = std::basic_string<Char>;

    virtual ~ITrResReadCallback() = default;

    /// `path` is as it stands in the file, backslashes included.
    virtual void onInclude(const Text& path) = 0;

    /// A use of a defined item in the context `extra`, and a definition: `first` is the source text, `second`
    /// its translation. The format has no syntax for these two yet.
    virtual void onUseItem(const Text& name, const Text& extra) = 0;
    virtual void onDefineItem(const Text& name, const Text& first, const Text& second, const Text& extra) = 0;

    virtual void onItem(const Text& context, const Text& source, const Text& translation) = 0;
};

} // namespace quillon::trres::internal

namespace quillon::i18n::internal {

/// The bytes of a file that come next, in a queue that refills itself. The stream has to live as long.
class LookAhead
{
public:
    /// The queue never has fewer bytes than this before the end of the file.
    static constexpr std::size_t kLeastBytes = 16;

    explicit LookAhead(io::IStreamUtf8File& stream);

    /// The queue; empty at the end of the file. Valid until the next call.
    [[nodiscard]] std::string_view view()
    {
        if (m_end - m_begin < kLeastBytes && !m_isDrained)
            fill();
        return {m_bytes.data() + m_begin, m_end - m_begin};
    }

    /// Drops the first `count` bytes of the queue, which must be there.
    void skip(std::size_t count) noexcept { m_begin += count; }

    /// Passes all bytes ahead of the first that `isStop` is true for, and hands them to `sink` as they come.
    /// False where there is none up to the end of the file.
    template <class IsStop, class Sink>
    bool passTo(IsStop isStop, Sink sink)
    {
        for (std::string_view bytes = view(); !bytes.empty(); bytes = view()) {
            const auto stop = std::find_if(bytes.begin(), bytes.end(), isStop);
            const auto count = static_cast<std::size_t>(stop - bytes.begin());
            sink(bytes.substr(0, count));
            skip(count);
            if (count < bytes.size())
                return true;
        }
        return false;
    }

    template <class IsStop>
    bool passTo(IsStop isStop)
    {
        return passTo(isStop, [](std::string_view) {});
    }

private:
    void fill();

    io::IStreamUtf8File& m_stream;
    std::vector<char> m_bytes;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    bool m_isDrained = false;
};

/// Reads one translation file in one pass.
///
/// A file has any number of includes and then entries:
///
///     # a comment, also possible between entries
///     @include "common.tr"
///     @begin
///     @context *
///     @src Open file
///     @tr "Datei öffnen"
///     @end
///
/// The fields of an entry stand in any order, each once. A faulty entry costs only itself: reading goes on at
/// the next "@begin". A keyword is known by its own letters, whatever follows, so that a text with such a
/// word has to write "\@". In source and translation \n, \r and \t stand for line feed, carriage return and
/// tab, and quotes keep white space at the ends; a context is taken as it stands. An entry with one of more
/// than 64 KiB is a faulty one.
class TrResReader
{
public:
    /// Stream and callback have to live as long.
    TrResReader(io::IStreamUtf8File& stream, trres::internal::ITrResReadCallback<char>& callback);

    /// Reads to the end of the stream, or to where it fails. Time and memory grow with the size of the file
    /// and no faster.
    void read();

private:
    void readIncludes();
    bool takeQuotedPath();
    bool takeEntry();
    bool takeField();
    bool takeContext();
    bool takeText(std::string& text);
    void takeEscapes(std::string& text);
    bool passToBegin();

    void skipWhite();
    void skipWhiteAndComments();
    bool takeWord(std::string_view word);
    [[nodiscard]] bool isAtKeyword();

    LookAhead m_ahead;
    trres::internal::ITrResReadCallback<char>& m_callback;
    unsigned m_missingFields = 0;
    std::string m_path;
    std::string m_context;
    std::string m_source;
    std::string m_translation;
};

} // namespace quillon::i18n::internal
