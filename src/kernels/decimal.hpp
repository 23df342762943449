// decimal.hpp - whole numbers of any length between bytes and decimal digits.
// Tests: tests/kernels/decimal_test.cpp
//
// Short numbers are done by a machine word of digits at a time, which costs the square of the length. Longer ones are
// halved, and their halves halved, by powers of ten; then the cost is that of a few multiplications on each level. Knuth,
// The Art of Computer Programming, volume 2, section 4.4; Brent and Zimmermann, Modern Computer Arithmetic, section 1.7
// (both directions) and chapter 3 (reciprocals by Newton's method).
#ifndef QUELMCL_SRC_KERNELS_DECIMAL_HPP
#define QUELMCL_SRC_KERNELS_DECIMAL_HPP

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

/// Enough digits for any number of that many bytes, and for what the conversion needs beside them.
std::size_t digitRoom(std::size_t byteCount) noexcept;

/// Writes the number as `room` digits, with zeros in front; `room` is digitRoom(byteCount). The bytes begin with the most
/// significant one. When they are many, about 30 times as much storage as there are
/// bytes is asked for (std::bad_alloc).
void bytesToDigits(const unsigned char* bytes, std::size_t byteCount, char* digits, std::size_t room);

/// Enough bytes for leading * 10^digitCount + any number of that many digits.
std::size_t byteRoom(std::size_t digitCount) noexcept;

/// Writes leading * 10^digitCount + the number that the digits make as `room` bytes, the most significant first, with
/// zeros in front; `room` is byteRoom(digitCount). Asks for storage as the other way does.
void digitsToBytes(std::uint32_t leading, const char* digits, std::size_t digitCount, unsigned char* bytes,
                   std::size_t room);

/// From how many limbs, or digits, on numbers are halved, and in which way. Tests give other ones than the usual ones, so that
/// every method is tried on short numbers and compared with the others.
struct DecimalLimits {
  std::size_t dividedFrom;    ///< limbs of a number that is divided by a power of ten rather than by a word's one
  std::size_t fractionsFrom;  ///< limbs of a number that is made a fraction first
  std::size_t fractionLeaf;   ///< limbs of a fraction whose digits are taken a word's at a time
  std::size_t joinedFrom;     ///< digits that are taken as two numbers
};
/// Measured for both widths of limbs, see docs/radix.md. Where the processor is slow at transforms, fractions are for longer
/// numbers.
DecimalLimits usualLimits() noexcept;

void bytesToDigits(const unsigned char* bytes, std::size_t byteCount, char* digits, std::size_t room,
                   const DecimalLimits& limits);
void digitsToBytes(std::uint32_t leading, const char* digits, std::size_t digitCount, unsigned char* bytes,
                   std::size_t room, const DecimalLimits& limits);

}  // namespace quelmcl::detail

#endif
