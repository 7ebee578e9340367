#include <kxgraph/qt/Kxqtvectors.h>

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>
#endif

namespace kx::qt {

#if defined(__x86_64__) || defined(__i386__)

namespace {

__attribute__((target("avx"))) void ZeroUpper() { _mm256_zeroupper(); }

bool HasUpper() {
    static const bool has = __builtin_cpu_supports("avx");
    return has;
}

} // namespace

void ClearUpperVectors() {
    if (HasUpper()) ZeroUpper();
}

#else

void ClearUpperVectors() {}

#endif

} // namespace kx::qt
