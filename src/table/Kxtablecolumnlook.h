#pragma once
// What kind of cells a column has.

#include <kxgraph/table/Kxtablecells.h>
#include <kxgraph/table/Kxtableformat.h>

namespace kx {

/// Takes the cells of a column one by one until they tell its kind: numbers where the first one that is not
/// empty is a number, or most of the next ones are (a text before numbers is told when the column is read);
/// dates where most are.
class TKxColumnLook {
public:
    static constexpr int CEnough = 50;

    void Add(TKxCellKind Kind) {
        if (Kind == TKxCellKind::Nothing) return;
        if (FCount++ == 0) FFirst = Kind;
        FNumbers += Kind == TKxCellKind::Number;
        FDates += Kind == TKxCellKind::Date;
    }
    /// Whether more cells would hardly change the answer.
    bool IsDecided() const { return FCount > 0 && (FFirst == TKxCellKind::Number || FCount > CEnough); }
    TKxColumnKind Kind() const {
        if (FCount == 0) return TKxColumnKind::Empty;
        if (FFirst == TKxCellKind::Number || 2 * FNumbers > FCount - 1) return TKxColumnKind::Numbers;
        return 2 * FDates > FCount ? TKxColumnKind::Dates : TKxColumnKind::Texts;
    }

private:
    int FCount = 0, FNumbers = 0, FDates = 0;
    TKxCellKind FFirst = TKxCellKind::Nothing;
};

} // namespace kx
