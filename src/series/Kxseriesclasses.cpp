#include <kxgraph/series/Kxseriesclasses.h>

#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/series/Kxarrowseries.h>
#include <kxgraph/series/Kxbarseries.h>
#include <kxgraph/series/Kxdataseries.h>
#include <kxgraph/series/Kxruleseries.h>

namespace kx {

void RegisterSeriesClasses() {
    RegisterClass<TKxLineSeries>("TKxLineSeries", CGraphPage);
    RegisterClass<TKxDataSeries>("TKxDataSeries", CGraphPage);
    RegisterClass<TKxDataWithErrorSeries>("TKxDataWithErrorSeries", CGraphPage);
    RegisterClass<TKxBarSeries>("TKxBarSeries", CGraphPage);
    RegisterClass<TKxArrowSeries>("TKxArrowSeries", CGraphPage);
    RegisterClass<TKxRuleSeries>("TKxRuleSeries", CGraphPage);
}

} // namespace kx
