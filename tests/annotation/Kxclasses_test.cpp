// What holds for every registered class: properties, outfits, and destruction in any order.

#include <kxgraph/annotation/Kxclasses.h>

#include "support/testing.h"

#include <kxgraph/graph/Kxgraph2d.h>
#include <kxgraph/persist/Kxoutfit.h>
#include <kxgraph/platform/controls/form.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/propertytext.h>
#include <kxgraph/platform/streaming/formfile.h>

namespace kx::test::classes {

/// A form with one component of each class, two of those that go in pairs.
struct TAll {
    TAll() {
        RegisterClasses();
        Form->SetName("Form1");
        Form->SetBounds(0, 0, 420, 320);
        for (const auto& type : RegisteredClasses()) {
            if (type.Name == "TForm") continue;
            Add(type, 1);
            if (type.Name == "TKxAxis" || type.Name == "TKxLiveVector") Add(type, 2);
        }
    }
    ~TAll() { delete TApplication::Instance().FindComponent("Form1"); }

    TComponent* Add(const TComponentClass& Class, int Number) {
        TComponent* component = Class.Make(Form);
        component->SetName(std::string(Class.Name) + std::to_string(Number));
        Parts.push_back(component);
        return component;
    }
    template <class T>
    T& Get(std::string_view Name) {
        return dynamic_cast<T&>(*Form->FindComponent(Name));
    }
    /// Vectors that get their values elsewhere serve nobody here.
    static bool IsBound(const TComponent& Part) {
        return dynamic_cast<const TKxCustomRealVector*>(&Part) && typeid(Part) != typeid(TKxRealVector) &&
               typeid(Part) != typeid(TKxLiveVector);
    }
    /// The first of those that the property takes; for the second of a pair (YAxis, dYData) the last.
    TComponent* For(const TProperty& Property, const TPersistent* Object) const {
        TComponent* found = nullptr;
        const bool takesLast = Property.Name.find('Y') != Property.Name.npos;
        for (TComponent* part : Parts)
            if (part != Object && Property.Accepts(part) && !IsBound(*part) && (!found || takesLast))
                found = part;
        return found;
    }

