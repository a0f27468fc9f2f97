#include "FuzzInput.h"

#include "file/FileBytes.h"
#include "io/ByteOrderMark.h"

using namespace quillon;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    io::EBomKind kind = io::EBomKind::None;
    const err::ResultCode result = file::detectBom(fuzz::fileWith(fuzz::asText(data, size)), kind);
    fuzz::require(err::succeeded(result), "an existing file is looked at");
    const auto length = static_cast<std::size_t>(io::bomLength(kind));
    fuzz::require(length <= size, "a mark is whole");
    fuzz::require(length == 0 || data[length - 1] == 0 || data[length - 1] >= 0xBF,
                  "a mark ends as marks do");
    return 0;
}
