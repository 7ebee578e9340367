#pragma once
// A caption that is edited on the form, over what shows it.

#include "kxdesign/captionfield.h"

#include <kxgraph/design/Kxdesigndocument.h>

#include <string>

namespace kxdesign {

/// The field is a child of the widget that shows the form. The document must outlive this, which the widget
/// owns.
class TInplaceCaption : public QObject, private kx::TKxDesignObserver {
public:
    TInplaceCaption(kx::TKxDesignDocument& Document, QWidget& View);
    ~TInplaceCaption() override;

    /// False where that property is no caption that shows on the form.
    bool Begin(kx::TComponent& Component, const std::string& Property);
    /// Takes what was edited, as one step, or leaves the caption as it was.
    void Finish(bool Takes);
    /// Null while nothing is edited.
    TCaptionField* GetField() const { return FIsOpen ? &FField : nullptr; }

private:
    void FormReplaced() override { Finish(false); }
    void FormChanged() override { Finish(false); }

    kx::TKxDesignDocument& FDocument;
    TCaptionField& FField;
    kx::TComponentRef<kx::TComponent> FComponent;
    std::string FProperty;
    bool FIsOpen = false;
};

} // namespace kxdesign
