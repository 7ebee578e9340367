#pragma once
// What the weights of a fit's points say.

#include <kxgraph/platform/objects/typenames.h>

#include <array>

namespace kx {

enum TKxWeightMeaning {
    wmCounts,    ///< a weight of 2 is two points; degrees of freedom are those of the sum of weights
    wmPrecisions ///< 1 / variance of each point up to a common factor, which changes no standard error;
                 ///< points are counted for degrees of freedom, but those of weight 0
};

template <>
inline constexpr auto CEnumNames<TKxWeightMeaning> = std::to_array<std::string_view>({"wmCounts",
                                                                                      "wmPrecisions"});

} // namespace kx
