// powersoffive.hpp - the powers by which long numbers are halved when they change between binary and decimal, and the
// reciprocals of numbers.
// Tests: tests/kernels/decimal_test.cpp
//
// The powers of ten are those of 64, 128, 256, ... digits. 10^k is 5^k * 2^k, and 2^k moves a number by whole limbs, so
// only 5^k is kept, which is shorter by a third.
#ifndef QUELMCL_SRC_KERNELS_POWERSOFFIVE_HPP
#define QUELMCL_SRC_KERNELS_POWERSOFFIVE_HPP

#include "kernels/convolution.hpp"
#include "kernels/limbs.hpp"

#include <cstddef>
#include <optional>
#include <vector>

namespace quelmcl::detail {

using Limbs = std::vector<Limb>;

// The longest power of ten below one limb, and what goes into the first digits of a text.
constexpr unsigned digitsPerLimb = limbBits == 64 ? 19 : 9;
constexpr Limb powerOfLimb = static_cast<Limb>(limbBits == 64 ? 10000000000000000000u : 1000000000u);

constexpr std::size_t digitsOfLevel(unsigned level) noexcept
{
  return std::size_t{64} << level;  // a multiple of any limb's bits
}

/// The highest level of less than that many digits, which are more than 64.
unsigned levelBelow(std::size_t digits) noexcept;

/// Limbs that hold every number of so many digits.
constexpr std::size_t limbsForDigits(std::size_t digits) noexcept
{
  // 217706 / 65536 is a little more than the binary logarithm of ten.
  return static_cast<std::size_t>(std::uint64_t{digits} * 217706 / 65536 / limbBits) + 1;
}

/// a * b without zeros at the top; of no limbs when one of them has none.
Limbs productOf(const Limbs& a, const Limbs& b);

/// 5^64, 5^128, ... as far as they are needed.
class PowersOfFive {
public:
  /// Those of the levels up to this one.
  explicit PowersOfFive(unsigned highestLevel);

  /// 5 to the power of digitsOfLevel(level).
  const Limbs& operator[](unsigned level) const noexcept { return powers[level]; }
  /// 5 to any multiple of 64 for which the levels are enough.
  Limbs power(std::size_t digits) const;

private:
  std::vector<Limbs> powers;
};

/// Transforms of powers, each made when it is first asked for and kept, since all numbers on one level are multiplied by the
/// same power.
class PowerSpectra {
public:
  /// `longest` is the length of the longest transform that will be asked for, in words; what is beyond the reach of transforms
  /// does not count.
  PowerSpectra(const PowersOfFive& fives, std::size_t longest) : powers(fives), transformer(longest), kept(32) {}

  /// product := number * 5^k modulo 2^(32 words) - 1; it gets that many words, rounded up to a length of transforms.
  void multiply(unsigned level, const Limb* number, std::size_t length, std::size_t words, Limbs& product);

private:
  const PowersOfFive& powers;
  const Transformer transformer;
  std::vector<std::optional<Spectrum>> kept;
};

/// B^(precision + length) / divisor, where B is one more than the largest limb, but for an error of less than 16. The highest
/// bit of the divisor is set. Gives precision + 1 limbs; precision is at least 1.
Limbs reciprocalOf(const Limbs& divisor, std::size_t precision);

}  // namespace quelmcl::detail

#endif
