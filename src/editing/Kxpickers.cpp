#include <kxgraph/editing/Kxpickers.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace kx {

namespace {

constexpr int CSampleWidth = 44; // of the sample in an item

} // namespace

template <class TKind, class TBase>
TKxPicker<TKind, TBase>::TKxPicker(TComponent* Owner) : TBase(Owner) {
    this->SetItemIndex(TKind::IndexOf(TKind::CDefault));
}

template <class TKind, class TBase>
void TKxPicker<TKind, TBase>::SetValue(TValue Value) {
    const int index = TKind::IndexOf(Value);
    if (index == this->GetItemIndex()) return;
    this->SetItemIndex(index);
    OnChange(this);
}

template <class TKind, class TBase>
void TKxPicker<TKind, TBase>::Select(int Index) {
    const TComponentRef<TKxPicker> self(this);
    TBase::Select(Index);
    if (self) OnChange(this);
}

template <class TKind, class TBase>
void TKxPicker<TKind, TBase>::SetSampleColor(TColor Color) {
    FLook.Color = Color;
    this->Invalidate();
}

template <class TKind, class TBase>
void TKxPicker<TKind, TBase>::SetSampleWidth(int Width) {
    FLook.Width = std::max(LimitedLength(Width), 0);
    this->Invalidate();
}

template <class TKind, class TBase>
void TKxPicker<TKind, TBase>::SetSampleSize(int Size) {
    FLook.Size = std::max(LimitedLength(Size), 0);
    this->Invalidate();
}

/// The sample stands on the ground of a graph, whatever that of the item is.
template <class TKind, class TBase>
void TKxPicker<TKind, TBase>::DrawItem(TCanvas& Canvas, int Index, const TRect& Rect, TDrawState State) {
    const TRect sample{Rect.Left + 2, Rect.Top + 1, Rect.Left + 2 + CSampleWidth, Rect.Bottom - 1};
    Canvas.Brush.SetColor(State & odDisabled ? Blended(clWhite, clGray, 0.06) : clWhite);
    Canvas.FillRect(sample);
    TKxSampleLook look = FLook;
    if (State & odDisabled) look.Color = Blended(look.Color, clWhite, 0.55);
    {
        const TCanvas::TSaved saved(Canvas);
        Canvas.SetClip(sample.Intersected(Canvas.GetClipRect()));
        TKind::Draw(Canvas, sample, TKind::ValueAt(Index), look);
    }
    Canvas.Pen.SetStyle(psSolid);
    Canvas.Pen.SetWidth(1);
    Canvas.Brush.SetStyle(bsSolid);
    PaintText(Canvas, {sample.Right + CFieldPadding, Rect.Top, Rect.Right - CFieldPadding, Rect.Bottom},
              TKind::NameAt(Index), taLeftJustify);
}

template <class TKind, class TBase>
const TPropertyTable& TKxPicker<TKind, TBase>::Properties() {
    using C = TKxPicker;
    static const TPropertyTable table = [] {
        constexpr bool isList = std::is_same_v<TBase, TCustomListBox>;
        std::vector<TProperty> rows{
            Published<&C::GetValue, &C::SetValue>("Value", TKind::CDefault, "What is picked"),
            ReadOnly<&C::GetItemIndex>("ItemIndex", "The place of Value among the items"),
            PublishedColor<&C::GetSampleColor, &C::SetSampleColor>("SampleColor", clNavy,
                                                                   "What samples are drawn in")};
        if constexpr (TKind::CHasWidth)
            rows.push_back(Published<&C::GetSampleWidth, &C::SetSampleWidth>(
                "SampleWidth", 1, "Width of the pen that samples are drawn with, pixels"));
        if constexpr (TKind::CHasSize)
            rows.push_back(Published<&C::GetSampleSize, &C::SetSampleSize>(
                "SampleSize", TKxPointStyle::CDefaultSize, "Pixels from the centre of a sample to its edge"));
        rows.push_back(PublishedEvent<&C::OnChange>("OnChange", "Value has changed"));
        return TPropertyTable(isList ? TKind::CListName : TKind::CComboName, &TBase::Properties(),
                              std::move(rows));
    }();
    return table;
}

template class TKxPicker<TKxBrushStyles, TCustomListBox>;
template class TKxPicker<TKxBrushStyles, TCustomComboBox>;
template class TKxPicker<TKxLineStyles, TCustomListBox>;
template class TKxPicker<TKxLineStyles, TCustomComboBox>;
template class TKxPicker<TKxLineWidths, TCustomListBox>;
template class TKxPicker<TKxLineWidths, TCustomComboBox>;
template class TKxPicker<TKxPointSymbols, TCustomListBox>;
template class TKxPicker<TKxPointSymbols, TCustomComboBox>;

} // namespace kx
