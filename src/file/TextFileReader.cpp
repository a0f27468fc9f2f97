#include "file/TextFileReader.h"

#include "err/ResultCode.h"
#include "io/ByteOrderMark.h"
#include "platform/Files.h"
#include "text/Unicode.h"
#include "text/Utf16.h"

#include <cerrno>
#include <cstdint>
#include <string_view>

namespace quillon::file {
namespace {

/// What every reader refuses before it opens a file.
err::ResultCode checkOpen(const ITextFileReader<char>& reader, const std::string& path)
{
    if (reader.isOpen())
        return err::programError(err::kReaderAlreadyOpen);
    if (path.empty())
        return err::programError(err::kPathEmpty);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    return {};
}

constexpr std::size_t kPieceBytes = 1023;

constexpr int kUtf16BigEndian = static_cast<int>(io::EBomKind::Utf16BigEndian);
constexpr int kUtf16LittleEndian = static_cast<int>(io::EBomKind::Utf16LittleEndian);

/// The encoding that a file has by its mark; without one what the caller says.
int encodingOf(io::EBomKind bom, int encoding) noexcept
{
    switch (bom) {
    case io::EBomKind::None:
        return encoding;
    case io::EBomKind::Utf8:
    case io::EBomKind::Utf16BigEndian:
        return static_cast<int>(bom);
    case io::EBomKind::Utf16LittleEndian:
    case io::EBomKind::Utf32BigEndian:
    case io::EBomKind::Utf32LittleEndian:
        break;
    }
    return kUtf16LittleEndian;
}

wchar_t unitAt(std::string_view bytes, std::size_t offset, int encoding) noexcept
{
    const auto first = static_cast<unsigned char>(bytes[offset]);
    const auto second = static_cast<unsigned char>(bytes[offset + 1]);
    return static_cast<wchar_t>(encoding == kUtf16BigEndian ? first << 8 | second : second << 8 | first);
}

std::string utf8FromUtf16(std::string_view bytes, int encoding)
{
    constexpr wchar_t kReplacement = 0xFFFD;
    std::wstring wide;
    wide.reserve(bytes.size() / 2 + 1);
    for (std::size_t offset = 0; offset + 1 < bytes.size(); offset += 2)
        text::appendUtf16Unit(wide, unitAt(bytes, offset, encoding));
    if (bytes.size() % 2 != 0)
        wide += kReplacement;
    return text::utf8FromWide(wide);
}

} // namespace

namespace internal {

err::ResultCode TextFileReader<char>::open(const std::string& path, int encoding)
{
    m_lastError = {};
    if (const err::ResultCode refusal = checkOpen(*this, path); !err::succeeded(refusal))
        return refusal;
    // Without a known mark the caller's encoding counts.
    static_cast<void>(detectBom(path, m_bom));
    if (!m_bytes.open(path)) {
        close();
        return err::programError(err::kFileOpenFailed);
    }
    m_fileName = path;
    m_encoding = encodingOf(m_bom, encoding);
    const err::ResultCode result = rewind();
    if (!err::succeeded(result))
        close();
    return result;
}

void TextFileReader<char>::close()
{
    *this = {};
}

std::string TextFileReader<char>::readAll()
{
    m_lastError = rewind();
    if (!err::succeeded(m_lastError))
        return {};
    std::string bytes;
    m_bytes.takeRest(bytes);
    if (m_bytes.hasFailed())
        m_lastError = err::programError(err::kFileReadFailed);
    return decode(bytes);
}

bool TextFileReader<char>::readLine(std::string& line)
{
    m_lastError = isOpen() ? err::ResultCode{} : err::programError(err::kStreamNotOpen);
    if (!isOpen() || m_bytes.isEnd())
        return false;
    // A long line is not kept twice.
    line = std::string();
    line = decode(isUtf16() ? takeUtf16Line() : takeUtf8Line());
    if (m_bytes.hasFailed())
        m_lastError = err::programError(err::kFileReadFailed);
    return true;
}

err::ResultCode TextFileReader<char>::rewind()
{
    if (!isOpen())
        return err::programError(err::kStreamNotOpen);
    return m_bytes.seek(io::bomLength(m_bom)) ? err::ResultCode{} : err::programError(err::kFileSeekFailed);
}

bool TextFileReader<char>::isUtf16() const noexcept
{
    return m_encoding == kUtf16BigEndian || m_encoding == kUtf16LittleEndian;
}

std::string TextFileReader<char>::decode(const std::string& bytes) const
{
    if (isUtf16())
        return utf8FromUtf16(bytes, m_encoding);
    // There and back, so that only well-formed text comes out.
    return text::utf8FromWide(text::wideFromUtf8(bytes));
}

std::string TextFileReader<char>::takeUtf8Line()
{
    std::string bytes;
    m_bytes.takePiece(bytes);
    if (bytes.ends_with('\n'))
        bytes.pop_back();
    return bytes;
}

std::string TextFileReader<char>::takeUtf16Line()
{
    std::string bytes;
    while (!m_bytes.isEnd()) {
        m_bytes.takePiece(bytes);
        // The byte of a line feed may be either half of another unit.
        if (bytes.size() % 2 != 0)
            m_bytes.takePiece(bytes, 1);
        if (bytes.size() >= 2 && bytes.size() % 2 == 0 &&
            unitAt(bytes, bytes.size() - 2, m_encoding) == L'\n') {
            bytes.resize(bytes.size() - 2);
            break;
        }
    }
    return bytes;
}

} // namespace internal

err::ResultCode Utf8FileReader::open(const std::string& path, int /*encoding*/)
{
    m_lastError = {};
    m_bom = io::EBomKind::None;
    if (const err::ResultCode refusal = checkOpen(*this, path); !err::succeeded(refusal))
        return refusal;
    // Without a known mark the file is read from its first byte.
    static_cast<void>(detectBom(path, m_bom));
    if (!m_bytes.open(path)) {
        const auto reason = static_cast<std::uint32_t>(errno);
        close();
        return {err::kGroupRuntime, reason};
    }
    m_fileName = path;
    const err::ResultCode result = rewind();
    if (!err::succeeded(result))
        close();
    return result;
}

void Utf8FileReader::close()
{
    *this = {};
}

std::string Utf8FileReader::readAll()
{
    m_lastError = rewind();
    std::string text;
    std::string piece;
    while (err::succeeded(m_lastError) && !m_bytes.isEnd()) {
        piece.clear();
        m_bytes.takePiece(piece, kPieceBytes);
        text.append(piece, 0, piece.find('\0'));
        if (m_bytes.hasFailed())
            m_lastError = err::programError(err::kFileReadFailed);
    }
    return text;
}

bool Utf8FileReader::readLine(std::string& line)
{
    m_lastError = isOpen() ? err::ResultCode{} : err::programError(err::kStreamNotOpen);
    if (!isOpen() || m_bytes.isEnd())
        return false;
    line.clear();
    m_bytes.takePiece(line);
    if (line.ends_with('\n'))
        line.pop_back();
    if (m_bytes.hasFailed())
        m_lastError = err::programError(err::kFileReadFailed);
    return true;
}

err::ResultCode Utf8FileReader::rewind()
{
    if (!isOpen())
        return err::programError(err::kStreamNotOpen);
    return m_bytes.seek(io::bomLength(m_bom)) ? err::ResultCode{} : err::programError(err::kFileSeekFailed);
}

} // namespace quillon::file
