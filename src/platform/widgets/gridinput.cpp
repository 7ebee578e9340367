// Keys, mouse and clipboard of grids, and the editing of a cell.

#include <kxgraph/platform/widgets/gridedit.h>

#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/widgets/tabtext.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace kx {

void TCustomGrid::TCellEdit::Exit() {
    TCustomEdit::Exit();
    FGrid.EndEdit(true);
}

void TCustomGrid::BeginEdit(const std::string& Typed) {
    if (!HasCells() || FReadOnly || !IsOperable() || !CanEdit(FCol, FRow) || FEdit) return;
    FAnchorCol = FCol;
    FAnchorRow = FRow;
    ShowCell(FCol, FRow);
    FEdit = std::make_unique<TCellEdit>(*this);
    FEdit->SetFont(GetFont());
    FEdit->SetAlignment(CellAlignment(FCol, FRow));
    FEdit->SetParent(this);
    FEdit->SetText(CellText(FCol, FRow));
    FEdit->SelectAll();
    if (!Typed.empty()) FEdit->ReplaceSelection(Typed);
    Scrolled();
    FEdit->SetFocus();
}

void TCustomGrid::EndEdit(bool Takes) {
    const std::unique_ptr<TCellEdit> edit = std::move(FEdit); // its Exit asks again
    if (!edit) return;
    const TComponentRef<TCustomGrid> self(this);
    const std::string text = edit->GetText();
    if (edit->IsFocused()) SetFocus();
    if (!self) return;
    edit->SetParent(nullptr);
    Invalidate();
    if (Takes && text != CellText(FCol, FRow)) Stored(Store(FCol, FRow, text));
}

bool TCustomGrid::Store(int Col, int Row, const std::string& Text) {
    return CanEdit(Col, Row) && StoreCell(Col, Row, Text);
}

void TCustomGrid::Stored(bool Any) {
    Invalidate();
    if (Any) OnChange(this);
}

void TCustomGrid::CopyToClipboard() const {
    if (!HasCells()) return;
    const TRect range = GetRange();
    std::vector<std::vector<std::string>> rows;
    for (int row = range.Top; row <= range.Bottom; ++row) {
        auto& cells = rows.emplace_back();
        for (int col = range.Left; col <= range.Right; ++col) cells.push_back(CellText(col, row));
    }
    std::string text = TabTextOf(rows);
    if (rows.size() == 1) text.pop_back(); // for whoever pastes it as plain text
    TApplication::Instance().GetHost().CopyText(text);
}

void TCustomGrid::PasteFromClipboard() {
    if (!HasCells() || FReadOnly) return;
    const auto rows = ReadTabText(TApplication::Instance().GetHost().PasteText());
    if (rows.empty()) return;
    TRect range = GetRange();
    const bool fills = rows.size() == 1 && rows[0].size() == 1;
    if (!fills) {
        const int end = static_cast<int>(std::min<std::size_t>(rows.size(), CMaxPixel)) + range.Top;
        if (FAutoRows && end > FRowCount) SetRowCount(end);
        range.Bottom = std::min(end, FRowCount) - 1;
    }
    int widest = range.Left;
    bool any = false;
    for (int row = range.Top; row <= range.Bottom; ++row) {
        const auto& cells = rows[fills ? 0 : static_cast<std::size_t>(row - range.Top)];
        const int last =
            fills ? range.Right : std::min(range.Left + static_cast<int>(cells.size()), FColCount) - 1;
        for (int col = range.Left; col <= last; ++col)
            any = Store(col, row, cells[fills ? 0 : static_cast<std::size_t>(col - range.Left)]) || any;
        widest = std::max(widest, last);
    }
    std::tie(FCol, FRow, FAnchorCol, FAnchorRow) = std::tuple(range.Left, range.Top, widest, range.Bottom);
    Stored(any);
}

