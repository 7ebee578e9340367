#pragma once
// Tables whose cells are selected, edited in place, copied and pasted.

#include <kxgraph/platform/widgets/edit.h>
#include <kxgraph/platform/widgets/inputcontrol.h>
#include <kxgraph/platform/widgets/scrollpart.h>

#include <map>
#include <string>
#include <vector>

namespace kx {

/// Cells by column and row. The first FixedCols columns and FixedRows rows are headers, which stay in sight
/// and are not edited. A derived class says what the cells hold (CellText, StoreCell); only those in sight
/// are asked for, so a million rows cost nothing.
///
/// Arrows, Home, End, PageUp, PageDown move the current cell, with Ctrl to the ends, with Shift they select a
/// range. Typing, F2, Return and a double click edit the cell; Return, Tab, Up and Down leave it changed,
/// Escape as it was. Ctrl+A, C, X, V and Delete work on the range, as text with tabs.
class TCustomGrid : public TInputControl {
public:
    explicit TCustomGrid(TComponent* Owner);
    ~TCustomGrid() override;

    int GetColCount() const { return FColCount; }
    int GetRowCount() const { return FRowCount; }
    int GetFixedCols() const { return FFixedCols; }
    int GetFixedRows() const { return FFixedRows; }
    /// Counts below 0 count as 0. The headers are among them.
    void SetColCount(int Count);
    void SetRowCount(int Count);
    void SetFixedCols(int Count);
    void SetFixedRows(int Count);
    int GetDefaultColWidth() const { return FDefaultColWidth; }
    void SetDefaultColWidth(int Width);
    /// Pixels; 0: that of a line of text and a little more.
    int GetDefaultRowHeight() const { return FDefaultRowHeight; }
    void SetDefaultRowHeight(int Height);
    int ColWidth(int Col) const;
    /// Of one column; also set by dragging its edge in the header. A negative width is the default one.
    void SetColWidth(int Col, int Width);
    int RowHeight() const;
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool ReadOnly);
    /// Whether Down in the last row, and what is pasted beyond it, add rows.
    bool GetAutoRows() const { return FAutoRows; }
    void SetAutoRows(bool AutoRows) { FAutoRows = AutoRows; }

    /// The current cell: -1 where there are only headers.
    int GetCol() const { return FCol; }
    int GetRow() const { return FRow; }
    /// Moves it into sight; a place outside counts as the nearest cell. Extends: the range goes up to it.
    void MoveTo(int Col, int Row, bool Extends = false);
    /// The selected range of cells: columns Left to Right and rows Top to Bottom, both included.
    TRect GetRange() const;
    void SelectAll();
    int GetTopRow() const { return FTopRow; }
    int GetLeftCol() const { return FLeftCol; }
    /// Where a cell is, in pixels of the control; empty while it is out of sight. The cell at a point: X is
    /// the column, Y the row; -1 for none.
    TRect CellRect(int Col, int Row) const;
    TPoint CellAt(TPoint Pos) const;
    /// To be called when the cells hold something else.
    void CellsChanged();

    bool IsEditing() const { return FEdit != nullptr; }
    /// Edits the current cell: its text, all selected, or Typed instead of it.
    void BeginEdit(const std::string& Typed = {});
    /// Ends that; Takes: the cell takes the text.
    void EndEdit(bool Takes);
    void CopyToClipboard() const;
    /// Fills the cells from the range's upper left on; one cell fills the whole range.
    void PasteFromClipboard();
    void ClearRange();

    /// Another cell is current, or another range selected.
    TNotifyEvent OnSelect;
    /// The user has changed cells.
    TNotifyEvent OnChange;

    virtual std::string CellText(int Col, int Row) const = 0;
    void SetBounds(int Left, int Top, int Width, int Height) override;
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// Takes what the user has typed or pasted; false: the cell stays as it is.
    virtual bool StoreCell(int Col, int Row, const std::string& Text) = 0;
    virtual bool CanEdit(int /*Col*/, int /*Row*/) const { return true; }
    virtual TAlignment CellAlignment(int /*Col*/, int /*Row*/) const { return taLeftJustify; }
    void Paint() override;
    bool KeyDown(const TKeyStroke& Stroke) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    bool MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) override;
    void CMFontChanged() override;
    void CMEnabledChanged() override;
    bool Compose(const TComposition& Composition) override;
    THostTextInput TextInput() const override;

private:
    class TCellEdit;
    friend class TCellEdit;
    bool HasCells() const { return FCol >= 0 && FRow >= 0; }
    void FitCounts();
    void Scrolled();
    void ShowCell(int Col, int Row);
    void ScrollTo(int LeftCol, int TopRow);
    int LastLeftCol() const;
    int PageRows() const;
    int FixedWidth() const;
    int FixedHeight() const;
    TRect CellsRect() const;
    int ColLeft(int Col) const;
    int EndCol() const;
    int EndRow() const;
    int EdgeAt(TPoint Pos) const;
    bool MoveKey(const TKeyStroke& Stroke);
    bool RangeKey(const TKeyStroke& Stroke);
    bool EditedKey(const TKeyStroke& Stroke);
    bool Store(int Col, int Row, const std::string& Text);
    void Stored(bool Any);
    void PaintCells(int FromCol, int ToCol, int FromRow, int ToRow, const TRect& Clip);
    void PaintCell(int Col, int Row);
    void PaintRange();

    int FColCount = 5, FRowCount = 5, FFixedCols = 1, FFixedRows = 1;
    int FDefaultColWidth = 64, FDefaultRowHeight = 0;
    std::map<int, int> FColWidths; // those that are not the default
    int FCol = 1, FRow = 1, FAnchorCol = 1, FAnchorRow = 1;
    int FLeftCol = 1, FTopRow = 1; // the first ones behind the headers
    bool FReadOnly = false, FAutoRows = false;
    bool FPressed = false;
    int FSizedCol = -1;
    TScrollPart FAcross{false}, FDown{true};
    TWheelSteps FWheel;
    std::unique_ptr<TCellEdit> FEdit; // while a cell is edited
};

} // namespace kx
