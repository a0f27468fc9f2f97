#include "crypto/cipher/SettingCipher.h"

#include "crypto/DigestText.h"
#include "crypto/cipher/CipherTestTools.h"
#include "text/AsciiText.h"

#include <optional>
#include <set>

namespace quillon::crypto {
namespace {

std::string containerText(const std::string& plain, const char* password = "qkz")
{
    return bytesToHex(tests::passed<tests::Encryptor>(plain, password).bytes);
}

TEST(SettingCipher, ASettingComesBackFromATextThatDiffersEachTime)
{
    for (const std::string& plain :
         {std::string("p"), std::string("8 bytes."), std::string("\xC3\xA4\0x", 4), tests::pattern(300)}) {
        std::set<std::string> texts;
        for (int i = 0; i < 5; ++i) {
            const std::optional<std::string> text = encipherSetting(plain);
            ASSERT_TRUE(text);
            EXPECT_EQ(text->find_first_not_of("0123456789ABCDEF"), std::string::npos);
            EXPECT_EQ(decipherSetting(*text), plain);
            texts.insert(*text);
        }
        EXPECT_EQ(texts.size(), 5U);
    }
}

TEST(SettingCipher, DigitsOfEitherCaseWithBlanksBetweenAreRead)
{
    std::string text = "\t";
    for (const char c : containerText("secret"))
        text += {text::toAsciiLower(c), ' '};
    EXPECT_EQ(decipherSetting(text), "secret");
}

TEST(SettingCipher, WhatIsNoContainerDoesNotDecipher)
{
    EXPECT_EQ(encipherSetting(""), std::nullopt);
    const std::string text = containerText("secret");
    for (const std::string& stored :
         {std::string(), std::string("  "), std::string("A"), std::string("hunter2"), std::string("DEADBEEF"),
          text + "0", text + "00", text + "G", text.substr(1), text.substr(2),
          text.substr(0, text.size() - 2), text.substr(0, 110), text + std::string(1, '\0'),
          text + std::string("\0AB", 3), containerText("secret", "another")})
        EXPECT_EQ(decipherSetting(stored), std::nullopt) << stored;
}

} // namespace
} // namespace quillon::crypto
