#include "file/BomDetection.h"

#include "err/ErrorCodes.h"
#include "platform/FilePaths.h"
#include "platform/RuntimeFile.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillon::file {
namespace {

constexpr std::size_t kLongestMarkBytes = 4;

struct Mark
{
    io::EBomKind kind;
    std::string_view bytes;
};

// The longer mark first where one begins like another.
constexpr std::array<Mark, 5> kMarks{{
    {io::EBomKind::Utf32BigEndian, {"\0\0\xFE\xFF", 4}},
    {io::EBomKind::Utf32LittleEndian, {"\xFF\xFE\0\0", 4}},
    {io::EBomKind::Utf8, {"\xEF\xBB\xBF", 3}},
    {io::EBomKind::Utf16BigEndian, {"\xFE\xFF", 2}},
    {io::EBomKind::Utf16LittleEndian, {"\xFF\xFE", 2}},
}};

std::string readHead(std::FILE* file)
{
    std::string head(kLongestMarkBytes, '\0');
    head.resize(std::fread(head.data(), 1, head.size(), file));
    return head;
}

} // namespace

err::ResultCode detectBom(const std::string& path, io::EBomKind& kind)
{
    kind = io::EBomKind::None;
    if (path.empty())
        return err::programError(err::kPathEmpty);
    if (!platform::isPlainFile(path))
        return err::programError(err::kFileNotFound);
    const platform::RuntimeFile file = platform::openRuntimeFile(path.c_str(), "rb");
    if (!file)
        return err::programError(err::kFileOpenFailed);
    const std::string head = readHead(file.get());
    const auto* const mark =
        std::ranges::find_if(kMarks, [&head](const Mark& each) { return head.starts_with(each.bytes); });
    if (mark != kMarks.end())
        kind = mark->kind;
    return {};
}

std::int64_t bomLength(io::EBomKind kind) noexcept
{
    const auto* const mark = std::ranges::find(kMarks, kind, &Mark::kind);
    return mark == kMarks.end() ? 0 : static_cast<std::int64_t>(mark->bytes.size());
}

} // namespace quillon::file
