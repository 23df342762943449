// ibuffer1.cpp - IBuffer, tests and character rules: classes of characters, and what is easy to say where every byte
// is a character. (Digit 1 is always tests: docs/architecture.md)
// Tests: tests/buffers/classification_test.cpp
#include <quelmcl/ibuffer.hpp>

#include "kernels/digits.hpp"
#include "kernels/vectors.hpp"

#include <cctype>

IStringEnum::CharType IBuffer::charType(unsigned) const
{
  return IStringEnum::sbcs;
}

// Deliberate: no step is taken; nothing in this kind steps with it.  Test: Next.StaysWhereItIsInTheSingleByteKind
char* IBuffer::next(const char* p)
{
  return const_cast<char*>(p);
}

const char* IBuffer::next(const char* p) const
{
  return p;
}

// ---- classes of characters: not empty, and nothing is found that fails the C library's test ----

namespace {

int isAll(const IBuffer& buffer, int (*belongs)(int))
{
  return buffer.length() > 0 && buffer.indexOfAnyBut(IStringTest(belongs), 1) == 0;
}

}  // namespace

int IBuffer::isAlphanumeric() const
{
  return isAll(*this, std::isalnum);
}

int IBuffer::isAlphabetic() const
{
  return isAll(*this, std::isalpha);
}

int IBuffer::isASCII() const
{
  return len > 0 && quelmcl::detail::vectors().asciiPrefix(contents(), len) == len;
}

int IBuffer::isControl() const
{
  return isAll(*this, std::iscntrl);
}

// Digits and hexadecimal digits are the same characters in every locale, so they need no question for each of them.

int IBuffer::isDigits() const
{
  if (quelmcl::detail::digitLoops().areDecimal(contents(), len))
    return len > 0;
  return isAll(*this, std::isdigit);
}

int IBuffer::isGraphics() const
{
  return isAll(*this, std::isgraph);
}

int IBuffer::isHexDigits() const
{
  if (quelmcl::detail::digitLoops().areHexadecimal(contents(), len))
    return len > 0;
  return isAll(*this, std::isxdigit);
}

int IBuffer::isLowerCase() const
{
  return isAll(*this, std::islower);
}

int IBuffer::isPrintable() const
{
  return isAll(*this, std::isprint);
}

int IBuffer::isPunctuation() const
{
  return isAll(*this, std::ispunct);
}

int IBuffer::isUpperCase() const
{
  return isAll(*this, std::isupper);
}

int IBuffer::isWhiteSpace() const
{
  return isAll(*this, std::isspace);
}

// ---- how many bytes the characters have: one, without looking ----

int IBuffer::isMBCS() const
{
  return 0;
}

int IBuffer::isDBCS() const
{
  return 0;
}

int IBuffer::isSBCS() const
{
  return 1;
}

int IBuffer::isValidMBCS() const
{
  return 1;
}

int IBuffer::isValidDBCS() const
{
  return 1;
}

int IBuffer::includesMBCS() const
{
  return 0;
}

int IBuffer::includesDBCS() const
{
  return 0;
}

int IBuffer::includesSBCS() const
{
  return 1;
}
