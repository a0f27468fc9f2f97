#include "ui/SRemainingTimeEstimator.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr std::uint64_t kSampleCapacity = 1024;
constexpr double kSecondsPerHour = 3600.0;
constexpr double kSecondsPerMinute = 60.0;

// A crawling medium can give a longer time than 32 bits of hours hold; the conversion must not overflow.
constexpr double kLongestSeconds = std::numeric_limits<std::uint32_t>::max() * kSecondsPerHour;

// Below this sum of two estimates, in seconds, their relative difference says nothing.
constexpr double kSmallestComparableSeconds = 0.01;

} // namespace

void SRemainingTimeEstimator::begin(std::uint64_t bytes, std::uint32_t tick)
{
    capacity = kSampleCapacity;
    tolerance = 0.0;
    lastEstimate = 0.0;
    startTick = tick;
    lastTick = tick;
    totalBytes = bytes;
    lastBytes = 0;
    nextSlot = 0;
    samples.reserve(kSampleCapacity);
}

void SRemainingTimeEstimator::reset()
{
    lastEstimate = 0.0;
    startTick = 0;
    totalBytes = 0;
    lastTick = 0;
    lastBytes = 0;
    nextSlot = 0;
    samples.clear();
}

bool SRemainingTimeEstimator::estimate(std::uint64_t pos, std::uint32_t tick, std::uint32_t& hours,
                                       std::uint32_t& minutes, std::uint32_t& seconds)
{
    hours = minutes = seconds = 0;
    if (totalBytes == 0 || pos == 0 || pos >= totalBytes || pos < lastBytes)
        return true;
    if (startTick > tick)
        return false;
    double left = 0.0;
    if (lastTick < tick) {
        addSample(tick - lastTick, pos - lastBytes);
        left = smoothedSeconds(averageSeconds(totalBytes - pos));
    } else {
        left = averageSeconds(totalBytes - pos);
    }
    lastTick = tick;
    lastBytes = pos;

    left = std::min(left, kLongestSeconds);
    hours = static_cast<std::uint32_t>(left / kSecondsPerHour);
    left -= hours * kSecondsPerHour;
    minutes = static_cast<std::uint32_t>(left / kSecondsPerMinute);
    seconds = static_cast<std::uint32_t>(left - minutes * kSecondsPerMinute);
    return true;
}

void SRemainingTimeEstimator::addSample(std::uint64_t milliseconds, std::uint64_t bytes)
{
    if (samples.size() < capacity) {
        nextSlot = 0;
        samples.emplace_back(milliseconds, bytes);
        return;
    }
    samples[nextSlot] = {milliseconds, bytes};
    nextSlot = (nextSlot + 1) % capacity;
}

double SRemainingTimeEstimator::averageSeconds(std::uint64_t remaining) const
{
    double milliseconds = 0.0;
    double bytes = 0.0;
    for (const auto& [sampleMilliseconds, sampleBytes] : samples) {
        milliseconds += static_cast<double>(static_cast<std::uint32_t>(sampleMilliseconds));
        bytes += static_cast<double>(sampleBytes);
    }
    // Covers the lack of samples too. Bytes are whole numbers, so anything below one is none.
    if (bytes < 1.0)
        return 0.0;
    return milliseconds / 1000.0 * static_cast<double>(remaining) / bytes;
}

double SRemainingTimeEstimator::smoothedSeconds(double raw)
{
    const double sum = std::abs(lastEstimate + raw);
    if (tolerance <= 0.0 || sum <= kSmallestComparableSeconds)
        return raw;
    if (std::abs(raw - lastEstimate) / sum >= tolerance)
        lastEstimate = raw;
    return lastEstimate;
}
