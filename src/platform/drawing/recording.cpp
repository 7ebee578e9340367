#include <kxgraph/platform/drawing/recording.h>

#include <kxgraph/platform/drawing/screentext.h>
#include <kxgraph/platform/drawing/shifting.h>

#include <algorithm>

namespace kx {

namespace {

/// Draws recorded calls on a device, moved by an offset.
class TPlayer {
public:
    TPlayer(TCanvasDevice& Device, TPoint Offset, const std::optional<TRect>& Within)
        : FDevice(Device), FOffset(Offset), FWithin(Within) {}
    ~TPlayer() {
        if (FClipped) FDevice.SetClip(FWithin);
    }
    TPlayer(const TPlayer&) = delete;
    TPlayer& operator=(const TPlayer&) = delete;

    void operator()(const TRecording::TPolyline& C) { FDevice.Polyline(Moved(C.Points), C.Stroke); }
    void operator()(const TRecording::TPolygon& C) { FDevice.Polygon(Moved(C.Points), C.Stroke, C.Fill); }
    void operator()(const TRecording::TEllipse& C) { FDevice.Ellipse(Moved(C.Rect), C.Stroke, C.Fill); }
    void operator()(const TRecording::TRectangle& C) { FDevice.Rectangle(Moved(C.Rect), C.Stroke, C.Fill); }
    void operator()(const TRecording::TFillRect& C) { FDevice.FillRect(Moved(C.Rect), C.Fill); }
    void operator()(const TRecording::TText& C) {
        FDevice.Text(Shifted(C.Pos, FOffset), C.Face, C.Color, C.Text);
    }
    void operator()(const TRecording::TClip& C) {
        const std::optional clip = C.Clip ? std::optional(Moved(*C.Clip)) : FWithin;
        FDevice.SetClip(clip && FWithin ? std::optional(clip->Intersected(*FWithin)) : clip);
        FClipped = true;
    }
    void operator()(const TRecording::TStamps& C) { FDevice.Stamps(Moved(C.Places), *C.One); }

private:
    TRect Moved(const TRect& Rect) const { return Shifted(Rect, FOffset); }
    std::span<const TPoint> Moved(const std::vector<TPoint>& Points) {
        if (FOffset == TPoint{}) return Points;
        FMoved.resize(Points.size());
        std::ranges::transform(Points, FMoved.begin(), [this](TPoint P) { return Shifted(P, FOffset); });
        return FMoved;
    }

    TCanvasDevice& FDevice;
    TPoint FOffset;
    std::optional<TRect> FWithin;
    std::vector<TPoint> FMoved;
    bool FClipped = false;
};

std::vector<TPoint> Copied(std::span<const TPoint> Points) { return {Points.begin(), Points.end()}; }

} // namespace

void TRecording::Replay(TCanvasDevice& Device, TPoint Offset, const std::optional<TRect>& Within) const {
    TPlayer player(Device, Offset, Within);
    for (const TCall& call : Calls) std::visit(player, call);
}

// The default of every device stands here: only recordings know how they are repeated.
void TCanvasDevice::Stamps(std::span<const TPoint> Places, const TRecording& One) {
    for (const TPoint place : Places) One.Replay(*this, place);
}

TRecorder::TRecorder(TSize Extent, int PixelsPerInch, bool CanXor)
    : FExtent(Extent), FPixelsPerInch(PixelsPerInch), FCanXor(CanXor) {}

void TRecorder::Polyline(std::span<const TPoint> Points, const TStroke& Stroke) {
    Recording.Calls.emplace_back(TRecording::TPolyline{Copied(Points), Stroke});
}

void TRecorder::Polygon(std::span<const TPoint> Points, const TStroke& Stroke, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TPolygon{Copied(Points), Stroke, Fill});
}

void TRecorder::Ellipse(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TEllipse{Rect, Stroke, Fill});
}

void TRecorder::Rectangle(const TRect& Rect, const TStroke& Stroke, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TRectangle{Rect, Stroke, Fill});
}

void TRecorder::FillRect(const TRect& Rect, const TFill& Fill) {
    Recording.Calls.emplace_back(TRecording::TFillRect{Rect, Fill});
}

void TRecorder::Text(TPoint Pos, const TFontFace& Face, TColor Color, std::string_view Text) {
    Recording.Calls.emplace_back(TRecording::TText{Pos, Face, Color, std::string(Text)});
}

TSize TRecorder::MeasureText(const TFontFace& Face, std::string_view Text) const {
    return MeasureScreenText(Face, Text);
}

void TRecorder::SetClip(const std::optional<TRect>& Clip) {
    Recording.Calls.emplace_back(TRecording::TClip{Clip});
}

void TRecorder::Stamps(std::span<const TPoint> Places, const TRecording& One) {
    Recording.Calls.emplace_back(
        TRecording::TStamps{Copied(Places), std::make_shared<const TRecording>(One)});
}

void TMetafile::SetPicture(TSize Size, TRecording Recording) {
    FSize = Size;
    FRecording = std::move(Recording);
}

void TMetafile::Assign(const TPersistent& Source) {
    if (const auto* picture = dynamic_cast<const TMetafile*>(&Source))
        SetPicture(picture->FSize, picture->FRecording);
    else
        TPersistent::Assign(Source);
}

} // namespace kx
