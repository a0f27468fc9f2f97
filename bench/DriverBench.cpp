// bench_driver FILE [PAIRS]: what the road through stream and driver costs beside the work itself.
//
// For each algorithm, in turn: the driver on FILE, and a bare loop of read(2) into a page-aligned block of
// the same size with the same engine. Prints the median, over all pairs, of the ratio of their CPU times.
// FILE should be in the page cache.

#include "crypto/IHash.h"
#include "crypto/cryptopp/CHashEngine.h"
#include "crypto/skein/SkeinHashEngines.h"
#include "io/IStreamFile.h"
#include "text/Unicode.h"

#define CRYPTOPP_ENABLE_NAMESPACE_WEAK 1
#include <cryptopp/adler32.h>
#include <cryptopp/keccak.h>
#include <cryptopp/md4.h>
#include <cryptopp/md5.h>
#include <cryptopp/panama.h>
#include <cryptopp/ripemd.h>
#include <cryptopp/sha.h>
#include <cryptopp/tiger.h>
#include <cryptopp/whrlpool.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

namespace {

namespace crypto = quillon::crypto;
template <class Alg, std::uint32_t id>
using Engine = quillon::cryptopp::internal::CHashEngine<Alg, id>;

/// Reports are asked for as the window does, so that the clock is read in every turn of the loop.
class SilentCallback final : public crypto::IHashCallback
{
public:
    void onHashStarted(void* /*userData*/) override {}
    void onHashProgress(std::int64_t /*processedBytes*/, float /*percent*/, void* /*userData*/) override {}
    void onHashFinished(bool /*stopped*/, const crypto::HashResult& /*result*/, void* /*userData*/) override
    {
    }
};

double cpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "%s failed\n", what);
    std::exit(1);
}

template <class Calculator>
std::vector<char> runDriver(const std::string& path)
{
    Calculator calculator;
    SilentCallback callback;
    quillon::io::IStreamFile<wchar_t> file;
    if (!quillon::err::succeeded(file.open(quillon::text::wideFromUtf8(path).c_str())) ||
        !crypto::succeeded(calculator.calculate(&file, &callback)))
        fail("the driver");
    std::vector<char> digest(static_cast<std::size_t>(calculator.getDigestSize()));
    static_cast<void>(calculator.getDigest(digest.data(), calculator.getDigestSize()));
    return digest;
}

template <class HashEngine>
std::vector<char> runBareLoop(const std::string& path)
{
    alignas(4096) static std::array<char, crypto::kDefaultBufferBytes> buffer;
    HashEngine engine;
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    static_cast<void>(engine.init());
    ssize_t got = 0;
    while ((got = read(descriptor, buffer.data(), buffer.size())) > 0)
        static_cast<void>(engine.update(buffer.data(), static_cast<std::int32_t>(got)));
    close(descriptor);
    static_cast<void>(engine.final());
    std::vector<char> digest(static_cast<std::size_t>(engine.getDigestSize()));
    static_cast<void>(engine.getDigest(digest.data(), engine.getDigestSize()));
    return digest;
}

/// The CPU time of `first` over that of `second`, which follows at once.
template <class First, class Second>
double ratioOf(First first, Second second)
{
    const double begin = cpuSeconds();
    const auto one = first();
    const double middle = cpuSeconds();
    const auto other = second();
    const double end = cpuSeconds();
    if (one != other)
        fail("comparing the digests");
    return (middle - begin) / (end - middle);
}

template <class HashEngine, class Calculator>
void measure(const char* name, const std::string& path, int pairs)
{
    std::vector<double> ratios;
    const auto driver = [&path] { return runDriver<Calculator>(path); };
    const auto bare = [&path] { return runBareLoop<HashEngine>(path); };
    for (int pair = 0; pair < pairs; ++pair) {
        // Who goes first changes, so that neither always finds what the other has warmed.
        ratios.push_back(pair % 2 == 0 ? ratioOf(driver, bare) : 1.0 / ratioOf(bare, driver));
    }
    std::sort(ratios.begin(), ratios.end());
    std::printf("%-16s %.3f\n", name, ratios[ratios.size() / 2]);
    std::fflush(stdout);
}

template <class Alg, std::uint32_t id>
void measureCryptopp(const char* name, const std::string& path, int pairs)
{
    measure<Engine<Alg, id>, quillon::cryptopp::internal::CHash<Engine<Alg, id>>>(name, path, pairs);
}

template <class SkeinEngine>
void measureSkein(const char* name, const std::string& path, int pairs)
{
    measure<SkeinEngine, quillon::skein::internal::Hash<SkeinEngine>>(name, path, pairs);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fprintf(stderr, "usage: bench_driver FILE [PAIRS]\n");
        return 2;
    }
    const std::string path = argv[1];
    const int pairs = argc > 2 ? std::atoi(argv[2]) : 21;
    measureCryptopp<CryptoPP::SHA1, 1>("SHA1", path, pairs);
    measureCryptopp<CryptoPP::SHA224, 10>("SHA-224", path, pairs);
    measureCryptopp<CryptoPP::SHA256, 11>("SHA-256", path, pairs);
    measureCryptopp<CryptoPP::SHA512, 13>("SHA-512", path, pairs);
    measureCryptopp<CryptoPP::Keccak_256, 21>("SHA3-256", path, pairs);
    measureCryptopp<CryptoPP::Tiger, 30>("Tiger-192", path, pairs);
    measureCryptopp<CryptoPP::Whirlpool, 40>("Whirlpool", path, pairs);
    measureCryptopp<CryptoPP::RIPEMD160, 51>("RIPEMD-160", path, pairs);
    measureSkein<quillon::skein::Skein256_256HashEngine>("Skein256-256", path, pairs);
    measureSkein<quillon::skein::Skein512_512HashEngine>("Skein512-512", path, pairs);
    measureSkein<quillon::skein::Skein1024_1024HashEngine>("Skein1024-1024", path, pairs);
    measureCryptopp<CryptoPP::Weak1::MD4, 301>("MD4", path, pairs);
    measureCryptopp<CryptoPP::Weak1::MD5, 303>("MD5", path, pairs);
    measureCryptopp<CryptoPP::Weak::PanamaHash<CryptoPP::LittleEndian>, 304>("Panama", path, pairs);
    measureCryptopp<CryptoPP::Adler32, 400>("Adler32", path, pairs);
    return 0;
}
