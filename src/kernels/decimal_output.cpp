// decimal_output.cpp - bytes to decimal digits.
// Tests: tests/kernels/decimal_test.cpp
#include "kernels/decimal.hpp"

#include "kernels/powersoffive.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <optional>

namespace quelmcl::detail {

namespace {

// ---- a word's digits ----

constexpr std::array<char, 200> makePairs()
{
  std::array<char, 200> pairs{};
  for (unsigned i = 0; i < 100; ++i) {
    pairs[2 * i] = static_cast<char>('0' + i / 10);
    pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
  }
  return pairs;
}

constexpr std::array<char, 200> digitPairs = makePairs();

/// Writes a number below 10^9 that ends before `end`, as exactly `count` digits.
void writeUpToNine(std::uint32_t value, char* end, std::size_t count)
{
  for (; count >= 2; count -= 2, value /= 100)
    std::memcpy(end -= 2, &digitPairs[2 * (value % 100)], 2);
  if (count > 0)
    *--end = static_cast<char>('0' + value % 10);
}

/// The same for a number of at most digitsPerLimb digits.
void writeLimb(Limb value, char* end, std::size_t count)
{
  constexpr std::size_t nine = 9;
  if constexpr (limbBits == 64)
    for (; count > nine; count -= nine, end -= nine, value /= 1000000000)
      writeUpToNine(static_cast<std::uint32_t>(value % 1000000000), end, nine);
  writeUpToNine(static_cast<std::uint32_t>(value), end, count);
}

Limb powerOfTen(std::size_t exponent)
{
  Limb power = 1;
  for (; exponent > 0; --exponent)
    power *= 10;
  return power;
}

// ---- short numbers: divided by the largest power of ten of one limb ----

constexpr unsigned shiftOfPower = static_cast<unsigned>(std::countl_zero(powerOfLimb));
constexpr LimbDivisor shiftedPower(powerOfLimb << shiftOfPower);

/// Writes the number as exactly `count` digits that end before `end`, which must be enough. The number, of `length` limbs, is
/// lost.
void writeShort(Limb* number, std::size_t length, char* end, std::size_t count)
{
  length = significantLimbs(number, length);
  while (length > 1) {
    // Shifted on the way, so that the divisor's highest bit is set and the rest comes out at the same place.
    constexpr unsigned shift = shiftOfPower;
    Limb rest = 0;
    if constexpr (shift > 0)
      rest = number[length - 1] >> (limbBits - shift);
    for (std::size_t i = length; i-- > 0;) {
      Limb limb = number[i] << shift;
      if constexpr (shift > 0)
        limb |= i > 0 ? number[i - 1] >> (limbBits - shift) : 0;
      number[i] = shiftedPower.divide(rest, limb);
    }
    writeLimb(rest >> shift, end, digitsPerLimb);
    end -= digitsPerLimb;
    count -= digitsPerLimb;
    length -= number[length - 1] == 0;
  }
  Limb value = length > 0 ? number[0] : 0;
  for (; count > 0; end -= digitsPerLimb, value /= powerOfLimb) {
    const std::size_t now = std::min<std::size_t>(count, digitsPerLimb);
    writeLimb(value % powerOfLimb, end, now);
    count -= now;
  }
}

// ---- middling numbers: divided by a long power of ten ----

class DividingWriter {
public:
  DividingWriter(std::size_t length, const DecimalLimits& limits)
    : dividedFrom(std::max<std::size_t>(limits.dividedFrom, 4 * limbsForDigits(digitsOfLevel(0))))
  {
    if (length < dividedFrom)
      return;
    const unsigned highest = levelFor(length);
    const PowersOfFive fives(highest);
    for (unsigned level = 0; level <= highest; ++level) {
      divisors.push_back(fives[level]);
      shifts.push_back(static_cast<unsigned>(std::countl_zero(divisors.back().back())));
      shiftUp(divisors.back().data(), divisors.back().data(), divisors.back().size(), shifts.back());
    }
  }

  /// As writeShort. Goes as deep as a length can be halved.
  void write(Limb* number, std::size_t length, char* end, std::size_t count)
  {
    length = significantLimbs(number, length);
    if (length < dividedFrom)
      return writeShort(number, length, end, count);

    // Of 10^k = 5^k * 2^k the lower limbs of the number are the rest of the division by 2^k.
    const unsigned level = levelFor(length);
    const std::size_t digits = digitsOfLevel(level), below = digits / limbBits;
    const Limbs& divisor = divisors[level];
    const std::size_t above = length - below;
    Limbs dividend(above + 1), quotient(above + 1 - divisor.size());
    dividend[above] = shiftUp(dividend.data(), number + below, above, shifts[level]);
    divideLimbs(quotient.data(), dividend.data(), above, divisor.data(), divisor.size());
    shiftDown(number + below, dividend.data(), divisor.size(), shifts[level]);
    write(number, below + divisor.size(), end, digits);
    write(quotient.data(), quotient.size(), end - digits, count - digits);
  }

private:
  /// The highest level whose power has at most about half of the number's digits.
  static unsigned levelFor(std::size_t length) { return levelBelow(length * limbBits / 6); }

