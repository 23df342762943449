// istring0.cpp - IString, life cycle: construction from everything, the copy-on-write step, numbers back from text,
// streams, debug text. (Digit 0 is always the life cycle: docs/architecture.md)
// Tests: tests/strings/core_test.cpp, tests/strings/streams_test.cpp
#include <quelmcl/istrbld.hpp>
#include <quelmcl/istring.hpp>

#include "buffers/pieces.hpp"
#include "foundation/address.hpp"
#include "foundation/errnoguard.hpp"
#include "strings/numbertext.hpp"

#include <algorithm>
#include <cctype>
#include <clocale>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <istream>
#include <limits>
#include <locale>
#include <ostream>
#include <streambuf>
#include <string>
#include <utility>

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

/// What a stream holds ready in its stream buffer, to be looked at before it is taken. Empty when the stream buffer
/// keeps nothing; it has to be asked for one character at a time then.
class ReadyInput {
public:
  ReadyInput(std::istream& stream, unsigned mostBytes) : source(*stream.rdbuf()), first((source.*&Opener::gptr)())
  {
    constexpr std::size_t mostTaken = std::numeric_limits<int>::max();
    const std::size_t held = static_cast<std::size_t>((source.*&Opener::egptr)() - first);
    ready = static_cast<unsigned>(std::min({held, std::size_t{mostBytes}, mostTaken}));
  }

  const char* begin() const { return first == nullptr ? "" : first; }
  unsigned length() const { return ready; }
  /// The length of the word that it begins with; all of it when no white space follows.
  unsigned wordLength(const std::ctype<char>& characters) const
  {
    return static_cast<unsigned>(characters.scan_is(std::ctype_base::space, begin(), begin() + ready) - begin());
  }
  void take(unsigned length) const { (source.*&Opener::gbump)(static_cast<int>(length)); }

private:
  // Only a class derived from it may name these, but it may then call them on any.
  struct Opener : std::streambuf {
    using std::streambuf::egptr;
    using std::streambuf::gbump;
    using std::streambuf::gptr;
  };

  std::streambuf& source;
  const char* const first;
  unsigned ready;
};

unsigned longestWord(std::streamsize width)
{
  constexpr std::uint64_t unlimited = quelmcl::detail::allOfIt;
  const bool isLimited = width > 0 && static_cast<std::uint64_t>(width) <= unlimited;
  return isLimited ? static_cast<unsigned>(width) - 1 : quelmcl::detail::allOfIt;
}

bool beginsWord(int next, const std::ctype<char>& characters)
{
  return next != std::char_traits<char>::eof() && !characters.is(std::ctype_base::space, static_cast<char>(next));
}

/// Moves the next bytes of a word, one at least and `mostBytes` at most, from the stream into the text.
void appendToWord(IStringBuilder& word, std::istream& stream, unsigned mostBytes, const std::ctype<char>& characters)
{
  const ReadyInput ready(stream, mostBytes);
  const unsigned length = ready.wordLength(characters);
  if (length == 0) {
    word.append(static_cast<char>(stream.get()));
    return;
  }
  if (word.length() == 0)
    word.reserve(length);  // most words are ready whole, and need no more
  word.append(ready.begin(), length);
  ready.take(length);
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
  const quelmcl::detail::NumberText digits(number);
  initBuffer(digits.bytes(), digits.length());
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
  initDigits(number);
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
    adopt(quelmcl::detail::newBufferOf(*buffer(), pBuffer, length()));
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

IString::IString(const char* text) : pBuffer(placeholder())
{
  setBuffer(quelmcl::detail::newBufferOf(*buffer(), text, lengthOf(text)));
}

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

/// The word that the stream has come to, of `mostBytes` at most, in a buffer as `alike` makes them.
IString IString::wordFrom(std::istream& aStream, const IBuffer& alike, unsigned mostBytes)
{
  const std::locale locale = aStream.getloc();
  const auto& characters = std::use_facet<std::ctype<char>>(locale);
  const ReadyInput ready(aStream, mostBytes);
  const unsigned length = ready.wordLength(characters);
  if (length < ready.length()) {  // as nearly always: what ends the word is ready, too
    IString whole(alike.newBuffer(ready.begin(), length, nullptr, 0, nullptr, 0, 0));
    ready.take(length);
    aStream.peek();  // leaves the stream as reading byte by byte does
    return whole;
  }
  IStringBuilder word(IString(alike.null()->addRef()));
  while (word.length() < mostBytes && beginsWord(aStream.peek(), characters))
    appendToWord(word, aStream, mostBytes - word.length(), characters);
  return word.handOver();
}

std::istream& operator>>(std::istream& aStream, IString& aString)
{
  const unsigned mostBytes = longestWord(aStream.width(0));
  const IBuffer& alike = *(aString.length() == 0 ? aString.buffer() : aString.buffer()->null());
  const std::istream::sentry prefix(aStream);
  IString word = prefix ? IString::wordFrom(aStream, alike, mostBytes) : IString(alike.null()->addRef());
  std::swap(aString.pBuffer, word.pBuffer);
  return aStream;
}

IString IString::lineFrom(std::istream& aStream, char delimiter)
{
  IStringBuilder line;
  for (char next; aStream.get(next) && next != delimiter;) {
    const ReadyInput ready(aStream, quelmcl::detail::allOfIt);
    const char* const end = static_cast<const char*>(std::memchr(ready.begin(), delimiter, ready.length()));
    const bool isLast = end != nullptr;
    const unsigned length = isLast ? static_cast<unsigned>(end - ready.begin()) : ready.length();
    if (isLast && line.length() == 0) {  // as nearly always; no builder's reserve is needed then
      IString whole(&next, 1u, ready.begin(), length);
      ready.take(length + 1);
      return whole;
    }
    line.append(&next, 1u, ready.begin(), length);
    ready.take(isLast ? length + 1 : length);
    if (isLast)
      break;
  }
  return line.handOver();
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