    TForm* Form = new TForm(&TApplication::Instance());
    std::vector<TComponent*> Parts;
};

/// A value that the property has not.
TPropertyValue Other(const TAll& All, const TProperty& Property, const TPersistent& Object) {
    const TPropertyValue value = Property.Get(Object);
    const auto ordinal = [&] { return std::get<std::int64_t>(value); };
    switch (Property.Kind) {
    case TPropertyKind::Bool: return !std::get<bool>(value);
    case TPropertyKind::Integer: return ordinal() + 100;
    case TPropertyKind::Real: return std::get<double>(value) + 0.5;
    case TPropertyKind::Text: return "Other" + std::get<std::string>(value);
    case TPropertyKind::Enumeration: return (ordinal() + 1) % std::int64_t(Property.ValueNames.size());
    case TPropertyKind::Flags: return ordinal() ^ 1;
    case TPropertyKind::Color: return ordinal() == clTeal ? clRed : std::int64_t(clTeal);
    case TPropertyKind::Reals: return std::vector<double>(std::get<std::vector<double>>(value).size(), 1.5);
    case TPropertyKind::Reference: return All.For(Property, &Object);
    case TPropertyKind::SubObject:
    case TPropertyKind::Event: break;
    }
    return value;
}

bool HasText(const TProperty& Property) {
    return Property.Set && Property.Kind != TPropertyKind::SubObject && Property.Kind != TPropertyKind::Event;
}

void CheckText(TAll& All, const TComponentClass& Class, const std::string& Path, const TProperty& Property,
               const TPersistent& Inner) {
    SCOPED_TRACE(std::string(Class.Name) + "." + Path);
    const TComponentFinder find = [&](std::string_view Name) { return All.Form->FindComponent(Name); };
    const std::string before = PropertyToText(Property, Property.Get(Inner));
    const std::string other = PropertyToText(Property, Other(All, Property, Inner));
    const std::unique_ptr<TComponent> set(Class.Make(All.Form)), again(Class.Make(All.Form));
    SetPropertyText(*set, Path, other, find);
    const std::string after = GetPropertyText(*set, Path);
    EXPECT_NE(after, before);
    set->SetName("");
    SetPropertyText(*again, Path, after, find);
    EXPECT_EQ(GetPropertyText(*again, Path), after);
}

TEST(Classes, PropertiesBeginWithTheirDefaultsAndReadTheirTextsBack) {
    TAll all;
    TFaults faults;
    for (const auto& type : RegisteredClasses()) {
        const std::unique_ptr<TComponent> fresh(type.Make(all.Form));
        for (const TProperty* property : type.Properties().All()) {
            const bool hasDefault = property->Default.index() != 0;
            EXPECT_FALSE(hasDefault && IsStored(*fresh, *property)) << type.Name << "." << property->Name;
            const std::string name(property->Name);
            if (HasText(*property)) CheckText(all, type, name, *property, *fresh);
            if (property->Kind != TPropertyKind::SubObject) continue;
            const TPersistent& inner = *std::get<TPersistent*>(property->Get(*fresh));
            for (const TProperty* part : inner.PublishedProperties().All())
                if (HasText(*part)) CheckText(all, type, name + "." + std::string(part->Name), *part, inner);
        }
    }
}

void ChangeRows(const TAll& All, TPersistent& Object, const TPropertyTable& Table) {
    if (Table.GetBase()) ChangeRows(All, Object, *Table.GetBase());
    for (const TProperty& row : Table.GetKept()) {
        if (row.Kind == TPropertyKind::SubObject) {
            TPersistent& inner = *std::get<TPersistent*>(row.Get(Object));
            ChangeRows(All, inner, inner.PublishedProperties());
        } else if (row.Set) {
            MessageOf([&] { row.Set(Object, Other(All, row, Object)); }); // some exclude one another
        }
    }
}

TEST(Classes, OutfitsBringBackWhatWasSaved) {
    TAll all;
    TFaults faults;
    std::string listed;
    for (const auto& type : RegisteredClasses()) {
        SCOPED_TRACE(type.Name);
        const std::unique_ptr<TComponent> saved(type.Make(all.Form)), read(type.Make(all.Form));
        TKxIniList none, fresh, untouched, text, again, missing;
        SaveRows(*read, type.Name, fresh);
        LoadRows(*read, type.Name, none);
        SaveRows(*read, type.Name, untouched);
        EXPECT_EQ(untouched.GetText(), fresh.GetText()) << "an empty store changes nothing";
        ChangeRows(all, *saved, saved->PublishedProperties());
        SaveRows(*saved, type.Name, text);
        LoadRows(*read, type.Name, text);
        SaveRows(*read, type.Name, again);
        EXPECT_EQ(again.GetText(), text.GetText());
        LoadRows(*saved, type.Name, none);
        SaveRows(*saved, type.Name, missing);
        for (int i = 0; i < missing.GetCount(); ++i)
            if (missing.GetLine(i) != text.GetLine(i)) text.Add("without the key " + missing.GetLine(i));
        listed += fresh.GetText() + text.GetText();
    }
    ExpectRecording("outfits", listed);
}

/// What a property has and what an outfit keeps beside, sub-objects' rows with the path to them.
struct TPath {
    std::string Name;
    std::vector<TProperty> Rows; ///< the last one is the property, those before lead to it

