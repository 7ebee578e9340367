#pragma once
// A caption edit with its tool bar, as a widget: for a line of the inspector, or over the form.

#include <kxgraph/editing/Kxcaptionbar.h>
#include <kxgraph/editing/Kxcaptionedit.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/qtwidgets/Kxformview.h>

#include <QRect>

#include <functional>
#include <string>

namespace kxdesign {

class TCaptionField : public kx::qt::FormView {
public:
    explicit TCaptionField(QWidget* Parent);
    ~TCaptionField() override;

    /// All of it is selected.
    void SetCaption(const std::string& Caption);
    /// As it was set, until it was edited.
    std::string GetCaption() const { return FEdit.GetCaption(); }
    void SetTextFont(const kx::TFont& Font);
    /// How large the edit is, without the bar.
    kx::TSize WantedSize() const;
    /// Puts the edit over Place, a rectangle of the parent, with the bar below it, or above it where Room has
    /// none left there.
    void PlaceOver(const QRect& Place, const QRect& Room);
    kx::TKxCaptionEdit& GetEdit() { return FEdit; }

    /// Return, or the focus goes elsewhere: the caption is to be taken. Escape: it is not.
    std::function<void(bool Takes)> OnFinish;

protected:
    bool event(QEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;
    void focusOutEvent(QFocusEvent* Event) override;

private:
    kx::TForm FForm{nullptr};
    kx::TKxCaptionEdit FEdit{&FForm};
    kx::TKxCaptionBar FBar{&FForm};
};

} // namespace kxdesign
