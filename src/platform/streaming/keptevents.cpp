#include <kxgraph/platform/streaming/keptevents.h>

#include <kxgraph/platform/streaming/events.h>
#include <kxgraph/platform/text/text.h>

#include <map>
#include <unordered_map>

namespace kx {

namespace {

/// Hears when a component goes that it has names for.
class TKeeper : public TComponent {
public:
    TKeeper() : TComponent(nullptr) {}
    void Keep(TComponent& Component, std::string_view Path, const std::string& Name) {
        FNames[&Component][UpperCase(Path)] = Name;
        FreeNotification(&Component);
    }
    void Forget(TComponent& Component, std::string_view Path) {
        const auto names = FNames.find(&Component);
        if (names == FNames.end() || names->second.erase(UpperCase(Path)) == 0 || !names->second.empty())
            return;
        FNames.erase(names);
        RemoveFreeNotification(&Component);
    }
    std::string_view Find(const TComponent& Component, std::string_view Path) const {
        const auto names = FNames.find(&Component);
        if (names == FNames.end()) return {};
        const auto name = names->second.find(UpperCase(Path));
        return name == names->second.end() ? std::string_view() : name->second;
    }

protected:
    void Notification(TComponent* Component, TOperation Operation) override {
        TComponent::Notification(Component, Operation);
        if (Operation == opRemove) FNames.erase(Component);
    }
    bool HearsOfAll() const override { return false; }

private:
    std::unordered_map<const TComponent*, std::map<std::string, std::string>> FNames; // by paths
};

/// It is never destroyed: components may go after all else.
TKeeper& Keeper() {
    static auto* const keeper = new TKeeper;
    return *keeper;
}

} // namespace

void KeepEventName(TComponent& Component, std::string_view Path, const std::string& Name) {
    if (Name.empty()) return Keeper().Forget(Component, Path);
    TComponent(nullptr).SetName(Name); // raises for what is none
    Keeper().Keep(Component, Path, Name);
}

std::string_view EventNameOf(const TComponent& Component, std::string_view Path, const TEventValue& Handler) {
    const std::string_view registered = NameOfEvent(Handler);
    return registered.empty() ? Keeper().Find(Component, Path) : registered;
}

} // namespace kx
