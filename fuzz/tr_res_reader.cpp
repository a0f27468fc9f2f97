#include "FuzzInput.h"

#include "i18n/TrResReader.h"

using namespace quillon;

namespace {

class CountedItems final : public trres::internal::ITrResReadCallback<char>
{
public:
    std::size_t items = 0;
    std::size_t bytes = 0;

    void onInclude(const std::string& path) override { bytes += path.size(); }
    void onUseItem(const std::string& /*name*/, const std::string& /*extra*/) override {}
    void onDefineItem(const std::string& /*name*/, const std::string& /*first*/,
                      const std::string& /*second*/, const std::string& /*extra*/) override
    {
    }
    void onItem(const std::string& context, const std::string& source,
                const std::string& translation) override
    {
        ++items;
        bytes += context.size() + source.size() + translation.size();
    }
};

std::size_t count(std::string_view text, std::string_view word)
{
    std::size_t found = 0;
    for (std::size_t at = text.find(word); at != std::string_view::npos; at = text.find(word, at + 1))
        ++found;
    return found;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text = fuzz::asText(data, size);
    io::IStreamUtf8File stream;
    fuzz::require(err::succeeded(stream.open(fuzz::fileWith(text).c_str())), "an existing file opens");
    CountedItems counted;
    i18n::internal::TrResReader(stream, counted).read();
    fuzz::require(counted.items <= count(text, "@begin"), "an item needs an entry of its own");
    fuzz::require(counted.bytes <= size, "no text comes twice");
    return 0;
}
