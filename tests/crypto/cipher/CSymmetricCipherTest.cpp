#include "crypto/cipher/CSymmetricCipher.h"

#include "crypto/DigestText.h"
#include "crypto/TestDoubles.h"
#include "crypto/cipher/SettingCipher.h"
#include "crypto/cryptopp/CSymmetricEngine.h"
#include "io/IStreamBytes.h"
#include "platform/Clock.h"
#include "support/Bytes.h"
#include "support/CaseTable.h"
#include "text/AsciiText.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace quillon::crypto {
namespace {

using tests::codesOf;
using tests::Course;
using tests::MemoryStream;
using tests::patternBytes;
using tests::RecordingCallback;

using Encryptor = internal::CSymmetricEncryptor<cryptopp::internal::BlowfishEncryptorEngine>;
using Decryptor = internal::CSymmetricDecryptor<cryptopp::internal::BlowfishDecryptorEngine>;
using Bytes = std::vector<char>;

/// Calls the form of `encrypt` (without salt) or `decrypt` that takes `arguments`.
template <class Cipher, class... Arguments>
std::string pass(Cipher& cipher, IHashCallback* callback, void* userData, const Arguments&... arguments)
{
    if constexpr (std::is_same_v<Cipher, Encryptor>)
        return codesOf(cipher.encrypt(arguments..., false, callback, userData));
    else
        return codesOf(cipher.decrypt(arguments..., callback, userData));
}

/// What a new `Cipher` makes of `bytes`, if its result is `expected`.
template <class Cipher>
std::string through(const std::string& bytes, const char* password = "qkz",
                    const std::string& expected = "0/0", std::uint32_t hash = 23, const Bytes& iv = Bytes(8),
                    std::int32_t bufferBytes = 32768)
{
    Cipher cipher;
    Course course;
    MemoryStream input(course, bytes);
    io::OStreamBytes output;
    EXPECT_EQ(pass(cipher, nullptr, nullptr, &input, &output, password, hash, iv, bufferBytes, 400U),
              expected);
    EXPECT_FALSE(cipher.isRunning());
    const Bytes written = output.bytes();
    return {written.begin(), written.end()};
}

/// Collects bytes, and waits until the clock has moved on.
class SlowOutput final : public io::internal::IOStream<char>
{
public:
    explicit SlowOutput(Course& course)
        : m_course(course)
    {
    }

    std::string bytes;

    unsigned write(const char* buffer, int count) override
    {
        const char mark = m_course.note("write" + std::to_string(count));
        const int taken = mark == '!' ? 0 : tests::passed(mark, count);
        bytes.append(buffer, static_cast<std::size_t>(taken));
        for (const std::uint32_t now = platform::tickCountMs(); platform::tickCountMs() == now;) {
        }
        return static_cast<unsigned>(taken);
    }

    [[nodiscard]] err::ResultCode lastError() const override { return {1, 28}; }

private:
    Course& m_course;
};

/// 200 bytes with a zero key, in either direction.
template <class Cipher>
class SymmetricCipher : public testing::Test
{
protected:
    static constexpr bool kEnciphers = std::is_same_v<Cipher, Encryptor>;
    static std::string container() { return through<Encryptor>(patternBytes(200), ""); }

