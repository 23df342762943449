// vectors_avx2.cpp - the loops over bytes, thirty-two at a time.
// Tests: tests/kernels/vectors_test.cpp
#include "kernels/vectors.hpp"

#include "kernels/gathering.hpp"
#include "kernels/instructions.hpp"

#include <immintrin.h>

#include <cstring>

QUELMCL_BEGIN_INSTRUCTIONS("avx2")

namespace quelmcl::detail {

namespace {

#include "kernels/vector128.hpp"
#include "kernels/vector256.hpp"

using Narrow = Vector128;
using Wide = Vector256;

#include "kernels/vectorloops.inc"

}  // namespace

const Vectors avx2Vectors = {
  Instructions::avx2, firstPair, pairs, lastPair, firstMember, lastMember, asciiPrefixOf, utf8Continuations, whiteSpace,
  measureWords,       copyWords, lower, upper,    reverse,     bitAnd,     bitOr,         bitExclusiveOr,
};

}  // namespace quelmcl::detail

QUELMCL_END_INSTRUCTIONS
