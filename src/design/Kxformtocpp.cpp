#include <kxgraph/design/Kxformtocpp.h>

#include <kxgraph/design/Kxcppform.h>
#include <kxgraph/design/Kxcppnames.h>
#include <kxgraph/design/Kxdesignformula.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/controls/control.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/streaming/keptevents.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cstddef>
#include <set>
#include <unordered_map>
#include <vector>

namespace kx {

namespace {

constexpr std::size_t CWidth = 110;

std::string Indented(const std::string& Line) { return "    " + Line + "\n"; }

/// Items in lines that are not too long.
std::string Wrapped(const std::vector<std::string>& Items, const std::string& Indent) {
    std::string text, line = Indent;
    for (std::size_t i = 0; i < Items.size(); ++i) {
        const std::string item = Items[i] + (i + 1 < Items.size() ? "," : "");
        if (line.size() + item.size() + 1 > CWidth) text.append(line).append("\n"), line = Indent;
        line.append(line.size() > Indent.size() ? " " : "").append(item);
    }
    return text + line;
}

std::string Joined(const std::vector<std::string>& Items) {
    std::string text;
    for (const std::string& item : Items) text.append(text.empty() ? "" : ", ").append(item);
    return text;
}

class TProgram {
public:
    TProgram(TComponent& Root, TKxCppExtent Extent) : FForm(Root), FExtent(Extent) {}

    std::string Write() {
        const auto& parts = FForm.GetParts();
        for (std::size_t i = 0; i < parts.size(); ++i) NamePart(i);
        for (std::size_t i = 0; i < parts.size(); ++i) WritePart(i);
        if (!FForm.GetLast().empty()) FBody += "\n";
        for (const auto& step : FForm.GetLast()) WriteStep(step);
        WriteEvents();
        for (const std::string& path : FForm.GetUnreached())
            FBody += Indented("// " + path + " is another one in the form; setters do not bring it there.");
        return Head() + Function() + (FExtent == TKxCppExtent::Program ? Main() : std::string());
    }

private:
    using TStep = TKxCppForm::TStep;
    using TPart = TKxCppForm::TPart;

    void NamePart(std::size_t Index) {
        const TPart& part = FForm.GetParts()[Index];
        const std::string& name = part.Component->GetName();
        FNames.push_back(name.empty() ? "part" + std::to_string(Index + 1) + "_" : CppVariable(name));
        FVariables[part.Component] = FNames.back();
        const std::string_view header = CppHeaderOf(part.Class);
        if (header.empty())
            FHeaders.insert({"platform/objects/classes.h", "platform/objects/propertytext.h"});
        else
            FHeaders.insert(std::string(header));
    }
    bool IsKnown(const TPart& Part) const { return !CppHeaderOf(Part.Class).empty(); }
    /// What owns the others, where they are made.
    std::string Owner() const { return FNames.front() + ".get()"; }

    void WritePart(std::size_t Index) {
        const TPart& part = FForm.GetParts()[Index];
        const std::string& name = FNames[Index];
        const std::string type = "kx::" + std::string(part.Class);
        if (Index > 0) FBody += "\n";
        if (Index == 0 && IsKnown(part))
            FBody += Indented("auto " + name + " = std::make_unique<" + type + ">(nullptr);");
        else if (Index == 0)
            FBody += Indented("std::unique_ptr<kx::TComponent> " + name + "(" + Made(part, "nullptr") + ");");
        else
            FBody +=
                Indented("auto* " + name + " = " +
                         (IsKnown(part) ? "new " + type + "(" + Owner() + ")" : Made(part, Owner())) + ";");
        if (!part.Component->GetName().empty()) Call(name, "SetName", CppText(part.Component->GetName()));
        WriteValues(part, name);
        for (const TFormProperty& data : part.Data) WriteData(part, name, data);
        const bool isControl = IsKnown(part) && dynamic_cast<const TControl*>(part.Component);
        if (part.Component->HasParentComponent() && part.Parent != TKxCppForm::CNone)
            Call(name, isControl ? "SetParent" : "SetParentComponent",
                 FNames[part.Parent] + (part.Parent == 0 ? ".get()" : ""));
    }
    static std::string Made(const TPart& Part, const std::string& Owner) {
        return "kx::FindClass(" + CppText(Part.Class) + ")->Make(" + Owner + ")";
    }
    void Call(const std::string& Name, const std::string& Member, const std::string& Argument) {
        FBody += Indented(Name + "->" + Member + "(" + Argument + ");");
    }

