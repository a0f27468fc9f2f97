#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

namespace quillon::tests {

/// One line of a vector file.
struct HashVector
{
    std::string algorithm; ///< a name of the catalogue
    std::string label;     ///< where it stands: "file:line"
    std::string input;     ///< as written, such as "pattern = 55"
    std::string message;   ///< the bytes that `input` stands for
    std::string digest;    ///< capital hexadecimal digits
};

inline void PrintTo(const HashVector& vector, std::ostream* out)
{
    *out << vector.label << ' ' << vector.algorithm << ' ' << vector.input.substr(0, 80);
}

/// Reads a file of lines "key = value", with '#' before a comment:
///
///     algorithm = SHA-256    holds until the next one
///     in = 616263            the message in hexadecimal; or one of
///     text = abc             ASCII letters
///     pattern = 300          300 bytes, byte i being i mod 251
///     repeat = 1000000 61    a million bytes 61 (hexadecimal)
///     out = BA7816BF...      the digest of the message above
///
/// Throws std::runtime_error, with the place, for a line that says anything else.
[[nodiscard]] std::vector<HashVector> readVectorFile(const std::filesystem::path& file);

/// All vectors of all .txt files of a folder, in the order of the files' names.
[[nodiscard]] std::vector<HashVector> readVectorFolder(const std::filesystem::path& folder);

} // namespace quillon::tests
