#pragma once
// The series of the library that do the analyses.

#include "kxplot/options.h"

#include <kxgraph/analysis/Kxcalculatedseries.h>

#include <string>

namespace kxplot {

/// A new component of Form, without a parent yet.
kx::TKxCalculatedSeries* MakeLine(const TAnalysisSpec& Spec, kx::TComponent* Form);
/// Makes it what the command line says, whatever an outfit has made of it.
void ConfigureLine(kx::TKxCalculatedSeries& Line, const TAnalysisSpec& Spec, const TOptions& Options);
/// What it is called in the picture, plain.
std::string NameOf(const TAnalysisSpec& Spec);
/// What components of its kind are called: Fit, Curve, Derivative, Integral.
const char* KindOf(const TAnalysisSpec& Spec);

} // namespace kxplot
