// decimal_input.cpp - decimal digits to bytes.
// Tests: tests/kernels/decimal_test.cpp
#include "kernels/decimal.hpp"

#include "kernels/powersoffive.hpp"

#include <algorithm>
#include <optional>

namespace quelmcl::detail {

namespace {

constexpr std::size_t leadingDigits = 10;  // of the number in front of the digits, at most

struct DigitRun {
  std::uint32_t leading;  ///< stands in front of the digits
  const char* digits;
  std::size_t count;

  std::size_t limbs() const { return limbsForDigits(count + (leading != 0 ? leadingDigits : 0)); }
};

Limb valueOf(const char* digits, std::size_t count)
{
  Limb value = 0;
  for (std::size_t i = 0; i < count; ++i)
    value = value * 10 + static_cast<Limb>(digits[i] - '0');
  return value;
}

Limb powerOfTen(std::size_t exponent)
{
  Limb power = 1;
  for (; exponent > 0; --exponent)
    power *= 10;
  return power;
}

/// A word's digits at a time, each step over all limbs so far. The result is how many limbs were written.
std::size_t readShort(const DigitRun& run, Limb* number)
{
  number[0] = run.leading;
  std::size_t used = 1;
  const auto append = [number, &used](Limb power, Limb value) {
    if (const Limb carry = multiplyByLimb(number, number, used, power, value))
      number[used++] = carry;
  };
  const std::size_t odd = run.count % digitsPerLimb;
  append(powerOfTen(odd), valueOf(run.digits, odd));
  for (std::size_t i = odd; i < run.count; i += digitsPerLimb)
    append(powerOfLimb, valueOf(run.digits + i, digitsPerLimb));
  return used;
}

class DigitReader {
public:
  DigitReader(const DigitRun& run, const DecimalLimits& limits)
    : joinedFrom(std::max(limits.joinedFrom, digitsOfLevel(0)))
  {
    if (run.count <= joinedFrom)
      return;
    fives.emplace(levelBelow(run.count));
    if (run.limbs() >= transformsFrom())
      spectra.emplace(*fives, spectrumLength(2 * run.limbs() * wordsPerLimb));
  }

  // Leaves the number in run.limbs() limbs. Goes as deep as a count can be halved.
  void read(const DigitRun& run, Limb* number)
  {
    const std::size_t room = run.limbs();
    if (run.count <= joinedFrom) {
      std::fill(number + readShort(run, number), number + room, Limb{0});
      return;
    }

    const unsigned level = levelBelow(run.count);
    const std::size_t lowDigits = digitsOfLevel(level), lowLimbs = limbsForDigits(lowDigits);
    const DigitRun high = {run.leading, run.digits, run.count - lowDigits};
    Limbs upper(high.limbs());
    read(high, upper.data());
    upper.resize(significantLimbs(upper.data(), upper.size()));
    read({0, run.digits + high.count, lowDigits}, number);
    std::fill(number + lowLimbs, number + room, Limb{0});

    multiplyByPower(level, upper);
    Limb* const place = number + lowDigits / limbBits;
    const Limb carry = addLimbs(place, place, upper.data(), upper.size());
    addCarry(place + upper.size(), room - lowDigits / limbBits - upper.size(), carry);
  }

private:
  void multiplyByPower(unsigned level, Limbs& number)
  {
    const Limbs& power = (*fives)[level];
    const std::size_t length = number.size() + power.size();
    if (!spectra || !isForTransforms(std::min(number.size(), power.size()), length * wordsPerLimb)) {
      number = productOf(number, power);
      return;
    }
    Limbs product;
    spectra->multiply(level, number.data(), number.size(), length * wordsPerLimb, product);
    product.resize(significantLimbs(product.data(), length));
    number.swap(product);
  }

  const std::size_t joinedFrom;
  std::optional<PowersOfFive> fives;
  std::optional<PowerSpectra> spectra;
};

void writeBytes(const Limb* number, std::size_t length, unsigned char* bytes, std::size_t room)
{
  for (std::size_t i = 0; i < room; ++i) {
    const std::size_t place = i / limbBytes;
    bytes[room - 1 - i] = place < length ? static_cast<unsigned char>(number[place] >> (8 * (i % limbBytes)))
                                         : static_cast<unsigned char>(0);
  }
}

}  // namespace

std::size_t byteRoom(std::size_t digitCount) noexcept
{
  return limbsForDigits(digitCount + leadingDigits) * limbBytes;
}

void digitsToBytes(std::uint32_t leading, const char* digits, std::size_t digitCount, unsigned char* bytes,
                   std::size_t room)
{
  digitsToBytes(leading, digits, digitCount, bytes, room, usualLimits());
}

void digitsToBytes(std::uint32_t leading, const char* digits, std::size_t digitCount, unsigned char* bytes,
                   std::size_t room, const DecimalLimits& limits)
{
  const DigitRun run = {leading, digits, digitCount};
  constexpr std::size_t shortLimbs = 32;
  if (run.limbs() <= shortLimbs && digitCount <= limits.joinedFrom) {
    Limb number[shortLimbs + 1];
    return writeBytes(number, readShort(run, number), bytes, room);
  }
  Limbs number(run.limbs());
  DigitReader(run, limits).read(run, number.data());
  writeBytes(number.data(), number.size(), bytes, room);
}

}  // namespace quelmcl::detail
