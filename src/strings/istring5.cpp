// istring5.cpp - IString, substrings and indexing. (Digit 5 is always these: docs/architecture.md)
// Tests: tests/strings/substring_test.cpp
#include <quelmcl/istring.hpp>

#include "exceptions/throwing.hpp"

namespace {

enum Message : unsigned long { indexOutOfRange = 1011 };

[[noreturn]] void throwOutOfRange()
{
  quelmcl::detail::throwInvalidRequest(indexOutOfRange, IExceptionLocation("istring5", nullptr, __LINE__));
}

/// A signed position as an unsigned one. A negative one is refused before any length is looked at.
template <class Position>
unsigned long checkedPosition(Position pos)
{
  if (pos < 0)
    throwOutOfRange();
  return static_cast<unsigned long>(pos);
}

}  // namespace

// ---- reading ----

const char& IString::operator[](unsigned long pos) const
{
  const unsigned long offset = pos == 0 ? 0 : pos - 1;
  if (offset >= length())
    throwOutOfRange();
  return pBuffer[offset];
}

const char& IString::operator[](unsigned pos) const
{
  return (*this)[static_cast<unsigned long>(pos)];
}

const char& IString::operator[](int pos) const
{
  return (*this)[checkedPosition(pos)];
}

const char& IString::operator[](long pos) const
{
  return (*this)[checkedPosition(pos)];
}

// ---- writing ----

char& IString::operator[](unsigned long pos)
{
  const unsigned long offset = pos == 0 ? 0 : pos - 1;
  if (offset < length()) {
    prepareToChange();
    return pBuffer[offset];
  }
  const unsigned newLength = IBuffer::checkAddition(quelmcl::detail::checkedLength(offset), 1);
  adopt(buffer()->newBuffer(pBuffer, length(), nullptr, newLength - length(), nullptr, 0, ' '));
  return pBuffer[offset];
}

char& IString::operator[](unsigned pos)
{
  return (*this)[static_cast<unsigned long>(pos)];
}

char& IString::operator[](int pos)
{
  return (*this)[checkedPosition(pos)];
}

char& IString::operator[](long pos)
{
  return (*this)[checkedPosition(pos)];
}

// ---- substrings ----

IString IString::subString(unsigned startPos) const
{
  if (startPos > length())
    return IString();
  // Deliberate: from 0 this asks for one byte more than there is.  Test: SubString.FromZeroIsTheWholeTextAndABlank
  return subString(startPos, length() - startPos + 1, ' ');
}

IString IString::subString(unsigned startPos, unsigned len, char padCharacter) const
{
  return IString(buffer()->subString(startPos, len, padCharacter));
}
