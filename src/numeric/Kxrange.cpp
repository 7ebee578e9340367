#include <kxgraph/numeric/Kxrange.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

void TRange::SetStart(double Start) {
    FStart = Start;
    DoOnChanged();
}

void TRange::SetStop(double Stop) {
    FStop = Stop;
    DoOnChanged();
}

void TRange::SetStartStop(double Start, double Stop) {
    FStart = Start;
    FStop = Stop;
    DoOnChanged();
}

void TRange::Reset() {
    FStart = CMaxReal;
    FStop = -CMaxReal;
}

TRangeChangedResult TRange::IfRangeChanged(const double X) {
    TRangeChangedResult result = rgNotChanged;
    if (X < FStart) {
        FStart = X;
        result = rgMinChanged;
    }
    if (X > FStop) {
        FStop = X;
        result = result == rgMinChanged ? rgBothChanged : rgMaxChanged;
    }
    if (result != rgNotChanged) DoOnChanged();
    return result;
}

void TRange::Assign(const TPersistent& Source) {
    const auto* range = dynamic_cast<const TRange*>(&Source);
    if (!range) throw EConvertError("Cannot be assigned to TRange");
    SetStartStop(range->FStart, range->FStop);
}

const TPropertyTable& TRange::Properties() {
    static const TPropertyTable table(
        "TRange", nullptr,
        {Published<&TRange::GetStart, &TRange::SetStart>("Start", std::monostate{}, "Lower end of the range"),
         Published<&TRange::GetStop, &TRange::SetStop>("Stop", std::monostate{}, "Upper end of the range")});
    return table;
}

int TRangeList::Add(TRange* Range) {
    Remove(Range);
    return TList::Add(Range);
}

int TRangeList::Remove(TRange* Range) {
    const int first = IndexOf(Range);
    if (first >= 0) std::erase(FItems, Range);
    return first;
}

} // namespace kx
