// istring9.cpp - IString, conversions between number forms. (Digit 9 is always these: docs/architecture.md)
// Tests: tests/strings/radix_test.cpp
#include <quelmcl/istring.hpp>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

const char hexDigits[] = "0123456789ABCDEF";
constexpr unsigned bytesOfWord = 4;

/// The number that a run of decimal digits makes, no more than the largest signed one of 32 bits.
std::uint32_t saturatedNumber(const char* digits, unsigned count)
{
  constexpr std::uint64_t largest = std::numeric_limits<std::int32_t>::max();
  std::uint64_t number = 0;
  for (unsigned i = 0; i < count; ++i)
    number = number * 10 + static_cast<std::uint64_t>(digits[i] - '0');
  return static_cast<std::uint32_t>(std::min(number, largest));
}

}  // namespace

IString& IString::c2x()
{
  const IString bytes(*this);
  if (bytes.length() == 0)
    return *this;
  IString digits(nullptr, IBuffer::checkMultiplication(bytes.length(), 2), '0');
  char* end = digits.pBuffer;
  for (unsigned i = 0; i < bytes.length(); ++i) {
    const unsigned char byte = static_cast<unsigned char>(bytes.pBuffer[i]);
    *end++ = hexDigits[byte >> 4];
    *end++ = hexDigits[byte & 15];
  }
  return *this = digits;
}

IString& IString::d2c()
{
  if (length() == 0)
    return *this;
  if (!isDigits())
    return *this = IString();

  // As many digits as the text of the largest number has, without its letter, make the first word; those behind it
  // follow one by one.
  const unsigned firstDigits = std::min(length(), static_cast<unsigned>(std::strlen(maxLong)) - 1);
  const std::uint32_t first = saturatedNumber(pBuffer, firstDigits);
  unsigned char bytes[bytesOfWord];
  for (unsigned i = 0; i < bytesOfWord; ++i)
    bytes[i] = static_cast<unsigned char>(first >> (8 * (bytesOfWord - 1 - i)));

  IString number(bytes, bytesOfWord);
  for (unsigned i = firstDigits; i < length(); ++i)
    number.binaryMath(static_cast<unsigned char>(pBuffer[i] - '0'));
  number.stripLeading('\0');
  return *this = number.length() > 0 ? number : IString('\0');
}

// The byte string times ten, plus `digit`. A leading zero byte is added only when there is something to put into it:
// d2c strips them all in the end.
void IString::binaryMath(unsigned char digit)
{
  prepareToChange();
  unsigned carry = digit;
  for (unsigned i = length(); i > 0; --i) {
    const unsigned value = carry + static_cast<unsigned char>(pBuffer[i - 1]) * 10u;
    pBuffer[i - 1] = static_cast<char>(value & 0xFF);
    carry = value >> 8;
  }
  if (carry > 0) {
    const char top = static_cast<char>(carry);
    insertBytes(&top, 1, 0, '\0');
  }
}

IString IString::c2x(const IString& aString)
{
  return IString(aString).c2x();
}

IString IString::d2c(const IString& aString)
{
  return IString(aString).d2c();
}
