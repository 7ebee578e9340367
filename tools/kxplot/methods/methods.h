#pragma once
// The methods of analysis: the series of the library that does each, and what it is called.

#include "kxplot/options/options.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <string>

namespace kxplot {

/// A new component of Form, without a parent yet.
kx::TKxCalculatedSeries* MakeLine(const TAnalysisRequest& Request, kx::TComponent* Form);
/// Makes it, which MakeLine has made for the same request, what the command line says, whatever an outfit has
/// made of it.
void ConfigureLine(kx::TKxCalculatedSeries& Line, const TAnalysisRequest& Request,
                   const TFitRequest& Fitting);
/// Which points take part, and where the curve is shown, of a fit or what belongs to one.
void ConfigureRange(kx::TKxCalculatedSeries& Line, const TFitRequest& Fitting, bool IsFit = true);
/// What it is called in the picture, plain.
std::string NameOf(const TAnalysisRequest& Request);
/// What components of its kind are called: Fit, Curve, Derivative, Integral.
const char* KindOf(const TAnalysisRequest& Request);

} // namespace kxplot
