#include "shellhelper/unix/Desktop.h"
#include "support/CaseTable.h"

#include <cerrno>

namespace quillon::tests {
namespace {

using err::systemError;
using std::filesystem::perms;

const std::string kAction = "<action>\n\t<name>a &gt; b</name>\n\t<unique-id>1-1</unique-id>\n</action>\n";

class UserActions : public Desktop
{
protected:
    UserActions() { install({"thunar"}); }
};

TEST_F(UserActions, AreByteForByteAsBeforeWhenTheEntryIsGoneOrCannotBe)
{
    std::vector<CaseRow> rows = readCaseTable("shellhelper/unix/actions.txt");
    const std::string whole = rows[0].at(1);
    for (std::size_t size = 0; size < whole.size() - 2; size += 5)
        rows.push_back({"damaged", whole.substr(0, size)});
    for (const CaseRow& row : rows) {
        const err::ResultCode result = row[0] == "kept" ? kSuccess : systemError(EILSEQ);
        const std::string& before = row.at(1);
        std::filesystem::permissions(write(m_actions, before), perms(0600));
        EXPECT_EQ(exists(), systemError(ENOENT)) << before;
        EXPECT_EQ(create(), result) << before;
        EXPECT_EQ(exists(), result == kSuccess ? kSuccess : systemError(ENOENT)) << before;
        EXPECT_EQ(create("/opt/other", L"New text"), result) << before;
        EXPECT_EQ(remove(), kSuccess);
        EXPECT_EQ(bytes(m_actions), before);
        EXPECT_EQ(std::filesystem::status(path(m_actions)).permissions(), perms(0600));
    }
}

TEST_F(UserActions, BeginWithTheSystemsAndStayWhereOthersWriteMeanwhile)
{
    write("etc/Thunar/uca.xml", "<actions>\n" + kAction + "</actions>\n");
    ASSERT_EQ(create(), kSuccess);
    EXPECT_NE(bytes(m_actions).find(kAction), std::string::npos);
    ASSERT_EQ(create("/opt/other"), kSuccess);
    ASSERT_EQ(remove(), kSuccess);
    EXPECT_FALSE(std::filesystem::exists(path(m_actions)));
    std::filesystem::remove(path("etc/Thunar/uca.xml"));
    ASSERT_EQ(create(), kSuccess);
    std::string text = bytes(m_actions);
    write(m_actions, text.insert(text.find("<action>"), kAction));
    ASSERT_EQ(remove(), kSuccess);
    EXPECT_EQ(bytes(m_actions),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<actions>\n" + kAction + "</actions>\n");
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
    EXPECT_EQ(create(), systemError(EINVAL)) << "a link that leads nowhere";
    EXPECT_TRUE(std::filesystem::is_symlink(path(m_actions)));
}

TEST_F(UserActions, ThatTheirOwnerHasProtectedStayAsTheyAre)
{
    const std::filesystem::path file = write(m_actions, "<actions/>");
    std::filesystem::permissions(file, perms::owner_read);
    EXPECT_EQ(create(), systemError(EACCES));
    EXPECT_EQ(bytes(m_actions), "<actions/>");
    std::filesystem::permissions(file, perms(0600));
    ASSERT_EQ(create(), kSuccess);
    const std::string with = bytes(m_actions);
    std::filesystem::permissions(file, perms::owner_read);
    EXPECT_EQ(remove(), systemError(EACCES));
    EXPECT_EQ(bytes(m_actions), with);
}

} // namespace
} // namespace quillon::tests
