// convolution_test.cpp - kernels: products by number-theoretic transforms, with each form of the loops.
#include "kernels/convolution.hpp"

#include "forms.hpp"
#include "random_numbers.hpp"

#include <gtest/gtest.h>

using namespace kerneltests;
using namespace quelmcl::detail;

namespace {

TEST(SpectrumLength, IsTheNextPowerOfTwoOrThreeTimesOne)
{
  const std::size_t lengths[] = {8, 16, 24, 32, 48, 64, 96, 128, 192};
  std::size_t next = 0;
  for (std::size_t words = 1; words <= 192; ++words) {
    if (words > lengths[next])
      ++next;
    EXPECT_EQ(spectrumLength(words), lengths[next]) << words;
  }
}

TEST(TransformPrimes, HaveTheRootsThatTransformsNeed)
{
  for (const Prime& prime : primes) {
    EXPECT_LT(prime.p, 1u << 30);
    EXPECT_EQ(prime.p * prime.inverse, 1u);
    EXPECT_EQ(prime.power(prime.root, 3u << 22), 1u);
    EXPECT_NE(prime.power(prime.root, 3u << 21), 1u);
    EXPECT_NE(prime.power(prime.root, 1u << 22), 1u);
    for (std::uint32_t factor = 2; factor * factor <= prime.p; ++factor)
      ASSERT_NE(prime.p % factor, 0u);
    EXPECT_EQ(prime.times(12345u, prime.factor(67890u)), 12345ull * 67890u % prime.p);
    EXPECT_EQ(prime.times(4294967295u, prime.factor(prime.p - 1)), prime.p - 4294967295u % prime.p);
  }
}

class Convolution : public testing::TestWithParam<const TransformSteps*> {
protected:
  /// The product modulo 2^(32 words) - 1, as a transform has it.
  static Number byTransforms(const Number& a, const Number& b, std::size_t words)
  {
    const Transformer transformer(words, *GetParam());
    Spectrum product(transformer, a.data(), a.size(), words);
    product.multiplyBy(Spectrum(transformer, b.data(), b.size(), words));
    Number result(words / wordsPerLimb);
    product.toNumber(result.data());
    return result;
  }
  /// The same by adding what is above the modulus to what is below.
  static Number byDigits(const Number& a, const Number& b, std::size_t words)
  {
    Number product(a.size() + b.size());
    multiplyDigitByDigit(product.data(), a.data(), a.size(), b.data(), b.size());
    const std::size_t length = words / wordsPerLimb;
    Number above(product.begin() + static_cast<std::ptrdiff_t>(std::min(length, product.size())), product.end());
    product.resize(length);
    above.resize(length);
    addCarry(product.data(), length, addLimbs(product.data(), product.data(), above.data(), length));
    return product;
  }
  /// 0 and the modulus are the same.
  static Number withoutModulus(Number number)
  {
    if (std::all_of(number.begin(), number.end(), [](Limb limb) { return limb == static_cast<Limb>(-1); }))
      std::fill(number.begin(), number.end(), Limb{0});
    return number;
  }
};

INSTANTIATE_TEST_SUITE_P(Forms, Convolution, testing::ValuesIn(formsOnThisMachine(transformForms)),
                         nameOfForm<TransformSteps>);

const std::size_t allLengths[] = {8, 16, 24, 32, 48, 64, 96, 128, 192, 256, 384, 512, 768, 1536, 2048};

TEST_P(Convolution, OfNumbersThatFitGivesTheirProduct)
{
  RandomNumbers random;
  for (const std::size_t words : allLengths)
    for (int round = 0; round < 4; ++round) {
      const std::size_t all = words / wordsPerLimb, aLength = 1 + random.below(static_cast<unsigned>(all - 1));
      const Number a = random.number(aLength), b = random.number(all - aLength);
      EXPECT_EQ(byTransforms(a, b, words), byDigits(a, b, words)) << aLength << " limbs of " << all;
    }
}

TEST_P(Convolution, OfLongerNumbersWrapsAround)
{
  RandomNumbers random;
  for (const std::size_t words : allLengths) {
    const Number a = random.number(words / wordsPerLimb), b = random.number(words / wordsPerLimb);
    EXPECT_EQ(withoutModulus(byTransforms(a, b, words)), withoutModulus(byDigits(a, b, words))) << words;
  }
}

TEST_P(Convolution, OfTheLargestCoefficientsIsExact)
{
  for (const std::size_t words : allLengths) {
    const Number ones(words / wordsPerLimb / 2, static_cast<Limb>(-1));
    EXPECT_EQ(byTransforms(ones, ones, words), byDigits(ones, ones, words)) << words;
  }
}

TEST_P(Convolution, WithZeroIsZero)
{
  const Number zero(8), ones(8, static_cast<Limb>(-1));
  EXPECT_EQ(byTransforms(zero, ones, 64), Number(64 / wordsPerLimb));
}

// Long ones are compared with the portable form, which the tests above compare with products digit by digit.
TEST_P(Convolution, OfLongNumbersIsThatOfTheOtherForms)
{
  RandomNumbers random;
  for (const std::size_t words : {std::size_t{1} << 15, std::size_t{3} << 15}) {
    const Number a = random.number(words / wordsPerLimb), b = random.number(words / wordsPerLimb);
    const Transformer transformer(words, portableSteps);
    Spectrum product(transformer, a.data(), a.size(), words);
    product.multiplyBy(Spectrum(transformer, b.data(), b.size(), words));
    Number expected(words / wordsPerLimb);
    product.toNumber(expected.data());
    EXPECT_TRUE(byTransforms(a, b, words) == expected);
  }
}

}  // namespace
