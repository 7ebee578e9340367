#pragma once
// Commands of a designer at random: components, places, texts of the clipboard, and every property that is
// published, with values that it takes and values that it refuses.

#include <kxgraph/design/Kxdesignarrange.h>
#include <kxgraph/design/Kxdesignclipboard.h>
#include <kxgraph/design/Kxdesigncommands.h>
#include <kxgraph/platform/objects/classes.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace kx {

class TRandomCommands {
public:
    TRandomCommands(TKxDesignDocument& Document, unsigned Seed) : FDocument(Document), FRandom(Seed) {}

    /// One command; what it raises is no matter.
    void Step() {
        try {
            Do(Below(24));
        } catch (const std::exception&) {
        }
    }

private:
    int Below(int Count) { return int(FRandom() % unsigned(Count)); }
    template <class C>
    auto& OneOf(C&& All) {
        return All[std::size_t(Below(int(All.size())))];
    }

    TComponent* Any() {
        TForm& form = FDocument.GetForm();
        const int index = Below(form.GetComponentCount() + 1);
        return index == 0 ? &form : form.GetComponent(index - 1);
    }
    TWinControl* AnyParent() {
        auto* parent = dynamic_cast<TWinControl*>(Any());
        return parent ? parent : &FDocument.GetForm();
    }

    void Create() {
        if (FDocument.GetForm().GetComponentCount() > 25) return DeleteSelected(FDocument);
        const TComponentClass& type = OneOf(RegisteredClasses());
        if (type.Page.empty()) return;
        CreateComponent(FDocument, type.Name,
                        {AnyParent(), {Below(300), Below(300)}, {Below(200), Below(200)}});
    }

    TPropertyValue Value(const TProperty& Row) {
        static const std::vector<std::string> texts{"", "a", "x\\b y\\B", "Graph1", "\xc3\xa4\n", "\\", "1"};
        switch (Row.Kind) {
        case TPropertyKind::Bool: return Below(2) == 1;
        case TPropertyKind::Integer: return std::int64_t(Below(60) - 5);
        case TPropertyKind::Real: return (Below(200) - 50) * 0.25;
        case TPropertyKind::Enumeration: return std::int64_t(Below(int(Row.ValueNames.size())));
        case TPropertyKind::Flags: return std::int64_t(Below(1 << Row.ValueNames.size()));
        case TPropertyKind::Text: return OneOf(texts);
        case TPropertyKind::Color: return std::int64_t(Below(1 << 24));
        case TPropertyKind::Reals: return std::vector<double>(std::size_t(Below(4)), 2.5);
        case TPropertyKind::Reference:
            for (int i = 0; i < 20; ++i)
                if (TComponent* component = Any(); Row.Accepts(component)) return component;
            return static_cast<TComponent*>(nullptr);
        default: return std::monostate();
        }
    }

    void SetProperty(TPersistent& Object) {
        const auto rows = Object.PublishedProperties().All();
        const TProperty& row = *OneOf(rows);
        if (row.Kind == TPropertyKind::SubObject)
            return SetProperty(*std::get<TPersistent*>(row.Get(Object)));
        const TPropertyValue value = Value(row);
        if (row.Set && row.Name != "Visible" && !std::holds_alternative<std::monostate>(value))
            row.Set(Object, value);
    }

    void Do(int Command) {
        switch (Command) {
        case 0:
        case 1: return Create();
        case 2: return Below(3) ? void() : DeleteSelected(FDocument);
        case 3: return MoveSelected(FDocument, {Below(20) - 10, Below(20) - 10}, Below(2) ? "move" : "");
        case 4: return ResizeSelected(FDocument, {Below(20) - 10, Below(20) - 10});
        case 5: return RenameComponent(FDocument, *Any(), "Name" + std::to_string(Below(9)));
        case 6: return ReparentSelected(FDocument, *AnyParent());
        case 7: return AlignSelected(FDocument, TKxDesignEdge(Below(6)));
        case 8: return SameSizeSelected(FDocument, TKxDesignSize(Below(3)));
        case 9: return BringSelectedToFront(FDocument);
        case 10: return SendSelectedToBack(FDocument);
        case 11: return CopySelected(FDocument);
        case 12:
            return FDocument.GetForm().GetComponentCount() > 25 ? CutSelected(FDocument) : Paste(FDocument);
        case 13: return SpreadSelected(FDocument, TKxDesignSpread(Below(2)));
        case 14: return FDocument.Undo();
        case 15: return FDocument.Redo();
        case 16:
        case 17:
        case 18: return Below(2) ? FDocument.Select(Any()) : FDocument.ToggleSelected(Any());
        default: {
            TComponent* component = Any();
            FDocument.Run({"Change"}, [&] { SetProperty(*component); });
        }
        }
    }

    TKxDesignDocument& FDocument;
    std::mt19937 FRandom;
};

} // namespace kx
