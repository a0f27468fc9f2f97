#include "file/Utf8FileReader.h"

#include "err/ResultCode.h"
#include "file/FileBytes.h"
#include "file/ITextFileReader.h"
#include "io/ByteOrderMark.h"

#include <cerrno>
#include <cstdint>

namespace quillon::file {
namespace {

constexpr std::size_t kPieceBytes = 1023;

} // namespace

err::ResultCode Utf8FileReader::open(const std::string& path, int /*encoding*/)
{
    m_lastError = {};
    m_bom = io::EBomKind::None;
    if (const err::ResultCode refusal = internal::checkOpen(*this, path); !err::succeeded(refusal))
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
