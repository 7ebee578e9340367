#pragma once
// Drawings kept as a list of calls: what drawing tests compare, what a metafile is, what a stamp repeats.

#include <kxgraph/platform/drawing/device.h>

#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace kx {

/// A list of device calls. A value; every point is kept.
class TRecording {
public:
    struct TPolyline {
        std::vector<TPoint> Points;
        TStroke Stroke;
    };
    struct TPolygon {
        std::vector<TPoint> Points;
        TStroke Stroke;
        TFill Fill;
    };
    struct TEllipse {
        TRect Rect;
        TStroke Stroke;
        TFill Fill;
    };
    struct TRectangle {
        TRect Rect;
        TStroke Stroke;
        TFill Fill;
    };
    struct TFillRect {
        TRect Rect;
        TFill Fill;
    };
    struct TText {
        TPoint Pos;
        TFontFace Face;
        TColor Color;
        std::string Text;
    };
    struct TClip {
        std::optional<TRect> Clip;
    };
    struct TStamps {
        std::vector<TPoint> Places;
        std::shared_ptr<const TRecording> One;
    };
    using TCall = std::variant<TPolyline, TPolygon, TEllipse, TRectangle, TFillRect, TText, TClip, TStamps>;

    std::vector<TCall> Calls;

    /// Repeats the calls on Device, moved by Offset and, where Within is given, inside it. A recording that
    /// sets clips leaves the device with Within or without one; any other is drawn under the clip in force.
    void Replay(TCanvasDevice& Device, TPoint Offset = {}, const std::optional<TRect>& Within = {}) const;
    /// One line a call, in a form that is stable and reads well in a diff, e.g.
    /// "polyline (10,20) (30,40) pen #ff0000 0 solid".
    std::string ToText() const;
};

/// A device that records. Text is measured on the screen.
class TRecorder : public TCanvasDevice {
public:
    explicit TRecorder(TSize Extent, int PixelsPerInch = 96, bool CanXor = false);

    TRecording Recording;

    TSize Extent() const override { return FExtent; }
    int PixelsPerInch() const override { return FPixelsPerInch; }
    void Polyline(std::span<const TPoint> Points, const TStroke& Stroke) override;
    void Polygon(std::span<const TPoint> Points, const TStroke& Stroke, const TFill& Fill) override;
    void Ellipse(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void Rectangle(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void FillRect(const TRect& Rect, const TFill& Fill) override;
    void Text(TPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) override;
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override;
    void SetClip(const std::optional<TRect>& Clip) override;
    void Stamps(std::span<const TPoint> Places, const TRecording& One) override;
    bool CanXor() const override { return FCanXor; }

private:
    TSize FExtent;
    int FPixelsPerInch;
    bool FCanXor;
};

/// A picture that can be kept, listed and drawn again on any device.
class TMetafile : public TPersistent {
public:
    int GetWidth() const { return FSize.Width; }
    int GetHeight() const { return FSize.Height; }
    const TRecording& GetRecording() const { return FRecording; }
    bool IsEmpty() const { return FRecording.Calls.empty(); }
    void SetPicture(TSize Size, TRecording Recording);
    void Clear() { SetPicture({}, {}); }
    /// Draws the picture with its top left at Pos.
    void Draw(TCanvasDevice& Device, TPoint Pos = {}) const { FRecording.Replay(Device, Pos); }
    std::string ToText() const { return FRecording.ToText(); }
    void Assign(const TPersistent& Source) override;

private:
    TSize FSize;
    TRecording FRecording;
};

} // namespace kx
