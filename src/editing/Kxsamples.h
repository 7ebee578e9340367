#pragma once
// Samples of the styles that a user picks from, each drawn as graphs draw it, with its name.

#include <kxgraph/platform/drawing/canvas.h>
#include <kxgraph/series/Kxdraw.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace kx {

/// What samples are drawn with, beside the style that they show.
struct TKxSampleLook {
    TColor Color = clNavy;
    int Width = 1;                          ///< of a pen, pixels
    int Size = TKxPointStyle::CDefaultSize; ///< of a symbol, pixels from the centre
};

/// The name of an enumeration's value as words: "Dash dot" for psDashDot.
std::string WordsOf(std::string_view ValueName);

// Kinds of samples: the values by their index, and the drawing of one in Rect with its ground painted.
// CHasWidth and CHasSize tell what of the look matters.

/// An enumeration that begins with 0.
template <class E>
struct TKxSamplesOf {
    using TValue = E;
    static constexpr int CCount = int(CEnumNames<E>.size());
    static constexpr bool CHasWidth = false, CHasSize = false;
    static E ValueAt(int Index) { return static_cast<E>(std::clamp(Index, 0, CCount - 1)); }
    static int IndexOf(E Value) { return std::clamp(int(Value), 0, CCount - 1); }
    static std::string NameAt(int Index) { return WordsOf(CEnumNames<E>[std::size_t(Index)]); }
};

struct TKxBrushStyles : TKxSamplesOf<TBrushStyle> {
    static constexpr TBrushStyle CDefault = bsSolid;
    static constexpr std::string_view CListName = "TKxBrushStyleList", CComboName = "TKxBrushStyleCombo";
    static void Draw(TCanvas& Canvas, const TRect& Rect, TBrushStyle Style, const TKxSampleLook& Look);
};

struct TKxLineStyles : TKxSamplesOf<TPenStyle> {
    static constexpr bool CHasWidth = true;
    static constexpr TPenStyle CDefault = psSolid;
    static constexpr std::string_view CListName = "TKxLineStyleList", CComboName = "TKxLineStyleCombo";
    static void Draw(TCanvas& Canvas, const TRect& Rect, TPenStyle Style, const TKxSampleLook& Look);
};

struct TKxPointSymbols : TKxSamplesOf<TKxPointSymbol> {
    static constexpr bool CHasWidth = true, CHasSize = true;
    static constexpr TKxPointSymbol CDefault = SyCircle;
    static constexpr std::string_view CListName = "TKxPointSymbolList", CComboName = "TKxPointSymbolCombo";
    static void Draw(TCanvas& Canvas, const TRect& Rect, TKxPointSymbol Symbol, const TKxSampleLook& Look);
};

/// Widths of solid lines, 1 to 10 pixels.
struct TKxLineWidths {
    using TValue = int;
    static constexpr int CCount = 10, CDefault = 1;
    static constexpr bool CHasWidth = false, CHasSize = false;
    static constexpr std::string_view CListName = "TKxLineWidthList", CComboName = "TKxLineWidthCombo";
    static int ValueAt(int Index) { return std::clamp(Index, 0, CCount - 1) + 1; }
    static int IndexOf(int Width) { return std::clamp(Width, 1, CCount) - 1; }
    static std::string NameAt(int Index) { return std::to_string(ValueAt(Index)); }
    static void Draw(TCanvas& Canvas, const TRect& Rect, int Width, const TKxSampleLook& Look);
};

} // namespace kx
