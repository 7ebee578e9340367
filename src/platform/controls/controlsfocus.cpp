// The focus: which control of a window the keys go to.

#include <kxgraph/platform/controls/controlsmouse.h>

#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <vector>

namespace kx {

namespace {

/// Adds the controls of the tree under Root that Tab stops at, in its order.
void AddStops(const TWinControl& Root, std::vector<TWinControl*>& Stops) {
    std::vector<TWinControl*> children;
    for (TControl* child : Root.GetControls())
        if (auto* windowed = dynamic_cast<TWinControl*>(child)) children.push_back(windowed);
    std::ranges::stable_sort(children, {}, &TWinControl::GetTabOrder);
    for (TWinControl* child : children) {
        if (!child->GetVisible() || !child->GetEnabled()) continue;
        if (child->GetTabStop()) Stops.push_back(child);
        AddStops(*child, Stops);
    }
}

/// Adds the visible and enabled controls of the tree, every one after its children.
void AddUsable(TWinControl& Root, std::vector<TComponentRef<TWinControl>>& Usable) {
    if (!Root.GetVisible() || !Root.GetEnabled()) return;
    for (TControl* child : Root.GetControls())
        if (auto* windowed = dynamic_cast<TWinControl*>(child)) AddUsable(*windowed, Usable);
    Usable.emplace_back(&Root);
}

bool AsksForMenu(const TKeyStroke& Stroke) {
    return Stroke.Key == kcMenu || (Stroke.Key == kcF1 + 9 && (Stroke.Shift & ssShift));
}

} // namespace

bool TWinControl::CanFocus() const {
    for (const TWinControl* control = this; control; control = control->GetParent())
        if (!control->GetVisible() || !control->GetEnabled()) return false;
    return true;
}

void TWinControl::SetFocus() {
    if (CanFocus()) Topmost()->MoveFocus(this);
}

bool TWinControl::IsFocused() const { return Topmost()->FFocused == this; }

/// Moves the focus of this topmost control; handlers may move it on, or destroy what gets it.
void TWinControl::MoveFocus(TWinControl* Control) {
    if (Control == FFocused) return;
    TDispatch left(*this, FFocused), entered(*this, Control);
    if (THostWindow* window = GetHostWindow()) window->EndComposition();
    if (!entered.Root || (Control && !entered.Target)) return;
    FFocused = Control;
    left.Call([](TControl& T) { static_cast<TWinControl&>(T).Exit(); });
    if (entered.Root && FFocused == entered.Target)
        entered.Call([](TControl& T) { static_cast<TWinControl&>(T).Enter(); });
    if (entered.Root) TextInputChanged();
}

/// Asks the controls of this topmost one's tree from the bottom to the top, itself last.
bool TWinControl::AskDialogKey(const TKeyStroke& Stroke) {
    std::vector<TComponentRef<TWinControl>> asked;
    AddUsable(*this, asked);
    bool taken = false;
    for (const auto& control : asked) {
        if (control) Guarded([&] { taken = control->DialogKey(Stroke); });
        if (taken) break;
    }
    return taken;
}

/// A press of the left button on Control gives the focus to the nearest one that takes it.
void TWinControl::FocusByPress(TControl& Control) {
    for (TControl* control = &Control; control; control = control->GetParent())
        if (auto* windowed = dynamic_cast<TWinControl*>(control); windowed && windowed->FTabStop)
            return windowed->SetFocus();
}

bool TWinControl::FocusNext(bool Forward) {
    TWinControl& root = *Topmost();
    std::vector<TWinControl*> stops;
    AddStops(root, stops);
    if (stops.empty()) return false;
    const auto count = stops.size();
    const auto at = static_cast<std::size_t>(std::ranges::find(stops, root.FFocused) - stops.begin());
    const bool comesIn = at == count, isLast = !comesIn && at == (Forward ? count - 1 : 0);
    const THostWindow* window = root.GetHostWindow();
    if (isLast && window && !window->KeepsTab()) {
        root.MoveFocus(nullptr);
        return false;
    }
    if (comesIn)
        stops[Forward ? 0 : count - 1]->SetFocus();
    else
        stops[(at + (Forward ? 1 : count - 1)) % count]->SetFocus();
    return true;
}

/// Ends what mouse and keys have with Control, a child, or inside it, which can be used no more.
void TWinControl::ReleaseInput(const TControl& Control) {
    ReleaseMouse(Control);
    TWinControl& root = *Topmost();
    if (IsWithin(root.FFocused, Control)) root.MoveFocus(nullptr);
}

bool TWinControl::DispatchKey(const TKeyStroke& Stroke, bool Down) {
    TWinControl& root = *Topmost();
    if (!root.GetEnabled()) return false;
    TDispatch dispatch(root, root.FFocused ? root.FFocused : &root);
    bool taken = false;
    while (dispatch.Target && !taken) {
        dispatch.Call([&](TControl& T) {
            auto& control = static_cast<TWinControl&>(T);
            taken = Down ? control.KeyDown(Stroke) : control.KeyUp(Stroke);
        });
        if (dispatch.Target && !taken) dispatch.Target = dispatch.Target->GetParent();
    }
    if (taken || !Down || !dispatch.Root) return taken;
    if (AsksForMenu(Stroke)) {
        TDispatch focused(root, root.FFocused ? root.FFocused : &root);
        focused.Call([&](TControl& T) { taken = T.PopUpMenuAt({T.GetWidth() / 2, T.GetHeight() / 2}); });
        if (taken || !focused.Root) return taken;
    }
    if (Stroke.Key == kcTab && !(Stroke.Shift & (ssCtrl | ssAlt)))
        return root.FocusNext(!(Stroke.Shift & ssShift));
    return root.AskDialogKey(Stroke);
}

bool TWinControl::DispatchComposition(const TComposition& Composition) {
    TWinControl& root = *Topmost();
    if (!root.GetEnabled() || !root.FFocused) return false;
    TDispatch dispatch(root, root.FFocused);
    bool taken = false;
    dispatch.Call([&](TControl& T) { taken = static_cast<TWinControl&>(T).Compose(Composition); });
    return taken;
}

bool TWinControl::Compose(const TComposition& Composition) {
    return !Composition.Commit.empty() && KeyDown({.Key = kcNone, .Text = Composition.Commit});
}

THostTextInput TWinControl::FocusedTextInput() const {
    const TWinControl* focused = Topmost()->FFocused;
    if (!focused) return {};
    THostTextInput input = focused->TextInput();
    const TPoint place = focused->ClientToRoot({input.Left, input.Top});
    input.Left = place.X;
    input.Top = place.Y;
    return input;
}

void TWinControl::TextInputChanged() const {
    if (THostWindow* window = IsFocused() || !GetParent() ? GetHostWindow() : nullptr)
        window->TextInputChanged();
}

void TWinControl::Enter() {
    Invalidate();
    OnEnter(this);
}

void TWinControl::Exit() {
    Invalidate();
    OnExit(this);
}

bool TWinControl::KeyDown(const TKeyStroke& Stroke) {
    bool taken = static_cast<bool>(OnKeyDown);
    OnKeyDown(this, Stroke, taken);
    return taken;
}

bool TWinControl::KeyUp(const TKeyStroke& Stroke) {
    bool taken = static_cast<bool>(OnKeyUp);
    OnKeyUp(this, Stroke, taken);
    return taken;
}

const TPropertyTable& TWinControl::PublishedProperties() const { return Properties(); }

const TPropertyTable& TWinControl::Properties() {
    using C = TWinControl;
    static const TPropertyTable table(
        "TWinControl", &TControl::Properties(),
        {Published<&C::GetTabStop, &C::SetTabStop>("TabStop", false,
                                                   "Whether Tab and a press give it the keys"),
         Published<&C::GetTabOrder, &C::SetTabOrder>("TabOrder", 0,
                                                     "Place among those that Tab goes through"),
         PublishedEvent<&C::OnEnter>("OnEnter", "The control takes the keys"),
         PublishedEvent<&C::OnExit>("OnExit", "The control takes the keys no more"),
         PublishedEvent<&C::OnKeyDown>("OnKeyDown", "A key was pressed"),
         PublishedEvent<&C::OnKeyUp>("OnKeyUp", "A key was released")});
    return table;
}

} // namespace kx
