#include <kxgraph/table/Kxtablecolumn.h>

namespace kx {

// A decimal comma that was given leaves no other meaning to points.
TKxColumnWay::TKxColumnWay(const TKxTableFormat& Format) : DateOrder(Format.DateOrder) {
    if (Format.DecimalSign == ',') Grouping = TKxGrouping::ByPoint;
    IsGroupingKnown = Format.DecimalSign == ',';
}

bool MayBeGrouped(std::string_view Cell) {
    return TellsGrouping(Cell, TKxGrouping::ByComma).IsGrouped ||
           TellsGrouping(Cell, TKxGrouping::ByPoint).IsGrouped;
}

const char* FirstOf(TKxDateOrder Order) {
    switch (Order) {
    case TKxDateOrder::DayMonthYear: return "day";
    case TKxDateOrder::MonthDayYear: return "month";
    default: return "year";
    }
}

void TKxColumnScan::Add(std::string_view Cell, bool Quoted) {
    ++FCount;
    if (FCells.IsNothing(Cell, Quoted)) {
        ++FGaps;
        return;
    }
    FCommaProves |= TellsGrouping(Cell, TKxGrouping::ByComma).IsProof;
    FPointProves |= TellsGrouping(Cell, TKxGrouping::ByPoint).IsProof;
    if (FWay.DateOrder) return;
    if (const auto date = TKxDateCell::Parse(Cell)) FOrders.Add(*date);
}

TKxColumnWay TKxColumnScan::Way() const {
    TKxColumnWay way = FWay;
    if (!way.IsGroupingKnown) {
        const bool byComma = FDecimalSign == '.' || FCommaProves;
        if (byComma != FPointProves) way.Grouping = byComma ? TKxGrouping::ByComma : TKxGrouping::ByPoint;
        way.IsGroupingKnown = true;
    }
    if (!way.DateOrder && FOrders.WasAsked()) way.DateOrder = FOrders.Decided();
    return way;
}

} // namespace kx
