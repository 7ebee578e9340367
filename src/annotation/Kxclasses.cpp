#include <kxgraph/annotation/Kxclasses.h>

#include <kxgraph/analysis/Kxanalysisclasses.h>
#include <kxgraph/annotation/Kxlabel.h>
#include <kxgraph/annotation/Kxlegend.h>
#include <kxgraph/annotation/Kxlinesample.h>
#include <kxgraph/annotation/Kxresultlabel.h>
#include <kxgraph/editing/Kxeditingclasses.h>
#include <kxgraph/graph/Kxgraphclasses.h>
#include <kxgraph/numeric/Kxvectorclasses.h>
#include <kxgraph/platform/controls/controlclasses.h>
#include <kxgraph/platform/data/memorydataset.h>
#include <kxgraph/platform/objects/classes.h>
#include <kxgraph/platform/widgets/widgetclasses.h>
#include <kxgraph/series/Kxseriesclasses.h>
#include <kxgraph/table/Kxfilevector.h>

namespace kx {

void RegisterClasses() {
    RegisterControlClasses();
    RegisterWidgetClasses();
    RegisterDataClasses();
    RegisterVectorClasses();
    RegisterTableClasses();
    RegisterGraphClasses();
    RegisterSeriesClasses();
    RegisterAnalysisClasses();
    RegisterEditingClasses();
    RegisterClass<TKxLabel>("TKxLabel", CGeneralPage);
    RegisterClass<TKxLineSample>("TKxLineSample", CGraphPage);
    RegisterClass<TKxLegend>("TKxLegend", CGraphPage);
    RegisterClass<TKxResultLabel>("TKxResultLabel", CGraphPage);
}

} // namespace kx
