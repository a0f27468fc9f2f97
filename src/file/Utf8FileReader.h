#pragma once

#include "file/FileBytes.h"
#include "file/ITextFileReader.h"

#include <string>

namespace quillon::file {

/// A reader of UTF-8 files that hands out the bytes as they are, well-formed or not. Opening a second file
/// forgets the mark of the first even though it is refused.
class Utf8FileReader final : public ITextFileReader<char>
{
public:
    /// `encoding` is ignored. {3, errno} where the file cannot be opened.
    err::ResultCode open(const std::string& path, int encoding) override;
    void close() override;

    [[nodiscard]] bool isOpen() const override { return m_bytes.isOpen(); }
    [[nodiscard]] std::string getFileName() const override { return m_fileName; }
    [[nodiscard]] io::EBomKind getBomKind() const override { return m_bom; }
    [[nodiscard]] int getEncoding() const override { return static_cast<int>(io::EBomKind::Utf8); }
    [[nodiscard]] err::ResultCode getLastError() const override { return m_lastError; }

    /// The text is taken in pieces, each a line or 1023 bytes of one, and a zero byte cuts off the rest of
    /// its piece.
    [[nodiscard]] std::string readAll() override;
    bool readLine(std::string& line) override;
    err::ResultCode rewind() override;

private:
    internal::FileBytes m_bytes;
    std::string m_fileName;
    io::EBomKind m_bom = io::EBomKind::None;
    err::ResultCode m_lastError;
};

} // namespace quillon::file
