#include "crypto/DigestText.h"
#include "crypto/cipher/CipherTestTools.h"
#include "crypto/cipher/SettingCipher.h"
#include "text/AsciiText.h"

#include <fstream>
#include <optional>
#include <set>
#include <sstream>

namespace quillon::crypto {
namespace {

using tests::bytesFromHex;
using tests::Decryptor;
using tests::Encryptor;
using tests::passed;
using tests::patternBytes;

constexpr HashResult kMismatch{{5, 4003}, {}};
constexpr HashResult kTooShort{{5, 4004}, {}};
constexpr HashResult kCut{{5, 4005}, {}};

/// One line of the vector file, which tells what its columns are.
void checkKnownAnswer(const std::string& line)
{
    SCOPED_TRACE(line);
    std::string kind, password, ivText, container, outcome;
    ASSERT_TRUE(std::istringstream(line) >> kind >> password >> ivText >> container >> outcome);
    password = password == "-" ? "" : password;
    const std::string ivBytes = bytesFromHex(ivText);
    const std::vector<char> iv(ivBytes.begin(), ivBytes.end());
    const HashResult result = outcome == "5,4005" ? kCut : HashResult{};
    const std::string plain = outcome == "-" || outcome == "5,4005" ? "" : bytesFromHex(outcome);
    for (const std::int32_t bufferBytes : {8, 64, 32768}) {
        const auto deciphered = passed<Decryptor>(bytesFromHex(container), password.c_str(), iv, bufferBytes);
        EXPECT_EQ(deciphered.result, result);
        EXPECT_EQ(deciphered.bytes, plain);
        if (kind == "both") {
            EXPECT_EQ(passed<Encryptor>(plain, password.c_str(), iv, bufferBytes).bytes,
                      bytesFromHex(container));
        }
    }
}

TEST(CipherContainer, KnownAnswersAreReachedInBothDirections)
{
    std::ifstream file(KESTRUM_TEST_DATA "/crypto/cipher/vectors/containers.txt");
    int vectors = 0;
    for (std::string line; std::getline(file, line);) {
        if (line.front() == '#')
            continue;
        checkKnownAnswer(line);
        ++vectors;
    }
    EXPECT_GT(vectors, 20);
}

TEST(CipherContainer, EveryLengthComesBackFromAContainerOfWholeBlocks)
{
    for (std::size_t length = 0; length <= 300; ++length) {
        const std::string plain = patternBytes(length);
        const auto container = passed<Encryptor>(plain, "qkz", tests::kZeroIv, 120);
        ASSERT_EQ(container.result, HashResult{});
        ASSERT_EQ(container.bytes.size(), length == 0 ? 0 : 56 + (length + 7) / 8 * 8);
        const auto back = passed<Decryptor>(container.bytes);
        ASSERT_EQ(back.result, HashResult{});
        ASSERT_EQ(back.bytes, plain) << length << " bytes";
    }
}

TEST(CipherContainer, AChangedByteIsFoundInTheHeaderAndChangesTheTextBehindIt)
{
    constexpr std::size_t kCheckedBytes = 48; // the salt behind them is not looked at
    const std::string plain = patternBytes(100);
    const std::string container = passed<Encryptor>(plain).bytes;
    for (std::size_t at = 0; at < container.size(); ++at) {
        std::string changed = container;
        changed[at] = static_cast<char>(changed[at] ^ 0x40);
        const auto back = passed<Decryptor>(changed);
        ASSERT_EQ(back.result, at < kCheckedBytes ? kMismatch : HashResult{}) << "byte " << at;
        ASSERT_EQ(back.bytes.size(), at < kCheckedBytes ? 0 : plain.size());
        ASSERT_NE(back.bytes, plain);
    }
}

TEST(CipherContainer, ACutOneAndOneOfAnotherPasswordAreRefused)
{
    const std::string container = passed<Encryptor>(patternBytes(100)).bytes;
    for (std::size_t length = 1; length < container.size(); ++length) {
        const auto back = passed<Decryptor>(container.substr(0, length));
        ASSERT_EQ(back.result, length < 56 ? kTooShort : kCut) << length << " bytes";
        ASSERT_EQ(back.bytes, "");
    }
    EXPECT_EQ(passed<Decryptor>(container, "QKZ").result, kMismatch);
}

TEST(CipherContainer, WhatFollowsTheDataIsDroppedInWholeBlocksOnly)
{
    const std::string plain = patternBytes(100);
    const std::string container = passed<Encryptor>(plain).bytes;
    for (const std::size_t extra : {1U, 4U, 7U, 8U, 9U, 16U, 800U, 70000U}) {
        const auto back = passed<Decryptor>(container + std::string(extra, 'x'), "qkz", tests::kZeroIv, 1024);
        EXPECT_EQ(back.result, extra % 8 == 0 ? HashResult{} : kCut);
        EXPECT_EQ(back.bytes, extra % 8 == 0 ? plain : "") << extra << " bytes more";
    }
}

std::string containerText(const std::string& plain, const char* password = "qkz")
{
    return bytesToHex(tests::passed<tests::Encryptor>(plain, password).bytes);
}

TEST(SettingCipher, ASettingComesBackFromATextThatDiffersEachTime)
{
    for (const std::string& plain :
         {std::string("p"), std::string("8 bytes."), std::string("\xC3\xA4\0x", 4), patternBytes(300)}) {
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
