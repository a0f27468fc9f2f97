#include "shellhelper/HelperLibrary.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <windows.h>

#include <gtest/gtest.h>
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

/// The default value of a key, or a word that no test writes where there is none.
std::wstring value(const std::wstring& key)
{
    wchar_t text[256] = {};
    DWORD bytes = sizeof text;
    const LSTATUS status =
        RegGetValueW(HKEY_CURRENT_USER, key.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, text, &bytes);
    return status == ERROR_SUCCESS ? text : L"(none)";
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
    for (const wchar_t* word : {L"first", L"\u0412 \"%L\""}) {
        const std::wstring command = std::wstring(L"do ") + word;
        EXPECT_EQ(asResult(helper().createShellContextMenuForUserT(kType, word, command.c_str(), kId)),
                  kSuccess);
        EXPECT_EQ(exists(), kSuccess);
        EXPECT_EQ(value(kVerbKey), word);
        EXPECT_EQ(value(kVerbKey + L"\\command"), command);
    }
    const std::wstring other = kTypeKey + L"\\shell\\other";
    ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, other.c_str(), nullptr, REG_SZ, L"x", 4), ERROR_SUCCESS);
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(exists(), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(value(other), L"x") << "the verb of another program";
    EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, other.c_str()), ERROR_SUCCESS);
    EXPECT_EQ(asResult(helper().createShellContextMenuForUserT(kType, L"text", L"command", kId)), kSuccess);
    EXPECT_EQ(remove(), kSuccess);
    EXPECT_EQ(remove(), kSuccess);
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, kTypeKey.c_str(), 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
}

TEST(ContextMenu, RefusesTextsThatWouldLeadElsewhere)
{
    const err::ResultCode invalid{err::kGroupProgram, 5};
    EXPECT_EQ(asResult(helper().removeShellContextMenuForUser("*", "text", "..\\id")), invalid);
    EXPECT_EQ(asResult(helper().removeShellContextMenuForUser(nullptr, "text", "id")), invalid);
    EXPECT_EQ(asResult(helper().removeShellContextMenuForUser("", "text", "id")),
              systemError(ERROR_INVALID_PARAMETER));
}

TEST(ShellLink, NamesTheProgramAndTellsWhatItIs)
{
    const TempFolder folder;
    const std::wstring path = wideName(folder.file("Kestrum \u0436.lnk"));
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    ASSERT_EQ(asResult(helper().createShellLinkW(program, L"Kestrum \u0436", path.c_str())), kSuccess);

    ASSERT_TRUE(SUCCEEDED(CoInitialize(nullptr)));
    IShellLinkW* link = nullptr;
    IPersistFile* file = nullptr;
    ASSERT_EQ(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                               reinterpret_cast<void**>(&link)),
              S_OK);
    ASSERT_EQ(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&file)), S_OK);
    EXPECT_EQ(file->Load(path.c_str(), STGM_READ), S_OK);
    wchar_t target[MAX_PATH] = {};
    wchar_t description[MAX_PATH] = {};
    EXPECT_EQ(link->GetPath(target, MAX_PATH, nullptr, 0), S_OK);
    EXPECT_EQ(link->GetDescription(description, MAX_PATH), S_OK);
    EXPECT_EQ(_wcsicmp(target, program), 0) << "another target";
    EXPECT_EQ(std::wstring(description), L"Kestrum \u0436");
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
