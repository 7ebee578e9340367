#pragma once
// Small pictures that are painted once and put to many places.

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/qt/Kxqtraster.h>

#include <optional>
#include <span>
#include <vector>

namespace kx::qt {

/// Replays One on an empty picture, moved by Offset, without antialiasing.
using TPaintStamp = void (*)(QImage& Picture, const TRecording& One, TPoint Offset);

/// A picture without antialiasing that depends neither on its place nor on what is beneath it. A value.
class TStamp {
public:
    /// Paints One; nothing for a picture that is large, sets clips, or has more than solid copied pixels.
    static std::optional<TStamp> Of(const TRecording& One, TPaintStamp Paint);

    /// What it may touch at place 0, 0.
    const TRect& Bounds() const { return FBounds; }
    /// Puts it to Place, inside Clip, which lies in the image.
    void Write(const TPixels& Image, TPoint Place, const TRect& Clip) const;
    void Paint(QPainter& Painter, TPoint Place) const;

private:
    /// Pixels of one row, side by side.
    struct TRun {
        int X, Y, Length;
        const QRgb* Pixels;
    };
    TStamp(const TRecording& One, const TRect& Bounds, TPaintStamp Paint);

    TRect FBounds;
    QImage FPicture;
    std::vector<TRun> FRuns;
};

/// Notices symbols that are drawn again and again, between other things.
class TRepeatedShape {
public:
    enum TKind { Polygon, Ellipse };
    explicit TRepeatedShape(TPaintStamp Paint) : FPaint(Paint) {}
    /// The stamp to put to the first of the shape's corners, if the time before the same was asked for; null
    /// otherwise. An ellipse has two corners.
    const TStamp* Stamp(TKind Kind, std::span<const TPoint> Corners, const TStroke& Stroke,
                        const TFill& Fill);

private:
    bool IsRepeated(TKind Kind, std::span<const TPoint> Corners, const TStroke& Stroke,
                    const TFill& Fill) const;
    TRecording Picture() const;

    TPaintStamp FPaint;
    TKind FKind = Polygon;
    std::vector<TPoint> FCorners; // seen from the first one
    TStroke FStroke;
    TFill FFill;
    bool FPainted = false;
    std::optional<TStamp> FStamp;
};

} // namespace kx::qt
