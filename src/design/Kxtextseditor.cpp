#include <kxgraph/design/Kxtextseditor.h>

#include <kxgraph/graph/Kxcategories.h>
#include <kxgraph/platform/objects/textlists.h>
#include <kxgraph/platform/widgets/listitems.h>

namespace kx {

bool TKxTextsEditor::Fits(const TKxPropertyPlace& Place) {
    const std::string_view type = Place.GetRow().TypeName;
    return type == CLinesType || type == CCellsType || type == CCategoriesType;
}

bool TKxTextsEditor::HasCells() const { return FPlace.GetRow().TypeName == CCellsType; }
bool TKxTextsEditor::AreCategories() const { return FPlace.GetRow().TypeName == CCategoriesType; }

std::string TKxTextsEditor::GetLines() const {
    return AreCategories() ? JoinLines(SplitCategories(GetText())) : GetText();
}

void TKxTextsEditor::SetLines(const std::string& Lines) {
    if (Lines != GetLines()) SetText(AreCategories() ? JoinCategories(SplitLines(Lines)) : Lines);
}

} // namespace kx
