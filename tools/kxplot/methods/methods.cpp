#include "kxplot/methods/methods.h"

#include "kxplot/methods/formulaline.h"

#include <kxgraph/analysis/Kxasplineintegral.h>
#include <kxgraph/analysis/Kxintegral.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>
#include <kxgraph/formula/Kxformula.h>
#include <kxgraph/platform/text/numbertext.h>

#include <array>
#include <cstddef>
#include <vector>

namespace kxplot {

using namespace kx;

namespace {

void Configure(TKxLinearRegressionLine& Line, const TAnalysisRequest& Request, const TFitRequest&) {
    Line.SetWeightMeaning(wmPrecisions);
    Line.SetMarkers(false);
    Line.SetDoFixedOffset(Request.Setting.has_value());
    if (Request.Setting) Line.SetFixedOffset(*Request.Setting);
}

void Configure(TKxPolynomLine& Line, const TAnalysisRequest& Request, const TFitRequest&) {
    Line.SetWeightMeaning(wmPrecisions);
    Line.SetOrder(Request.Degree);
}

void Configure(TKxFittedLine& Line, const TAnalysisRequest& Request, const TFitRequest& Fitting) {
    std::vector<std::string> names;
    for (const auto& start : Request.Start) names.push_back(start.Name);
    SetFormula(Line, Request.Formula, names);
    for (std::size_t i = 0; i < names.size(); ++i) Line.SetCoefficient(int(i), Request.Start[i].Value);
    Line.SetIterations(Fitting.Iterations);
    Line.SetDoCovariance(Fitting.Covariance);
    Line.SetMethod(Fitting.How.Method);
    Line.SetFixedCoefficients(Fitting.How.FixedOf(Request));
    Line.SetBounds(Fitting.How.BoundsOf(Request));
    Line.SetCheckConvergence(true);
}

void Configure(TKxAkimaFunction& Line, const TAnalysisRequest& Request, const TFitRequest&) {
    Line.SetSmoothM(Request.Setting.value_or(0));
    Line.SetDoSmoothing(Request.Setting.has_value());
}

void Configure(TKxApproxSplineFunction& Line, const TAnalysisRequest& Request, const TFitRequest&) {
    Line.SetWeightFactor(Request.Setting.value_or(1));
}

std::string SettingOf(const TAnalysisRequest& Request) { return FloatToStr(*Request.Setting); }

std::string LineName(const TAnalysisRequest& Request) {
    return "linear fit" + (Request.Setting ? " through " + SettingOf(Request) : "");
}

std::string PolynomialName(const TAnalysisRequest& Request) {
    if (Request.Degree == 2) return "quadratic fit";
    if (Request.Degree == 3) return "cubic fit";
    return "polynomial fit of degree " + std::to_string(Request.Degree);
}

std::string FormulaName(const TAnalysisRequest& Request) { return Request.Formula; }

std::string AkimaName(const TAnalysisRequest& Request) {
    return Request.Setting ? "smoothed (" + SettingOf(Request) + ")" : "Akima interpolation";
}

std::string SplineName(const TAnalysisRequest& Request) {
    return "smoothing spline" + (Request.Setting ? " (weight " + SettingOf(Request) + ")" : "");
}

template <class T>
TKxCalculatedSeries* Make(TComponent* Form) {
    return new T(Form);
}

/// For lines of class T and of what is derived of it.
template <class T>
void ConfigureAs(TKxCalculatedSeries& Line, const TAnalysisRequest& Request, const TFitRequest& Fitting) {
    Configure(static_cast<T&>(Line), Request, Fitting);
}

struct TMethodEntry {
    using TMake = TKxCalculatedSeries* (*)(TComponent*);
    std::array<TMake, 3> Make; ///< by TQuantity; fits have their value alone
    void (*Configure)(TKxCalculatedSeries&, const TAnalysisRequest&, const TFitRequest&);
    std::string (*Name)(const TAnalysisRequest&);
};

/// By TMethod.
constexpr TMethodEntry CMethods[] = {
    {{Make<TKxLinearRegressionLine>}, ConfigureAs<TKxLinearRegressionLine>, LineName},
    {{Make<TKxPolynomLine>}, ConfigureAs<TKxPolynomLine>, PolynomialName},
    {{Make<TFormulaLine>}, ConfigureAs<TKxFittedLine>, FormulaName},
    {{Make<TKxInterpolatedLine>, Make<TKxDifferential>, Make<TKxIntegral>},
     ConfigureAs<TKxAkimaFunction>,
     AkimaName},
    {{Make<TKxApproxSplineLine>, Make<TKxASplineDifferential>, Make<TKxASplineIntegral>},
     ConfigureAs<TKxApproxSplineFunction>,
     SplineName},
};

const TMethodEntry& EntryOf(const TAnalysisRequest& Request) {
    return CMethods[static_cast<std::size_t>(Request.Method)];
}

} // namespace

TKxCalculatedSeries* MakeLine(const TAnalysisRequest& Request, TComponent* Form) {
    return EntryOf(Request).Make[static_cast<std::size_t>(Request.Quantity)](Form);
}

// Outside of a range that is given a fit would claim what was not asked, and a curve outside of the data what
// nobody measured; an integral would begin somewhere else.
void ConfigureRange(TKxCalculatedSeries& Line, const TFitRequest& Fitting, bool IsFit) {
    Line.SetDisplayAutoStart(IsFit && !Fitting.From);
    Line.SetDisplayAutoStop(IsFit && !Fitting.To);
    Line.SetAutoStart(!Fitting.From);
    Line.SetAutoStop(!Fitting.To);
    if (Fitting.From) Line.SetCalculationStart(*Fitting.From);
    if (Fitting.To) Line.SetCalculationStop(*Fitting.To);
}

void ConfigureLine(TKxCalculatedSeries& Line, const TAnalysisRequest& Request, const TFitRequest& Fitting) {
    EntryOf(Request).Configure(Line, Request, Fitting);
    Line.SetParentWeight(true); // an outfit may come from a line with weights of its own
    ConfigureRange(Line, Fitting, Request.IsFit());
}

std::string NameOf(const TAnalysisRequest& Request) {
    if (Request.Quantity == TQuantity::Derivative) return "derivative";
    if (Request.Quantity == TQuantity::Integral) return "integral";
    return EntryOf(Request).Name(Request);
}

const char* KindOf(const TAnalysisRequest& Request) {
    if (Request.Quantity == TQuantity::Derivative) return "Derivative";
    if (Request.Quantity == TQuantity::Integral) return "Integral";
    return Request.IsFit() ? "Fit" : "Curve";
}

} // namespace kxplot
