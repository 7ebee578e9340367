#include <kxgraph/design/Kxdesigneditors.h>

#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/design/Kxfonteditors.h>
#include <kxgraph/design/Kxreferenceeditors.h>
#include <kxgraph/design/Kxsampleeditors.h>
#include <kxgraph/design/Kxtextseditor.h>
#include <kxgraph/design/Kxvalueeditors.h>
#include <kxgraph/graph/Kxaxis.h>

namespace kx {

namespace {

template <TPropertyKind Kind>
bool IsKind(const TKxPropertyPlace& Place) {
    return Place.GetRow().Kind == Kind;
}

/// An enumeration whose values have names; of others the numbers are edited.
bool IsChoice(const TKxPropertyPlace& Place) {
    return IsKind<TPropertyKind::Enumeration>(Place) && !Place.GetRow().ValueNames.empty();
}

bool IsNumber(const TKxPropertyPlace& Place) {
    return IsKind<TPropertyKind::Integer>(Place) || IsKind<TPropertyKind::Real>(Place) ||
           IsKind<TPropertyKind::Enumeration>(Place);
}

/// What takes axes, and not just any control.
bool IsAxis(const TKxPropertyPlace& Place) {
    if (!IsKind<TPropertyKind::Reference>(Place)) return false;
    const TKxAxis axis(nullptr);
    const TCustomControl control(nullptr);
    return Place.GetRow().Accepts(&axis) && !Place.GetRow().Accepts(&control);
}

bool IsCaption(const TKxPropertyPlace& Place) { return Place.GetRow().TypeName == CTypeName<TKxCaption>; }
bool IsResultKey(const TKxPropertyPlace& Place) { return Place.GetRow().TypeName == CTypeName<TKxIDString>; }

template <class TKind>
void EnterSamples() {
    RegisterPropertyEditor<TKxSampleEditorOf<TKind>>(TKxSampleEditorOf<TKind>::Fits);
}

bool EnterAll() {
    RegisterPropertyEditor<TKxNumberEditor>(IsNumber);
    RegisterPropertyEditor<TKxFlagEditor>(IsKind<TPropertyKind::Bool>);
    RegisterPropertyEditor<TKxChoiceEditor>(IsChoice);
    EnterSamples<TKxBrushStyles>();
    EnterSamples<TKxLineStyles>();
    EnterSamples<TKxPointSymbols>();
    RegisterPropertyEditor<TKxSetEditor>(IsKind<TPropertyKind::Flags>);
    RegisterPropertyEditor<TKxColorEditor>(IsKind<TPropertyKind::Color>);
    RegisterPropertyEditor<TKxObjectEditor>(IsKind<TPropertyKind::SubObject>);
    RegisterPropertyEditor<TKxFontEditor>(TKxFontEditor::Fits);
    RegisterPropertyEditor<TKxFontFamilyEditor>(TKxFontFamilyEditor::Fits);
    RegisterPropertyEditor<TKxRealsEditor>(IsKind<TPropertyKind::Reals>);
    RegisterPropertyEditor<TKxReferenceEditor>(IsKind<TPropertyKind::Reference>);
    RegisterPropertyEditor<TKxEventEditor>(IsKind<TPropertyKind::Event>);
    RegisterPropertyEditor<TKxTextsEditor>(TKxTextsEditor::Fits);
    RegisterPropertyEditor<TKxCaptionEditor>(IsCaption);
    RegisterPropertyEditor<TKxResultKeyEditor>(IsResultKey);
    RegisterPropertyEditor<TKxAxisEditor>(IsAxis);
    return true;
}

} // namespace

void RegisterPropertyEditors() {
    static const bool entered = EnterAll();
    static_cast<void>(entered);
}

} // namespace kx
