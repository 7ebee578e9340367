#pragma once
// Drawings kept as a list of calls: what drawing tests compare, what a metafile is, what a stamp repeats.

#include <kxgraph/platform/drawing/device.h>

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace kx {

/// A list of device calls. A value; every point is kept, and where it was exact also the exact place, for
/// devices that are smooth.
class TRecording {
public:
    struct TPolyline {
        std::vector<TPoint> Points;
        TStroke Stroke;
        std::vector<TRealPoint> Exact = {}; ///< empty where Points are all there is to know
    };
    struct TPolygon {
        std::vector<TPoint> Points;
        TStroke Stroke;
        TFill Fill;
        std::vector<TRealPoint> Exact = {};
    };
    struct TEllipse {
        TRect Rect;
        TStroke Stroke;
        TFill Fill;
        std::optional<TRealRect> Exact = {};
    };
    struct TRectangle {
        TRect Rect;
        TStroke Stroke;
        TFill Fill;
        std::optional<TRealRect> Exact = {};
    };
    struct TFillRect {
        TRect Rect;
        TFill Fill;
        std::optional<TRealRect> Exact = {};
    };
    struct TText {
        TPoint Pos;
        TFontFace Face;
        TColor Color;
        std::string Text;
        std::optional<TRealPoint> Exact = {};
    };
    struct TClip {
        std::optional<TRect> Clip;
    };
    struct TStamps {
        std::vector<TPoint> Places;
        std::shared_ptr<const TRecording> One;
        std::vector<TRealPoint> Exact = {};
    };
    using TCall = std::variant<TPolyline, TPolygon, TEllipse, TRectangle, TFillRect, TText, TClip, TStamps>;

    std::vector<TCall> Calls;

    /// Repeats the calls on Device, moved by Offset and, where Within is given, inside it. A recording that
    /// sets clips leaves the device with Within or without one; any other is drawn under the clip in force.
    void Replay(TCanvasDevice& Device, TRealPoint Offset = {}, const std::optional<TRect>& Within = {}) const;
    /// One line a call, in whole pixels, in a form that is stable and reads well in a diff, e.g.
    /// "polyline (10,20) (30,40) pen #ff0000 0 solid".
    std::string ToText() const;
};

/// A device that records what it is given: exact places as those where it is smooth, else rounded. Text is
/// measured on the screen.
class TRecorder : public TCanvasDevice {
public:
    explicit TRecorder(TSize Extent, int PixelsPerInch = 96, bool CanXor = false, bool Smooth = false);

    TRecording Recording;

    TSize Extent() const override { return FExtent; }
    int PixelsPerInch() const override { return FPixelsPerInch; }
    bool IsSmooth() const override { return FSmooth; }
    void Polyline(TPointSpan Points, const TStroke& Stroke) override;
    void Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) override;
    void Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void FillRect(const TRealRect& Rect, const TFill& Fill) override;
    void Text(TRealPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) override;
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override;
    void SetClip(const std::optional<TRect>& Clip) override;
    void Stamps(TPointSpan Places, const TRecording& One) override;
    bool CanXor() const override { return FCanXor; }

private:
    static std::vector<TPoint> Whole(TPointSpan Points);
    std::vector<TRealPoint> Exact(TPointSpan Points) const;
    std::optional<TRealRect> Exact(const TRealRect& Rect) const;

    TSize FExtent;
    int FPixelsPerInch;
    bool FCanXor, FSmooth;
};

/// A picture that can be kept, listed and drawn again on any device. It may be kept twice: as it is drawn in
/// whole pixels, which is what is listed, and as on a smooth device, for those.
class TMetafile : public TPersistent {
public:
    int GetWidth() const { return FSize.Width; }
    int GetHeight() const { return FSize.Height; }
    const TRecording& GetRecording() const { return FRecording; }
    bool IsEmpty() const { return FRecording.Calls.empty(); }
    void SetPicture(TSize Size, TRecording Recording, TRecording Smooth = {});
    void Clear() { SetPicture({}, {}); }
    /// Draws the picture with its top left at Pos.
    void Draw(TCanvasDevice& Device, TPoint Pos = {}) const {
        (Device.IsSmooth() && !FSmooth.Calls.empty() ? FSmooth : FRecording).Replay(Device, Pos);
    }
    std::string ToText() const { return FRecording.ToText(); }
    void Assign(const TPersistent& Source) override;

private:
    TSize FSize;
    TRecording FRecording, FSmooth;
};

} // namespace kx
