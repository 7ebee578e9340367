#pragma once
// Themes: a look as readable text.

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/text/colors.h>
#include <kxgraph/series/Kxdraw.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A theme cannot be read or applied; the message begins with its name, and the line where there is one.
class EThemeError : public Exception {
    using Exception::Exception;
};

/// The colours of a picture, what tells its series apart, and values for properties of its components. A
/// value; a new one is the look for a screen, on white. As text, a line each (# begins a comment):
///
///     Base = dark                           what the rest starts from: standard unless told; the first line
///     Ink = #262626                         of axes and texts
///     Ground = clWhite                      behind everything
///     Grid = #dddddd, #eeeeee               major and minor
///     Colors = #0072b2, #d55e00             of the first series, the second one, ...
///     Symbols = SyCircleFilled, SyDelta     likewise
///     Dashes = psSolid, psDash              of as many series as there are colours, of as many more, ...
///     Series*.LineStyle.Width = 2           for each component so called, * and ? as in names of files
///     TKxAxis.Font.Size = 9                 for each component of the class
///
/// Later lines go before earlier ones. A property that a component lacks leaves it as it is.
class TKxTheme {
public:
    /// Name stands in messages. Raises EThemeError for what is none of the above, a property that no
    /// registered class has among it.
    static TKxTheme Parse(std::string_view Text, const std::string& Name);
    /// One of Names; raises EThemeError for another.
    static const TKxTheme& Named(std::string_view Name);
    /// standard, print (a column of a journal, on paper), dark and presentation (seen from afar).
    static std::vector<std::string_view> Names();

    TColor GetInk() const { return FInk; }
    TColor GetGround() const { return FGround; }
    TColor GetMajorGrid() const { return FMajorGrid; }
    TColor GetMinorGrid() const { return FMinorGrid; }
    int GetColorCount() const { return int(FColors.size()); }
    /// Of series Number, from 0.
    TColor GetColor(int Number) const { return FColors[std::size_t(Number) % FColors.size()]; }
    TKxPointSymbol GetSymbol(int Number) const { return FSymbols[std::size_t(Number) % FSymbols.size()]; }
    TPenStyle GetDash(int Number) const {
        return FDashes[std::size_t(Number) / FColors.size() % FDashes.size()];
    }
    /// Color through so many quarters of the ground.
    TColor Tinted(TColor Color, int Quarters) const;

    /// Gives Component the values of the lines that mean it. Raises EThemeError for one that does not fit.
    void ApplyTo(TComponent& Component) const;

private:
    struct TLine {
        std::string Who, Property, Value, Place; // Place is the theme's name and the line, for messages
    };
    class TReader;

    TColor FInk = RGB(0x26, 0x26, 0x26), FGround = clWhite;
    TColor FMajorGrid = RGB(0xDD, 0xDD, 0xDD), FMinorGrid = RGB(0xEE, 0xEE, 0xEE);
    /// Eight colours that the colour-blind tell apart (M. Okabe and K. Ito, Color Universal Design, 2008),
    /// those that show best on white first.
    std::vector<TColor> FColors{RGB(0x00, 0x72, 0xB2), RGB(0xD5, 0x5E, 0x00), RGB(0x00, 0x9E, 0x73),
                                RGB(0xCC, 0x79, 0xA7), RGB(0x56, 0xB4, 0xE9), RGB(0xE6, 0x9F, 0x00),
                                RGB(0x00, 0x00, 0x00), RGB(0xB8, 0xAE, 0x1E)};
    std::vector<TKxPointSymbol> FSymbols{SyCircleFilled, SySquareFilled, SyDiamondFilled, SyDeltaFilled,
                                         SyNablaFilled};
    std::vector<TPenStyle> FDashes{psSolid, psDash, psDot, psDashDot};
    std::vector<TLine> FLines;
};

} // namespace kx
