// istring9.cpp - IString, conversions between bytes, binary, decimal and hexadecimal digits. (Digit 9 is always these:
// docs/architecture.md)
// Tests: tests/strings/radix_test.cpp
#include <quelmcl/istring.hpp>

#include "kernels/decimal.hpp"
#include "kernels/digits.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

namespace {

constexpr unsigned bytesOfWord = 4;
constexpr unsigned bitsOfByte = 8;

/// Storage for a conversion's digits or bytes: on the stack as long as there are few.
class Workspace {
public:
  explicit Workspace(std::size_t size)
    : block(size > sizeof few ? std::make_unique_for_overwrite<char[]>(size) : nullptr),
      start(block ? block.get() : few)
  {
  }
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  char* data() noexcept { return start; }
  unsigned char* bytes() noexcept { return reinterpret_cast<unsigned char*>(start); }

private:
  const std::unique_ptr<char[]> block;
  char* const start;
  char few[256];
};

/// The number of the first bytes of a text, at most four.
std::uint32_t firstWord(const unsigned char* bytes, unsigned length)
{
  std::uint32_t number = 0;
  for (unsigned i = 0; i < std::min(length, bytesOfWord); ++i)
    number = number << bitsOfByte | bytes[i];
  return number;
}

/// The number that a run of decimal digits makes, no more than the largest signed one of 32 bits.
std::uint32_t saturatedNumber(const char* digits, unsigned count)
{
  constexpr std::uint64_t largest = std::numeric_limits<std::int32_t>::max();
  std::uint64_t number = 0;
  for (unsigned i = 0; i < count; ++i)
    number = number * 10 + static_cast<std::uint64_t>(digits[i] - '0');
  return static_cast<std::uint32_t>(std::min(number, largest));
}

/// How many digits the longest number in so many bytes is given room for: those of the first four bytes and three for each
/// other one, although a byte has less than two and a half. Throws IInvalidRequest 1010 when no text can be as long.
unsigned decimalLength(std::uint32_t first, unsigned moreBytes)
{
  const unsigned more = IBuffer::checkMultiplication(moreBytes, 3);
  unsigned firstDigits = 1;
  for (; first >= 10; first /= 10)
    ++firstDigits;
  const unsigned length = IBuffer::checkAddition(firstDigits, more);
  constexpr unsigned besideText = 20;  // of 4294967294 bytes, what the block of the longest text has beside it
  IBuffer::checkAddition(length, besideText);
  return length;
}

}  // namespace

// A text of that length whose bytes are still to be written.
IString IString::unfilled(unsigned textLength)
{
  return IString(IBuffer::fromContents(placeholder())->allocate(textLength));
}

// ---- bytes to digits ----

IString& IString::c2b()
{
  if (length() == 0)
    return *this;
  IString digits = unfilled(IBuffer::checkMultiplication(length(), bitsOfByte));
  quelmcl::detail::digitLoops().bytesToBinary(*this, length(), digits.pBuffer);
  return *this = std::move(digits);
}

IString& IString::c2x()
{
  if (length() == 0)
    return *this;
  IString digits = unfilled(IBuffer::checkMultiplication(length(), 2));
  quelmcl::detail::digitLoops().bytesToHexadecimal(*this, length(), digits.pBuffer);
  return *this = std::move(digits);
}

IString& IString::c2d()
{
  if (length() == 0)
    return *this;
  const unsigned char* const bytes = *this;
  const std::uint32_t first = firstWord(bytes, length());
  if (length() <= bytesOfWord)
    return *this = IString(static_cast<unsigned long>(first));

  const unsigned longest = decimalLength(first, length() - bytesOfWord);
  const unsigned char* const firstSet =
    std::find_if(bytes, bytes + length(), [](unsigned char byte) { return byte != 0; });
  const std::size_t significant = static_cast<std::size_t>(bytes + length() - firstSet);
  // Deliberate: zero keeps all the digits it was given room for.  Test: StringBytesToDecimal.ZeroKeepsItsZeros
  if (significant == 0)
    return *this = IString(nullptr, longest, '0');

  const std::size_t room = quelmcl::detail::digitRoom(significant);
  Workspace digits(room);
  quelmcl::detail::bytesToDigits(firstSet, significant, digits.data(), room);
  const char* const end = digits.data() + room;
  const char* const highest =
    std::find_if(digits.data(), digits.data() + room, [](char digit) { return digit != '0'; });
  return *this = IString(highest, static_cast<unsigned>(end - highest));
}

// ---- digits to bytes; what is not all digits becomes empty ----

IString& IString::b2c()
{
  if (!isBinaryDigits())
    return *this = IString();
  const unsigned odd = length() % bitsOfByte;
  IString bytes = unfilled(length() / bitsOfByte + (odd > 0));
  unsigned char* end = bytes;
  if (odd > 0) {
    unsigned value = 0;
    for (unsigned i = 0; i < odd; ++i)
      value = value * 2 + (pBuffer[i] == '1');
    *end++ = static_cast<unsigned char>(value);
  }
  quelmcl::detail::digitLoops().binaryToBytes(pBuffer + odd, length() - odd, end);
  return *this = std::move(bytes);
}

IString& IString::x2c()
{
  if (!isHexDigits())
    return *this = IString();
  const unsigned odd = length() % 2;
  IString bytes = unfilled(length() / 2 + odd);
  unsigned char* end = bytes;
  if (odd > 0)
    *end++ = static_cast<unsigned char>(quelmcl::detail::hexadecimalValue(pBuffer[0]));
  quelmcl::detail::digitLoops().hexadecimalToBytes(pBuffer + odd, length() - odd, end);
  return *this = std::move(bytes);
}

IString& IString::d2c()
{
  if (!isDigits())
    return *this = IString();
  // As many digits as the text of the largest number has, without its letter, make the first word, which stays at the
  // largest number when it would be more.
  const unsigned firstDigits = std::min(length(), static_cast<unsigned>(std::strlen(maxLong)) - 1);
  const std::uint32_t first = saturatedNumber(pBuffer, firstDigits);
  const std::size_t room = quelmcl::detail::byteRoom(length() - firstDigits);
  Workspace bytes(room);
  quelmcl::detail::digitsToBytes(first, pBuffer + firstDigits, length() - firstDigits, bytes.bytes(), room);
  const char* const end = bytes.data() + room;
  const char* const highest = std::find_if(bytes.data(), bytes.data() + room - 1, [](char byte) { return byte != 0; });
  return *this = IString(highest, static_cast<unsigned>(end - highest));
}
