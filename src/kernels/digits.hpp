// digits.hpp - bytes to hexadecimal and binary digits and back, and which bytes are digits.
// Tests: tests/kernels/digits_test.cpp
//
// The work is done by tables, and by SSE2 where the processor has it, which is three to ten times as fast on long texts.
#ifndef QUELMCL_SRC_KERNELS_DIGITS_HPP
#define QUELMCL_SRC_KERNELS_DIGITS_HPP

#include "kernels/byteset.hpp"
#include "kernels/processor.hpp"

#include <cstddef>

namespace quelmcl::detail {

/// One form of the loops. Nothing overlaps.
struct DigitLoops {
  Instructions needed;
  /// Two capital digits for each byte.
  void (*bytesToHexadecimal)(const unsigned char* bytes, std::size_t length, char* digits) noexcept;
  /// A byte for each two digits of either case.
  void (*hexadecimalToBytes)(const char* digits, std::size_t length, unsigned char* bytes) noexcept;
  /// Eight digits for each byte.
  void (*bytesToBinary)(const unsigned char* bytes, std::size_t length, char* digits) noexcept;
  /// A byte for each eight digits.
  void (*binaryToBytes)(const char* digits, std::size_t length, unsigned char* bytes) noexcept;
};

extern const DigitLoops portableDigitLoops;
extern const DigitLoops sse2DigitLoops;
extern const Forms<DigitLoops> digitForms;

/// The form in use.
inline const DigitLoops& digitLoops() noexcept
{
  return digitForms.inUse();
}

inline constexpr ByteSet binaryDigits("01", 2);
inline constexpr ByteSet decimalDigits("0123456789", 10);
inline constexpr ByteSet hexadecimalDigits("0123456789ABCDEFabcdef", 22);

/// The value of one hexadecimal digit.
constexpr unsigned hexadecimalValue(char digit) noexcept
{
  if (digit >= '0' && digit <= '9')
    return static_cast<unsigned>(digit - '0');
  return static_cast<unsigned>((digit >= 'a' && digit <= 'f' ? digit - 'a' : digit - 'A') + 10);
}

}  // namespace quelmcl::detail

#endif
