#include "shell/CShellIntegration.h"

#include "platform/Process.h"
#include "platform/qt/UserPlaces.h"
#include "support/PrintResultCode.h"
#include "text/Unicode.h"
#include "vars/Product.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <utility>

namespace quillon::tests {
namespace {

constexpr err::ResultCode kSuccess;
constexpr err::ResultCode kRecorded{1, 77};

const std::wstring kId = text::wideFromUtf8(vars::kProductGuid);

/// Gives every text the form of its choice, where it has one.
struct Language : QTranslator
{
    [[nodiscard]] bool isEmpty() const override { return false; }
    QString translate(const char*, const char*, const char*, int) const override { return m_form; }

    QString m_form;
};

class CShellIntegrationTest : public testing::Test
{
protected:
    CShellIntegrationTest()
    {
        std::filesystem::remove_all(m_link);
        std::filesystem::create_directories(m_link.parent_path());
        m_shell.init(); // finds no library beside the test program
    }

    ~CShellIntegrationTest() override { std::filesystem::remove_all(m_link); }

    void loadRecorder()
    {
        const std::string folder = KESTRUM_HELPERS "/recording/";
        ASSERT_EQ(m_shell.load(text::wideFromUtf8(folder).c_str()), kSuccess);
        m_recorder = platform::loadRuntimeLibrary(folder + platform::runtimeLibraryFileName("QxShellHelper"));
    }

    /// What the library was asked since the last question.
    [[nodiscard]] std::wstring calls() const
    {
        void* const address = platform::findLibrarySymbol(m_recorder, "recordedCalls");
        return std::exchange(*reinterpret_cast<std::wstring* (*)()>(address)(), {});
    }

    [[nodiscard]] static std::wstring removals(const std::wstring& text)
    {
        std::wstring lines;
        for (const std::wstring type : {L"Directory|", L"*|"})
            for (const std::wstring& name : {text, std::wstring(L"Send To Kestrum")})
                lines += L"removeShellContextMenuForUserT|" + type + name + L'|' + kId + L'\n';
        return lines;
    }

    [[nodiscard]] static std::wstring creation(const std::wstring& text)
    {
        return L"createShellContextMenuForUserT|*|" + text + L'|' +
               platform::shellFileCommand(platform::programPath()) + L'|' + kId + L'\n';
    }

    // No QFileInfo: to that a link's file on Windows is what the link points to.
    const QString m_linkName = platform::sendToLinkPath(vars::kProductName, vars::kProductGuid);
    const std::filesystem::path m_link = m_linkName.toStdU16String();
    CShellIntegration m_shell;
    platform::RuntimeLibrary m_recorder;
};

TEST_F(CShellIntegrationTest, MakesNothingWithoutTheWholeLibraryButTakesTheLinkAway)
{
    EXPECT_EQ(m_shell.load(nullptr), err::programError(err::kInvalidArgument));
    for (const char* folder : {KESTRUM_HELPERS "/missing", KESTRUM_HELPERS "/lacking"})
        EXPECT_EQ(m_shell.load(text::wideFromUtf8(folder).c_str()).group, err::kGroupSystem) << folder;
    EXPECT_EQ(m_shell.removeContextMenu(), kSuccess);
    EXPECT_EQ(m_shell.createContextMenu(), err::programError(err::kLibraryNotLoaded));
    m_shell.renewContextMenu();
    EXPECT_EQ(m_shell.createSendToLink(), err::programError(err::kLibraryNotLoaded));
    std::ofstream(m_link).close();
    EXPECT_EQ(m_shell.createSendToLink(), kSuccess); // it is there
    EXPECT_EQ(m_shell.removeSendToLink(), kSuccess);
    EXPECT_FALSE(std::filesystem::exists(m_link));
    EXPECT_EQ(m_shell.removeSendToLink(), kSuccess);
}

TEST_F(CShellIntegrationTest, RenewalTakesAwayTheTextThatWasCreated)
{
    loadRecorder();
    m_shell.renewContextMenu(); // nothing was created, so there is nothing to take away
    EXPECT_EQ(calls(), creation(L"Send To Kestrum"));
    EXPECT_EQ(m_shell.createContextMenu(), kRecorded);
    EXPECT_EQ(calls(), creation(L"Send To Kestrum"));
    Language language;
    QCoreApplication::installTranslator(&language);
    language.m_form = "An %1 senden";
    EXPECT_EQ(m_shell.removeContextMenu(), kSuccess); // the text stays until it is renewed
    EXPECT_EQ(calls(), removals(L"Send To Kestrum"));
    m_shell.renewContextMenu();
    EXPECT_EQ(calls(), removals(L"Send To Kestrum") + creation(L"An Kestrum senden"));
    language.m_form = "\u0412 %1";
    m_shell.renewContextMenu();
    EXPECT_EQ(calls(), removals(L"An Kestrum senden") + creation(L"\u0412 Kestrum"));
}

TEST_F(CShellIntegrationTest, MakesTheLinkWhereNoFileIsAndSparesAFolder)
{
    loadRecorder();
    const std::wstring link = L"createShellLinkW|" + text::wideFromUtf8(platform::programPath()) +
                              L"|Kestrum|" + m_linkName.toStdWString() + L'\n';
    EXPECT_EQ(m_shell.createSendToLink(), kRecorded);
    EXPECT_EQ(calls(), link);
    std::ofstream(m_link).close();
    EXPECT_EQ(m_shell.createSendToLink(), kSuccess);
    EXPECT_EQ(calls(), L"");
    ASSERT_TRUE(std::filesystem::remove(m_link) && std::filesystem::create_directory(m_link));
    EXPECT_EQ(m_shell.removeSendToLink(), kSuccess);
    EXPECT_TRUE(std::filesystem::is_directory(m_link));
    EXPECT_EQ(m_shell.createSendToLink(), kRecorded);
    EXPECT_EQ(calls(), link);
}

} // namespace
} // namespace quillon::tests
