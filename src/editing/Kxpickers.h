#pragma once
// Lists and combos from which a style is picked: each item is drawn as graphs draw it, with its name beside.

#include <kxgraph/editing/Kxsamples.h>
#include <kxgraph/platform/widgets/combobox.h>
#include <kxgraph/platform/widgets/listbox.h>

#include <string>
#include <type_traits>

namespace kx {

/// A list or combo (TBase) of all the values of TKind. Value is the chosen item.
template <class TKind, class TBase>
class TKxPicker : public TBase {
public:
    using TValue = typename TKind::TValue;
    explicit TKxPicker(TComponent* Owner);

    /// Without a chosen item the first one.
    TValue GetValue() const { return TKind::ValueAt(this->GetItemIndex()); }
    /// Values that are not offered count as the nearest one.
    void SetValue(TValue Value);
    TColor GetSampleColor() const { return FLook.Color; }
    void SetSampleColor(TColor Color);
    /// Pixels; of the pen that lines and symbols are drawn with.
    int GetSampleWidth() const { return FLook.Width; }
    void SetSampleWidth(int Width);
    /// Pixels from the centre of a symbol to its edge.
    int GetSampleSize() const { return FLook.Size; }
    void SetSampleSize(int Size);

    /// Value has changed, by the user or the program.
    TNotifyEvent OnChange;

    int ItemCount() const override { return TKind::CCount; }
    std::string ItemText(int Index) const override { return TKind::NameAt(Index); }
    void DrawItem(TCanvas& Canvas, int Index, const TRect& Rect, TDrawState State) override;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return this->template IsBeyond<TKxPicker>(); }
    void Select(int Index) override;

private:
    TKxSampleLook FLook;
};

using TKxBrushStyleList = TKxPicker<TKxBrushStyles, TCustomListBox>;
using TKxBrushStyleCombo = TKxPicker<TKxBrushStyles, TCustomComboBox>;
using TKxLineStyleList = TKxPicker<TKxLineStyles, TCustomListBox>;
using TKxLineStyleCombo = TKxPicker<TKxLineStyles, TCustomComboBox>;
using TKxLineWidthList = TKxPicker<TKxLineWidths, TCustomListBox>;
using TKxLineWidthCombo = TKxPicker<TKxLineWidths, TCustomComboBox>;
using TKxPointSymbolList = TKxPicker<TKxPointSymbols, TCustomListBox>;
using TKxPointSymbolCombo = TKxPicker<TKxPointSymbols, TCustomComboBox>;

extern template class TKxPicker<TKxBrushStyles, TCustomListBox>;
extern template class TKxPicker<TKxBrushStyles, TCustomComboBox>;
extern template class TKxPicker<TKxLineStyles, TCustomListBox>;
extern template class TKxPicker<TKxLineStyles, TCustomComboBox>;
extern template class TKxPicker<TKxLineWidths, TCustomListBox>;
extern template class TKxPicker<TKxLineWidths, TCustomComboBox>;
extern template class TKxPicker<TKxPointSymbols, TCustomListBox>;
extern template class TKxPicker<TKxPointSymbols, TCustomComboBox>;

} // namespace kx
