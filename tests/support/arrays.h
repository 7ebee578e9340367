#pragma once
// Arrays of the library from the numbers of a test.

#include "support/cases.h"

#include <kxgraph/numeric/Kxconsts.h>

#include <algorithm>

namespace kx::test {

inline TKxRealArray ArrayOf(const TReals& Values) {
    TKxRealArray array(int(Values.size()));
    std::copy(Values.begin(), Values.end(), array.begin());
    return array;
}

} // namespace kx::test
