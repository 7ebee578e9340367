#include <kxgraph/platform/widgets/gridedit.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <utility>

namespace kx {

TCustomGrid::TCustomGrid(TComponent* Owner) : TInputControl(Owner) { TWinControl::SetBounds(0, 0, 320, 120); }

TCustomGrid::~TCustomGrid() = default;

void TCustomGrid::SetColCount(int Count) {
    FColCount = std::max(Count, 0);
    FitCounts();
}

void TCustomGrid::SetRowCount(int Count) {
    FRowCount = std::max(Count, 0);
    FitCounts();
}

void TCustomGrid::SetFixedCols(int Count) {
    FFixedCols = std::max(Count, 0);
    FitCounts();
}

void TCustomGrid::SetFixedRows(int Count) {
    FFixedRows = std::max(Count, 0);
    FitCounts();
}

/// Keeps the current cell, the range and what is scrolled inside the cells.
void TCustomGrid::FitCounts() {
    EndEdit(false);
    const auto fit = [](int Place, int Fixed, int Count) {
        return Count > Fixed ? std::clamp(Place, Fixed, Count - 1) : -1;
    };
    FCol = fit(FCol, FFixedCols, FColCount);
    FRow = fit(FRow, FFixedRows, FRowCount);
    FAnchorCol = fit(FAnchorCol, FFixedCols, FColCount);
    FAnchorRow = fit(FAnchorRow, FFixedRows, FRowCount);
    Scrolled();
}

void TCustomGrid::SetDefaultColWidth(int Width) {
    FDefaultColWidth = std::clamp(Width, 0, CMostLength);
    Scrolled();
}

void TCustomGrid::SetDefaultRowHeight(int Height) {
    FDefaultRowHeight = std::clamp(Height, 0, CMostLength);
    Scrolled();
}

int TCustomGrid::ColWidth(int Col) const {
    const auto found = FColWidths.find(Col);
    return found == FColWidths.end() ? FDefaultColWidth : found->second;
}

void TCustomGrid::SetColWidth(int Col, int Width) {
    if (Width < 0)
        FColWidths.erase(Col);
    else
        FColWidths[Col] = std::min(Width, CMostLength);
    Scrolled();
}

int TCustomGrid::RowHeight() const {
    return FDefaultRowHeight > 0 ? FDefaultRowHeight : LineHeight(GetFont()) + 6;
}

void TCustomGrid::SetReadOnly(bool ReadOnly) {
    FReadOnly = ReadOnly;
    if (ReadOnly) EndEdit(false);
    TextInputChanged();
}

void TCustomGrid::SetBounds(int Left, int Top, int Width, int Height) {
    TInputControl::SetBounds(Left, Top, Width, Height);
    Scrolled();
}

void TCustomGrid::CMFontChanged() {
    TInputControl::CMFontChanged();
    Scrolled();
}

void TCustomGrid::CMEnabledChanged() {
    if (!GetEnabled()) EndEdit(false);
    TInputControl::CMEnabledChanged();
}

void TCustomGrid::CellsChanged() { Invalidate(); }

void TCustomGrid::MoveTo(int Col, int Row, bool Extends) {
    if (!HasCells()) return;
    const TComponentRef<TCustomGrid> self(this);
    EndEdit(true);
    if (!self || !HasCells()) return;
    FCol = std::clamp(Col, FFixedCols, FColCount - 1);
    FRow = std::clamp(Row, FFixedRows, FRowCount - 1);
    if (!Extends) {
        FAnchorCol = FCol;
        FAnchorRow = FRow;
    }
    ShowCell(FCol, FRow);
    OnSelect(this);
}

TRect TCustomGrid::GetRange() const {
    return {std::min(FCol, FAnchorCol), std::min(FRow, FAnchorRow), std::max(FCol, FAnchorCol),
            std::max(FRow, FAnchorRow)};
}

void TCustomGrid::SelectAll() {
    if (!HasCells()) return;
    EndEdit(true);
    FAnchorCol = FColCount - 1;
    FAnchorRow = FRowCount - 1;
    FCol = FFixedCols;
    FRow = FFixedRows;
    Invalidate();
    OnSelect(this);
}

const TPropertyTable& TCustomGrid::Properties() {
    using C = TCustomGrid;
    static const TPropertyTable table(
        "TCustomGrid", &TInputControl::Properties(),
        {Published<&C::GetColCount, &C::SetColCount>("ColCount", 5, "Columns, headers among them"),
         Published<&C::GetRowCount, &C::SetRowCount>("RowCount", 5, "Rows, headers among them"),
         Published<&C::GetFixedCols, &C::SetFixedCols>("FixedCols", 1, "Columns that are headers"),
         Published<&C::GetFixedRows, &C::SetFixedRows>("FixedRows", 1, "Rows that are headers"),
         Published<&C::GetDefaultColWidth, &C::SetDefaultColWidth>("DefaultColWidth", 64,
                                                                   "Width of a column, pixels"),
         Published<&C::GetDefaultRowHeight, &C::SetDefaultRowHeight>(
             "DefaultRowHeight", 0, "Height of a row, pixels; 0: that of its text"),
         Published<&C::GetReadOnly, &C::SetReadOnly>("ReadOnly", false, "Whether the cells are only shown"),
         Published<&C::GetAutoRows, &C::SetAutoRows>("AutoRows", false,
                                                     "Whether Down in the last row and pasting add rows"),
         PublishedEvent<&C::OnSelect>("OnSelect", "Another cell or range is selected"),
         PublishedEvent<&C::OnChange>("OnChange", "The user has changed cells")});
    return table;
}

} // namespace kx