  const std::size_t dividedFrom;
  std::vector<Limbs> divisors;  // powers of five, shifted so that the highest bit is set
  std::vector<unsigned> shifts;
};

// ---- long numbers: as fractions ----

// With N < 10^K, the digits of N are those of the fraction F = (N + 1/2) / 10^K behind its decimal point. Half a unit is
// added so that F stays away from the numbers with K digits on both sides of it: it may be known too small or too large by
// almost half a unit of the last digit and the digits are the same. They are found without any further division: F * 10^k
// has the first k digits before its point, and what is behind it is the fraction of the others. For the first digits
// alone F is known better than need be. It is cut off there, but first moved to the middle between two numbers
// of k digits: what follows behind the point of F * 10^k tells how far it is away from there.
//
// Two limbs more than the digits need make every fraction exact to 2^-64 units of its last digit at 32 bits. An error of a few
// times that is made where a fraction is cut, one of 2^-29 where it is moved, and errors add up along the way down only: there
// are less than 32 levels.
constexpr std::size_t guardLimbs = 2;

std::size_t fractionLimbs(std::size_t digits)
{
  return limbsForDigits(digits) + guardLimbs;
}

class FractionWriter {
public:
  FractionWriter(std::size_t digits, const DecimalLimits& limits)
    : leaf(std::max<std::size_t>(limits.fractionLeaf, fractionLimbs(digitsOfLevel(0)))),
      fives(levelBelow(digits + 1)),  // one more when the number of digits is that of a level itself
      spectra(fives, spectrumLength((2 * fractionLimbs(digits) + 8) * wordsPerLimb))
  {
  }

  /// The number as a fraction of 10^digits, which is a multiple of 64 and of which the number is less.
  Limbs fractionOf(const Limbs& number, std::size_t digits) const
  {
    Limbs divisor = fives.power(digits);
    const unsigned shift = static_cast<unsigned>(std::countl_zero(divisor.back()));
    shiftUp(divisor.data(), divisor.data(), divisor.size(), shift);
    const std::size_t precision = fractionLimbs(digits);
    const Limbs reciprocal = reciprocalOf(divisor, precision);

    Limbs twice(number.size() + 2);  // 2 N + 1, shifted as the divisor is
    twice[number.size()] = shiftUp(twice.data(), number.data(), number.size(), 1);
    twice[0] |= 1;
    twice[number.size() + 1] = shiftUp(twice.data(), twice.data(), number.size() + 1, shift);
    Limbs product = productOf(twice, reciprocal);
    const std::size_t dropped = divisor.size() + digits / limbBits;  // + precision - precision
    product.erase(product.begin(), product.begin() + static_cast<std::ptrdiff_t>(std::min(dropped, product.size())));
    shiftDown(product.data(), product.data(), product.size(), 1);
    product.resize(precision);
    return product;
  }

  /// Writes the first `count` digits behind the point. The fraction has fractionLimbs(count) limbs and is lost. Goes as
  /// deep as a count can be halved.
  void write(Limb* fraction, char* digits, std::size_t count)
  {
    const std::size_t length = fractionLimbs(count);
    if (length <= leaf)
      return writeLeaf(fraction, length, digits, count);

    const unsigned level = levelBelow(count);
    const std::size_t first = digitsOfLevel(level), firstLength = fractionLimbs(first);
    Limbs rest(fractionLimbs(count - first));
    multiplyByPower(level, fraction, length, rest);
    Limb* const upper = fraction + (length - firstLength);
    moveToMiddle(level, upper, firstLength, rest.back());
    write(upper, digits, first);
    write(rest.data(), digits + first, count - first);
  }

private:
  // rest := what is behind the point of fraction * 10^k. The product comes modulo a number that is longer than what is wanted,
  // but shorter than the whole: the limbs before the point are added to the lowest ones, which are not wanted either.
  void multiplyByPower(unsigned level, const Limb* fraction, std::size_t length, Limbs& rest)
  {
    const Limbs& power = fives[level];
    const std::size_t point = length - digitsOfLevel(level) / limbBits;
    const std::size_t wanted = point - rest.size();  // from there on
    const std::size_t enough = std::max(length, length + power.size() - wanted + 1);
    Limbs product;
    if (!isForTransforms(power.size(), enough * wordsPerLimb)) {
      product.resize(length + power.size());
      multiplyLimbs(product.data(), fraction, length, power.data(), power.size());
    } else
      spectra.multiply(level, fraction, length, enough * wordsPerLimb, product);
    std::copy_n(product.begin() + static_cast<std::ptrdiff_t>(wanted), rest.size(), rest.begin());
  }

