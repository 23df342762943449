// vectors_ssse3.cpp - the loops over bytes, sixteen at a time.
// Tests: tests/kernels/vectors_test.cpp
#include "kernels/vectors.hpp"

#if defined(__i386__) || defined(__x86_64__)

#  include <immintrin.h>

// From here on the compiler may use SSSE3. Everything it makes of this must stay in this file, which a processor
// without it never enters: hence no function of the library or of the standard library may be made here.
#  define QUELMCL_INLINE __attribute__((always_inline)) inline
#  ifdef __clang__
#    pragma clang attribute push(__attribute__((target("ssse3"))), apply_to = function)
#  else
#    pragma GCC push_options
#    pragma GCC target("ssse3")
#  endif

namespace quelmcl::detail {

namespace {

#  include "kernels/vector128.hpp"

using Narrow = Vector128;
using Wide = Vector128;

#  include "kernels/vectorloops.inc"

}  // namespace

const Vectors ssse3Vectors = {
  "ssse3", firstPair, lastPair, firstMember, lastMember, asciiPrefixOf,  whiteSpace,
  lower,   upper,     reverse,  bitAnd,      bitOr,      bitExclusiveOr,
};

}  // namespace quelmcl::detail

#  ifdef __clang__
#    pragma clang attribute pop
#  else
#    pragma GCC pop_options
#  endif

#endif
