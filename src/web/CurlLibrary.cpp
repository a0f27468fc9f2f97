#include "web/CurlLibrary.h"

#include "err/ResultCode.h"

#include <utility>

namespace quillon::web {
namespace {

class Binder
{
public:
    explicit Binder(const platform::RuntimeLibrary& library) noexcept
        : m_library(library)
    {
    }

    template <class Function>
    bool bind(const char* name, Function*& function)
    {
        void* address = nullptr;
        m_result = platform::findLibrarySymbol(m_library, name, address);
        function = reinterpret_cast<Function*>(address);
        return err::succeeded(m_result);
    }

    [[nodiscard]] err::ResultCode result() const noexcept { return m_result; }

private:
    const platform::RuntimeLibrary& m_library;
    err::ResultCode m_result;
};

/// Stops at the first name that is missing.
err::ResultCode bindAll(const platform::RuntimeLibrary& library, CurlFunctions& functions)
{
    Binder binder(library);
    static_cast<void>(binder.bind("curl_global_init", functions.globalInit) &&
                      binder.bind("curl_easy_init", functions.easyInit) &&
                      binder.bind("curl_easy_setopt", functions.easySetOption) &&
                      binder.bind("curl_easy_perform", functions.easyPerform) &&
                      binder.bind("curl_easy_cleanup", functions.easyCleanup) &&
                      binder.bind("curl_easy_getinfo", functions.easyGetInfo) &&
                      binder.bind("curl_easy_duphandle", functions.easyDuplicate) &&
                      binder.bind("curl_easy_reset", functions.easyReset) &&
                      binder.bind("curl_easy_recv", functions.easyReceive) &&
                      binder.bind("curl_easy_send", functions.easySend) &&
                      binder.bind("curl_slist_append", functions.listAppend) &&
                      binder.bind("curl_slist_free_all", functions.listFreeAll));
    return binder.result();
}

} // namespace

err::ResultCode CurlLibrary::load(const char* path)
{
    if (path == nullptr)
        return err::programError(err::kInvalidArgument);
    if (isLoaded())
        return {};
    platform::RuntimeLibrary library;
    if (const err::ResultCode loaded = platform::loadRuntimeLibrary(path, library); !err::succeeded(loaded))
        return loaded;
    CurlFunctions functions;
    if (const err::ResultCode bound = bindAll(library, functions); !err::succeeded(bound))
        return bound;
    // A stopped request may leave a thread of libcurl behind that still looks up a name. It runs the
    // library's code, which must therefore stay in memory for good.
    platform::keepRuntimeLibrary(library);
    m_functions = functions;
    m_module = std::move(library);
    return {};
}

} // namespace quillon::web
