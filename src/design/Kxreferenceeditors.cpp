#include <kxgraph/design/Kxreferenceeditors.h>

#include <kxgraph/analysis/Kxcalculatedseries.h>
#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/platform/text/suggest.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <memory>

namespace kx {

namespace {

constexpr std::string_view CUnnamedHandler = "(assigned)";

std::vector<std::string_view> TextsOf(const std::vector<TKxPropertyChoice>& Choices) {
    std::vector<std::string_view> texts;
    texts.reserve(Choices.size());
    for (const TKxPropertyChoice& choice : Choices) texts.push_back(choice.Text);
    return texts;
}

} // namespace

bool TKxReferenceEditor::Takes(const TComponent& Component) const {
    return !Component.GetName().empty() && FPlace.GetRow().Accepts(&Component) &&
           std::ranges::none_of(FPlace.GetTargets(), [&](const TKxPropertyPlace::TTarget& T) {
               return T.Component.Get() == &Component;
           });
}

std::vector<TKxPropertyChoice> TKxReferenceEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices{{"", "none"}};
    const TComponent* form = FPlace.GetContext().Form.Get();
    if (!form) return choices;
    if (Takes(*form)) choices.push_back({form->GetName(), form->ClassName()});
    for (const TComponent* component : form->GetComponents())
        if (Takes(*component)) choices.push_back({component->GetName(), component->ClassName()});
    return choices;
}

TPropertyValue TKxReferenceEditor::ValueOf(const std::string& Text) const {
    const std::string_view name = Trimmed(Text);
    TComponent* component = FPlace.FindComponent(name);
    if (name.empty() || (component && Takes(*component))) return component;
    const auto choices = GetChoices();
    RaiseExpected(Text, "a component of the form that can stand here" + DidYouMean(name, TextsOf(choices)));
}

// An axis that is made for a series stands on the graph of what is drawn: where the other axis of the series
// stands, or else the first graph of the form.

namespace {

TWinControl* GraphFor(const TKxPropertyPlace& Place) {
    for (const TProperty* row : Place.GetObject().PublishedProperties().All()) {
        if (row->Kind != TPropertyKind::Reference) continue;
        const auto* axis = dynamic_cast<const TKxAxis*>(std::get<TComponent*>(row->Get(Place.GetObject())));
        if (axis && axis->GetParent()) return axis->GetParent();
    }
    const TComponent* form = Place.GetContext().Form.Get();
    if (!form) return nullptr;
    for (TComponent* component : form->GetComponents())
        if (auto* graph = dynamic_cast<TKx2DGraph*>(component)) return graph;
    return nullptr;
}

/// Whether the property is the axis of a series; those of graphs are the primary ones.
bool IsOfSeries(const TKxPropertyPlace& Place) {
    return dynamic_cast<const TKxGraphSeries*>(&Place.GetComponent()) != nullptr;
}

std::string FreeName(const TComponent& Form, const std::string& Stem) {
    int number = 1;
    while (Form.FindComponent(Stem + std::to_string(number))) ++number;
    return Stem + std::to_string(number);
}

TKxAxis* MakeSecondaryAxis(TComponent& Form, TWinControl& Graph, bool IsHorizontal) {
    auto axis = std::make_unique<TKxAxis>(&Form);
    axis->SetName(FreeName(Form, "SecondaryAxis"));
    axis->SetParent(&Graph);
    axis->SetPosition(IsHorizontal ? AxTopPos : AxRightPos);
    return axis.release();
}

} // namespace

std::vector<TKxPropertyChoice> TKxAxisEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices = TKxReferenceEditor::GetChoices();
    if (IsOfSeries(FPlace) && GraphFor(FPlace)) choices.push_back({std::string(CNewSecondaryAxis), ""});
    return choices;
}

