#pragma once
// Makes a form of the tree of its file. For formfile.h alone.

#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/streaming/filer.h>
#include <kxgraph/platform/streaming/formreading.h>
#include <kxgraph/platform/streaming/formrows.h>
#include <kxgraph/platform/streaming/formtext.h>
#include <kxgraph/platform/streaming/formtree.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kx {

/// In rounds over all objects, so that each finds what it relies on: they are made; get their values, each
/// alone; stand in their parents; refer to one another; get their handlers; and are told that they are
/// loaded.
class TFormReader {
public:
    TFormReader(const TFormText& Text, const TFormReading& Reading) : FText(Text), FReading(Reading) {}
    std::unique_ptr<TComponent> Read(const TFormObject& Tree);
    /// What of Objects was made in Root. See UpdateForm.
    std::vector<TComponent*> Update(TComponent& Root, const std::vector<TFormObject>& Objects);

private:
    struct TPart {
        const TFormObject* Node;
        TComponent* Component;
        TComponent* Parent; ///< null for the root, and where there is to be none
        const TComponentClass* Class;
        bool IsNew;
    };
    /// What is set when all parts stand.
    struct TLater {
        TComponent* Component;
        TPersistent* Object;
        const TProperty* Row;
        std::size_t Token;
        bool IsNew; ///< the part that it is set in
        const TComponentClass* Class = nullptr;
        std::size_t Name = 0; ///< the token of the path
    };
    /// Where a path of names ends.
    struct TPlace {
        TPersistent* Object;
        const TProperty* Row; ///< null where the first name is none of the class
    };

    void ReadParts();
    void Make(const TFormObject& Node, TComponent* Parent);
    TComponent* MakeNew(const TFormObject& Node, const TComponentClass& Class);
    TComponent* FindStanding(const TFormObject& Node, const TComponentClass& Class) const;
    void Withdraw() noexcept;
    const TComponentClass& ClassOf(const TFormObject& Node) const;
    void Name(const TFormObject& Node, TComponent& Component) const;
    void ReadPart(TPart& Part);
    bool ReadParent(TPart& Part, const TFormProperty& Property) const;
    TPlace Find(const TPart& Part, const TFormProperty& Property);
    void ReadValue(const TPart& Part, TPlace Place, const TFormProperty& Property);
    void DemandOnce(const TPart& Part) const;
    void ReadData(const TPart& Part, std::vector<TReader::TData>& Data);
    [[noreturn]] void RaiseUnknown(std::size_t Token, std::size_t Within, std::string_view Name,
                                   std::string_view Class, std::vector<std::string_view> Known) const;
    void Stand() const;
    void Refer() const;
    void Connect() const;
    void ConnectOne(const TLater& Event) const;
    void Disconnect(const TLater& Event, const std::string& Name) const;
    void EndLoading() const;
    TComponent* Referred(const TLater& Later) const;
    /// Does what may raise for a value that the component does not take, and then says where that stands.
    template <class F>
    void At(std::size_t Token, F Action, const std::string& Prefix = {}) const;

    const TFormText& FText;
    const TFormReading& FReading;
    TComponent* FRoot = nullptr;
    bool FIsUpdate = false;
    std::vector<TPart> FParts;
    std::vector<TLater> FReferences, FEvents;
};

} // namespace kx
