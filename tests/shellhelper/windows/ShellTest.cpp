#include "shellhelper/HelperLibrary.h"
#include "support/TempFolder.h"

#include <windows.h>

#include <iterator>

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

TEST(ContextMenu, IsAVerbOfTheUserUntilItIsRemoved)
{
    EXPECT_EQ(exists(kType), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(create(kType, L"first", L"do first"), kSuccess);
    EXPECT_EQ(create(kType, L"\u0412 \"%L\"", L"do"), kSuccess);
    EXPECT_EQ(exists(kType), kSuccess);
    EXPECT_EQ(value(kVerbKey), L"\u0412 \"%L\"");
    EXPECT_EQ(value(kVerbKey + L"\\command"), L"do");
    RegSetKeyValueW(HKEY_CURRENT_USER, kOtherKey.c_str(), nullptr, REG_SZ, L"x", 4);
    EXPECT_EQ(remove(kType), kSuccess);
    EXPECT_EQ(exists(kType), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(value(kOtherKey), L"x") << "the verb of another program";
    RegDeleteTreeW(HKEY_CURRENT_USER, kOtherKey.c_str());
    EXPECT_EQ(create(kType, L"text", L"command"), kSuccess);
    EXPECT_EQ(remove(kType), kSuccess);
    EXPECT_EQ(remove(kType), kSuccess);
    EXPECT_EQ(RegDeleteKeyW(HKEY_CURRENT_USER, kTypeKey.c_str()), ERROR_FILE_NOT_FOUND) << "is left behind";
}

TEST(ShellLink, NamesTheProgramAndTellsWhatItIs)
{
    const TempFolder folder;
    const std::filesystem::path path = folder.file("Kestrum \u0436.lnk");
    wchar_t program[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    ASSERT_EQ(asResult(helper().createShellLinkW(program, L"Kestrum \u0436", path.c_str())), kSuccess);
    std::ifstream stream(path, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_NE(bytes.find("shellhelper_test.exe"), std::string::npos);
    EXPECT_NE(bytes.find({"K\0e\0s\0t\0r\0u\0m\0 \0\x36\x04", 18}), std::string::npos);
}

TEST(Functions, RefuseWhatWouldLeadElsewhereAndOpenNothingButFolders)
{
    const auto remove = helper().removeShellContextMenuForUser;
    EXPECT_EQ(asResult(remove("*", "text", "..\\id")), err::programError(err::kInvalidArgument));
    EXPECT_EQ(asResult(remove(nullptr, "text", "id")), err::programError(err::kInvalidArgument));
    EXPECT_EQ(asResult(remove("", "text", "id")), systemError(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(asResult(helper().openDirW(L"C:\\none")), systemError(ERROR_DIRECTORY));
    EXPECT_EQ(asResult(helper().openDirAndSelectItemW(L"C:\\none\\x")), systemError(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(asResult(helper().deleteDirW(L"C:\\none")), systemError(ERROR_CALL_NOT_IMPLEMENTED));
}

} // namespace
} // namespace quillon::tests
