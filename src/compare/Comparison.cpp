#include "compare/Comparison.h"

#include "compare/AlgorithmName.h"
#include "compare/DigestValue.h"
#include "crypto/HashCatalogue.h"
#include "text/AsciiText.h"

#include <algorithm>
#include <utility>

namespace quillon::compare {
namespace {

using Values = std::vector<const ExpectedValue*>;

bool isSeparator(char c)
{
    return c == '/' || c == '\\';
}

/// How well the name that stands beside a value agrees with the end of our file's path: 0 where already the
/// file's own name differs; else more for each folder, and a little more where nothing of it is left over.
std::size_t agreement(std::string_view name, std::string_view path, bool withCase)
{
    const auto fold = [withCase](char c) {
        return isSeparator(c) ? '/' : withCase ? c : text::toAsciiLower(c);
    };
    if (name.starts_with("./"))
        name.remove_prefix(2);
    std::size_t parts = 0;
    std::size_t length = 0;
    const std::size_t shorter = std::min(name.size(), path.size());
    while (length < shorter && fold(name[name.size() - 1 - length]) == fold(path[path.size() - 1 - length])) {
        ++length;
        parts += isSeparator(name[name.size() - length]) ? 1U : 0U;
    }
    const auto isCutThere = [length](std::string_view whole) {
        return length == whole.size() || isSeparator(whole[whole.size() - 1 - length]);
    };
    if (length > 0 && !isSeparator(name[name.size() - length]) && isCutThere(name) && isCutThere(path))
        ++parts;
    return 2 * parts + (parts > 0 && length == name.size() ? 1U : 0U);
}

/// Those beside the name that agrees best.
Values namedLike(const ExpectedValues& values, const std::string& fileName, bool withCase)
{
    Values best;
    std::size_t most = 1;
    for (const ExpectedValue& value : values) {
        const std::size_t grade = agreement(value.fileName, fileName, withCase);
        if (grade > most)
            best.clear();
        if (grade >= most)
            best.push_back(&value);
        most = std::max(most, grade);
    }
    return best;
}

/// A list may have values of several algorithms for one file.
Values fitting(const Values& values, const CalculatedValue& ours)
{
    Values fit;
    std::ranges::copy_if(values, std::back_inserter(fit), [&ours](const ExpectedValue* value) {
        return value->algorithmName.empty() ? value->digits.size() == ours.digits.size()
                                            : value->algorithm == ours.algorithm;
    });
    return fit.empty() ? Values{values.front()} : fit;
}

std::vector<std::uint32_t> algorithmsOfLength(std::size_t digits)
{
    std::vector<std::uint32_t> algorithms;
    for (const crypto::HashAlgorithm& row : crypto::hashCatalogue()) {
        if (static_cast<std::size_t>(row.digestBytes) * 2 == digits)
            algorithms.push_back(row.id.alg);
    }
    std::ranges::stable_sort(algorithms, {}, rankByUse);
    return algorithms;
}

Comparison judge(const ExpectedValue& value, const CalculatedValue& ours)
{
    Comparison comparison{Answer::Different, value, value.lines, {}, false};
    if (!value.algorithmName.empty() && value.algorithm != ours.algorithm) {
        comparison.answer = Answer::OtherAlgorithm;
        if (value.algorithm != 0)
            comparison.algorithms = {value.algorithm};
    } else if (value.digits == ours.digits) {
        comparison.answer = Answer::Equal;
    } else if (value.digits.size() < ours.digits.size() && ours.digits.starts_with(value.digits)) {
        comparison.answer = Answer::Beginning;
    } else if (value.digits.size() != ours.digits.size() && isDigestLength(value.digits.size())) {
        comparison.answer = Answer::OtherLength;
        comparison.algorithms = algorithmsOfLength(value.digits.size());
    }
    return comparison;
}

Comparison judgeUnnamed(const ExpectedValues& values, const CalculatedValue& ours)
{
    const auto isEqual = [&ours](const ExpectedValue& value) {
        return judge(value, ours).answer == Answer::Equal;
    };
    auto counts = values.size() == 1 ? values.begin() : std::ranges::find_if(values, isEqual);
    if (counts == values.end())
        return {Answer::NotListed, {}, {}, {}, false};
    Comparison comparison = judge(*counts, ours);
    comparison.isOfOtherName = !counts->fileName.empty();
    return comparison;
}

Comparison contradiction(const Values& values)
{
    Comparison comparison{Answer::Contradictory, *values.front(), {}, {}, false};
    for (const ExpectedValue* value : values)
        comparison.lines += value->lines + '\n';
    return comparison;
}

} // namespace

Comparison compareWith(const ExpectedValues& values, const CalculatedValue& ours)
{
    if (values.empty())
        return {};
    Values named = namedLike(values, ours.fileName, true);
    if (named.empty())
        named = namedLike(values, ours.fileName, false);
    if (named.empty())
        return judgeUnnamed(values, ours);
    named = fitting(named, ours);
    const auto differs = [&named](const ExpectedValue* value) {
        return value->digits != named.front()->digits;
    };
    if (std::ranges::any_of(named, differs))
        return contradiction(named);
    return judge(*named.front(), ours);
}

} // namespace quillon::compare
