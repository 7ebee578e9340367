#pragma once
// Legends: controls that tell which series of a graph is which. Each entry is a sample, which the series
// draws itself, and the series' caption.

#include <kxgraph/annotation/Kxcaption.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/graph/Kxgraphitems.h>
#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/platform/objects/typenames.h>
#include <kxgraph/series/Kxdraw.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace kx {

/// Where a legend stands on its graph.
enum TKxLegendPlacement {
    lgInsideTopLeft, ///< in a corner of the drawing world, clear of ticks that point into it
    lgInsideTopRight,
    lgInsideBottomLeft,
    lgInsideBottomRight,
    lgRight, ///< outside the axes, at the height of the drawing world's top; the graph makes room
    lgLeft,
    lgTop, ///< outside the axes, below the title, in the middle of the drawing world
    lgBottom,
    lgFree ///< where the program puts it
};
template <>
inline constexpr auto CEnumNames<TKxLegendPlacement> = std::to_array<std::string_view>(
    {"lgInsideTopLeft", "lgInsideTopRight", "lgInsideBottomLeft", "lgInsideBottomRight", "lgRight", "lgLeft",
     "lgTop", "lgBottom", "lgFree"});

/// The series whose entry was clicked.
using TKxEntryClickEvent = TEvent<TKxGraphSeries*>;

/// Shows the series of Graph that have IncludeInLegend, in drawing order, calculated ones after their parent.
/// A series without a caption is called by its component's name. Graph is not owned and may go first, as may
/// the series. On any other parent than its graph a legend is placed as with lgFree.
///
/// By default a frame of one black pixel, the ground of what it stands on, and the parent's font. With
/// AutoSize it is as large as its entries, but leaves the drawing world at least half of the pixels that it
/// would have without legends; what does not fit is cut off at the legend's edge. Without entries and title
/// its size is 0.
class TKxLegend : public TGraphicControl, public TKxGraphCompanion, public TKxStyleOwner {
public:
    explicit TKxLegend(TComponent* Owner);
    ~TKxLegend() override;

    TKx2DGraph* GetGraph() const { return FGraph; }
    /// Does not change the parent.
    void SetGraph(TKx2DGraph* Graph);
    TKxLegendPlacement GetPlacement() const { return FPlacement; }
    void SetPlacement(TKxLegendPlacement Placement) { Change(FPlacement, Placement); }
    /// Columns of entries, fewer where they are too wide. 0: at the right and left as few as the graph's
    /// height allows, elsewhere as many as fit side by side. The columns are filled one after the other.
    int GetColumns() const { return FColumns; }
    void SetColumns(int Columns) { Change(FColumns, Limited(Columns)); }
    /// Pixels.
    int GetSampleWidth() const { return FSampleWidth; }
    void SetSampleWidth(int Pixels) { Change(FSampleWidth, Limited(Pixels)); }
    /// Pixels between the legend and the edges of its place, and between sample and caption. The other
    /// distances are parts of it: three quarters around the entries, twice as much between columns, a quarter
    /// between lines. A graph's greater margin is kept outside.
    int GetGap() const { return FGap; }
    void SetGap(int Pixels) { Change(FGap, Limited(Pixels)); }
    TKxLineStyle& GetFrameLine() { return FFrameLine; }
    /// Whether what lies behind shows through. As long as ParentColor is on, an opaque legend inside has the
    /// drawing world's colour.
    bool GetTransparent() const { return FTransparent; }
    void SetTransparent(bool Transparent);
    bool GetAutoSize() const { return FAutoSize; }
    void SetAutoSize(bool AutoSize) { Change(FAutoSize, AutoSize); }
    bool GetShowTitle() const { return FShowTitle; }
    /// Shows Caption, in the middle above the entries.
    void SetShowTitle(bool Show) { Change(FShowTitle, Show); }
    TKxCaption GetCaption() const { return GetText(); }
    void SetCaption(const TKxCaption& Caption) { SetText(Caption); }

