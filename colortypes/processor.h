// Code made for more than one kind of processor.
#ifndef MEASDATA_COLORTYPES_PROCESSOR_H
#define MEASDATA_COLORTYPES_PROCESSOR_H

#include <cstddef>

/// A function marked with it is compiled twice, for every processor and for those with registers of
/// four doubles, and the loader takes the one that fits. Both give the same results to the bit:
/// neither joins a product and a sum to one operation. Sanitizers do not bear it.
#if defined(__x86_64__) && defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__) && \
    !defined(__SANITIZE_THREAD__) && !defined(__clang__)
#define MEASDATA_FOR_WIDE_REGISTERS __attribute__((target_clones("avx2", "default")))
#else
#define MEASDATA_FOR_WIDE_REGISTERS
#endif

#endif  // MEASDATA_COLORTYPES_PROCESSOR_H
