// vectors_avx2.cpp - the loops over bytes, thirty-two at a time.
// Tests: tests/kernels/vectors_test.cpp
#include "kernels/vectors.hpp"

#if defined(__i386__) || defined(__x86_64__)

#  include <immintrin.h>

// From here on the compiler may use AVX2. Everything it makes of this must stay in this file, which a processor
// without it never enters: hence no function of the library or of the standard library may be made here.
#  define QUELMCL_INLINE __attribute__((always_inline)) inline
#  ifdef __clang__
#    pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#  else
#    pragma GCC push_options
#    pragma GCC target("avx2")
#  endif

namespace quelmcl::detail {

namespace {

#  include "kernels/vector128.hpp"
#  include "kernels/vector256.hpp"

using Narrow = Vector128;
using Wide = Vector256;

#  include "kernels/vectorloops.inc"

}  // namespace

const Vectors avx2Vectors = {
  "avx2", firstPair, lastPair, firstMember, lastMember, asciiPrefixOf,  whiteSpace,
  lower,  upper,     reverse,  bitAnd,      bitOr,      bitExclusiveOr,
};

}  // namespace quelmcl::detail

#  ifdef __clang__
#    pragma clang attribute pop
#  else
#    pragma GCC pop_options
#  endif

#endif
