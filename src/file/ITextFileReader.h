#pragma once

#include "err/ResultCode.h"
#include "io/ByteOrderMark.h"
#include "platform/Files.h"

#include <string>

namespace quillon::file {

/// Reads a text file whole or line by line and hands out UTF-8. A reader is closed or open and serves one
/// caller.
template <class Char>
class ITextFileReader
{
public:
    using Text = std::basic_string<Char>;

    virtual ~ITextFileReader() = default;

    /// Opens the file with the UTF-8 name `path` and stands behind its byte order mark. `encoding` is the
    /// number of an EBomKind and counts only where the file has no mark. {5, 54} where the reader is open
    /// already, {5, 40} for an empty path, {5, 41} where there is no such file or it is a folder, {5, 204}
    /// where seeking fails, and what the reader gives where the file cannot be opened. A refusal is not kept
    /// as the last error.
    virtual err::ResultCode open(const Text& path, int encoding) = 0;

    /// Forgets name, mark, encoding and last error too.
    virtual void close() = 0;

    [[nodiscard]] virtual bool isOpen() const = 0;
    [[nodiscard]] virtual Text getFileName() const = 0;
    [[nodiscard]] virtual io::EBomKind getBomKind() const = 0;
    [[nodiscard]] virtual int getEncoding() const = 0;

    /// The failure of the last `readAll` or `readLine`: {5, 104} where the reader was not open, {5, 45} where
    /// reading failed, {5, 204} where seeking failed.
    [[nodiscard]] virtual err::ResultCode getLastError() const = 0;

    /// The whole text behind the mark, wherever the reader stood; afterwards it stands at the end. What came
    /// before a failing read is handed out.
    [[nodiscard]] virtual Text readAll() = 0;

    /// Takes the text up to the next line feed, which is not stored, or to the end of the file; a carriage
    /// return stays. False, and `line` untouched, where the end was met by a call before: so a file that ends
    /// with a line feed has one more, empty line. A failing read ends the file.
    virtual bool readLine(Text& line) = 0;

    /// Goes back to the byte behind the mark. {5, 104} where the reader is not open, {5, 204} where seeking
    /// fails.
    virtual err::ResultCode rewind() = 0;
};

} // namespace quillon::file

namespace quillon::file::internal {

/// What every reader refuses before it opens a file.
inline err::ResultCode checkOpen(const ITextFileReader<char>& reader, const std::string& path)
{
    if (reader.isOpen())
        return err::programError(err::kReaderAlreadyOpen);
    if (path.empty())
        return err::programError(err::kPathEmpty);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    return {};
}

} // namespace quillon::file::internal
