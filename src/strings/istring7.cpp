// istring7.cpp - IString, editing front-ends: nothing to do, or hold what the buffer makes of the text. (Digit 7 is
// always editing: docs/architecture.md)
// Tests: tests/strings/editing_test.cpp, editing_promises_test.cpp, editing_random_test.cpp
#include <quelmcl/istring.hpp>

#include "buffers/bytesearch.hpp"
#include "buffers/editing.hpp"
#include "buffers/kinds.hpp"
#include "kernels/bytes.hpp"
#include "kernels/whitespace.hpp"

#include <cctype>

using quelmcl::detail::ByteSet;
using quelmcl::detail::findLastMember;
using quelmcl::detail::findMember;
using quelmcl::detail::isAsciiLower;
using quelmcl::detail::isAsciiUpper;
using quelmcl::detail::isWhiteSpace;
using quelmcl::detail::nowhere;
using quelmcl::detail::positionOf;

namespace {

constexpr ByteSet separators(quelmcl::detail::wordSeparators, quelmcl::detail::wordSeparatorCount);
constexpr std::size_t near = 8;  // so far white space is stepped over byte by byte; most often there is little of it

/// The offset of the first byte that separates no words, or the length.
std::size_t firstOther(const char* text, std::size_t length)
{
  std::size_t offset = 0;
  for (; offset < length && offset < near; ++offset)
    if (!isWhiteSpace(text[offset]))
      return offset;
  const std::size_t found = findMember(text + offset, length - offset, separators, false);
  return found == nowhere ? length : offset + found;
}

/// The length of the text up to the last such byte.
std::size_t lengthToLastOther(const char* text, std::size_t length)
{
  std::size_t left = length;
  for (; left > 0 && length - left < near; --left)
    if (!isWhiteSpace(text[left - 1]))
      return left;
  return findLastMember(text, left, separators, false) + 1;  // nowhere makes 0
}

/// What the C library takes for white space. What separates words is that in every locale, letters and digits in none.
bool isSpace(char byte)
{
  const bool isPlain = isAsciiLower(byte) || isAsciiUpper(byte) || (byte >= '0' && byte <= '9');
  return !isPlain && std::isspace(static_cast<signed char>(byte));
}

/// Strips white space. Only our own kind of text is looked at here; another may search in its own way, and is asked to.
IBuffer* stripWhiteSpace(IBuffer* buffer, IStringEnum::StripMode mode)
{
  if (!quelmcl::detail::isOwnSingleByte(*buffer))
    return buffer->strip(IStringTest(std::isspace), mode);
  const char* const text = buffer->contents();
  const unsigned length = buffer->length();
  const auto firstKept = [=] {
    std::size_t first = firstOther(text, length);
    while (first < length && isSpace(text[first]))
      first += 1 + firstOther(text + first + 1, length - first - 1);
    return first < length ? positionOf(first) : 0;
  };
  const auto lastKept = [=] {
    std::size_t left = lengthToLastOther(text, length);
    while (left > 0 && isSpace(text[left - 1]))
      left = lengthToLastOther(text, left - 1);
    return static_cast<unsigned>(left);
  };
  return quelmcl::detail::stripEnds(buffer, mode, firstKept, lastKept);
}

}  // namespace

// ---- fitting into a length ----

IString& IString::center(unsigned newLength, char padCharacter)
{
  return newLength == length() ? *this : adopt(buffer()->center(newLength, padCharacter));
}

IString& IString::leftJustify(unsigned newLength, char padCharacter)
{
  return newLength == length() ? *this : adopt(buffer()->leftJustify(newLength, padCharacter));
}

IString& IString::rightJustify(unsigned newLength, char padCharacter)
{
  return newLength == length() ? *this : adopt(buffer()->rightJustify(newLength, padCharacter));
}

// ---- putting in, over, out ----

IString& IString::insert(const IString& aString, unsigned index, char padCharacter)
{
  return insertBytes(aString.pBuffer, aString.length(), index, padCharacter);
}

IString& IString::insert(const char* pString, unsigned index, char padCharacter)
{
  return insertBytes(pString, lengthOf(pString), index, padCharacter);
}

IString& IString::insertBytes(const char* pInsert, unsigned insertLen, unsigned index, char padCharacter)
{
  return adopt(buffer()->insert(pInsert, insertLen, index, padCharacter));
}