    TPersistent& Inner(TComponent& Component) const {
        TPersistent* object = &Component;
        for (std::size_t i = 0; i + 1 < Rows.size(); ++i)
            object = std::get<TPersistent*>(Rows[i].Get(*object));
        return *object;
    }
    std::string Text(TComponent& Component) const {
        return PropertyToText(Rows.back(), Rows.back().Get(Inner(Component)));
    }
    bool IsStored(TComponent& Component) const {
        TPersistent* object = &Component;
        for (const TProperty& row : Rows) {
            if (row.Stored && !row.Stored(*object)) return false;
            if (row.Kind == TPropertyKind::SubObject) object = std::get<TPersistent*>(row.Get(*object));
        }
        return true;
    }
};

/// What a property counts for only where another one has this value.
void Prepare(TComponent& Part, const std::string& Property) {
    const bool isSize = Property == "Width" || Property == "Height";
    const char* other = isSize ? "AutoSize" : Property.ends_with("Part") ? "AutoTicks" : "Name";
    if (other != std::string("Name") && Part.PublishedProperties().Find(other))
        SetPropertyText(Part, other, "0");
}

std::vector<TPath> PathsOf(const TPropertyTable& Table, TPersistent& Fresh) {
    std::vector<TProperty> rows;
    for (const TProperty* row : Table.All()) rows.push_back(*row);
    for (const TPropertyTable* table = &Table; table; table = table->GetBase())
        for (const TProperty& row : table->GetKept())
            if (!Table.Find(row.Name)) rows.push_back(row);
    std::vector<TPath> paths;
    for (const TProperty& row : rows) {
        if (HasText(row)) paths.push_back({std::string(row.Name), {row}});
        if (row.Kind != TPropertyKind::SubObject) continue;
        TPersistent& inner = *std::get<TPersistent*>(row.Get(Fresh));
        for (TPath& path : PathsOf(inner.PublishedProperties(), inner)) {
            path.Rows.insert(path.Rows.begin(), row);
            paths.push_back({std::string(row.Name) + "." + path.Name, std::move(path.Rows)});
        }
    }
    return paths;
}

TEST(Classes, FormFilesBringBackEachPropertyOffItsDefault) {
    std::set<std::string> unset, unstored;
    RegisterClasses();
    for (const auto& type : RegisteredClasses()) {
        TAll all;
        TFaults faults;
        const std::unique_ptr<TComponent> fresh(type.Make(nullptr));
        const std::vector<TPath> paths = PathsOf(type.Properties(), *fresh);
        std::vector<TComponent*> changed;
        for (const TPath& path : paths) {
            const std::string name = path.Name;
            TComponent& part = *all.Add(type, 100 + int(changed.size()));
            Prepare(part, name);
            TPersistent& inner = path.Inner(part);
            const std::string before = path.Text(part), kept = part.GetName();
            MessageOf([&] { path.Rows.back().Set(inner, Other(all, path.Rows.back(), inner)); });
            if (path.Text(part) == before) unset.insert(std::string(type.Name) + "." + name);
            part.SetName(kept);
            changed.push_back(&part);
        }
        const std::string text = FormToText(*all.Form);
        const auto read = FormFromText(text);
        EXPECT_EQ(FormToText(*read), text) << type.Name;
        for (std::size_t i = 0; i < paths.size(); ++i) {
            TComponent& part = *changed[i];
            if (!paths[i].IsStored(part)) unstored.insert(paths[i].Name);
            TComponent* again = read->FindComponent(part.GetName());
            for (const TPath& path : paths) {
                if (!path.IsStored(part)) continue;
                EXPECT_EQ(path.Text(*again), path.Text(part))
                    << type.Name << "." << path.Name << " with " << paths[i].Name;
            }
        }
    }
    EXPECT_EQ(unset, std::set<std::string>{"TKxFittedLine.Coefs"}) << "of a line without coefficients";
    for (const char* of : {"CaptionFont.", "Font.", "TitleFont."}) // Style and Height hold them
        for (const char* part : {"Bold", "Italic", "Underline", "StrikeOut", "Size"})
            EXPECT_EQ(unstored.erase(std::string(of) + part), 1u);
    EXPECT_EQ(unstored, (std::set<std::string>{"Coefs", "Name", "XData", "YData"})) << "what is computed";
}

TEST(Classes, FormFilesHoldNoDefaultsOfFreshObjects) {
    TAll all;
    const std::string text = FormToText(*all.Form);
    const TPropertyTable* table = nullptr;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (const auto colon = line.find(": T"); colon != line.npos)
            table = &FindClass(line.substr(colon + 2))->Properties();
        const auto equals = line.find(" = "), start = line.find_first_not_of(' ');
        if (equals == line.npos || line.find("Parent = nil") != line.npos) continue;
        const std::string name = line.substr(start, equals - start);
        const TProperty* row = table->Find(name);
        EXPECT_TRUE(row && row->Default.index() == 0) << line << " of " << table->GetClassName();
    }
}

