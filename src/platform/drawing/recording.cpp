#include <kxgraph/platform/drawing/recording.h>

#include <kxgraph/platform/drawing/screentext.h>
#include <kxgraph/platform/drawing/shifting.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

/// Draws recorded calls on a device, moved by an offset: exactly on a smooth one, else by whole pixels.
class TPlayer {
public:
    TPlayer(TCanvasDevice& Device, TRealPoint Offset, const std::optional<TRect>& Within)
        : FDevice(Device), FExactOffset(Offset), FOffset(RoundToPixel(Offset)), FWithin(Within),
          FIsExact(Device.IsSmooth()), FMovesPixels(FIsExact && FExactOffset != TRealPoint(FOffset)) {}
    ~TPlayer() {
        if (FClipped) FDevice.SetClip(FWithin);
    }
    TPlayer(const TPlayer&) = delete;
    TPlayer& operator=(const TPlayer&) = delete;

    void operator()(const TRecording::TPolyline& C) { FDevice.Polyline(Points(C), C.Stroke); }
    void operator()(const TRecording::TPolygon& C) { FDevice.Polygon(Points(C), C.Stroke, C.Fill); }
    void operator()(const TRecording::TEllipse& C) { FDevice.Ellipse(Rect(C), C.Stroke, C.Fill); }
    void operator()(const TRecording::TRectangle& C) { FDevice.Rectangle(Rect(C), C.Stroke, C.Fill); }
    void operator()(const TRecording::TFillRect& C) { FDevice.FillRect(Rect(C), C.Fill); }
    void operator()(const TRecording::TText& C) {
        const TRealPoint pos =
            FIsExact ? Shifted(C.Exact.value_or(C.Pos), FExactOffset) : TRealPoint(Shifted(C.Pos, FOffset));
        FDevice.Text(pos, C.Face, C.Color, C.Text);
    }
    void operator()(const TRecording::TClip& C) {
        const std::optional clip = C.Clip ? std::optional(Shifted(*C.Clip, FOffset)) : FWithin;
        FDevice.SetClip(clip && FWithin ? std::optional(clip->Intersected(*FWithin)) : clip);
        FClipped = true;
    }
    void operator()(const TRecording::TStamps& C) { FDevice.Stamps(Moved(C.Places, C.Exact), *C.One); }

private:
    template <class TCall>
    TRealRect Rect(const TCall& C) const {
        if (FIsExact) return Shifted(C.Exact.value_or(C.Rect), FExactOffset);
        return Shifted(C.Rect, FOffset);
    }
    template <class TCall>
    TPointSpan Points(const TCall& C) {
        return Moved(C.Points, C.Exact);
    }
    TPointSpan Moved(const std::vector<TPoint>& Whole, const std::vector<TRealPoint>& Exact) {
        if (FIsExact && !Exact.empty()) return FMover.Moved(Exact, FExactOffset);
        return FMovesPixels ? FMover.Moved(Whole, FExactOffset) : FMover.Moved(Whole, FOffset);
    }

    TCanvasDevice& FDevice;
    TRealPoint FExactOffset;
    TPoint FOffset;
    std::optional<TRect> FWithin;
    bool FIsExact, FMovesPixels;
    TPointMover FMover;
    bool FClipped = false;
};

} // namespace

void TRecording::Replay(TCanvasDevice& Device, TRealPoint Offset, const std::optional<TRect>& Within) const {
    TPlayer player(Device, Offset, Within);
    for (const TCall& call : Calls) std::visit(player, call);
}

// The default of every device stands here: only recordings know how they are repeated.
void TCanvasDevice::Stamps(TPointSpan Places, const TRecording& One) {
    std::vector<TRealPoint> places;
    for (const TRealPoint place : Places.Exact(places)) One.Replay(*this, place);
}

TRecorder::TRecorder(TSize Extent, int PixelsPerInch, bool CanXor, bool Smooth)
    : FExtent(Extent), FPixelsPerInch(PixelsPerInch), FCanXor(CanXor), FSmooth(Smooth) {}

std::vector<TPoint> TRecorder::Whole(TPointSpan Points) {
    std::vector<TPoint> rounded;
    const auto whole = Points.Whole(rounded);
    return Points.IsExact() ? std::move(rounded) : std::vector<TPoint>(whole.begin(), whole.end());
}

std::vector<TRealPoint> TRecorder::Exact(TPointSpan Points) const {
    std::vector<TRealPoint> none;
    if (!FSmooth || !Points.IsExact()) return none;
    const auto exact = Points.Exact(none);
    return {exact.begin(), exact.end()};
}

std::optional<TRealRect> TRecorder::Exact(const TRealRect& Rect) const {
    return FSmooth && Rect != TRealRect(RoundToPixels(Rect)) ? std::optional(Rect) : std::nullopt;
}

void TRecorder::Polyline(TPointSpan Points, const TStroke& Stroke) {
    Recording.Calls.emplace_back(TRecording::TPolyline{Whole(Points), Stroke, Exact(Points)});
}

void TRecorder::Polygon(TPointSpan Points, const TStroke& Stroke, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TPolygon{Whole(Points), Stroke, Fill, Exact(Points)});
}

void TRecorder::Ellipse(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TEllipse{RoundToPixels(Rect), Stroke, Fill, Exact(Rect)});
}

void TRecorder::Rectangle(const TRealRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TRectangle{RoundToPixels(Rect), Stroke, Fill, Exact(Rect)});
}

void TRecorder::FillRect(const TRealRect& Rect, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TFillRect{RoundToPixels(Rect), Fill, Exact(Rect)});
}

void TRecorder::Text(TRealPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) {
    const TPoint whole = RoundToPixel(Pos);
    const bool isExact = FSmooth && Pos != TRealPoint(whole);
    Recording.Calls.emplace_back(TRecording::TText{whole, Face, Color, std::string(Text),
                                                   isExact ? std::optional(Pos) : std::nullopt});
}

TSize TRecorder::MeasureText(const TFontFace& Face, std::string_view Text) const {
    return MeasureScreenText(Face, Text);
}

void TRecorder::SetClip(const std::optional<TRect>& Clip) {
    Recording.Calls.emplace_back(TRecording::TClip{Clip});
}

void TRecorder::Stamps(TPointSpan Places, const TRecording& One) {
    Recording.Calls.emplace_back(
        TRecording::TStamps{Whole(Places), std::make_shared<const TRecording>(One), Exact(Places)});
}

void TMetafile::SetPicture(TSize Size, TRecording Recording, TRecording Smooth) {
    FSize = Size;
    FRecording = std::move(Recording);
    FSmooth = std::move(Smooth);
}

void TMetafile::Assign(const TPersistent& Source) {
    if (const auto* picture = dynamic_cast<const TMetafile*>(&Source))
        SetPicture(picture->FSize, picture->FRecording, picture->FSmooth);
    else
        TPersistent::Assign(Source);
}

} // namespace kx
