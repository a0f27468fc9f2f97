// What every input stream promises, whatever it reads from, and what some of them promise besides.

#include "io/IIStream.h"

#include "io/IStreamBytes.h"
#include "io/IStreamFile.h"
#include "io/IStreamText.h"
#include "io/IStreamUtf8File.h"
#include "support/CaseTable.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon::io {
namespace {

constexpr err::ResultCode kSuccess{};
constexpr err::ResultCode kInvalidArgument{5, 5};

std::string nameFor(const IStreamUtf8File& /*stream*/, const std::filesystem::path& path)
{
    return tests::utf8Name(path);
}

std::wstring nameFor(const IStreamFile<wchar_t>& /*stream*/, const std::filesystem::path& path)
{
    return tests::wideName(path);
}

template <class Stream>
class IIStreamTest : public testing::Test
{
protected:
    void fill(IStreamBytes& stream, const std::string& content)
    {
        stream.setBytes({content.begin(), content.end()});
    }
    void fill(IStreamText<char>& stream, const std::string& content)
    {
        m_text = content;
        stream.setText(m_text.c_str());
    }
    void fill(IStreamHexText<char>& stream, const std::string& content)
    {
        m_text = tests::hexOf(content);
        EXPECT_EQ(stream.setText(m_text.c_str()), kSuccess);
    }
    void fill(auto& file, const std::string& content)
    {
        EXPECT_EQ(file.open(nameFor(file, m_folder.write("t\u00E4xt", content)).c_str()), kSuccess);
    }

    const tests::TempFolder m_folder;
    std::string m_text;
    Stream m_stream;
    unsigned m_bytesRead = 0;
};

using Streams = testing::Types<IStreamBytes, IStreamText<char>, IStreamHexText<char>, IStreamFile<wchar_t>,
                               IStreamUtf8File>;
TYPED_TEST_SUITE(IIStreamTest, Streams);

TYPED_TEST(IIStreamTest, DeliversTheSameBytesHoweverTheyAreAskedForAndThenNoneWithoutAnError)
{
    const std::string content = "first line\n\n\r\n\xFFthird line" + std::string(5000, 'x') + "\nlast";
    for (const std::size_t piece : {1U, 2U, 7U, 2047U, 2048U, 4096U, 32768U}) {
        TypeParam stream;
        this->fill(stream, content);
        EXPECT_EQ(stream.size(), std::ssize(content));
        EXPECT_TRUE(stream.isBegin() && !stream.isEnd());
        std::string bytes;
        std::vector<char> buffer(piece);
        unsigned count = 0;
        while (!stream.isEnd()) {
            const std::size_t wanted = std::min(piece, content.size() - bytes.size());
            ASSERT_TRUE(stream.read(buffer.data(), static_cast<int>(wanted), &count));
            bytes.append(buffer.data(), count);
        }
        EXPECT_EQ(bytes, content) << piece;
        EXPECT_FALSE(stream.isBegin() || stream.readChar(buffer.data()));
        EXPECT_EQ(stream.lastError(), kSuccess);
    }
}

TYPED_TEST(IIStreamTest, WithoutDataIsAtItsEndAndReadsNothingWithSuccess)
{
    EXPECT_FALSE(this->m_stream.isBegin());
    for (const int count : {0, -1}) {
        EXPECT_TRUE(this->m_stream.isEnd());
        EXPECT_EQ(this->m_stream.size(), 0);
        EXPECT_TRUE(this->m_stream.read(nullptr, count, &this->m_bytesRead));
        EXPECT_EQ(this->m_bytesRead, 0U);
        if (count == 0)
            this->fill(this->m_stream, "");
    }
}

template <class Stream>
using FileStreamTest = IIStreamTest<Stream>;
using FileStreams = testing::Types<IStreamFile<wchar_t>, IStreamUtf8File>;
TYPED_TEST_SUITE(FileStreamTest, FileStreams);

TYPED_TEST(FileStreamTest, RefusesToOpenAndToReadWithTheReason)
{
    TypeParam& stream = this->m_stream;
    const auto missing = nameFor(stream, this->m_folder.file("missing"));
    const std::uint32_t group = std::is_same_v<TypeParam, IStreamUtf8File> ? 3 : 1;
    EXPECT_EQ(stream.open(nullptr), kInvalidArgument);
    EXPECT_EQ(stream.open(missing.substr(0, 0).c_str()), kInvalidArgument);
    EXPECT_EQ(stream.open(missing.c_str()), (err::ResultCode{group, ENOENT}));
    EXPECT_EQ(stream.lastError(), (err::ResultCode{group, ENOENT}));
    EXPECT_FALSE(stream.read(this->m_text.data(), 1, &this->m_bytesRead));
    EXPECT_EQ(stream.lastError(), (err::ResultCode{5, 104}));
    this->fill(stream, "a");
    EXPECT_EQ(stream.lastError(), kSuccess);
    EXPECT_EQ(stream.open(missing.c_str()), (err::ResultCode{5, 7}));
    EXPECT_EQ(stream.lastError(), (err::ResultCode{5, 7}));
}

class IStreamUtf8FileTest : public IIStreamTest<IStreamUtf8File>
{
};

TEST_F(IStreamUtf8FileTest, DeliversALineAtATime)
{
    for (const tests::CaseRow& row : tests::readCaseTable("io/lines.txt")) {
        IStreamUtf8File file;
        fill(file, row[1]);
        const int count = std::stoi(row[0]);
        std::string buffer(static_cast<std::size_t>(count), '\0');
        std::vector<std::string> lines;
        while (file.read(buffer.data(), count, &m_bytesRead))
            lines.push_back(buffer.substr(0, m_bytesRead));
        EXPECT_EQ(tests::inBrackets(lines), row[2]);
        EXPECT_EQ("5/" + std::to_string(file.lastError().code), row[3]) << row[1];
    }
}

} // namespace
} // namespace quillon::io