IString& IString::overlayWith(const IString& aString, unsigned index, char padCharacter)
{
  return overlayBytes(aString.pBuffer, aString.length(), index, padCharacter);
}

IString& IString::overlayWith(const char* pString, unsigned index, char padCharacter)
{
  return overlayBytes(pString, lengthOf(pString), index, padCharacter);
}

IString& IString::overlayBytes(const char* pOverlay, unsigned overlayLen, unsigned index, char padCharacter)
{
  return adopt(buffer()->overlayWith(pOverlay, overlayLen, index, padCharacter));
}

IString& IString::remove(unsigned startPos)
{
  return remove(startPos, quelmcl::detail::allOfIt);
}

IString& IString::remove(unsigned startPos, unsigned numChars)
{
  const bool changesNothing = numChars == 0 || startPos > length() || length() == 0;
  return changesNothing ? *this : adopt(buffer()->remove(startPos, numChars));
}

IString& IString::copy(unsigned numCopies)
{
  return adopt(buffer()->copy(numCopies));
}

// ---- every character ----

IString& IString::lowerCase()
{
  return adopt(buffer()->lowerCase());
}

IString& IString::upperCase()
{
  return adopt(buffer()->upperCase());
}

IString& IString::reverse()
{
  return adopt(buffer()->reverse());
}

IString& IString::translate(const IString& inputChars, const IString& outputChars, char padCharacter)
{
  return translateBytes(inputChars.pBuffer, inputChars.length(), outputChars.pBuffer, outputChars.length(),
                        padCharacter);
}

IString& IString::translate(const IString& inputChars, const char* pOutputChars, char padCharacter)
{
  return translateBytes(inputChars.pBuffer, inputChars.length(), pOutputChars, lengthOf(pOutputChars), padCharacter);
}

IString& IString::translate(const char* pInputChars, const IString& outputChars, char padCharacter)
{
  return translateBytes(pInputChars, lengthOf(pInputChars), outputChars.pBuffer, outputChars.length(), padCharacter);
}

IString& IString::translate(const char* pInputChars, const char* pOutputChars, char padCharacter)
{
  return translateBytes(pInputChars, lengthOf(pInputChars), pOutputChars, lengthOf(pOutputChars), padCharacter);
}

IString& IString::translateBytes(const char* pInputChars, unsigned inputLen, const char* pOutputChars,
                                 unsigned outputLen, char padCharacter)
{
  return adopt(buffer()->translate(pInputChars, inputLen, pOutputChars, outputLen, padCharacter));
}

// ---- change ----

IString& IString::change(const IString& pattern, const IString& replacement, unsigned startPos, unsigned numChanges)
{
  return changeBytes(pattern.pBuffer, pattern.length(), replacement.pBuffer, replacement.length(), startPos,
                     numChanges);
}

IString& IString::change(const IString& pattern, const char* pReplacement, unsigned startPos, unsigned numChanges)
{
  return changeBytes(pattern.pBuffer, pattern.length(), pReplacement, lengthOf(pReplacement), startPos, numChanges);
}

IString& IString::change(const char* pPattern, const IString& replacement, unsigned startPos, unsigned numChanges)
{
  return changeBytes(pPattern, lengthOf(pPattern), replacement.pBuffer, replacement.length(), startPos, numChanges);
}

IString& IString::change(const char* pPattern, const char* pReplacement, unsigned startPos, unsigned numChanges)
{
  return changeBytes(pPattern, lengthOf(pPattern), pReplacement, lengthOf(pReplacement), startPos, numChanges);
}

IString& IString::changeBytes(const char* pPattern, unsigned patternLen, const char* pReplacement,
                              unsigned replacementLen, unsigned startPos, unsigned numChanges)
{
  return adopt(buffer()->change(pPattern, patternLen, pReplacement, replacementLen, startPos, numChanges));
}

// ---- both ends ----

IString& IString::strip()
{
  return adopt(stripWhiteSpace(buffer(), IStringEnum::both));
}

IString& IString::strip(char aCharacter, IStringEnum::StripMode mode)
{
  const char one[] = {aCharacter, '\0'};  // the rules for characters of several bytes may look at what follows
  return stripBytes(one, 1, mode);
}

IString& IString::strip(const IString& characters, IStringEnum::StripMode mode)
{
  return stripBytes(characters.pBuffer, characters.length(), mode);
}

IString& IString::strip(const char* pCharacters, IStringEnum::StripMode mode)
{
  return stripBytes(pCharacters, lengthOf(pCharacters), mode);
}

