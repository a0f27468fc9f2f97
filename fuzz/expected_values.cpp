#include "FuzzInput.h"

#include "compare/Comparison.h"
#include "compare/DigestValue.h"
#include "compare/ListFile.h"

#include <algorithm>

using namespace quillon;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = compare::textOfFile(fuzz::asText(data, size));
    const compare::ExpectedValues values = compare::readExpectedValues(text);
    std::size_t digits = 0;
    for (const compare::ExpectedValue& value : values) {
        digits += value.digits.size();
        fuzz::require(value.digits.size() >= compare::kLeastDigits, "a value has digits");
        fuzz::require(value.digits.find_first_not_of("0123456789ABCDEF") == std::string::npos,
                      "digits are hexadecimal");
        fuzz::require(value.fileName.size() <= value.lines.size(), "a name comes out of the lines");
    }
    // A letter of Base64 stands for one and a half of them.
    fuzz::require(digits <= text.size() * 3 / 2 + 1, "no digit comes twice");
    const compare::CalculatedValue ours{"folder/name", 401, "0123ABCD"};
    const compare::Comparison comparison = compare::compareWith(values, ours);
    fuzz::require((comparison.answer == compare::Answer::Unread) == values.empty(), "a value has an answer");
    const auto isOurs = [&ours](const compare::ExpectedValue& value) { return value.digits == ours.digits; };
    fuzz::require(comparison.answer != compare::Answer::Equal || std::ranges::any_of(values, isOurs),
                  "what is equal was given");
    return 0;
}
