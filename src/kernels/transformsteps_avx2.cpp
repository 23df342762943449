// transformsteps_avx2.cpp - the loops of transforms for processors with AVX2, eight words at a time.
// Tests: tests/kernels/convolution_test.cpp
#include "kernels/instructions.hpp"
#include "kernels/transformsteps.hpp"

#include <cstring>
#include <immintrin.h>

QUELMCL_BEGIN_INSTRUCTIONS("avx2")

namespace {

using Register = __m256i;
constexpr std::size_t lanes = 8;

inline Register load(const std::uint32_t* from)
{
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(from));
}

inline void store(std::uint32_t* to, Register x)
{
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(to), x);
}

inline Register everywhere(std::uint32_t x)
{
  return _mm256_set1_epi32(static_cast<int>(x));
}

inline Register add(Register a, Register b)
{
  return _mm256_add_epi32(a, b);
}

inline Register subtract(Register a, Register b)
{
  return _mm256_sub_epi32(a, b);
}

inline Register bitAnd(Register a, Register b)
{
  return _mm256_and_si256(a, b);
}

inline Register bitOr(Register a, Register b)
{
  return _mm256_or_si256(a, b);
}

/// All bits where a word has its highest one, none where not.
inline Register signs(Register x)
{
  return _mm256_srai_epi32(x, 31);
}

// The same registers as numbers of 64 bits.

inline Register addPairs(Register a, Register b)
{
  return _mm256_add_epi64(a, b);
}

inline Register subtractPairs(Register a, Register b)
{
  return _mm256_sub_epi64(a, b);
}

/// The products of the lower halves.
inline Register multiplyLow(Register a, Register b)
{
  return _mm256_mul_epu32(a, b);
}

inline Register upperHalves(Register x)
{
  return _mm256_srli_epi64(x, 32);
}

#include "kernels/transformvectors.inc"

}  // namespace

constinit const TransformSteps quelmcl::detail::avx2Steps = {Instructions::avx2, {64, 600}, reduce, forward,
                                                             multiply,           back,      combine};

QUELMCL_END_INSTRUCTIONS
