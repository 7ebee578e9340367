#pragma once
// Components as text of a form file, by way of the clipboard of the host: from one form to another, into a
// mail and back.

#include <kxgraph/design/Kxdesigndocument.h>

#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// Components, each with what stands in it, as objects of a form file, without a form about them; the form
/// itself is left out.
std::string CopyComponents(TKxDesignDocument& Document, const std::vector<TComponent*>& Components);

/// Makes the components that Text describes and selects the outermost of them. Controls are put into Parent
/// (null: the form), Shift pixels from where Text has them. Those whose names are taken get others, and what
/// refers to them within Text follows; what it refers to beside them is looked for in the form, and left
/// empty where it is not there. One step. Raises EFormError for what is no such text.
std::vector<TComponent*> PasteComponents(TKxDesignDocument& Document, std::string_view Text,
                                         TWinControl* Parent = nullptr, TPoint Shift = {},
                                         const std::string& StepName = "Paste");

void CopySelected(TKxDesignDocument& Document);
void CutSelected(TKxDesignDocument& Document);
/// Into the selected control where that can hold others and is no graph, else into its parent.
void Paste(TKxDesignDocument& Document);
/// Whether the clipboard holds what could be pasted.
bool CanPaste();
void DuplicateSelected(TKxDesignDocument& Document);

} // namespace kx
