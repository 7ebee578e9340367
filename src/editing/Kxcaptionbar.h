#pragma once
// The tool bar of a caption edit: a button for each look, by mouse; the keys stay with the edit.

#include <kxgraph/editing/Kxcaptionedit.h>
#include <kxgraph/platform/controls/controls.h>

#include <memory>
#include <vector>

namespace kx {

/// Seven square buttons in a row. They show what is on in the edit that the bar belongs to, and switch it.
class TKxCaptionBar : public TCustomControl {
public:
    explicit TKxCaptionBar(TComponent* Owner);
    ~TKxCaptionBar() override;

    /// Null: the buttons are without effect. Not owned.
    TKxCaptionEdit* GetEdit() const { return FEdit; }
    void SetEdit(TKxCaptionEdit* Edit);
    /// Whether there is an edit whose looks can be switched.
    bool CanSwitch() const;
    /// The place of a button, in the bar's pixels.
    TRect ButtonRect(TKxCaptionSwitch Which) const;

    /// The buttons are as wide as the bar is high.
    void SetBounds(int Left, int Top, int Width, int Height) override;
    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxCaptionBar>(); }
    void Notification(TComponent* Component, TOperation Operation) override;
    void Paint() override;
    bool IsOpaque() const override { return true; }

private:
    class TButton;
    TKxCaptionEdit* FEdit = nullptr;
    std::vector<std::unique_ptr<TButton>> FButtons; // parts, no components of a form
};

} // namespace kx
