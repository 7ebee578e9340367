#pragma once
// How a series finds the extents of its data: the bodies of two templates that the series of several sources
// share. Included by those sources only.

#include <kxgraph/numeric/Kxrange.h>
#include <kxgraph/series/Kxdataseries.h>

namespace kx {

template <class F>
void TKxSeries::ScanExtents(TRange& Range, int& MinIndex, int& MaxIndex, int Count, F IntervalOf,
                            TInterval From) {
    double low = From.Low, high = From.High;
    const bool empty = low > high; // then an equal value is the first one
    MinIndex = MaxIndex = -1;
    for (int i = 0; i < Count; ++i) {
        const TInterval value = IntervalOf(i); // not a number compares as false: it takes no part
        if (value.Low < low || (empty && MinIndex < 0 && value.Low <= low)) {
            low = value.Low;
            MinIndex = i;
        }
        if (value.High > high || (empty && MaxIndex < 0 && value.High >= high)) {
            high = value.High;
            MaxIndex = i;
        }
    }
    Range.SetStartStop(low, high);
}

template <class F>
void TKxSeries::UpdateExtents(TRange& Range, int& MinIndex, int& MaxIndex, int Index, TInterval Value,
                              F Rescan) {
    const bool movedInward = (Index == MinIndex && !(Value.Low <= Range.GetStart())) ||
                             (Index == MaxIndex && !(Value.High >= Range.GetStop()));
    if (movedInward) return Rescan();
    const bool lower = Value.Low<Range.GetStart(), higher = Value.High> Range.GetStop();
    if (!lower && !higher) return;
    if (lower && higher) {
        Range.SetStartStop(Value.Low, Value.High);
    } else {
        Range.IfRangeChanged(lower ? Value.Low : Value.High);
    }
    if (lower) MinIndex = Index;
    if (higher) MaxIndex = Index;
    Modified();
}

} // namespace kx
