#pragma once

#include <cstddef>

/// Marks a function whose loops are vectorised by the compiler: the function and everything it calls are also
/// compiled for processors with wider vectors (AVX2), and the loader selects a version. Both versions compute
/// the same integer results. Expands to nothing where the loader or compiler lacks support, and under the
/// sanitizers, which are not initialised yet when the loader selects.
#if defined(__x86_64__) && defined(__GLIBC__) && defined(__GNUC__) && !defined(__clang__) && \
    !defined(__SANITIZE_ADDRESS__)
#define QVUI_WIDE_VECTORS __attribute__((flatten, target_clones("avx2", "default")))
#else
#define QVUI_WIDE_VECTORS
#endif
