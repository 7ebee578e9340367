// The caption: the user's or an automatic one, and the label that shows it.

#include <kxgraph/graph/Kxaxis.h>

#include <algorithm>

namespace kx {

void TKxAxis::SetShowCaption(bool Show) {
    if (FLook.ShowCaption == Show) return;
    FLook.ShowCaption = Show;
    UpdateCaptionLabel();
    MarkChanged();
}

void TKxAxis::SetUserCaption(const AnsiString& Caption) {
    if (FUserCaption == Caption) return;
    FUserCaption = Caption;
    if (FDoUserCaption) SetCaption(Caption);
}

void TKxAxis::SetAutoCaption(const AnsiString& Caption) {
    FAutoCaption = Caption;
    if (!FDoUserCaption) SetCaption(Caption);
}

void TKxAxis::SetDoUserCaption(bool DoUser) {
    if (FDoUserCaption == DoUser) return;
    FDoUserCaption = DoUser;
    if (DoUser) SetCaption(FUserCaption);
}

void TKxAxis::CMTextChanged() {
    TGraphicControl::CMTextChanged();
    UpdateCaptionLabel();
    MarkChanged();
}

void TKxAxis::CMVisibleChanged() {
    TGraphicControl::CMVisibleChanged();
    UpdateCaptionLabel();
    MarkChanged();
}

void TKxAxis::UpdateCaptionLabel() {
    FCaptionLabel->SetCaption(FLook.ShowCaption && GetVisible() ? GetCaption() : TKxCaption());
}

int TKxAxis::CaptionExtentAcross() const {
    if (!FCaptionLabel->GetVisible() || FCaptionLabel->GetCaption().empty()) return 0;
    return FLine.Side.Across(FCaptionLabel->GetBoundsRect().Size());
}

void TKxAxis::DressCaptionLabel() {
    FCaptionLabel->SetVisible(FLook.ShowCaption && GetVisible());
    if (!FCaptionLabel->GetVisible()) return;
    if (!FCaptionLabel->GetFont().Equals(FLook.CaptionFont)) FCaptionLabel->SetFont(FLook.CaptionFont);
    const int angle = IsHorizontal() ? 0 : 900;
    if (FCaptionLabel->GetAngle() != angle) FCaptionLabel->SetAngle(angle);
}

// In the middle of the line, outside of the labels.
void TKxAxis::PlaceCaptionLabel() {
    if (!FCaptionLabel->GetVisible()) return;
    const TSize size = FCaptionLabel->GetBoundsRect().Size();
    const int labels = FLook.LabelDistance() + FLabels.ExtentAcross(FLine.Side);
    const int distance = std::max(labels, FLine.CaptionFrom) + FLook.CaptionScalingsGap;
    const int from = FLine.Side.Along(FLine.Origin) + (FLine.Length - FLine.Side.Along(size)) / 2;
    const TPoint place = FLine.PlaceOutwards(from, distance, size) + GetBoundsRect().TopLeft();
    FCaptionLabel->SetBounds(place.X, place.Y, size.Width, size.Height);
}

} // namespace kx
