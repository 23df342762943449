// limbs.cpp - whole numbers of any length: the arithmetic that conversions between decimal and binary forms are made of.
// Tests: tests/kernels/limbs_test.cpp
#include "kernels/limbs.hpp"

#include "kernels/convolution.hpp"

#include <algorithm>
#include <cstring>
#include <memory>

namespace quelmcl::detail {

namespace {

Limb lowOf(DoubleLimb x)
{
  return static_cast<Limb>(x);
}

Limb highOf(DoubleLimb x)
{
  return static_cast<Limb>(x >> limbBits);
}

}  // namespace

std::size_t significantLimbs(const Limb* number, std::size_t length) noexcept
{
  while (length > 0 && number[length - 1] == 0)
    --length;
  return length;
}

Limb addLimbs(Limb* sum, const Limb* a, const Limb* b, std::size_t length) noexcept
{
  Limb carry = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const DoubleLimb total = DoubleLimb{a[i]} + b[i] + carry;
    sum[i] = lowOf(total);
    carry = highOf(total);
  }
  return carry;
}

Limb subtractLimbs(Limb* difference, const Limb* a, const Limb* b, std::size_t length) noexcept
{
  Limb borrow = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const DoubleLimb rest = DoubleLimb{a[i]} - b[i] - borrow;
    difference[i] = lowOf(rest);
    borrow = highOf(rest) & 1;
  }
  return borrow;
}

Limb addCarry(Limb* number, std::size_t length, Limb carry) noexcept
{
  for (std::size_t i = 0; i < length && carry != 0; ++i) {
    number[i] += carry;
    carry = number[i] < carry;
  }
  return carry;
}

Limb subtractBorrow(Limb* number, std::size_t length, Limb borrow) noexcept
{
  for (std::size_t i = 0; i < length && borrow != 0; ++i) {
    const Limb before = number[i];
    number[i] -= borrow;
    borrow = before < borrow;
  }
  return borrow;
}

Limb multiplyByLimb(Limb* product, const Limb* number, std::size_t length, Limb factor, Limb carry) noexcept
{
#pragma GCC unroll 4
  for (std::size_t i = 0; i < length; ++i) {
    const DoubleLimb total = DoubleLimb{number[i]} * factor + carry;
    product[i] = lowOf(total);
    carry = highOf(total);
  }
  return carry;
}

Limb addProduct(Limb* sum, const Limb* number, std::size_t length, Limb factor) noexcept
{
  Limb carry = 0;
#pragma GCC unroll 4
  for (std::size_t i = 0; i < length; ++i) {
    const DoubleLimb total = DoubleLimb{number[i]} * factor + sum[i] + carry;
    sum[i] = lowOf(total);
    carry = highOf(total);
  }
  return carry;
}

Limb subtractProduct(Limb* difference, const Limb* number, std::size_t length, Limb factor) noexcept
{
  Limb borrow = 0;
#pragma GCC unroll 4
  for (std::size_t i = 0; i < length; ++i) {
    const DoubleLimb product = DoubleLimb{number[i]} * factor + borrow;
    borrow = highOf(product) + (difference[i] < lowOf(product));
    difference[i] -= lowOf(product);
  }
  return borrow;
}

Limb shiftUp(Limb* shifted, const Limb* number, std::size_t length, unsigned bits) noexcept
{
  Limb carry = 0;
  for (std::size_t i = 0; i < length; ++i) {
    const DoubleLimb wide = DoubleLimb{number[i]} << bits;
    shifted[i] = lowOf(wide) | carry;
    carry = highOf(wide);
  }
  return carry;
}

void shiftDown(Limb* shifted, const Limb* number, std::size_t length, unsigned bits) noexcept
{
  for (std::size_t i = 0; i < length; ++i) {
    const Limb above = i + 1 < length ? number[i + 1] : 0;
    shifted[i] = lowOf((DoubleLimb{above} << limbBits | number[i]) >> bits);
  }
}

// ---- multiplication ----

void multiplyDigitByDigit(Limb* product, const Limb* a, std::size_t aLength, const Limb* b,
                          std::size_t bLength) noexcept
{
  product[aLength] = multiplyByLimb(product, a, aLength, b[0], 0);
  for (std::size_t i = 1; i < bLength; ++i)
    product[i + aLength] = addProduct(product + i, a, aLength, b[i]);
}

namespace {

/// |a - b| for numbers of equal length; whether a is less.
bool distance(Limb* result, const Limb* a, const Limb* b, std::size_t length)
{
  std::size_t top = length;
  while (top > 0 && a[top - 1] == b[top - 1])
    --top;
  const bool isLess = top > 0 && a[top - 1] < b[top - 1];
  subtractLimbs(result, isLess ? b : a, isLess ? a : b, length);
  return isLess;
}

// Karatsuba's method in the form that subtracts: with a = a1 B + a0 and b = b1 B + b0 the middle term a1 b0 + a0 b1 is
// a1 b1 + a0 b0 - (a1 - a0)(b1 - b0). An odd length leaves a last limb of each, which is added digit by digit.
// `scratch` has room for 4 * length limbs. The depth is the logarithm of the length.
void multiplyHalves(Limb* product, const Limb* a, const Limb* b, std::size_t length, Limb* scratch)
{
  if (length < halvesFrom)
    return multiplyDigitByDigit(product, a, length, b, length);
  const std::size_t half = length / 2, even = 2 * half;

  Limb* const middle = scratch;
  const bool isNegative = distance(product, a + half, a, half) != distance(product + half, b + half, b, half);
  multiplyHalves(middle, product, product + half, half, scratch + even);
  multiplyHalves(product, a, b, half, scratch + even);
  multiplyHalves(product + even, a + half, b + half, half, scratch + even);

  Limb* const sum = scratch + even;  // of the outer terms, then of all
  Limb top = addLimbs(sum, product, product + even, even);
  if (isNegative)
    top += addLimbs(sum, sum, middle, even);
  else
    top -= subtractLimbs(sum, sum, middle, even);
  top += addLimbs(product + half, product + half, sum, even);
  addCarry(product + half + even, half, top);

  if (length == even)
    return;
  product[2 * even] = addProduct(product + even, a, even, b[even]);
  product[2 * even + 1] = addProduct(product + even, b, length, a[even]);
}

}  // namespace

