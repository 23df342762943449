// limbs_test.cpp - kernels: arithmetic on whole numbers of any length.
#include "kernels/limbs.hpp"

#include "random_numbers.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace kerneltests;
using namespace quelmcl::detail;

namespace {

Number productBy(void (*method)(Limb*, const Limb*, std::size_t, const Limb*, std::size_t), const Number& a,
                 const Number& b)
{
  Number product(a.size() + b.size(), Limb{0x5A});
  method(product.data(), a.data(), a.size(), b.data(), b.size());
  return product;
}

void byDigits(Limb* product, const Limb* a, std::size_t aLength, const Limb* b, std::size_t bLength)
{
  multiplyDigitByDigit(product, a, aLength, b, bLength);
}

TEST(LimbSums, CarryThroughAllLimbs)
{
  const Number ones(5, static_cast<Limb>(-1)), one = {1, 0, 0, 0, 0};
  Number sum(5);
  EXPECT_EQ(addLimbs(sum.data(), ones.data(), one.data(), 5), 1u);
  EXPECT_EQ(sum, Number(5));
  EXPECT_EQ(subtractLimbs(sum.data(), sum.data(), one.data(), 5), 1u);
  EXPECT_EQ(sum, ones);
  EXPECT_EQ(addCarry(sum.data(), 5, 1), 1u);
  EXPECT_EQ(sum, Number(5));
  EXPECT_EQ(subtractBorrow(sum.data(), 5, 2), 1u);
  EXPECT_EQ(sum[0], static_cast<Limb>(-2));
}

TEST(LimbSums, AreUndoneByDifferences)
{
  RandomNumbers random;
  for (std::size_t length = 1; length < 30; ++length) {
    const Number a = random.number(length), b = random.number(length);
    Number sum(length), back(length);
    const Limb carry = addLimbs(sum.data(), a.data(), b.data(), length);
    EXPECT_EQ(subtractLimbs(back.data(), sum.data(), b.data(), length), carry);
    EXPECT_EQ(back, a);
  }
}

TEST(LimbProducts, ByOneLimbAreThoseOfTheWhole)
{
  RandomNumbers random;
  for (std::size_t length = 1; length < 30; ++length) {
    const Number a = random.number(length), factor = random.number(1);
    const Number expected = productBy(byDigits, a, factor);
    Number product(length + 1), rest = expected;
    product[length] = multiplyByLimb(product.data(), a.data(), length, factor[0], 0);
    EXPECT_EQ(product, expected);
    rest[length] -= subtractProduct(rest.data(), a.data(), length, factor[0]);
    EXPECT_EQ(rest, Number(length + 1));
    rest[length] = addProduct(rest.data(), a.data(), length, factor[0]);
    EXPECT_EQ(rest, expected);
  }
}

TEST(LimbProducts, OfTheLargestNumbersAreRight)
{
  for (std::size_t length = 1; length < 200; length += 1 + length / 7) {
    const Number ones(length, static_cast<Limb>(-1));  // (B^n - 1)^2 = B^2n - 2 B^n + 1
    Number expected(2 * length, static_cast<Limb>(-1));
    std::fill_n(expected.begin(), length, Limb{0});
    expected[0] = 1;
    expected[length] = static_cast<Limb>(-2);
    EXPECT_EQ(productBy(byDigits, ones, ones), expected) << length;
    Number product(2 * length);
    multiplyByHalves(product.data(), ones.data(), ones.data(), length);
    EXPECT_EQ(product, expected) << length;
    EXPECT_EQ(productBy(multiplyLimbs, ones, ones), expected) << length;
  }
}

TEST(LimbProducts, ByHalvesAreThoseDigitByDigit)
{
  RandomNumbers random;
  for (std::size_t length = 1; length < 6 * halvesFrom; length += length < 2 * halvesFrom + 4 ? 1 : 13) {
    const Number a = random.number(length), b = random.number(length);
    Number product(2 * length);
    multiplyByHalves(product.data(), a.data(), b.data(), length);
    EXPECT_EQ(product, productBy(byDigits, a, b)) << length;
  }
}

TEST(LimbProducts, OfAnyTwoLengthsAreThoseDigitByDigit)
{
  RandomNumbers random;
  const std::size_t transforms = std::min<std::size_t>(transformsFrom(), 300);
  for (const std::size_t bLength : {std::size_t{1}, std::size_t{7}, halvesFrom - 1, halvesFrom, halvesFrom + 1,
                                    transforms - 1, transforms, transforms + 1})
    for (const std::size_t aLength :
         {bLength, bLength + 1, 2 * bLength - 1, 2 * bLength, 3 * bLength + 5, 9 * bLength + 2}) {
      const Number a = random.number(aLength), b = random.number(bLength);
      const Number expected = productBy(byDigits, a, b);
      EXPECT_EQ(productBy(multiplyLimbs, a, b), expected) << aLength << " by " << bLength;
      EXPECT_EQ(productBy(multiplyLimbs, b, a), expected) << bLength << " by " << aLength;
    }
}

TEST(LimbShifts, UpAndDownAgainGiveTheNumber)
{
  RandomNumbers random;
  for (unsigned bits = 0; bits < limbBits; ++bits) {
    const Number a = random.number(1 + bits % 5);
    Number shifted(a.size() + 1);
    shifted.back() = shiftUp(shifted.data(), a.data(), a.size(), bits);
    const Number power = {Limb{1} << bits};
    EXPECT_EQ(shifted, productBy(byDigits, a, power)) << bits;
    shiftDown(shifted.data(), shifted.data(), shifted.size(), bits);
    shifted.pop_back();
    EXPECT_EQ(shifted, a) << bits;
  }
}

/// Checks that dividend = quotient * divisor + rest and that the rest is less.
void expectDivision(const Number& dividend, const Number& divisor)
{
  Number rest = dividend;
  rest.push_back(0);
  Number quotient(dividend.size() - divisor.size() + 1);
  divideLimbs(quotient.data(), rest.data(), dividend.size(), divisor.data(), divisor.size());
  EXPECT_EQ(significantLimbs(rest.data() + divisor.size(), rest.size() - divisor.size()), 0u);
  rest.resize(divisor.size());
  EXPECT_TRUE(std::lexicographical_compare(rest.rbegin(), rest.rend(), divisor.rbegin(), divisor.rend()));
  Number whole = productBy(byDigits, quotient, divisor);
  rest.resize(whole.size());
  EXPECT_EQ(addLimbs(whole.data(), whole.data(), rest.data(), whole.size()), 0u);
  whole.resize(dividend.size() + 1);
  EXPECT_EQ(whole.back(), 0u);
  whole.pop_back();
  EXPECT_EQ(whole, dividend);
}

TEST(LimbQuotients, LeaveARestThatIsLess)
{
  RandomNumbers random;
  for (int round = 0; round < 3000; ++round) {
    Number divisor = random.number(1 + random.below(12));
    divisor.back() |= Limb{1} << (limbBits - 1);
    expectDivision(random.number(divisor.size() + random.below(12)), divisor);
  }
}

// Where the quotient's limb is guessed too large: the dividend begins as the divisor does.
TEST(LimbQuotients, AreRightWhereTheGuessIsNot)
{
  const Limb ones = static_cast<Limb>(-1), half = Limb{1} << (limbBits - 1);
  expectDivision({0, 0, half, half - 1}, {ones, 0, half});
  expectDivision({0, ones, ones, half - 1}, {ones, ones, half});
  expectDivision({0, 0, 0, half, ones >> 1}, {1, 0, half});
  expectDivision({3, 0, half}, {1, 0, half});
  expectDivision({ones, ones, ones, ones}, {ones, ones});
  expectDivision({0, 0, ones - 1, ones}, {ones, ones});
}

}  // namespace
