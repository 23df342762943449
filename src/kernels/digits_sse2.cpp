// digits_sse2.cpp - bytes to hexadecimal and binary digits and back, for processors with SSE2, sixteen bytes at a time. What
// is left at the end is the portable loops' business.
// Tests: tests/kernels/digits_test.cpp
#include "kernels/digits.hpp"
#include "kernels/instructions.hpp"

#include <cstring>
#include <immintrin.h>

QUELMCL_BEGIN_INSTRUCTIONS("sse2")

namespace {

using quelmcl::detail::DigitLoops;
using quelmcl::detail::portableDigitLoops;

constexpr std::size_t width = 16;

inline __m128i load(const void* from)
{
  return _mm_loadu_si128(static_cast<const __m128i*>(from));
}

inline void store(void* to, __m128i bytes)
{
  _mm_storeu_si128(static_cast<__m128i*>(to), bytes);
}

inline __m128i all(char byte)
{
  return _mm_set1_epi8(byte);
}

inline __m128i digitsOf(__m128i halves)
{
  const __m128i isLetter = _mm_cmpgt_epi8(halves, all(9));
  return _mm_add_epi8(_mm_add_epi8(halves, all('0')), _mm_and_si128(isLetter, all('A' - '9' - 1)));
}

void bytesToHexadecimal(const unsigned char* bytes, std::size_t length, char* digits) noexcept
{
  std::size_t i = 0;
  for (; i + width <= length; i += width) {
    const __m128i both = load(bytes + i), lowest = all(15);
    const __m128i high = digitsOf(_mm_and_si128(_mm_srli_epi16(both, 4), lowest));
    const __m128i low = digitsOf(_mm_and_si128(both, lowest));
    store(digits + 2 * i, _mm_unpacklo_epi8(high, low));
    store(digits + 2 * i + width, _mm_unpackhi_epi8(high, low));
  }
  portableDigitLoops.bytesToHexadecimal(bytes + i, length - i, digits + 2 * i);
}

/// The bytes that sixteen digits make, each in the lower half of 16 bits.
inline __m128i pairedUp(__m128i digits)
{
  const __m128i isLetter = _mm_cmpgt_epi8(digits, all('9'));
  const __m128i values = _mm_add_epi8(_mm_and_si128(digits, all(15)), _mm_and_si128(isLetter, all(9)));
  const __m128i pairs = _mm_or_si128(_mm_slli_epi16(values, 4), _mm_srli_epi16(values, 8));
  return _mm_and_si128(pairs, _mm_set1_epi16(0xFF));
}

void hexadecimalToBytes(const char* digits, std::size_t length, unsigned char* bytes) noexcept
{
  std::size_t i = 0;
  for (; i + 2 * width <= length; i += 2 * width)
    store(bytes + i / 2, _mm_packus_epi16(pairedUp(load(digits + i)), pairedUp(load(digits + i + width))));
  portableDigitLoops.hexadecimalToBytes(digits + i, length - i, bytes + i / 2);
}

/// The digits of the first and of the second eight bytes: every bit's byte with all other bits masked out.
inline void storeBinary(char* digits, __m128i eachByteEightTimes)
{
  const __m128i bits = _mm_set1_epi64x(0x0102040810204080);
  const __m128i isSet = _mm_cmpeq_epi8(_mm_and_si128(eachByteEightTimes, bits), bits);
  store(digits, _mm_sub_epi8(all('0'), isSet));
}

inline void storeBinaryOfFour(char* digits, __m128i eachByteFourTimes)
{
  storeBinary(digits, _mm_unpacklo_epi32(eachByteFourTimes, eachByteFourTimes));
  storeBinary(digits + width, _mm_unpackhi_epi32(eachByteFourTimes, eachByteFourTimes));
}

inline void storeBinaryOfEight(char* digits, __m128i eachByteTwice)
{
  storeBinaryOfFour(digits, _mm_unpacklo_epi16(eachByteTwice, eachByteTwice));
  storeBinaryOfFour(digits + 2 * width, _mm_unpackhi_epi16(eachByteTwice, eachByteTwice));
}

void bytesToBinary(const unsigned char* bytes, std::size_t length, char* digits) noexcept
{
  std::size_t i = 0;
  for (; i + width <= length; i += width) {
    const __m128i sixteen = load(bytes + i);
    storeBinaryOfEight(digits + 8 * i, _mm_unpacklo_epi8(sixteen, sixteen));
    storeBinaryOfEight(digits + 8 * i + 4 * width, _mm_unpackhi_epi8(sixteen, sixteen));
  }
  portableDigitLoops.bytesToBinary(bytes + i, length - i, digits + 8 * i);
}

struct ReversedBits {
  unsigned char of[256];
};

constexpr ReversedBits reversedBits = [] {
  ReversedBits reversed{};
  for (unsigned byte = 0; byte < 256; ++byte)
    for (unsigned bit = 0; bit < 8; ++bit)
      if ((byte >> bit & 1) != 0)
        reversed.of[byte] = static_cast<unsigned char>(reversed.of[byte] | 0x80u >> bit);
  return reversed;
}();

void binaryToBytes(const char* digits, std::size_t length, unsigned char* bytes) noexcept
{
  std::size_t i = 0;
  for (; i + width <= length; i += width) {
    // The lowest bit of each digit, moved to the highest place, is gathered; the first digit's comes out lowest.
    const unsigned bits = static_cast<unsigned>(_mm_movemask_epi8(_mm_slli_epi16(load(digits + i), 7)));
    bytes[i / 8] = reversedBits.of[bits & 0xFF];
    bytes[i / 8 + 1] = reversedBits.of[bits >> 8];
  }
  portableDigitLoops.binaryToBytes(digits + i, length - i, bytes + i / 8);
}

}  // namespace

constinit const DigitLoops quelmcl::detail::sse2DigitLoops = {
  Instructions::sse2, bytesToHexadecimal, hexadecimalToBytes, bytesToBinary, binaryToBytes,
};

QUELMCL_END_INSTRUCTIONS
