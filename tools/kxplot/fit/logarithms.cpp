#include "kxplot/fit/logarithms.h"

#include <kxgraph/analysis/Kxfitpoints.h>
#include <kxgraph/numeric/Kxvector.h>
#include <kxgraph/platform/text/numbertext.h>

#include <algorithm>
#include <cstddef>
#include <numbers>
#include <span>

namespace kxplot {

using namespace kx;

namespace {

/// Index of the first point that takes part in a line's fit and has no logarithm; -1 for none.
int FirstNotPositive(const TKxSeries& Series, const TKxCustomRealVector& Data) {
    const auto points = TKxFitPoints::Of(*Series.GetXData(), *Series.GetYData(), Series.GetWeight());
    for (std::size_t i = 0; i < points.Count; ++i)
        if (Data.GetValue(int(i)) <= 0 && points.Takes(i)) return int(i);
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

/// The weights of the decimal logarithms of Y, given those of Y: the error of lg y is sigma / (y ln 10).
std::vector<double> WeightsOfLogarithms(std::span<const double> Weights, std::span<const double> Y) {
    std::vector<double> weights;
    for (std::size_t i = 0; i < std::min(Weights.size(), Y.size()); ++i) {
        const double scale = Y[i] * std::numbers::ln10;
        weights.push_back(Weights[i] * scale * scale);
    }
    return weights;
}

bool IsLine(const TAnalysis& Analysis) { return Analysis.Plan->Request.Method == TMethod::Line; }

} // namespace

void RefuseLines(TParts& Parts) {
    for (auto& analysis : Parts.Analyses) {
        const auto* parent = analysis.Line->GetParentSeries();
        if (!IsLine(analysis) || !parent) continue;
        if (!parent->GetXAxis() || !parent->GetYAxis() || !parent->GetXData() || !parent->GetYData())
            continue;
        analysis.Refusal = RefusalAlong(*parent->GetXAxis(), *parent, *parent->GetXData(), "x");
        if (analysis.Refusal.empty())
            analysis.Refusal = RefusalAlong(*parent->GetYAxis(), *parent, *parent->GetYData(), "y");
        if (!analysis.Refusal.empty()) analysis.Line->SetParentSeries(nullptr);
    }
}

void WeighLogarithms(TParts& Parts) {
    for (const auto& analysis : Parts.Analyses) {
        const auto* parent = analysis.Line->GetParentSeries();
        if (!IsLine(analysis) || !parent || !parent->GetWeight()) continue;
        if (!parent->GetYAxis() || parent->GetYAxis()->GetScaling() == AxNormal) continue;
        auto* weight = new TKxLiveVector(analysis.Line->GetOwner());
        weight->AddValues(WeightsOfLogarithms(parent->GetWeight()->Values(), parent->GetYData()->Values()));
        analysis.Line->SetWeight(weight);
    }
}

} // namespace kxplot
