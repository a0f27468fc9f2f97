// What needs no server: the library comes from FakeCurl.cpp.

#include "web/ConnectionCheck.h"

#include "logger/LogSender.h"
#include "platform/Process.h"
#include "support/PrintResultCode.h"
#include "support/RecordingAppender.h"
#include "web/FakeCurl.h"

#include <gtest/gtest.h>

#include <string>

namespace quillon::web {
namespace {

using err::ResultCode;

constexpr const char* kUrl = "http://host.invalid/";

std::string besideProgram(const std::string& name)
{
    const std::string program = platform::programPath();
    return program.substr(0, program.find_last_of("/\\") + 1) + name;
}

/// The library that lies ready, with a clean sheet.
class FakeLibrary : public testing::Test
{
protected:
    FakeLibrary()
        : m_fake(*static_cast<FakeCurl*>(platform::findLibrarySymbol(m_handle, "fake_curl")))
    {
        m_fake = {};
        EXPECT_EQ(m_library.load(m_path.c_str()), ResultCode{});
    }

    ResultCode perform(const NetProxy<char>& proxy)
    {
        return CurlRequest(kUrl).perform(&m_library, proxy, nullptr).first;
    }

    const std::string m_path = besideProgram(KESTRUM_FAKE_CURL);
    const platform::RuntimeLibrary m_handle = platform::loadRuntimeLibrary(m_path);
    FakeCurl& m_fake;
    CurlLibrary m_library;
};

TEST_F(FakeLibrary, GetsAllOptionsInOrder)
{
    EXPECT_EQ(perform({20, "proxy", 3128, "name", ""}), ResultCode{});
    EXPECT_STREQ(m_fake.options,
                 "41=0 10018=Mozilla/5.0 (Windows NT 10.0; WOW64) AppleWebKit/537.36 (KHTML, like Gecko) "
                 "Chrome/49.0.2623.112 Safari/537.36 10002=http://host.invalid/ 52=1 47=1 60=0 "
                 "10004=proxy:3128 10175=name 10176= 44=0 42=0 20011= 10001= 20079= 10029= "
                 "99=1 78=30 20163= 10164= 20208= 10209= 20219= 10057= 43=0 322=1 ");
}

TEST_F(FakeLibrary, GetsTheProxyOnlyWhereThereIsOne)
{
    struct Case
    {
        NetProxy<char> proxy;
        const char* options;
    };
    for (const Case& test : {
             Case{{0, "", 8080, "name", "word"}, ""},
             Case{{0, "host", 0, "name", "word"}, ""},
             Case{{0, "host:3128", 8080, "", ""}, "10004=host:3128 10175= 10176= "},
             Case{{0, "host", -5, "name", "word"}, "10004=host:80 10175=name 10176=word "},
         }) {
        m_fake.options[0] = '\0';
        m_fake.length = 0;
        EXPECT_EQ(setCurlProxy(&m_library, &m_fake, test.proxy), ResultCode{});
        EXPECT_STREQ(m_fake.options, test.options);
    }
}

TEST_F(FakeLibrary, FailuresBeforeTheTransferAreTold)
{
    CurlLibrary unbound;
    EXPECT_EQ(CurlRequest(kUrl).perform(nullptr, {}, nullptr).first, (ResultCode{5, 5}));
    EXPECT_EQ(CurlRequest(kUrl).perform(&unbound, {}, nullptr).first, (ResultCode{5, 90}));
    EXPECT_EQ(setCurlProxy(&m_library, nullptr, {}), (ResultCode{5, 6}));
    EXPECT_EQ(setCurlProxy(&unbound, &m_fake, {}), (ResultCode{5, 90}));
    m_fake.refusedOption = curl::kProxyUserName;
    EXPECT_EQ(perform({0, "host", 80, "", ""}), (ResultCode{50, 48}));
    EXPECT_EQ(std::string(m_fake.options).find("10176="), std::string::npos);
    EXPECT_NE(std::string(m_fake.options).find("10029="), std::string::npos) << "the request did not go on";
    m_fake.hasNoHandle = true;
    EXPECT_EQ(perform({}), (ResultCode{5, 3000}));
}

TEST_F(FakeLibrary, ASecondRequestWhileOneIsUnderWayIsRefused)
{
    static CurlRequest request(kUrl);
    static CurlLibrary* const library = &m_library;
    static ResultCode second;
    m_fake.onPerform = [] { second = request.perform(library, {}, nullptr).first; };
    EXPECT_EQ(request.perform(&m_library, {}, nullptr).first, ResultCode{});
    EXPECT_EQ(second, (ResultCode{5, 8}));
    m_fake.onPerform = nullptr;
    EXPECT_EQ(request.perform(&m_library, {}, nullptr).first, ResultCode{});
}

TEST(CurlLibrary, WithoutAFileOrANameIsNotBoundAndCanBeTriedAgain)
{
    CurlLibrary library;
    EXPECT_EQ(library.load(nullptr), (ResultCode{5, 5}));
    for (const char* const name : {"no such file", KESTRUM_INCOMPLETE_CURL}) {
        const ResultCode loaded = library.load(besideProgram(name).c_str());
        EXPECT_EQ(loaded.group, 1U);
        EXPECT_NE(platform::osErrorText(loaded.code), "") << name << " gives " << loaded.code;
        EXPECT_FALSE(library.isLoaded());
    }
    EXPECT_EQ(library.load(besideProgram(KESTRUM_FAKE_CURL).c_str()), ResultCode{});
    EXPECT_EQ(library.load("no such file"), ResultCode{});
}

TEST(ConnectionCheck, LogsWhyThereIsNoLibrary)
{
    tests::Lines lines;
    logger::getLogSender()->setLevel(logger::ELogLevel::Error);
    ASSERT_TRUE(err::succeeded(
        logger::getLogSender()->appenders().addAppender(new tests::RecordingAppender(1, lines))));
    ConnectionCheck check({"/no/such", besideProgram(KESTRUM_INCOMPLETE_CURL)}, kUrl);
    const ResultCode result = check.check({}).first;
    logger::getLogSender()->appenders().removeAllAppenders();
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].category, "options");
    EXPECT_EQ(lines[0].message,
              "Failed to load cURL library. Error: 1/" + std::to_string(result.code) + ". Path: '/no/such'.");
    EXPECT_EQ(ConnectionCheck({}, kUrl).check({}).first, (ResultCode{5, 90}));
}

TEST(ConnectionCheck, GoesOnToTheNextPlaceOfTheLibrary)
{
    ConnectionCheck check({"/no/such", besideProgram(KESTRUM_FAKE_CURL)}, kUrl);
    EXPECT_EQ(check.check({}).first, ResultCode{});
}

} // namespace
} // namespace quillon::web
