// Where the cells of a grid are, and how they are scrolled and painted.

#include <kxgraph/platform/widgets/gridedit.h>

#include <algorithm>

namespace kx {

int TCustomGrid::FixedWidth() const {
    int width = 0;
    for (int i = 0; i < std::min(FFixedCols, FColCount); ++i) width += ColWidth(i);
    return width;
}

int TCustomGrid::FixedHeight() const { return std::min(FFixedRows, FRowCount) * RowHeight(); }

/// The room of all cells, headers among them.
TRect TCustomGrid::CellsRect() const {
    return {1, 1, GetWidth() - 1 - (FDown.IsNeeded() ? CScrollWidth : 0),
            GetHeight() - 1 - (FAcross.IsNeeded() ? CScrollWidth : 0)};
}

int TCustomGrid::PageRows() const {
    const int room = CellsRect().Height() - FixedHeight();
    return std::max(room / RowHeight(), 1);
}

/// The column from which on the last one is seen whole.
int TCustomGrid::LastLeftCol() const {
    int room = CellsRect().Width() - FixedWidth(), col = FColCount - 1;
    if (col < FFixedCols) return FFixedCols;
    for (room -= ColWidth(col); col > FFixedCols && room >= ColWidth(col - 1); --col)
        room -= ColWidth(col - 1);
    return col;
}

void TCustomGrid::ScrollTo(int LeftCol, int TopRow) {
    FLeftCol = LeftCol;
    FTopRow = TopRow;
    Scrolled();
}

/// Takes the scroll bars along, and the field of the cell that is edited.
void TCustomGrid::Scrolled() {
    const TRect all = GetClientRect();
    const TRect right{all.Right - 1 - CScrollWidth, 1 + FixedHeight(), all.Right - 1, all.Bottom - 1};
    const TRect below{1, all.Bottom - 1 - CScrollWidth, all.Right - 1, all.Bottom - 1};
    for (int pass = 0; pass < 2; ++pass) { // either bar takes room from the other's cells
        FTopRow = std::clamp(FTopRow, FFixedRows, std::max(FRowCount - PageRows(), FFixedRows));
        const int lastLeft = LastLeftCol(), pageCols = std::max(FColCount - lastLeft, 1);
        FLeftCol = std::clamp(FLeftCol, FFixedCols, lastLeft);
        FDown.Place({right.Left, right.Top, right.Right, CellsRect().Bottom}, FRowCount - FFixedRows,
                    PageRows(), FTopRow - FFixedRows);
        FAcross.Place({below.Left, below.Top, CellsRect().Right, below.Bottom},
                      lastLeft - FFixedCols + pageCols, pageCols, FLeftCol - FFixedCols);
    }
    if (FEdit) {
        const TRect cell = CellRect(FCol, FRow);
        FEdit->SetBounds(cell.Left, cell.Top, cell.Width(), cell.Height());
    }
    Invalidate();
}

void TCustomGrid::ShowCell(int Col, int Row) {
    int left = std::min(FLeftCol, Col), room = CellsRect().Width() - FixedWidth();
    for (int i = Col; i > left; --i)
        if ((room -= ColWidth(i)) < ColWidth(i - 1)) left = i;
    const int top = Row < FTopRow ? Row : std::max(FTopRow, Row - PageRows() + 1);
    ScrollTo(left, top);
}

int TCustomGrid::ColLeft(int Col) const {
    int left = 1;
    const int first = Col < FFixedCols ? 0 : FLeftCol;
    if (Col >= FFixedCols) left += FixedWidth();
    for (int i = first; i < Col && left <= GetWidth(); ++i)
        left += ColWidth(i); // farther ones are out of sight
    return left;
}

TRect TCustomGrid::CellRect(int Col, int Row) const {
    const bool outside = Col < 0 || Row < 0 || Col >= FColCount || Row >= FRowCount;
    const bool scrolledAway = (Col >= FFixedCols && Col < FLeftCol) || (Row >= FFixedRows && Row < FTopRow);
    if (outside || scrolledAway) return {};
    const int height = RowHeight(), left = ColLeft(Col);
    const int top = 1 + (Row < FFixedRows ? Row : FFixedRows + Row - FTopRow) * height;
    const TRect room = CellsRect();
    if (left >= room.Right || top >= room.Bottom) return {};
    return {left, top, left + ColWidth(Col), top + height};
}

TPoint TCustomGrid::CellAt(TPoint Pos) const {
    const TRect room = CellsRect();
    if (!room.Contains(Pos)) return {-1, -1};
    const int line = (Pos.Y - 1) / RowHeight(), row = line < FFixedRows ? line : line - FFixedRows + FTopRow;
    int col = Pos.X < 1 + FixedWidth() ? 0 : FLeftCol;
    while (col < FColCount && Pos.X >= ColLeft(col) + ColWidth(col)) ++col;
    return {col < FColCount ? col : -1, row < FRowCount ? row : -1};
}

/// The column in the headers whose right edge is at Pos; -1: none.
int TCustomGrid::EdgeAt(TPoint Pos) const {
    constexpr int CReach = 3;
    if (Pos.Y >= 1 + FixedHeight() || Pos.Y < 1) return -1;
    for (const int reach : {0, -CReach}) {
        const TPoint cell = CellAt({Pos.X + reach, Pos.Y});
        if (cell.X >= 0 && std::abs(ColLeft(cell.X) + ColWidth(cell.X) - Pos.X) <= CReach) return cell.X;
    }
    return -1;
}

/// Behind the last column, and the last row, that are in sight.
int TCustomGrid::EndCol() const {
    int col = FLeftCol;
    for (int left = 1 + FixedWidth(); left < CellsRect().Right && col < FColCount; ++col)
        left += ColWidth(col);
    return col;
}

int TCustomGrid::EndRow() const {
    return std::min(FTopRow + (CellsRect().Bottom - 1 - FixedHeight()) / RowHeight() + 1, FRowCount);
}

void TCustomGrid::Paint() {
    PaintField(GetCanvas(), GetClientRect(), GetColor(), GetDrawState() & ~unsigned(odHot));
    const TRect room = CellsRect();
    const int right = 1 + FixedWidth(), below = 1 + FixedHeight();
    const int lastRow = EndRow(), lastCol = EndCol();
    const int cols = std::min(FFixedCols, FColCount), rows = std::min(FFixedRows, FRowCount);
    const TRect inner{std::min(right, room.Right), std::min(below, room.Bottom), room.Right, room.Bottom};
    PaintCells(FLeftCol, lastCol, FTopRow, lastRow, inner);
    PaintRange();
    PaintCells(FLeftCol, lastCol, 0, rows, {inner.Left, room.Top, room.Right, inner.Top});
    PaintCells(0, cols, FTopRow, lastRow, {room.Left, inner.Top, inner.Left, room.Bottom});
    PaintCells(0, cols, 0, rows, {room.Left, room.Top, inner.Left, inner.Top});
    FDown.Paint(GetCanvas(), GetDrawState());
    FAcross.Paint(GetCanvas(), GetDrawState());
}

void TCustomGrid::PaintCells(int FromCol, int ToCol, int FromRow, int ToRow, const TRect& Clip) {
    const TCanvas::TSaved saved(GetCanvas());
    const TRect clip = Clip.Intersected(GetCanvas().GetClipRect());
    if (clip.IsEmpty()) return;
    for (int row = FromRow; row < ToRow; ++row)
        for (int col = FromCol; col < ToCol; ++col) {
            const TRect cell = CellRect(col, row).Intersected(clip);
            if (cell.IsEmpty()) continue;
            GetCanvas().SetClip(cell);
            PaintCell(col, row);
        }
}

void TCustomGrid::PaintCell(int Col, int Row) {
    TCanvas& canvas = GetCanvas();
    const bool header = Col < FFixedCols || Row < FFixedRows;
    const TRect cell = CellRect(Col, Row), range = GetRange();
    const TColor line = RGB(218, 218, 218);
    const bool inCols = Col >= range.Left && Col <= range.Right,
               inRows = Row >= range.Top && Row <= range.Bottom;
    const bool marked = HasCells() && (header ? (Col < FFixedCols ? inRows : inCols) : inCols && inRows);
    const TColor ground = header ? RGB(243, 243, 243) : ColorToRGB(GetColor());
    if (header || marked) {
        canvas.Brush.SetColor(marked ? Blended(ground, HasKeys() || IsEditing() ? clHighlight : clGray, 0.16)
                                     : ground);
        canvas.FillRect(cell);
    }
    canvas.Brush.SetColor(line);
    canvas.FillRect(TRect{cell.Right - 1, cell.Top, cell.Right, cell.Bottom});
    canvas.FillRect(TRect{cell.Left, cell.Bottom - 1, cell.Right, cell.Bottom});
    canvas.Font.SetColor(TextColorFor(GetFont(), GetDrawState()));
    const bool centred = header && Row < FFixedRows;
    const TRect inside{cell.Left + CFieldPadding, cell.Top, cell.Right - CFieldPadding, cell.Bottom - 1};
    PaintText(canvas, inside, CellText(Col, Row), centred ? taCenter : CellAlignment(Col, Row));
}

/// The frame around the current cell.
void TCustomGrid::PaintRange() {
    const TRect cell = HasCells() ? CellRect(FCol, FRow) : TRect{};
    if (cell.IsEmpty() || !HasKeys()) return;
    const TRect room = CellsRect();
    const TCanvas::TSaved saved(GetCanvas());
    GetCanvas().SetClip(room.Intersected(GetCanvas().GetClipRect()));
    const TRect frame{cell.Left - 1, cell.Top - 1, cell.Right, cell.Bottom};
    PaintOutline(GetCanvas(), frame, clHighlight);
    PaintOutline(GetCanvas(), {frame.Left + 1, frame.Top + 1, frame.Right - 1, frame.Bottom - 1},
                 clHighlight);
}

TAccessiblePart TCustomGrid::Accessible() const {
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::Table;
    part.Editable = !FReadOnly;
    if (HasCells()) part.Value = CellText(FCol, FRow);
    for (int row = FFixedRows > 0 ? 0 : FTopRow; row < EndRow();
         row = row + 1 == FFixedRows ? FTopRow : row + 1) {
        for (int col = FFixedCols > 0 ? 0 : FLeftCol; col < EndCol();
             col = col + 1 == FFixedCols ? FLeftCol : col + 1) {
            const TRect cell = CellRect(col, row);
            part.Parts.push_back({.Role = TAccessibleRole::Cell,
                                  .Name = {},
                                  .Value = CellText(col, row),
                                  .Description = {},
                                  .Bounds = cell,
                                  .Focused = part.Focused && col == FCol && row == FRow});
        }
    }
    return part;
}

} // namespace kx