    // The entries as of the last frame; pixels of the legend.
    int GetEntryCount() const { return int(FEntries.size()); }
    /// Null for an index outside.
    TKxGraphSeries* GetEntrySeries(int Index) const;
    /// Sample and caption, the whole width of the column; empty for an index outside.
    TRect GetEntryRect(int Index) const;
    /// The series whose entry is at (X, Y); null for none.
    TKxGraphSeries* EntryAt(int X, int Y) const;
    /// Pressed and released on the same entry, after OnClick.
    TKxEntryClickEvent OnEntryClick;

    /// The frame line has changed.
    void Modified() override { RequestLayout(); }
    void ItemsModified() override;
    TKxCompanionRoom GetRoom(TSize Area, TSize AtMost) override;
    void TakePlace(const TKxCompanionPlace& Place) override;
    void SaveOutfit(const std::string& Section, TKxIniList& Ini) override;
    void LoadOutfit(const std::string& Section, TKxIniList& Ini) override;

    void SetParent(TWinControl* Parent) override;
    void SetBounds(int Left, int Top, int Width, int Height) override;
    bool NeedsSettling() const override;
    void Settle() override;
    void StopSettling() override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxLegend>(); }
    void Paint() override;
    void CMFontChanged() override;
    void CMTextChanged() override;
    void CMVisibleChanged() override;
    void Notification(TComponent* Component, TOperation Operation) override;
    void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) override;
    void MouseMove(TShiftState Shift, int X, int Y) override;
    void Click() override;

private:
    struct TEntry {
        TKxGraphSeries* Series = nullptr;
        std::string Text;
        TKxParsedCaption Caption;
        int Width = 0; // of the caption
        TRect Rect;
    };
    /// What the entries may take.
    struct TSpace {
        int Width, Height;
        bool Fewest = false; // as few columns as the height allows, if their number is free
    };

    static int Limited(int Pixels);
    template <class T>
    void Change(T& Field, T Value) {
        if (Field == Value) return;
        Field = Value;
        RequestLayout();
    }
    void RequestLayout();
    void RequestFrame();
    bool StandsOnGraph() const { return FGraph && static_cast<TWinControl*>(FGraph) == GetParent(); }
    bool IsPlacedByGraph() const { return StandsOnGraph() && FPlacement != lgFree; }
    int EdgeGap() const;
    TRect PlaceInside(const TRect& Inside);
    TRect PlaceBeside(const TKxCompanionPlace& Place);
    TSpace SpaceAcross(TKxSide Side, TSize Area, int Extent) const;
    void FitFree();
    int FreeWidth() const { return GetParent() ? GetParent()->GetWidth() - GetLeft() : CMaxPixel; }

    bool RefreshEntries();
    TEntry MakeEntry(TKxGraphSeries& Series, TEntry* Before) const;

    TSize Fit(const TSpace& Space);
    TSize Arrange(const TSpace& Space);
    int MostColumns(int Width) const;
    int ChooseColumns(const TSpace& Space) const;
    int RowsOf(int Column, int Columns) const;
    int CellWidth(int First, int Rows) const;
    int WidthOf(int Columns) const;
    int HeightOf(int Columns) const;
    int TitleHeight() const;
    int FrameWidth() const;
    int Padding() const { return FrameWidth() + FGap * 3 / 4; }
    int LineGap() const { return FGap / 4; }

    TColor GetGround() const;
    void PaintGround();
    void PaintSamples();
    void PaintTexts();

    TKx2DGraph* FGraph = nullptr;
    TKxLegendPlacement FPlacement = lgInsideTopRight;
    int FColumns = 1, FSampleWidth = 30, FGap = 8;
    TKxLineStyle FFrameLine;
    bool FTransparent = false, FAutoSize = true, FShowTitle = false;

    std::vector<TEntry> FEntries;
    TKxParsedCaption FTitle; // of the text
    int FTitleWidth = 0, FLineHeight = 0;
    bool FItemsStale = true;            // captions may have changed, or series come and gone
    bool FMetricsStale = true;          // nothing that was measured holds
    bool FLayoutStale = true;           // entries and size do not go together
    int FFreeWidth = 0;                 // what a free legend was fitted into
    TKxGraphSeries* FPressed = nullptr; // compared only
    TPoint FMouse;
    std::shared_ptr<char> FAlive = std::make_shared<char>(); // expires with the legend
};

} // namespace kx