IString& IString::strip(const IStringTest& aTest, IStringEnum::StripMode mode)
{
  return adopt(buffer()->strip(aTest, mode));
}

IString& IString::stripBytes(const char* pCharacters, unsigned count, IStringEnum::StripMode mode)
{
  return adopt(buffer()->strip(pCharacters, count, mode));
}

IString& IString::stripLeading()
{
  return adopt(stripWhiteSpace(buffer(), IStringEnum::leading));
}

IString& IString::stripLeading(char aCharacter)
{
  return strip(aCharacter, IStringEnum::leading);
}

IString& IString::stripLeading(const char* pCharacters)
{
  return strip(pCharacters, IStringEnum::leading);
}

IString& IString::stripLeading(const IStringTest& aTest)
{
  return strip(aTest, IStringEnum::leading);
}

IString& IString::stripTrailing()
{
  return adopt(stripWhiteSpace(buffer(), IStringEnum::trailing));
}

IString& IString::stripTrailing(char aCharacter)
{
  return strip(aCharacter, IStringEnum::trailing);
}

IString& IString::stripTrailing(const char* pCharacters)
{
  return strip(pCharacters, IStringEnum::trailing);
}

IString& IString::stripTrailing(const IStringTest& aTest)
{
  return strip(aTest, IStringEnum::trailing);
}

// ---- static forms: the operation on a copy ----

IString IString::center(const IString& aString, unsigned newLength, char padCharacter)
{
  return IString(aString).center(newLength, padCharacter);
}

IString IString::change(const IString& aString, const IString& pattern, const IString& replacement, unsigned startPos,
                        unsigned numChanges)
{
  return IString(aString).change(pattern, replacement, startPos, numChanges);
}

IString IString::copy(const IString& aString, unsigned numCopies)
{
  return IString(aString).copy(numCopies);
}

IString IString::insert(const IString& aString, const IString& anInsert, unsigned index, char padCharacter)
{
  return IString(aString).insert(anInsert, index, padCharacter);
}

IString IString::leftJustify(const IString& aString, unsigned newLength, char padCharacter)
{
  return IString(aString).leftJustify(newLength, padCharacter);
}

IString IString::lowerCase(const IString& aString)
{
  return IString(aString).lowerCase();
}

IString IString::overlayWith(const IString& aString, const IString& anOverlay, unsigned index, char padCharacter)
{
  return IString(aString).overlayWith(anOverlay, index, padCharacter);
}

IString IString::remove(const IString& aString, unsigned startPos)
{
  return IString(aString).remove(startPos);
}

IString IString::remove(const IString& aString, unsigned startPos, unsigned numChars)
{
  return IString(aString).remove(startPos, numChars);
}

IString IString::reverse(const IString& aString)
{
  return IString(aString).reverse();
}

IString IString::rightJustify(const IString& aString, unsigned newLength, char padCharacter)
{
  return IString(aString).rightJustify(newLength, padCharacter);
}

IString IString::strip(const IString& aString)
{
  return IString(aString).strip();
}

IString IString::strip(const IString& aString, const IString& characters, IStringEnum::StripMode mode)
{
  return IString(aString).strip(characters, mode);
}

IString IString::strip(const IString& aString, const IStringTest& aTest, IStringEnum::StripMode mode)
{
  return IString(aString).strip(aTest, mode);
}

IString IString::stripLeading(const IString& aString)
{
  return IString(aString).stripLeading();
}

IString IString::stripLeading(const IString& aString, const IString& characters)
{
  return IString(aString).strip(characters, IStringEnum::leading);
}

IString IString::stripLeading(const IString& aString, const IStringTest& aTest)
{
  return IString(aString).stripLeading(aTest);
}

IString IString::stripTrailing(const IString& aString)
{
  return IString(aString).stripTrailing();
}

IString IString::stripTrailing(const IString& aString, const IString& characters)
{
  return IString(aString).strip(characters, IStringEnum::trailing);
}

IString IString::stripTrailing(const IString& aString, const IStringTest& aTest)
{
  return IString(aString).stripTrailing(aTest);
}

IString IString::translate(const IString& aString, const IString& inputChars, const IString& outputChars,
                           char padCharacter)
{
  return IString(aString).translate(inputChars, outputChars, padCharacter);
}

IString IString::upperCase(const IString& aString)
{
  return IString(aString).upperCase();
}
