#pragma once
// The coefficients of a fit as a grid: what they are called, where they start, and how they are held. On a
// copy until it is applied.

#include <kxgraph/design/Kxpropertyplace.h>

#include <string>
#include <vector>

namespace kx {

class TKxFittedLine;

/// Cells are texts. Rows count from 0. What raises EPropertyError leaves the grid as it was.
class TKxCoefficientGrid {
public:
    enum TColumn {
        ccName,
        ccStart,
        ccFixed, ///< True or False
        ccLow,   ///< bounds, both ends included; empty for none
        ccHigh,
        ccPresent, ///< what the last fit has found; read only
        ccCount
    };
    /// Place is a property of a fitted line; of several, the first one's coefficients are edited.
    explicit TKxCoefficientGrid(TKxPropertyPlace Place);

    int GetRowCount() const { return int(FRows.size()); }
    static std::string GetHeader(TColumn Column);
    std::string GetText(int Row, TColumn Column) const;
    void SetText(int Row, TColumn Column, const std::string& Text);
    /// Coefficients that are gained start from 1: the simplex moves none that is 0.
    void SetRowCount(int Count);
    /// What is wrong with the lists that the line has (FixedCoefficients, Bounds), which are then not shown;
    /// empty when nothing is.
    const std::string& GetProblem() const { return FProblem; }

    bool IsChanged() const { return FIsChanged; }
    /// Gives the line names, starts, fixed coefficients and bounds, as one step of the history. Raises
    /// EPropertyError about bounds that leave no room and names that are no names or stand twice.
    void Apply();
    /// Takes what the line has.
    void Revert();

private:
    struct TRow {
        std::string Name;
        double Start;
        bool IsFixed;
        double Low, High; ///< NaN for none
    };
    TKxFittedLine& Line() const;
    std::string FixedList() const;
    std::string BoundsList() const;
    void Check() const;

    TKxPropertyPlace FPlace;
    std::vector<TRow> FRows;
    std::string FProblem;
    bool FIsChanged = false;
};

} // namespace kx
