#include <kxgraph/analysis/Kxanalysisclasses.h>

#include <kxgraph/analysis/Kxapproxsplineline.h>
#include <kxgraph/analysis/Kxasplinedifferential.h>
#include <kxgraph/analysis/Kxasplineintegral.h>
#include <kxgraph/analysis/Kxdifferential.h>
#include <kxgraph/analysis/Kxfitband.h>
#include <kxgraph/analysis/Kxfittedline.h>
#include <kxgraph/analysis/Kxintegral.h>
#include <kxgraph/analysis/Kxinterpolatedline.h>
#include <kxgraph/analysis/Kxlinearregressionline.h>
#include <kxgraph/analysis/Kxpolinomial.h>
#include <kxgraph/platform/objects/classes.h>

namespace kx {

void RegisterAnalysisClasses() {
    RegisterClass<TKxLinearRegressionLine>("TKxLinearRegressionLine");
    RegisterClass<TKxPolynomLine>("TKxPolynomLine");
    RegisterClass<TKxInterpolatedLine>("TKxInterpolatedLine");
    RegisterClass<TKxDifferential>("TKxDifferential");
    RegisterClass<TKxIntegral>("TKxIntegral");
    RegisterClass<TKxApproxSplineLine>("TKxApproxSplineLine");
    RegisterClass<TKxASplineDifferential>("TKxASplineDifferential");
    RegisterClass<TKxASplineIntegral>("TKxASplineIntegral");
    RegisterClass<TKxFittedLine>("TKxFittedLine");
    RegisterClass<TKxFitBand>("TKxFitBand");
}

} // namespace kx
