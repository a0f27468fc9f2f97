#pragma once

#include "i18n/ITrResReadCallback.h"
#include "i18n/LookAhead.h"

#include <string>
#include <string_view>

namespace quillon::i18n::internal {

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
/// tab, and quotes keep white space at the ends; a context is taken as it stands.
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
