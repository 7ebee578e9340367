#pragma once
// The device that paints through a QPainter: raster image, PDF page, later window and printer.

#include <kxgraph/platform/drawing/device.h>
#include <kxgraph/qt/Kxqtcoverage.h>
#include <kxgraph/qt/Kxqtfont.h>
#include <kxgraph/qt/Kxqtlinemask.h>
#include <kxgraph/qt/Kxqtraster.h>
#include <kxgraph/qt/Kxqtstamp.h>

#include <QPainter>
#include <QPointF>

#include <algorithm>
#include <vector>

namespace kx::qt {

/// Paints on a painter that it does not own. Extent is in logical pixels; Scale is the number of the
/// painter's pixels in one of them. On a raster, pens of up to one device pixel follow the pixel rules
/// exactly, unless antialiasing is asked for. At
/// other scales, and on vector devices, a line of width 0 or 1 is one logical pixel wide. Where there is no
/// XOR (vector devices, antialiased ones), what is called in XOR mode shows as on white paper. Only a raster
/// of scale 1 without antialiasing is not smooth; it rounds exact places. What painting leaves in the
/// processor's vector registers is cleared when a call returns, so that numbers after it run as before.
class TPainterDevice : public TCanvasDevice {
public:
    TPainterDevice(QPainter& Painter, TSize Extent, double Scale = 1, bool Antialias = false);

    TSize Extent() const override { return FExtent; }
    int PixelsPerInch() const override { return 96; }
    bool IsSmooth() const override { return !FRaster || FAntialias || FScale != 1; }
    void Polyline(TPointSpan Points, const TStroke& Stroke) override;
    void Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) override;
    void Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) override;
    void FillRect(const TRealRect& Rect, const TFill& Fill) override;
    void Text(TRealPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) override;
    TSize MeasureText(const TFontFace& Face, std::string_view Text) const override;
    void SetClip(const std::optional<TRect>& Clip) override;
    bool CanXor() const override { return FRaster && !FAntialias; }
    /// On a raster, a plain picture is painted once and put to each place; of several at one place, the last.
    void Stamps(TPointSpan Places, const TRecording& One) override;

    /// Whether long lines are reduced before painting. Default true. Solid lines through whole pixels show
    /// the same pixels either way, those through exact places are no further than a twentieth of a pixel off.
    void SetReduction(bool Reduction) { FReduction = Reduction; }
    /// Of a logical pixel, see TCanvasDevice. Fewer than the default are for pictures that follow one
    /// another.
    void SetColumnsPerPixel(int Columns) { FColumnsPerPixel = std::max(1, Columns); }
    int ColumnsPerPixel() const override { return FColumnsPerPixel; }

private:
    bool IsThin(const TStroke& Stroke) const;
    bool IsReduced(std::size_t Count, const TStroke& Stroke, bool Exact) const;
    TRealRect Placed(const TRealRect& Rect) const;
    std::span<const TRealPoint> Placed(TPointSpan Points);
    TPoint DevicePixel(TRealPoint P) const;
    QPointF DevicePoint(double X, double Y) const {
        return {(X + 0.5) * FScale - FNudge, (Y + 0.5) * FScale - FNudge};
    }
    QRectF DeviceRect(const TRealRect& Rect) const;
    double PenWidth(const TStroke& Stroke) const;
    QPen PenOf(const TStroke& Stroke, Qt::PenJoinStyle Join) const;
    QBrush BrushOf(const TFill& Fill) const;
    QRgb RgbOf(TColor Color, TPenMode Mode) const; // past QColor, whose parts are slow to read as one
    QColor ColorOf(TColor Color, TPenMode Mode) const { return RgbOf(Color, Mode); }
    void SetMode(TPenMode Mode, bool Antialias);
    std::span<const TRealPoint> Reduced(TPointSpan Points, const TStroke& Stroke);
    std::span<const TRealPoint> WithoutDetail(std::span<const TRealPoint> Points);
    std::span<const TPoint> DevicePixels(TPointSpan Points, const TStroke& Stroke);
    static void PaintStamp(QImage& Picture, const TRecording& One, TPoint Offset);
    bool MixStamps(TPointSpan Points, const TRecording& One);
    void PaintEach(TPointSpan Places, const TRecording& One);
    bool PaintRepeated(TRepeatedShape::TKind Kind, std::span<const TPoint> Corners, const TStroke& Stroke,
                       const TFill& Fill);
    bool WriteArea(const TRect& Area, const TFill& Fill);
    void PaintOutline(TPointSpan Points, const TStroke& Stroke, bool Closed, Qt::PenJoinStyle Join);
    void PaintThin(std::span<const TPoint> Pixels, const TStroke& Stroke, bool Closed);
    void PaintWide(TPointSpan Points, const TStroke& Stroke, bool Closed, Qt::PenJoinStyle Join);
    void PaintStroke(std::span<const QPointF> Line, QPen Pen, double LengthBefore, bool InPieces);
    void PaintBars(std::span<const QPointF> Line, const QPen& Pen, bool RoundEnds);
    void PaintDisc(const QPointF& Middle, double Radius);
    void PaintArea(TPointSpan Points, const TFill& Fill, bool Antialias);
    void FillCurve();
    void PaintShape(TPointSpan Points, const TStroke& Stroke, const TFill& Fill, Qt::PenJoinStyle Join);
    void PaintHugeEllipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill);
    bool WriteFramed(const TRealRect& Frame, const TStroke& Stroke, const TFill& Fill);
    bool WriteCoverage(std::span<const TRealPoint> Line, const QPen& Pen, TPenMode Mode);
    void SetCurve(std::span<const TRealPoint> Points);
    void MakeCrisp(QPen& Pen);
    bool WriteCrisp(const QPen& Pen, const TStroke& Stroke);
    void RoundEnds();
    void TrimEnds();
    QRectF SafeArea() const;

    QPainter& FPainter;
    TRasterAccess FAccess;
    TSize FExtent;
    double FScale;
    bool FAntialias, FRaster, FReduction = true;
    int FColumnsPerPixel = CColumnsPerPixel;
    double FNudge = 0; // see SetMode
    TRect FClip;       // logical pixels, inside the extent
    TRect FWindow;     // the same in device pixels
    TRepeatedShape FShape{PaintStamp};
    TLineCoverage FCoverage;
    TLineMask FMask;
    std::vector<TPoint> FKept, FPixels;         // scratch, kept for their storage
    std::vector<TRealPoint> FExact, FExactKept; // likewise
    std::vector<QPointF> FCurve, FSpare, FBand; // likewise
    std::vector<QRect> FRuns;                   // likewise
};

} // namespace kx::qt
