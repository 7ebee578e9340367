#include <kxgraph/design/Kxdesigncommands.h>

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/table/Kxfilevector.h>

#include <algorithm>
#include <set>

namespace kx {

namespace {

/// What a component is bound to when it is made.
class TContext {
public:
    TContext(const TKxDesignDocument& Document, const TKxDesignPlace& Place)
        : FForm(Document.GetForm()), FSelection(Document.GetSelection()) {
        FGraph = GraphOf(Place.Parent);
        for (auto one = FSelection.rbegin(); !FGraph && one != FSelection.rend(); ++one)
            FGraph = GraphOf(*one);
        if (const auto graphs = TKx2DGraph::OwnedBy(FForm); !FGraph && graphs.size() == 1) FGraph = graphs[0];
    }
    TKx2DGraph* GetGraph() const { return FGraph; }

    /// Binds the references by which a component belongs to others: those of the derived class first, for the
    /// parent of an analysis has it calculated, with all that it is to know. What it cannot calculate yet is
    /// no reason to have no component.
    void Bind(TComponent& Component) const {
        const auto rows = Component.PublishedProperties().All();
        for (auto at = rows.rbegin(); at != rows.rend(); ++at) BindRow(**at, Component);
    }

private:
    void BindRow(const TProperty& Row, TComponent& Component) const {
        const bool isFree =
            Row.Kind == TPropertyKind::Reference && Row.Set && !std::get<TComponent*>(Row.Get(Component));
        TComponent* partner = isFree ? PartnerFor(Row) : nullptr;
        try {
            if (partner) Row.Set(Component, partner);
        } catch (const Exception&) { // told when it is drawn
        }
    }

    static TKx2DGraph* GraphOf(TComponent* Component) {
        if (const auto* series = dynamic_cast<TKxGraphSeries*>(Component)) Component = series->GetXAxis();
        auto* control = dynamic_cast<TControl*>(Component);
        while (control && !dynamic_cast<TKx2DGraph*>(control)) control = control->GetParent();
        return dynamic_cast<TKx2DGraph*>(control);
    }

    TComponent* PartnerFor(const TProperty& Row) const {
        if (Row.Name == "XAxis") return FGraph ? FGraph->GetPrimaryXAxis() : nullptr;
        if (Row.Name == "YAxis") return FGraph ? FGraph->GetPrimaryYAxis() : nullptr;
        if (Row.Name == "Graph") return FGraph;
        if (Row.Name == "ParentSeries" || Row.Name == "Series" || Row.Name == "Fit")
            return SelectedOrOnly(Row);
        return nullptr;
    }

    TComponent* SelectedOrOnly(const TProperty& Row) const {
        for (auto one = FSelection.rbegin(); one != FSelection.rend(); ++one)
            if (Row.Accepts(*one)) return *one;
        TComponent* only = nullptr;
        for (TComponent* component : FForm.GetComponents()) {
            if (!Row.Accepts(component)) continue;
            if (only) return nullptr;
            only = component;
        }
        return only;
    }

