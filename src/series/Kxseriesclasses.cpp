#include <kxgraph/series/Kxseriesclasses.h>

#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/series/Kxruleseries.h>

namespace kx {

void RegisterSeriesClasses() {
    RegisterClass<TKxLineSeries>("TKxLineSeries");
    RegisterClass<TKxDataSeries>("TKxDataSeries");
    RegisterClass<TKxDataWithErrorSeries>("TKxDataWithErrorSeries");
    RegisterClass<TKxBarSeries>("TKxBarSeries");
    RegisterClass<TKxArrowSeries>("TKxArrowSeries");
    RegisterClass<TKxRuleSeries>("TKxRuleSeries");
}

} // namespace kx
