// What every input stream promises, whatever it reads from.

#include "io/IIStream.h"

#include "io/IStreamBytes.h"
#include "io/IStreamFile.h"
#include "io/IStreamText.h"
#include "io/IStreamUtf8File.h"
#include "support/Bytes.h"
#include "support/PrintResultCode.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillon::io {
namespace {

using Stream = internal::IIStream<char>;

/// A stream together with what it reads from, which outlives it.
struct Source
{
    std::unique_ptr<tests::TempFolder> folder;
    std::shared_ptr<std::string> text;
    std::unique_ptr<Stream> stream;
};

template <class FileStream, class Name>
Source fileSource(const std::string& content, Name nameOf)
{
    Source source{std::make_unique<tests::TempFolder>(), nullptr, nullptr};
    auto stream = std::make_unique<FileStream>();
    EXPECT_EQ(stream->open(nameOf(source.folder->write("input", content)).c_str()), err::ResultCode{});
    source.stream = std::move(stream);
    return source;
}

template <class TextStream>
Source textSource(std::shared_ptr<std::string> text)
{
    auto stream = std::make_unique<TextStream>();
    static_cast<void>(stream->setText(text->c_str()));
    return {nullptr, std::move(text), std::move(stream)};
}

struct Implementation
{
    const char* name;
    std::function<std::unique_ptr<Stream>()> makeBlank; ///< not open, or without data
    std::function<Source(const std::string& content)> makeSource;
};

Source bytesSource(const std::string& content)
{
    auto stream = std::make_unique<IStreamBytes>();
    stream->setBytes({content.begin(), content.end()});
    return {nullptr, nullptr, std::move(stream)};
}

const Implementation kImplementations[] = {
    {"IStreamFile", [] { return std::make_unique<IStreamFile<wchar_t>>(); },
     [](const std::string& content) { return fileSource<IStreamFile<wchar_t>>(content, tests::wideName); }},
    {"IStreamUtf8File", [] { return std::make_unique<IStreamUtf8File>(); },
     [](const std::string& content) { return fileSource<IStreamUtf8File>(content, tests::utf8Name); }},
    {"IStreamBytes", [] { return std::make_unique<IStreamBytes>(); }, bytesSource},
    {"IStreamText", [] { return std::make_unique<IStreamText<char>>(); },
     [](const std::string& content) {
         return textSource<IStreamText<char>>(std::make_shared<std::string>(content));
     }},
    {"IStreamHexText", [] { return std::make_unique<IStreamHexText<char>>(); },
     [](const std::string& content) {
         return textSource<IStreamHexText<char>>(std::make_shared<std::string>(tests::hexOf(content)));
     }},
};

class IIStreamTest : public testing::TestWithParam<Implementation>
{
};

INSTANTIATE_TEST_SUITE_P(Every, IIStreamTest, testing::ValuesIn(kImplementations),
                         [](const auto& test) { return test.param.name; });

/// Reads to the end in pieces, and asks for no more than is left.
std::string readInPieces(Stream& stream, std::size_t size, std::size_t piece)
{
    std::string bytes;
    std::vector<char> buffer(piece);
    while (!stream.isEnd()) {
        unsigned bytesRead = 0;
        const auto wanted = static_cast<int>(std::min(piece, size - bytes.size()));
        if (!stream.read(buffer.data(), wanted, &bytesRead))
            break;
        bytes.append(buffer.data(), bytesRead);
    }
    return bytes;
}

TEST_P(IIStreamTest, DeliversTheSameBytesHoweverTheyAreAskedFor)
{
    std::string content = "first line\n\n\r\n\xFFthird line";
    content += std::string(5000, 'x') + "\n" + std::string(2100, 'y');
    for (const std::size_t piece : {1U, 2U, 7U, 2047U, 2048U, 4096U, 32768U}) {
        const Source source = GetParam().makeSource(content);
        EXPECT_EQ(source.stream->size(), static_cast<std::int64_t>(content.size()));
        EXPECT_EQ(readInPieces(*source.stream, content.size(), piece), content) << piece;
        EXPECT_TRUE(source.stream->isEnd());
        EXPECT_EQ(source.stream->lastError(), err::ResultCode{});
    }
}

TEST_P(IIStreamTest, ReadingAtTheEndIsFalseAndNoError)
{
    const Source source = GetParam().makeSource("ab");
    EXPECT_TRUE(source.stream->isBegin());
    EXPECT_FALSE(source.stream->isEnd());
    EXPECT_EQ(readInPieces(*source.stream, 2, 2), "ab");
    char c = 0;
    unsigned bytesRead = 0;
    EXPECT_FALSE(source.stream->read(&c, 1, &bytesRead));
    EXPECT_FALSE(source.stream->isBegin());
    EXPECT_EQ(bytesRead, 0U);
    EXPECT_EQ(source.stream->lastError(), err::ResultCode{});
}

TEST_P(IIStreamTest, ReadCharDeliversOneByteATime)
{
    const Source source = GetParam().makeSource("ab");
    char c = 0;
    EXPECT_TRUE(source.stream->readChar(&c));
    EXPECT_EQ(c, 'a');
    EXPECT_TRUE(source.stream->readChar(&c));
    EXPECT_EQ(c, 'b');
    EXPECT_FALSE(source.stream->readChar(&c));
}

TEST_P(IIStreamTest, ReadingNothingIsTrueEvenWithoutDataAndBuffer)
{
    const auto blank = GetParam().makeBlank();
    for (const int count : {0, -1}) {
        unsigned bytesRead = 77;
        EXPECT_TRUE(blank->read(nullptr, count, &bytesRead));
        EXPECT_EQ(bytesRead, 0U);
        EXPECT_EQ(blank->lastError(), err::ResultCode{});
    }
}

TEST_P(IIStreamTest, AMissingBufferIsAnErrorThatTheNextReadForgets)
{
    const Source source = GetParam().makeSource("ab");
    unsigned bytesRead = 77;
    EXPECT_FALSE(source.stream->read(nullptr, 1, &bytesRead));
    EXPECT_EQ(bytesRead, 77U);
    EXPECT_EQ(source.stream->lastError(), (err::ResultCode{5, 5}));
    char c = 0;
    EXPECT_TRUE(source.stream->readChar(&c));
    EXPECT_EQ(source.stream->lastError(), err::ResultCode{});
}

TEST_P(IIStreamTest, WithoutDataItIsAtItsEndAndNotAtItsBegin)
{
    const auto blank = GetParam().makeBlank();
    EXPECT_FALSE(blank->isBegin());
    EXPECT_TRUE(blank->isEnd());
    EXPECT_EQ(blank->size(), 0);
    const Source empty = GetParam().makeSource("");
    EXPECT_TRUE(empty.stream->isEnd());
    EXPECT_EQ(empty.stream->size(), 0);
}

} // namespace
} // namespace quillon::io
