#include "shellhelper/HelperLibrary.h"
#include "support/TempFolder.h"

#include <windows.h>

#include <objbase.h>
#include <shlobj.h>

namespace quillon::tests {
namespace {

using err::systemError;

constexpr err::ResultCode kSuccess;

// A file type of the test's own, so that nothing else is in its key.
constexpr const wchar_t* kType = L".kestrum-test";
const std::wstring kTypeKey = std::wstring(L"Software\\Classes\\") + kType;
const std::wstring kVerbKey = kTypeKey + L"\\shell\\" + kId;
const std::wstring kOtherKey = kTypeKey + L"\\shell\\other";

/// The default value of a key, or a word that no test writes where there is none.
std::wstring value(const std::wstring& key)
{
    wchar_t text[256] = {};
    DWORD bytes = sizeof text;
    const bool isThere = RegGetValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text,
                                      &bytes) == ERROR_SUCCESS;
    return isThere ? text : L"(none)";
}

err::ResultCode create(const wchar_t* text, const wchar_t* command)
{
    return asResult(helper().createShellContextMenuForUserT(kType, text, command, kId));
}

err::ResultCode remove()
{
    return asResult(helper().removeShellContextMenuForUserT(kType, L"any text", kId));
}

err::ResultCode exists()
{
    return asResult(helper().existsShellContextMenuForUserT(kType, L"any text", kId));
}

TEST(ContextMenu, IsAVerbOfTheUserUntilItIsRemoved)
{
    EXPECT_EQ(exists(), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(create(L"first", L"do first"), kSuccess);
    EXPECT_EQ(create(L"\u0412 \"%L\"", L"do"), kSuccess);
    EXPECT_EQ(exists(), kSuccess);
    EXPECT_EQ(value(kVerbKey), L"\u0412 \"%L\"");
    EXPECT_EQ(value(kVerbKey + L"\\command"), L"do");
    RegSetKeyValueW(HKEY_CURRENT_USER, kOtherKey.c_str(), nullptr, REG_SZ, L"x", 4);
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(exists(), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(value(kOtherKey), L"x") << "the verb of another program";
    RegDeleteTreeW(HKEY_CURRENT_USER, kOtherKey.c_str());
    EXPECT_EQ(create(L"text", L"command"), kSuccess);
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, kTypeKey.c_str()), ERROR_FILE_NOT_FOUND) << "is left behind";
}

TEST(ContextMenu, RefusesTextsThatWouldLeadElsewhere)
{
    const auto remove = helper().removeShellContextMenuForUser;
    EXPECT_EQ(asResult(remove("*", "text", "..\\id")), err::programError(err::kInvalidArgument));
    EXPECT_EQ(asResult(remove(nullptr, "text", "id")), err::programError(err::kInvalidArgument));
    EXPECT_EQ(asResult(remove("", "text", "id")), systemError(ERROR_INVALID_PARAMETER));
}

TEST(ShellLink, NamesTheProgramAndTellsWhatItIs)
{
    const TempFolder folder;
    const std::wstring path = wideName(folder.file("Kestrum \u0436.lnk"));
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    ASSERT_EQ(asResult(helper().createShellLinkW(program, L"Kestrum \u0436", path.c_str())), kSuccess);

    ASSERT_EQ(CoInitialize(nullptr), S_OK);
    IShellLinkW* link = nullptr;
    IPersistFile* file = nullptr;
    ASSERT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_PPV_ARGS(&link)), S_OK);
    ASSERT_EQ(link->QueryInterface(IID_PPV_ARGS(&file)), S_OK);
    EXPECT_EQ(file->Load(path.c_str(), STGM_READ), S_OK);
    wchar_t text[MAX_PATH] = {};
    EXPECT_EQ(link->GetPath(text, MAX_PATH, nullptr, 0), S_OK);
    EXPECT_EQ(_wcsicmp(text, program), 0) << "another target";
    EXPECT_EQ(link->GetDescription(text, MAX_PATH), S_OK);
    EXPECT_EQ(std::wstring(text), L"Kestrum \u0436");
    file->Release();
    link->Release();
    CoUninitialize();
}

TEST(OpenDir, OpensNothingButFolders)
{
    EXPECT_EQ(asResult(helper().openDirW(L"C:\\none")), systemError(ERROR_DIRECTORY));
    EXPECT_EQ(asResult(helper().openDirAndSelectItemW(L"C:\\none\\x")), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(asResult(helper().deleteDirW(L"C:\\none")), systemError(ERROR_CALL_NOT_IMPLEMENTED));
}

} // namespace
} // namespace quillon::tests