/// All components bound to one another as far as their properties take them, and some data.
struct TBound : TAll {
    TBound() {
        auto& graph = Get<TKx2DGraph>("TKx2DGraph1");
        graph.SetBounds(0, 0, 400, 300);
        Get<TKxAxis>("TKxAxis1").SetPosition(AxBottomPos);
        for (TComponent* part : Parts)
            if (auto* control = dynamic_cast<TControl*>(part))
                control->SetParent(part == &graph ? static_cast<TWinControl*>(Form) : &graph);
        for (const char* name : {"TKxRealVector1", "TKxLiveVector1", "TKxLiveVector2"})
            for (const double value : {1, 2, 4, 3, 6}) Get<TKxRealVector>(name).Add(value);
        ForReferences([this](TComponent* Part, const TProperty& Property) {
            MessageOf([&] { Property.Set(*Part, For(Property, Part)); }); // some cannot be calculated
        });
        Draw();
    }
    void Draw() {
        TRecorder recorder({420, 320}, 96, false);
        PaintFrame(*Form, recorder);
    }
    template <class F>
    static void ForReferencesOf(TComponent* Part, F Do) {
        for (const TProperty* property : Part->PublishedProperties().All())
            if (property->Kind == TPropertyKind::Reference) Do(Part, *property);
    }
    template <class F>
    void ForReferences(F Do) {
        for (TComponent* part : Parts) ForReferencesOf(part, Do);
    }
    static std::vector<TComponent*> ReferencesOf(TComponent* Component) {
        std::vector<TComponent*> all;
        ForReferencesOf(Component, [&](TComponent* Part, const TProperty& Property) {
            all.push_back(std::get<TComponent*>(Property.Get(*Part)));
        });
        return all;
    }
    void Destroy(std::size_t Index) {
        TComponent* gone = Doomed[Index];
        std::erase(Parts, gone);
        delete gone;
        for (TComponent* part : Parts) EXPECT_EQ(std::ranges::count(ReferencesOf(part), gone), 0);
    }
    const std::vector<TComponent*> Doomed = Parts; ///< all, also when some have gone
};

TEST(Classes, FormFilesBringBackAWholeFormWithAllItsReferences) {
    TFaults faults;
    TBound all;
    for (int round = 0; round < 2; ++round) {
        const std::string text = FormToText(*all.Form);
        const auto read = FormFromText(text);
        EXPECT_EQ(FormToText(*read), text);
        all.ForReferences([&](TComponent* Part, const TProperty& Property) {
            TComponent* target = std::get<TComponent*>(Property.Get(*Part));
            TComponent* again = std::get<TComponent*>(Property.Get(*read->FindComponent(Part->GetName())));
            EXPECT_EQ(target ? target->GetName() : "", again ? again->GetName() : "")
                << Part->GetName() << Property.Name;
        });
        for (TComponent* part : all.Parts) ChangeRows(all, *part, part->PublishedProperties());
    }
}

TEST(Classes, EitherOfTwoThatReferToOneAnotherMayBeDestroyedFirst) {
    TFaults faults;
    std::vector<std::pair<std::size_t, std::size_t>> pairs;
    {
        TBound all;
        for (std::size_t i = 0; i < all.Doomed.size(); ++i)
            for (TComponent* other : all.ReferencesOf(all.Doomed[i]))
                if (other) pairs.emplace_back(i, std::ranges::find(all.Doomed, other) - all.Doomed.begin());
    }
    EXPECT_GT(pairs.size(), 60u);
    for (const auto& [from, to] : std::set(pairs.begin(), pairs.end())) {
        for (const bool isTargetFirst : {false, true}) {
            TBound all;
            SCOPED_TRACE(all.Doomed[from]->GetName() + " " + all.Doomed[to]->GetName());
            all.Destroy(isTargetFirst ? to : from);
            all.Destroy(isTargetFirst ? from : to);
            all.Draw();
        }
    }
}

TEST(Classes, AllMayBeDestroyedInAnyOrder) {
    TFaults faults;
    std::mt19937 random(5);
    for (int round = 0; round < 20; ++round) {
        TBound all;
        std::vector<std::size_t> order(all.Doomed.size());
        std::iota(order.begin(), order.end(), 0);
        std::shuffle(order.begin(), order.end(), random);
        order.resize(random() % order.size()); // the form takes the rest along
        for (const std::size_t index : order) all.Destroy(index), all.Draw();
    }
}

} // namespace kx::test::classes
