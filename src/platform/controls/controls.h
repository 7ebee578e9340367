#pragma once
// Controls: painted as a part of their parent, or with children, focus and keys of their own.

#include <kxgraph/platform/controls/control.h>

#include <string>
#include <vector>

namespace kx {

class TReader;
class TWriter;

/// A control that is painted as a part of its parent, before the parent's windowed children.
class TGraphicControl : public TControl {
public:
    explicit TGraphicControl(TComponent* Owner);
    /// Attached to a device while painting; at other times it measures on the screen and draws nothing.
    TCanvas& GetCanvas() { return *FCanvas; }

protected:
    virtual void Paint() {}
    void PaintOn(TCanvas& Canvas) override;

private:
    TCanvas FOwnCanvas;
    TCanvas* FCanvas = &FOwnCanvas;
};

/// A control with children.
class TWinControl : public TControl {
public:
    explicit TWinControl(TComponent* Owner);
    ~TWinControl() override;

    int GetControlCount() const { return static_cast<int>(FControls.GetCount()); }
    TControl* GetControl(int Index) const;
    /// Children from the bottom to the top, windowed ones above all graphic ones.
    const TOrder<TControl>& GetControls() const { return FControls; }
    /// Whether Control is this one or lies in its tree.
    bool ContainsControl(const TControl* Control) const;
    /// Whether a visible child paints all of Rect (this control's pixels) over, so that nothing need be
    /// painted there.
    bool IsCovered(const TRect& Rect) const;
    /// The topmost visible child at Pos (this control's pixels) that is enabled; null when there is none.
    TControl* ControlAt(TPoint Pos) const;

    /// Gives a mouse event at Pos (this control's pixels) to the control it belongs to: the one that captured
    /// the mouse, else the deepest at Pos, else this one. A press captures the mouse until the release; a
    /// release of the left button over the pressed control is a click, called before the release. A press
    /// with ssDouble is a double click, called before the press; its release is no second click. A drag takes
    /// all events. Handlers may destroy controls, this one too; their exceptions go to the application.
    void DispatchMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos);
    /// Gives a turn of the wheel to the deepest control at Pos, then to its parents, until one takes it;
    /// answers whether one did.
    bool DispatchWheel(const TWheelTurn& Turn, TShiftState Shift, TPoint Pos);
    /// The mouse has left this topmost control.
    void DispatchMouseLeft();
    /// Gives a stroke to the control that has the focus, then to its parents, until one takes it; answers
    /// whether one did. Where nobody takes it, Tab, with or without Shift, moves the focus, and the menu key
    /// or Shift+F10 pops up the menu.
    bool DispatchKey(const TKeyStroke& Stroke, bool Down);

    /// Gives what an input method composes to the control that has the focus; answers whether it took it.
    bool DispatchComposition(const TComposition& Composition);
    /// What the control that has the focus tells input methods, in pixels of this topmost control.
    THostTextInput FocusedTextInput() const;

    /// Whether Tab and a press of the left button give the focus to this control.
    bool GetTabStop() const { return FTabStop; }
    void SetTabStop(bool TabStop) { FTabStop = TabStop; }
    /// Place among the siblings that Tab goes through, the lowest first; equal ones in the order of the
    /// parent's children. Default 0.
    int GetTabOrder() const { return FTabOrder; }
    void SetTabOrder(int Order) { FTabOrder = Order; }
    /// Whether the control and all its parents are visible and enabled.
    bool CanFocus() const;
    /// Takes the focus of its window; does nothing where it cannot have it.
    void SetFocus();
    bool IsFocused() const;
    /// Whether the keys come here: the control is focused in a window that takes them.
    bool HasKeys() const { return IsFocused() && WindowTakesKeys(); }
    /// Moves the focus of this topmost control to the next, or the one before, in the order of Tab. In a
    /// window that does not keep Tab there is none behind the last one: the focus goes. Answers whether any
    /// control has it.
    bool FocusNext(bool Forward);
    /// The hint for a place of this topmost control: that of the deepest control there that shows one.
    THostHint HintAt(TPoint Pos);
    TAccessiblePart Accessible() const override;
    /// The control of this tree that has the focus; null when none has.
    TWinControl* GetFocused() const { return FFocused; }

    /// The control got the focus, and lost it.
    TNotifyEvent OnEnter, OnExit;
    TKeyEvent OnKeyDown, OnKeyUp;
    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();
    /// Places the children that have an Align other than alNone, in order of top, bottom, left, right,
    /// client.
    void AlignControls();

