// transformsteps.hpp - the inner loops of the transforms of convolution.hpp, in one form for each kind of processor.
// Tests: tests/kernels/convolution_test.cpp
//
// A number's words are the coefficients of a polynomial in x, reduced modulo a prime p. They stay in blocks of eight: the
// transform is one in X = x^8, done for all eight places of a block at once, and it ends with remainders modulo
// x^8 - y for every point y. So every loop is over whole blocks, which fill the registers of any processor, and nothing
// is ever shuffled within one.
//
// Products are Montgomery's: product(x, w) is x * w / 2^32 modulo p. A fixed factor is kept as the pair of
// w * 2^32 mod p and that times 1/p mod 2^32, which saves one multiplication of three.
#ifndef QUELMCL_SRC_KERNELS_TRANSFORMSTEPS_HPP
#define QUELMCL_SRC_KERNELS_TRANSFORMSTEPS_HPP

#include "kernels/processor.hpp"

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

constexpr std::size_t blockWords = 8;
constexpr unsigned primeCount = 3;
constexpr unsigned mostBlocksLog = 22;  ///< in one part
constexpr std::uint32_t orderOfRoot = 3u << mostBlocksLog;

/// A fixed factor modulo a prime, prepared for many products.
struct Factor {
  std::uint32_t value;      ///< the factor times 2^32, modulo the prime
  std::uint32_t companion;  ///< that times the inverse of the prime, modulo 2^32
};

/// A prime below 2^30 with a root of unity of order 3 * 2^22.
struct Prime {
  std::uint32_t p;
  std::uint32_t inverse;  ///< of p modulo 2^32
  std::uint32_t root;     ///< of order 3 * 2^22
  Factor one, minusOne;
  Factor third, thirdSquared;  ///< third roots of unity

  constexpr Prime(std::uint32_t prime, std::uint32_t generator)
    : p(prime),
      inverse(inverseOf(prime)),
      root(power(generator, (prime - 1) / orderOfRoot)),
      one(factor(1)),
      minusOne(factor(prime - 1)),
      third(factor(rootOfOrder(3))),
      thirdSquared(factor(times(rootOfOrder(3), rootOfOrder(3))))
  {
  }

  constexpr std::uint32_t times(std::uint32_t a, std::uint32_t b) const
  {
    return static_cast<std::uint32_t>(std::uint64_t{a} * b % p);
  }
  /// x * factor, for any x.
  constexpr std::uint32_t times(std::uint32_t x, const Factor& factor) const
  {
    const std::uint32_t high = static_cast<std::uint32_t>(std::uint64_t{x} * factor.value >> 32);
    const std::uint32_t quotient = x * factor.companion;
    const std::uint32_t back = static_cast<std::uint32_t>(std::uint64_t{quotient} * p >> 32);
    return high >= back ? high - back : high - back + p;
  }
  constexpr std::uint32_t power(std::uint32_t base, std::uint32_t exponent) const
  {
    std::uint32_t result = 1;
    for (; exponent > 0; exponent >>= 1, base = times(base, base))
      if ((exponent & 1) != 0)
        result = times(result, base);
    return result;
  }
  constexpr std::uint32_t reciprocal(std::uint32_t a) const { return power(a, p - 2); }
  constexpr std::uint32_t rootOfOrder(std::uint32_t order) const { return power(root, orderOfRoot / order); }
  /// A number below the prime as a factor.
  constexpr Factor factor(std::uint32_t a) const
  {
    const std::uint32_t value = static_cast<std::uint32_t>((std::uint64_t{a} << 32) % p);
    return {value, value * inverse};
  }

private:
  static constexpr std::uint32_t inverseOf(std::uint32_t prime)
  {
    std::uint32_t result = prime;  // right in the lowest three bits; each step doubles them
    for (int step = 0; step < 4; ++step)
      result *= 2 - prime * result;
    return result;
  }
};

inline constexpr Prime primes[primeCount] = {Prime(943718401, 7), Prime(918552577, 5), Prime(880803841, 26)};

/// Fixed factors of the transforms whose parts have a certain number of blocks.
struct PartFactors {
  Factor split;  ///< a root of unity of order four times the number of blocks, see Transformer
  Factor twist;  ///< one of order 3 * blocks, whose power by that number is a third root of unity
  Factor twistSquared;
  Factor twistBack;  ///< its reciprocal
  Factor twistBackSquared;
  Factor scale;         ///< what the way back is multiplied by, from one part
  Factor scaleOfThree;  ///< and from three
};

/// What a transform of a certain length modulo a prime needs.
struct Roots {
  const Prime* prime;
  const Factor* splits;  ///< the roots at which blocks are split, in the order in which the blocks come
  const PartFactors* factors;
  std::size_t blocks;  ///< in each part; a power of two
  bool hasThreeParts;  ///< the length is three times a power of two
};

/// One form of the inner loops. Lengths are in words.
struct TransformSteps {
  Instructions needed;
  /// From how many words of the shorter factor on a product by transforms is faster than one by halves: with limbs of 32
  /// bits, and of 64. Measured, see docs/radix.md.
  std::size_t worthFromWords[2];
  /// The words modulo the prime, and zeros behind them.
  void (*reduce)(const std::uint32_t* words, std::size_t count, std::uint32_t* residues, std::size_t length,
                 const Prime& prime) noexcept;
  /// From coefficients, below twice the prime, to points, below four times the prime.
  void (*forward)(std::uint32_t* residues, const Roots& roots) noexcept;
  /// a := a * b / 2^32 point by point; the result is below twice the prime.
  void (*multiply)(std::uint32_t* a, const std::uint32_t* b, const Roots& roots) noexcept;
  /// From points, below twice the prime, to coefficients, scaled and reduced.
  void (*back)(std::uint32_t* residues, const Roots& roots) noexcept;
  /// Makes of three residues the digits d of the number d0 + p0 * (d1 + p1 * d2).
  void (*combine)(const std::uint32_t* first, std::uint32_t* second, std::uint32_t* third, std::size_t length) noexcept;
};

extern const TransformSteps portableSteps;
extern const TransformSteps sse2Steps;
extern const TransformSteps avx2Steps;
extern const Forms<TransformSteps> transformForms;

}  // namespace quelmcl::detail

#endif
