#include <kxgraph/platform/widgets/popupform.h>

#include <utility>

namespace kx {

bool TPopupForm::Popup(const TControl& Beside, TSize Size) {
    const TWinControl* parent = Beside.GetParent();
    THostWindow* window = parent ? parent->GetHostWindow() : nullptr;
    if (!window) return false;
    const TRect place = Beside.GetClientRect().MovedBy(Beside.ClientToRoot({}));
    auto popup = window->OpenPopup(AsHostClient(), place);
    if (!popup) return false;
    ShowIn(nullptr);
    SetBounds(0, 0, Size.Width, Size.Height);
    popup->SetBounds(GetBoundsRect());
    ShowIn(std::move(popup));
    return true;
}

void TPopupForm::CloseUp() {
    if (!IsShown()) return;
    const TComponentRef<TPopupForm> self(this);
    AsHostClient().HostClosed();
    if (self) ShowIn(nullptr);
}

bool TPopupForm::DialogKey(const TKeyStroke& Stroke) {
    if (Stroke.Key != kcEscape) return TForm::DialogKey(Stroke);
    CloseUp();
    return true;
}

} // namespace kx
