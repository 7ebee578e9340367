#include <kxgraph/numeric/Kxrange.h>

#include <kxgraph/platform/objects/published.h>

namespace kx {

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
    const int first = TList::Remove(Range);
    for (int next = first; next >= 0;) next = TList::Remove(Range);
    return first;
}

} // namespace kx
