#include "shellhelper/unix/Desktop.h"

#include <cerrno>
#include <vector>

namespace quillon::tests {
namespace {

using std::filesystem::perms;

constexpr err::ResultCode kSuccess;

const std::string kAction = "<action>\n\t<name>a &gt; b</name>\n\t<unique-id>1-1</unique-id>\n</action>\n";

/// As the system's own file begins: brackets and quotes in the document type.
const std::string kFull =
    "<?xml version=\"1.0\"?>\n<!DOCTYPE actions [\n  <!-- it's --> <!ATTLIST name a CDATA "
    "\"]>\">\n]>\n<actions>\n  <!-- <action> -->\n  " +
    kAction + "\n  </actions>\n";

class UserActions : public Desktop
{
protected:
    UserActions() { install({"thunar"}); }
};

TEST_F(UserActions, AreByteForByteAsBeforeWhenTheEntryIsGone)
{
    const std::string texts[] = {kFull,
                                 "<actions/>",
                                 "<actions >\r\n" + kAction + "</actions>",
                                 "<actions a='/>'></actions>",
                                 "<actions\n/>\n\n",
                                 "<actions><x>&#13;&amp;<![CDATA[&<]]></x></actions>",
                                 "<actions><action/><x>" + kAction + "</x></actions>"};
    for (const std::string& before : texts) {
        std::filesystem::permissions(write(m_actions, before), perms(0600));
        ASSERT_EQ(create(), kSuccess) << before;
        ASSERT_NE(bytes(m_actions).find("<unique-id>" + m_id), std::string::npos);
        ASSERT_EQ(create("/opt/other", L"New text"), kSuccess) << before;
        ASSERT_EQ(remove(), kSuccess);
        EXPECT_EQ(bytes(m_actions), before);
        EXPECT_EQ(std::filesystem::status(path(m_actions)).permissions(), perms(0600));
    }
}

TEST_F(UserActions, BeginWithTheSystemsWhereTheUserHasNone)
{
    write("etc/Thunar/uca.xml", kFull);
    ASSERT_EQ(create(), kSuccess);
    EXPECT_NE(bytes(m_actions).find(kAction), std::string::npos);
    ASSERT_EQ(create("/opt/other"), kSuccess);
    ASSERT_EQ(remove(), kSuccess);
    EXPECT_FALSE(std::filesystem::exists(path(m_actions)));
}

TEST_F(UserActions, OfOthersStayWhereTheyWroteMeanwhile)
{
    ASSERT_EQ(create(), kSuccess);
    std::string text = bytes(m_actions);
    text.insert(text.find("<action>"), kAction);
    write(m_actions, text);
    ASSERT_EQ(remove(), kSuccess);
    EXPECT_EQ(bytes(m_actions),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n" + kAction + "</actions>\n");
    write(m_actions, "<actions><!-- " + m_id + " --></actions>");
    EXPECT_EQ(exists(), err::systemError(ENOENT)) << "who only names our entry";
}

TEST_F(UserActions, ThatAreDamagedAreLeftAlone)
{
    std::vector<std::string> damaged{"<actions></action>",
                                     "<actions/> text",
                                     "<actions/><actions/>",
                                     "</actions>",
                                     "<other></other>",
                                     "<actions><></></actions>",
                                     "<actions>&</actions>",
                                     "<actions>&other;</actions>",
                                     "<actions>\xFF</actions>",
                                     "<actions><!-- </actions>",
                                     "<actions a=\"></actions>",
                                     "<actions <x/></actions>",
                                     "<![CDATA[]]><actions/>",
                                     "<actions/><!DOCTYPE actions>",
                                     "<actions><action><unique-id>" + m_id + "</unique-id></action>"};
    for (std::size_t size = 0; size < kFull.size() - 2; size += 5)
        damaged.push_back(kFull.substr(0, size));
    for (const std::string& before : damaged) {
        write(m_actions, before);
        EXPECT_EQ(create(), err::systemError(EILSEQ)) << before;
        EXPECT_EQ(remove(), kSuccess);
        EXPECT_EQ(bytes(m_actions), before);
    }
}

TEST_F(UserActions, BehindALinkStayThere)
{
    const std::filesystem::path real = write("dotfiles/uca.xml", "<actions/>");
    std::filesystem::create_directories(path("config/Thunar"));
    std::filesystem::create_symlink(real, path(m_actions));
    ASSERT_EQ(create(), kSuccess);
    EXPECT_NE(bytes("dotfiles/uca.xml"), "<actions/>");
    ASSERT_EQ(remove(), kSuccess);
    EXPECT_EQ(bytes("dotfiles/uca.xml"), "<actions/>");
    std::filesystem::remove(real);
    EXPECT_EQ(create(), err::systemError(EINVAL)) << "a link that leads nowhere";
    EXPECT_TRUE(std::filesystem::is_symlink(path(m_actions)));
}

TEST_F(UserActions, ThatTheirOwnerHasProtectedStayAsTheyAre)
{
    const std::filesystem::path file = write(m_actions, "<actions/>");
    std::filesystem::permissions(file, perms::owner_read);
    EXPECT_EQ(create(), err::systemError(EACCES));
    EXPECT_EQ(bytes(m_actions), "<actions/>");
    std::filesystem::permissions(file, perms(0600));
    ASSERT_EQ(create(), kSuccess);
    const std::string with = bytes(m_actions);
    std::filesystem::permissions(file, perms::owner_read);
    EXPECT_EQ(remove(), err::systemError(EACCES));
    EXPECT_EQ(bytes(m_actions), with);
}

} // namespace
} // namespace quillon::tests
