#include "crypto/VectorFile.h"

#include "support/Bytes.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <stdexcept>
#include <string_view>

namespace quillon::tests {
namespace {

std::string repeatedByte(const std::string& value)
{
    const std::size_t blank = value.find(' ');
    if (blank == std::string::npos)
        throw std::runtime_error("repeat needs a count and a byte");
    return std::string(std::stoul(value.substr(0, blank)), bytesFromHex(value.substr(blank + 1)).at(0));
}

std::string messageOf(std::string_view key, const std::string& value)
{
    if (key == "in")
        return bytesFromHex(value);
    if (key == "text")
        return value;
    if (key == "pattern")
        return patternBytes(std::stoul(value));
    if (key == "repeat")
        return repeatedByte(value);
    throw std::runtime_error("unknown key");
}

/// Collects the lines of one file into vectors.
class Collector
{
public:
    void take(const std::string& line, const std::string& label)
    {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos)
            throw std::runtime_error("no '='");
        const std::string key(text::trimAscii(line.substr(0, equals)));
        const std::string value(text::trimAscii(line.substr(equals + 1)));
        if (key == "algorithm") {
            m_next.algorithm = value;
        } else if (key == "out") {
            close(value, label);
        } else {
            m_next.message = messageOf(key, value);
            m_next.input = line;
        }
    }

    [[nodiscard]] std::vector<HashVector>& vectors() noexcept { return m_vectors; }

private:
    void close(const std::string& digest, const std::string& label)
    {
        if (m_next.algorithm.empty() || m_next.input.empty() || digest.empty())
            throw std::runtime_error("incomplete vector");
        m_next.digest = digest;
        m_next.label = label;
        m_vectors.push_back(m_next);
        m_next.input.clear();
    }

    HashVector m_next;
    std::vector<HashVector> m_vectors;
};

} // namespace

std::vector<HashVector> readVectorFile(const std::filesystem::path& file)
{
    std::ifstream stream(file);
    if (!stream)
        throw std::runtime_error("cannot open " + file.string());
    Collector collector;
    std::string line;
    for (int number = 1; std::getline(stream, line); ++number) {
        if (line.empty() || line.front() == '#')
            continue;
        const std::string label = file.filename().string() + ':' + std::to_string(number);
        try {
            collector.take(line, label);
        } catch (const std::exception& error) {
            throw std::runtime_error(label + ": " + error.what());
        }
    }
    return std::move(collector.vectors());
}

std::vector<HashVector> readVectorFolder(const std::filesystem::path& folder)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".txt")
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
    std::vector<HashVector> all;
    for (const auto& file : files)
        std::ranges::move(readVectorFile(file), std::back_inserter(all));
    return all;
}

} // namespace quillon::tests
