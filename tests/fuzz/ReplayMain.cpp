// Usage: replay_TARGET CORPUS_FOLDER HUGE_BYTES
//
// Feeds one fuzz target all the seed inputs, whole, cut anywhere, doubled and with random bytes in them. Then
// come HUGE_BYTES made of each seed with a name that begins with "huge": its first line, without the line
// feed, and the rest again and again. Fails where these take more memory than a parser may have.

#include "FuzzInput.h"
#include "PeakMemory.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

namespace {

/// For a byte of input.
constexpr std::size_t kMostMemoryBytes = 24;

/// What the input itself takes, which the parser does not.
constexpr std::size_t kInputMemoryBytes = 1;

/// Longer seeds are only cut near their start.
constexpr std::size_t kMostCuts = 500;

void feed(const std::string& input)
{
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

struct Seed
{
    bool isForHuge;
    std::string bytes;
};

std::vector<Seed> readSeeds(const std::filesystem::path& folder)
{
    std::vector<Seed> seeds;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const bool isForHuge = entry.path().filename().string().starts_with("huge");
        seeds.push_back(
            {isForHuge, {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()}});
    }
    return seeds;
}

void feedVariants(const std::string& seed)
{
    feed(seed);
    feed(seed + seed);
    std::mt19937 random(1);
    const std::size_t cuts = std::min(seed.size(), kMostCuts);
    for (std::size_t length = 0; length < cuts; ++length) {
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
    const bool hasRest = lineFeed != std::string::npos && lineFeed + 1 < seed.size();
    const std::string unit = hasRest ? seed.substr(lineFeed + 1) : seed;
    std::string huge = hasRest ? seed.substr(0, lineFeed) : std::string();
    huge.reserve(size + unit.size());
    while (huge.size() < size)
        huge += unit;
    feed(huge);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
        return 2;
    const std::vector<Seed> seeds = readSeeds(argv[1]);
    const std::size_t hugeBytes = std::stoul(argv[2]);
    for (const Seed& seed : seeds)
        feedVariants(seed.bytes);
    const std::size_t before = quillon::tests::peakMemory();
    for (const Seed& seed : seeds)
        if (seed.isForHuge)
            feedHuge(seed.bytes, hugeBytes);
    const std::size_t perByte = (quillon::tests::peakMemory() - before) / hugeBytes;
    std::cout << seeds.size() << " seeds; " << perByte << " bytes of memory for a byte of huge input\n";
    return seeds.empty() || perByte > kMostMemoryBytes + kInputMemoryBytes ? 1 : 0;
}
