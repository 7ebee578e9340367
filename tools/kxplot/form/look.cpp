#include "kxplot/form/look.h"

#include <algorithm>
#include <array>

namespace kxplot {

using namespace kx;

namespace {

constexpr TColor CInk = RGB(0x26, 0x26, 0x26);

/// Eight colours that the colour-blind tell apart (M. Okabe and K. Ito, Color Universal Design, 2008), those
/// that show best on white first.
constexpr std::array<TColor, 8> CPalette{RGB(0x00, 0x72, 0xB2), RGB(0xD5, 0x5E, 0x00), RGB(0x00, 0x9E, 0x73),
                                         RGB(0xCC, 0x79, 0xA7), RGB(0x56, 0xB4, 0xE9), RGB(0xE6, 0x9F, 0x00),
                                         RGB(0x00, 0x00, 0x00), RGB(0xB8, 0xAE, 0x1E)};

constexpr std::array<TKxPointSymbol, 5> CSymbols{SyCircleFilled, SySquareFilled, SyDiamondFilled,
                                                 SyDeltaFilled, SyNablaFilled};

constexpr std::array<TPenStyle, 4> CLineStyles{psSolid, psDash, psDot, psDashDot};

/// The colour as it looks through so many quarters of white.
constexpr TColor Tint(TColor Color, int Quarters) {
    const auto lighter = [=](int Part) { return ((4 - Quarters) * Part + Quarters * 255) / 4; };
    return RGB(lighter(RedOf(Color)), lighter(GreenOf(Color)), lighter(BlueOf(Color)));
}

/// The colour, darkened so far that one 1.3 times as light still is a colour.
TColor FrontOfBox(TColor Color) {
    constexpr int most = 195;
    const int lightest = std::max({int(RedOf(Color)), int(GreenOf(Color)), int(BlueOf(Color)), most});
    const auto darker = [=](int Part) { return Part * most / lightest; };
    return RGB(darker(RedOf(Color)), darker(GreenOf(Color)), darker(BlueOf(Color)));
}

TColor SeriesColor(int Number) { return CPalette[std::size_t(Number) % CPalette.size()]; }

void SetFont(TFont& Font, int Points) {
    Font.SetName("Arial");
    Font.SetSize(Points);
    Font.SetColor(CInk);
}

} // namespace

void DressGraph(TKx2DGraph& Graph) {
    Graph.SetColor(clWhite);
    Graph.SetDataColor(clWhite);
    Graph.SetMargin(10);
    SetFont(Graph.GetFont(), 13);
    for (TKxLineStyle* grid : {&Graph.GetMajorGridX(), &Graph.GetMajorGridY()}) {
        grid->SetColor(RGB(0xDD, 0xDD, 0xDD));
        grid->SetStyle(psSolid);
    }
    for (TKxLineStyle* grid : {&Graph.GetMinorGridX(), &Graph.GetMinorGridY()}) {
        grid->SetColor(RGB(0xEE, 0xEE, 0xEE));
        grid->SetStyle(psSolid);
    }
}

void DressAxis(TKxAxis& Axis) {
    SetFont(Axis.GetFont(), 10);
    SetFont(Axis.GetCaptionFont(), 11);
    Axis.SetShowCaption(true);
    Axis.SetThinLabels(true);
    Axis.SetMajorTickLength(6);
    Axis.SetTickLength(3);
    Axis.SetScalingsTicksGap(3);
    Axis.SetCaptionScalingsGap(5);
    Axis.SetBorderCaptionGap(8);
    Axis.SetExponentScalingsGap(12);
    Axis.SetAxisColor(CInk);
    Axis.SetTickColor(CInk);
    Axis.SetMajorTickColor(CInk);
}

void DressSideAxis(TKxAxis& Axis, TColor Color) {
    Axis.GetFont().SetColor(Color);
    Axis.GetCaptionFont().SetColor(Color);
    Axis.SetAxisColor(Color);
    Axis.SetTickColor(Color);
    Axis.SetMajorTickColor(Color);
}

void DressSeries(TKxDataWithErrorSeries& Series, int Number, TStyle Style, bool HasErrors,
                 bool SmallSymbols) {
    const TColor color = SeriesColor(Number);
    const bool symbols = Style != TStyle::Line;
    Series.SetBreakAtGaps(true);
    Series.GetLineStyle().SetColor(color);
    Series.GetLineStyle().SetVisible(Style != TStyle::Points);
    // An area that is asked for looks the same on paper, where there is no XOR.
    Series.GetAreaStyle().SetColor(Tint(color, 3));
    Series.GetAreaStyle().SetDrawXOred(false);
    Series.GetPointStyle().SetColor(color);
    Series.GetPointStyle().SetSize(SmallSymbols ? 1 : 3);
    // Error bars come with the symbols: a point on the line is a symbol that does not show.
    Series.GetPointStyle().SetVisible(symbols || HasErrors);
    Series.GetPointStyle().SetStyle(symbols ? CSymbols[std::size_t(Number) % CSymbols.size()] : SyPoint);
    Series.SetErrorColor(color);
}

void DressBars(TKxBarSeries& Series, int Number, bool Boxes, double GapPercent) {
    const TColor color = SeriesColor(Number);
    Series.GetLineStyle().SetColor(Boxes ? CInk : color);
    Series.GetAreaStyle().SetColor(Boxes ? FrontOfBox(color) : Tint(color, 2));
    Series.GetAreaStyle().SetVisible(true);
    Series.SetBarsGapPercent(GapPercent);
}

void DressArrows(TKxArrowSeries& Series, int Number) {
    Series.GetLineStyle().SetColor(SeriesColor(Number));
    Series.SetTipLength(8);
    Series.SetTipWidth(3);
}

void DressLegend(TKxLegend& Legend) {
    SetFont(Legend.GetFont(), 10);
    Legend.SetPlacement(lgRight);
    Legend.SetColumns(0); // as few as there is height for
    Legend.SetTransparent(false);
    Legend.GetFrameLine().SetColor(RGB(0xAA, 0xAA, 0xAA));
}

TColor AnalysisColor(const TAnalysisPlace& Place) {
    const int color = Place.SeveralSeries ? Place.Series : 1 + Place.Number % int(CPalette.size() - 1);
    return SeriesColor(color);
}

void DressAnalysis(TKxSeries& Line, const TAnalysisPlace& Place, bool HasOwnAxis) {
    const bool solid = HasOwnAxis && !Place.SeveralSeries;
    Line.GetLineStyle().SetColor(AnalysisColor(Place));
    Line.GetLineStyle().SetStyle(solid ? psSolid
                                       : CLineStyles[std::size_t(Place.Number) % CLineStyles.size()]);
    Line.GetLineStyle().SetWidth(2);
}

} // namespace kxplot
