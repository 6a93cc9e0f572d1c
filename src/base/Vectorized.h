#pragma once

// Marks a function whose loops are worth being compiled a second time for processors
// with wider vectors; which of the two is called is settled when the program is loaded.
#if defined(__x86_64__) && defined(__has_attribute)
#if __has_attribute(target_clones)
#define VELLUMORA_VECTORIZED __attribute__((target_clones("avx2", "default")))
#endif
#endif
#ifndef VELLUMORA_VECTORIZED
#define VELLUMORA_VECTORIZED
#endif
