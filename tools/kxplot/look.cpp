#include "kxplot/look.h"

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

/// The colour as it looks through three quarters of white.
constexpr TColor Tint(TColor Color) {
    const auto lighter = [](int Part) { return (Part + 3 * 255) / 4; };
    return RGB(lighter(RedOf(Color)), lighter(GreenOf(Color)), lighter(BlueOf(Color)));
}

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
    const TColor color = CPalette[std::size_t(Number) % CPalette.size()];
    const bool symbols = Style != TStyle::Line;
    Series.SetBreakAtGaps(true);
    Series.GetLineStyle().SetColor(color);
    Series.GetLineStyle().SetVisible(Style != TStyle::Points);
    // An area that is asked for looks the same on paper, where there is no XOR.
    Series.GetAreaStyle().SetColor(Tint(color));
    Series.GetAreaStyle().SetDrawXOred(false);
    Series.GetPointStyle().SetColor(color);
    Series.GetPointStyle().SetSize(SmallSymbols ? 1 : 3);
    // Error bars come with the symbols: a point on the line is a symbol that does not show.
    Series.GetPointStyle().SetVisible(symbols || HasErrors);
    Series.GetPointStyle().SetStyle(symbols ? CSymbols[std::size_t(Number) % CSymbols.size()] : SyPoint);
    Series.SetErrorColor(color);
}

TColor AnalysisColor(const TAnalysisPlace& Place) {
    const int color = Place.SeveralSeries ? Place.Series : 1 + Place.Number % int(CPalette.size() - 1);
    return CPalette[std::size_t(color) % CPalette.size()];
}

void DressAnalysis(TKxSeries& Line, const TAnalysisPlace& Place, bool HasOwnAxis) {
    const bool solid = HasOwnAxis && !Place.SeveralSeries;
    Line.GetLineStyle().SetColor(AnalysisColor(Place));
    Line.GetLineStyle().SetStyle(solid ? psSolid
                                       : CLineStyles[std::size_t(Place.Number) % CLineStyles.size()]);
    Line.GetLineStyle().SetWidth(2);
}

} // namespace kxplot
