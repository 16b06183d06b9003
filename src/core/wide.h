#pragma once

// A routine whose loops over the points of a diagram are compiled a second time, for processors
// with registers of 256 bits; the program takes the right one when it starts. No operation is
// contracted or reordered, so both give the same bits.
#if defined(__GNUC__) && !defined(__clang__) && defined(__x86_64__) && defined(__linux__) &&       \
    !defined(__SANITIZE_ADDRESS__)
#define KESTRUM_WIDE [[gnu::target_clones("avx2", "default")]]
#else
#define KESTRUM_WIDE
#endif
