#pragma once
// What the fuzz targets share. A target is one file: a body that takes any bytes and demands what must hold
// whatever they are. Built by itself over libFuzzer (preset fuzz, scripts/fuzz), and together with the others
// into kxgraph_fuzz_replay, which puts the files of corpus/<target> through it.

#include <kxgraph/platform/base/exceptions.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kx::fuzz {

/// Takes values off the bytes of a case, zeros when they are used up.
class TData {
public:
    explicit TData(std::span<const std::uint8_t> Bytes) : FBytes(Bytes) {}

    bool IsEmpty() const { return FBytes.empty(); }
    std::uint8_t Byte() {
        if (FBytes.empty()) return 0;
        const std::uint8_t first = FBytes.front();
        FBytes = FBytes.subspan(1);
        return first;
    }
    bool Flag() { return Byte() & 1; }
    std::int32_t Integer() { return Raw<std::int32_t>(); }
    /// First to Last, both included; at most 65536 values.
    int Between(int First, int Last) {
        const int span = Last - First + 1;
        const int low = Byte();
        return First + (span <= 256 ? low : low + 256 * Byte()) % span;
    }
    template <class T>
    T OneOf(std::initializer_list<T> Values) {
        return Values.begin()[Between(0, int(Values.size()) - 1)];
    }

    /// Any double: often a small whole number or a tenth, else a limit, else any bits.
    double Real() {
        const int kind = Byte();
        if (kind < 96) return kind - 48;
        if (kind < 160) return std::int8_t(Byte()) / 10.0;
        if (kind < 192) {
            using L = std::numeric_limits<double>;
            static constexpr double least = L::denorm_min(), endless = L::infinity();
            static constexpr double limits[] = {
                endless, -endless, L::quiet_NaN(), L::max(), L::lowest(), L::min(), least, -least,
                1.7e308, -1.7e308, -0.0,           1e15,     1e-280,      1.6e9,    1e-12, L::epsilon()};
            return limits[kind % 16];
        }
        return Raw<double>();
    }
    std::vector<double> Reals(int Most) {
        std::vector<double> values(std::size_t(Between(0, Most)));
        for (double& value : values) value = Real();
        return values;
    }
    /// Up to Most bytes.
    std::string Text(int Most) { return Take(std::size_t(Between(0, Most))); }
    std::string Rest() { return Take(FBytes.size()); }

private:
    std::string Take(std::size_t Count) {
        const auto part = FBytes.first(std::min(Count, FBytes.size()));
        FBytes = FBytes.subspan(part.size());
        return {part.begin(), part.end()};
    }
    template <class T>
    T Raw() {
        T value{};
        const std::string bytes = Take(sizeof value);
        std::memcpy(&value, bytes.data(), bytes.size());
        return value;
    }

    std::span<const std::uint8_t> FBytes;
};

[[noreturn]] inline void Fail(const char* File, int Line, const char* Demand, const std::string& Why) {
    std::fprintf(stderr, "%s:%d: %s does not hold %s\n", File, Line, Demand, Why.c_str());
    std::abort();
}

using TBody = void (*)(TData&);
/// The targets of this program by name.
inline std::map<std::string, TBody>& Targets() {
    static std::map<std::string, TBody> targets;
    return targets;
}

struct TRegistration {
    TRegistration(const char* Name, TBody Body) { Targets()[Name] = Body; }
};

} // namespace kx::fuzz

/// Ends the program, as sanitizers do, unless Demand holds; the rest is a text to print.
#define KX_DEMAND(DEMAND, ...)                                                                               \
    ((DEMAND) ? void() : ::kx::fuzz::Fail(__FILE__, __LINE__, #DEMAND, std::string("" __VA_ARGS__)))

namespace kx::fuzz {

/// Equal, or neither a number.
inline bool Same(double A, double B) { return A == B || (std::isnan(A) && std::isnan(B)); }

inline void DemandFinite(std::span<const double> Values) {
    for (const double value : Values) KX_DEMAND(std::isfinite(value), +std::to_string(value));
}

/// Points for what is calculated from them.
struct TPoints {
    void Take(TData& Data, int Count, bool Weighted) {
        for (; Count > 0; --Count) {
            X.push_back(Data.Real());
            Y.push_back(Data.Real());
            W.push_back(Weighted ? Data.Real() : 1);
        }
    }
    std::vector<double> X, Y, W;
};

} // namespace kx::fuzz

/// Begins the body of target NAME: KX_FUZZ(ini) { ... Data ... }
#define KX_FUZZ(NAME)                                                                                        \
    static void Fuzz_##NAME(::kx::fuzz::TData& Data);                                                        \
    static const ::kx::fuzz::TRegistration CRegistered_##NAME(#NAME, Fuzz_##NAME);                           \
    static void Fuzz_##NAME(::kx::fuzz::TData& Data)
