#include "crypto/cipher/CipherTestTools.h"
#include "text/AsciiText.h"

#include <fstream>
#include <sstream>

namespace quillon::crypto {
namespace {

using tests::Decryptor;
using tests::Encryptor;
using tests::passed;
using tests::pattern;

constexpr HashResult kMismatch{{5, 4003}, {}};
constexpr HashResult kTooShort{{5, 4004}, {}};
constexpr HashResult kCut{{5, 4005}, {}};

std::string fromHex(const std::string& hex)
{
    std::string bytes;
    for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
        bytes += static_cast<char>(text::hexDigitValue(hex[i]) * 16 + text::hexDigitValue(hex[i + 1]));
    return bytes;
}

/// One line of the vector file, which tells what its columns are.
void checkKnownAnswer(const std::string& line)
{
    SCOPED_TRACE(line);
    std::string kind, password, ivText, container, outcome;
    ASSERT_TRUE(std::istringstream(line) >> kind >> password >> ivText >> container >> outcome);
    password = password == "-" ? "" : password;
    const std::string ivBytes = fromHex(ivText);
    const std::vector<char> iv(ivBytes.begin(), ivBytes.end());
    const HashResult result = outcome == "5,4005" ? kCut : HashResult{};
    const std::string plain = outcome == "-" || outcome == "5,4005" ? "" : fromHex(outcome);
    for (const std::int32_t bufferBytes : {8, 64, 32768}) {
        const auto deciphered = passed<Decryptor>(fromHex(container), password.c_str(), iv, bufferBytes);
        EXPECT_EQ(deciphered.result, result);
        EXPECT_EQ(deciphered.bytes, plain);
        if (kind == "both") {
            EXPECT_EQ(passed<Encryptor>(plain, password.c_str(), iv, bufferBytes).bytes, fromHex(container));
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
        const std::string plain = pattern(length);
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
    const std::string plain = pattern(100);
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
    const std::string container = passed<Encryptor>(pattern(100)).bytes;
    for (std::size_t length = 1; length < container.size(); ++length) {
        const auto back = passed<Decryptor>(container.substr(0, length));
        ASSERT_EQ(back.result, length < 56 ? kTooShort : kCut) << length << " bytes";
        ASSERT_EQ(back.bytes, "");
    }
    EXPECT_EQ(passed<Decryptor>(container, "QKZ").result, kMismatch);
}

TEST(CipherContainer, WhatFollowsTheDataIsDroppedInWholeBlocksOnly)
{
    const std::string plain = pattern(100);
    const std::string container = passed<Encryptor>(plain).bytes;
    for (const std::size_t extra : {1U, 4U, 7U, 8U, 9U, 16U, 800U, 70000U}) {
        const auto back = passed<Decryptor>(container + std::string(extra, 'x'), "qkz", tests::kZeroIv, 1024);
        EXPECT_EQ(back.result, extra % 8 == 0 ? HashResult{} : kCut);
        EXPECT_EQ(back.bytes, extra % 8 == 0 ? plain : "") << extra << " bytes more";
    }
}

} // namespace
} // namespace quillon::crypto
