// What the arithmetic of the compiler has to be like, checked where it decides about digits.
#ifndef MEASDATA_BASE_ARITHMETIC_H
#define MEASDATA_BASE_ARITHMETIC_H

#include <cfloat>
#include <limits>

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<double>::digits == 53,
              "doubles must be those of IEC 60559");

#if defined(__FAST_MATH__) || (defined(__FINITE_MATH_ONLY__) && __FINITE_MATH_ONLY__ != 0)
#error "measdata compares, merges and sums exactly: compile it with -fno-fast-math"
#endif
// 1 extends floats alone.
#if defined(__GNUC__) && FLT_EVAL_METHOD != 0 && FLT_EVAL_METHOD != 1
#error "measdata needs sums of doubles that are doubles: compile it with -msse2 -mfpmath=sse"
#endif

#endif  // MEASDATA_BASE_ARITHMETIC_H
