#include "support/cases.h"

#include "support/nist.h"

#include <kxgraph/platform/text/files.h>

#include <stdexcept>

namespace kx::test {

namespace {

std::string DataFile(const std::string& Name) { return ReadFile(KX_SOURCE "/tests/data/" + Name); }

std::string Trimmed(const std::string& Text) {
    const auto begin = Text.find_first_not_of(' ');
    return begin == Text.npos ? "" : Text.substr(begin, Text.find_last_not_of(' ') + 1 - begin);
}

std::string Unquoted(const std::string& Cell) {
    if (Cell.size() < 2 || Cell.front() != '"' || Cell.back() != '"') return Cell;
    std::string text;
    for (std::size_t i = 1; i + 1 < Cell.size(); ++i) {
        if (Cell[i] != '\\') {
            text += Cell[i];
        } else if (Cell[++i] == 'x') {
            text += char(std::stoi(Cell.substr(i + 1, 2), nullptr, 16));
            i += 2;
        } else {
            text += Cell[i] == 'n' ? '\n' : Cell[i];
        }
    }
    return text;
}

} // namespace

std::vector<std::vector<std::string>> RowsOf(const std::string& File, const std::string& Section) {
    std::vector<std::vector<std::string>> rows;
    std::istringstream lines(DataFile(File + ".txt"));
    bool inside = false;
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with('[')) inside = line == "[" + Section + "]";
        if (!inside || line.empty() || line[0] == '#' || line[0] == '[') continue;
        auto& row = rows.emplace_back();
        std::istringstream cells(line + "|");
        for (std::string cell; std::getline(cells, cell, '|');) row.push_back(Unquoted(Trimmed(cell)));
    }
    if (rows.empty()) throw std::runtime_error("no cases [" + Section + "] in " + File);
    return rows;
}

// The format is the same in all of the files: certified values up to line 60, then y and x.
TNistSet::TNistSet(const std::string& Name) {
    std::istringstream lines(DataFile("nist/" + Name + ".dat"));
    std::string line;
    for (int number = 1; std::getline(lines, line); ++number) {
        TReals numbers;
        std::istringstream words(line);
        std::string first;
        if (!(words >> first)) continue;
        for (std::string word; words >> word;) {
            char* end = nullptr;
            const double value = std::strtod(word.c_str(), &end);
            if (!*end) numbers.push_back(value);
        }
        if (number > 60) {
            Y.push_back(std::stod(first));
            X.push_back(numbers.at(0));
        } else if (number > 30 && (first[0] == 'B' || first[0] == 'b') && numbers.size() >= 2) {
            Deviations.push_back(numbers.back());
            Coefficients.push_back(numbers[numbers.size() - 2]);
            for (std::size_t i = 0; i + 2 < numbers.size(); ++i) Starts[i].push_back(numbers[i]);
        } else if (first == "R-Squared") {
            R2 = numbers.at(0);
        } else if (line.starts_with("Residual Sum of Squares:")) {
            SumOfSquares = numbers.at(0);
        } else if (first == "Residual" && numbers.size() == 3) {
            SumOfSquares = numbers[1];
        }
    }
    if (X.empty() || Coefficients.empty()) throw std::runtime_error("no certified data in " + Name);
}

} // namespace kx::test
