#include "kxplot/fits.h"

#include "analysis/Kxlinearregressionline.h"
#include "analysis/Kxpolinomial.h"
#include "annotation/Kxcaption.h"
#include "kxplot/look.h"
#include "platform/numbertext.h"
#include "platform/text.h"

#include <algorithm>
#include <cmath>

namespace kxplot {

using namespace kx;

namespace {

std::string NameOf(const TFitSpec& Spec) {
    if (Spec.Offset) return "linear fit through " + FloatToStr(*Spec.Offset);
    switch (Spec.Degree) {
    case 1: return "linear fit";
    case 2: return "quadratic fit";
    case 3: return "cubic fit";
    default: return "polynomial fit of degree " + std::to_string(Spec.Degree);
    }
}

TKxCalculatedSeries* MakeLine(const TFitSpec& Spec, TComponent* Form) {
    if (Spec.Degree == 1) return new TKxLinearRegressionLine(Form);
    return new TKxPolynomLine(Form);
}

/// The keys that the fit has written, in their order.
std::vector<std::string> KeysOf(const TFit& Fit) {
    TStringList lines;
    Fit.Line->GetResults().ReadSection(Fit.Line->GetName(), lines);
    std::vector<std::string> keys;
    for (int i = 0; i < lines.GetCount(); ++i) keys.push_back(lines.GetLine(i));
    return keys;
}

/// The key as the fit spells it; empty when it has none like it.
std::string KeyIn(const TFit& Fit, const std::string& Key) {
    for (const auto& key : KeysOf(Fit))
        if (SameText(key, Key)) return key;
    return {};
}

/// The keys of some fits, each told once.
std::string ListOfKeys(const std::vector<const TFit*>& Fits) {
    std::vector<std::string> keys;
    std::string list;
    for (const TFit* fit : Fits) {
        for (const auto& key : KeysOf(*fit)) {
            if (std::find(keys.begin(), keys.end(), key) != keys.end()) continue;
            keys.push_back(key);
            list += (list.empty() ? "" : ", ") + key;
        }
    }
    return list;
}

/// Index of the first point that takes part in a fit and has no logarithm; -1 for none.
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

/// Why a fit along one axis is refused; empty when it is not.
std::string RefusalAlong(const TKxAxis& Axis, const TKxSeries& Series, const TKxCustomRealVector& Data,
                         const std::string& Letter) {
    if (Axis.GetScaling() == AxNormal) return {};
    const int row = FirstNotPositive(Series, Data);
    if (row < 0) return {};
    return "the " + Letter + " axis is logarithmic and " + Letter +
           " holds values that are not positive, first in row " + std::to_string(row + 1) + ": " +
           FloatToStr(Data.GetValue(row));
}

} // namespace

std::string PlainText(const AnsiString& Caption) {
    std::string text;
    for (const auto& run : ParseCaption(Caption).Runs) text += run.Text;
    return Escaped(text);
}

TFits::TFits(const TOptions& Options, std::size_t SeriesCount)
    : FOptions(Options), FSeriesCount(SeriesCount) {}

void TFits::AddTo(TKxNotCalculatedSeries& Series, TComponent* Form) {
    const std::size_t series = FOptions.Fits.empty() ? 0 : FItems.size() / FOptions.Fits.size();
    for (const auto& spec : FOptions.Fits) {
        TFit fit{spec, &Series, MakeLine(spec, Form), {}};
        fit.Line->SetName("Fit" + std::to_string(FItems.size() + 1));
        fit.Line->OnError = [](TComponent*, const Exception&) {}; // told at the end
        Configure(fit);
        FItems.push_back(fit);
        fit.Line->SetParentSeries(&Series);
    }
    Dress(series, 0);
}

void TFits::Dress(std::size_t Series, std::size_t First) {
    const std::size_t count = FOptions.Fits.size();
    for (std::size_t k = First; k < count; ++k)
        DressFit(*FItems[Series * count + k].Line, int(k), int(Series), FSeriesCount > 1);
}

std::string TFits::CaptionOf(const TFit& Fit) const {
    const std::string name = EscapeCaption(NameOf(Fit.Spec));
    return FSeriesCount > 1 ? Fit.Parent->GetCaption() + ": " + name : name;
}

void TFits::Configure(const TFit& Fit) const {
    if (auto* line = dynamic_cast<TKxLinearRegressionLine*>(Fit.Line)) {
        line->SetDoFixedOffset(Fit.Spec.Offset.has_value());
        if (Fit.Spec.Offset) line->SetFixedOffset(*Fit.Spec.Offset);
    }
    if (auto* polynomial = dynamic_cast<TKxPolynomLine*>(Fit.Line)) polynomial->SetOrder(Fit.Spec.Degree);
    // Outside a range that is given the curve would claim what was not asked.
    if (FOptions.From) {
        Fit.Line->SetAutoStart(false);
        Fit.Line->SetDisplayAutoStart(false);
        Fit.Line->SetCalculationStart(*FOptions.From);
    }
    if (FOptions.To) {
        Fit.Line->SetAutoStop(false);
        Fit.Line->SetDisplayAutoStop(false);
        Fit.Line->SetCalculationStop(*FOptions.To);
    }
    if (!Fit.Line->GetDoUserCaption()) Fit.Line->SetCaption(CaptionOf(Fit));
}

void TFits::Configure() {
    for (const auto& fit : FItems) Configure(fit);
}

void TFits::Refuse() {
    for (auto& fit : FItems) {
        const auto* parent = fit.Line->GetParentSeries();
        if (!parent || !parent->GetXAxis() || !parent->GetYAxis()) continue;
        if (!parent->GetXData() || !parent->GetYData()) continue;
        fit.Refusal = RefusalAlong(*parent->GetXAxis(), *parent, *parent->GetXData(), "x");
        if (fit.Refusal.empty())
            fit.Refusal = RefusalAlong(*parent->GetYAxis(), *parent, *parent->GetYData(), "y");
        if (!fit.Refusal.empty()) fit.Line->SetParentSeries(nullptr);
    }
}

const TFit& TFits::Find(TLabelSpec& Label) const {
    const std::string told = "'" + Escaped(Label.Text) + "'";
    std::vector<const TFit*> candidates;
    for (const auto& fit : FItems) candidates.push_back(&fit);
    if (Label.Number) {
        const auto count = int(FItems.size());
        if (*Label.Number < 1 || *Label.Number > count)
            throw TUsageError("--label: " + told + ": there is no fit " + std::to_string(*Label.Number) +
                              (count == 1 ? ", only one" : ", only " + std::to_string(count)) +
                              "; the keys are " + ListOfKeys(candidates));
        candidates = {&FItems[std::size_t(*Label.Number) - 1]};
    }
    for (const TFit* fit : candidates) {
        const std::string key = KeyIn(*fit, Label.Key);
        if (key.empty()) continue;
        Label.Key = key;
        return *fit;
    }
    for (const TFit* fit : candidates)
        if (fit->HasFailed()) return *fit;
    throw TUsageError("--label: " + told + ": there is no such result; the keys are " +
                      ListOfKeys(candidates));
}

std::string TFits::PlainCaption(const TFit& Fit) { return PlainText(Fit.Line->GetCaption()); }

std::vector<std::string> TFits::GetFailures() const {
    std::vector<std::string> failures;
    for (const auto& fit : FItems) {
        const std::string series = FSeriesCount > 1 ? "" : PlainText(fit.Parent->GetCaption()) + ": ";
        if (!fit.Refusal.empty())
            failures.push_back(series + PlainCaption(fit) + ": " + fit.Refusal);
        else if (!fit.Line->GetError().empty())
            failures.push_back(series + PlainText(fit.Line->GetError()));
        else if (!fit.HasCurve())
            failures.push_back(series + PlainCaption(fit) + ": no line can be computed from these data");
    }
    return failures;
}

} // namespace kxplot
