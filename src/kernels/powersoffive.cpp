// powersoffive.cpp - the powers by which long numbers are halved when they change between binary and decimal, and the
// reciprocals of numbers.
// Tests: tests/kernels/decimal_test.cpp
#include "kernels/powersoffive.hpp"

#include <algorithm>
#include <array>
#include <bit>

namespace quelmcl::detail {

unsigned levelBelow(std::size_t digits) noexcept
{
  return static_cast<unsigned>(std::bit_width((digits - 1) / digitsOfLevel(0))) - 1;
}

Limbs productOf(const Limbs& a, const Limbs& b)
{
  if (a.empty() || b.empty())
    return {};
  Limbs product(a.size() + b.size());
  multiplyLimbs(product.data(), a.data(), a.size(), b.data(), b.size());
  product.resize(significantLimbs(product.data(), product.size()));
  return product;
}

// ---- powers ----

namespace {

// The compiler works the shortest ones out: for a number of a thousand digits they would take a fourth of the time.
constexpr unsigned knownLevels = 6;

struct KnownPower {
  std::array<Limb, limbsForDigits(digitsOfLevel(knownLevels - 1)) * 7 / 10 + 1> limbs{1};  // log2(5) is 0.7 of log2(10)
  std::size_t length = 1;

  constexpr void multiplyBy(const KnownPower& factor)
  {
    KnownPower product;
    product.limbs[0] = 0;
    for (std::size_t i = 0; i < length; ++i) {
      Limb carry = 0;
      for (std::size_t j = 0; j < factor.length || carry != 0; ++j) {
        const DoubleLimb sum = DoubleLimb{limbs[i]} * factor.limbs[j] + product.limbs[i + j] + carry;
        product.limbs[i + j] = static_cast<Limb>(sum);
        carry = static_cast<Limb>(sum >> limbBits);
        product.length = std::max(product.length, i + j + 1);
      }
    }
    *this = product;
  }
};

constexpr std::array<KnownPower, knownLevels> makeKnownPowers()
{
  std::array<KnownPower, knownLevels> powers{};
  KnownPower five;
  five.limbs[0] = 5;
  for (unsigned i = 0; i < digitsOfLevel(0); ++i)
    powers[0].multiplyBy(five);
  for (unsigned level = 1; level < knownLevels; ++level) {
    powers[level] = powers[level - 1];
    powers[level].multiplyBy(powers[level - 1]);
  }
  return powers;
}

constexpr std::array<KnownPower, knownLevels> knownPowers = makeKnownPowers();

}  // namespace

PowersOfFive::PowersOfFive(unsigned highestLevel)
{
  powers.reserve(highestLevel + 1);
  for (unsigned level = 0; level <= highestLevel; ++level)
    if (level < knownLevels)
      powers.emplace_back(knownPowers[level].limbs.data(), knownPowers[level].limbs.data() + knownPowers[level].length);
    else
      powers.push_back(productOf(powers.back(), powers.back()));
}

Limbs PowersOfFive::power(std::size_t digits) const
{
  Limbs result(1, 1);
  for (unsigned level = 0; level < powers.size(); ++level)
    if ((digits & digitsOfLevel(level)) != 0)
      result = productOf(result, powers[level]);
  return result;
}

void PowerSpectra::multiply(unsigned level, const Limb* number, std::size_t length, std::size_t words, Limbs& product)
{
  const std::size_t transformed = spectrumLength(words);
  product.resize(transformed / wordsPerLimb);
  const Limbs& power = powers[level];
  if (kept[level] && kept[level]->length() == transformed) {
    Spectrum spectrum(transformer, number, length, transformed);
    spectrum.multiplyBy(*kept[level]);
    spectrum.toNumber(product.data());
    return;
  }
  kept[level].emplace(transformer, power.data(), power.size(), transformed);
  multiply(level, number, length, words, product);
}

// ---- reciprocals ----

namespace {

Limbs quotientOf(const Limbs& divisor, std::size_t precision)
{
  const std::size_t used = std::min(divisor.size(), precision + 1);
  Limbs dividend(precision + used + 1), quotient(precision + 1);
  dividend.back() = 1;
  divideLimbs(quotient.data(), dividend.data(), precision + used, divisor.data() + divisor.size() - used, used);
  return quotient;
}

// One step of Newton's method. Let x be B^half times the reciprocal v of d = divisor / B^length, nearly. With e = d x - 1 a
// better v is v - v e, and e is small: of d * x all but the lower part is known. What is dropped at the bottom of e
// makes less than one unit of the result.
Limbs refined(const Limbs& divisor, const Limbs& rough, std::size_t half, std::size_t precision)
{
  const std::size_t used = std::min(divisor.size(), precision + 1);
  Limbs error(used + rough.size());
  multiplyLimbs(error.data(), divisor.data() + divisor.size() - used, used, rough.data(), rough.size());
  const bool isTooLarge = error[used + half] != 0;
  if (!isTooLarge) {  // then e is what is missing to B^(used + half)
    for (Limb& limb : error)
      limb = ~limb;
    addCarry(error.data(), error.size(), 1);
  }
  error.resize(used + half);
  const std::size_t dropped = used + half > precision ? used + half - precision : 0;
  error.erase(error.begin(), error.begin() + static_cast<std::ptrdiff_t>(std::min(dropped, error.size())));
  error.resize(significantLimbs(error.data(), error.size()));

  Limbs correction = productOf(error, rough);
  const std::size_t shift = used + 2 * half - precision - dropped;
  correction.erase(correction.begin(),
                   correction.begin() + static_cast<std::ptrdiff_t>(std::min(shift, correction.size())));
  correction.resize(precision + 1);

  Limbs better(precision + 1);
  std::copy(rough.begin(), rough.end(), better.end() - static_cast<std::ptrdiff_t>(rough.size()));
  if (isTooLarge)
    subtractLimbs(better.data(), better.data(), correction.data(), better.size());
  else
    addLimbs(better.data(), better.data(), correction.data(), better.size());
  return better;
}

}  // namespace

Limbs reciprocalOf(const Limbs& divisor, std::size_t precision)
{
  constexpr std::size_t dividedUpTo = 32;
  std::vector<std::size_t> precisions;  // from the last one down
  for (std::size_t p = precision; p > dividedUpTo; p = p / 2 + 1)
    precisions.push_back(p);
  std::size_t known = precisions.empty() ? precision : precisions.back() / 2 + 1;
  Limbs result = quotientOf(divisor, known);
  for (auto next = precisions.rbegin(); next != precisions.rend(); known = *next++)
    result = refined(divisor, result, known, *next);
  return result;
}

}  // namespace quelmcl::detail
