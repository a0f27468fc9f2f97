#include "FuzzInput.h"

#include "file/TextFileReader.h"
#include "io/ByteOrderMark.h"

using namespace quillon;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view bytes = fuzz::asText(data, size);
    file::Utf8FileReader reader;
    fuzz::require(err::succeeded(reader.open(fuzz::fileWith(bytes), 0)), "an existing file opens");
    const auto length = static_cast<std::size_t>(io::bomLength(reader.getBomKind()));
    std::string joined;
    for (std::string line; reader.readLine(line);)
        joined += line + '\n';
    joined.pop_back();
    fuzz::require(joined == bytes.substr(length), "the lines make up the file");
    const std::string whole = reader.readAll();
    const bool isWhole = bytes.find('\0', length) == std::string_view::npos;
    fuzz::require(isWhole ? whole == joined : whole.size() < joined.size(), "only zero bytes cut the text");
    return 0;
}
