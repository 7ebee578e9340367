#pragma once
// What a cell is by itself.

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

enum class TKxCellKind { Nothing, Number, Date, Text };

/// Tells numbers, dates and missing values from texts.
class TKxCells {
public:
    TKxCells(bool DecimalComma, std::vector<std::string> Missing)
        : FDecimalComma(DecimalComma), FMissing(std::move(Missing)) {}

    /// Whether the cell stands for no value: it is empty, one of the texts that were given, or, unquoted, one
    /// of NA, N/A, -, ?, * and a lone point.
    bool IsNothing(std::string_view Cell, bool Quoted) const;
    /// Whether a text that was given stands for no value though it is a number, such as -999.
    bool HidesNumbers() const;
    /// A number with an exponent of any kind.
    std::optional<double> Number(std::string_view Cell) const;
    /// Numbers with groups of thousands count as such even where they are no proof.
    TKxCellKind Kind(std::string_view Cell, bool Quoted) const;

private:
    bool FDecimalComma;
    std::vector<std::string> FMissing;
};

} // namespace kx
