#include <kxgraph/platform/widgets/scrollpart.h>

#include <algorithm>
#include <cmath>

namespace kx {

void TScrollPart::Place(const TRect& Bounds, double Total, double Page, double Position) {
    FBounds = Bounds;
    FTotal = std::max(Total, 0.0);
    FPage = std::max(Page, 0.0);
    FPosition = std::clamp(Position, 0.0, std::max(FTotal - FPage, 0.0));
}

double TScrollPart::ThumbLength() const {
    constexpr double CLeast = 20;
    return IsNeeded() ? std::min(std::max(Length() * FPage / FTotal, CLeast), Length()) : Length();
}

double TScrollPart::ThumbStart() const {
    return IsNeeded() ? (Length() - ThumbLength()) * FPosition / (FTotal - FPage) : 0;
}

TRect TScrollPart::Thumb() const {
    const int from = RoundToInt(ThumbStart()), to = RoundToInt(ThumbStart() + ThumbLength());
    return FVertical ? TRect{FBounds.Left, FBounds.Top + from, FBounds.Right, FBounds.Top + to}
                     : TRect{FBounds.Left + from, FBounds.Top, FBounds.Left + to, FBounds.Bottom};
}

std::optional<double> TScrollPart::Press(TPoint Pos) {
    const double along = Along(Pos) - ThumbStart();
    if (along >= 0 && along < ThumbLength()) {
        FGrip = along;
        return std::nullopt;
    }
    const double page = std::max(FPage - 1, 1.0), wanted = FPosition + (along < 0 ? -page : page);
    return std::clamp(wanted, 0.0, std::max(FTotal - FPage, 0.0));
}

std::optional<double> TScrollPart::DragTo(TPoint Pos) const {
    const double way = Length() - ThumbLength();
    if (!FGrip || !IsNeeded() || way <= 0) return std::nullopt;
    return std::clamp((Along(Pos) - *FGrip) / way, 0.0, 1.0) * (FTotal - FPage);
}

void TScrollPart::Paint(TCanvas& Canvas, TDrawState State) const {
    if (!IsNeeded()) return;
    Canvas.Brush.SetColor(RGB(243, 243, 243));
    Canvas.FillRect(FBounds);
    TRect thumb = Thumb();
    constexpr int CGap = 3;
    (FVertical ? thumb.Left : thumb.Top) += CGap;
    (FVertical ? thumb.Right : thumb.Bottom) -= CGap;
    const bool strong = IsDragged() || (State & odHot) != 0;
    Canvas.Brush.SetColor((State & odDisabled) ? RGB(220, 220, 220)
                          : strong             ? RGB(130, 130, 130)
                                               : RGB(172, 172, 172));
    Canvas.FillRect(TRect{thumb.Left + 1, thumb.Top, thumb.Right - 1, thumb.Bottom});
    Canvas.FillRect(TRect{thumb.Left, thumb.Top + 1, thumb.Right, thumb.Bottom - 1});
}

int TWheelSteps::Take(const TWheelTurn& Turn, double PerNotch) {
    FRest -= Turn.Up * PerNotch;
    const double whole = std::trunc(std::clamp(FRest, -1e6, 1e6));
    FRest -= whole;
    return static_cast<int>(whole);
}

} // namespace kx
