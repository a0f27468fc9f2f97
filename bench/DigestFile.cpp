// bench_digest ALGORITHM FILE: the hash core as a process of its own, to be held against other tools. Prints
// the digest, and the seconds of the run alone to standard error.

#include "crypto/DigestText.h"
#include "crypto/HashCatalogue.h"
#include "crypto/entry/HashEntry.h"

#include <chrono>
#include <cstdio>
#include <vector>

namespace crypto = quillon::crypto;

int main(int argc, char** argv)
{
    std::uint32_t algorithm = 0;
    if (argc != 3 || !crypto::findAlgorithmIdByName(argv[1], algorithm)) {
        std::fprintf(stderr, "usage: bench_digest ALGORITHM FILE\n");
        return 2;
    }
    auto calculator = crypto::getHashCalculator(crypto::kCryptoppLibraryId, algorithm);
    if (calculator == nullptr)
        calculator = crypto::getHashCalculator(crypto::kSkeinLibraryId, algorithm);
    thisapp::SHashData data;
    data.fileName = argv[2];
    const auto begin = std::chrono::steady_clock::now();
    if (!crypto::succeeded(crypto::calculateHash(data, calculator, nullptr)))
        return 1;
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    std::fprintf(stderr, "seconds %.6f\n", seconds.count());
    std::vector<char> digest(static_cast<std::size_t>(calculator->getDigestSize()));
    static_cast<void>(calculator->getDigest(digest.data(), calculator->getDigestSize()));
    std::puts(crypto::bytesToHex(digest).c_str());
    return 0;
}
