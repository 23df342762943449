// transformsteps_sse2.cpp - the loops of transforms for processors with SSE2, four words at a time.
// Tests: tests/kernels/convolution_test.cpp
#include "kernels/instructions.hpp"
#include "kernels/transformsteps.hpp"

#include <cstring>
#include <immintrin.h>

QUELMCL_BEGIN_INSTRUCTIONS("sse2")

namespace {

using Register = __m128i;
constexpr std::size_t lanes = 4;

inline Register load(const std::uint32_t* from)
{
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(from));
}

inline void store(std::uint32_t* to, Register x)
{
  _mm_storeu_si128(reinterpret_cast<__m128i*>(to), x);
}

inline Register everywhere(std::uint32_t x)
{
  return _mm_set1_epi32(static_cast<int>(x));
}

inline Register add(Register a, Register b)
{
  return _mm_add_epi32(a, b);
}

inline Register subtract(Register a, Register b)
{
  return _mm_sub_epi32(a, b);
}

inline Register bitAnd(Register a, Register b)
{
  return _mm_and_si128(a, b);
}

inline Register bitOr(Register a, Register b)
{
  return _mm_or_si128(a, b);
}

/// All bits where a word has its highest one, none where not.
inline Register signs(Register x)
{
  return _mm_srai_epi32(x, 31);
}

// The same registers as numbers of 64 bits.

inline Register addPairs(Register a, Register b)
{
  return _mm_add_epi64(a, b);
}

inline Register subtractPairs(Register a, Register b)
{
  return _mm_sub_epi64(a, b);
}

/// The products of the lower halves.
inline Register multiplyLow(Register a, Register b)
{
  return _mm_mul_epu32(a, b);
}

inline Register upperHalves(Register x)
{
  return _mm_srli_epi64(x, 32);
}

#include "kernels/transformvectors.inc"

}  // namespace

constinit const TransformSteps quelmcl::detail::sse2Steps = {Instructions::sse2, {120, 1000}, reduce, forward,
                                                             multiply,           back,        combine};

QUELMCL_END_INSTRUCTIONS
