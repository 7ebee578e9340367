#include <kxgraph/platform/widgets/combobox.h>

#include <kxgraph/platform/objects/textlists.h>
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
        FList.SetItemIndex(Combo.GetItemIndex());
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

TCustomComboBox::TCustomComboBox(TComponent* Owner) : TCustomChoice(Owner) {}

TCustomComboBox::~TCustomComboBox() = default;

void TCustomComboBox::SetDropDownCount(int Count) { FDropDownCount = std::max(Count, 1); }

void TCustomComboBox::ItemsChanged() {
    CloseUp(false);
    TCustomChoice::ItemsChanged();
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
    if (TCustomChoice::KeyDown(Stroke)) return true;
    if (!self || !IsOperable() || (Stroke.Shift & ssCtrl)) return false;
    const bool alt = (Stroke.Shift & ssAlt) != 0, arrow = Stroke.Key == kcDown || Stroke.Key == kcUp;
    if (Stroke.Key == kcF1 + 3 || Stroke.Key == kcSpace || (alt && arrow)) return DropDown(), true;
    return !alt && ChooseByKey(Stroke, FDropDownCount);
}

void TCustomComboBox::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    const TComponentRef<TCustomComboBox> self(this);
    TCustomChoice::MouseDown(Button, Shift, X, Y);
    if (self && Button == mbLeft && !IsDragging()) FDrop ? CloseUp(false) : DropDown();
}

bool TCustomComboBox::MouseWheel(const TWheelTurn& Turn, TShiftState Shift, int X, int Y) {
    if (TCustomChoice::MouseWheel(Turn, Shift, X, Y)) return true;
    if (!HasKeys() || !IsOperable() || ItemCount() == 0) return false; // others scroll past it
    if (const int steps = WheelSteps(Turn, 1)) Choose(StepFrom(ItemOrNone(), steps));
    return true;
}

void TCustomComboBox::CMEnabledChanged() {
    if (!GetEnabled()) CloseUp(false);
    TCustomChoice::CMEnabledChanged();
}

void TCustomComboBox::CMVisibleChanged() {
    if (!GetVisible()) CloseUp(false);
    TCustomChoice::CMVisibleChanged();
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
        DrawItem(canvas, GetItemIndex(), GetItemRect(), state | odComboEdit);
        canvas.Font.Assign(GetFont());
    }
    const TRect all = GetClientRect();
    PaintArrow(canvas, {all.Right - CFieldButton, all.Top, all.Right - 2, all.Bottom}, TArrow::Down, state);
}

TAccessiblePart TCustomComboBox::Accessible() const {
    TAccessiblePart part = TCustomChoice::Accessible();
    part.Role = TAccessibleRole::ComboBox;
    if (HasItem()) part.Value = ItemText(GetItemIndex());
    part.Editable = true;
    return part;
}

const TPropertyTable& TCustomComboBox::Properties() {
    using C = TCustomComboBox;
    static const TPropertyTable table(
        "TCustomComboBox", &TCustomChoice::Properties(),
        {Published<&C::GetDropDownCount, &C::SetDropDownCount>("DropDownCount", 8,
                                                               "Most items that the list shows at once"),
         PublishedEvent<&C::OnDropDown>("OnDropDown", "The list is about to drop down")});
    return table;
}

const TPropertyTable& TComboBox::Properties() {
    using C = TComboBox;
    static const TPropertyTable table(
        "TComboBox", &TCustomComboBox::Properties(),
        {PublishedTexts<&C::GetLines, &C::SetLines>(CLinesType, "Items", "The items, a line each")});
    return table;
}

} // namespace kx
