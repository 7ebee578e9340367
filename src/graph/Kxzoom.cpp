#include <kxgraph/graph/Kxzoom.h>

#include <kxgraph/graph/Kxcalendar.h>

#include <algorithm>
#include <cmath>

namespace kx {

namespace {

constexpr double CFurthestNumber = 4e307, CFurthestCategory = 1e9;
constexpr double CFurthestDecade = 306, CFewestDecades = 0.01;
constexpr double CLeastPart = 0x1p-40; // of the larger end: some doubles a pixel on any screen
constexpr double CLeastSpan = 1e-270;

double Furthest(TKxLabelKind Kind) {
    return Kind == lkDates ? CLastMoment : Kind == lkCategories ? CFurthestCategory : CFurthestNumber;
}

double Magnitude(TKxViewEnds Ends) { return std::max(std::abs(Ends.Start), std::abs(Ends.Stop)); }

/// A view in what the axis is linear in: values, or decades.
class TView {
public:
    TView(const TKxAxisMap& Map, TKxLabelKind Kind)
        : FMap(Map), FKind(Kind), FEnds(Map.IsLogarithmic() ? TKxViewEnds{Map.LogStart, Map.LogStop}
                                                            : TKxViewEnds{Map.Start, Map.Stop}) {}

    /// What stands at a pixel, from Start.
    double DistanceTo(double Pixel) const {
        return (FMap.Forward ? Pixel : FMap.AxisLength - Pixel) * FMap.Scale;
    }
    double Span() const { return FEnds.Stop - FEnds.Start; }
    /// With other ends, as values.
    std::optional<TKxViewEnds> With(TKxViewEnds Ends) const {
        if (!Holds(Ends)) return {};
        if (!FMap.IsLogarithmic()) return Ends;
        return TKxViewEnds{std::pow(10, Ends.Start), std::pow(10, Ends.Stop)};
    }
    TKxViewEnds Ends() const { return FEnds; }

private:
    /// At least 1 where the numbers of a view can be told apart.
    double Fineness(TKxViewEnds Ends) const {
        const double span = Ends.Stop - Ends.Start;
        if (FMap.IsLogarithmic()) return span / CFewestDecades;
        return span / std::max(CLeastSpan, Magnitude(Ends) * CLeastPart);
    }
    /// A view that is beyond a limit already may stay there, but not get worse.
    bool Holds(TKxViewEnds Ends) const {
        constexpr double CAsFine = 1 - 1e-9;
        const double furthest = FMap.IsLogarithmic() ? CFurthestDecade : Furthest(FKind);
        return Ends.Start < Ends.Stop && Magnitude(Ends) <= std::max(furthest, Magnitude(FEnds)) &&
               Fineness(Ends) >= std::min(1.0, Fineness(FEnds) * CAsFine);
    }

    const TKxAxisMap& FMap;
    TKxLabelKind FKind;
    TKxViewEnds FEnds;
};

} // namespace

std::optional<TKxViewEnds> ZoomedAbout(const TKxAxisMap& Map, TKxLabelKind Kind, double At, double Factor) {
    const TView view(Map, Kind);
    const double before = view.DistanceTo(At), behind = view.Span() - before;
    const auto [start, stop] = view.Ends();
    return view.With({start + before * (1 - Factor), stop - behind * (1 - Factor)});
}

std::optional<TKxViewEnds> PannedBy(const TKxAxisMap& Map, TKxLabelKind Kind, double By) {
    const TView view(Map, Kind);
    const double moved = By * Map.Scale * (Map.Forward ? 1 : -1);
    const auto [start, stop] = view.Ends();
    return view.With({start + moved, stop + moved});
}

} // namespace kx
