// decimal_test.cpp - kernels: whole numbers between bytes and decimal digits, by each method.
#include "kernels/decimal.hpp"

#include "kernels/powersoffive.hpp"
#include "random_numbers.hpp"
#include "support/radix_reference.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace kerneltests;
using namespace quelmcl::detail;

namespace {

constexpr std::size_t never = static_cast<std::size_t>(-1);

struct Method {
  const char* name;
  DecimalLimits limits;
};

// Every method from the shortest numbers on that it can do.
const Method methods[] = {
  {"as_usual", usualLimits()},
  {"a_word_at_a_time", {never, never, never, never}},
  {"divided_early", {1, never, never, 200}},
  {"fractions_early", {1, 1, 1, 1}},
  {"fractions_with_long_leaves", {1, 1, 100, 1000}},
};

std::string digitsOf(const std::string& bytes, const DecimalLimits& limits)
{
  std::string digits(digitRoom(bytes.size()), 'x');
  bytesToDigits(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(), &digits[0], digits.size(), limits);
  const std::size_t first = digits.find_first_not_of('0');
  return first == std::string::npos ? "0" : digits.substr(first);
}

std::string bytesOf(std::uint32_t leading, const std::string& digits, const DecimalLimits& limits)
{
  std::string bytes(byteRoom(digits.size()), 'x');
  digitsToBytes(leading, digits.data(), digits.size(), reinterpret_cast<unsigned char*>(&bytes[0]), bytes.size(),
                limits);
  const std::size_t first = bytes.find_first_not_of('\0');
  return first == std::string::npos ? std::string(1, '\0') : bytes.substr(first);
}

std::string randomBytes(RandomNumbers& random, std::size_t length)
{
  const unsigned kind = random.below(4);
  std::string bytes(1, static_cast<char>(1 + random.below(255)));
  while (bytes.size() < length)
    bytes += static_cast<char>(kind == 0 || random.onceIn(5) ? random.below(256) : kind == 1 ? 255 : 0);
  return bytes;
}

std::string randomDigits(RandomNumbers& random, std::size_t length)
{
  const unsigned kind = random.below(4);
  std::string digits(1, static_cast<char>('1' + random.below(9)));
  while (digits.size() < length)
    digits += static_cast<char>('0' + (kind == 0 || random.onceIn(9) ? random.below(10) : kind == 1 ? 9 : 0));
  return digits;
}

class DecimalKernels : public testing::TestWithParam<Method> {
protected:
  static const DecimalLimits& limits() { return GetParam().limits; }
};

INSTANTIATE_TEST_SUITE_P(Methods, DecimalKernels, testing::ValuesIn(methods),
                         [](const testing::TestParamInfo<Method>& row) { return std::string(row.param.name); });

TEST_P(DecimalKernels, WriteNumbersOfEveryLength)
{
  RandomNumbers random;
  for (std::size_t length = 1; length < 420; length += length < 140 ? 1 : 7) {
    const std::string bytes = randomBytes(random, length);
    EXPECT_EQ(digitsOf(bytes, limits()), reference::c2d(bytes)) << length << " bytes";
  }
}

TEST_P(DecimalKernels, ReadNumbersOfEveryLength)
{
  RandomNumbers random;
  for (std::size_t length = 1; length < 1000; length += length < 300 ? 1 : 13) {
    const std::string digits = randomDigits(random, length);
    EXPECT_EQ(bytesOf(0, digits, limits()), reference::d2c("0000000000" + digits)) << length << " digits";
  }
}

TEST_P(DecimalKernels, PutTheLeadingNumberInFront)
{
  RandomNumbers random;
  for (std::size_t length = 0; length < 700; length += 1 + length / 9) {
    const std::string digits = randomDigits(random, length + 1).substr(1);
    EXPECT_EQ(bytesOf(2147483647, digits, limits()), reference::d2c("2147483647" + digits)) << length << " digits";
    EXPECT_EQ(bytesOf(1, digits, limits()), reference::d2c("0000000001" + digits)) << length << " digits";
  }
}

// The smallest leading number before the largest digits: the least that needs its room.
TEST_P(DecimalKernels, PutALeadingOneInFrontOfNines)
{
  for (std::size_t length = 0; length < 300; ++length) {
    const std::string nines(length, '9');
    EXPECT_EQ(bytesOf(1, nines, limits()), reference::d2c("0000000001" + nines)) << length << " digits";
  }
}

// Where digits change from all nines to a one and zeros, a fraction that is off by the least bit shows.
TEST_P(DecimalKernels, WritePowersOfTenAndTheirNeighbours)
{
  for (std::size_t zeros = 0; zeros < 1200; zeros += 1 + zeros / 16) {
    const std::string power = "1" + std::string(zeros, '0'), nines(zeros + 1, '9');
    EXPECT_EQ(digitsOf(bytesOf(0, power, limits()), limits()), power);
    EXPECT_EQ(digitsOf(bytesOf(0, nines, limits()), limits()), nines);
    for (const char last : {'1', '2', '9'})
      EXPECT_EQ(digitsOf(bytesOf(0, power + last, limits()), limits()), power + last);
    EXPECT_EQ(digitsOf(bytesOf(0, power + nines, limits()), limits()), power + nines);
    EXPECT_EQ(digitsOf(bytesOf(0, nines + power, limits()), limits()), nines + power);
  }
}

TEST_P(DecimalKernels, AgreeWithTheUsualOnesOnLongNumbers)
{
  RandomNumbers random;
  for (const std::size_t length : {2000u, 4999u, 12288u}) {
    const std::string bytes = randomBytes(random, length);
    const std::string digits = digitsOf(bytes, limits());
    EXPECT_TRUE(digits == digitsOf(bytes, usualLimits())) << length;
    EXPECT_TRUE(bytesOf(0, digits, limits()) == bytes) << length;
  }
}

TEST_P(DecimalKernels, WriteNothingButZerosForZero)
{
  EXPECT_EQ(digitsOf(std::string(200, '\0'), limits()), "0");
  EXPECT_EQ(bytesOf(0, std::string(900, '0'), limits()), std::string(1, '\0'));
}

TEST(DecimalKernelsAroundTheirLimits, AgreeWithAWordAtATime)
{
  RandomNumbers random;
  const DecimalLimits& wordwise = methods[1].limits;
  for (const std::size_t limit : {usualLimits().dividedFrom, usualLimits().fractionsFrom, usualLimits().fractionLeaf})
    for (std::size_t length = limit * limbBytes - limbBytes; length <= limit * limbBytes + limbBytes; ++length) {
      const std::string bytes = randomBytes(random, length);
      EXPECT_TRUE(digitsOf(bytes, usualLimits()) == digitsOf(bytes, wordwise)) << length << " bytes";
    }
  for (std::size_t length = usualLimits().joinedFrom - 2; length < usualLimits().joinedFrom + 3; ++length) {
    const std::string digits = randomDigits(random, length);
    EXPECT_TRUE(bytesOf(0, digits, usualLimits()) == bytesOf(0, digits, wordwise)) << length << " digits";
  }
}

TEST(PowersOfFive, AreThoseThatRepeatedProductsGive)
{
  const PowersOfFive fives(3);
  Limbs expected(1, 1);
  for (std::size_t exponent = 1; exponent <= 1000; ++exponent) {
    if (const Limb carry = multiplyByLimb(expected.data(), expected.data(), expected.size(), 5, 0))
      expected.push_back(carry);
    if (exponent % 64 == 0 && exponent < 1024) {
      EXPECT_EQ(fives.power(exponent), expected) << exponent;
    }
  }
  EXPECT_EQ(fives[3], fives.power(512));
}

/// reciprocal * divisor - B^(precision + length) is less than 16 divisors.
void expectReciprocal(const Limbs& divisor, std::size_t precision)
{
  const Limbs reciprocal = reciprocalOf(divisor, precision);
  ASSERT_EQ(reciprocal.size(), precision + 1);

  Limbs product(reciprocal.size() + divisor.size()), error(product.size()), bound(product.size());
  multiplyDigitByDigit(product.data(), reciprocal.data(), reciprocal.size(), divisor.data(), divisor.size());
  Limbs one(product.size());
  one[precision + divisor.size()] = 1;
  const bool isAbove = subtractLimbs(error.data(), product.data(), one.data(), one.size()) == 0;
  if (!isAbove)
    subtractLimbs(error.data(), one.data(), product.data(), one.size());
  bound[divisor.size()] = multiplyByLimb(bound.data(), divisor.data(), divisor.size(), 16, 0);
  EXPECT_EQ(subtractLimbs(error.data(), error.data(), bound.data(), bound.size()), 1u)
    << divisor.size() << " limbs, precision " << precision;
}

TEST(Reciprocals, TimesTheDivisorAreNearlyOne)
{
  RandomNumbers random;
  for (int round = 0; round < 300; ++round) {
    Limbs divisor = random.number(1 + random.below(120));
    divisor.back() |= Limb{1} << (limbBits - 1);
    expectReciprocal(divisor, 1 + random.below(200));
  }
}

// What is known of such a divisor at first is a power of two, whose reciprocal is larger than that of the whole.
TEST(Reciprocals, OfADivisorThatIsAPowerOfTwoAsFarAsItWasLookedAtAreLowered)
{
  for (std::size_t zeros = 1; zeros < 70; ++zeros)
    for (const std::size_t precision : {33u, 40u, 65u, 100u}) {
      Limbs divisor(120, ~Limb{0});
      std::fill(divisor.end() - 1 - static_cast<std::ptrdiff_t>(zeros), divisor.end() - 1, Limb{0});
      divisor.back() = Limb{1} << (limbBits - 1);
      expectReciprocal(divisor, precision);
    }
}

}  // namespace
