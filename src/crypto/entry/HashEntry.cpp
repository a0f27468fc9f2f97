#include "crypto/entry/HashEntry.h"

#include "crypto/HashCatalogue.h"
#include "crypto/IHashFactoryBase.h"
#include "crypto/cryptopp/CppHashFactory.h"
#include "crypto/skein/SkeinHashFactory.h"
#include "err/ErrorText.h"
#include "io/IStreamFile.h"
#include "logger/Log.h"
#include "text/Unicode.h"

#include <string>

namespace quillon::crypto {
namespace {

using logger::ELogLevel;

void logError(const char* function, const char* sentence)
{
    logger::log(ELogLevel::Error, function, [sentence](auto& record) { record << sentence; });
}

/// `sentence` and the numbers of `result`.
void logError(const char* function, const char* sentence, const HashResult& result)
{
    logger::log(ELogLevel::Error, function, [&](auto& record) {
        record << sentence << "Error: " << err::errorCodesText(result.primary, result.secondary);
    });
}

std::shared_ptr<IHash> createOrLog(const IHashFactoryBase& factory, std::uint32_t libraryId,
                                   std::uint32_t algorithmId, const char* sentence)
{
    IHash* created = nullptr;
    const HashResult result = factory.create(libraryId, algorithmId, &created);
    std::shared_ptr<IHash> calculator(created);
    if (!succeeded(result))
        logError("getHashCalculator", sentence, result);
    return calculator;
}

} // namespace

std::shared_ptr<IHash> getHashCalculator(std::uint32_t libraryId, std::uint32_t algorithmId)
{
    switch (libraryId) {
    case kCryptoppLibraryId:
        return createOrLog(cryptopp::CHashFactory(), libraryId, algorithmId,
                           "Failed to load cryptographic engine (cpp). ");
    case kSkeinLibraryId:
        return createOrLog(skein::CHashFactory(), libraryId, algorithmId,
                           "Failed to load cryptographic engine (sk). ");
    default:
        logger::log(ELogLevel::Error, "getHashCalculator",
                    [libraryId](auto& record) { record << "Undefined library type: " << libraryId; });
        return nullptr;
    }
}

// The calculator is taken by value: it must outlive the run even where its owner replaces it meanwhile.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
HashResult calculateHash(const thisapp::SHashData& hashData, std::shared_ptr<IHash> hash,
                         IHashCallback* callback)
{
    if (hash == nullptr) {
        logError("calculateHash", "Cryptographic engine is not loaded");
        return hashError(err::kEngineNotInitialised);
    }
    if (hashData.fileName.empty()) {
        logError("calculateHash", "File not defined");
        return hashError(err::kFileNameNotDefined);
    }
    io::IStreamFile<wchar_t> file;
    const auto isStopped = [callback] { return callback != nullptr && callback->isHashStopRequested(); };
    const HashResult opened{file.open(text::wideFromUtf8(hashData.fileName).c_str(), isStopped), {}};
    if (!succeeded(opened) && isStopped())
        return hashError(err::kHashStopped);
    if (!succeeded(opened)) {
        logError("calculateHash", "Failed to open file. ", opened);
        return opened;
    }
    const HashResult result = hash->calculate(&file, callback);
    if (succeeded(result) && file.isFileChanged()) {
        logger::log(ELogLevel::Warning, "calculateHash",
                    [](auto& record) { record << "The file was changed during the calculation."; });
        if (callback != nullptr)
            callback->onHashFileChanged();
    }
    return result;
}

} // namespace quillon::crypto