    TForm& FForm;
    std::vector<TComponent*> FSelection;
    TKx2DGraph* FGraph = nullptr;
};

TComponent* Make(TKxDesignDocument& Document, const TComponentClass& Class) {
    TComponent* component = Class.Make(&Document.GetForm());
    component->SetName(Document.UniqueName(Class.Name));
    if (auto* vector = dynamic_cast<TKxFileVector*>(component)) vector->Rebase(Document.GetFileName());
    return component;
}

TKxAxis* AddAxis(TKxDesignDocument& Document, TKx2DGraph& Graph, const char* Name) {
    auto* axis = new TKxAxis(&Document.GetForm());
    axis->SetName(Document.Find(Name) ? Document.UniqueName(Name) : Name);
    axis->SetParent(&Graph);
    return axis;
}

void AddAxes(TKxDesignDocument& Document, TKx2DGraph& Graph) {
    Graph.SetPrimaryXAxis(AddAxis(Document, Graph, "XAxis"));
    Graph.SetPrimaryYAxis(AddAxis(Document, Graph, "YAxis"));
}

/// The place of a control; an axis stands on its graph, and nothing but axes and labels does by itself.
void PlaceControl(TControl& Control, const TKxDesignPlace& Place, const TContext& Context, TForm& Form) {
    const bool isAxis = dynamic_cast<TKxAxis*>(&Control) != nullptr;
    if (isAxis && !Context.GetGraph()) throw EComponentError("An axis needs a graph to stand on");
    Control.SetParent(isAxis ? Context.GetGraph() : Place.Parent ? Place.Parent : &Form);
    if (isAxis) return;
    const bool sized = Place.Size.Width > 0 && Place.Size.Height > 0;
    Control.SetBounds(Place.Pos.X, Place.Pos.Y, sized ? Place.Size.Width : Control.GetWidth(),
                      sized ? Place.Size.Height : Control.GetHeight());
}

} // namespace

TComponent* CreateComponent(TKxDesignDocument& Document, std::string_view ClassName,
                            const TKxDesignPlace& Place) {
    const TComponentClass* found = FindClass(ClassName);
    if (!found) throw EComponentError("There is no class " + std::string(ClassName));
    TComponent* made = nullptr;
    const std::string name = Document.UniqueName(found->Name);
    Document.Run({"Create " + name}, [&] {
        const TContext context(Document, Place);
        made = Make(Document, *found);
        if (auto* control = dynamic_cast<TControl*>(made))
            PlaceControl(*control, Place, context, Document.GetForm());
        if (auto* graph = dynamic_cast<TKx2DGraph*>(made)) AddAxes(Document, *graph);
        context.Bind(*made);
    });
    made = Document.Find(name);
    Document.Select(made);
    return made;
}

std::vector<TComponent*> Outermost(const std::vector<TComponent*>& Components) {
    const std::set<const TComponent*> all(Components.begin(), Components.end());
    std::vector<TComponent*> outermost;
    for (TComponent* component : Components) {
        const TComponent* parent = component->GetParentComponent();
        while (parent && !all.contains(parent)) parent = parent->GetParentComponent();
        if (!parent) outermost.push_back(component);
    }
    return outermost;
}

std::vector<TComponent*> WithContents(const TKxDesignDocument& Document,
                                      const std::vector<TComponent*>& Components) {
    const std::set<const TComponent*> all(Components.begin(), Components.end());
    std::vector<TComponent*> contents;
    for (TComponent* component : Document.GetForm().GetComponents()) {
        const TComponent* outer = component;
        while (outer && !all.contains(outer)) outer = outer->GetParentComponent();
        if (outer) contents.push_back(component);
    }
    return contents;
}

std::string ToldNames(const std::vector<TComponent*>& Components) {
    return Components.size() == 1 ? ToldName(*Components[0])
                                  : std::to_string(Components.size()) + " components";
}

void DeleteSelected(TKxDesignDocument& Document) {
    auto selection = Document.GetSelection();
    std::erase(selection, &Document.GetForm());
    if (selection.empty()) return;
    const auto contents = WithContents(Document, selection);
    Document.Run({"Delete " + ToldNames(selection)}, [&] {
        for (auto one = contents.rbegin(); one != contents.rend(); ++one) delete *one;
    });
}

void RenameComponent(TKxDesignDocument& Document, TComponent& Component, const std::string& Name) {
    if (Component.GetName() == Name) return;
    TComponent* taken = Document.Find(Name);
    if (taken && taken != &Component) throw EComponentError("A component named " + Name + " already exists");
    auto selection = Document.GetSelection();
    Document.Run({"Rename " + ToldName(Component)}, [&] { Component.SetName(Name); });
    Document.Select(selection);
}

void ReparentSelected(TKxDesignDocument& Document, TWinControl& Parent) {
    std::vector<TControl*> movable;
    for (TComponent* component : Outermost(Document.GetSelection())) {
        auto* control = dynamic_cast<TControl*>(component);
        auto* container = dynamic_cast<TWinControl*>(component);
        const bool holds = container && container->ContainsControl(&Parent);
        if (control && control != &Document.GetForm() && !holds && control->GetParent() != &Parent)
            movable.push_back(control);
    }
    if (movable.empty()) return;
    Document.Run({"Move to " + ToldName(Parent)}, [&] {
        for (TControl* control : movable) {
            const TPoint at = Parent.RootToClient(control->ClientToRoot({}));
            control->SetParent(&Parent);
            control->SetBounds(at.X, at.Y, control->GetWidth(), control->GetHeight());
        }
    });
}

namespace {

void Restack(TComponent& Component, bool ToFront) {
    if (auto* control = dynamic_cast<TControl*>(&Component))
        ToFront ? control->BringToFront() : control->SendToBack();
    else
        Component.SetComponentIndex(ToFront ? Component.GetOwner()->GetComponentCount() - 1 : 0);
}

void RestackSelected(TKxDesignDocument& Document, bool ToFront) {
    auto selection = Document.GetSelection();
    std::erase(selection, &Document.GetForm());
    if (selection.empty()) return;
    Document.Run({ToFront ? "Bring to Front" : "Send to Back"}, [&] {
        for (TComponent* component : selection) Restack(*component, ToFront);
    });
}

} // namespace

void BringSelectedToFront(TKxDesignDocument& Document) { RestackSelected(Document, true); }
void SendSelectedToBack(TKxDesignDocument& Document) { RestackSelected(Document, false); }

void SelectAll(TKxDesignDocument& Document) {
    const auto* primary = dynamic_cast<const TControl*>(Document.GetPrimary());
    const TComponent* parent = primary ? primary->GetParent() : nullptr;
    std::vector<TComponent*> all;
    for (TComponent* component : Document.GetForm().GetComponents())
        if (dynamic_cast<TControl*>(component) &&
            component->GetParentComponent() == (parent ? parent : &Document.GetForm()))
            all.push_back(component);
    Document.Select(all);
}

void SelectParent(TKxDesignDocument& Document) {
    TComponent* primary = Document.GetPrimary();
    if (!primary || primary == &Document.GetForm()) return Document.Select(std::vector<TComponent*>());
    TComponent* parent = primary->GetParentComponent();
    Document.Select(parent ? parent : &Document.GetForm());
}

} // namespace kx
