#include "FuzzInput.h"

#include "err/ResultCode.h"
#include "file/Words.h"
#include "i18n/TranslationListLoaderXml.h"

#include <vector>

using namespace quillon;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    i18n::internal::TranslationListLoaderXml<char> loader;
    const err::ResultCode result = loader.load("", fuzz::fileWith(fuzz::asText(data, size)));
    fuzz::require(err::succeeded(result) || result == err::programError(err::kXmlMalformed) ||
                      result == err::programError(err::kXmlProcessingFailed),
                  "a list is read or refused for its XML");
    std::vector<i18n::internal::Translation<char>> list;
    loader.getList(list);
    for (const auto& each : list) {
        std::string file = each.file;
        file::trim(file);
        fuzz::require(file == each.file, "texts are trimmed");
    }
    return 0;
}
