#pragma once
// Two doubles that are worked on at once, in the vector arithmetic that g++ and clang build in.

#include <kxgraph/numeric/Kxdoubled.h>

#include <cstddef>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace kx {

/// Two doubles; operators work on both, with a double or with other lanes. Comparisons give a TKxLanesMask.
using TKxLanes [[gnu::vector_size(16)]] = double;
using TKxLanesMask = decltype(TKxLanes{} < TKxLanes{});
using TKxDoubledLanes = TKxDoubledOf<TKxLanes>;
inline constexpr std::size_t CLanes = 2;

inline TKxLanes LoadLanes(const double* Values) {
    TKxLanes lanes;
    std::memcpy(&lanes, Values, sizeof lanes);
    return lanes;
}
inline TKxLanes AllLanes(double Value) { return TKxLanes{Value, Value}; }
inline TKxDoubledLanes AllLanes(TKxDoubled Value) { return {AllLanes(Value.Hi), AllLanes(Value.Lo)}; }
inline double SumOfLanes(TKxLanes Lanes) { return Lanes[0] + Lanes[1]; }
/// Whether a comparison holds for both.
inline bool HoldsForAll(TKxLanesMask Mask) { return Mask[0] && Mask[1]; }

// The smaller and the larger; of a NaN and a bound the bound.
#if defined(__SSE2__) // one instruction, which compilers do not see in the comparison
inline TKxLanes Lower(TKxLanes Value, TKxLanes Bound) { return _mm_min_pd(Value, Bound); }
inline TKxLanes Higher(TKxLanes Value, TKxLanes Bound) { return _mm_max_pd(Value, Bound); }
#else
inline TKxLanes Lower(TKxLanes Value, TKxLanes Bound) { return Value < Bound ? Value : Bound; }
inline TKxLanes Higher(TKxLanes Value, TKxLanes Bound) { return Value > Bound ? Value : Bound; }
#endif

} // namespace kx
