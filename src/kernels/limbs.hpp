// limbs.hpp - whole numbers of any length: the arithmetic that conversions between decimal and binary forms are made of.
// Tests: tests/kernels/limbs_test.cpp
//
// A number is an array of limbs, the least significant first. The methods are those of Knuth, The Art of Computer
// Programming, volume 2, section 4.3.1 (addition, multiplication, division) and of Brent and Zimmermann, Modern Computer
// Arithmetic, chapter 1 (Karatsuba). Nothing here recurses deeper than the logarithm of the length.
#ifndef QUELMCL_SRC_KERNELS_LIMBS_HPP
#define QUELMCL_SRC_KERNELS_LIMBS_HPP

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

// As wide as the processor's registers, so that the product of two is one instruction. Results do not depend on it.
#if defined(__SIZEOF_INT128__)
using Limb = std::uint64_t;
__extension__ using DoubleLimb = unsigned __int128;
#else
using Limb = std::uint32_t;
using DoubleLimb = std::uint64_t;
#endif

constexpr unsigned limbBytes = sizeof(Limb);
constexpr unsigned limbBits = 8 * limbBytes;
constexpr std::size_t wordsPerLimb = limbBytes / sizeof(std::uint32_t);

/// How many limbs are left when zero ones at the top are not counted.
std::size_t significantLimbs(const Limb* number, std::size_t length) noexcept;

/// sum := a + b, both of `length` limbs; the result is the carry. The sum may be one of the two.
Limb addLimbs(Limb* sum, const Limb* a, const Limb* b, std::size_t length) noexcept;
/// difference := a - b, both of `length` limbs; the result is the borrow. The difference may be one of the two.
Limb subtractLimbs(Limb* difference, const Limb* a, const Limb* b, std::size_t length) noexcept;
/// Adds `carry` to the number; the result is the carry out of it.
Limb addCarry(Limb* number, std::size_t length, Limb carry) noexcept;
/// Takes `borrow` from the number; the result is the borrow out of it.
Limb subtractBorrow(Limb* number, std::size_t length, Limb borrow) noexcept;
/// product := number * factor + carry, `length` limbs; the result is the limb above them. May work in place.
Limb multiplyByLimb(Limb* product, const Limb* number, std::size_t length, Limb factor, Limb carry) noexcept;
/// sum += number * factor; the result is the limb above them.
Limb addProduct(Limb* sum, const Limb* number, std::size_t length, Limb factor) noexcept;
/// difference -= number * factor; the result is what is still to be taken from the limb above them.
Limb subtractProduct(Limb* difference, const Limb* number, std::size_t length, Limb factor) noexcept;

/// Shifts towards the top by less than a limb; the result is what was shifted out. May work in place.
Limb shiftUp(Limb* shifted, const Limb* number, std::size_t length, unsigned bits) noexcept;
/// Shifts towards the bottom by less than a limb; what is shifted out is lost. May work in place.
void shiftDown(Limb* shifted, const Limb* number, std::size_t length, unsigned bits) noexcept;

/// product := a * b, of both lengths together. Neither length is 0; the product overlaps nothing. Short numbers are
/// multiplied digit by digit, longer ones by halves, very long ones by transforms, which take
/// about ten times the storage of the product (std::bad_alloc).
void multiplyLimbs(Limb* product, const Limb* a, std::size_t aLength, const Limb* b, std::size_t bLength);

/// The same by one method alone: for the shortest numbers, and for tests.
void multiplyDigitByDigit(Limb* product, const Limb* a, std::size_t aLength, const Limb* b,
                          std::size_t bLength) noexcept;
/// By halves (Karatsuba); both factors have `length` limbs.
void multiplyByHalves(Limb* product, const Limb* a, const Limb* b, std::size_t length);

/// Division by one limb whose highest bit is set, by two products instead of the processor's division. Moeller and Granlund,
/// Improved division by invariant integers (2011), algorithm 4: the quotient is guessed by a product with the reciprocal
/// and is then at most one off, twice.
class LimbDivisor {
public:
  constexpr explicit LimbDivisor(Limb limb) noexcept
    : divisor(limb),
      reciprocal(static_cast<Limb>((DoubleLimb{static_cast<Limb>(~limb)} << limbBits | static_cast<Limb>(-1)) / limb))
  {
  }

  /// Divides rest * B + limb, where B is one more than the largest limb; leaves the new rest. The old one is less than the
  /// divisor.
  constexpr Limb divide(Limb& rest, Limb limb) const noexcept
  {
    const DoubleLimb guess = DoubleLimb{rest} * reciprocal + (DoubleLimb{rest} << limbBits | limb);
    Limb quotient = static_cast<Limb>(guess >> limbBits) + 1;
    rest = limb - quotient * divisor;
    if (rest > static_cast<Limb>(guess)) {
      --quotient;
      rest += divisor;
    }
    if (rest >= divisor) {
      ++quotient;
      rest -= divisor;
    }
    return quotient;
  }

private:
  Limb divisor, reciprocal;
};

/// Knuth's algorithm D. `dividend` has `length` limbs and one more above them, which is less than the divisor's highest;
/// the divisor has at most `length` limbs and its highest bit is set. The remainder is left in the lower limbs of the
/// dividend. The quotient has length - divisorLength + 1 limbs.
void divideLimbs(Limb* quotient, Limb* dividend, std::size_t length, const Limb* divisor,
                 std::size_t divisorLength) noexcept;

// From how many limbs of the shorter factor on the faster method wins; measured, see docs/radix.md.
constexpr std::size_t halvesFrom = 40;
/// This one depends on what the processor can do.
std::size_t transformsFrom() noexcept;
/// Whether a product, of which `words` 32-bit words are wanted, is worth transforms and within their reach.
bool isForTransforms(std::size_t shorterFactor, std::size_t words) noexcept;

}  // namespace quelmcl::detail

#endif
