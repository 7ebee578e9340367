#pragma once
// The seam to whatever is drawn on: raster image, PDF page, SVG file, window, recording. A device is
// stateless but for its clip; all values come with the call. Coordinates are logical pixels. A smooth device
// shows fractions of them, any other one rounds what it is given.

#include <kxgraph/platform/drawing/geometry.h>
#include <kxgraph/platform/drawing/graphics.h>
#include <kxgraph/platform/drawing/pointspan.h>
#include <kxgraph/platform/drawing/simplification.h>
#include <kxgraph/platform/text/colors.h>

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kx {

class TRecording;

/// An outline. Style psClear draws none. Width 0 is one device pixel. Color is resolved (no system colour).
/// Crisp lines, of axes and their like, are moved to whole device pixels by a raster where they are level or
/// upright.
struct TStroke {
    TColor Color = clBlack;
    int Width = 0;
    TPenStyle Style = psSolid;
    TPenMode Mode = pmCopy;
    bool Crisp = false;
    friend bool operator==(const TStroke&, const TStroke&) = default;
};

/// A filling. Style bsClear fills nothing; a hatch draws its lines only. Color is resolved.
struct TFill {
    TColor Color = clWhite;
    TBrushStyle Style = bsSolid;
    TPenMode Mode = pmCopy;
    friend bool operator==(const TFill&, const TFill&) = default;
};

/// A font as a device needs it.
struct TFontFace {
    std::string Name;
    int Height = -13; ///< pixels; negative: em square, positive: cell
    TFontStyles Style = 0;
    TFontPitch Pitch = fpDefault;
    int Angle = 0; ///< tenths of a degree, counter-clockwise, about the point that Text is given
    friend bool operator==(const TFontFace&, const TFontFace&) = default;
};

/// A place to draw on.
class TCanvasDevice {
public:
    virtual ~TCanvasDevice() = default;
    virtual TSize Extent() const = 0;
    virtual int PixelsPerInch() const = 0;
    /// Whether exact places show as such. Who has them hands them over to smooth devices only.
    virtual bool IsSmooth() const { return false; }
    /// How many columns a smooth device tells apart in a pixel: of the points of a long line in one column,
    /// the first, the highest, the lowest and the last are enough. At least 1.
    virtual int ColumnsPerPixel() const { return CColumnsPerPixel; }

    /// Joined lines through the points. Through whole pixels a thin line begins with all of the first one and
    /// leaves out the last one; through exact places it ends where its points are.
    virtual void Polyline(TPointSpan Points, const TStroke& Stroke) = 0;
    /// The closed polygon, filled by the even-odd rule and outlined, both with the end points included.
    virtual void Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) = 0;
    /// The ellipse that covers Left..Right-1 and Top..Bottom-1, outline included.
    virtual void Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) = 0;
    /// All pixels Left..Right-1, Top..Bottom-1.
    virtual void FillRect(const TRealRect& Rect, const TFill& Fill) = 0;
    /// Text in one line, UTF-8; Pos is the top left of the first character's cell, turned with the text about
    /// that point by Face.Angle.
    virtual void Text(TRealPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) = 0;
    /// Advance width and cell height of Text, the angle left out of account.
    virtual TSize MeasureText(const TFontFace& Face, std::string_view Text) const = 0;
    /// Nothing is drawn outside Clip from now on; no value lifts the clip.
    virtual void SetClip(const std::optional<TRect>& Clip) = 0;
    /// Whether pmXor restores when drawn twice.
    virtual bool CanXor() const { return false; }
    /// One recorded picture, drawn with its origin at each of the places in order. By default replayed at
    /// each.
    virtual void Stamps(TPointSpan Places, const TRecording& One);
    /// The rectangle that covers Left..Right-1 and Top..Bottom-1, outline included. By default a Polygon.
    virtual void Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill);
};

} // namespace kx
