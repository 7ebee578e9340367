#pragma once
// Loops over arrays, compiled twice on x86: for every processor, and for the wide vectors (AVX2) and the
// fused multiply-add of those that have them; the processor that runs chooses. Elsewhere they are compiled
// once.
//
// A kernel is a struct with a static template <bool Fused> Run(...), KX_INLINED as is all that its loops
// call. They are plain loops over the elements of arrays, which compilers turn into vector instructions. A
// sum goes into an array of parts, which neighbours go to by turns, as no other sum is a vector to compilers.
// It has the same bits whatever the vectors, and so has all else where Fused decides on the way of an exact
// product only: it says whether std::fma is one instruction and no function that takes long.

#include <cstddef>

#define KX_INLINED inline __attribute__((always_inline))

#if defined(__x86_64__) || defined(__i386__)
#define KX_FOR_WIDE_VECTORS __attribute__((target("avx2,fma")))
#endif

namespace kx {

/// What a sum, or a least or greatest value, is found in: neighbours go to neighbouring parts.
template <std::size_t N>
using TKxParts = double[N];

/// Use(i, part) for i = 0 to Count - 1; then for the last ones, fewer than N, which all go to part 0, after a
/// call of Before. Sums stay in registers for so many Turns; more than one are well for loops that store
/// nothing else. Then a few parts are enough, else 16 are none too many, for a sum must not wait for itself.
template <std::size_t N, std::size_t Turns, class F, class G>
KX_INLINED void ForEachInParts(std::size_t Count, F Use, G Before) {
    std::size_t i = 0;
    for (; i + Turns * N <= Count; i += Turns * N)
        for (std::size_t k = 0; k < N; ++k)
            for (std::size_t turn = 0; turn < Turns; ++turn) Use(i + turn * N + k, k);
    for (; i + N <= Count; i += N)
        for (std::size_t k = 0; k < N; ++k) Use(i + k, k);
    Before();
    for (; i < Count; ++i) Use(i, 0);
}
template <std::size_t N, std::size_t Turns, class F>
KX_INLINED void ForEachInParts(std::size_t Count, F Use) {
    ForEachInParts<N, Turns>(Count, Use, [] {});
}

// Of all parts; the first one becomes it, and the others are used up.
template <std::size_t N, class F>
KX_INLINED double CombinedParts(TKxParts<N>& Parts, F Combine) {
    for (std::size_t half = N / 2; half > 0; half /= 2)
        for (std::size_t k = 0; k < half; ++k) Parts[k] = Combine(Parts[k], Parts[k + half]);
    return Parts[0];
}
template <std::size_t N>
KX_INLINED double SumOfParts(TKxParts<N>& Parts) {
    return CombinedParts(Parts, [](double A, double B) { return A + B; });
}
template <std::size_t N>
KX_INLINED double LeastPart(TKxParts<N>& Parts) {
    return CombinedParts(Parts, [](double A, double B) { return B < A ? B : A; });
}
template <std::size_t N>
KX_INLINED double LargestPart(TKxParts<N>& Parts) {
    return CombinedParts(Parts, [](double A, double B) { return B > A ? B : A; });
}

#if defined(__FMA__) || defined(__FP_FAST_FMA)
inline constexpr bool CFused = true;
#else
inline constexpr bool CFused = false;
#endif

/// Whether kernels run in wide vectors where there are two ways: at first whether the processor has them.
/// Tests compare both ways.
inline bool& UsesWideVectors() {
#if defined(KX_FOR_WIDE_VECTORS)
    static bool uses =
        (__builtin_cpu_init(), __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"));
#else
    static bool uses = false;
#endif
    return uses;
}

#if defined(KX_FOR_WIDE_VECTORS)
template <class TKernel, class... TArguments>
KX_FOR_WIDE_VECTORS void RunInWideVectors(TArguments&... Arguments) {
    TKernel::template Run<true>(Arguments...);
}
#endif

/// TKernel::Run(Arguments...)
template <class TKernel, class... TArguments>
void RunKernel(TArguments&&... Arguments) {
#if defined(KX_FOR_WIDE_VECTORS)
    if (UsesWideVectors()) return RunInWideVectors<TKernel>(Arguments...);
#endif
    TKernel::template Run<CFused>(Arguments...);
}

} // namespace kx
