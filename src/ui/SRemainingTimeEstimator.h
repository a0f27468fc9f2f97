#pragma once

#include <cstdint>
#include <utility>
#include <vector>

/// Estimates the remaining time of a run from the average rate of its recent samples. Times come in as
/// `tick`, a millisecond counter of 32 bits. Belongs to one thread.
struct SRemainingTimeEstimator
{
    std::uint32_t startTick = 0;   ///< when the run began
    std::uint64_t totalBytes = 0;  ///< what the run has to do; 0 while there is no run
    std::uint32_t lastTick = 0;    ///< when the last estimate was made
    std::uint64_t lastBytes = 0;   ///< what was done by the last estimate
    std::uint64_t nextSlot = 0;    ///< the sample to overwrite next once there are `capacity` of them
    std::uint64_t capacity = 1024; ///< how many samples are kept

    /// Elapsed milliseconds and bytes of each interval between two estimates.
    std::vector<std::pair<std::uint64_t, std::uint64_t>> samples;

    /// An estimate that differs from the last one by a smaller share than this is not taken over; 0 takes
    /// over every estimate.
    double tolerance = 0.0;
    double lastEstimate = 0.0; ///< seconds

    /// Begins a run over `bytes` bytes. The samples of a run that ended by itself stay in the average, as the
    /// best guess there is for the next one.
    void begin(std::uint64_t bytes, std::uint32_t tick);

    /// Forgets the run and its samples.
    void reset();

    /// Takes note that `pos` bytes are done at `tick` and gives the remaining time, split into its parts. All
    /// parts are 0 without a run, at the run's begin and end, and where `pos` went back. The answer is false,
    /// with parts of 0, where the counter has wrapped since `begin`.
    bool estimate(std::uint64_t pos, std::uint32_t tick, std::uint32_t& hours, std::uint32_t& minutes,
                  std::uint32_t& seconds);

private:
    void addSample(std::uint64_t milliseconds, std::uint64_t bytes);
    [[nodiscard]] double averageSeconds(std::uint64_t remaining) const;
    double smoothedSeconds(double raw);
};
