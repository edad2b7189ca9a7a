#pragma once

#include <cstddef>

/// Before a function whose loops compilers turn into vector instructions: it is compiled a second time for
/// processors with wider vectors (AVX2), with all that it calls in it, and the loader picks one. Both compute
/// the same in whole numbers. Nothing where loader or compiler cannot do that, and under the sanitizers,
/// which are not ready yet when the loader picks.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define QVUI_WIDE_VECTORS __attribute__((flatten, target_clones("avx2", "default")))
#else
#define QVUI_WIDE_VECTORS
#endif
