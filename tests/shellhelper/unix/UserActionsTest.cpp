#include "shellhelper/unix/Desktop.h"

#include <cerrno>

namespace quillon::tests {
namespace {

using UserActions = Desktop;

const std::string kAction = "<action>\n\t<name>a &gt; b</name>\n\t<unique-id>1-1</unique-id>\n</action>\n";

/// As the system's own file begins: brackets and quotes in the document type.
const std::string kFull =
    "<?xml version=\"1.0\"?>\n<!DOCTYPE actions [\n  <!-- it's --> <!ATTLIST name a CDATA "
    "\"]>\">\n]>\n<actions>\n  <!-- <action> -->\n  " +
    kAction + "\n  </actions>\n";

TEST_F(UserActions, AreByteForByteAsBeforeWhenTheEntryIsGone)
{
    install({"thunar"});
    const std::string texts[] = {kFull,
                                 "<actions/>",
                                 "<actions >\r\n" + kAction + "</actions>",
                                 "<actions a='/'></actions>",
                                 "<actions\n/>\n\n",
                                 "<actions><action/><x>" + kAction + "</x></actions>"};
    for (const std::string& before : texts) {
        write(m_actions, before);
        std::filesystem::permissions(path(m_actions), std::filesystem::perms(0600));
        ASSERT_EQ(create(), err::ResultCode{}) << before;
        ASSERT_NE(bytes(path(m_actions)).find("<unique-id>" + m_id), std::string::npos);
        ASSERT_EQ(create("/opt/other", L"New text"), err::ResultCode{}) << before;
        ASSERT_EQ(remove(), err::ResultCode{});
        EXPECT_EQ(bytes(path(m_actions)), before);
        EXPECT_EQ(std::filesystem::status(path(m_actions)).permissions(), std::filesystem::perms(0600));
    }
}

TEST_F(UserActions, BeginWithTheSystemsWhereTheUserHasNone)
{
    install({"thunar"});
    write("etc/Thunar/uca.xml", kFull);
    ASSERT_EQ(create(), err::ResultCode{});
    EXPECT_NE(bytes(path(m_actions)).find(kAction), std::string::npos);
    ASSERT_EQ(create("/opt/other"), err::ResultCode{});
    ASSERT_EQ(remove(), err::ResultCode{});
    EXPECT_FALSE(std::filesystem::exists(path(m_actions)));
}

TEST_F(UserActions, OfOthersStayWhereTheyWroteMeanwhile)
{
    install({"thunar"});
    ASSERT_EQ(create(), err::ResultCode{});
    std::string text = bytes(path(m_actions));
    text.insert(text.find("<action>"), kAction);
    write(m_actions, text);
    ASSERT_EQ(remove(), err::ResultCode{});
    EXPECT_EQ(bytes(path(m_actions)),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n" + kAction + "</actions>\n");
}

TEST_F(UserActions, ThatAreDamagedAreLeftAlone)
{
    install({"thunar"});
    const std::string damaged[] = {"",
                                   "<actions>",
                                   "<actions></action>",
                                   "<actions/> text",
                                   "<actions/><actions/>",
                                   "<other></other>",
                                   "<actions>&</actions>",
                                   "<actions>\xFF</actions>",
                                   "<actions><!-- </actions>",
                                   "<actions a=\"></actions>"};
    for (const std::string& before : damaged) {
        write(m_actions, before);
        EXPECT_EQ(create(), (err::ResultCode{err::kGroupSystem, EILSEQ})) << before;
        EXPECT_EQ(remove(), err::ResultCode{});
        EXPECT_EQ(bytes(path(m_actions)), before);
    }
}

TEST_F(UserActions, BehindALinkStayThere)
{
    install({"thunar"});
    const std::filesystem::path real = write("dotfiles/uca.xml", "<actions/>");
    std::filesystem::create_directories(path("config/Thunar"));
    std::filesystem::create_symlink(real, path(m_actions));
    ASSERT_EQ(create(), err::ResultCode{});
    EXPECT_TRUE(std::filesystem::is_symlink(path(m_actions)));
    EXPECT_NE(bytes(real), "<actions/>");
    ASSERT_EQ(remove(), err::ResultCode{});
    EXPECT_EQ(bytes(real), "<actions/>");
    std::filesystem::remove(real);
    EXPECT_FALSE(err::succeeded(create()));
    EXPECT_TRUE(std::filesystem::is_symlink(path(m_actions))) << "a link that leads nowhere";
}

TEST_F(UserActions, ThatTheirOwnerHasProtectedStayAsTheyAre)
{
    install({"thunar"});
    const std::filesystem::path file = write(m_actions, "<actions/>");
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(create(), (err::ResultCode{1, EACCES}));
    EXPECT_EQ(bytes(file), "<actions/>");
}

} // namespace
} // namespace quillon::tests
