#pragma once
// What a program has to do so that a form comes about by its setters. For Kxformtocpp alone.

#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/formmodels.h>
#include <kxgraph/platform/streaming/formrows.h>
#include <kxgraph/platform/streaming/formtext.h>
#include <kxgraph/platform/streaming/formtree.h>

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// A form taken to pieces: its components in the order in which a form file has them, what is set in each,
/// and what that has to be given besides. Setters do more than form files, which load past them: the steps
/// are tried out on a form of their own, and what has come out differently is set once more at the end.
class TKxCppForm {
public:
    /// A property that is set; Way are the rows that lead to it.
    struct TStep {
        std::size_t Part;
        std::vector<TProperty> Way;
        TPropertyValue Value;
        bool Fails = false; ///< raises, as an analysis does that cannot be calculated yet

        const TProperty& Row() const { return Way.back(); }
    };
    struct TPart {
        TComponent* Component;
        std::string_view Class;          ///< as a form file has it
        const TPropertyTable* Table;     ///< of that class
        std::size_t Parent;              ///< index; CNone
        std::vector<TStep> Values;       ///< no references
        std::vector<TFormProperty> Data; ///< what is no row
    };
    static constexpr std::size_t CNone = std::size_t(-1);

    /// Raises EFormError for what a form file cannot hold. Root must live as long as this.
    explicit TKxCppForm(TComponent& Root);

    const std::vector<TPart>& GetParts() const { return FParts; }
    /// Set when all components have their values, in this order; those that were set once already last.
    const std::vector<TStep>& GetLast() const { return FLast; }
    /// Paths ("Axis1.Start") that setters do not bring to what they are.
    const std::vector<std::string>& GetUnreached() const { return FUnreached; }
    const TFormText& GetText() const { return FTokens; }
    /// Numbers, or texts, of a piece of data.
    std::vector<double> NumbersOf(const TFormProperty& Data) const;
    std::vector<std::string> TextsOf(const TFormProperty& Data) const;

private:
    using TChildren = std::map<const TComponent*, std::vector<TComponent*>>;
    void Add(const TFormObject& Node, TComponent& Component, std::size_t Parent, const TChildren& Children);
    void AddProperty(TPart& Part, const TFormProperty& Property);
    std::vector<TProperty> WayOf(const TPart& Part, std::string_view Path);
    void DropUntouched(TPart& Part);
    void TakeReferences();
    void Try();
    bool AddDifferences(TComponent& Made, bool IsLast);

    TComponent& FRoot;
    std::string FText;
    TFormText FTokens;
    TFormModels FModels;
    std::vector<TPart> FParts;
    std::vector<TStep> FLast;
    std::vector<std::string> FUnreached;
};

} // namespace kx