std::size_t transformsFrom() noexcept
{
  return bestSteps().worthFromWords[limbBits == 64] / wordsPerLimb;
}

bool isForTransforms(std::size_t shorterFactor, std::size_t words) noexcept
{
  return shorterFactor >= transformsFrom() && shorterFactor * wordsPerLimb <= longestFactorInWords &&
         words <= longestSpectrum;
}

namespace {

void multiplyByTransforms(Limb* product, const Limb* a, std::size_t aLength, const Limb* b, std::size_t bLength)
{
  const std::size_t length = spectrumLength((aLength + bLength) * wordsPerLimb);
  const Transformer transformer(length);
  Spectrum left(transformer, a, aLength, length);
  left.multiplyBy(Spectrum(transformer, b, bLength, length));
  const auto result = std::make_unique_for_overwrite<Limb[]>(length / wordsPerLimb);
  left.toNumber(result.get());
  std::copy_n(result.get(), aLength + bLength, product);
}

/// Both factors have the same length.
void multiplyEqual(Limb* product, const Limb* a, const Limb* b, std::size_t length)
{
  if (length < halvesFrom)
    return multiplyDigitByDigit(product, a, length, b, length);
  if (isForTransforms(length, 2 * length * wordsPerLimb))
    return multiplyByTransforms(product, a, length, b, length);
  multiplyByHalves(product, a, b, length);
}

}  // namespace

void multiplyByHalves(Limb* product, const Limb* a, const Limb* b, std::size_t length)
{
  const auto scratch = std::make_unique_for_overwrite<Limb[]>(4 * length);
  multiplyHalves(product, a, b, length, scratch.get());
}

// Factors of different lengths: the longer one is cut into pieces as long as the shorter one.
void multiplyLimbs(Limb* product, const Limb* a, std::size_t aLength, const Limb* b, std::size_t bLength)
{
  if (aLength < bLength)
    return multiplyLimbs(product, b, bLength, a, aLength);
  if (aLength == bLength)
    return multiplyEqual(product, a, b, aLength);
  if (bLength < halvesFrom)
    return multiplyDigitByDigit(product, a, aLength, b, bLength);
  if (isForTransforms(bLength, (aLength + bLength) * wordsPerLimb) && aLength < 4 * bLength)
    return multiplyByTransforms(product, a, aLength, b, bLength);

  const auto piece = std::make_unique_for_overwrite<Limb[]>(2 * bLength);
  std::fill_n(product, aLength + bLength, Limb{0});
  std::size_t done = 0;
  for (; aLength - done >= bLength; done += bLength) {
    multiplyEqual(piece.get(), a + done, b, bLength);
    addCarry(product + done + bLength, bLength, addLimbs(product + done, product + done, piece.get(), bLength));
    addLimbs(product + done + bLength, product + done + bLength, piece.get() + bLength, bLength);
  }
  const std::size_t rest = aLength - done;
  if (rest == 0)
    return;
  multiplyLimbs(piece.get(), b, bLength, a + done, rest);  // shorter at each step, at least as Euclid's algorithm is
  addLimbs(product + done, product + done, piece.get(), rest + bLength);
}

// ---- division ----

void divideLimbs(Limb* quotient, Limb* dividend, std::size_t length, const Limb* divisor,
                 std::size_t divisorLength) noexcept
{
  const Limb top = divisor[divisorLength - 1], second = divisorLength > 1 ? divisor[divisorLength - 2] : 0;
  const LimbDivisor byTop(top);
  for (std::size_t i = length - divisorLength + 1; i-- > 0;) {
    Limb* const part = dividend + i;
    const Limb above = part[divisorLength], first = part[divisorLength - 1];
    Limb digit = static_cast<Limb>(-1);
    DoubleLimb rest = DoubleLimb{first} + top;  // as long as `above` is the top limb; it is never more
    if (above < top) {
      Limb restOfTop = above;
      digit = byTop.divide(restOfTop, first);
      rest = restOfTop;
    }
    const Limb next = divisorLength > 1 ? part[divisorLength - 2] : 0;
    while (highOf(rest) == 0 && DoubleLimb{digit} * second > (rest << limbBits | next)) {  // at most twice
      --digit;
      rest += top;
    }
    const Limb borrow = subtractProduct(part, divisor, divisorLength, digit);
    quotient[i] = digit;
    part[divisorLength] = above - borrow;
    if (above < borrow) {  // one too many; rare
      --quotient[i];
      part[divisorLength] += addLimbs(part, part, divisor, divisorLength);
    }
  }
}

}  // namespace quelmcl::detail
