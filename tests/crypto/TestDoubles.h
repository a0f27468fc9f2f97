#pragma once

#include "crypto/IHash.h"
#include "crypto/IHashEngine.h"
#include "err/ErrorText.h"
#include "io/IIStream.h"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::tests {

/// A result as logs and tables write it: "0/0" for a success, "5/60" or "1/5,5/60".
inline std::string codesOf(const crypto::HashResult& result)
{
    return err::errorCodesText(result.primary, result.secondary);
}

/// The events of a run as words such as "read64". `plan` tells what is to come, and a mark before a word what
/// is special about that event: "!" it fails, "-" it passes no bytes, "~" half of them, and at "^" `onMark`
/// is called in the middle of it.
struct Course
{
    std::string plan;
    std::function<void()> onMark{};
    std::string heard{}; ///< equals `plan` where all came as planned

    char note(const std::string& event)
    {
        if (plan.empty())
            return '\0';
        if (heard.size() > plan.size() + 1000)
            throw std::runtime_error("a run without end: " + heard);
        heard += heard.empty() ? "" : " ";
        const char next = heard.size() < plan.size() ? plan[heard.size()] : '\0';
        if (std::string_view("!-~^").find(next) != std::string_view::npos)
            heard += next;
        heard += event;
        if (next == '^')
            onMark();
        return next;
    }
};

/// How many of `count` bytes an event with `mark` passes.
inline int passed(char mark, int count)
{
    return mark == '-' ? 0 : mark == '~' ? count / 2 : count;
}

/// An engine whose digest is the number of bytes absorbed, as four bytes, least significant first.
class ScriptedEngine final : public crypto::IHashEngine
{
public:
    explicit ScriptedEngine(Course& course)
        : m_course(course)
    {
    }

    [[nodiscard]] std::uint32_t getLibraryId() const override { return 7; }
    [[nodiscard]] std::uint32_t getAlgorithmId() const override { return 70; }
    [[nodiscard]] std::int32_t getDigestSize() const override { return 4; }
    [[nodiscard]] std::int32_t getLibraryVersion() const override { return 1; }
    [[nodiscard]] bool isInitialised() const override { return true; }

    crypto::HashResult init() override
    {
        m_absorbed = 0;
        return step("init");
    }

    void release() override { m_course.note("release"); }

    crypto::HashResult update(const void* data, std::int32_t length) override
    {
        m_absorbed += static_cast<std::uint32_t>(length);
        return step((data == nullptr ? "null" : "update") + std::to_string(length));
    }

    crypto::HashResult final() override { return step("final"); }

    crypto::HashResult getDigest(void* output, std::int32_t size) const override
    {
        for (int i = 0; i < size; ++i)
            static_cast<char*>(output)[i] = static_cast<char>(m_absorbed >> (8 * i));
        return step("digest");
    }

private:
    crypto::HashResult step(const std::string& event) const
    {
        if (m_course.note(event) == '!')
            return {{54, 3}, {5, 4000}};
        return {};
    }

    Course& m_course;
    std::uint32_t m_absorbed = 0;
};

/// Bytes in memory. Past its end it delivers nothing, as a file that was cut short.
class MemoryStream final : public io::internal::IIStream<char>
{
public:
    MemoryStream(Course& course, std::string bytes)
        : claimedSize(static_cast<std::int64_t>(bytes.size()))
        , m_course(course)
        , m_bytes(std::move(bytes))
    {
    }

    std::int64_t claimedSize;

    [[nodiscard]] bool isBegin() const override { return m_position == 0; }
    [[nodiscard]] bool isEnd() const override { return m_position >= m_bytes.size(); }
    [[nodiscard]] std::int64_t size() const override { return claimedSize; }
    [[nodiscard]] err::ResultCode lastError() const override { return {1, 5}; }

    bool read(char* buffer, int count, unsigned* bytesRead) override
    {
        const char mark = m_course.note("read" + std::to_string(count));
        const auto wanted = static_cast<std::size_t>(passed(mark, count));
        const std::size_t delivered = m_bytes.copy(buffer, wanted, m_position);
        m_position += delivered;
        *bytesRead = static_cast<unsigned>(delivered);
        return mark != '!';
    }

private:
    Course& m_course;
    std::string m_bytes;
    std::size_t m_position = 0;
};

class RecordingCallback final : public crypto::IHashCallback
{
public:
    explicit RecordingCallback(Course& course)
        : m_course(course)
    {
    }

    crypto::HashResult result;

    void onHashStarted(void* /*data*/) override { m_course.note("started"); }

    void onHashProgress(std::int64_t processedBytes, float percent, void* /*data*/) override
    {
        m_course.note(std::to_string(processedBytes) + '=' + std::to_string(static_cast<int>(percent)) + '%');
    }

    void onHashFinished(bool stopped, const crypto::HashResult& outcome, void* /*data*/) override
    {
        result = outcome;
        m_course.note(stopped ? "stopped" : "finished");
    }

private:
    Course& m_course;
};

} // namespace quillon::tests
