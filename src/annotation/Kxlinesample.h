#pragma once
// A short piece of a line, as it looks in a graph: what stands before the name of a curve.

#include <kxgraph/platform/controls/controls.h>
#include <kxgraph/series/Kxdraw.h>

namespace kx {

/// Paints the line across the middle of its height, visible or not; a style of its own, assigned from that of
/// the series.
class TKxLineSample : public TGraphicControl {
public:
    explicit TKxLineSample(TComponent* Owner);
    TKxLineStyle& GetLineStyle() { return FLineStyle; }

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

protected:
    bool HearsOfAll() const override { return IsBeyond<TKxLineSample>(); }
    void Paint() override;

private:
    TKxLineStyle FLineStyle{nullptr};
};

} // namespace kx
