#include "file/BomDetection.h"

#include "err/ErrorCodes.h"
#include "io/ByteOrderMark.h"
#include "platform/FilePaths.h"
#include "platform/RuntimeFile.h"

#include <algorithm>

namespace quillon::file {
namespace {

std::string readHead(std::FILE* file)
{
    std::string head(io::kLongestMarkBytes, '\0');
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
    const auto* const mark = std::ranges::find_if(
        io::kByteOrderMarks, [&head](const auto& each) { return head.starts_with(each.bytes); });
    if (mark != io::kByteOrderMarks.end())
        kind = mark->kind;
    return {};
}

} // namespace quillon::file
