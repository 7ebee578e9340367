#pragma once
// What fields for text have in common, plain or with looks: one line behind a caret, scrolled where it is
// longer than the field.

#include <kxgraph/platform/widgets/caret.h>
#include <kxgraph/platform/widgets/inputcontrol.h>

#include <string>

namespace kx {

class TTextField : public TInputControl {
public:
    explicit TTextField(TComponent* Owner);

    /// Whether the text is only looked at, selected and copied.
    bool GetReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool ReadOnly);
    /// Where a text stands that does not fill the field.
    TAlignment GetAlignment() const { return FAlignment; }
    void SetAlignment(TAlignment Alignment);

    /// After every change of the text, by whomever.
    TNotifyEvent OnChange;

    void SetBounds(int Left, int Top, int Width, int Height) override;
    TAccessiblePart Accessible() const override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    /// Whether the user may change the text now.
    bool CanChange() const { return !FReadOnly && IsOperable(); }
    /// The characters that are edited, and where in them caret and anchor of the selection are.
    struct TEdited {
        std::string Text;
        int Caret = 0, Anchor = 0;
    };
    virtual TEdited GetEdited() const = 0;
    /// The part of the field that shows text.
    virtual TRect GetTextRect() const;
    /// What is shown has another look or place: brings the caret into sight (ScrollTo) and puts it there.
    virtual void ShowCaret() = 0;
    /// Brings Caret, pixels from the left of a text of Width, into sight, and leaves no room at the right of
    /// a text that has more at the left.
    void ScrollTo(int Caret, int Width);
    /// The left end of a text of Width, with what has been scrolled away.
    int TextLeft(int Width) const;
    THostTextInput TextInput() const override;
    void CMFontChanged() override;
    void CMActiveChanged() override;
    void Enter() override;

    TCaret FCaret{*this};

private:
    TAlignment FAlignment = taLeftJustify;
    int FScroll = 0; // pixels of the text to the left of the field
    bool FReadOnly = false;
};

} // namespace kx