  // Adds (1/2 - behind) / 10^k to a fraction of which F * 10^k has `behind`, given by its highest limb, behind the point.
  // 30 bits of 10^-k are enough.
  void moveToMiddle(unsigned level, Limb* fraction, std::size_t length, Limb behind) const
  {
    const Limbs& power = fives[level];
    const unsigned zeros = static_cast<unsigned>(std::countl_zero(power.back()));
    const DoubleLimb leading = (DoubleLimb{power.back()} << limbBits | power[power.size() - 2]) << zeros;
    const std::uint64_t leadingBits = static_cast<std::uint64_t>(leading >> (2 * limbBits - 32));
    const std::uint64_t reciprocal = (std::uint64_t{1} << 62) / leadingBits;  // of 31 or 32 bits

    const std::uint32_t behindBits = static_cast<std::uint32_t>(behind >> (limbBits - 32));
    constexpr std::uint32_t middle = 0x80000000;
    const bool isAbove = behindBits > middle;
    const std::uint64_t amount = reciprocal * (isAbove ? behindBits - middle : middle - behindBits);

    // 1 / 5^k is reciprocal / 2^30 / 2^(bits of 5^k), and the amount is in units of 2^-32 of that.
    const std::size_t powerBits = power.size() * limbBits - zeros;
    const std::size_t place = (length - digitsOfLevel(level) / limbBits) * limbBits - powerBits - 30 - 32;
    Limb shifted[4] = {};
    for (unsigned i = 0; i < 64; i += 32)
      addAt(shifted, static_cast<std::uint32_t>(amount >> i), place % limbBits + i);
    Limb* const target = fraction + place / limbBits;
    const std::size_t above = length - place / limbBits;
    const std::size_t used = std::min<std::size_t>(above, 4);
    if (isAbove)
      subtractBorrow(target + used, above - used, subtractLimbs(target, target, shifted, used));
    else
      addCarry(target + used, above - used, addLimbs(target, target, shifted, used));
  }

  static void addAt(Limb* limbs, std::uint32_t value, std::size_t bit)
  {
    const DoubleLimb wide = DoubleLimb{value} << (bit % limbBits);
    limbs[bit / limbBits] |= static_cast<Limb>(wide);
    limbs[bit / limbBits + 1] |= static_cast<Limb>(wide >> limbBits);
  }

  // A word's digits at a time come out at the top; limbs that the digits left to do no longer need are dropped at the bottom.
  static void writeLeaf(Limb* fraction, std::size_t length, char* digits, std::size_t count)
  {
    std::size_t lowest = 0;
    for (std::size_t now = count % digitsPerLimb; count > 0; now = digitsPerLimb) {
      const Limb factor = now == digitsPerLimb ? powerOfLimb : powerOfTen(now);
      const Limb value = multiplyByLimb(fraction + lowest, fraction + lowest, length - lowest, factor, 0);
      writeLimb(value, digits + now, now);
      digits += now;
      count -= now;
      lowest = std::max(lowest, length - std::min(length, fractionLimbs(count)));
    }
  }

  const std::size_t leaf;
  const PowersOfFive fives;
  PowerSpectra spectra;
};

Limbs limbsOf(const unsigned char* bytes, std::size_t byteCount)
{
  Limbs number((byteCount + limbBytes - 1) / limbBytes);
  for (std::size_t i = 0; i < byteCount; ++i)
    number[i / limbBytes] |= static_cast<Limb>(bytes[byteCount - 1 - i]) << (8 * (i % limbBytes));
  number.resize(significantLimbs(number.data(), number.size()));
  return number;
}

}  // namespace

std::size_t digitRoom(std::size_t byteCount) noexcept
{
  // A byte has less than 2.4083 digits. Fractions have a multiple of 64 digits.
  const std::size_t digits = static_cast<std::size_t>(std::uint64_t{byteCount} * 24083 / 10000) + 1;
  return (digits + 63) / 64 * 64;
}

DecimalLimits usualLimits() noexcept
{
  const std::size_t fractionsFrom = std::max<std::size_t>(limbBits == 64 ? 2500 : 1100, 4 * transformsFrom());
  return {30, fractionsFrom, 150, limbBits == 64 ? 1500u : 600u};
}

void bytesToDigits(const unsigned char* bytes, std::size_t byteCount, char* digits, std::size_t room)
{
  bytesToDigits(bytes, byteCount, digits, room, usualLimits());
}

void bytesToDigits(const unsigned char* bytes, std::size_t byteCount, char* digits, std::size_t room,
                   const DecimalLimits& limits)
{
  Limbs number = limbsOf(bytes, byteCount);
  if (number.size() >= limits.fractionsFrom && room > digitsOfLevel(0)) {
    FractionWriter writer(room, limits);
    Limbs fraction = writer.fractionOf(number, room);
    return writer.write(fraction.data(), digits, room);
  }
  DividingWriter(number.size(), limits).write(number.data(), number.size(), digits + room, room);
}

}  // namespace quelmcl::detail
