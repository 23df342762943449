// istring0.cpp - IString, life cycle: construction from everything, the copy-on-write step, numbers back from text,
// streams, debug text. (Digit 0 is always the life cycle: docs/architecture.md)
// Tests: tests/strings/core_test.cpp, tests/strings/streams_test.cpp
#include <quelmcl/istring.hpp>

#include "foundation/address.hpp"
#include "foundation/errnoguard.hpp"

#include <cctype>
#include <charconv>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <istream>
#include <iterator>
#include <limits>
#include <locale>
#include <ostream>
#include <string>

namespace {

const char* firstNonSpace(const char* text)
{
  while (std::isspace(static_cast<unsigned char>(*text)))
    ++text;
  return text;
}

/// Whether a decimal number begins here. strtod would also take "0x1p3", "inf" and "nan".
bool startsDecimal(const char* text)
{
  if (*text == '+' || *text == '-')
    ++text;
  if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X'))
    return false;
  const char* const point = std::localeconv()->decimal_point;
  return std::isdigit(static_cast<unsigned char>(*text)) || std::strncmp(text, point, std::strlen(point)) == 0;
}

}  // namespace

const char* const IString::null = "";
const char* const IString::zero = "0";
const char* const IString::maxLong = "2147483647L";
char* IString::nullBuffer = nullptr;

// ---- the null buffer and the building blocks ----

char* IString::nullBuf() noexcept
{
  return __atomic_load_n(&nullBuffer, __ATOMIC_ACQUIRE);
}

void IString::setDefaultBuffer(char* text) noexcept
{
  __atomic_store_n(&nullBuffer, text, __ATOMIC_RELEASE);
}

// What every constructor begins with: the text of the default null buffer, not counted as a reference.
char* IString::placeholder()
{
  if (char* const known = nullBuf())
    return known;
  char* const text = IBuffer::defaultBuffer()->contents();
  setDefaultBuffer(text);
  return text;
}

// For strings that give their text away. They were built, so the null buffer is there and nothing can fail.
char* IString::emptyText() noexcept
{
  return IBuffer::fromContents(placeholder())->addRef()->contents();
}

void IString::initBuffer(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
                         char padCharacter)
{
  setBuffer(buffer()->newBuffer(p1, len1, p2, len2, p3, len3, padCharacter));
}

template <class Number>
void IString::initDigits(Number number)
{
  char
    digits[std::numeric_limits<Number>::digits10 + 2];  // one digit more than any value of as many can have, and a sign
  const std::to_chars_result end = std::to_chars(std::begin(digits), std::end(digits), number);
  initBuffer(digits, static_cast<unsigned>(end.ptr - digits));
}

void IString::initBuffer(long number)
{
  initDigits(number);
}

void IString::initBuffer(unsigned long number)
{
  initDigits(number);
}

void IString::initBuffer(double number)
{
  constexpr int precision = 15;
  char text[32];  // sign, 15 digits, a decimal point of a few bytes, an exponent
  const int length = std::snprintf(text, sizeof text, "%.*g", precision, number);
  initBuffer(text, static_cast<unsigned>(length));
}

unsigned IString::lengthOf(const char* text)
{
  return text == nullptr ? 0 : quelmcl::detail::checkedLength(std::strlen(text));
}

// Points the string at the result of an edit, which carries a reference for it, and gives the one to the old text
// back. Nothing is changed before the edit has succeeded, so one that throws leaves the string as it was.
IString& IString::adopt(IBuffer* edited) noexcept
{
  IBuffer* const former = buffer();
  setBuffer(edited);
  former->removeRef();
  return *this;
}

void IString::prepareToChange()
{
  if (buffer()->useCount() >= 2)
    adopt(buffer()->newBuffer(pBuffer, length(), nullptr, 0, nullptr, 0, 0));
}

// ---- construction ----

IString::IString() : pBuffer(placeholder())
{
  buffer()->addRef();
}

IString::IString(std::nullptr_t) : IString() {}

IString::IString(int number) : IString(static_cast<long>(number)) {}

IString::IString(unsigned number) : IString(static_cast<unsigned long>(number)) {}

IString::IString(short number) : IString(static_cast<long>(number)) {}

IString::IString(unsigned short number) : IString(static_cast<unsigned long>(number)) {}

IString::IString(long number) : pBuffer(placeholder())
{
  initBuffer(number);
}

