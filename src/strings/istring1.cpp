// istring1.cpp - IString, tests: comparison, questions about all characters, wildcards and abbreviations. (Digit 1 is
// always tests: docs/architecture.md)
// Tests: tests/strings/tests_test.cpp
#include <quelmcl/istrchar.hpp>
#include <quelmcl/istring.hpp>

#include "buffers/characterset.hpp"
#include "buffers/kinds.hpp"
#include "kernels/digits.hpp"
#include "kernels/vectors.hpp"
#include "kernels/wildcard.hpp"

#include <cstring>
#include <functional>
#include <iterator>
#include <string_view>

// ---- comparison ----

namespace {

IBuffer::Comparison compare(const IString& left, const char* right, std::size_t length)
{
  const IBuffer* const buffer = IBuffer::fromContents(left);
  if (length > quelmcl::detail::allOfIt)  // longer than any string: no less than its longest part
    return buffer->compare(right, quelmcl::detail::allOfIt) == IBuffer::greaterThan ? IBuffer::greaterThan
                                                                                    : IBuffer::lessThan;
  return buffer->compare(right, static_cast<unsigned>(length));
}

IBuffer::Comparison compare(const IString& left, const IString& right)
{
  return compare(left, right, right.length());
}

// A null pointer is the empty text here; IBuffer::compare would take it as less than any text, also the empty one.
IBuffer::Comparison compare(const IString& left, const char* right)
{
  const char* const text = right == nullptr ? "" : right;
  return compare(left, text, std::strlen(text));
}

}  // namespace

int operator==(const IString& left, const IString& right)
{
  return compare(left, right) == IBuffer::equal;
}

int operator!=(const IString& left, const IString& right)
{
  return compare(left, right) != IBuffer::equal;
}

int operator<(const IString& left, const IString& right)
{
  return compare(left, right) == IBuffer::lessThan;
}

int operator<=(const IString& left, const IString& right)
{
  return compare(left, right) != IBuffer::greaterThan;
}

int operator>(const IString& left, const IString& right)
{
  return compare(left, right) == IBuffer::greaterThan;
}

int operator>=(const IString& left, const IString& right)
{
  return compare(left, right) != IBuffer::lessThan;
}

int operator==(const IString& left, const char* right)
{
  return compare(left, right) == IBuffer::equal;
}

int operator!=(const IString& left, const char* right)
{
  return compare(left, right) != IBuffer::equal;
}

int operator<(const IString& left, const char* right)
{
  return compare(left, right) == IBuffer::lessThan;
}

int operator<=(const IString& left, const char* right)
{
  return compare(left, right) != IBuffer::greaterThan;
}

int operator>(const IString& left, const char* right)
{
  return compare(left, right) == IBuffer::greaterThan;
}

int operator>=(const IString& left, const char* right)
{
  return compare(left, right) != IBuffer::lessThan;
}

int operator==(const char* left, const IString& right)
{
  return right == left;
}

int operator!=(const char* left, const IString& right)
{
  return right != left;
}

int operator<(const char* left, const IString& right)
{
  return right > left;
}

int operator<=(const char* left, const IString& right)
{
  return right >= left;
}

int operator>(const char* left, const IString& right)
{
  return right < left;
}

int operator>=(const char* left, const IString& right)
{
  return right <= left;
}

std::size_t IString::hashOf(const char* text, unsigned length) noexcept
{
  return std::hash<std::string_view>()(std::string_view(text, length));
}

// ---- questions that the buffer answers ----

int IString::isAlphanumeric() const
{
  return buffer()->isAlphanumeric();
}

int IString::isAlphabetic() const
{
  return buffer()->isAlphabetic();
}

int IString::isASCII() const
{
  return buffer()->isASCII();
}

int IString::isControl() const
{
  return buffer()->isControl();
}

int IString::isDigits() const
{
  return buffer()->isDigits();
}

int IString::isGraphics() const
{
  return buffer()->isGraphics();
}

int IString::isHexDigits() const
{
  return buffer()->isHexDigits();
}

int IString::isLowerCase() const
{
  return buffer()->isLowerCase();
}

int IString::isPrintable() const
{
  return buffer()->isPrintable();
}

int IString::isPunctuation() const
{
  return buffer()->isPunctuation();
}

int IString::isUpperCase() const
{
  return buffer()->isUpperCase();
}

int IString::isWhiteSpace() const
{
  return buffer()->isWhiteSpace();
}

int IString::isMBCS() const
{
  return buffer()->isMBCS();
}

int IString::isDBCS() const
{
  return buffer()->isDBCS();
}

int IString::isSBCS() const
{
  return buffer()->isSBCS();
}

int IString::isValidMBCS() const
{
  return buffer()->isValidMBCS();
}

int IString::isValidDBCS() const
{
  return buffer()->isValidDBCS();
}

int IString::includesMBCS() const
{
  return buffer()->includesMBCS();
}

int IString::includesDBCS() const
{
  return buffer()->includesDBCS();
}

int IString::includesSBCS() const
{
  return buffer()->includesSBCS();
}

IStringEnum::CharType IString::charType(unsigned pos) const
{
  return buffer()->charType(pos);
}

unsigned IString::numCharacters() const
{
  if (quelmcl::detail::isOwnMultiByte(*buffer()))
    return quelmcl::detail::CharacterSet::current().count(pBuffer, length());
  if (quelmcl::detail::isOwnSingleByte(*buffer()))
    return length();
  const quelmcl::Characters stepByStep(*this);
  return static_cast<unsigned>(std::distance(stepByStep.begin(), stepByStep.end()));
}

// ---- questions about the bytes ----

int IString::isBinaryDigits() const
{
  return length() > 0 && quelmcl::detail::hasOnly(pBuffer, length(), quelmcl::detail::binaryDigits);
}

int IString::isLike(const IString& aPattern, char zeroOrMore, char anyChar) const
{
  return isLike(aPattern.pBuffer, aPattern.length(), zeroOrMore, anyChar);
}

int IString::isLike(const char* pPattern, char zeroOrMore, char anyChar) const
{
  return isLike(pPattern, lengthOf(pPattern), zeroOrMore, anyChar);
}

int IString::isLike(const char* pPattern, unsigned patternLen, char zeroOrMore, char anyChar) const
{
  return buffer()->compare(pPattern, patternLen) == IBuffer::equal ||
         quelmcl::detail::matchesWildcards(pBuffer, length(), pPattern, patternLen, zeroOrMore, anyChar);
}

int IString::isAbbreviationFor(const IString& fullString, unsigned minLen) const
{
  return isAbbrevFor(fullString.pBuffer, fullString.length(), minLen);
}

int IString::isAbbreviationFor(const char* pFullString, unsigned minLen) const
{
  return isAbbrevFor(pFullString, lengthOf(pFullString), minLen);
}

int IString::isAbbrevFor(const char* pFullString, unsigned fullStringLen, unsigned minLen) const
{
  if (length() > fullStringLen || length() < minLen)
    return 0;
  return length() == 0 || buffer()->compare(pFullString, length()) == IBuffer::equal;
}
