#include "ui/SRemainingTimeEstimator.h"

#include "ui/Table.h"

namespace quillon::tests {
namespace {

class RemainingTime : public testing::Test
{
protected:
    QString at(std::uint64_t pos, std::uint32_t tick)
    {
        std::uint32_t hours = 99;
        std::uint32_t minutes = 99;
        std::uint32_t seconds = 99;
        const bool isKnown = estimator.estimate(pos, tick, hours, minutes, seconds);
        return QString(isKnown ? "%1:%2:%3" : "unknown %1:%2:%3").arg(hours).arg(minutes).arg(seconds);
    }

    SRemainingTimeEstimator estimator;
};

TEST_F(RemainingTime, IsWhatTheTableSays)
{
    for (const QString& line : tableLines("remaining-time.txt")) {
        const QStringList row = line.split(" | ");
        if (line == "reset")
            estimator.reset();
        else if (row[0] == "begin")
            estimator.begin(row[1].toULongLong(), row[2].toUInt());
        else if (row[0] == "tolerance")
            estimator.tolerance = row[1].toDouble();
        else
            EXPECT_EQ(at(row[0].toULongLong(), row[1].toUInt()), row[2]) << line.toStdString();
    }
}

TEST_F(RemainingTime, FollowsTheLast1024IntervalsOnly)
{
    estimator.begin(1'000'000, 0);
    std::uint32_t tick = 0;
    std::uint64_t pos = 0;
    for (int slow = 0; slow < 1024; ++slow)
        at(++pos, tick += 1'000);
    for (int fast = 0; fast < 1023; ++fast)
        at(pos += 100, tick += 100);
    EXPECT_EQ(at(pos + 100, tick + 100), "0:14:56") << "896576 bytes at 1000 a second";
}

} // namespace
} // namespace quillon::tests
