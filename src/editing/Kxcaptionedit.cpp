#include <kxgraph/editing/Kxcaptionedit.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <string>

namespace kx {

namespace {

constexpr int CDefaultWidth = 160, CDefaultHeight = 24;
/// What programs that know the markup ask the clipboard for.
const std::string CMarkupType = "text/x-kxgraph-caption";

THost& Host() { return TApplication::Instance().GetHost(); }

} // namespace

TKxCaptionEdit::TKxCaptionEdit(TComponent* Owner) : TCustomControl(Owner) {
    SetColor(clWindow);
    SetTabStop(true);
    SetBounds(0, 0, CDefaultWidth, CDefaultHeight);
}

void TKxCaptionEdit::SetReadOnly(bool ReadOnly) {
    FReadOnly = ReadOnly;
    Take(false);
}

void TKxCaptionEdit::SetAlignment(TAlignment Alignment) {
    FAlignment = Alignment;
    Invalidate();
}

void TKxCaptionEdit::Select(int Anchor, int Caret) {
    FModel.Select(Anchor, Caret);
    Take(false);
}

void TKxCaptionEdit::Take(bool Changed) {
    if (Changed) {
        const TScopedValue taking(FTaking, true);
        SetText(FModel.GetCaption());
    }
    UpdateShown();
    for (TControl* viewer : FViewers) viewer->Invalidate();
    if (Changed) OnChange(this);
}

void TKxCaptionEdit::Toggle(TKxCaptionSwitch Which) {
    if (!FReadOnly) Take(FModel.Toggle(Which));
}

void TKxCaptionEdit::ClearLooks() {
    if (!FReadOnly) Take(FModel.ClearLooks());
}

void TKxCaptionEdit::Undo() {
    if (!FReadOnly) Take(FModel.Undo());
}

void TKxCaptionEdit::Redo() {
    if (!FReadOnly) Take(FModel.Redo());
}

void TKxCaptionEdit::TypeText(std::string_view Text) {
    if (!FReadOnly) Take(FModel.Type(Text));
}

void TKxCaptionEdit::ShowComposed(std::string_view Text, int Caret) {
    if (!FReadOnly) Take(FModel.Compose(Text, Caret));
}

void TKxCaptionEdit::Copy() {
    const TKxCaptionCellSpan selected = FModel.GetSelected();
    if (!selected.empty()) Host().CopyMarkup(TextOf(selected), CMarkupType, CaptionOf(selected));
}

void TKxCaptionEdit::Cut() {
    Copy();
    if (!FReadOnly && FModel.HasSelection()) Take(FModel.EraseTo(GetCaret()));
}

void TKxCaptionEdit::Paste() {
    if (FReadOnly) return;
    const std::string markup = Host().PasteMarkup(CMarkupType), text = Host().PasteText();
    if (!markup.empty())
        Take(FModel.Insert(CellsOf(markup)));
    else if (ReadsAsMarkup(text))
        Take(FModel.Insert(CellsOf(OneLine(text))));
    else
        PasteAsText();
}

void TKxCaptionEdit::PasteAsText() {
    if (!FReadOnly) Take(FModel.Insert(CellsOfText(Host().PasteText(), FModel.GetTypingLooks())));
}

void TKxCaptionEdit::AddViewer(TControl* Viewer) {
    if (!Viewer || std::ranges::find(FViewers, Viewer) != FViewers.end()) return;
    FViewers.push_back(Viewer);
    Viewer->FreeNotification(this);
}

void TKxCaptionEdit::RemoveViewer(TControl* Viewer) { std::erase(FViewers, Viewer); }

void TKxCaptionEdit::Notification(TComponent* Component, TOperation Operation) {
    TCustomControl::Notification(Component, Operation);
    if (Operation == opRemove)
        std::erase_if(FViewers, [=](const TControl* Viewer) { return Viewer == Component; });
}

void TKxCaptionEdit::CMTextChanged() {
    TCustomControl::CMTextChanged();
    if (FTaking) return;
    FModel.SetCaption(GetText());
    UpdateShown();
    for (TControl* viewer : FViewers) viewer->Invalidate();
    if (!IsIn(csLoading)) OnChange(this);
}

void TKxCaptionEdit::CMFontChanged() {
    TCustomControl::CMFontChanged();
    UpdateShown();
}

void TKxCaptionEdit::CMEnabledChanged() {
    TCustomControl::CMEnabledChanged();
    Take(false);
}

void TKxCaptionEdit::SetBounds(int Left, int Top, int Width, int Height) {
    TCustomControl::SetBounds(Left, Top, Width, Height);
    ScrollToCaret();
}

TAccessiblePart TKxCaptionEdit::Accessible() const {
    TAccessiblePart part = TCustomControl::Accessible();
    part.Role = TAccessibleRole::Text;
    part.Name = GetHint().empty() ? GetName() : GetHint();
    part.Value = TextOf(FModel.GetCells());
    return part;
}

const TPropertyTable& TKxCaptionEdit::Properties() {
    using C = TKxCaptionEdit;
    static const TPropertyTable table(
        "TKxCaptionEdit", &TCustomControl::Properties(),
        {Published<&C::GetCaption, &C::SetCaption>("Caption", "", "The caption, with its markup"),
         Published<&C::GetReadOnly, &C::SetReadOnly>("ReadOnly", false, "Whether it cannot be changed here"),
         Published<&C::GetMaxLength, &C::SetMaxLength>("MaxLength", 0,
                                                       "Most characters that can be entered; 0 for no limit"),
         Published<&C::GetAlignment, &C::SetAlignment>("Alignment", taLeftJustify,
                                                       "Where a short caption is kept"),
         PublishedColor<&C::GetColor, &C::SetColor>("Color", clWindow, "Background colour"),
         Published<&C::GetParentColor, &C::SetParentColor>("ParentColor", false,
                                                           "Whether the colour follows the parent's"),
         Published<&C::GetTabStop, &C::SetTabStop>("TabStop", true,
                                                   "Whether Tab and a press give it the keys"),
         PublishedEvent<&C::OnChange>("OnChange", "The caption has changed")});
    return table;
}

} // namespace kx
