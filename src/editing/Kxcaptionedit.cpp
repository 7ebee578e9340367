#include <kxgraph/editing/Kxcaptionedit.h>

#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/host/application.h>
#include <kxgraph/platform/objects/published.h>

#include <algorithm>
#include <string>

namespace kx {

namespace {

constexpr int CDefaultWidth = 160;
/// What programs that know the markup ask the clipboard for.
const std::string CMarkupType = "text/x-kxgraph-caption";

THost& Host() { return TApplication::Instance().GetHost(); }

} // namespace

TKxCaptionEdit::TKxCaptionEdit(TComponent* Owner) : TTextField(Owner) {
    SetBounds(0, 0, CDefaultWidth, CFieldHeight);
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
    if (!GetReadOnly()) Take(FModel.Toggle(Which));
}

void TKxCaptionEdit::ClearLooks() {
    if (!GetReadOnly()) Take(FModel.ClearLooks());
}

void TKxCaptionEdit::Undo() {
    if (!GetReadOnly()) Take(FModel.Undo());
}

void TKxCaptionEdit::Redo() {
    if (!GetReadOnly()) Take(FModel.Redo());
}

void TKxCaptionEdit::TypeText(std::string_view Text) {
    if (!GetReadOnly()) Take(FModel.Type(Text));
}

/// What is committed replaces what was composed; what is composed from now on is shown behind it.
bool TKxCaptionEdit::Compose(const TComposition& Composition) {
    if (!CanChange()) return false;
    if (Composition.ReplaceLength > 0) {
        const int from = GetCaret() + Composition.ReplaceFrom;
        FModel.Select(from, from + Composition.ReplaceLength);
    }
    bool changed = !Composition.Commit.empty() && FModel.Type(Composition.Commit);
    changed = FModel.Compose(Composition.Text, Composition.Caret) || changed;
    Take(changed);
    return true;
}

TTextField::TEdited TKxCaptionEdit::GetEdited() const {
    return {TextOf(FModel.GetCells()), GetCaret(), FModel.GetAnchor()};
}

void TKxCaptionEdit::Exit() {
    FIsPressed = false;
    FModel.Compose({}, 0);
    Take(false);
    TTextField::Exit();
}

void TKxCaptionEdit::Copy() {
    const TKxCaptionCellSpan selected = FModel.GetSelected();
    if (!selected.empty()) Host().CopyMarkup(TextOf(selected), CMarkupType, CaptionOf(selected));
}

void TKxCaptionEdit::Cut() {
    Copy();
    if (!GetReadOnly() && FModel.HasSelection()) Take(FModel.EraseTo(GetCaret()));
}

void TKxCaptionEdit::Paste() {
    if (GetReadOnly()) return;
    const std::string markup = Host().PasteMarkup(CMarkupType), text = Host().PasteText();
    if (!markup.empty())
        Take(FModel.Insert(CellsOf(markup)));
    else if (ReadsAsMarkup(text))
        Take(FModel.Insert(CellsOf(OneLine(text))));
    else
        PasteAsText();
}

void TKxCaptionEdit::PasteAsText() {
    if (!GetReadOnly()) Take(FModel.Insert(CellsOfText(Host().PasteText(), FModel.GetTypingLooks())));
}

void TKxCaptionEdit::AddViewer(TControl* Viewer) {
    if (!Viewer || std::ranges::find(FViewers, Viewer) != FViewers.end()) return;
    FViewers.push_back(Viewer);
    Viewer->FreeNotification(this);
}

void TKxCaptionEdit::RemoveViewer(TControl* Viewer) { std::erase(FViewers, Viewer); }

void TKxCaptionEdit::Notification(TComponent* Component, TOperation Operation) {
    TTextField::Notification(Component, Operation);
    if (Operation == opRemove)
        std::erase_if(FViewers, [=](const TControl* Viewer) { return Viewer == Component; });
}

void TKxCaptionEdit::CMTextChanged() {
    TTextField::CMTextChanged();
    if (FTaking) return;
    FModel.SetCaption(GetText());
    UpdateShown();
    for (TControl* viewer : FViewers) viewer->Invalidate();
    if (!IsIn(csLoading)) OnChange(this);
}

void TKxCaptionEdit::CMFontChanged() {
    TTextField::CMFontChanged();
    UpdateShown();
}

void TKxCaptionEdit::CMEnabledChanged() {
    TTextField::CMEnabledChanged();
    Take(false);
}

const TPropertyTable& TKxCaptionEdit::Properties() {
    using C = TKxCaptionEdit;
    static const TPropertyTable table(
        "TKxCaptionEdit", &TTextField::Properties(),
        {Published<&C::GetCaption, &C::SetCaption>("Caption", "", "The caption, with its markup"),
         Published<&C::GetMaxLength, &C::SetMaxLength>(
             "MaxLength", 0, "Most characters that can be entered; 0 for no limit")});
    return table;
}

} // namespace kx
