#pragma once
// Sets a variable for the length of a scope.

#include <utility>

namespace kx {

template <class T>
class TScopedValue {
public:
    TScopedValue(T& Variable, T Value) : FVariable(Variable), FBefore(std::exchange(Variable, Value)) {}
    ~TScopedValue() { FVariable = FBefore; }
    TScopedValue(const TScopedValue&) = delete;
    TScopedValue& operator=(const TScopedValue&) = delete;

private:
    T& FVariable;
    T FBefore;
};

} // namespace kx
