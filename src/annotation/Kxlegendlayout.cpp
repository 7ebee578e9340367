// Columns and lines of the entries, and the legend's place on its graph.

#include <kxgraph/annotation/Kxlegend.h>

#include <algorithm>

namespace kx {

int TKxLegend::FrameWidth() const { return FFrameLine.GetVisible() ? std::max(1, FFrameLine.GetWidth()) : 0; }

int TKxLegend::TitleHeight() const {
    if (!FShowTitle) return 0;
    return FLineHeight + (FEntries.empty() ? 0 : FGap / 2);
}

// The first columns take one more where they cannot all be as long.
int TKxLegend::RowsOf(int Column, int Columns) const {
    return GetEntryCount() / Columns + (Column < GetEntryCount() % Columns ? 1 : 0);
}

int TKxLegend::CellWidth(int First, int Rows) const {
    int widest = 0;
    for (int i = First; i < First + Rows; ++i) widest = std::max(widest, FEntries[std::size_t(i)].Width);
    return FSampleWidth + (widest > 0 ? FGap + widest : 0);
}

int TKxLegend::WidthOf(int Columns) const {
    int width = 0, first = 0;
    for (int c = 0; c < Columns; ++c) {
        const int rows = RowsOf(c, Columns);
        width += (c > 0 ? 2 * FGap : 0) + CellWidth(first, rows);
        first += rows;
    }
    return 2 * Padding() + std::max(width, FShowTitle ? FTitleWidth : 0);
}

int TKxLegend::HeightOf(int Columns) const {
    const int rows = FEntries.empty() ? 0 : RowsOf(0, Columns);
    return 2 * Padding() + TitleHeight() + rows * FLineHeight + std::max(0, rows - 1) * LineGap();
}

// More columns than this cannot fit, however the entries are spread.
int TKxLegend::MostColumns(int Width) const {
    const int narrowest = GetEntryCount() > 0 ? std::ranges::min(FEntries, {}, &TEntry::Width).Width : 0;
    const long long cell = FSampleWidth + (narrowest > 0 ? FGap + narrowest : 0) + 2 * FGap;
    return int(std::max(1LL, (std::max(0, Width) + 2LL * FGap) / std::max(1LL, cell)));
}

int TKxLegend::ChooseColumns(const TSpace& Space) const {
    const int count = std::max(1, GetEntryCount());
    int columns = FColumns > 0 ? std::min(FColumns, count) : count;
    if (FColumns == 0 && Space.Fewest)
        for (columns = 1; columns < count && HeightOf(columns) > Space.Height;) ++columns;
    columns = std::min(columns, MostColumns(Space.Width));
    while (columns > 1 && WidthOf(columns) > Space.Width) --columns;
    return columns;
}

// Places the entries; the size that shows all of them.
TSize TKxLegend::Arrange(const TSpace& Space) {
    if (FEntries.empty() && !FShowTitle) return {};
    const int columns = ChooseColumns(Space);
    int x = Padding();
    std::size_t entry = 0;
    for (int c = 0; c < columns && entry < FEntries.size(); ++c) {
        const int rows = RowsOf(c, columns), width = CellWidth(int(entry), rows);
        for (int row = 0; row < rows; ++row)
            FEntries[entry++].Rect = TRect::Bounds(
                x, Padding() + TitleHeight() + row * (FLineHeight + LineGap()), width, FLineHeight);
        x += width + 2 * FGap;
    }
    return {WidthOf(columns), HeightOf(columns)};
}

// The size that the legend takes in Space.
TSize TKxLegend::Fit(const TSpace& Space) {
    if (!FAutoSize) {
        Arrange({GetWidth(), GetHeight(), Space.Fewest});
        return GetBoundsRect().Size();
    }
    const TSize natural = Arrange(Space);
    return {std::clamp(natural.Width, 0, std::max(0, Space.Width)),
            std::clamp(natural.Height, 0, std::max(0, Space.Height))};
}

bool TKxLegend::NeedsSettling() const {
    if (!GetVisible()) return false;
    if (FItemsStale || FMetricsStale || FLayoutStale) return true;
    return FColumns == 0 && FAutoSize && !IsPlacedByGraph() && FFreeWidth != FreeWidth();
}

void TKxLegend::Settle() {
    const bool changed = RefreshEntries();
    if (!IsPlacedByGraph()) return FitFree();
    if (!changed && !FLayoutStale) return;
    Arrange({GetWidth(), GetHeight()}); // until the graph is laid out, which updating may delay
    FLayoutStale = false;
    FGraph->Modified();
}

// It is fitted into the place that something else has given it.
void TKxLegend::StopSettling() {
    Arrange({GetWidth(), GetHeight()});
    FFreeWidth = FreeWidth();
    FLayoutStale = false;
}

void TKxLegend::FitFree() {
    FFreeWidth = FreeWidth();
    const int width = FColumns == 0 ? FFreeWidth : CMaxPixel;
    const TSize natural = Arrange({FAutoSize ? width : GetWidth(), CMaxPixel});
    if (FAutoSize) SetBounds(GetLeft(), GetTop(), natural.Width, natural.Height);
    FLayoutStale = false;
}

namespace {

/// The side that a legend stands at, and for one inside the corner.
struct TStand {
    TKxSide Beside;
    TKxSide Corner[2];
};

const TStand& StandOf(TKxLegendPlacement Placement) {
    static constexpr TStand CStands[] = {{AxFreeFloating, {AxLeftPos, AxTopPos}},
                                         {AxFreeFloating, {AxRightPos, AxTopPos}},
                                         {AxFreeFloating, {AxLeftPos, AxBottomPos}},
                                         {AxFreeFloating, {AxRightPos, AxBottomPos}},
                                         {AxRightPos, {}},
                                         {AxLeftPos, {}},
                                         {AxTopPos, {}},
                                         {AxBottomPos, {}},
                                         {AxFreeFloating, {}}};
    return CStands[std::clamp<int>(Placement, 0, lgFree)];
}

TKxSide SideOf(TKxLegendPlacement Placement) { return StandOf(Placement).Beside; }

/// The nearest place to Wanted at which Size pixels lie between First and Last; First if they do not.
int Between(int Wanted, int First, int Last, int Size) {
    return std::max(First, std::min(Wanted, Last - Size));
}

} // namespace

int TKxLegend::EdgeGap() const { return std::max(FGap, FGraph->GetMargin()); }

// Extent counts the gaps at both sides.
TKxLegend::TSpace TKxLegend::SpaceAcross(TKxSide Side, TSize Area, int Extent) const {
    const TSize space = Side.Size(Side.Along(Area) - 2 * EdgeGap(), Extent - FGap - EdgeGap());
    return {space.Width, space.Height, !Side.IsHorizontal()};
}

TKxCompanionRoom TKxLegend::GetRoom(TSize Area, TSize AtMost) {
    const TKxSide side = SideOf(FPlacement);
    if (!GetVisible() || !IsPlacedByGraph() || side.IsFree()) return {};
    RefreshEntries();
    if (FEntries.empty() && !FShowTitle) return {};
    const TSize size = Fit(SpaceAcross(side, Area, side.Across(AtMost)));
    return {side, side.Across(size) + FGap + EdgeGap()};
}

TRect TKxLegend::PlaceInside(const TRect& Inside) {
    const TSize size = Fit({Inside.Width() - 2 * FGap, Inside.Height() - 2 * FGap});
    const auto& [x, y] = StandOf(FPlacement).Corner;
    return TRect::Bounds(x.LeastInside(Inside, FGap, size.Width), y.LeastInside(Inside, FGap, size.Height),
                         size.Width, size.Height);
}

TRect TKxLegend::PlaceBeside(const TKxCompanionPlace& Place) {
    const TRect& room = Place.Room;
    const TKxSide side = SideOf(FPlacement);
    const int edge = EdgeGap();
    const TSize size = Fit(SpaceAcross(side, room.Size(), side.Across(room.Size())));
    const int across = side.Across(room.TopLeft()) + (side.Outward() < 0 ? edge : FGap);
    const int middle = (Place.World.Left + Place.World.Right - size.Width) / 2;
    const int along = side.IsHorizontal()
                          ? Between(middle, room.Left + edge, room.Right - edge, size.Width)
                          : Between(Place.World.Top, std::min(Place.World.Top, room.Top + edge),
                                    room.Bottom - edge, size.Height);
    const TPoint at = side.Point(along, across);
    return TRect::Bounds(at.X, at.Y, size.Width, size.Height);
}

void TKxLegend::TakePlace(const TKxCompanionPlace& Place) {
    if (!GetVisible() || !IsPlacedByGraph()) return;
    RefreshEntries();
    const bool inside = SideOf(FPlacement).IsFree();
    const TRect place = inside ? PlaceInside(Place.Inside) : PlaceBeside(Place);
    SetBounds(place.Left, place.Top, place.Width(), place.Height());
    FLayoutStale = false;
}

} // namespace kx
