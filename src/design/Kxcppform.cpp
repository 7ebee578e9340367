#include <kxgraph/design/Kxcppform.h>

#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/design/Kxcppnames.h>
#include <kxgraph/graph/Kxgraphitems.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/streaming/filer.h>
#include <kxgraph/platform/streaming/formfile.h>
#include <kxgraph/platform/streaming/formvalues.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace kx {

namespace {

using TStep = TKxCppForm::TStep;
using TPart = TKxCppForm::TPart;

TPersistent& ObjectOf(const std::vector<TProperty>& Way, TPersistent& Component) {
    TPersistent* object = &Component;
    for (std::size_t i = 0; i + 1 < Way.size(); ++i) object = std::get<TPersistent*>(Way[i].Get(*object));
    return *object;
}

/// The components of a form that is made by the steps.
class TTrial {
public:
    explicit TTrial(const TFormText& Text) : FText(Text) {}

    void Make(std::vector<TPart>& Parts) {
        for (TPart& part : Parts) {
            TComponent* component = FindClass(part.Class)->Make(Root.get());
            if (!Root) Root.reset(component);
            FMade[part.Component] = component;
            FAll.push_back(component);
            component->SetName(part.Component->GetName());
            for (TStep& step : part.Values) Do(step);
            ReadData(part, *component);
            if (part.Parent != TKxCppForm::CNone && component->HasParentComponent())
                component->SetParentComponent(FAll[part.Parent]);
        }
    }
    void Do(TStep& Step) {
        TPropertyValue value = Step.Value;
        if (TComponent** target = std::get_if<TComponent*>(&value); target && *target)
            *target = FMade[*target];
        try {
            Step.Row().Set(ObjectOf(Step.Way, *FAll[Step.Part]), value);
            Step.Fails = false;
        } catch (const Exception&) {
            Step.Fails = true;
        }
    }
    /// An expression becomes the model of a fit, as SetFormula has it, when all is read.
    void Bind() {
        for (TComponent* component : FAll) {
            if (!dynamic_cast<TKxFittedLine*>(component)) continue;
            component->BeginLoading();
            component->EndLoading();
        }
    }

    std::unique_ptr<TComponent> Root;

private:
    void ReadData(const TPart& Part, TComponent& Component) {
        std::vector<TReader::TData> data;
        for (const TFormProperty& one : Part.Data)
            data.push_back({FText.TextOf(one.Name), one.First, one.Last});
        TReader(FText, data).ReadData(Component);
    }

    const TFormText& FText;
    std::vector<TComponent*> FAll;
    std::map<const TComponent*, TComponent*> FMade;
};

/// The values of an object of a form file as they stand there, by their paths.
std::map<std::string, std::string> ValuesOf(const TFormText& Text, const TFormObject& Node) {
    std::map<std::string, std::string> values;
    for (const TFormProperty& property : Node.Properties) {
        std::string& value = values[std::string(Text.TextOf(property.Name))];
        for (std::size_t i = property.First; i < property.Last; ++i) value.append(Text.TextOf(i)).append(" ");
    }
    return values;
}

void Flatten(const TFormObject& Node, std::vector<const TFormObject*>& All) {
    All.push_back(&Node);
    for (const TFormObject& inner : Node.Objects) Flatten(inner, All);
}

bool IsSeries(const TPropertyValue& Value) {
    const auto* component = std::get_if<TComponent*>(&Value);
    return component && dynamic_cast<const TKxGraphSeries*>(*component);
}

} // namespace

TKxCppForm::TKxCppForm(TComponent& Root) : FRoot(Root), FText(FormToText(Root)), FTokens(FText, {}) {
    TChildren children;
    for (TComponent* component : Root.GetComponents()) {
        const TComponent* parent = component->GetParentComponent();
        children[parent ? parent : &Root].push_back(component);
    }
    Add(ParseForm(FTokens), Root, CNone, children);
    TakeReferences();
    Try();
}

/// The objects of a file and the components of a form stand in the same order.
void TKxCppForm::Add(const TFormObject& Node, TComponent& Component, std::size_t Parent,
                     const TChildren& Children) {
    const TComponentClass* type = FindClass(FTokens.TextOf(Node.Class));
    const std::size_t index = FParts.size();
    FParts.push_back({&Component, type->Name, &type->Properties(), Parent, {}, {}});
    for (const TFormProperty& property : Node.Properties) AddProperty(FParts.back(), property);
    DropUntouched(FParts.back());
    if (Node.Objects.empty()) return;
    const auto& children = Children.at(&Component);
    for (std::size_t i = 0; i < Node.Objects.size(); ++i) Add(Node.Objects[i], *children[i], index, Children);
}

