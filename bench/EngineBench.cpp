// Each algorithm on bytes in memory, through its calculator.

#include "crypto/HashCatalogue.h"
#include "crypto/entry/HashEntry.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

namespace {

namespace crypto = quillon::crypto;

constexpr std::size_t kMessageBytes = std::size_t{4} << 20U;

/// Hands out a block of memory again and again.
class MemoryStream final : public crypto::IHash::Stream
{
public:
    [[nodiscard]] bool isBegin() const override { return m_position == 0; }
    [[nodiscard]] bool isEnd() const override { return m_position == m_bytes.size(); }
    [[nodiscard]] std::int64_t size() const override { return static_cast<std::int64_t>(m_bytes.size()); }
    [[nodiscard]] quillon::err::ResultCode lastError() const override { return {}; }

    bool read(char* buffer, int count, unsigned* bytesRead) override
    {
        const std::size_t got = std::min(static_cast<std::size_t>(count), m_bytes.size() - m_position);
        std::memcpy(buffer, m_bytes.data() + m_position, got);
        m_position += got;
        *bytesRead = static_cast<unsigned>(got);
        return true;
    }

    void rewind() { m_position = 0; }

private:
    std::vector<char> m_bytes = std::vector<char>(kMessageBytes, '\x5A');
    std::size_t m_position = 0;
};

void digestInMemory(benchmark::State& state, thisapp::SHashAlgId id)
{
    MemoryStream stream;
    for (auto _ : state) {
        stream.rewind();
        const auto calculator = crypto::getHashCalculator(id.lib, id.alg);
        if (!crypto::succeeded(calculator->calculate(&stream)))
            state.SkipWithError("the run failed");
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kMessageBytes));
}

} // namespace

int main(int argc, char** argv)
{
    for (const crypto::HashAlgorithm& row : crypto::hashCatalogue())
        benchmark::RegisterBenchmark(std::string(row.name).c_str(), digestInMemory, row.id);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
