// ibuffer6.cpp - IBuffer, searching: clamps of the start and hands over to the kernels. (Digit 6 is always searching:
// docs/architecture.md)
// Tests: tests/buffers/search_test.cpp
#include <quelmcl/ibuffer.hpp>

#include "buffers/bytesearch.hpp"
#include "kernels/textsearch.hpp"

#include <cstring>

using quelmcl::detail::ByteSet;
using quelmcl::detail::firstByte;
using quelmcl::detail::passes;
using quelmcl::detail::positionBehind;
using quelmcl::detail::positionOf;

namespace {

/// The position of what the C library has found, or 0.
unsigned positionFound(const IBuffer& buffer, const void* found)
{
  return found == nullptr ? 0
                          : positionOf(static_cast<std::size_t>(static_cast<const char*>(found) - buffer.contents()));
}

/// The position of the last byte at or before `start` for which `claim` holds, or 0.
template <class Claim>
unsigned lastByte(const IBuffer& buffer, unsigned start, Claim claim)
{
  return positionOf(quelmcl::detail::lastWhere(buffer.contents(), start, claim));
}

}  // namespace

// ---- where a search begins ----

unsigned IBuffer::startSearch(unsigned startPos, unsigned searchLen) const
{
  return quelmcl::detail::forwardStart(len, startPos, searchLen);
}

unsigned IBuffer::startBackwardsSearch(unsigned startPos, unsigned searchLen) const
{
  return quelmcl::detail::backwardStart(len, startPos, searchLen);
}

// ---- texts ----

unsigned IBuffer::indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const
{
  if (searchLen == 1)
    return indexOfAnyOf(pSearchString, 1, startPos);
  const unsigned start = startSearch(startPos, searchLen);
  if (start == 0 || searchLen == 0)
    return 0;
  const unsigned skipped = start - 1;
  return positionBehind(skipped,
                        quelmcl::detail::findText(contents() + skipped, len - skipped, pSearchString, searchLen));
}

unsigned IBuffer::lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const
{
  const unsigned start = startBackwardsSearch(startPos, searchLen);
  if (start == 0 || searchLen == 0)
    return 0;
  return positionOf(quelmcl::detail::findLastText(contents(), start - 1 + searchLen, pSearchString, searchLen));
}

// ---- sets ----

unsigned IBuffer::indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  const unsigned start = startSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  if (numValidChars > 1)
    return firstByte(contents(), len, start, ByteSet(pValidChars, numValidChars), true);
  const char* const first = contents() + start - 1;
  return positionFound(*this, std::memchr(first, static_cast<unsigned char>(*pValidChars), len - start + 1));
}

unsigned IBuffer::indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  const unsigned start = startSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return start;
  return firstByte(contents(), len, start, ByteSet(pValidChars, numValidChars), false);
}

unsigned IBuffer::lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  const unsigned start = startBackwardsSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  if (numValidChars > 1)
    return positionOf(quelmcl::detail::findLastMember(contents(), start, ByteSet(pValidChars, numValidChars)));
  return positionFound(*this, memrchr(contents(), static_cast<unsigned char>(*pValidChars), start));
}

unsigned IBuffer::lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  const unsigned start = startBackwardsSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return start;
  return positionOf(quelmcl::detail::findLastMember(contents(), start, ByteSet(pValidChars, numValidChars), false));
}

// ---- tests ----

unsigned IBuffer::indexOf(const IStringTest& test, unsigned startPos) const
{
  return indexOfAnyOf(test, startPos);
}

unsigned IBuffer::lastIndexOf(const IStringTest& test, unsigned startPos) const
{
  return lastIndexOfAnyOf(test, startPos);
}

unsigned IBuffer::indexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  return firstByte(contents(), len, startSearch(startPos, 1), [&](char byte) { return passes(test, byte); });
}

unsigned IBuffer::indexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  return firstByte(contents(), len, startSearch(startPos, 1), [&](char byte) { return !passes(test, byte); });
}

unsigned IBuffer::lastIndexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  return lastByte(*this, startBackwardsSearch(startPos, 1), [&](char byte) { return passes(test, byte); });
}

unsigned IBuffer::lastIndexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  return lastByte(*this, startBackwardsSearch(startPos, 1), [&](char byte) { return !passes(test, byte); });
}