IString::IString(unsigned long number) : pBuffer(placeholder())
{
  initBuffer(number);
}

IString::IString(long long number) : pBuffer(placeholder())
{
  initDigits(number);
}

IString::IString(unsigned long long number) : pBuffer(placeholder())
{
  initDigits(number);
}

IString::IString(double number) : pBuffer(placeholder())
{
  initBuffer(number);
}

IString::IString(char character) : IString(&character, 1u) {}

IString::IString(unsigned char character) : IString(&character, 1u) {}

IString::IString(signed char character) : IString(&character, 1u) {}

IString::IString(const char* text) : IString(text, lengthOf(text)) {}

IString::IString(const unsigned char* text) : IString(reinterpret_cast<const char*>(text)) {}

IString::IString(const signed char* text) : IString(reinterpret_cast<const char*>(text)) {}

IString::IString(const void* p1, unsigned len1, char padCharacter)
  : IString(p1, len1, nullptr, 0u, nullptr, 0u, padCharacter)
{
}

IString::IString(const void* p1, unsigned len1, const void* p2, unsigned len2, char padCharacter)
  : IString(p1, len1, p2, len2, nullptr, 0u, padCharacter)
{
}

IString::IString(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
                 char padCharacter)
  : pBuffer(placeholder())
{
  initBuffer(p1, len1, p2, len2, p3, len3, padCharacter);
}

// ---- numbers from text ----

long IString::asInt() const
{
  const quelmcl::detail::ErrnoGuard keepErrno;
  return std::strtol(pBuffer, nullptr, 10);
}

unsigned long IString::asUnsigned() const
{
  const quelmcl::detail::ErrnoGuard keepErrno;
  const bool isNegative = *firstNonSpace(pBuffer) == '-';  // strtoul would turn it into a large number
  return isNegative ? 0 : std::strtoul(pBuffer, nullptr, 10);
}

double IString::asDouble() const
{
  const quelmcl::detail::ErrnoGuard keepErrno;
  const char* const number = firstNonSpace(pBuffer);
  return startsDecimal(number) ? std::strtod(number, nullptr) : 0;
}

// ---- streams ----

std::ostream& operator<<(std::ostream& aStream, const IString& aString)
{
  return aStream << static_cast<const char*>(aString);
}

std::istream& operator>>(std::istream& aStream, IString& aString)
{
  const std::streamsize width = aStream.width(0);
  std::string word;
  if (const std::istream::sentry prefix(aStream); prefix) {
    const std::size_t limit = width > 0 ? static_cast<std::size_t>(width) - 1 : std::string::npos;
    const std::locale locale = aStream.getloc();
    const int endOfFile = std::char_traits<char>::eof();
    for (int next;
         word.size() < limit && (next = aStream.peek()) != endOfFile && !std::isspace(static_cast<char>(next), locale);)
      word += static_cast<char>(aStream.get());
  }
  aString.remove(1) += IString(word.data(), word.size());
  return aStream;
}

IString IString::lineFrom(std::istream& aStream, char delimiter)
{
  std::string line;
  for (char next; aStream.get(next) && next != delimiter;)
    line += next;
  return IString(line.data(), line.size());
}

namespace {

char octalDigit(unsigned value)
{
  return static_cast<char>('0' + (value & 7));
}

/// Writes one byte of a quoted text. An escape has three octal digits, so that a digit behind it stays a digit.
void writeEscaped(std::ostream& stream, char byte)
{
  const unsigned value = static_cast<unsigned char>(byte);
  if (byte == '\n')
    stream.write("\\n", 2);
  else if (byte == '\t')
    stream.write("\\t", 2);
  else if (byte == '"' || byte == '\\')
    stream.put('\\').put(byte);
  else if (value < 0x20 || value == 0x7F)
    stream.put('\\').put(octalDigit(value >> 6)).put(octalDigit(value >> 3)).put(octalDigit(value));
  else
    stream.put(byte);
}

}  // namespace

std::ostream& IString::writeQuoted(std::ostream& aStream) const
{
  aStream.put('"');
  for (const char byte : *this)
    writeEscaped(aStream, byte);
  return aStream.put('"');
}

// ---- debug text ----

IString IString::asDebugInfo() const
{
  return "IString(@" + quelmcl::detail::decimalAddress(this) + ",pBuffer->" + buffer()->asDebugInfo() + ")";
}
