#pragma once
// Writes a form as text, or its components one by one. What writes again and again keeps one writer.

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formmodels.h>
#include <kxgraph/platform/streaming/formrows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kx {

/// A component as a form file has it, without what stands in it.
struct TFormPart {
    /// What it writes beside its properties.
    struct TData {
        std::string Name;
        std::uint64_t Version;                   ///< 0: it has none
        std::shared_ptr<const std::string> Text; ///< the lines
    };
    std::string Class;
    std::string Lines; ///< its properties: "Path = value\n", in the order of the file
    std::vector<TData> Data;
};

class TFormWriter {
public:
    TFormWriter(TComponent& Root, std::string FileName) : FRoot(Root), FFileName(std::move(FileName)) {}
    std::string Write();

    using TChildren = std::unordered_map<const TComponent*, std::vector<TComponent*>>;
    /// What stands in each component, in the order of the file.
    TChildren Children();
    /// One component. Data whose version is that of Before are those of Before: they are not written again.
    TFormPart WritePart(TComponent& Component, const TFormPart* Before = nullptr);
    /// What stands at a property of Component, or of an object that is part of it, when it is unchanged;
    /// empty where there is no such property.
    std::string UnchangedForm(const TComponent& Component, std::string_view Path);
    void SetFileName(const std::string& FileName) { FFileName = FileName; }

private:
    /// An object of a component, and the same object of an unchanged one.
    struct TPair {
        const TPersistent& Object;
        const TPersistent& Fresh;
    };

    TComponent* PlaceOf(const TComponent& Component) const;
    TFormModels::TModel ModelOf(const TComponent& Component);
    void WriteObject(TComponent& Component, int Depth);
    void WriteParent(const TComponent& Component, int Depth);
    void WriteRows(const TPropertyTable& Table, TPair Pair, const std::string& Prefix, bool Whole);
    void WriteRow(const TProperty& Row, bool IsPublished, TPair Pair, const std::string& Prefix, bool Whole);
    void WriteSubObject(const TProperty& Row, TPair Pair, const std::string& Prefix, bool Whole);
    void WriteLine(std::string_view Path, std::string_view Form);
    std::string FormOf(const TProperty& Row, const TPropertyValue& Value) const;
    std::string ReferenceForm(const TProperty& Row, const TComponent* Component) const;

    TComponent& FRoot;
    std::string FFileName, FText, FIndent;
    const TComponent* FWritten = nullptr; // for messages
    TChildren FChildren;                  // in the order of components
    TFormModels FModels;
};

} // namespace kx
