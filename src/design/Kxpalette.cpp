#include <kxgraph/design/Kxpalette.h>

#include <kxgraph/platform/controls/control.h>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

namespace kx {

namespace {

/// Pictures of 16 x 16 units: strokes, each a colour (k, b, r, g, t, w), a kind (l line, f filled, o circle
/// of radius 1.5) and places, two hexadecimal digits each.
struct TIcon {
    std::string_view Class, Strokes;
    std::string_view Ground = {}; ///< strokes below these
};
// What fields and lists have in common.
constexpr std::string_view CField = "wf04f4fb0b04|kl04f4fb0b04", CList = "wf21d1de2e21|kl21d1de2e21",
                           CCombo = "wf04f4fb0b04|kl04f4fb0b04|klb4bb|kfc6e6d9",
                           CSpin = "wf04f4fb0b04|kl04f4fb0b04|klb4bb|kfc7e7d5|kfc8e8da";
constexpr auto CIcons = std::to_array<TIcon>({
    {"TComponent", "gf22d2dd2d|kl22d2dd2d22"},
    {"TMenuItem", "gf16f6f91916|kl38c8"},
    {"TPopupMenu", "gf21d1de2e21|kl21d1de2e21|kl44b4|kl47b7|kl4aba"},
    {"TTimer", "kl83c4d8cc8d4c384483|rl8885|rl88b8"},
    {"TDataSource", "tf42c2c5884542|kl42c2cc4c42|rl0828|rlc8f8"},
    {"TDataSet", "tf33d3d63633|kl33d3dd3d33|kl36d6|kl39d9|kl73 7d"},
    {"TKxRealVector", "kl3111 1f3f|kld1f1ffdf|bl54b4|bl58b8|bl5cbc"},
    {"TKxLiveVector", "kl3111 1f3f|kld1f1ffdf|bl54b4|bl58b8|rl5cbc|ro9c"},
    {"TKxDBVector", "kl3111 1f3f|kld1f1ffdf|tf54b4b656|tf57b7b959|tf5ababc5c5a"},
    {"TKxFileVector", "kl219 1d5df2f21|kl9195d5|bl58b8|bl5bbb"},
    {"TKx2DGraph", "kl222dfd|bl2b5869a5e3|ro58|roa5"},
    {"TKxAxis", "kl18f8|kl282b|kl686b|kla8ab|kle8eb"},
    {"TKxSeries", "bl1c5679a4f2"},
    {"TKxDataSeries", "bl1c5679a4f2|bo56|boa4"},
    {"TKxDataWithErrorSeries", "bo4a|bo96|bod3|kl474d|kl3757|kl3d5d|kl939a|kl83a3|kl8aaa"},
    {"TKxBarSeries", "bf28585e2e|tf64949e6e|bfa9d9deae|kl1fff"},
    {"TKxArrowSeries", "bl2da4|bf94c2a6|rl8ec9|rfb8e7ca"},
    {"TKxRuleSeries", "kl414f|kl818f|klc1cf"},
    {"TKxCalculatedSeries", "ko3a|ko77|kob3|rl1d3a5878a5c2f1"},
    {"TKxLinearRegressionLine", "ko3b|ko79|kob3|rl1ef1"},
    {"TKxFitBand", "gf19f1f61e19|rl1bf3"},
    {"TKxDifferential", "bl1d59a5f2|rl1a b2"},
    {"TKxIntegral", "gf1d5aa6e3ed|bl1d5aa6e3"},
    {"TKxCustomLabel", "kl3e82de|kl5aba"},
    {"TKxResultLabel", "kl2582|rl2787|rl2a8a|ko c5"},
    {"TKxLegend", "kl12f2fe1e12|bl3565|rl3a6a|kl85d5|kl8ada"},
    {"TKxLineSample", "bl18f8"},
    {"TKxPolynomLine", "rl11375b7c9bb7d1|ko37|ko7c|kob7"},
    {"TKxInterpolatedLine", "rl2b476586a9c8e3|ko2b|ko65|koa9|koe3"},
    {"TKxApproxSplineLine", "ko28|ko5a|ko74|koa8|kod3|rl1a4878a6d5f3"},
    {"TKxASplineDifferential", "ko2b|koc3|bl1d59a5f2|rl1ab2"},
    {"TKxASplineIntegral", "gf1d5aa6e3ed|bl1d5aa6e3|ko39|ko97|kod2"},
    {"TKxFittedLine", "rl1125497bbcfd|ko22|ko4b|ko99|kode"},
    {"TCustomEdit", "bl3539|bl2545|bl2949|kl79d9", CField},
    {"TCustomListBox", "kl43b3|bf35c5c83835|wl47b7|kl4aba|kl4cbc", CList},
    {"TCustomComboBox", "kl2979", CCombo},
    {"TButton", "kl4666694946|kl8689|kla687a9", "gf14e4eb1b14|wl1b14e4|kle4eb1b"},
    {"TCheckBox", "bl577ac4|bl587bc5", "wf22d2dd2d22|kl22d2dd2d22"},
    {"TSpinButton", "kf559573|kf5a9a7c|kl38b8", "gf31b1be3e31|kl31b1be3e31"},
    {"TCustomGrid", "gf11e1e41411|gf11414e1e11|kl11e1ee1e11|kl14e4|kl19e9|kl515e|kla1ae", "wf11e1ee1e11"},
    {"TKxCaptionEdit", "kl365a|kl563a|rl8595978789a9|blc5ca", CField},
    {"TKxCaptionBar", "kl2629|kl3639|kl8669|klc6c8e8e6|klb9f9", "gf04f4fb0b04|kl04f4fb0b04|kl545b|kla4ab"},
    {"TKxBrushStyleList", "bf43b3b54543|bl4856|bl4976|bl6996|bl89b6|bl4aba|bl4cbc", CList},
    {"TKxBrushStyleCombo", "bl2926|bl2a66|bl4a86|bl6a96|bl8a98", CCombo},
    {"TKxLineStyleList", "bl43b3|bl4676|bl96b6|bl4959|bl7989|bla9b9|bl4c7c|bl9cac", CList},
    {"TKxLineStyleCombo", "bl2747|bl6797", CCombo},
    {"TKxLineWidthList", "bl43b3|bf46b6b74746|bf4ababc4c4a", CList},
    {"TKxLineWidthCombo", "bl2696|bf289899 2928", CCombo},
    {"TKxPointSymbolList", "bo54|rf93b3b59593|kf4b6b58|tl98bb|tlb89b", CList},
    {"TKxPointSymbolCombo", "bo37|rf66969969 66", CCombo},
    {"TKxColorPicker", "rf2272772722|bf82d2d78782|tf28787d2d28|gf88d8dd8d88|kl11e1ee1e11"},
    {"TKxRealEdit", "bl363a|bf59696a5a59|bla68688a8aa8a", CField},
    {"TKxRealSpin", "bl262a|bf49595a4a49|bl9676789 89a7a", CSpin},
    {"TKxIntegerEdit", "bl363a|bl668688686a8a|bla6c6caaa|bla8c8", CField},
    {"TKxIntegerSpin", "bl262a|bl567678585a7a", CSpin},
});

TColor ColorOf(char Letter) {
    switch (Letter) {
    case 'b': return clBlue;
    case 'r': return clRed;
    case 'g': return clSilver;
    case 't': return clTeal;
    case 'w': return clWhite;
    default: return clBlack;
    }
}

int DigitOf(char Digit) {
    return Digit <= '9' ? Digit - '0' : (Digit | 0x20) - 'a' + 10; // either case
}

const TIcon& IconOf(const TComponentClass& Class) {
    for (const TPropertyTable* table = &Class.Properties(); table; table = table->GetBase()) {
        const std::string_view name = table == &Class.Properties() ? Class.Name : table->GetClassName();
        for (const TIcon& icon : CIcons)
            if (icon.Class == name || icon.Class == table->GetClassName()) return icon;
    }
    return CIcons.front();
}

/// One stroke, Unit pixels a unit.
void PaintStroke(TCanvas& Canvas, TPoint Origin, double Unit, std::string_view Stroke) {
    std::vector<TRealPoint> points;
    std::string digits;
    for (const char c : Stroke.substr(2))
        if (c != ' ') digits += c;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        points.push_back(
            {Origin.X + Unit * (DigitOf(digits[i]) + 0.5), Origin.Y + Unit * (DigitOf(digits[i + 1]) + 0.5)});
    Canvas.Pen.SetColor(ColorOf(Stroke[0]));
    Canvas.Brush.SetColor(ColorOf(Stroke[0]));
    if (Stroke[1] == 'l') return Canvas.Polyline(points);
    if (Stroke[1] == 'f') return Canvas.Polygon(points);
    const double radius = 1.5 * Unit;
    for (const TRealPoint& p : points)
        Canvas.Ellipse(TRealRect{p.X - radius, p.Y - radius, p.X + radius, p.Y + radius});
}

TKxPaletteEntry EntryOf(const TComponentClass& Class) {
    const std::unique_ptr<TComponent> fresh(Class.Make(nullptr));
    std::string_view name = Class.Name;
    for (const std::string_view prefix : {"TKx", "T"})
        if (name.starts_with(prefix)) {
            name.remove_prefix(prefix.size());
            break;
        }
    const TPropertyTable* base = Class.Properties().GetBase();
    std::string hint(name);
    if (base) hint.append(", a ").append(base->GetClassName());
    return {&Class, std::string(name), std::move(hint),
            dynamic_cast<const TControl*>(fresh.get()) != nullptr};
}

} // namespace

std::vector<TKxPalettePage> MakePalette() {
    std::vector<TKxPalettePage> pages;
    for (const std::string_view page : PalettePages()) {
        pages.push_back({page, {}});
        for (const TComponentClass& type : RegisteredClasses())
            if (type.Page == page) pages.back().Entries.push_back(EntryOf(type));
    }
    return pages;
}

void PaintPaletteIcon(TCanvas& Canvas, const TRect& Rect, const TComponentClass& Class) {
    const int size = std::min(Rect.Width(), Rect.Height());
    const TPoint origin{Rect.Left + (Rect.Width() - size) / 2, Rect.Top + (Rect.Height() - size) / 2};
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetWidth(std::max(1, size / 16));
    Canvas.Brush.SetStyle(bsSolid);
    const TIcon& icon = IconOf(Class);
    for (std::string_view rest : {icon.Ground, icon.Strokes})
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find('|'), rest.size());
            PaintStroke(Canvas, origin, size / 16.0, rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
}

} // namespace kx
