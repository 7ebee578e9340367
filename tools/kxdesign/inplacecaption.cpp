#include "kxdesign/inplacecaption.h"

#include "kxdesign/guarded.h"

#include <kxgraph/design/Kxcaptionplace.h>
#include <kxgraph/design/Kxinspector.h>

#include <array>
#include <utility>

namespace kxdesign {

using namespace kx;

TInplaceCaption::TInplaceCaption(TKxDesignDocument& Document, QWidget& View)
    : QObject(&View), FDocument(Document), FField(*new TCaptionField(&View)) {
    FField.hide();
    FField.OnFinish = [this](bool Takes) { Finish(Takes); };
    FDocument.AddObserver(this);
}

TInplaceCaption::~TInplaceCaption() { FDocument.RemoveObserver(this); }

bool TInplaceCaption::Begin(TComponent& Component, const std::string& Property) {
    Finish(true);
    const auto place = CaptionPlaceOf(Component, Property);
    if (!place) return false;
    const TProperty& row = *Component.PublishedProperties().Find(Property);
    FField.SetTextFont(*place->Font);
    FField.SetCaption(std::get<std::string>(row.Get(Component)));
    const QRect room = FField.parentWidget()->rect();
    const TRect rect =
        CaptionFieldRect(place->Shown, FField.WantedSize(), {0, 0, room.width(), room.height()});
    FField.PlaceOver({rect.Left, rect.Top, rect.Width(), rect.Height()}, room);
    FComponent = &Component;
    FProperty = Property;
    FIsOpen = true;
    FField.show();
    FField.raise();
    FField.setFocus();
    return true;
}

void TInplaceCaption::Finish(bool Takes) {
    if (!std::exchange(FIsOpen, false)) return;
    const bool hadFocus = FField.hasFocus();
    FField.hide();
    if (hadFocus) FField.parentWidget()->setFocus();
    TComponent* component = FComponent.Get();
    if (!Takes || !component) return;
    Try(FField.parentWidget(), [&] {
        TKxInspector inspector(FDocument);
        inspector.Select(FDocument.GetForm(), std::array<TComponent*, 1>{component});
        const std::string caption = FField.GetCaption();
        if (inspector.Find(FProperty)->Text != caption) inspector.SetText(FProperty, caption);
    });
}

} // namespace kxdesign
