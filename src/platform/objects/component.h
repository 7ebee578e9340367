#pragma once
// Components: named objects that own one another, find one another, and are told when another one goes.

#include <kxgraph/platform/objects/order.h>
#include <kxgraph/platform/objects/persistent.h>

#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <typeinfo>
#include <unordered_map>

namespace kx {

class TFiler;

enum TOperation { opInsert, opRemove };

/// What a component is going through, as bits of TComponentState.
enum TComponentStateFlag : unsigned {
    csLoading = 1,    ///< between the first read property and Loaded
    csDesigning = 2,  ///< lies in the form designer
    csDestroying = 4, ///< its destructor runs
    csUpdating = 8
};
using TComponentState = unsigned;

/// An object with an owner and a name. The owner deletes what it still owns when it is destroyed; a component
/// that is destroyed earlier (also one on the stack) leaves its owner by itself.
/// Components belong to the thread that made the application object: only that one may touch them.
/// Removal notices (Notification with opRemove) leave from this class's destructor, when the derived parts
/// are gone: a Notification override compares addresses and never casts the component it is given. Everybody
/// is told before the first owned component is deleted. What a listener raises goes to the application, and
/// the others are told all the same.
class TComponent : public TPersistent {
public:
    /// Owner may be null. Raises nothing.
    explicit TComponent(TComponent* Owner);
    ~TComponent() override;

    TComponent* GetOwner() const { return FOwner; }
    /// Owned components in order. The order is the order of insertion until SetComponentIndex moves one.
    int GetComponentCount() const { return static_cast<int>(FComponents.GetCount()); }
    /// Raises ERangeError for an index outside 0..ComponentCount-1.
    TComponent* GetComponent(int Index) const;
    const TOrder<TComponent>& GetComponents() const { return FComponents; }
    /// The place among the owner's components; -1 without owner. Found, as an index is, in logarithmic time.
    int GetComponentIndex() const;
    /// Moves within the owner's list; an index outside is clamped.
    void SetComponentIndex(int Index);
    /// Owned component by name, ignoring case; null when there is none. O(1).
    TComponent* FindComponent(std::string_view Name) const;
    /// Takes Component over, from its owner if it has one; RemoveComponent leaves it without owner. Neither
    /// ends a reference between Component and a partner of FreeNotification: both are still told when the
    /// other one goes. For all others at the old owner it is gone (opRemove).
    void InsertComponent(TComponent* Component);
    void RemoveComponent(TComponent* Component);

    const std::string& GetName() const { return FName; }
    /// Raises EComponentError when Name is no identifier ("'1a' is not a valid component name") or is borne
    /// by another component of the same owner ("A component named Axis1 already exists").
    virtual void SetName(const std::string& Name);

    /// From now on Component->Notification(this, opRemove) is called when this component is destroyed, and
    /// the other way round, whoever owns the two. Repeated calls count once.
    void FreeNotification(TComponent* Component);
    void RemoveFreeNotification(TComponent* Component);

    TComponentState GetComponentState() const { return FComponentState; }
    bool IsIn(TComponentStateFlag Flag) const { return (FComponentState & Flag) != 0; }
    void SetDesigning(bool Designing);
    /// Brackets the setting of properties from a file: csLoading is set between the two, EndLoading calls
    /// Loaded.
    void BeginLoading() { FComponentState |= csLoading; }
    void EndLoading();
    /// The component that this one stands in, in form files; null for one that stands nowhere.
    virtual TComponent* GetParentComponent() const { return nullptr; }
    /// Whether it stands in another one at all.
    virtual bool HasParentComponent() const { return false; }
    /// Puts it there. Raises EComponentError for a Parent that nothing, or not this one, can stand in.
    virtual void SetParentComponent(TComponent* Parent);

    /// What TComponentRef asks: true until the destructor of this class begins.
    std::shared_ptr<const bool> GetLife() const;

    int Tag = 0; ///< free for the program

    const TPropertyTable& PublishedProperties() const override;
    static const TPropertyTable& Properties();

protected:
    /// Another component goes (opRemove): overrides call the inherited one first and clear the references
    /// that point at Component. Partners of FreeNotification are told, the owner, and what it owns if it
    /// HearsOfAll; partners alone while the owner is being destroyed. Or Component, which may be in its
    /// constructor, has entered this one as its owner (opInsert): nobody else is told of that, or many would
    /// take quadratic time.
    virtual void Notification(TComponent* Component, TOperation Operation);
    /// Whether Notification is to tell of every component that the owner loses, not of partners alone. Asked
    /// once or seldom, when this one is complete. A class asks for the FreeNotification of all that it refers
    /// to, and answers for itself alone: IsBeyond<TThatClass>(). So a class derived from it
    /// hears of all, as its Notification may expect, until it answers for itself; and a component that goes
    /// costs nothing for the many that do not know it.
    virtual bool HearsOfAll() const;
    /// Whether this is of a class derived from T, not of T itself.
    template <class T>
    bool IsBeyond() const {
        return typeid(*this) != typeid(T);
    }
    /// All properties were read.
    virtual void Loaded();
    /// Defines what a form file holds beside the published properties (platform/streaming/filer.h). Overrides
    /// call the inherited one first. Called when the component is written, and when it is read, then after
    /// its properties.
    virtual void DefineProperties(TFiler& Filer);

private:
    friend class TFiler;
    struct TNameHash {
        std::size_t operator()(std::string_view Name) const;
    };
    struct TSameName {
        bool operator()(std::string_view A, std::string_view B) const;
    };
    /// The keys are the components' own texts.
    using TNameIndex = std::unordered_map<std::string_view, TComponent*, TNameHash, TSameName>;

    struct TPartner;
    using TPartners = std::list<TPartner>;
    /// Each of the two stands in the other's list.
    struct TPartner {
        TComponent* Component;
        TPartners::iterator Other;
    };

    TPartners::iterator FindPartner(TComponent* Component);
    void Forget(TPartners::iterator Partner);
    void TellPartners();
    bool IsToldAsPartner(const TComponent& Partner) const;
    void Tell(TComponent* Component, TOperation Operation);
    void EnterHearers();
    void Drop(TComponent* Component);
    void StoreName(std::string Name);

    TComponent* FOwner = nullptr;
    std::string FName;
    TOrder<TComponent> FComponents;
    TNameIndex FNames; // of FComponents, but those without a name
    // Those of FComponents that hear of all, or were not asked yet, or own one of these.
    TOrder<TComponent> FHearers;
    TOrdered<TComponent> FPlace{this}, FHearerPlace{this}; // in those lists of the owner
    TPartners FPartners;
    mutable std::shared_ptr<bool> FLife; // made when it is asked for
    TComponentState FComponentState = 0;
};

/// A reference to a component that may be destroyed meanwhile: for whoever calls handlers and then goes on.
/// Where a handler may take a component away, this stands in the place of the pointer.
template <class T>
class TComponentRef {
public:
    TComponentRef() = default;
    TComponentRef(T* Component) : FComponent(Component) {
        if (Component) FLife = Component->GetLife();
    }
    /// The component; null when there is none or none any more.
    T* Get() const { return FLife && *FLife ? FComponent : nullptr; }
    explicit operator bool() const { return Get() != nullptr; }
    T* operator->() const { return FComponent; }

private:
    T* FComponent = nullptr;
    std::shared_ptr<const bool> FLife;
};

/// Component of T that Owner owns under Name; null when there is none.
template <class T>
T* FindComponentAs(const TComponent& Owner, std::string_view Name) {
    return dynamic_cast<T*>(Owner.FindComponent(Name));
}

} // namespace kx
