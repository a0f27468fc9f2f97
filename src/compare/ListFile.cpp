#include "compare/ListFile.h"

#include "io/ByteOrderMark.h"
#include "io/IStreamFile.h"
#include "text/Unicode.h"
#include "text/Utf16.h"

#include <algorithm>

namespace quillon::compare {

std::string textOfFile(std::string_view bytes)
{
    const auto startsWithMark = [bytes](const io::ByteOrderMark& mark) {
        return bytes.starts_with(mark.bytes);
    };
    const auto* const mark = std::ranges::find_if(io::kByteOrderMarks, startsWithMark);
    if (mark == io::kByteOrderMarks.end())
        return std::string(bytes);
    bytes.remove_prefix(mark->bytes.size());
    const bool isBigEndian = mark->kind == io::EBomKind::Utf16BigEndian;
    if (!isBigEndian && mark->kind != io::EBomKind::Utf16LittleEndian)
        return std::string(bytes);
    std::wstring units;
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        text::appendUtf16Unit(units,
                              static_cast<wchar_t>(isBigEndian ? first << 8 | second : second << 8 | first));
    }
    return text::utf8FromWide(units);
}

ListFile readListFile(const std::string& fileName)
{
    const auto waitForNobody = [] { return true; };
    io::IStreamFile<wchar_t> file;
    ListFile list{file.open(text::wideFromUtf8(fileName).c_str(), waitForNobody), false, {}};
    if (!err::succeeded(list.result))
        return list;
    list.isTooLong = file.size() > kMostListBytes;
    if (list.isTooLong)
        return list;
    std::string bytes(static_cast<std::size_t>(file.size()), '\0');
    std::size_t length = 0;
    for (unsigned count = 1; count > 0 && length < bytes.size(); length += count) {
        if (!file.read(bytes.data() + length, static_cast<int>(bytes.size() - length), &count)) {
            list.result = file.lastError();
            return list;
        }
    }
    bytes.resize(length);
    list.text = textOfFile(bytes);
    return list;
}

} // namespace quillon::compare