    void WriteValues(const TPart& Part, const std::string& Name) {
        constexpr std::size_t all = 4;
        const auto isBound = [](const TStep& Step) {
            return Step.Way.size() == 1 && IsCppBound(Step.Row().Name);
        };
        std::vector<std::string> places;
        for (const TStep& step : Part.Values)
            if (isBound(step)) places.push_back(CppValue(step.Row(), step.Value));
        const bool hasBounds = places.size() == all && IsKnown(Part);
        if (hasBounds) Call(Name, "SetBounds", Joined(places));
        for (const TStep& step : Part.Values)
            if (!hasBounds || !isBound(step)) WriteStep(step);
    }

    void WriteStep(const TStep& Step) {
        const TPart& part = FForm.GetParts()[Step.Part];
        std::string code = CodeOf(Step, part);
        if (Step.Fails)
            code = "try { " + code + " } catch (const kx::Exception&) {} // not yet to be calculated";
        FBody += Indented(code);
    }
    std::string CodeOf(const TStep& Step, const TPart& Part) {
        const std::string& name = FNames[Step.Part];
        if (!IsKnown(Part) || RefersToUnknown(Step)) return ByText(Step, name);
        std::string object = name + "->";
        const TPropertyTable* table = Part.Table;
        const TPersistent* inner = Part.Component;
        for (std::size_t i = 0; i + 1 < Step.Way.size(); ++i) {
            object.append("Get").append(Step.Way[i].Name).append("().");
            inner = std::get<TPersistent*>(Step.Way[i].Get(*inner));
            table = &inner->PublishedProperties();
        }
        const std::string property(Step.Row().Name);
        if (IsCppField(property)) return object + property + " = " + ValueOf(Step) + ";";
        return object + CppSetterOf(*table, property) + "(" + ValueOf(Step) + ");";
    }
    /// A variable of a class without a header is a plain component.
    bool RefersToUnknown(const TStep& Step) const {
        const auto* target = std::get_if<TComponent*>(&Step.Value);
        return target && *target && std::ranges::none_of(FForm.GetParts(), [&](const TPart& Part) {
                   return Part.Component == *target && IsKnown(Part);
               });
    }
    std::string ValueOf(const TStep& Step) const {
        return Step.Row().Kind == TPropertyKind::Reference ? Referred(Step)
                                                           : CppValue(Step.Row(), Step.Value);
    }
    std::string Referred(const TStep& Step) const {
        const TComponent* component = std::get<TComponent*>(Step.Value);
        if (!component) return "nullptr";
        const std::string& name = FVariables.at(component);
        return name == FNames.front() ? Owner() : name;
    }
    /// Of classes of which only the name is known.
    std::string ByText(const TStep& Step, const std::string& Name) const {
        std::string path;
        for (const TProperty& row : Step.Way) path.append(path.empty() ? "" : ".").append(row.Name);
        const std::string text = CppText(PropertyToText(Step.Row(), Step.Value));
        const std::string find =
            Step.Row().Kind == TPropertyKind::Reference
                ? ", [&](std::string_view Name) { return " + FNames.front() + "->FindComponent(Name); }"
                : std::string();
        return "kx::SetPropertyText(*" + Name + ", " + CppText(path) + ", " + text + find + ");";
    }