    const std::string source = kEnciphers ? patternBytes(200) : container();
    const std::string whole = kEnciphers ? container() : patternBytes(200);
    const Bytes key = Bytes(56);
    const Bytes iv = Bytes(8);
    Course course;
    Cipher cipher;
    RecordingCallback callback{course};
};

using Ciphers = testing::Types<Encryptor, Decryptor>;
TYPED_TEST_SUITE(SymmetricCipher, Ciphers);

TYPED_TEST(SymmetricCipher, EveryRunTakesItsCourseAndTheNextOneIsWhole)
{
    this->course.onMark = [this] {
        EXPECT_TRUE(this->cipher.isRunning());
        this->cipher.stop();
    };
    for (const tests::CaseRow& row : tests::readCaseTable("crypto/cipher/runs.txt")) {
        if ((row[0] == "encrypt") != this->kEnciphers)
            continue;
        for (const std::string& plan : {row[3], std::string()}) {
            this->cipher.stop(); // comes too early and is lost
            this->course.heard.clear();
            this->course.plan = plan;
            MemoryStream input(this->course, this->source);
            SlowOutput output(this->course);
            const auto intervalMs = static_cast<std::uint32_t>(std::stoul(row[2]));
            EXPECT_EQ(pass(this->cipher, &this->callback, nullptr, &input, &output, this->key, this->iv,
                           std::stoi(row[1]), intervalMs),
                      plan.empty() ? "0/0" : row[4]);
            EXPECT_EQ(this->course.heard, plan);
            EXPECT_EQ(codesOf(this->callback.result), plan.empty() ? "0/0" : row[4]);
            EXPECT_EQ(output.bytes, plan.empty() ? this->whole : this->whole.substr(0, output.bytes.size()));
            EXPECT_FALSE(this->cipher.isRunning());
        }
    }
}

TYPED_TEST(SymmetricCipher, ArgumentsAreCheckedInOrderAndWithoutAnyEffect)
{
    MemoryStream input(this->course, this->source);
    SlowOutput output(this->course);
    this->course.plan = "^started";
    this->course.onMark = [&] {
        for (const tests::CaseRow& row : tests::readCaseTable("crypto/cipher/refusals.txt")) {
            EXPECT_EQ(pass(this->cipher, &this->callback, nullptr, row[0] == "none" ? nullptr : &input,
                           row[1] == "none" ? nullptr : &output, Bytes(std::stoul(row[3])),
                           Bytes(std::stoul(row[4])), std::stoi(row[2]), 0U),
                      row[5]);
        }
        const char* const noPassword = nullptr;
        EXPECT_EQ(pass(this->cipher, &this->callback, nullptr, &input, &output, noPassword), "5/6,5/4042");
        EXPECT_EQ(this->course.heard, "^started");
    };
    EXPECT_EQ(pass(this->cipher, &this->callback, nullptr, &input, &output, this->key), "0/0");
    EXPECT_EQ(output.bytes, this->whole);
}

TEST(CipherContainer, KnownAnswersAreReachedInBothDirections)
{
    for (const tests::CaseRow& row : tests::readCaseTable("crypto/cipher/vectors/containers.txt")) {
        const auto hash = static_cast<std::uint32_t>(std::stoul(row[2]));
        const Bytes iv(row[3].begin(), row[3].end());
        for (const std::int32_t bufferBytes : {8, 64, 32768}) {
            EXPECT_EQ(through<Decryptor>(row[4], row[1].c_str(), row[5], hash, iv, bufferBytes), row[6]);
            if (row[0] == "both") {
                EXPECT_EQ(through<Encryptor>(row[6], row[1].c_str(), row[5], hash, iv, bufferBytes), row[4]);
            }
        }
    }
}

TEST(PasswordKey, TheSizeOfTheKeyChoosesTheHash)
{
    for (const auto& [keyBytes, hash] : {std::pair{28, 20U}, {29, 21U}, {32, 21U}, {48, 22U}, {49, 23U}})
        EXPECT_EQ(internal::hashForKeySize(keyBytes), hash);
}

TEST(SettingCipher, ASettingComesBackFromATextThatDiffersEachTime)
{
    for (const std::string& plain :
         {std::string("p"), std::string("8 bytes."), std::string("\xC3\xA4\0x", 4), patternBytes(300)}) {
        const std::string text = encipherSetting(plain).value();
        EXPECT_EQ(text.find_first_not_of("0123456789ABCDEF"), std::string::npos);
        EXPECT_EQ(decipherSetting(text), plain);
        EXPECT_NE(encipherSetting(plain), text);
    }
}

TEST(SettingCipher, OnlyAContainerInDigitsOfEitherCaseAndBlanksDeciphers)
{
    EXPECT_EQ(encipherSetting(""), std::nullopt);
    const std::string text = bytesToHex(through<Encryptor>("secret"));
    std::string spaced = "\t";
    for (const char c : text)
        spaced += {text::toAsciiLower(c), ' '};
    EXPECT_EQ(decipherSetting(spaced), "secret");
    for (const std::string& stored :
         {std::string(), std::string("  "), std::string("A"), std::string("hunter2"), std::string("DEADBEEF"),
          text + "0", text + "00", text + "G", text.substr(1), text.substr(2),
          text.substr(0, text.size() - 2), text.substr(0, 110), text + std::string(1, '\0'),
          text + std::string("\0AB", 3), bytesToHex(through<Encryptor>("secret", "another"))})
        EXPECT_EQ(decipherSetting(stored), std::nullopt) << stored;
}

} // namespace
} // namespace quillon::crypto