void TCustomGrid::ClearRange() {
    if (!HasCells() || FReadOnly) return;
    const TRect range = GetRange();
    bool any = false;
    for (int row = range.Top; row <= range.Bottom; ++row)
        for (int col = range.Left; col <= range.Right; ++col) any = Store(col, row, {}) || any;
    Stored(any);
}

bool TCustomGrid::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomGrid> self(this);
    if (TInputControl::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || !HasCells()) return false;
    if (FEdit) return EditedKey(Stroke);
    if (MoveKey(Stroke) || RangeKey(Stroke)) return true;
    const bool alt = (Stroke.Shift & ssAlt) != 0, ctrl = (Stroke.Shift & ssCtrl) != 0;
    const bool types = !Stroke.Text.empty() && alt == ctrl && Stroke.Key != kcReturn;
    const bool opens = !alt && !ctrl && (Stroke.Key == kcReturn || Stroke.Key == kcF1 + 1);
    if (FReadOnly || (!types && !opens)) return false;
    BeginEdit(types ? std::string(Stroke.Text) : std::string());
    return true;
}

/// A key that the field of the cell has left over.
bool TCustomGrid::EditedKey(const TKeyStroke& Stroke) {
    const bool back = (Stroke.Shift & ssShift) != 0;
    switch (Stroke.Key) {
    case kcEscape: return EndEdit(false), true;
    case kcReturn: return MoveTo(FCol, FRow + (back ? -1 : 1)), true;
    case kcUp: return MoveTo(FCol, FRow - 1), true;
    case kcDown: return MoveTo(FCol, FRow + 1), true;
    case kcTab: return MoveTo(FCol + (back ? -1 : 1), FRow), true;
    default: return false;
    }
}

bool TCustomGrid::MoveKey(const TKeyStroke& Stroke) {
    if (Stroke.Shift & ssAlt) return false;
    const bool extends = (Stroke.Shift & ssShift) != 0, far = (Stroke.Shift & ssCtrl) != 0;
    const int page = std::max(PageRows() - 1, 1);
    switch (Stroke.Key) {
    case kcLeft: return MoveTo(far ? 0 : FCol - 1, FRow, extends), true;
    case kcRight: return MoveTo(far ? FColCount : FCol + 1, FRow, extends), true;
    case kcUp: return MoveTo(FCol, far ? 0 : FRow - 1, extends), true;
    case kcDown:
        if (FAutoRows && !FReadOnly && !far && !extends && FRow == FRowCount - 1) SetRowCount(FRowCount + 1);
        return MoveTo(FCol, far ? FRowCount : FRow + 1, extends), true;
    case kcPageUp: return MoveTo(FCol, FRow - page, extends), true;
    case kcPageDown: return MoveTo(FCol, FRow + page, extends), true;
    case kcHome: return MoveTo(0, far ? 0 : FRow, extends), true;
    case kcEnd: return MoveTo(FColCount, far ? FRowCount : FRow, extends), true;
    default: return false;
    }
}

bool TCustomGrid::RangeKey(const TKeyStroke& Stroke) {
    const TShiftState shift = Stroke.Shift & (ssShift | ssCtrl | ssAlt);
    const bool ctrl = shift == ssCtrl;
    if (ctrl && Stroke.Key == 'A') return SelectAll(), true;
    if (ctrl && (Stroke.Key == 'C' || Stroke.Key == kcInsert)) return CopyToClipboard(), true;
    if (FReadOnly) return false;
    if ((ctrl && Stroke.Key == 'V') || (shift == ssShift && Stroke.Key == kcInsert))
        return PasteFromClipboard(), true;
    const bool cuts = (ctrl && Stroke.Key == 'X') || (shift == ssShift && Stroke.Key == kcDelete);
    if (cuts) CopyToClipboard();
    if (!cuts && !(shift == 0 && (Stroke.Key == kcDelete || Stroke.Key == kcBack))) return false;
    return ClearRange(), true;
}

