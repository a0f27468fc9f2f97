#pragma once

#include "file/FileBytes.h"
#include "file/ITextFileReader.h"

#include <string>

namespace quillon::file::internal {

template <class Char>
class TextFileReader;

/// A reader of UTF-8 and UTF-16 files, of which the mark tells which, or `encoding` where there is none: 20
/// for big-endian UTF-16, 21 for little-endian, anything else for UTF-8. What is not well-formed comes as
/// U+FFFD. A file with a UTF-32 mark is read as little-endian UTF-16 behind the mark's four bytes, without a
/// proper decoding; callers rely on its being neither refused nor understood.
template <>
class TextFileReader<char> final : public ITextFileReader<char>
{
public:
    /// {5, 42} where the file cannot be opened.
    err::ResultCode open(const std::string& path, int encoding) override;
    void close() override;

    [[nodiscard]] bool isOpen() const override { return m_bytes.isOpen(); }
    [[nodiscard]] std::string getFileName() const override { return m_fileName; }
    [[nodiscard]] io::EBomKind getBomKind() const override { return m_bom; }

    /// 1 or 20 by the mark, 21 with any other mark, the argument of `open` without one.
    [[nodiscard]] int getEncoding() const override { return m_encoding; }
    [[nodiscard]] err::ResultCode getLastError() const override { return m_lastError; }

    [[nodiscard]] std::string readAll() override;
    bool readLine(std::string& line) override;
    err::ResultCode rewind() override;

private:
    [[nodiscard]] bool isUtf16() const noexcept;
    [[nodiscard]] std::string decode(const std::string& bytes) const;
    [[nodiscard]] std::string takeUtf8Line();
    [[nodiscard]] std::string takeUtf16Line();

    FileBytes m_bytes;
    std::string m_fileName;
    io::EBomKind m_bom = io::EBomKind::None;
    int m_encoding = 0;
    err::ResultCode m_lastError;
};

} // namespace quillon::file::internal
