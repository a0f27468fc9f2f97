// The three state sizes of Skein against Botan's Skein-512. Each iteration digests the same bytes with both,
// one right after the other, and the result is the median of the ratios: 1.1 says that ours is a tenth
// faster. Time is that of the thread, so that a busy machine disturbs little.

#include "crypto/skein/SkeinHashEngines.h"

#include <benchmark/benchmark.h>
#include <botan/hash.h>
#include <time.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <vector>

namespace {

namespace skein = quillon::skein;

constexpr int kPairs = 201;
constexpr std::int32_t kChunkBytes = 32768; // the size of the driver's read buffer
constexpr int kChunksPerRun = 32;

double threadSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

template <class Absorb>
double secondsOfRun(const Absorb& absorb)
{
    const double start = threadSeconds();
    for (int i = 0; i < kChunksPerRun; ++i)
        absorb();
    return threadSeconds() - start;
}

double median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

template <class Engine>
void againstBotan(benchmark::State& state)
{
    const std::vector<std::uint8_t> chunk(kChunkBytes, 0x5A);
    const auto botan = Botan::HashFunction::create_or_throw("Skein-512(512)");
    Engine engine;
    if (!quillon::crypto::succeeded(engine.init()))
        throw std::runtime_error("the engine does not start");

    std::vector<double> ratios;
    for (auto _ : state) {
        const double theirs = secondsOfRun([&] { botan->update(chunk.data(), chunk.size()); });
        const double ours = secondsOfRun([&] {
            if (!quillon::crypto::succeeded(engine.update(chunk.data(), kChunkBytes)))
                throw std::runtime_error("the engine does not take the bytes");
        });
        ratios.push_back(theirs / ours);
        state.SetIterationTime(ours);
    }
    state.SetBytesProcessed(state.iterations() * kChunksPerRun * kChunkBytes);
    state.counters["ratio"] = median(ratios);
}

BENCHMARK(againstBotan<skein::Skein256_256HashEngine>)->Iterations(kPairs)->UseManualTime();
BENCHMARK(againstBotan<skein::Skein512_512HashEngine>)->Iterations(kPairs)->UseManualTime();
BENCHMARK(againstBotan<skein::Skein1024_1024HashEngine>)->Iterations(kPairs)->UseManualTime();

} // namespace

BENCHMARK_MAIN();
