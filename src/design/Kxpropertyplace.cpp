#include <kxgraph/design/Kxpropertyplace.h>

#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/objects/guarded.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <utility>

namespace kx {

namespace {

using TTarget = TKxPropertyTarget;

/// An analysis calculates as soon as it gets its data, and fails, say, where its formula is still missing: it
/// keeps and shows that error, and has what it was given.
void SetOne(const TTarget& Target, const TPropertyValue& Value, TFormModels& Models) {
    try {
        Target.Set(Value, Models);
    } catch (const EMathError&) {
        if (!IsSameValue(Target.Get(), Value)) throw;
    }
}

bool IsName(const TProperty& Row) { return &Row == TComponent::Properties().Find("Name"); }

} // namespace

TKxPropertyPlace::TKxPropertyPlace(TKxDesignContext& Context, std::vector<TTarget> Targets)
    : FContext(&Context), FTargets(std::move(Targets)) {}

std::string TKxPropertyPlace::GetPath() const { return FTargets.front().GetPath(); }

std::string TKxPropertyPlace::GetTold() const {
    if (FTargets.size() > 1 || GetComponent().GetName().empty()) return GetPath();
    return std::string(GetComponent().GetName()).append(".").append(GetPath());
}

TComponent* TKxPropertyPlace::FindComponent(std::string_view Name) const {
    TComponent* form = FContext->Form.Get();
    if (!form || Name.empty()) return nullptr;
    return SameText(form->GetName(), Name) ? form : form->FindComponent(Name);
}

bool TKxPropertyPlace::IsMixed() const {
    if (FTargets.size() == 1 || GetRow().Kind == TPropertyKind::SubObject) return false;
    const TPropertyValue first = GetValue();
    return std::ranges::any_of(FTargets, [&](const TTarget& T) { return !IsSameValue(T.Get(), first); });
}

bool TKxPropertyPlace::IsDefault() const {
    return std::ranges::all_of(FTargets, [this](const TTarget& T) { return T.IsDefault(FContext->Models); });
}

bool TKxPropertyPlace::CanReset() const {
    const bool canBeSet = GetRow().Set || GetRow().Kind == TPropertyKind::SubObject;
    return canBeSet && !IsName(GetRow()) && !IsDefault();
}

void TKxPropertyPlace::Run(const std::function<void()>& Edit, bool IsContinued) {
    std::string key;
    if (IsContinued)
        for (const TTarget& target : FTargets)
            key.append(target.Component->GetName()).append(".").append(GetPath()).append(" ");
    FContext->Change.Run({"Change " + GetPath(), std::move(key)}, Edit);
}

void TKxPropertyPlace::Set(const TPropertyValue& Value, bool IsContinued) {
    Run(
        [&] {
            std::vector<std::pair<const TTarget*, TPropertyValue>> before;
            try {
                for (const TTarget& target : FTargets) {
                    before.emplace_back(&target, target.Get());
                    SetOne(target, Value, FContext->Models);
                }
            } catch (...) {
                for (const auto& old : before)
                    Guarded([&] { SetOne(*old.first, old.second, FContext->Models); });
                throw;
            }
        },
        IsContinued);
}

void TKxPropertyPlace::Reset() {
    Run([this] {
        for (const TTarget& target : FTargets) target.Reset(FContext->Models);
    });
}

std::optional<TKxPropertyPlace> TKxPropertyPlace::Inner(const TProperty& Row) const {
    std::vector<TTarget> targets;
    for (const TTarget& target : FTargets) {
        auto* object = std::get<TPersistent*>(target.Get());
        const TProperty* row = object->PublishedProperties().Find(Row.Name);
        if (!row || row->Kind != Row.Kind) return std::nullopt;
        targets.push_back(target);
        targets.back().Way.push_back(row);
    }
    return TKxPropertyPlace(*FContext, std::move(targets));
}

std::optional<TKxPropertyPlace> TKxPropertyPlace::Beside(std::string_view Name) const {
    TTarget target = FTargets.front();
    const TProperty* row = GetObject().PublishedProperties().Find(Name);
    if (!row) return std::nullopt;
    target.Way.back() = row;
    return TKxPropertyPlace(*FContext, {target});
}

} // namespace kx
