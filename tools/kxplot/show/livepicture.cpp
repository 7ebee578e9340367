#include "kxplot/show/livepicture.h"

#include "kxplot/form/residuals.h"

#include <kxgraph/numeric/Kxvector.h>

#include <optional>
#include <variant>

namespace kxplot {

using namespace kx;

namespace {

/// Calls Use for each vector of a plan that has a value a row.
template <class F>
void ForEachVector(const TPlan& Plan, F Use) {
    const auto use = [&](const std::optional<TVectorPlan>& Vector) {
        if (Vector) Use(*Vector);
    };
    Use(Plan.X);
    use(Plan.Weight);
    for (const TSeriesPlan& series : Plan.Series) {
        use(series.X);
        Use(series.Y);
        use(series.Weight);
        if (const auto* points = std::get_if<TPointsPlan>(&series.Kind))
            for (const auto* error : {&points->DXPlus, &points->DXMinus, &points->DYPlus, &points->DYMinus})
                use(*error);
        if (const auto* arrows = std::get_if<TArrowsPlan>(&series.Kind)) {
            Use(arrows->DX);
            Use(arrows->DY);
        }
    }
}

} // namespace

TLivePicture::TLivePicture(TPicture& Picture, TFollowedTable& Table, const TOptions& Options)
    : FPicture(Picture), FTable(Table), FOptions(Options) {
    if (!Options.Follow.Window || HasBars()) return;
    for (TComponent* component : Picture.GetParts().Form->GetComponents())
        if (auto* vector = dynamic_cast<TKxLiveVector*>(component))
            vector->SetMaxCount(*Options.Follow.Window);
}

/// Bars have edges beside their values, and histograms change with every value.
bool TLivePicture::HasBars() const { return FOptions.Drawing.HasBars(); }

void TLivePicture::Poll() {
    const TFollowedTable::TNews news = FTable.Poll();
    if (news == TFollowedTable::TNews::None) return;
    TParts& parts = FPicture.GetParts();
    parts.Graph->BeginUpdate();
    if (news == TFollowedTable::TNews::Anew || HasBars())
        Replace();
    else
        Append(FTable.GetNew());
    parts.Graph->EndUpdate();
    FillResiduals(parts);
}

void TLivePicture::Append(const TPlan& New) {
    ForEachVector(New, [this](const TVectorPlan& Vector) {
        if (TKxLiveVector* live = FindComponentAs<TKxLiveVector>(*FPicture.GetParts().Form, Vector.Name))
            live->AddValues(Vector.Values);
    });
}

void TLivePicture::Replace() {
    ForEachVector(FTable.GetWhole(), [this](const TVectorPlan& Vector) {
        TKxLiveVector* live = FindComponentAs<TKxLiveVector>(*FPicture.GetParts().Form, Vector.Name);
        if (!live) return;
        live->Clear();
        live->AddValues(Vector.Values);
    });
}

} // namespace kxplot
