// transformsteps_avx2.cpp - the loops of transforms for processors with AVX2, eight words at a time.
// Tests: tests/kernels/convolution_test.cpp
#include "kernels/transformsteps.hpp"

#include <cstring>
#include <immintrin.h>

#ifdef __clang__
#  pragma clang attribute push(__attribute__((target("avx2"))), apply_to = function)
#else
#  pragma GCC push_options
#  pragma GCC target("avx2")
#endif

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

inline Register wrap(Register x, Register m)
{
  const Register rest = _mm256_sub_epi32(x, m);
  return _mm256_add_epi32(rest, _mm256_and_si256(_mm256_srai_epi32(rest, 31), m));
}

// Products have 64 bits, so the even words and the odd ones are multiplied apart. The lower halves of what is subtracted
// are equal: nothing but the difference of the upper halves is left.
inline Register reduced(Register even, Register odd, Register companionEven, Register companionOdd, Register p)
{
  const Register fromEven = _mm256_sub_epi64(even, _mm256_mul_epu32(companionEven, p));
  const Register fromOdd = _mm256_sub_epi64(odd, _mm256_mul_epu32(companionOdd, p));
  return _mm256_add_epi32(_mm256_or_si256(_mm256_srli_epi64(fromEven, 32), fromOdd), p);
}

inline Register product(Register x, Register value, Register companion, Register p)
{
  const Register odd = _mm256_srli_epi64(x, 32);
  return reduced(_mm256_mul_epu32(x, value), _mm256_mul_epu32(odd, value), _mm256_mul_epu32(x, companion),
                 _mm256_mul_epu32(odd, companion), p);
}

inline void blockProduct(std::uint32_t* a, const std::uint32_t* b, const quelmcl::detail::Factor& y,
                         const quelmcl::detail::Prime& prime)
{
  constexpr std::size_t size = quelmcl::detail::blockWords;
  const Register p = everywhere(prime.p), twoP = everywhere(2 * prime.p), inverse = everywhere(prime.inverse);
  const Register value = everywhere(y.value), companion = everywhere(y.companion);
  std::uint32_t left[size], right[2 * size];  // the second factor, times y and then as it is
  for (std::size_t i = 0; i < size; i += lanes) {
    store(left + i, wrap(wrap(load(a + i), twoP), p));
    store(right + size + i, wrap(wrap(load(b + i), twoP), p));
    store(right + i, wrap(product(load(b + i), value, companion, p), p));
  }
  for (std::size_t k = 0; k < size; k += lanes) {
    Register even = _mm256_setzero_si256(), odd = even;
    for (std::size_t i = 0; i < size; ++i) {
      const Register l = everywhere(left[i]), r = load(right + size + k - i);
      even = _mm256_add_epi64(even, _mm256_mul_epu32(l, r));
      odd = _mm256_add_epi64(odd, _mm256_mul_epu32(l, _mm256_srli_epi64(r, 32)));
    }
    store(a + k, wrap(reduced(even, odd, _mm256_mul_epu32(even, inverse), _mm256_mul_epu32(odd, inverse), p), twoP));
  }
}

#include "kernels/transformloops.hpp"

const quelmcl::detail::TransformSteps steps = {"AVX2", {64, 600}, reduce, forward, multiply, back, combine};

}  // namespace

#ifdef __clang__
#  pragma clang attribute pop
#else
#  pragma GCC pop_options
#endif

const quelmcl::detail::TransformSteps* quelmcl::detail::avx2Steps() noexcept
{
  return __builtin_cpu_supports("avx2") ? &steps : nullptr;
}
