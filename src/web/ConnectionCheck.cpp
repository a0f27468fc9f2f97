#include "web/ConnectionCheck.h"

#include "err/ErrorText.h"
#include "err/ResultCode.h"
#include "logger/Log.h"
#include "platform/Network.h"
#include "vars/Product.h"

#include <utility>

namespace quillon::web {
namespace {

constexpr const char* kLogCategory = "options";

bool isFailure(const err::ResultCodes& result)
{
    return !SCheckNetworkConnection{{}, result}.isSuccess();
}

std::string codesText(const err::ResultCodes& result)
{
    return err::errorCodesText(result.first, result.second, result.third);
}

} // namespace

ConnectionCheck::ConnectionCheck()
    : ConnectionCheck(platform::curlLibraryPaths(), vars::kProbeUrl)
{
}

ConnectionCheck::ConnectionCheck(std::vector<std::string> libraryPaths, std::string url)
    : m_libraryPaths(std::move(libraryPaths))
    , m_request(std::move(url))
{
}

err::ResultCode ConnectionCheck::bindLibrary()
{
    if (m_libraryPaths.empty())
        return err::programError(err::kLibraryNotLoaded);
    err::ResultCode told;
    std::string toldPath;
    for (const std::string& path : m_libraryPaths) {
        const err::ResultCode loaded = m_library.load(path.c_str());
        if (m_library.isLoaded())
            return {};
        // That one is broken says more than that another is missing.
        if (toldPath.empty() || (platform::isLibraryMissing(told) && !platform::isLibraryMissing(loaded))) {
            told = loaded;
            toldPath = path;
        }
    }
    logger::log(logger::ELogLevel::Error, kLogCategory, [&](auto& record) {
        record << "Failed to load cURL library. Error: " << err::errorCodesText(told) << ". Path: '"
               << toldPath << "'.";
    });
    return told;
}

err::ResultCodes ConnectionCheck::check(const NetProxy<char>& proxy)
{
    if (const err::ResultCode bound = bindLibrary(); !err::succeeded(bound))
        return {bound, {}, {}};
    unsigned httpCode = 0;
    const err::ResultCodes result = m_request.perform(&m_library, proxy, &httpCode);
    if (isFailure(result)) {
        logger::log(logger::ELogLevel::Error, kLogCategory, [&](auto& record) {
            record << "Failed to check connection. Error: " << codesText(result) << ". HTTP code: '"
                   << httpCode << "'.";
        });
    }
    return result;
}

} // namespace quillon::web
