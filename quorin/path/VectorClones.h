#pragma once

/// Marks a function that is worth compiling twice: once for any processor and once for those with
/// wider vectors, chosen when the program is loaded. Both do the same IEEE operations in the same
/// order, so both give the same bits.
///
/// Only by GCC: Clang 14 gives the choice a name that callers in other sources do not know. Not
/// under a sanitizer, which is not ready yet when the choice is made.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) && \
    !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
#define QUORIN_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define QUORIN_VECTOR_CLONES
#endif
