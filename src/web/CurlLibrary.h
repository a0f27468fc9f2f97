#pragma once

#include "err/ResultCode.h"
#include "platform/RuntimeLibrary.h"
#include "web/CurlInterface.h"

namespace quillon::web {

/// What is bound of libcurl, by name and in this order. All null until a whole binding exists.
struct CurlFunctions
{
    curl::GlobalInit* globalInit = nullptr;
    curl::EasyInit* easyInit = nullptr;
    curl::EasySetOption* easySetOption = nullptr;
    curl::EasyPerform* easyPerform = nullptr;
    curl::EasyCleanup* easyCleanup = nullptr;
    curl::EasyGetInfo* easyGetInfo = nullptr;
    curl::EasyDuplicate* easyDuplicate = nullptr;
    curl::EasyReset* easyReset = nullptr;
    curl::EasyReceive* easyReceive = nullptr;
    curl::EasySend* easySend = nullptr;
    curl::ListAppend* listAppend = nullptr;
    curl::ListFreeAll* listFreeAll = nullptr;
};

/// libcurl, bound while the program runs, so that a machine without it only lacks what needs it. Belongs to
/// one thread at a time.
class CurlLibrary
{
public:
    /// Binds the library with the UTF-8 name `path`; one that is bound already is a success. {5, 5} for null,
    /// {1, number of the system} where there is no such library or one of the names is missing in it: nothing
    /// is bound then, and another try starts anew.
    err::ResultCode load(const char* path);

    [[nodiscard]] bool isLoaded() const noexcept { return m_module != nullptr; }

    /// Good for the life of this object, once the library is bound.
    [[nodiscard]] const CurlFunctions& functions() const noexcept { return m_functions; }

private:
    platform::RuntimeLibrary m_module;
    CurlFunctions m_functions;
};

} // namespace quillon::web