void TCustomGrid::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomGrid> self(this);
    if (Button == mbLeft && IsOperable()) {
        const TPoint cell = CellAt({X, Y});
        if (FDown.Contains({X, Y})) {
            if (const auto top = FDown.Press({X, Y})) ScrollTo(FLeftCol, FFixedRows + RoundToInt(*top));
        } else if (FAcross.Contains({X, Y})) {
            if (const auto left = FAcross.Press({X, Y})) ScrollTo(FFixedCols + RoundToInt(*left), FTopRow);
        } else if (const int edge = EdgeAt({X, Y}); edge >= 0) {
            FSizedCol = edge;
        } else if (cell.X >= FFixedCols && cell.Y >= FFixedRows) {
            FPressed = !(Shift & ssDouble);
            MoveTo(cell.X, cell.Y, (Shift & ssShift) != 0);
            if (self && (Shift & ssDouble)) BeginEdit();
        }
    }
    if (self) TInputControl::MouseDown(Button, Shift, X, Y);
}

void TCustomGrid::MouseMove(TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomGrid> self(this);
    if (const auto top = FDown.DragTo({X, Y})) ScrollTo(FLeftCol, FFixedRows + RoundToInt(*top));
    if (const auto left = FAcross.DragTo({X, Y})) ScrollTo(FFixedCols + RoundToInt(*left), FTopRow);
    if (FSizedCol >= 0) SetColWidth(FSizedCol, std::max(X - ColLeft(FSizedCol), 8));
    if (FPressed) {
        const TRect room = CellsRect();
        const TPoint inside{std::clamp(X, 1 + FixedWidth(), room.Right - 1),
                            std::clamp(Y, 1 + FixedHeight(), room.Bottom - 1)};
        TPoint cell = CellAt(inside); // beyond an edge it scrolls along
        if (cell.X < 0) cell.X = FColCount - 1;
        if (cell.Y < 0) cell.Y = FRowCount - 1;
        cell.X += X < inside.X ? -1 : X > inside.X ? 1 : 0;
        cell.Y += Y < inside.Y ? -1 : Y > inside.Y ? 1 : 0;
        if (cell != TPoint{FCol, FRow}) MoveTo(cell.X, cell.Y, true);
    } else if (THostWindow* window = GetHostWindow(); window && (FSizedCol >= 0 || EdgeAt({X, Y}) >= 0)) {
        window->SetCursor(crSizeWE);
    }
    if (self) TInputControl::MouseMove(Shift, X, Y);
}

void TCustomGrid::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (Button == mbLeft) {
        FPressed = false;
        FSizedCol = -1;
        FDown.Release();
        FAcross.Release();
        Invalidate();
    }
    TInputControl::MouseUp(Button, Shift, X, Y);
}

bool TCustomGrid::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TInputControl::MouseWheel(Turn, Shift, X, Y)) return true;
    if (!IsOperable() || (!FDown.IsNeeded() && !FAcross.IsNeeded())) return false;
    const int steps = FWheel.Take(Turn, FDown.IsNeeded() && !(Shift & ssShift) ? 3 : 1);
    if (FDown.IsNeeded() && !(Shift & ssShift))
        ScrollTo(FLeftCol, FTopRow + steps);
    else
        ScrollTo(FLeftCol + steps, FTopRow);
    return true;
}

/// An input method begins in a cell as typing does.
bool TCustomGrid::Compose(const TComposition& Composition) {
    if (!TextInput().Takes) return false;
    BeginEdit(Composition.Commit);
    return FEdit && (Composition.Text.empty() ||
                     FEdit->Compose({.Text = Composition.Text, .Caret = Composition.Caret}));
}

THostTextInput TCustomGrid::TextInput() const {
    const TRect cell = HasCells() ? CellRect(FCol, FRow) : TRect{};
    const bool takes = HasCells() && !FReadOnly && IsOperable();
    return {.Takes = takes, .Left = cell.Left, .Top = cell.Top, .Width = 1, .Height = cell.Height()};
}

} // namespace kx
