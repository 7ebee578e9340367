#pragma once
// A drawing device that builds an SVG document: clipped, searchable, the same bytes for the same drawing.

#include <kxgraph/platform/drawing/device.h>
#include <kxgraph/platform/drawing/visible.h>
#include <kxgraph/svg/Kxsvgbody.h>
#include <kxgraph/svg/Kxsvgclip.h>
#include <kxgraph/svg/Kxsvgtext.h>

#include <functional>
#include <string>
#include <vector>

namespace kx {

/// Turns device calls into elements. The view box is the extent in logical pixels; strokes run through pixel
/// centres, fillings cover whole pixels, so that a viewer at scale 1 without antialiasing shows the pixels of
/// a raster device, and upright and level hairlines are crisp with it. Text is measured on the screen.
///
/// There is no XOR. A call in that mode (from a recording) is painted in the colour that it shows on the
/// empty ground, a filling half transparent to spare what lies below; drawing it again does not remove it.
/// What lies far outside the extent, where viewers overflow, is cut off. Without a ground the document is
/// transparent; XOR then takes white for it.
class TSvgDevice : public TCanvasDevice {
public:
    /// Size in logical pixels, shown Scale times as large on a ground of colour Ground.
    explicit TSvgDevice(TSize Size, double Scale = 1, std::optional<TColor> Ground = clWhite);
    /// Makes the document wider and higher than Size, in logical pixels: of a page in millimetres the parts
    /// of a pixel that are over.
    void SetPage(double Width, double Height);

    /// The document of all calls so far.
    std::string Document() const;

    TSize Extent() const override { return FSize; }
    int PixelsPerInch() const override;
    bool IsSmooth() const override { return true; }
    void Polyline(TPointSpan Points, const TStroke& Stroke) override;
    void Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) override;
    void Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void FillRect(const TRealRect& Rect, const TFill& Fill) override;
    /// A run of calls in one style along one line, with nothing drawn in between, becomes one element.
    void Text(TRealPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) override;
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override;
    void SetClip(const std::optional<TRect>& Clip) override;
    /// At those places where something of the picture is to be seen.
    void Stamps(TPointSpan Places, const TRecording& One) override;

private:
    void Add(std::string Head, const std::string& Style);
    void AddDiscs(std::span<const TRealPoint> Places, const TDisc& Disc);
    std::span<const TRealPoint> Reduced(TPointSpan Points, const TStroke& Stroke);
    TStroke Plain(TStroke Stroke) const;
    TFill Plain(TFill Fill) const;
    std::string FillStyle(const TFill& Fill);
    TRect WindowFor(const TStroke& Stroke, int Margin = 4096) const;
    bool IsHidden() const { return FClip && FClip->IsEmpty(); }
    static void EndText(const svg::TSvgText& Text, svg::TSvgBody& Body);

    TSize FSize;
    double FScale, FWidth, FHeight;
    std::optional<TColor> FGround;
    std::optional<TRect> FClip;
    svg::TSvgBody FBody;
    svg::TSvgText FText;
    std::vector<TRealPoint> FExact, FKept;
};

/// Writes the picture that Paint draws to FileName, which is replaced as a whole or not at all. Raises
/// EFileError.
void WriteSvg(const std::string& FileName, TSize Size, double Scale, std::optional<TColor> Ground,
              const std::function<void(TCanvasDevice&)>& Paint);

} // namespace kx
