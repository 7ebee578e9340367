#pragma once
// Pen, brush and font: what a canvas draws with. Each tells its OnChange after a change of value.

#include <kxgraph/platform/base/event.h>
#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/objects/persistent.h>
#include <kxgraph/platform/objects/typenames.h>
#include <kxgraph/platform/text/colors.h>

#include <algorithm>
#include <array>
#include <string>

namespace kx {

enum TPenStyle { psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame };
enum TPenMode {
    pmCopy, ///< the pen's colour
    pmXor   ///< the pen's colour XOR the picture's; drawing twice restores
};
enum TBrushStyle {
    bsSolid,
    bsClear,
    bsHorizontal,
    bsVertical,
    bsFDiagonal,
    bsBDiagonal,
    bsCross,
    bsDiagCross
};
enum TFontStyle : unsigned { fsBold = 1, fsItalic = 2, fsUnderline = 4, fsStrikeOut = 8 };
using TFontStyles = unsigned; ///< bits of TFontStyle
enum TFontPitch { fpDefault, fpVariable, fpFixed };

template <>
inline constexpr auto CEnumNames<TPenStyle> = std::to_array<std::string_view>({"psSolid", "psDash", "psDot",
                                                                               "psDashDot", "psDashDotDot",
                                                                               "psClear", "psInsideFrame"});
template <>
inline constexpr auto CEnumNames<TBrushStyle> = std::to_array<std::string_view>({"bsSolid", "bsClear",
                                                                                 "bsHorizontal", "bsVertical",
                                                                                 "bsFDiagonal", "bsBDiagonal",
                                                                                 "bsCross", "bsDiagCross"});
template <>
inline constexpr auto CEnumNames<TFontPitch> = std::to_array<std::string_view>({"fpDefault", "fpVariable",
                                                                                "fpFixed"});

/// Base of pen, brush and font.
class TGraphicsObject : public TPersistent {
public:
    TEvent<> OnChange;

protected:
    void Changed() { OnChange(); }
    /// Stores Value; tells when it differs.
    template <class T>
    void Store(T& Field, T Value) {
        if (Field == Value) return;
        Field = std::move(Value);
        Changed();
    }
};

/// How lines and outlines are drawn. Default: black, solid, width 1, copy.
class TPen : public TGraphicsObject {
public:
    TColor GetColor() const { return FColor; }
    void SetColor(TColor Color) { Store(FColor, Color); }
    TPenStyle GetStyle() const { return FStyle; }
    void SetStyle(TPenStyle Style) { Store(FStyle, Style); }
    /// Pixels; 0 is a cosmetic pen, one device pixel wide. A negative width is ignored, one beyond
    /// CMostLength counts as that.
    int GetWidth() const { return FWidth; }
    void SetWidth(int Width) {
        if (Width >= 0) Store(FWidth, LimitedLength(Width));
    }
    TPenMode GetMode() const { return FMode; }
    void SetMode(TPenMode Mode) { Store(FMode, Mode); }
    void Assign(const TPersistent& Source) override;

private:
    TColor FColor = clBlack;
    TPenStyle FStyle = psSolid;
    int FWidth = 1;
    TPenMode FMode = pmCopy;
};

/// How areas are filled. Default: white, solid. Setting a colour makes a clear brush solid.
class TBrush : public TGraphicsObject {
public:
    TColor GetColor() const { return FColor; }
    void SetColor(TColor Color);
    TBrushStyle GetStyle() const { return FStyle; }
    void SetStyle(TBrushStyle Style) { Store(FStyle, Style); }
    void Assign(const TPersistent& Source) override;

private:
    TColor FColor = clWhite;
    TBrushStyle FStyle = bsSolid;
};

/// A text font. Size (points) and Height (pixels; negative is the height of the em square, which is what
/// SetSize stores) are two views of one value: Size = -Height * 72 / 96.
class TFont : public TGraphicsObject {
public:
    static constexpr int CPixelsPerInch = 96;
    /// Larger fonts cannot be painted; heights are cut down to it.
    static constexpr int CMostHeight = 5000;

    const std::string& GetName() const { return FName; }
    void SetName(const std::string& Name) { Store(FName, Name); }
    int GetSize() const;
    void SetSize(int Points);
    int GetHeight() const { return FHeight; }
    void SetHeight(int Pixels) { Store(FHeight, std::clamp(Pixels, -CMostHeight, CMostHeight)); }
    TColor GetColor() const { return FColor; }
    void SetColor(TColor Color) { Store(FColor, Color); }
    TFontStyles GetStyle() const { return FStyle; }
    void SetStyle(TFontStyles Style) { Store(FStyle, Style); }
    bool HasStyle(TFontStyle Style) const { return (FStyle & Style) != 0; }
    void SetStyleFlag(TFontStyle Style, bool On) {
        SetStyle(On ? FStyle | Style : FStyle & ~unsigned(Style));
    }
    int GetCharset() const { return FCharset; }
    void SetCharset(int Charset) { Store(FCharset, Charset); }
    TFontPitch GetPitch() const { return FPitch; }
    void SetPitch(TFontPitch Pitch) { Store(FPitch, Pitch); }
    /// Writing direction in tenths of a degree below a full turn, counter-clockwise; not part of the
    /// published state. Any other setter but SetColor leaves it; Assign takes it over.
    int GetOrientation() const { return FOrientation; }
    void SetOrientation(int Angle) { Store(FOrientation, Angle % 3600); }

    bool GetBold() const { return HasStyle(fsBold); }
    void SetBold(bool On) { SetStyleFlag(fsBold, On); }
    bool GetItalic() const { return HasStyle(fsItalic); }
    void SetItalic(bool On) { SetStyleFlag(fsItalic, On); }
    bool GetUnderline() const { return HasStyle(fsUnderline); }
    void SetUnderline(bool On) { SetStyleFlag(fsUnderline, On); }
    bool GetStrikeOut() const { return HasStyle(fsStrikeOut); }
    void SetStrikeOut(bool On) { SetStyleFlag(fsStrikeOut, On); }

    /// Tells OnChange once, if anything differs.
    void Assign(const TPersistent& Source) override;
    const TPropertyTable& PublishedProperties() const override;
    /// Whether all values (not the handler) are equal.
    bool Equals(const TFont& Other) const;

private:
    std::string FName = "Arial";
    int FHeight = -13; // 10 points at 96 per inch
    TColor FColor = clWindowText;
    TFontStyles FStyle = 0;
    int FCharset = 1;
    TFontPitch FPitch = fpDefault;
    int FOrientation = 0;
};

} // namespace kx
