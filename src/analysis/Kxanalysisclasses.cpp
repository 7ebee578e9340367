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
    RegisterClass<TKxLinearRegressionLine>("TKxLinearRegressionLine", CGraphPage);
    RegisterClass<TKxPolynomLine>("TKxPolynomLine", CGraphPage);
    RegisterClass<TKxInterpolatedLine>("TKxInterpolatedLine", CGraphPage);
    RegisterClass<TKxDifferential>("TKxDifferential", CGraphPage);
    RegisterClass<TKxIntegral>("TKxIntegral", CGraphPage);
    RegisterClass<TKxApproxSplineLine>("TKxApproxSplineLine", CGraphPage);
    RegisterClass<TKxASplineDifferential>("TKxASplineDifferential", CGraphPage);
    RegisterClass<TKxASplineIntegral>("TKxASplineIntegral", CGraphPage);
    RegisterClass<TKxFittedLine>("TKxFittedLine", CGraphPage);
    RegisterClass<TKxFitBand>("TKxFitBand", CGraphPage);
}

} // namespace kx
