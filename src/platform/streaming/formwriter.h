#pragma once
// Writes a form as text. For formfile.h alone.

#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formrows.h>

#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <unordered_map>
#include <vector>

namespace kx {

class TFormWriter {
public:
    TFormWriter(TComponent& Root, std::string FileName) : FRoot(Root), FFileName(std::move(FileName)) {}
    std::string Write();

private:
    /// What a component is written as, and an unchanged one of that class.
    struct TModel {
        const TComponentClass* Class;
        const TComponent* Fresh;
    };
    /// An object of a component, and the same object of an unchanged one.
    struct TPair {
        const TPersistent& Object;
        const TPersistent& Fresh;
    };

    void FindChildren();
    TComponent* PlaceOf(const TComponent& Component) const;
    TModel ModelOf(const TComponent& Component);
    const TComponent& FreshOf(const TComponentClass& Class);
    void WriteObject(TComponent& Component, int Depth);
    void WriteParent(const TComponent& Component, int Depth);
    void WriteRows(const TPropertyTable& Table, TPair Pair, const std::string& Prefix, bool Whole);
    void WriteRow(const TProperty& Row, bool IsPublished, TPair Pair, const std::string& Prefix, bool Whole);
    void WriteSubObject(const TProperty& Row, TPair Pair, const std::string& Prefix, bool Whole);
    std::string FormOf(const TProperty& Row, const TPropertyValue& Value) const;
    std::string ReferenceForm(const TProperty& Row, const TComponent* Component) const;

    TComponent& FRoot;
    std::string FFileName, FText, FIndent;
    const TComponent* FWritten = nullptr; // for messages
    TFormRowCache FRows;
    std::unordered_map<const TComponent*, std::vector<TComponent*>> FChildren; // in the order of components
    std::unordered_map<std::type_index, TModel> FModels;
    std::unordered_map<const TComponentClass*, std::unique_ptr<TComponent>> FFresh;
};

} // namespace kx