    void SetBounds(int Left, int Top, int Width, int Height) override;

    /// The window that shows this control's tree; null when it is in none. Only forms have one of their own.
    virtual THostWindow* GetHostWindow() const;

protected:
    friend class TControl;
    friend class TForm;
    friend void PaintTree(TWinControl&, TCanvasDevice&, const TRect&);
    void CMFontChanged() override;
    void CMColorChanged() override;
    void CMShowHintChanged() override;
    /// A child entered, left, moved or changed its visibility. One that left may be in its destructor.
    virtual void ControlsChanged(TControl* Child);
    /// Whether the children are painted after this control; false where it has painted a picture of them.
    virtual bool PaintsChildren() const { return true; }
    void Loaded() override;
    /// "ControlOrder": the names of the children from the bottom to the top, where that is not the order of
    /// the components.
    void DefineProperties(TFiler& Filer) override;
    /// The focus came and went; overrides call the inherited ones, which call the events.
    virtual void Enter();
    virtual void Exit();
    /// Whether the control took the stroke.
    virtual bool KeyDown(const TKeyStroke& Stroke);
    virtual bool KeyUp(const TKeyStroke& Stroke);
    /// A stroke that nobody took on the way up from the focus: every control that is visible and enabled is
    /// asked, until one takes it. For the keys of default buttons and of captions.
    virtual bool DialogKey(const TKeyStroke&) { return false; }
    /// An input method composes; whether the control took it. Here a text that is committed is typed.
    virtual bool Compose(const TComposition& Composition);
    /// What input methods are told while the control has the focus, in its pixels.
    virtual THostTextInput TextInput() const { return {}; }
    /// To be called after a change of what TextInput answers.
    void TextInputChanged() const;
    /// The control has the focus, and its window takes the keys from now on, or takes them no more.
    virtual void CMActiveChanged() { Invalidate(); }
    virtual bool WindowTakesKeys() const { return GetParent() && GetParent()->WindowTakesKeys(); }

private:
    void InsertControl(TControl* Control);
    void RemoveControl(TControl* Control);
    void Restack(TControl* Control, bool ToFront);
    void Stack(TControl* Control, bool ToFront);
    void Unstack(TControl* Control);
    TControl* MouseTarget(TPoint& Pos);
    TControl* DeepestAt(TPoint& Pos);
    void HoverOver(TControl* Control);
    void MoveFocus(TWinControl* Control);
    void FocusByPress(TControl& Control);
    bool AskDialogKey(const TKeyStroke& Stroke);
    void ReleaseMouse(const TControl& Control);
    void ReleaseInput(const TControl& Control);
    void ForgetMouse(const TControl& Control);
    void StartDrag(TControl& Source);
    bool DragMouse(TMouseKind Kind, TMouseButton Button, TShiftState Shift, TPoint Pos);
    TControl* DragTarget(TPoint Pos);
    void DragTo(TPoint Pos);
    void DropAt(TPoint Pos);
    void StopDrag();
    void ForgetDrag(const TControl& Control);

    bool IsRestacked() const;
    void ReadControlOrder(TReader& Reader);
    void WriteControlOrder(TWriter& Writer) const;

    struct TDispatch;
    TOrder<TControl> FControls;
    std::vector<std::string> FReadOrder; // while loading
    std::size_t FGraphics = 0;           // come first among them
    int FAligned = 0;                    // of them are not alNone
    // In the topmost parent:
    TControl* FCaptured = nullptr;
    TControl* FPressed = nullptr;
    TControl* FHovered = nullptr;
    TWinControl* FFocused = nullptr;
    TDragging FDragging;
    TDispatch* FDispatch = nullptr; // the innermost mouse event that is being handled
    bool FAligning = false;

    bool FTabStop = false;
    int FTabOrder = 0;
};

/// A control with children that paints itself under them.
class TCustomControl : public TWinControl {
public:
    explicit TCustomControl(TComponent* Owner);
    TCanvas& GetCanvas() { return *FCanvas; }

protected:
    virtual void Paint() {}
    void PaintOn(TCanvas& Canvas) override;

private:
    TCanvas FOwnCanvas;
    TCanvas* FCanvas = &FOwnCanvas;
};

/// A plain surface for other controls, filled with its colour.
class TCustomPanel : public TCustomControl {
public:
    explicit TCustomPanel(TComponent* Owner);

protected:
    void Paint() override;
};

} // namespace kx
