#include "crypto/HashDriver.h"

#include "crypto/DigestText.h"
#include "crypto/HashCalculator.h"
#include "crypto/TestDoubles.h"
#include "support/CaseTable.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::crypto {
namespace {

using namespace std::string_view_literals;

using tests::codesOf;
using tests::Course;
using tests::MemoryStream;
using tests::RecordingCallback;
using tests::ScriptedEngine;

class HashDriver : public testing::Test
{
protected:
    /// The codes of a run over `stream` that is to take the course `plan`.
    std::string run(MemoryStream& stream, std::int32_t bufferBytes, const std::string& plan)
    {
        course.heard.clear();
        course.plan = plan;
        return codesOf(hash.calculate(&stream, bufferBytes, 0, &callback));
    }

    std::string runOverThreeBytes(std::int32_t bufferBytes, const std::string& plan)
    {
        MemoryStream stream(course, "abc");
        return run(stream, bufferBytes, plan);
    }

    std::string hex() const
    {
        std::string text;
        EXPECT_EQ(codesOf(hash.getDigestHex(text)), "0/0");
        return text;
    }

    Course course;
    internal::HashCalculator<ScriptedEngine> hash{course};
    RecordingCallback callback{course};
};

TEST_F(HashDriver, EveryRunTakesItsCourseAndGivesItsResultAndDigest)
{
    EXPECT_EQ(hex(), "00000000");
    course.onMark = [this] { hash.stop(); };
    for (const tests::CaseRow& row : tests::readCaseTable("crypto/runs.txt")) {
        EXPECT_EQ(runOverThreeBytes(9, ""), "0/0") << "a calculator can run again";
        hash.stop(); // comes before the run and is lost
        MemoryStream stream(course, std::string(std::stoul(row[1]), 'x'));
        stream.claimedSize = std::stoll(row[0]);
        EXPECT_EQ(run(stream, std::stoi(row[2]), row[3]), row[4]);
        EXPECT_EQ(codesOf(callback.result), row[4]);
        EXPECT_EQ(course.heard, row[3]);
        EXPECT_EQ(hex(), row[5]) << row[3];
        EXPECT_FALSE(hash.isRunning());
    }
}

TEST_F(HashDriver, WhatIsNoRunIsRefusedWithoutAnyEffect)
{
    EXPECT_EQ(runOverThreeBytes(9, ""), "0/0");
    EXPECT_EQ(runOverThreeBytes(0, "no run"), "5/5");
    EXPECT_EQ(runOverThreeBytes(-4, "no run"), "5/5");
    EXPECT_EQ(codesOf(hash.calculate(nullptr, &callback)), "5/5");
    EXPECT_EQ(course.heard, "");
    EXPECT_EQ(hex(), "03000000");
}

TEST_F(HashDriver, WhileOneIsGoingOnASecondRunAndTheDigestAreRefused)
{
    std::array<char, 6> room{};
    std::wstring wide = L"kept";
    course.onMark = [&] {
        EXPECT_TRUE(hash.isRunning());
        MemoryStream other(course, "other");
        EXPECT_EQ(codesOf(hash.calculate(&other, &callback)), "5/8");
        EXPECT_EQ(codesOf(hash.getDigest(room.data(), 6)), "5/8");
        EXPECT_EQ(codesOf(hash.getDigestHex(wide)), "5/8");
    };
    const std::string plan = "started init read3 update3 3=100% final digest release ^finished";
    EXPECT_EQ(runOverThreeBytes(9, plan), "0/0");
    EXPECT_EQ(course.heard, plan);
    EXPECT_EQ(wide, L"kept");
    EXPECT_EQ(codesOf(hash.getDigest(nullptr, 6)), "5/6");
    EXPECT_EQ(codesOf(hash.getDigest(room.data(), 3)), "5/10");
    EXPECT_EQ(room, (std::array<char, 6>{}));
    EXPECT_EQ(codesOf(hash.getDigest(room.data(), 4)), "0/0");
    EXPECT_EQ(room, (std::array<char, 6>{3}));
    EXPECT_EQ(codesOf(hash.getDigestHex(wide)), "0/0");
    EXPECT_EQ(wide, L"03000000");
}

TEST_F(HashDriver, RunningOutOfMemoryLeavesTheCalculatorUnusable)
{
    course.onMark = [] { throw std::bad_alloc(); };
    EXPECT_THROW(runOverThreeBytes(9, "started init ^read3"), std::bad_alloc);
    EXPECT_EQ(course.heard, "started init ^read3 release");
    EXPECT_EQ(runOverThreeBytes(9, "no run"), "5/8");
}

TEST(ProgressThrottle, LetsOneReportThroughPerInterval)
{
    internal::ProgressThrottle throttle(400);
    // Where the clock wraps a report may come early, and then they go on.
    for (const auto& [tickMs, isDue] : {std::pair{399U, false},
                                        {400U, true},
                                        {401U, false},
                                        {799U, false},
                                        {800U, true},
                                        {0xFFFFFED3U, true},
                                        {50U, false},
                                        {99U, true},
                                        {498U, false},
                                        {499U, true}})
        EXPECT_EQ(throttle.isDue(tickMs), isDue) << tickMs;
}

TEST(DigestText, Base64PadsTheLastGroupAndHasNoLineBreaks)
{
    // RFC 4648, section 10, and the two last symbols of the alphabet.
    for (const auto& [bytes, text] :
         {std::pair{"f"sv, "Zg=="sv}, {"fo"sv, "Zm8="sv}, {"foo"sv, "Zm9v"sv}, {"\xFB\xEF\xFF"sv, "++//"sv}})
        EXPECT_EQ(bytesToBase64(bytes), text);
    EXPECT_EQ(bytesToBase64(std::string(128, '\xFF')), std::string(170, '/') + "8=");
}

} // namespace
} // namespace quillon::crypto
