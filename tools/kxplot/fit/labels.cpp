#include "kxplot/fit/labels.h"

#include "kxplot/options/usageerror.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/persist/Kxresults.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cstddef>
#include <string>

namespace kxplot {

using namespace kx;

namespace {

using TCandidates = std::vector<const TAnalysis*>;

/// The key as the analysis spells it; empty when it has none like it.
std::string KeyIn(const TAnalysis& Analysis, const std::string& Key) {
    const TKxResult* found = Analysis.Line->GetFound().Find(Key);
    return found ? found->Key : "";
}

/// Whether the key is one that results have, but for these data.
bool LeavesOpen(const TAnalysis& Analysis, const std::string& Key) {
    const auto* line = dynamic_cast<const TKxLinearRegressionLine*>(Analysis.Line);
    if (!line) return false;
    const auto keys = line->KeysWithoutValue();
    return std::any_of(keys.begin(), keys.end(), [&](const auto& Other) { return SameText(Other, Key); });
}

/// The keys of some analyses, each told once.
std::string ListOfKeys(const TCandidates& Analyses) {
    std::vector<std::string> keys;
    std::string list;
    for (const TAnalysis* analysis : Analyses) {
        for (const TKxResult& result : analysis->Line->GetFound().GetItems()) {
            if (std::find(keys.begin(), keys.end(), result.Key) != keys.end()) continue;
            keys.push_back(result.Key);
            list += (list.empty() ? "" : ", ") + result.Key;
        }
    }
    return list;
}

/// The key of the standard error that belongs to a key; empty when none does.
std::string ErrorKeyOf(const TAnalysis& Analysis, const std::string& Key) {
    const auto is = [&](const std::string& Other) { return SameText(Key, Other); };
    if (SameText(Key.substr(0, 6), "Coeff(")) return "Delta" + Key;
    if (Analysis.Plan->Request.Method == TMethod::Line && (is("Slope") || is("Offset"))) return "Delta" + Key;
    for (const auto& start : Analysis.Plan->Request.Start)
        if (is(start.Name)) return "Delta(" + start.Name + ")";
    return {};
}

[[noreturn]] void Fail(const TLabelRequest& Label, const std::string& What) {
    throw TUsageError("--label: " + Quoted(Label.Text) + ": " + What);
}

/// The analyses that a label can mean.
TCandidates Numbered(const TParts& Parts, const TLabelRequest& Label) {
    TCandidates all;
    for (const auto& analysis : Parts.Analyses) all.push_back(&analysis);
    const int count = int(all.size());
    if (!Label.Number) return all;
    if (*Label.Number >= 1 && *Label.Number <= count) return {all[std::size_t(*Label.Number) - 1]};
    Fail(Label, "there is no fit or curve " + std::to_string(*Label.Number) +
                    (count == 1 ? ", only one" : ", only " + std::to_string(count)) + "; the keys are " +
                    ListOfKeys(all));
}

TLabelSource FindKey(const TParts& Parts, const TLabelRequest& Label) {
    const TCandidates candidates = Numbered(Parts, Label);
    for (const TAnalysis* analysis : candidates)
        if (const std::string key = KeyIn(*analysis, Label.Key); !key.empty()) return {analysis, key, {}};
    for (const TAnalysis* analysis : candidates)
        if (analysis->HasFailed() || LeavesOpen(*analysis, Label.Key)) return {analysis, Label.Key, {}};
    Fail(Label, "there is no such result; the keys are " + ListOfKeys(candidates));
}

TLabelSource Find(const TParts& Parts, const TLabelRequest& Label) {
    TLabelSource source = FindKey(Parts, Label);
    if (!Label.WithError) return source;
    source.ErrorKey = ErrorKeyOf(*source.Analysis, source.Key);
    if (source.ErrorKey.empty() && !source.Analysis->HasFailed())
        Fail(Label, Escaped(source.Key) + " has no standard error");
    return source;
}

} // namespace

std::vector<TLabelSource> FindLabels(const TParts& Parts) {
    std::vector<TLabelSource> sources;
    for (const auto& label : Parts.Plan.Labels) sources.push_back(Find(Parts, label));
    return sources;
}

} // namespace kxplot
