#include <kxgraph/platform/streaming/events.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/component.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

struct TNamed {
    std::string Name;
    TEventValue Handler;
};

std::vector<TNamed>& Events() {
    static std::vector<TNamed> events;
    return events;
}

TEventResolver Resolve = nullptr;

auto Place(std::string_view Name) {
    return std::ranges::find_if(Events(), [&](const TNamed& Event) { return SameText(Event.Name, Name); });
}

} // namespace

void RegisterEventValue(const std::string& Name, TEventValue Handler) {
    TComponent(nullptr).SetName(Name); // raises for what is none
    const auto before = Place(Name);
    if (!Handler) {
        if (before != Events().end()) Events().erase(before);
    } else if (before != Events().end()) {
        before->Handler = std::move(Handler);
    } else {
        Events().push_back({Name, std::move(Handler)});
    }
}

void ResolveEvents(TEventResolver Resolver) { Resolve = Resolver; }

const TEventValue* FindEvent(std::string_view Name) {
    if (const auto found = Place(Name); found != Events().end()) return &found->Handler;
    TEventValue handler = Resolve ? Resolve(Name) : TEventValue();
    if (!handler) return nullptr;
    RegisterEventValue(std::string(Name), std::move(handler));
    return &Place(Name)->Handler;
}

std::string_view NameOfEvent(const TEventValue& Handler) {
    for (const TNamed& event : Events())
        if (event.Handler.IsSameHandler(Handler)) return event.Name;
    return {};
}

std::vector<std::string_view> RegisteredEvents() {
    std::vector<std::string_view> names;
    for (const TNamed& event : Events()) names.push_back(event.Name);
    return names;
}

} // namespace kx