void TKxAxisEditor::SetText(const std::string& Text, bool IsContinued) {
    if (Text != CNewSecondaryAxis) return TKxReferenceEditor::SetText(Text, IsContinued);
    TWinControl* graph = IsOfSeries(FPlace) ? GraphFor(FPlace) : nullptr;
    if (!graph) throw EPropertyError(FPlace.GetTold() + ": there is no graph for a new axis");
    const bool isHorizontal = StartsWithText(FPlace.GetRow().Name, "X");
    FPlace.Run([&] {
        const TComponentRef<TKxAxis> axis(
            MakeSecondaryAxis(*FPlace.GetContext().Form.Get(), *graph, isHorizontal));
        try {
            FPlace.Set(static_cast<TComponent*>(axis.Get()));
        } catch (...) {
            delete axis.Get();
            throw;
        }
    });
}

std::vector<TKxPropertyChoice> TKxResultKeyEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices{{"", "none"}};
    for (const TProperty* row : FPlace.GetObject().PublishedProperties().All()) {
        if (row->Kind != TPropertyKind::Reference) continue;
        const auto* series =
            dynamic_cast<const TKxCalculatedSeries*>(std::get<TComponent*>(row->Get(FPlace.GetObject())));
        if (!series) continue;
        for (const TKxResult& result : series->GetFound().GetItems())
            choices.push_back({result.Key, result.GetText()});
    }
    return choices;
}

// Of which type a handler must be nobody can tell but the setter: it is tried on another component.
bool TKxEventEditor::Takes(const TEventValue& Handler) const {
    const auto& target = FPlace.GetTargets().front();
    const auto model = FPlace.GetContext().Models.Of(FPlace.GetComponent());
    if (!model.Class) return false;
    const std::unique_ptr<TComponent> scratch(model.Class->Make(nullptr));
    try {
        target.Row().Set(target.ObjectIn(*scratch), Handler);
    } catch (const EPropertyError&) {
        return false;
    }
    return true;
}

std::vector<TKxPropertyChoice> TKxEventEditor::GetChoices() const {
    std::vector<TKxPropertyChoice> choices{{"", "none"}};
    for (const std::string_view name : RegisteredEvents())
        if (Takes(*FindEvent(name))) choices.push_back({std::string(name), ""});
    return choices;
}

TKxEditorKind TKxEventEditor::GetKind() const {
    return FPlace.GetComponent().IsIn(csDesigning) ? TKxEditorKind::Suggestions : TKxEditorKind::Choice;
}

std::string TKxEventEditor::TextOf(const TPropertyValue& Value) const {
    if (const auto* kept = std::get_if<std::string>(&Value)) return *kept;
    const auto& handler = std::get<TEventValue>(Value);
    if (!handler) return {};
    const std::string_view name = NameOfEvent(handler);
    return std::string(name.empty() ? CUnnamedHandler : name);
}

/// An empty one knows its type, too.
TPropertyValue TKxEventEditor::NoHandler() const {
    const auto& target = FPlace.GetTargets().front();
    const auto model = FPlace.GetContext().Models.Of(FPlace.GetComponent());
    return (model.Fresh ? target.Row().Get(target.ObjectIn(*model.Fresh))
                        : target.Row().Get(target.Object()));
}

namespace {

bool IsName(std::string_view Text) {
    try {
        TComponent(nullptr).SetName(std::string(Text));
    } catch (const EComponentError&) {
        return false;
    }
    return true;
}

} // namespace

TPropertyValue TKxEventEditor::ValueOf(const std::string& Text) const {
    const std::string_view name = Trimmed(Text);
    if (Text == CUnnamedHandler && Text == TextOf(FPlace.GetValue())) return FPlace.GetValue();
    if (name.empty()) return NoHandler();
    const TEventValue* handler = FindEvent(name);
    if (handler && Takes(*handler)) return *handler;
    if (!handler && GetKind() == TKxEditorKind::Suggestions) {
        if (IsName(name)) return std::string(name);
        RaiseExpected(Text, "the name of a handler");
    }
    const auto choices = GetChoices();
    RaiseExpected(Text, "an event that is registered for this" + DidYouMean(name, TextsOf(choices)));
}

} // namespace kx
