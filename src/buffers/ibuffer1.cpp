// ibuffer1.cpp - IBuffer, tests and character rules: classes of characters, and what is easy to say where every byte
// is a character. (Digit 1 is always tests: docs/architecture.md)
// Tests: tests/buffers/classification_test.cpp
#include <quelmcl/ibuffer.hpp>

#include "buffers/kinds.hpp"
#include "kernels/digits.hpp"
#include "kernels/vectors.hpp"

#include <cctype>

using quelmcl::detail::ByteSet;
using quelmcl::detail::hasOnly;

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

/// The same where the members are ASCII, and those of `members` in every locale: then our own kinds need not ask for each.
int isAll(const IBuffer& buffer, int (*belongs)(int), const ByteSet& members)
{
  if (quelmcl::detail::isOwnKind(buffer) && hasOnly(buffer.contents(), buffer.length(), members))
    return buffer.length() > 0;
  return isAll(buffer, belongs);
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

int IBuffer::isDigits() const
{
  return isAll(*this, std::isdigit, quelmcl::detail::decimalDigits);
}

int IBuffer::isGraphics() const
{
  return isAll(*this, std::isgraph);
}

int IBuffer::isHexDigits() const
{
  return isAll(*this, std::isxdigit, quelmcl::detail::hexadecimalDigits);
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
