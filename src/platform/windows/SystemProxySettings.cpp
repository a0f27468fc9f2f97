#include "platform/SystemProxySettings.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstdint>
#include <string>

namespace quillon::platform {

bool showSystemProxySettings()
{
    wchar_t folder[MAX_PATH] = {};
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_SYSTEM, nullptr, SHGFP_TYPE_CURRENT, folder)))
        return false;
    const std::wstring system = std::wstring(folder) + L'\\';
    const std::wstring program = system + L"rundll32.exe";
    // The last number is the page with the connections.
    const std::wstring arguments = system + L"shell32.dll,Control_RunDLL " + system + L"inetcpl.cpl" + L",,4";
    const HINSTANCE answer =
        ShellExecuteW(nullptr, L"open", program.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
    // Not a handle: numbers up to 32 are errors.
    return reinterpret_cast<std::intptr_t>(answer) > 32;
}

} // namespace quillon::platform
