#pragma once
// What the cells of a column, taken together, tell about one another.

#include <kxgraph/table/Kxtablecells.h>
#include <kxgraph/table/Kxtableformat.h>
#include <kxgraph/table/Kxtablenumber.h>

#include <optional>
#include <string_view>

namespace kx {

/// How the numbers or dates of a column are meant.
struct TKxColumnWay {
    TKxGrouping Grouping = TKxGrouping::None;
    bool IsGroupingKnown = false;
    std::optional<TKxDateOrder> DateOrder;

    TKxColumnWay() = default;
    /// As far as the format tells.
    explicit TKxColumnWay(const TKxTableFormat& Format);
};

/// Whether a cell that is no plain number may be one with groups of thousands.
bool MayBeGrouped(std::string_view Cell);

/// What stands first: "day", "month" or "year".
const char* FirstOf(TKxDateOrder Order);

/// Takes all cells of a column.
class TKxColumnScan {
public:
    TKxColumnScan(const TKxTableFormat& Format, bool DecimalComma)
        : FWay(Format), FDecimalSign(Format.DecimalSign), FCells(DecimalComma, Format.Missing) {}

    void Add(std::string_view Cell, bool Quoted);
    /// Groups are known by a cell that proves them, or where the decimal sign was given; the order of day and
    /// month where the dates leave one.
    TKxColumnWay Way() const;
    int GetCells() const { return FCount; }
    /// How many cells stand for no value.
    int GetGaps() const { return FGaps; }

private:
    TKxColumnWay FWay;
    std::optional<char> FDecimalSign;
    TKxCells FCells;
    TKxDateOrders FOrders;
    bool FCommaProves = false, FPointProves = false;
    int FCount = 0, FGaps = 0;
};

} // namespace kx
