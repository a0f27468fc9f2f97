#pragma once

#include "err/ResultCode.h"
#include "file/FileBytes.h"
#include "io/ByteOrderMark.h"

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

namespace internal {

/// What both readers hold and tell of their file.
class HeldTextFile : public ITextFileReader<char>
{
public:
    [[nodiscard]] bool isOpen() const final { return m_bytes.isOpen(); }
    [[nodiscard]] std::string getFileName() const final { return m_fileName; }
    [[nodiscard]] io::EBomKind getBomKind() const final { return m_bom; }
    [[nodiscard]] err::ResultCode getLastError() const final { return m_lastError; }

protected:
    FileBytes m_bytes;
    std::string m_fileName;
    io::EBomKind m_bom = io::EBomKind::None;
    err::ResultCode m_lastError;
};

template <class Char>
class TextFileReader;

/// A reader of UTF-8 and UTF-16 files, of which the mark tells which, or `encoding` where there is none: 20
/// for big-endian UTF-16, 21 for little-endian, anything else for UTF-8. What is not well-formed comes as
/// U+FFFD. A file with a UTF-32 mark is read as little-endian UTF-16 behind the mark's four bytes, without a
/// proper decoding; callers rely on its being neither refused nor understood.
template <>
class TextFileReader<char> final : public HeldTextFile
{
public:
    /// {5, 42} where the file cannot be opened.
    err::ResultCode open(const std::string& path, int encoding) override;
    void close() override;

    /// 1 or 20 by the mark, 21 with any other mark, the argument of `open` without one.
    [[nodiscard]] int getEncoding() const override { return m_encoding; }

    [[nodiscard]] std::string readAll() override;
    bool readLine(std::string& line) override;
    err::ResultCode rewind() override;

private:
    [[nodiscard]] bool isUtf16() const noexcept;
    [[nodiscard]] std::string decode(const std::string& bytes) const;
    [[nodiscard]] std::string takeUtf8Line();
    [[nodiscard]] std::string takeUtf16Line();

    int m_encoding = 0;
};

} // namespace internal

/// A reader of UTF-8 files that hands out the bytes as they are, well-formed or not. Opening a second file
/// forgets the mark of the first even though it is refused.
class Utf8FileReader final : public internal::HeldTextFile
{
public:
    /// `encoding` is ignored. {3, errno} where the file cannot be opened.
    err::ResultCode open(const std::string& path, int encoding) override;
    void close() override;

    [[nodiscard]] int getEncoding() const override { return static_cast<int>(io::EBomKind::Utf8); }

    /// The text is taken in pieces, each a line or 1023 bytes of one, and a zero byte cuts off the rest of
    /// its piece.
    [[nodiscard]] std::string readAll() override;
    bool readLine(std::string& line) override;
    err::ResultCode rewind() override;
};

} // namespace quillon::file
