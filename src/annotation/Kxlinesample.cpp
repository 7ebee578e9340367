#include <kxgraph/annotation/Kxlinesample.h>

#include <kxgraph/platform/objects/published.h>

#include <array>

namespace kx {

TKxLineSample::TKxLineSample(TComponent* Owner) : TGraphicControl(Owner) {}

void TKxLineSample::Paint() {
    const int middle = GetHeight() / 2;
    UseLinePen(GetCanvas(), FLineStyle);
    GetCanvas().Polyline(std::array{TPoint{1, middle}, TPoint{GetWidth() - 1, middle}});
}

const TPropertyTable& TKxLineSample::Properties() {
    static const TPropertyTable table(
        "TKxLineSample", &TGraphicControl::Properties(),
        {PublishedObject<&TKxLineSample::GetLineStyle>("LineStyle", "the line that is shown")});
    return table;
}

} // namespace kx
