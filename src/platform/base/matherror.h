#pragma once
// IEEE arithmetic does not trap. Where an operation must raise instead of passing on a NaN or an infinity,
// its operands or its result go through one of these checks.

#include <kxgraph/platform/base/exceptions.h>

#include <cmath>

namespace kx {

/// Returns Value; raises EInvalidOp for a NaN and EOverflow for an infinity.
template <class T>
T CheckedResult(T Value) {
    if (std::isnan(Value)) throw EInvalidOp("Invalid floating point operation");
    if (std::isinf(Value)) throw EOverflow("Floating point overflow");
    return Value;
}

/// Returns Value; raises EZeroDivide when it is zero.
template <class T>
T CheckedDivisor(T Value) {
    if (Value == 0) throw EZeroDivide("Floating point division by zero");
    return Value;
}

/// Returns Value; raises EInvalidOp unless it is positive, as a logarithm needs it.
template <class T>
T CheckedPositive(T Value) {
    if (!(Value > 0)) throw EInvalidOp("Invalid floating point operation");
    return Value;
}

} // namespace kx
