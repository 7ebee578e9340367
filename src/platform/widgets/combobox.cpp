#include <kxgraph/platform/widgets/combobox.h>

#include <kxgraph/platform/objects/published.h>
#include <kxgraph/platform/widgets/listbox.h>
#include <kxgraph/platform/widgets/popupform.h>

#include <algorithm>
#include <utility>

namespace kx {

/// The list in its popup; its items are the combo's.
class TCustomComboBox::TDrop {
public:
    explicit TDrop(TCustomComboBox& Combo) : FList(Combo) {
        FList.SetParent(&FForm);
        FList.SetAlign(alClient);
        FList.SetFont(Combo.GetFont());
        FList.SetColor(Combo.GetColor());
        FList.SetItemHeight(Combo.GetItemHeight());
        FForm.OnClose = [&Combo](TControl*) { Combo.CloseUp(false); };
    }
    bool Open(TCustomComboBox& Combo) {
        const int rows = std::min(Combo.ItemCount(), Combo.FDropDownCount);
        const int width = std::max(Combo.GetWidth(), Combo.DropWidth());
        if (!FForm.Popup(Combo, {width, rows * FList.RowHeight() + 2})) return false;
        FList.SetItemIndex(Combo.FItemIndex);
        FList.ItemsChanged();
        FList.SetFocus();
        return true;
    }
    void Close() {
        FForm.OnClose = nullptr;
        FForm.CloseUp();
    }
    int Marked() const { return FList.HasItem() ? FList.GetItemIndex() : -1; }

private:
    class TList : public TCustomListBox {
    public:
        explicit TList(TCustomComboBox& Combo) : TCustomListBox(nullptr), FCombo(Combo) {}
        int ItemCount() const override { return FCombo.ItemCount(); }
        std::string ItemText(int Index) const override { return FCombo.ItemText(Index); }
        bool ItemEnabled(int Index) const override { return FCombo.ItemEnabled(Index); }
        void DrawItem(TCanvas& Canvas, int Index, const TRect& Rect, TDrawState State) override {
            FCombo.DrawItem(Canvas, Index, Rect, State);
        }

    protected:
        bool FollowsMouse() const override { return true; }
        bool KeyDown(const TKeyStroke& Stroke) override {
            const bool alt = (Stroke.Shift & ssAlt) != 0;
            const bool takes = Stroke.Key == kcReturn || Stroke.Key == kcSpace || Stroke.Key == kcTab ||
                               (alt && (Stroke.Key == kcUp || Stroke.Key == kcDown));
            if (!takes && Stroke.Key != kcF1 + 3) return TCustomListBox::KeyDown(Stroke);
            FCombo.CloseUp(takes);
            return true;
        }
        void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) override {
            const bool takes = Button == mbLeft && ItemAt({X, Y}) >= 0 && ItemAt({X, Y}) == GetItemIndex();
            TCustomListBox::MouseUp(Button, Shift, X, Y);
            if (takes) FCombo.CloseUp(true);
        }

    private:
        TCustomComboBox& FCombo;
    };

    TPopupForm FForm{nullptr};
    TList FList;
};

TCustomComboBox::TCustomComboBox(TComponent* Owner) : TInputControl(Owner) {}

TCustomComboBox::~TCustomComboBox() = default;

void TCustomComboBox::SetItemIndex(int Index) {
    FItemIndex = std::max(Index, -1);
    Invalidate();
}

void TCustomComboBox::SetDropDownCount(int Count) { FDropDownCount = std::max(Count, 1); }

void TCustomComboBox::SetItemHeight(int Height) { FItemHeight = std::clamp(Height, 0, CMostLength); }

void TCustomComboBox::ItemsChanged() {
    CloseUp(false);
    FPrefix.Clear();
    Invalidate();
}

void TCustomComboBox::Select(int Index) {
    SetItemIndex(Index);
    OnSelect(this);
}

void TCustomComboBox::Choose(int Index) {
    if (Index >= 0 && Index < ItemCount() && Index != FItemIndex && ItemEnabled(Index)) Select(Index);
}

void TCustomComboBox::DropDown() {
    if (FDrop || !IsOperable()) return;
    const TComponentRef<TCustomComboBox> self(this);
    OnDropDown(this);
    if (!self || ItemCount() == 0) return;
    SetMouseCapture(false); // the list's from now on
    auto drop = std::make_unique<TDrop>(*this);
    if (drop->Open(*this)) FDrop = std::move(drop);
    Invalidate();
}

