// The history of a document: what was done, undone and done again.

#include <kxgraph/design/Kxdesigndocument.h>

#include <kxgraph/design/Kxformrestore.h>
#include <kxgraph/platform/base/exceptions.h>
#include <kxgraph/platform/base/ownedcast.h>
#include <kxgraph/platform/base/scopedvalue.h>
#include <kxgraph/platform/controls/frame.h>
#include <kxgraph/platform/streaming/formfile.h>

#include <algorithm>
#include <utility>

namespace kx {

/// What a frame would change by itself belongs to the step that brought it about.
void TKxDesignDocument::Settle() { SettleTree(*FForm); }

void TKxDesignDocument::Run(const TKxDesignStep& Step, const std::function<void()>& Change) {
    if (FRunning) return Change();
    RunWhole(Step, Change);
    Touched();
}

void TKxDesignDocument::RunWhole(const TKxDesignStep& Step, const std::function<void()>& Change) {
    const TScopedValue running(FRunning, true);
    const std::string name = FForm->GetName();
    TKxFormState now;
    try {
        Change();
        NameAll();
        DemandOwnNames();
        Settle();
        now = CaptureForm(*FForm, *FWriter, FState);
    } catch (...) {
        PartNames(name);
        NameAll();
        const TKxFormState before = FState;
        BringTo(before);
        throw;
    }
    Enter(Step, std::move(now));
}

void TKxDesignDocument::Enter(const TKxDesignStep& Step, TKxFormState Now) {
    const bool merges = FMayMerge && FUndone == 0 && !FSteps.empty() && !Step.MergeKey.empty() &&
                        FSteps.back().MergeKey == Step.MergeKey && FSaved != FAt;
    if (FState == Now) {
        FState = std::move(Now);
        return;
    }
    if (!merges) FBeforeLast = std::move(FState);
    FSteps.resize(FSteps.size() - std::exchange(FUndone, 0));
    TKxFormChange change = TKxFormChange::Between(FBeforeLast, Now);
    const std::uint64_t before = FAt;
    FAt = ++FLastState;
    if (merges)
        FSteps.back().Change = std::move(change), FSteps.back().After = FAt;
    else
        FSteps.push_back({Step.Name, Step.MergeKey, std::move(change), before, FAt});
    FState = std::move(Now);
    FMayMerge = true;
}

std::string TKxDesignDocument::GetUndoName() const {
    return CanUndo() ? FSteps[FSteps.size() - 1 - FUndone].Name : std::string();
}

std::string TKxDesignDocument::GetRedoName() const {
    return CanRedo() ? FSteps[FSteps.size() - FUndone].Name : std::string();
}

void TKxDesignDocument::Undo() {
    if (!CanUndo() || FRunning) return;
    Go(FSteps[FSteps.size() - 1 - FUndone], true);
    ++FUndone;
    Touched();
}

void TKxDesignDocument::Redo() {
    if (!CanRedo() || FRunning) return;
    Go(FSteps[FSteps.size() - FUndone], false);
    --FUndone;
    Touched();
}

void TKxDesignDocument::Go(TStep& Step, bool Back) {
    const TScopedValue running(FRunning, true);
    FMayMerge = false;
    const TKxFormState from = FState;
    try {
        BringTo(Step.Change.Applied(FState, Back));
    } catch (...) {
        BringTo(from);
        throw;
    }
    FAt = Back ? Step.Before : Step.After;
    FBeforeLast = {};
}

void TKxDesignDocument::BringTo(const TKxFormState& Target) {
    Settle();
    TKxFormState live = CaptureForm(*FForm, *FWriter, FState);
    TKxFormRestorer restorer(*FForm, *FWriter, FFileName);
    const bool restored = restorer.Restore(live, Target);
    for (const auto& [before, after] : restorer.GetRenamed()) std::ranges::replace(FSelected, before, after);
    if (!restored) return Rebuild(Target);
    FState = std::move(live);
}

// The whole form is read again; what shows it is told before the old one goes.
void TKxDesignDocument::Rebuild(const TKxFormState& Target) {
    std::unique_ptr<TComponent> root =
        FormFromText(ObjectText(Target, {}), FFileName, {.KeepsUnknownEvents = true});
    const auto before = std::exchange(FForm, OwnedCast<TForm>(root));
    FForm->SetDesigning(true);
    Settle();
    FWriter = std::make_unique<TFormWriter>(*FForm, FFileName);
    // Steps are differences of wanted states: what a form makes of its own text otherwise belongs to the next
    // one.
    TKxFormState made = CaptureForm(*FForm, *FWriter, Target);
    if (made == Target)
        FState = std::move(made);
    else
        FState = Target;
    ++FRebuilds;
    Tell(&TKxDesignObserver::FormReplaced);
}

/// After every change: what is selected may have gone.
void TKxDesignDocument::Touched() {
    ++FVersion;
    const std::size_t gone =
        std::erase_if(FSelected, [this](const std::string& Name) { return !Find(Name); });
    Tell(&TKxDesignObserver::FormChanged);
    if (gone > 0) Tell(&TKxDesignObserver::SelectionChanged);
}

} // namespace kx
