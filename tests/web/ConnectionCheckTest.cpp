// What needs no server: the library comes from FakeCurl.cpp.

#include "web/ConnectionCheck.h"

#include "logger/LogSender.h"
#include "platform/Process.h"
#include "support/PrintResultCode.h"
#include "support/RecordingAppender.h"
#include "web/FakeCurl.h"

#include <gtest/gtest.h>

namespace quillon::web {
namespace {

using err::ResultCode;

constexpr const char* kUrl = "http://host.invalid/";
const NetProxy<char> kProxy{20, "proxy", 3128, "name", "p4ssw0rd"};

std::string besideProgram(const std::string& name)
{
    const std::string program = platform::programPath();
    return program.substr(0, program.find_last_of("/\\") + 1) + name;
}

/// The library that lies ready with a clean sheet, and a log of all levels.
class FakeLibrary : public testing::Test
{
protected:
    FakeLibrary()
    {
        m_fake = {};
        EXPECT_EQ(m_library.load(m_path.c_str()), ResultCode{});
        logger::getLogSender()->setLevel(logger::ELogLevel::Trace);
        EXPECT_EQ(logger::getLogSender()->appenders().addAppender(new tests::RecordingAppender(1, m_lines)),
                  ResultCode{});
    }
    ~FakeLibrary() override { logger::getLogSender()->release(); }

    /// What a check answers and logs.
    std::string outcomeOf(ConnectionCheck& check)
    {
        m_lines.clear();
        const ResultCode result = check.check(kProxy).first;
        std::string outcome = std::to_string(result.group) + '/' + std::to_string(result.code);
        for (const auto& line : m_lines)
            outcome += ' ' + line.category + ": " + line.message;
        return outcome;
    }

    const std::string m_path = besideProgram(KESTRUM_FAKE_CURL);
    const platform::RuntimeLibrary m_handle = platform::loadRuntimeLibrary(m_path);
    FakeCurl& m_fake = *static_cast<FakeCurl*>(platform::findLibrarySymbol(m_handle, "fake_curl"));
    CurlLibrary m_library;
    tests::Lines m_lines;
};

TEST_F(FakeLibrary, GetsAllOptionsInOrder)
{
    ConnectionCheck check({m_path}, kUrl);
    EXPECT_EQ(outcomeOf(check), "0/0");
    EXPECT_STREQ(m_fake.options,
                 "41=0 10018=Mozilla/5.0 (Windows NT 10.0; WOW64) AppleWebKit/537.36 (KHTML, like Gecko) "
                 "Chrome/49.0.2623.112 Safari/537.36 10002=http://host.invalid/ 52=1 47=1 60=0 "
                 "10004=proxy:3128 10175=name 10176=p4ssw0rd 44=0 42=0 20011= 10001= 20079= 10029= "
                 "99=1 78=30 20163= 10164= 20208= 10209= 20219= 10057= 43=0 322=1 ");
}

TEST_F(FakeLibrary, GetsTheProxyOnlyWhereThereIsOne)
{
    const std::pair<NetProxy<char>, const char*> rows[] = {
        {{0, "", 8080, "name", "word"}, ""},
        {{0, "host", 0, "name", "word"}, ""},
        {{0, "host:3128", 8080, "", ""}, "10004=host:3128 10175= 10176= "},
        {{0, "host", -5, "name", "word"}, "10004=host:80 10175=name 10176=word "},
    };
    for (const auto& [proxy, options] : rows) {
        m_fake = {};
        EXPECT_EQ(setCurlProxy(&m_library, &m_fake, proxy), ResultCode{});
        EXPECT_STREQ(m_fake.options, options);
    }
}

TEST_F(FakeLibrary, AnswersAndFailuresOfTheCheckAreToldAndLogged)
{
    const std::pair<FakeCurl, const char*> rows[] = {
        {{.status = 404}, "0/0"},
        {{.hasNoHandle = true}, "5/3000 options: Failed to check connection. Error: 5/3000. HTTP code: '0'."},
        {{.refusedOption = curl::kProxy, .status = 200},
         "50/48 options: Failed to check connection. Error: 50/48. HTTP code: '200'."},
        {{.performCode = 7, .status = 200},
         "50/7 options: Failed to check connection. Error: 50/7. HTTP code: '0'."},
        {{.infoCode = 43, .status = 200},
         "50/43 options: Failed to check connection. Error: 50/43. HTTP code: '0'."},
    };
    ConnectionCheck check({m_path}, kUrl);
    for (const auto& [fake, outcome] : rows) {
        m_fake = fake;
        EXPECT_EQ(outcomeOf(check), outcome);
    }
}

TEST_F(FakeLibrary, IsLookedForInEveryPlaceAndTheFirstFailureIsTold)
{
    const std::string incomplete = besideProgram(KESTRUM_INCOMPLETE_CURL);
    ConnectionCheck third({"/no/such", incomplete, m_path}, kUrl);
    EXPECT_EQ(outcomeOf(third), "0/0");
    ConnectionCheck nowhere({}, kUrl);
    EXPECT_EQ(outcomeOf(nowhere), "5/90");
    for (const std::string& first : {incomplete, std::string("/no/such")}) {
        const ResultCode failure = CurlLibrary().load(first.c_str());
        EXPECT_TRUE(failure.group == 1 && failure.code != 0) << first;
        const std::string code = "1/" + std::to_string(failure.code);
        ConnectionCheck check({first, "/no/other"}, kUrl);
        EXPECT_EQ(outcomeOf(check), code + " options: Failed to load cURL library. Error: " + code +
                                        ". Path: '" + first + "'.");
    }
}

} // namespace
} // namespace quillon::web
