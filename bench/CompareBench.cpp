// bench_compare: what reading an expected digest costs, for lists of 512 KiB and of 1 MiB. Twice the list
// takes twice the time; what is printed last is the ratio.

#include "compare/Comparison.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace {

namespace compare = quillon::compare;

constexpr std::size_t kSmall = std::size_t{512} * 1024;
constexpr int kRounds = 31;

std::string repeated(const std::string& unit, std::size_t size)
{
    std::string text;
    while (text.size() < size)
        text += unit;
    return text.substr(0, size);
}

double milliseconds(const std::string& text)
{
    const compare::CalculatedValue ours{"/home/user/folder/name", 11, std::string(64, 'A')};
    const auto start = std::chrono::steady_clock::now();
    const compare::Comparison comparison = compare::compareWith(compare::readExpectedValues(text), ours);
    const auto end = std::chrono::steady_clock::now();
    if (comparison.answer == compare::Answer::Equal)
        std::puts("That is not equal.");
    return std::chrono::duration<double, std::milli>(end - start).count();
}

double median(std::vector<double> values)
{
    std::ranges::nth_element(values, values.begin() + kRounds / 2);
    return values[kRounds / 2];
}

} // namespace

int main()
{
    const std::pair<const char*, std::string> kinds[]{
        {"sums", std::string(64, 'b') + "  folder/name\n"},
        {"tags", "SHA256 (folder/name) = " + std::string(64, 'b') + '\n'},
        {"short lines", "a\n"},
        {"one value", "bbbbbbbb "},
        {"names", "md5 sha1 "},
        {"brackets", "(((("},
    };
    std::puts("kind            512 KiB       1 MiB   ratio");
    for (const auto& [name, unit] : kinds) {
        const std::string small = repeated(unit, kSmall);
        const std::string large = repeated(unit, 2 * kSmall);
        std::vector<double> smallTimes;
        std::vector<double> largeTimes;
        std::vector<double> ratios;
        for (int round = 0; round < kRounds; ++round) {
            smallTimes.push_back(milliseconds(small));
            largeTimes.push_back(milliseconds(large));
            ratios.push_back(largeTimes.back() / smallTimes.back());
        }
        std::printf("%-12s %7.2f ms  %7.2f ms  %6.2f\n", name, median(smallTimes), median(largeTimes),
                    median(ratios));
    }
    return 0;
}
