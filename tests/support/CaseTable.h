#pragma once

#include "support/Bytes.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::tests {

using CaseRow = std::vector<std::string>;

/// What a cell of a table stands for: itself, without blanks at its ends, and with the bytes that "{0D0A}"
/// names in hexadecimal, or "{0A*3}" so many times; `{"ab"*3}` is the text in quotes so many times.
inline std::string cellText(std::string_view cell)
{
    const std::size_t start = cell.find_first_not_of(' ');
    if (start == std::string_view::npos)
        return {};
    cell = cell.substr(start, cell.find_last_not_of(' ') + 1 - start);
    std::string text;
    for (std::size_t open = 0; (open = cell.find('{')) != std::string_view::npos;) {
        const std::size_t close = cell.find('}', open);
        const std::string code(cell.substr(open + 1, close - open - 1));
        const std::size_t star = code.rfind('*');
        const std::string unit =
            code.starts_with('"') ? code.substr(1, code.rfind('"') - 1) : bytesFromHex(code.substr(0, star));
        text += cell.substr(0, open);
        for (int i = star == std::string::npos ? 1 : std::stoi(code.substr(star + 1)); i > 0; --i)
            text += unit;
        cell.remove_prefix(close + 1);
    }
    return text.append(cell);
}

/// The rows of the table `name` below tests/, each with its cells, which "|" parts. Lines that begin with "#"
/// are for the reader. Throws std::runtime_error where there are none.
inline std::vector<CaseRow> readCaseTable(const std::string& name)
{
    std::vector<CaseRow> rows;
    std::ifstream file(KESTRUM_TEST_DATA "/" + name);
    for (std::string line; std::getline(file, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        CaseRow& row = rows.emplace_back();
        std::istringstream cells(line + '|');
        for (std::string cell; std::getline(cells, cell, '|');)
            row.push_back(cellText(cell));
    }
    if (rows.empty())
        throw std::runtime_error("no cases in " + name);
    return rows;
}

/// What a test has read, as its table writes it: "[a][b]" for a and b.
inline std::string inBrackets(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += '[' + text + ']';
    return all;
}

} // namespace quillon::tests
