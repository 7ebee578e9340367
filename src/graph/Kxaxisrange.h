#pragma once
// What an axis shows: the ends that were set or that the data made, how they follow the data, the views that
// were zoomed to, and the round ends that are made of the one in force.

#include <kxgraph/graph/Kxlabelling.h>
#include <kxgraph/graph/Kxscale.h>
#include <kxgraph/numeric/Kxrange.h>
#include <kxgraph/numeric/Kxrangeunion.h>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kx {

/// Numbers what the user does to zoom, in order, so that views of several axes that belong together are found
/// again; 0 is none.
using TKxZoomGesture = std::uint64_t;
TKxZoomGesture NewZoomGesture();

/// What was set, or made by the data, is kept apart from what is shown: every layout rounds anew, so that no
/// end creeps away and a fixed one comes back when the other end does. A bool that is returned tells whether
/// anything has changed, so that the axis must be laid out anew.
class TKxAxisRange {
public:
    /// What is as it is set, whichever view is shown; of it Start, Stop and Keep... are not used.
    TKxScaleInput Rules;
    TKxAxisRange() { FShown.SetStartStop(0, 100); }

    /// The ends that are shown; until they are calculated those that were set.
    const TRange& Shown() const { return FShown; }
    /// What was calculated last.
    const TKxScaleEnds& Ends() const { return FEnds; }
    /// What is kept of the unzoomed view: a fixed end as it was set, any other one as it is shown. Ends that
    /// were no range are kept as they were: what stands in for them is another one for other ends.
    double GetKeptStart() const {
        return Rules.StartEnd == AxFixed || IsNoRange() ? FUnzoomed.Start : ShownUnzoomed().Start;
    }
    double GetKeptStop() const {
        return Rules.StopEnd == AxFixed || IsNoRange() ? FUnzoomed.Stop : ShownUnzoomed().Stop;
    }

    /// Of the view that is shown and of the unzoomed one.
    bool SetStart(double Start) { return SetEnd(&TView::Start, FShown.GetStart(), Start); }
    bool SetStop(double Stop) { return SetEnd(&TView::Stop, FShown.GetStop(), Stop); }
    /// For an end that becomes fixed, what is shown counts as set.
    bool SetStartEnd(TKxAxEnd Kind) {
        return SetKind(Rules.StartEnd, Kind, &TView::Start, FShown.GetStart());
    }
    bool SetStopEnd(TKxAxEnd Kind) { return SetKind(Rules.StopEnd, Kind, &TView::Stop, FShown.GetStop()); }
    bool SetScaling(TKxAxScaling Scaling);
    const TKxLabelling& Labelling() const { return FLabelling; }
    void SetLabelling(TKxLabelling Labelling);
    /// The unzoomed view is shown as it is, but for fixed ends.
    void KeepUnzoomed() { FUnzoomed.IsRound = !IsNoRange(); }

    /// The extents of what is drawn, not owned, and what holds all of them.
    TKxRangeUnion& Extents() { return FExtents; }
    TRange& Values() { return FValues; }
    bool HasValues() const { return FValues.GetStart() <= FValues.GetStop(); }
    /// Moves the ends that follow the data: those of the unzoomed view, whether it is shown or not. Changed
    /// is the extent that has; null when one has come or gone.
    bool Follow(const TRange* Changed);
    /// Follows all extents, whatever was told of them, and forgets the zooms.
    void Redo();

    // A view that was zoomed to is rounded once and then stays, whatever the data do.
    void ZoomIn(double Start, double Stop, TKxZoomGesture Gesture = NewZoomGesture());
    bool ZoomBack();
    // By hand: exact views, and what was zoomed back from is forgotten as soon as another view is made.
    /// In place of the view that is shown where that is of the same gesture, else behind it.
    void ZoomAlong(double Start, double Stop, TKxZoomGesture Gesture);
    /// Takes the view away that is shown, where it is of this gesture.
    bool UndoZoom(TKxZoomGesture Gesture);
    /// Shows the unzoomed view; ZoomBack shows the newest one again.
    bool Unzoom();
    /// That of the view that is shown; 0 for the unzoomed one.
    TKxZoomGesture GetZoomGesture() const { return IsZoomed() ? FZooms[ZoomedIndex()].Gesture : 0; }
    void ForgetZooms();
    bool CanZoomBack() const { return !FZooms.empty(); }
    /// Counted from 1, the unzoomed view; 0 as long as nothing was zoomed.
    int GetZoomIndex() const { return FZoomIndex; }

    /// Makes the view in force presentable: round ends, tick steps, exponents.
    void Calculate();
    /// The same for ends that are another axis's and round already.
    void CalculateAs(double Start, double Stop);
    /// Shows what Other does, on such a scale.
    void Mirror(const TKxAxisRange& Other);
    /// Shows what was calculated last, whatever has moved the ends since.
    void KeepShown() { FShown.SetStartStop(FEnds.Start, FEnds.Stop); }

private:
    /// The ends of a view as they were set or zoomed to, or as the data made them.
    struct TView {
        double Start = 0, Stop = 100;
        bool IsRound = false; ///< they were shown so: what is not fixed is not rounded again
        TKxZoomGesture Gesture = 0;
    };
    bool SetEnd(double TView::*End, double Shown, double Value);
    bool SetKind(TKxAxEnd& Kind, TKxAxEnd Value, double TView::*End, double Shown);
    bool IsZoomed() const { return FZoomIndex > 1; }
    bool IsNoRange() const { return FUnzoomed.Start >= FUnzoomed.Stop; }
    std::size_t ZoomedIndex() const { return static_cast<std::size_t>(FZoomIndex - 2); }
    TView& ZoomedView() { return FZooms[ZoomedIndex()]; }
    void ShowPresentView();
    void ForgetRounding();
    void Show(const TView& View) { FShown.SetStartStop(View.Start, View.Stop); }
    TView ShownUnzoomed() const;
    bool FollowValues(TView& View) const;
    bool RoundsToShown() const;
    TKxScaleInput InputOf(const TView& View) const;
    void TakeEnds(const TKxScaleInput& Input);

    TKxLabelling FLabelling;
    TRange FShown, FValues;
    TKxRangeUnion FExtents;
    TView FUnzoomed;
    std::vector<TView> FZooms;
    int FZoomIndex = 0;
    TKxScaleEnds FEnds;
};

} // namespace kx
