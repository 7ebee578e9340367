#pragma once
// Cases of tests that stand in text files: tests/data/FILE.txt, in sections.

#include <kxgraph/platform/objects/typenames.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

namespace kx::test {

inline constexpr double CInf = std::numeric_limits<double>::infinity();
inline constexpr double CNaN = std::numeric_limits<double>::quiet_NaN();
using TReals = std::vector<double>;
using TText = std::string;

/// The rows behind the line [Section], a line each, without blank lines and comments (#). Cells are divided
/// by '|' and trimmed; one in quotes keeps its blanks and may hold \n, \\, \xNN.
std::vector<std::vector<std::string>> RowsOf(const std::string& File, const std::string& Section);

inline void ReadCell(const std::string& Cell, std::string& Value) { Value = Cell; }
inline void ReadCell(const std::string& Cell, double& Value) { Value = std::strtod(Cell.c_str(), nullptr); }
inline void ReadCell(const std::string& Cell, int& Value) { Value = int(std::stoll(Cell, nullptr, 0)); }
inline void ReadCell(const std::string& Cell, bool& Value) { Value = Cell != "0" && Cell != "no"; }
/// One of an enumeration whose names are published.
template <class E>
requires(std::is_enum_v<E> &&
         !std::is_null_pointer_v<
             std::remove_cvref_t<decltype(CEnumNames<E>)>>) void ReadCell(const std::string& Cell, E& Value) {
    const auto* const name = std::ranges::find(CEnumNames<E>, Cell);
    if (name == CEnumNames<E>.end()) throw std::runtime_error("there is no " + Cell);
    Value = E(name - CEnumNames<E>.begin());
}
inline void ReadCell(const std::string& Cell, TReals& Values) {
    std::istringstream words(Cell);
    for (std::string word; words >> word;) Values.push_back(std::strtod(word.c_str(), nullptr));
}
template <class T, std::size_t Count>
void ReadCell(const std::string& Cell, std::array<T, Count>& Values) {
    TReals read;
    ReadCell(Cell, read);
    for (std::size_t i = 0; i < Count; ++i) Values[i] = T(read.at(i));
}

/// The rows with each cell as what it is: for (const auto& [x, text] : Cases<double, std::string>(...)).
template <class... T>
std::vector<std::tuple<T...>> Cases(const std::string& File, const std::string& Section) {
    std::vector<std::tuple<T...>> cases;
    for (const auto& row : RowsOf(File, Section)) {
        std::size_t cell = 0;
        std::apply([&](T&... Values) { (ReadCell(row.at(cell++), Values), ...); }, cases.emplace_back());
    }
    return cases;
}

} // namespace kx::test
