#include <kxgraph/look/Kxlook.h>

#include <algorithm>
#include <array>

namespace kx {

namespace {

constexpr std::array<TPenStyle, 4> CPatterns{psSolid, psDash, psDot, psDashDot};

/// The colour, darkened so far that one 1.3 times as light still is a colour.
TColor FrontOfBox(TColor Color) {
    constexpr int most = 195;
    const int lightest = std::max({int(RedOf(Color)), int(GreenOf(Color)), int(BlueOf(Color)), most});
    const auto darker = [=](int Part) { return Part * most / lightest; };
    return RGB(darker(RedOf(Color)), darker(GreenOf(Color)), darker(BlueOf(Color)));
}

void SetFont(TFont& Font, int Points, const TKxTheme& Theme) {
    Font.SetName("Arial");
    Font.SetSize(Points);
    Font.SetColor(Theme.GetInk());
}

void DressGrid(TKxLineStyle& Grid, TColor Color) {
    Grid.SetColor(Color);
    Grid.SetStyle(psSolid);
}

void DressAny(TKxGraphSeries& Series, int Number, const TKxTheme& Theme) {
    if (auto* points = dynamic_cast<TKxDataSeries*>(&Series))
        DressPoints(*points, Number, Theme);
    else if (auto* bars = dynamic_cast<TKxBarSeries*>(&Series))
        DressBars(*bars, Number, bars->GetShow3DBars(), Theme);
    else if (auto* arrows = dynamic_cast<TKxArrowSeries*>(&Series))
        DressArrows(*arrows, Number, Theme);
    else if (auto* line = dynamic_cast<TKxSeries*>(&Series))
        DressLine(*line, Number, Theme);
    Theme.ApplyTo(Series);
}

/// What is computed from one series alone has a colour each; of several, each lends its own.
void DressChildren(TKxGraphSeries& Series, int Number, bool IsAlone, const TKxTheme& Theme) {
    int place = 0;
    for (TKxGraphSeries* child : Series.GetChildSeries()) {
        const TColor color = Theme.GetColor(IsAlone ? 1 + place : Number);
        if (auto* band = dynamic_cast<TKxFitBand*>(child)) {
            DressBand(*band, band->GetFit() ? band->GetFit()->GetLineStyle().GetColor() : color, Theme);
            Theme.ApplyTo(*child);
            continue;
        }
        if (auto* curve = dynamic_cast<TKxSeries*>(child)) DressCurve(*curve, color, place);
        Theme.ApplyTo(*child);
        ++place;
    }
}

} // namespace

void DressGraph(TKx2DGraph& Graph, const TKxTheme& Theme) {
    Graph.SetColor(Theme.GetGround());
    Graph.SetDataColor(Theme.GetGround());
    Graph.SetMargin(10);
    SetFont(Graph.GetFont(), 13, Theme);
    for (TKxLineStyle* grid : {&Graph.GetMajorGridX(), &Graph.GetMajorGridY()})
        DressGrid(*grid, Theme.GetMajorGrid());
    for (TKxLineStyle* grid : {&Graph.GetMinorGridX(), &Graph.GetMinorGridY()})
        DressGrid(*grid, Theme.GetMinorGrid());
}

void DressAxis(TKxAxis& Axis, const TKxTheme& Theme) {
    SetFont(Axis.GetFont(), 10, Theme);
    SetFont(Axis.GetCaptionFont(), 11, Theme);
    Axis.SetShowCaption(true);
    Axis.SetThinLabels(true);
    Axis.SetMajorTickLength(6);
    Axis.SetTickLength(3);
    Axis.SetScalingsTicksGap(3);
    Axis.SetCaptionScalingsGap(5);
    Axis.SetBorderCaptionGap(8);
    Axis.SetExponentScalingsGap(12);
    Axis.SetAxisColor(Theme.GetInk());
    Axis.SetTickColor(Theme.GetInk());
    Axis.SetMajorTickColor(Theme.GetInk());
}

void DressSideAxis(TKxAxis& Axis, TColor Color) {
    Axis.GetFont().SetColor(Color);
    Axis.GetCaptionFont().SetColor(Color);
    Axis.SetAxisColor(Color);
    Axis.SetTickColor(Color);
    Axis.SetMajorTickColor(Color);
}

void DressLine(TKxSeries& Series, int Number, const TKxTheme& Theme) {
    const TColor color = Theme.GetColor(Number);
    Series.GetLineStyle().SetColor(color);
    Series.GetLineStyle().SetStyle(Theme.GetDash(Number));
    // An area looks the same on paper, where there is no XOR.
    Series.GetAreaStyle().SetColor(Theme.Tinted(color, 3));
    Series.GetAreaStyle().SetDrawXOred(false);
}

void DressPoints(TKxDataSeries& Series, int Number, const TKxTheme& Theme) {
    DressLine(Series, Number, Theme);
    Series.GetPointStyle().SetColor(Theme.GetColor(Number));
    Series.GetPointStyle().SetStyle(Theme.GetSymbol(Number));
    Series.GetPointStyle().SetSize(3);
    if (auto* withErrors = dynamic_cast<TKxDataWithErrorSeries*>(&Series))
        withErrors->SetErrorColor(Theme.GetColor(Number));
}

void DressBars(TKxBarSeries& Series, int Number, bool Boxes, const TKxTheme& Theme) {
    const TColor color = Theme.GetColor(Number);
    Series.GetLineStyle().SetColor(Boxes ? Theme.GetInk() : color);
    Series.GetAreaStyle().SetColor(Boxes ? FrontOfBox(color) : Theme.Tinted(color, 2));
    Series.GetAreaStyle().SetVisible(true);
}

void DressArrows(TKxArrowSeries& Series, int Number, const TKxTheme& Theme) {
    Series.GetLineStyle().SetColor(Theme.GetColor(Number));
    Series.SetTipLength(8);
    Series.SetTipWidth(3);
}

void DressCurve(TKxSeries& Curve, TColor Color, int Pattern) {
    Curve.GetLineStyle().SetColor(Color);
    Curve.GetLineStyle().SetStyle(CPatterns[std::size_t(Pattern) % CPatterns.size()]);
    Curve.GetLineStyle().SetWidth(2);
}

void DressBand(TKxFitBand& Band, TColor Color, const TKxTheme& Theme) {
    const bool wide = Band.GetKind() == bkPrediction;
    const TColor light = Theme.Tinted(Color, 3);
    Band.GetAreaStyle().SetVisible(true);
    Band.GetAreaStyle().SetDrawXOred(false);
    Band.GetAreaStyle().SetColor(wide ? Theme.Tinted(light, 2) : light);
    Band.GetLineStyle().SetColor(Theme.Tinted(Color, 2));
    Band.GetLineStyle().SetWidth(1);
    Band.GetLineStyle().SetStyle(wide ? psDash : psSolid);
}

void DressLegend(TKxLegend& Legend, const TKxTheme& Theme) {
    SetFont(Legend.GetFont(), 10, Theme);
    Legend.SetPlacement(lgRight);
    Legend.SetColumns(0); // as few as there is height for
    Legend.SetTransparent(false);
    Legend.GetFrameLine().SetColor(RGB(0xAA, 0xAA, 0xAA));
}

void Dress(TKx2DGraph& Graph, const TKxTheme& Theme) {
    DressGraph(Graph, Theme);
    Theme.ApplyTo(Graph);
    for (TKxAxis* axis : Graph.GetAxes()) {
        DressAxis(*axis, Theme);
        Theme.ApplyTo(*axis);
    }
    const bool isAlone = Graph.GetSeriesList().GetCount() == 1;
    int number = 0;
    for (TKxGraphSeries* series : Graph.GetSeriesList()) {
        DressAny(*series, number, Theme);
        DressChildren(*series, number, isAlone, Theme);
        ++number;
    }
    if (!Graph.GetOwner()) return;
    for (TComponent* component : Graph.GetOwner()->GetComponents()) {
        auto* legend = dynamic_cast<TKxLegend*>(component);
        if (!legend || legend->GetGraph() != &Graph) continue;
        DressLegend(*legend, Theme);
        Theme.ApplyTo(*legend);
    }
}

} // namespace kx