void TKxCppForm::AddProperty(TPart& Part, const TFormProperty& Property) {
    const std::string_view path = FTokens.TextOf(Property.Name);
    std::vector<TProperty> way = WayOf(Part, path);
    if (way.empty() && path == "Parent" && Part.Component->HasParentComponent()) {
        Part.Parent = CNone;
    } else if (way.empty()) {
        Part.Data.push_back(Property);
    } else {
        TPropertyValue value = way.back().Get(ObjectOf(way, *Part.Component));
        Part.Values.push_back({std::size_t(&Part - FParts.data()), std::move(way), std::move(value)});
    }
}

/// What a new component has already; where something else changes it, it is set at the end. Of its bounds all
/// are given, or none.
void TKxCppForm::DropUntouched(TPart& Part) {
    const TComponent* fresh = FModels.Of(*Part.Component).Fresh;
    const auto isUntouched = [&](const TStep& Step) {
        return Step.Value == Step.Row().Get(ObjectOf(Step.Way, const_cast<TComponent&>(*fresh)));
    };
    const auto isBound = [](const TStep& Step) {
        return Step.Way.size() == 1 && IsCppBound(Step.Row().Name);
    };
    const bool hasBounds = std::ranges::any_of(
        Part.Values, [&](const TStep& Step) { return isBound(Step) && !isUntouched(Step); });
    std::erase_if(Part.Values,
                  [&](const TStep& Step) { return isUntouched(Step) && !(hasBounds && isBound(Step)); });
}

/// Empty for what is no row.
std::vector<TProperty> TKxCppForm::WayOf(const TPart& Part, std::string_view Path) {
    std::vector<TProperty> way;
    const TPropertyTable* table = Part.Table;
    for (std::size_t begin = 0; begin <= Path.size();) {
        const std::size_t end = std::min(Path.find('.', begin), Path.size());
        const TProperty* row = TFormRows::Of(*table).Find(Path.substr(begin, end - begin));
        if (!row) return {};
        way.push_back(*row);
        begin = end + 1;
        if (begin <= Path.size())
            table = &std::get<TPersistent*>(row->Get(ObjectOf(way, *Part.Component)))->PublishedProperties();
    }
    return way;
}

// References to series come last: a series takes the axes of the one that it analyses, and finds out which
// axes are taken.
void TKxCppForm::TakeReferences() {
    std::vector<TStep> toSeries;
    for (TPart& part : FParts)
        for (TStep& step : part.Values)
            if (step.Row().Kind == TPropertyKind::Reference)
                (IsSeries(step.Value) ? toSeries : FLast).push_back(step);
    FLast.insert(FLast.end(), toSeries.begin(), toSeries.end());
    for (TPart& part : FParts)
        std::erase_if(part.Values, [](const TStep& Step) {
            return Step.Row().Kind == TPropertyKind::Reference || Step.Row().Kind == TPropertyKind::Event;
        });
}

void TKxCppForm::Try() {
    constexpr int rounds = 3;
    for (int round = 1; round <= rounds; ++round) {
        TTrial trial(FTokens);
        trial.Make(FParts);
        trial.Bind();
        for (TStep& step : FLast) trial.Do(step);
        if (!AddDifferences(*trial.Root, round == rounds)) return;
    }
}

/// Whether there are any.
bool TKxCppForm::AddDifferences(TComponent& Made, bool IsLast) {
    const std::string text = FormToText(Made);
    const TFormText madeText(text, {});
    const TFormObject wantedTree = ParseForm(FTokens), madeTree = ParseForm(madeText);
    std::vector<const TFormObject*> wanted, made;
    Flatten(wantedTree, wanted);
    Flatten(madeTree, made);
    bool differs = false;
    for (std::size_t i = 0; i < std::min(wanted.size(), made.size()); ++i) {
        auto values = ValuesOf(FTokens, *wanted[i]);
        auto others = ValuesOf(madeText, *made[i]);
        for (const auto& [path, value] : others) values.try_emplace(path); // the default is wanted
        for (const auto& [path, value] : values) {
            std::vector<TProperty> way = WayOf(FParts[i], path);
            const auto other = others.find(path);
            if (way.empty() || (other != others.end() && other->second == value)) continue;
            if (way.back().Kind == TPropertyKind::Event) continue;
            differs = true;
            if (IsLast) FUnreached.push_back(FParts[i].Component->GetName() + "." + path);
            TPropertyValue given = way.back().Get(ObjectOf(way, *FParts[i].Component));
            FLast.push_back({i, std::move(way), std::move(given)});
        }
    }
    return differs;
}

std::vector<double> TKxCppForm::NumbersOf(const TFormProperty& Data) const {
    std::vector<double> numbers;
    for (std::size_t i = Data.First + 1; i + 1 < Data.Last; ++i) numbers.push_back(RealOf(FTokens, i));
    return numbers;
}

std::vector<std::string> TKxCppForm::TextsOf(const TFormProperty& Data) const {
    std::vector<std::string> texts;
    for (std::size_t i = Data.First + 1; i + 1 < Data.Last; ++i) texts.push_back(FTokens.Unescaped(i));
    return texts;
}

} // namespace kx
