// Usage: replay_TARGET CORPUS_FOLDER HUGE_BYTES
//
// Feeds one fuzz target all the seed inputs, whole, cut anywhere, doubled and with random bytes in them. Then
// come HUGE_BYTES made of each seed with a name that begins with "huge": its first line, without the line
// feed, and the rest again and again. Fails where these take more memory than a parser may have.

#include "FuzzInput.h"

#include <sys/resource.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

/// For a byte of input, which is one of them.
constexpr std::size_t kMostMemoryBytes = 25;

/// Longer seeds are only cut near their start.
constexpr std::size_t kMostCuts = 500;

/// The most memory that this process has had in use so far, in bytes.
std::size_t peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024; // which is told in KiB
}

void feed(const std::string& input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

void feedVariants(const std::string& seed)
{
    feed(seed);
    feed(seed + seed);
    std::mt19937 random(1);
    for (std::size_t length = 0; length < std::min(seed.size(), kMostCuts); ++length) {
        feed(seed.substr(0, length));
        std::string noisy = seed;
        for (int count = 0; count < 3; ++count)
            noisy[random() % noisy.size()] = static_cast<char>(random());
        feed(noisy);
    }
}

void feedHuge(const std::string& seed, std::size_t size)
{
    const std::size_t lineFeed = seed.find('\n');
    std::string huge = seed.substr(0, lineFeed);
    huge.reserve(size + seed.size());
    // What follows npos is 0: a seed without a line feed comes whole each time.
    while (huge.size() < size)
        huge.append(seed, lineFeed + 1);
    feed(huge);
}

} // namespace

int main(int /*argc*/, char** argv)
{
    std::vector<std::string> hugeSeeds;
    for (const auto& entry : std::filesystem::directory_iterator(argv[1])) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string seed{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
        feedVariants(seed);
        if (entry.path().filename().string().starts_with("huge"))
            hugeSeeds.push_back(seed);
    }
    const std::size_t before = peakMemory();
    const std::size_t hugeBytes = std::stoul(argv[2]);
    for (const std::string& seed : hugeSeeds)
        feedHuge(seed, hugeBytes);
    const std::size_t perByte = (peakMemory() - before) / hugeBytes;
    std::cout << perByte << " bytes of memory for a byte of huge input\n";
    return hugeSeeds.empty() || perByte > kMostMemoryBytes ? 1 : 0;
}
