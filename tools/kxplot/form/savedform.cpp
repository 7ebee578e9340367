#include "kxplot/form/savedform.h"

#include "kxplot/form/components.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/ownedcast.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/text/text.h>
#include <kxgraph/qt/Kxqtzoneevents.h>
#include <kxgraph/table/Kxfilevector.h>

#include <memory>

namespace kxplot {

using namespace kx;

namespace {

bool IsInFile(const TKxRealVector& Vector) {
    const auto* inFile = dynamic_cast<const TKxFileVector*>(&Vector);
    return inFile && !inFile->GetFileName().empty();
}

TKx2DGraph* FirstGraph(const TComponent& Form) {
    for (TComponent* component : Form.GetComponents())
        if (auto* graph = dynamic_cast<TKx2DGraph*>(component); graph && graph->GetParent()) return graph;
    return nullptr;
}

/// What is painted where it is not a graph alone: what the form shows.
TCustomControl* SheetOf(TForm& Form) {
    auto* only = Form.GetControlCount() == 1 ? dynamic_cast<TCustomControl*>(Form.GetControl(0)) : nullptr;
    if (!only) return &Form;
    return dynamic_cast<TKx2DGraph*>(only) ? nullptr : only;
}

} // namespace

std::string FormText(const TParts& Parts, const std::string& FileName) {
    RegisterComponents();
    if (const auto& zone = Parts.Plan.Axes.Zone) qt::RegisterZone(*zone);
    for (TComponent* component : Parts.Form->GetComponents())
        if (auto* vector = dynamic_cast<TKxRealVector*>(component))
            vector->SetPersistentValues(!IsInFile(*vector));
    return FormToText(*Parts.Form, FileName);
}

std::string OpenedFormText(const TParts& Parts, const std::string& FileName) {
    for (TComponent* component : Parts.Form->GetComponents())
        if (auto* vector = dynamic_cast<TKxFileVector*>(component)) vector->Rebase(FileName);
    return FormToText(*Parts.Form, FileName);
}

TParts OpenedForm(const std::string& FileName) {
    RegisterComponents();
    qt::ResolveZones();
    std::unique_ptr<TComponent> root = LoadForm(FileName, {.KeepsUnknownEvents = true});
    TParts parts;
    parts.Form = OwnedCast<TForm>(root);
    parts.Graph = parts.Form ? FirstGraph(*parts.Form) : nullptr;
    if (!parts.Graph) throw EFormError(Escaped(FileName) + ": there is no form with a graph in it");
    parts.Sheet = SheetOf(*parts.Form);
    for (TComponent* component : parts.Form->GetComponents())
        if (auto* line = dynamic_cast<TKxCalculatedSeries*>(component))
            line->OnError = [](TComponent*, const Exception&) {}; // told at the end
    return parts;
}

} // namespace kxplot
