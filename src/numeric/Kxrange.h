#pragma once
// The extent of data: a start and a stop that report their changes, and lists of such ranges.

#include <kxgraph/numeric/Kxconsts.h>
#include <kxgraph/platform/objects/lists.h>
#include <kxgraph/platform/objects/persistent.h>

namespace kx {

class TRange;
/// Is given the range that changed.
using TRangeChangedEvent = TEvent<TRange*>;

/// What IfRangeChanged moved.
enum TRangeChangedResult { rgNotChanged, rgMinChanged, rgMaxChanged, rgBothChanged };

/// A lower and an upper end. Empty when new: Start CMaxReal, Stop -CMaxReal, so that the first value taken in
/// becomes both ends. The ends are never ordered or compared by the setters.
class TRange : public TPersistent {
public:
    TRange() { Reset(); }

    double GetStart() const { return FStart; }
    double GetStop() const { return FStop; }
    /// The setters call OnChanged every time, also for an equal value.
    void SetStart(double Start) { SetStartStop(Start, FStop); }
    void SetStop(double Stop) { SetStartStop(FStart, Stop); }
    void SetStartStop(double Start, double Stop) {
        FStart = Start;
        FStop = Stop;
        DoOnChanged();
    }

    /// Makes the range empty, without a call of OnChanged.
    void Reset() {
        FStart = CMaxReal;
        FStop = -CMaxReal;
    }
    /// Widens the range to include X; calls OnChanged once if an end moved. A NaN moves none.
    TRangeChangedResult IfRangeChanged(const double X) {
        const bool lower = X < FStart;
        if (lower) FStart = X;
        const bool higher = X > FStop;
        if (higher) FStop = X;
        if (lower || higher) DoOnChanged();
        return lower ? higher ? rgBothChanged : rgMinChanged : higher ? rgMaxChanged : rgNotChanged;
    }
    void DoOnChanged() { OnChanged(this); }

    /// Takes the ends of another TRange, not its OnChanged, and calls OnChanged.
    /// Raises EConvertError "Cannot be assigned to TRange" for an object of another class.
    void Assign(const TPersistent& Source) override;

    TRangeChangedEvent OnChanged;

    const TPropertyTable& PublishedProperties() const override { return Properties(); }
    static const TPropertyTable& Properties();

private:
    double FStart;
    double FStop;
};

/// Ranges in order, each at most once, none owned.
class TRangeList : public TList<TRange> {
public:
    /// Appends Range; if it was in the list, it moves to the end. Returns its index.
    int Add(TRange* Range) override;
    /// Removes every occurrence; returns the index of the first, -1 when there was none.
    int Remove(TRange* Range) override;
};

} // namespace kx
