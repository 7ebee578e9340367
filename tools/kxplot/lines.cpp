#include "kxplot/lines.h"

#include "kxplot/formulaline.h"

#include <kxgraph/analysis/Kxasplineintegral.h>
#include <kxgraph/analysis/Kxintegral.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>
#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/platform/text/numbertext.h>

namespace kxplot {

using namespace kx;

namespace {

std::string Polynomial(int Degree) {
    switch (Degree) {
    case 2: return "quadratic fit";
    case 3: return "cubic fit";
    default: return "polynomial fit of degree " + std::to_string(Degree);
    }
}

template <class TValue, class TDerivative, class TArea>
TKxCalculatedSeries* MakeCurve(TQuantity Quantity, TComponent* Form) {
    switch (Quantity) {
    case TQuantity::Derivative: return new TDerivative(Form);
    case TQuantity::Integral: return new TArea(Form);
    default: return new TValue(Form);
    }
}

void ConfigureFormula(TKxFittedLine& Line, const TAnalysisSpec& Spec, const TOptions& Options) {
    std::vector<std::string> names;
    for (const auto& start : Spec.Start) names.push_back(start.Name);
    SetFormula(Line, Spec.Formula, names);
    for (std::size_t i = 0; i < names.size(); ++i) Line.SetCoefficient(int(i), Spec.Start[i].Value);
    Line.SetIterations(Options.Iterations);
    Line.SetDoCovariance(Options.Covariance);
    Line.SetCheckConvergence(true);
}

void ConfigureMethod(TKxCalculatedSeries& Line, const TAnalysisSpec& Spec, const TOptions& Options) {
    if (auto* line = dynamic_cast<TKxLinearRegressionLine*>(&Line)) {
        line->SetWeightMeaning(wmPrecisions);
        line->SetMarkers(false);
        line->SetDoFixedOffset(Spec.Setting.has_value());
        if (Spec.Setting) line->SetFixedOffset(*Spec.Setting);
    }
    if (auto* polynomial = dynamic_cast<TKxPolynomLine*>(&Line)) {
        polynomial->SetWeightMeaning(wmPrecisions);
        polynomial->SetOrder(Spec.Degree);
    }
    if (auto* formula = dynamic_cast<TKxFittedLine*>(&Line)) ConfigureFormula(*formula, Spec, Options);
    if (auto* akima = dynamic_cast<TKxAkimaFunction*>(&Line)) {
        akima->SetSmoothM(Spec.Setting.value_or(0));
        akima->SetDoSmoothing(Spec.Setting.has_value());
    }
    if (auto* spline = dynamic_cast<TKxApproxSplineFunction*>(&Line))
        spline->SetWeightFactor(Spec.Setting.value_or(1));
}

} // namespace

TKxCalculatedSeries* MakeLine(const TAnalysisSpec& Spec, TComponent* Form) {
    switch (Spec.Method) {
    case TMethod::Polynomial: return new TKxPolynomLine(Form);
    case TMethod::Formula: return new TFormulaLine(Form);
    case TMethod::Akima:
        return MakeCurve<TKxInterpolatedLine, TKxDifferential, TKxIntegral>(Spec.Quantity, Form);
    case TMethod::Spline:
        return MakeCurve<TKxApproxSplineLine, TKxASplineDifferential, TKxASplineIntegral>(Spec.Quantity,
                                                                                          Form);
    default: return new TKxLinearRegressionLine(Form);
    }
}

// Outside of a range that is given a fit would claim what was not asked, and a curve outside of the data what
// nobody measured; an integral would begin somewhere else.
void ConfigureLine(TKxCalculatedSeries& Line, const TAnalysisSpec& Spec, const TOptions& Options) {
    ConfigureMethod(Line, Spec, Options);
    Line.SetParentWeight(true); // an outfit may come from a line with weights of its own
    Line.SetDisplayAutoStart(Spec.IsFit() && !Options.From);
    Line.SetDisplayAutoStop(Spec.IsFit() && !Options.To);
    Line.SetAutoStart(!Options.From);
    Line.SetAutoStop(!Options.To);
    if (Options.From) Line.SetCalculationStart(*Options.From);
    if (Options.To) Line.SetCalculationStop(*Options.To);
}

std::string NameOf(const TAnalysisSpec& Spec) {
    if (Spec.Quantity == TQuantity::Derivative) return "derivative";
    if (Spec.Quantity == TQuantity::Integral) return "integral";
    const std::string setting = Spec.Setting ? FloatToStr(*Spec.Setting) : "";
    switch (Spec.Method) {
    case TMethod::Polynomial: return Polynomial(Spec.Degree);
    case TMethod::Formula: return Spec.Formula;
    case TMethod::Akima: return Spec.Setting ? "smoothed (" + setting + ")" : "Akima interpolation";
    case TMethod::Spline: return "smoothing spline" + (Spec.Setting ? " (weight " + setting + ")" : "");
    default: return "linear fit" + (Spec.Setting ? " through " + setting : "");
    }
}

const char* KindOf(const TAnalysisSpec& Spec) {
    if (Spec.Quantity == TQuantity::Derivative) return "Derivative";
    if (Spec.Quantity == TQuantity::Integral) return "Integral";
    return Spec.IsFit() ? "Fit" : "Curve";
}

} // namespace kxplot
