#include "FuzzInput.h"

#include "file/TextFileReader.h"
#include "text/Unicode.h"

using namespace quillon;

namespace {

void readWith(const std::string& path, int encoding)
{
    file::internal::TextFileReader<char> reader;
    fuzz::require(err::succeeded(reader.open(path, encoding)), "an existing file opens");
    std::string joined;
    for (std::string line; reader.readLine(line);)
        joined += line + '\n';
    joined.pop_back();
    fuzz::require(reader.readAll() == joined, "the lines make up the text");
    fuzz::require(text::isUtf8(joined), "the text is well-formed");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string path = fuzz::fileWith(fuzz::asText(data, size));
    for (const int encoding : {0, 20, 21})
        readWith(path, encoding);
    return 0;
}
