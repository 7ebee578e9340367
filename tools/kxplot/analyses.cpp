#include "kxplot/analyses.h"

#include "kxplot/captiontext.h"
#include "kxplot/formulaline.h"
#include "kxplot/lines.h"
#include "kxplot/look.h"
#include "kxplot/weights.h"

#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/platform/text/numbertext.h>
#include <kxgraph/platform/text/text.h>

#include <algorithm>
#include <cmath>

namespace kxplot {

using namespace kx;

namespace {

/// The keys that the analysis has written, in their order.
std::vector<std::string> KeysOf(const TAnalysis& Analysis) {
    TStringList lines;
    Analysis.Line->GetResults().ReadSection(Analysis.Line->GetName(), lines);
    std::vector<std::string> keys;
    for (int i = 0; i < lines.GetCount(); ++i) keys.push_back(lines.GetLine(i));
    return keys;
}

/// The key as the analysis spells it; empty when it has none like it.
std::string KeyIn(const TAnalysis& Analysis, const std::string& Key) {
    const auto keys = KeysOf(Analysis);
    if (std::find(keys.begin(), keys.end(), Key) != keys.end()) return Key;
    const auto alike = [&](const std::string& Other) { return SameText(Other, Key); };
    const auto found = std::find_if(keys.begin(), keys.end(), alike);
    return found == keys.end() ? "" : *found;
}

/// Whether the key is one that results have, but for these data.
bool LeavesOpen(const TAnalysis& Analysis, const std::string& Key) {
    const auto* line = dynamic_cast<const TKxLinearRegressionLine*>(Analysis.Line);
    if (!line) return false;
    const auto keys = line->KeysWithoutValue();
    return std::any_of(keys.begin(), keys.end(), [&](const auto& Other) { return SameText(Other, Key); });
}

/// The keys of some analyses, each told once.
std::string ListOfKeys(const std::vector<const TAnalysis*>& Analyses) {
    std::vector<std::string> keys;
    std::string list;
    for (const TAnalysis* analysis : Analyses) {
        for (const auto& key : KeysOf(*analysis)) {
            if (std::find(keys.begin(), keys.end(), key) != keys.end()) continue;
            keys.push_back(key);
            list += (list.empty() ? "" : ", ") + key;
        }
    }
    return list;
}

/// Index of the first point that takes part in a line's fit and has no logarithm; -1 for none.
int FirstNotPositive(const TKxSeries& Series, const TKxCustomRealVector& Data) {
    const auto takesPart = [&](int i) {
        for (const auto* vector : {Series.GetXData(), Series.GetYData(), Series.GetWeight()})
            if (vector && !(i < vector->GetCount() && std::isfinite(vector->GetValue(i)))) return false;
        return true;
    };
    for (int i = 0; i < Data.GetCount(); ++i)
        if (Data.GetValue(i) <= 0 && takesPart(i)) return i;
    return -1;
}

/// Why a line along one axis is refused; empty when it is not.
std::string RefusalAlong(const TKxAxis& Axis, const TKxSeries& Series, const TKxCustomRealVector& Data,
                         const std::string& Letter) {
    if (Axis.GetScaling() == AxNormal) return {};
    const int row = FirstNotPositive(Series, Data);
    if (row < 0) return {};
    return "the " + Letter + " axis is logarithmic and " + Letter +
           " holds values that are not positive, first in row " + std::to_string(row + 1) + ": " +
           FloatToStr(Data.GetValue(row));
}

/// The key of the standard error that belongs to a key; empty when none does.
std::string ErrorKeyOf(const TAnalysis& Analysis, const std::string& Key) {
    const auto is = [&](const std::string& Other) { return SameText(Key, Other); };
    if (SameText(Key.substr(0, 6), "Coeff(")) return "Delta" + Key;
    if (Analysis.Spec.Method == TMethod::Line && (is("Slope") || is("Offset"))) return "Delta" + Key;
    for (const auto& start : Analysis.Spec.Start)
        if (is(start.Name)) return "Delta(" + start.Name + ")";
    return {};
}

/// Caption and reason of a failure; empty when there is none.
std::string FailureOf(const TAnalysis& Analysis) {
    const std::string caption = PlainText(Analysis.Line->GetCaption()) + ": ";
    if (!Analysis.Refusal.empty()) return caption + Analysis.Refusal;
    if (!Analysis.Line->GetError().empty()) return PlainText(Analysis.Line->GetError());
    return Analysis.HasCurve() ? "" : caption + "no curve can be computed from these data";
}

} // namespace

TAnalyses::TAnalyses(const TOptions& Options, std::size_t SeriesCount, const TSideAxes& SideAxes)
    : FOptions(Options), FSeriesCount(SeriesCount), FSideAxes(SideAxes) {}

void TAnalyses::AddTo(TKxNotCalculatedSeries& Series, TComponent* Form) {
    if (FOptions.Analyses.empty()) return;
    const std::size_t series = FItems.size() / FOptions.Analyses.size();
    for (const auto& spec : FOptions.Analyses) {
        TAnalysis analysis{spec, &Series, MakeLine(spec, Form), 1, {}};
        const std::string kind = KindOf(spec);
        for (const auto& other : FItems)
            if (kind == KindOf(other.Spec)) ++analysis.Number;
        analysis.Line->SetName(kind + std::to_string(analysis.Number));
        analysis.Line->OnError = [](TComponent*, const Exception&) {}; // told at the end
        Configure(analysis);
        FItems.push_back(analysis);
        analysis.Line->SetParentSeries(&Series);
    }
    Dress(series, 0);
}

void TAnalyses::Dress(std::size_t Series, std::size_t First) {
    const std::size_t count = FOptions.Analyses.size();
    for (std::size_t k = First; k < count; ++k) {
        const TAnalysis& analysis = FItems[Series * count + k];
        DressAnalysis(*analysis.Line, {int(k), int(Series), FSeriesCount > 1},
                      FSideAxes.contains(analysis.Spec.Quantity));
    }
}

std::string TAnalyses::CaptionOf(const TAnalysis& Analysis) const {
    const std::string name = EscapeCaption(NameOf(Analysis.Spec));
    return FSeriesCount > 1 ? Analysis.Parent->GetCaption() + ": " + name : name;
}

TKxAxis* TAnalyses::YAxisOf(const TAnalysis& Analysis) const {
    const auto side = FSideAxes.find(Analysis.Spec.Quantity);
    return side == FSideAxes.end() ? Analysis.Parent->GetYAxis() : side->second;
}

void TAnalyses::Configure(const TAnalysis& Analysis) const {
    ConfigureLine(*Analysis.Line, Analysis.Spec, FOptions);
    Analysis.Line->SetYAxis(YAxisOf(Analysis)); // of the series in an outfit another one may stand here
    if (!Analysis.Line->GetDoUserCaption()) Analysis.Line->SetCaption(CaptionOf(Analysis));
}

void TAnalyses::Configure() {
    for (const auto& analysis : FItems) Configure(analysis);
}

void TAnalyses::Refuse() {
    for (auto& analysis : FItems) {
        const auto* parent = analysis.Line->GetParentSeries();
        if (analysis.Spec.Method != TMethod::Line || !parent) continue;
        if (!parent->GetXAxis() || !parent->GetYAxis() || !parent->GetXData() || !parent->GetYData())
            continue;
        analysis.Refusal = RefusalAlong(*parent->GetXAxis(), *parent, *parent->GetXData(), "x");
        if (analysis.Refusal.empty())
            analysis.Refusal = RefusalAlong(*parent->GetYAxis(), *parent, *parent->GetYData(), "y");
        if (!analysis.Refusal.empty()) analysis.Line->SetParentSeries(nullptr);
    }
}

void TAnalyses::WeighLogarithms() {
    for (const auto& analysis : FItems) {
        const auto* parent = analysis.Line->GetParentSeries();
        if (analysis.Spec.Method != TMethod::Line || !parent || !parent->GetWeight()) continue;
        if (!parent->GetYAxis() || parent->GetYAxis()->GetScaling() == AxNormal) continue;
        auto* weight = new TKxLiveVector(analysis.Line->GetOwner());
        weight->AddValues(WeightsOfLogarithms(parent->GetWeight()->Values(), parent->GetYData()->Values()));
        analysis.Line->SetWeight(weight);
    }
}

bool TAnalyses::RunFormulas() {
    TFitWatch watch;
    for (const auto& analysis : FItems)
        if (auto* line = dynamic_cast<TFormulaLine*>(analysis.Line))
            line->Run(FOptions.Repeat, watch, "fit " + std::to_string(analysis.Number));
    return !watch.WasInterrupted();
}

std::vector<const TAnalysis*> TAnalyses::Numbered(const TLabelSpec& Label) const {
    std::vector<const TAnalysis*> all;
    for (const auto& analysis : FItems) all.push_back(&analysis);
    const auto count = int(FItems.size());
    if (!Label.Number) return all;
    if (*Label.Number >= 1 && *Label.Number <= count) return {all[std::size_t(*Label.Number) - 1]};
    throw TUsageError("--label: '" + Abridged(Label.Text) + "': there is no fit or curve " +
                      std::to_string(*Label.Number) +
                      (count == 1 ? ", only one" : ", only " + std::to_string(count)) + "; the keys are " +
                      ListOfKeys(all));
}

const TAnalysis& TAnalyses::Find(TLabelSpec& Label) const {
    const TAnalysis& analysis = FindKey(Label);
    if (!Label.WithError) return analysis;
    Label.ErrorKey = ErrorKeyOf(analysis, Label.Key);
    if (Label.ErrorKey.empty() && !analysis.HasFailed())
        throw TUsageError("--label: '" + Abridged(Label.Text) + "': " + Escaped(Label.Key) +
                          " has no standard error");
    return analysis;
}

const TAnalysis& TAnalyses::FindKey(TLabelSpec& Label) const {
    const auto candidates = Numbered(Label);
    for (const TAnalysis* analysis : candidates) {
        const std::string key = KeyIn(*analysis, Label.Key);
        if (key.empty()) continue;
        Label.Key = key;
        return *analysis;
    }
    for (const TAnalysis* analysis : candidates)
        if (analysis->HasFailed() || LeavesOpen(*analysis, Label.Key)) return *analysis;
    throw TUsageError("--label: '" + Abridged(Label.Text) + "': there is no such result; the keys are " +
                      ListOfKeys(candidates));
}

// Captions of analyses name their series where there are several.
std::string TAnalyses::SeriesOf(const TAnalysis& Analysis) const {
    return FSeriesCount > 1 ? "" : PlainText(Analysis.Parent->GetCaption()) + ": ";
}

std::vector<std::string> TAnalyses::GetFailures() const {
    std::vector<std::string> failures;
    for (const auto& analysis : FItems) {
        const std::string failure = FailureOf(analysis);
        if (!failure.empty()) failures.push_back(SeriesOf(analysis) + failure);
    }
    return failures;
}

std::vector<std::string> TAnalyses::GetRemarks() const {
    std::vector<std::string> remarks;
    for (const auto& analysis : FItems) {
        const auto* line = dynamic_cast<const TKxFittedLine*>(analysis.Line);
        if (!line || analysis.HasFailed() || line->GetConverged().value_or(true)) continue;
        remarks.push_back(SeriesOf(analysis) + PlainText(line->GetCaption()) +
                          ": the fit has not converged: " +
                          (FOptions.Repeat ? "one more run lowers the sum of squares (--repeat auto goes on)"
                                           : "the last run still lowered the sum of squares"));
    }
    return remarks;
}

} // namespace kxplot
