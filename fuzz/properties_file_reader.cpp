#include "FuzzInput.h"

#include "file/PropertiesFileReader.h"
#include "file/Words.h"

using namespace quillon;

namespace {

class CheckedKeys final : public vars::internal::IVariablesSetter<char>
{
public:
    err::ResultCode setValue(const std::string& key, const std::string& value,
                             const vars::internal::SVariableOptions& /*options*/) override
    {
        return setValue(key, value);
    }
    err::ResultCode setValue(const std::string& key, const std::string& /*value*/) override
    {
        std::string trimmed = key;
        file::trim(trimmed);
        fuzz::require(!key.empty() && trimmed == key, "a key is trimmed and not empty");
        return {};
    }
    err::ResultCode removeValue(const std::string& /*key*/) override { return {}; }
    err::ResultCode clearValues() override { return {}; }
};

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string path = fuzz::fileWith(fuzz::asText(data, size));
    CheckedKeys setter;
    file::internal::PropertiesFileReader<char, file::internal::TextFileReader<char>> reader;
    for (const int encoding : {0, 20, 21})
        fuzz::require(err::succeeded(reader.read(path, &setter, encoding)), "an existing file is read");
    return 0;
}