    void WriteData(const TPart& Part, const std::string& Name, const TFormProperty& Data) {
        const std::string_view what = FForm.GetText().TextOf(Data.Name);
        if (what == "Values")
            WriteNumbers(Name, Data);
        else if (what == "Coefficients")
            WriteCoefficients(Part, Name, Data);
        else if (what != "CoefficientNames")
            FBody +=
                Indented("// " + Name + " has " + std::string(what) + ", which only its form file holds.");
    }
    void WriteNumbers(const std::string& Name, const TFormProperty& Data) {
        std::vector<std::string> numbers;
        for (const double value : FForm.NumbersOf(Data)) numbers.push_back(CppReal(value));
        if (numbers.empty()) return;
        FBody +=
            Indented("static const double " + Name + "Values[] = {") + Wrapped(numbers, "        ") + "};\n";
        Call(Name, "AddValues", Name + "Values");
    }
    void WriteCoefficients(const TPart& Part, const std::string& Name, const TFormProperty& Data) {
        std::vector<std::string> names;
        for (const TFormProperty& other : Part.Data)
            if (FForm.GetText().TextOf(other.Name) == "CoefficientNames")
                for (const std::string& text : FForm.TextsOf(other)) names.push_back(CppText(text));
        const std::vector<double> start = FForm.NumbersOf(Data);
        WriteModel(Part, Name, names, start.size());
        for (std::size_t i = 0; i < start.size(); ++i)
            Call(Name, "SetCoefficient", std::to_string(i) + ", " + CppReal(start[i]));
    }
    /// An expression that is a formula is the model; other models are the program's.
    void WriteModel(const TPart& Part, const std::string& Name, const std::vector<std::string>& Names,
                    std::size_t Count) {
        const std::string list = "{" + Joined(Names) + "}";
        const std::string expression = ExpressionOf(Part);
        if (IsFormula(expression, Names, Count)) {
            FHeaders.insert("formula/Kxformula.h");
            FBody += Indented("kx::SetFormula(*" + Name + ", " + CppText(expression) +
                              (Names.empty() ? ");" : ", " + list + ");"));
        } else {
            FBody += Indented("// " + Name + " needs its model: SetFittingFunction, or kx::SetFormula.");
            if (!Names.empty()) Call(Name, "SetCoefficientNames", list);
        }
    }
    static std::string ExpressionOf(const TPart& Part) {
        const TProperty* row = Part.Table->Find("Expression");
        return row ? std::get<std::string>(row->Get(*Part.Component)) : std::string();
    }
    /// Of just these coefficients; Names are literals.
    static bool IsFormula(const std::string& Text, const std::vector<std::string>& Names, std::size_t Count) {
        if (Text.empty() || !CanReadDesignFormulas()) return false;
        try {
            const auto formula = ReadDesignFormula(Text);
            const auto isKnown = [&](const std::string& Name) {
                return std::ranges::count(Names, CppText(Name)) > 0;
            };
            if (Names.empty()) return formula->GetNames().size() == Count;
            return Names.size() == Count && std::ranges::all_of(formula->GetNames(), isKnown);
        } catch (const Exception&) {
            return false;
        }
    }

    /// Handlers are the program's own.
    void WriteEvents() {
        for (std::size_t i = 0; i < FForm.GetParts().size(); ++i) {
            const TComponent& component = *FForm.GetParts()[i].Component;
            for (const TProperty* row : FForm.GetParts()[i].Table->All()) {
                if (row->Kind != TPropertyKind::Event) continue;
                const std::string_view name =
                    EventNameOf(component, row->Name, std::get<TEventValue>(row->Get(component)));
                if (!name.empty())
                    FBody += Indented("// " + FNames[i] + "->" + std::string(row->Name) + " calls " +
                                      std::string(name) + ".");
            }
        }
    }

    std::string RootType() const {
        const TPart& root = FForm.GetParts().front();
        return IsKnown(root) ? "kx::" + std::string(root.Class) : "kx::TComponent";
    }
    std::string Head() const {
        std::string text = "// " + FNames.front() + ", as it was made in the form designer.\n\n";
        std::set<std::string> headers = FHeaders;
        if (FExtent == TKxCppExtent::Program)
            headers.insert({"platform/host/application.h", "qtwidgets/Kxwidgetshost.h"});
        for (const std::string& header : headers)
            text.append("#include <kxgraph/").append(header).append(">\n");
        if (FExtent == TKxCppExtent::Program) text += "\n#include <QApplication>\n";
        return text + "\n#include <cmath>\n#include <memory>\n#include <string_view>\n\n";
    }
    std::string Function() const {
        return "std::unique_ptr<" + RootType() + "> Make" + FNames.front() + "() {\n" + FBody +
               "    return " + FNames.front() + ";\n}\n";
    }
    std::string Main() const {
        return "\nint main(int Count, char** Arguments) {\n"
               "    QApplication application(Count, Arguments);\n"
               "    kx::qt::InstallWidgets();\n"
               "    const auto form = Make" +
               FNames.front() +
               "();\n"
               "    form->Show();\n"
               "    kx::TApplication::Instance().Run();\n"
               "}\n";
    }

    TKxCppForm FForm;
    TKxCppExtent FExtent;
    std::vector<std::string> FNames; // of the variables of the parts
    std::unordered_map<const TComponent*, std::string> FVariables;
    std::set<std::string> FHeaders;
    std::string FBody;
};

} // namespace

std::string FormToCpp(TComponent& Root, TKxCppExtent Extent) { return TProgram(Root, Extent).Write(); }

} // namespace kx
