#pragma once

#include "err/ResultCode.h"
#include "platform/RuntimeLibrary.h"

#include <cstddef>

struct curl_slist;

/// The part of libcurl's binary interface that the program uses. Prototypes and numbers are those of
/// curl/curl.h and curl/easy.h, the library's public headers; they never change, which is what lets a program
/// bind the library while it runs.
namespace quillon::web::curl {

using Handle = void; ///< CURL

/// CURLcode; any other number than kOk is a failure.
using Code = int;
inline constexpr Code kOk = 0;

using GlobalInit = Code(long flags);
using EasyInit = Handle*();
using EasySetOption = Code(Handle*, int option, ...);
using EasyPerform = Code(Handle*);
using EasyCleanup = void(Handle*);
using EasyGetInfo = Code(Handle*, int info, ...);
using EasyDuplicate = Handle*(Handle*);
using EasyReset = void(Handle*);
using EasyReceive = Code(Handle*, void* buffer, std::size_t size, std::size_t* received);
using EasySend = Code(Handle*, const void* buffer, std::size_t size, std::size_t* sent);
using ListAppend = curl_slist*(curl_slist*, const char* text);
using ListFreeAll = void(curl_slist*);

// CURLoption. Numbers below 10000 take a long, those from 10000 on a pointer, those from 20000 on a function.
inline constexpr int kVerbose = 41;
inline constexpr int kHeader = 42;
inline constexpr int kNoProgress = 43;
inline constexpr int kNoBody = 44;
inline constexpr int kPost = 47;
inline constexpr int kFollowLocation = 52;
inline constexpr int kPostFieldSize = 60;
inline constexpr int kConnectTimeoutSeconds = 78;
inline constexpr int kNoSignal = 99;
inline constexpr int kQuickExit = 322; ///< from 7.87 on
inline constexpr int kWriteData = 10001;
inline constexpr int kUrl = 10002;
inline constexpr int kProxy = 10004;
inline constexpr int kUserAgent = 10018;
inline constexpr int kHeaderData = 10029;
inline constexpr int kTransferInfoData = 10057;
inline constexpr int kOpenSocketData = 10164;
inline constexpr int kProxyUserName = 10175;
inline constexpr int kProxyPassword = 10176;
inline constexpr int kCloseSocketData = 10209;
inline constexpr int kWriteFunction = 20011;
inline constexpr int kHeaderFunction = 20079;
inline constexpr int kOpenSocketFunction = 20163;
inline constexpr int kCloseSocketFunction = 20208;
inline constexpr int kTransferInfoFunction = 20219; ///< from 7.32 on

/// CURLINFO: the HTTP status of the last answer, into a long.
inline constexpr int kInfoResponseCode = 0x200002;

/// The beginning of struct curl_sockaddr: what `socket` is called with.
struct SocketAddress
{
    int family;
    int type;
    int protocol;
};

} // namespace quillon::web::curl

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
    /// Binds the library with the UTF-8 name `path`; one that is bound already is a success.
    /// kInvalidArgument for null, the system's error where there is no such library or one of the names is
    /// missing in it: nothing is bound then, and another try starts anew.
    err::ResultCode load(const char* path);

    [[nodiscard]] bool isLoaded() const noexcept { return m_module != nullptr; }

    /// Good for the life of this object, once the library is bound.
    [[nodiscard]] const CurlFunctions& functions() const noexcept { return m_functions; }

private:
    platform::RuntimeLibrary m_module;
    CurlFunctions m_functions;
};

} // namespace quillon::web
