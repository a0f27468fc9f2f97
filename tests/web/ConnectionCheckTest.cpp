// What needs no server: the library comes from FakeCurl.cpp.

#include "web/ConnectionCheck.h"

#include "logger/LogSender.h"
#include "platform/Process.h"
#include "support/CaseTable.h"
#include "support/RecordingAppender.h"
#include "web/FakeCurl.h"

#include <gtest/gtest.h>

namespace quillon::web {
namespace {

using err::ResultCode;

std::string besideProgram(const std::string& name)
{
    const std::string program = platform::programPath();
    return program.substr(0, program.find_last_of("/\\") + 1) + name;
}

/// The library that lies ready, and a log of all levels.
class FakeLibrary : public testing::Test
{
protected:
    FakeLibrary()
    {
        m_fake = {};
        logger::getLogSender()->setLevel(logger::ELogLevel::Trace);
        static_cast<void>(
            logger::getLogSender()->appenders().addAppender(new tests::RecordingAppender(1, m_lines)));
    }
    ~FakeLibrary() override { logger::getLogSender()->release(); }

    /// What a check with a library from one of `paths` answers and logs.
    std::string outcomeOf(const std::vector<std::string>& paths, const NetProxy<char>& proxy = {})
    {
        m_lines.clear();
        const ResultCode result = ConnectionCheck(paths, "http://host.invalid/").check(proxy).first;
        std::string outcome = std::to_string(result.group) + '/' + std::to_string(result.code);
        for (const auto& line : m_lines)
            outcome += ' ' + line.category + ": " + line.message;
        return outcome;
    }

    const std::string m_path = besideProgram(KESTRUM_FAKE_CURL);
    const platform::RuntimeLibrary m_library = platform::loadRuntimeLibrary(m_path);
    FakeCurl& m_fake = *static_cast<FakeCurl*>(platform::findLibrarySymbol(m_library, "fake_curl"));
    tests::Lines m_lines;
};

TEST_F(FakeLibrary, GetsTheOptionsAndItsAnswersAreToldAndLogged)
{
    for (const tests::CaseRow& row : tests::readCaseTable("web/checks.txt")) {
        m_fake = {};
        std::istringstream(row.at(2)) >> m_fake.hasNoHandle >> m_fake.refusedOption >> m_fake.performCode >>
            m_fake.infoCode >> m_fake.status;
        const NetProxy<char> proxy{20, row.at(0), std::stoi(row.at(1)), "name", "p4ssw0rd"};
        EXPECT_EQ(outcomeOf({m_path}, proxy), row.at(4));
        EXPECT_NE(m_fake.options.find(row.at(3)), std::string::npos) << row.at(3) << "not in\n"
                                                                     << m_fake.options;
    }
}

TEST_F(FakeLibrary, IsLookedForInEveryPlaceAndTheMostTellingFailureIsTold)
{
    const std::string incomplete = besideProgram(KESTRUM_INCOMPLETE_CURL);
    EXPECT_EQ(outcomeOf({"/no/such", incomplete, m_path}), "0/0");
    using Paths = std::vector<std::string>;
    for (const auto& [paths, told] : {std::pair{Paths{"/no/such", "/no/other"}, Paths{"/no/such"}},
                                      {Paths{"/no/such", incomplete}, Paths{incomplete}},
                                      {Paths{incomplete, "/no/other"}, Paths{incomplete}}}) {
        const ResultCode failure = CurlLibrary().load(told[0].c_str());
        EXPECT_NE(failure.code, 0U) << told[0];
        const std::string code = "1/" + std::to_string(failure.code);
        EXPECT_EQ(outcomeOf(paths, {}), code + " options: Failed to load cURL library. Error: " + code +
                                            ". Path: '" + told[0] + "'.");
    }
}

} // namespace
} // namespace quillon::web
