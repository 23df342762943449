// vectors_ssse3.cpp - the loops over bytes, sixteen at a time.
// Tests: tests/kernels/vectors_test.cpp
#include "kernels/vectors.hpp"

#include "kernels/gathering.hpp"
#include "kernels/instructions.hpp"

#include <immintrin.h>

#include <cstring>

QUELMCL_BEGIN_INSTRUCTIONS("ssse3")

namespace quelmcl::detail {

namespace {

#include "kernels/vector128.hpp"

using Narrow = Vector128;
using Wide = Vector128;

#include "kernels/vectorloops.inc"

}  // namespace

const Vectors ssse3Vectors = {
  Instructions::ssse3, firstPair,    pairs,     lastPair, firstMember, lastMember, asciiPrefixOf, utf8Continuations,
  whiteSpace,          measureWords, copyWords, lower,    upper,       reverse,    bitAnd,        bitOr,
  bitExclusiveOr,
};

}  // namespace quelmcl::detail

QUELMCL_END_INSTRUCTIONS