void TCustomComboBox::CloseUp(bool Takes) {
    const std::unique_ptr<TDrop> drop = std::move(FDrop);
    if (!drop) return;
    drop->Close();
    Invalidate();
    if (Takes) Choose(drop->Marked());
}

bool TCustomComboBox::KeyDown(const TKeyStroke& Stroke) {
    const TComponentRef<TCustomComboBox> self(this);
    if (TInputControl::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || (Stroke.Shift & ssCtrl)) return false;
    const bool alt = (Stroke.Shift & ssAlt) != 0, arrow = Stroke.Key == kcDown || Stroke.Key == kcUp;
    if (Stroke.Key == kcF1 + 3 || Stroke.Key == kcSpace || (alt && arrow)) return DropDown(), true;
    if (alt || ItemCount() == 0) return false;
    const int at = HasItem() ? FItemIndex : -1;
    if (const int target = KeyTarget(Stroke.Key, at, FDropDownCount); target >= 0)
        return Choose(target), true;
    if (Stroke.Text.empty()) return false;
    Choose(TypedTarget(FPrefix, Stroke.Text, at));
    return true;
}

void TCustomComboBox::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomComboBox> self(this);
    TInputControl::MouseDown(Button, Shift, X, Y);
    if (self && Button == mbLeft && !IsDragging()) FDrop ? CloseUp(false) : DropDown();
}

bool TCustomComboBox::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TInputControl::MouseWheel(Turn, Shift, X, Y)) return true;
    if (!HasKeys() || !IsOperable() || ItemCount() == 0) return false; // others scroll past it
    if (const int steps = FWheel.Take(Turn, 1)) Choose(StepFrom(HasItem() ? FItemIndex : -1, steps));
    return true;
}

void TCustomComboBox::CMEnabledChanged() {
    if (!GetEnabled()) CloseUp(false);
    TInputControl::CMEnabledChanged();
}

void TCustomComboBox::CMVisibleChanged() {
    if (!GetVisible()) CloseUp(false);
    TInputControl::CMVisibleChanged();
}

TRect TCustomComboBox::GetItemRect() const {
    const TRect all = GetClientRect();
    return {all.Left + 1, all.Top + 2, all.Right - CFieldButton, all.Bottom - 2};
}

void TCustomComboBox::Paint() {
    TCanvas& canvas = GetCanvas();
    const TDrawState state = GetDrawState() | (FDrop ? odFocused : 0u);
    PaintField(canvas, GetClientRect(), GetColor(), state);
    if (HasItem()) {
        const TCanvas::TSaved saved(canvas);
        canvas.SetClip(GetItemRect().Intersected(canvas.GetClipRect()));
        canvas.Font.SetColor(TextColorFor(GetFont(), state));
        DrawItem(canvas, FItemIndex, GetItemRect(), state | odComboEdit);
        canvas.Font.Assign(GetFont());
    }
    const TRect all = GetClientRect();
    PaintArrow(canvas, {all.Right - CFieldButton, all.Top, all.Right - 2, all.Bottom}, TArrow::Down, state);
}

TAccessiblePart TCustomComboBox::Accessible() const {
    TAccessiblePart part = TInputControl::Accessible();
    part.Role = TAccessibleRole::ComboBox;
    if (HasItem()) part.Value = ItemText(FItemIndex);
    part.Editable = true;
    return part;
}

const TPropertyTable& TCustomComboBox::Properties() {
    using C = TCustomComboBox;
    static const TPropertyTable table(
        "TCustomComboBox", &TInputControl::Properties(),
        {Published<&C::GetItemIndex, &C::SetItemIndex>("ItemIndex", -1, "The chosen item; -1: none"),
         Published<&C::GetDropDownCount, &C::SetDropDownCount>("DropDownCount", 8,
                                                               "Most items that the list shows at once"),
         Published<&C::GetItemHeight, &C::SetItemHeight>("ItemHeight", 0,
                                                         "Height of an item, pixels; 0: that of its text"),
         PublishedEvent<&C::OnSelect>("OnSelect", "The user has chosen another item"),
         PublishedEvent<&C::OnDropDown>("OnDropDown", "The list is about to drop down")});
    return table;
}

void TComboBox::SetItems(std::vector<std::string> Items) {
    FItems = std::move(Items);
    ItemsChanged();
}

const TPropertyTable& TComboBox::Properties() {
    using C = TComboBox;
    static const TPropertyTable table(
        "TComboBox", &TCustomComboBox::Properties(),
        {Published<&C::GetLines, &C::SetLines>("Items", "", "The items, a line each")});
    return table;
}

} // namespace kx
