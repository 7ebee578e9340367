#pragma once
// What every test begins with: the framework, the parts of the standard library that tests use, and what they
// say of faults, of cases in files and of files. A test adds what it is about.

#include "support/cases.h"
#include "support/errors.h"
#include "support/recording.h"

#include <kxgraph/platform/drawing/recording.h>
#include <kxgraph/platform/text/files.h>
#include <kxgraph/platform/text/numbertext.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <stdexcept>
#include <string_view>

namespace kx::test {

/// Whether a text holds a piece; a failure shows both.
inline testing::AssertionResult Holds(std::string_view Text, std::string_view Piece) {
    const bool holds = Text.find(Piece) != Text.npos;
    return (holds ? testing::AssertionSuccess() : testing::AssertionFailure())
           << "'" << Piece << (holds ? "' stands in\n" : "' does not stand in\n") << Text;
}

} // namespace kx::test
