#pragma once

/// Marks a function that is worth compiling twice: once for any processor and once for those with
/// wider vectors, chosen when the program is loaded. Both do the same IEEE operations in the same
/// order, so both give the same bits. Sanitizers run before the choice is made and go without.
#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
#define QUORIN_SANITIZED
#endif
#endif
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define QUORIN_SANITIZED
#endif

#if defined(__x86_64__) && defined(__linux__) && !defined(QUORIN_SANITIZED)
#define QUORIN_VECTOR_CLONES __attribute__((target_clones("avx2", "default")))
#else
#define QUORIN_VECTOR_CLONES
#endif
