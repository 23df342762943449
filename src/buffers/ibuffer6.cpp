// ibuffer6.cpp - IBuffer, searching: clamps of the start and hands over to the kernels. (Digit 6 is always searching:
// docs/architecture.md)
// Tests: tests/buffers/search_test.cpp
#include <quelmcl/ibuffer.hpp>

#include "buffers/searchstart.hpp"
#include "kernels/textsearch.hpp"

#include <cstring>

using quelmcl::detail::ByteSet;
using quelmcl::detail::nowhere;

namespace {

/// The 1-based position of an offset, 0 for nowhere.
unsigned positionOf(std::size_t offset)
{
  static_assert(nowhere + 1 == 0, "nowhere becomes position 0");
  return static_cast<unsigned>(offset + 1);
}

/// The position of the first byte from `start` on (not 0) for which `claim` holds, or 0.
template <class Claim>
unsigned firstFrom(const IBuffer& buffer, unsigned start, Claim claim)
{
  const unsigned skipped = start - 1;
  const std::size_t offset = quelmcl::detail::firstWhere(buffer.contents() + skipped, buffer.length() - skipped, claim);
  return offset == nowhere ? 0 : positionOf(skipped + offset);
}

/// The position of the last byte at or before `start` for which `claim` holds, or 0.
template <class Claim>
unsigned lastUpTo(const IBuffer& buffer, unsigned start, Claim claim)
{
  return positionOf(quelmcl::detail::lastWhere(buffer.contents(), start, claim));
}

/// The position of the first byte from `start` on (not 0) that is in the set, or (not `wanted`) is not; or 0.
unsigned firstFrom(const IBuffer& buffer, unsigned start, const ByteSet& set, bool wanted)
{
  const unsigned skipped = start - 1;
  const std::size_t offset =
    quelmcl::detail::findMember(buffer.contents() + skipped, buffer.length() - skipped, set, wanted);
  return offset == nowhere ? 0 : positionOf(skipped + offset);
}

// A test sees a byte as the number that a char is: 0x80 to 0xFF are negative.
auto passes(const IStringTest& test)
{
  return [&test](char byte) { return test.test(static_cast<signed char>(byte)) != 0; };
}

auto fails(const IStringTest& test)
{
  return [&test](char byte) { return test.test(static_cast<signed char>(byte)) == 0; };
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
  const std::size_t offset = quelmcl::detail::findText(contents() + skipped, len - skipped, pSearchString, searchLen);
  return offset == nowhere ? 0 : positionOf(skipped + offset);
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
    return firstFrom(*this, start, ByteSet(pValidChars, numValidChars), true);
  const void* const found =
    std::memchr(contents() + start - 1, static_cast<unsigned char>(*pValidChars), len - start + 1);
  return found == nullptr ? 0 : positionOf(static_cast<std::size_t>(static_cast<const char*>(found) - contents()));
}

unsigned IBuffer::indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  const unsigned start = startSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return start;
  return firstFrom(*this, start, ByteSet(pValidChars, numValidChars), false);
}

unsigned IBuffer::lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  const unsigned start = startBackwardsSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  if (numValidChars > 1)
    return positionOf(quelmcl::detail::findLastMember(contents(), start, ByteSet(pValidChars, numValidChars)));
  const void* const found = memrchr(contents(), static_cast<unsigned char>(*pValidChars), start);
  return found == nullptr ? 0 : positionOf(static_cast<std::size_t>(static_cast<const char*>(found) - contents()));
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
  const unsigned start = startSearch(startPos, 1);
  return start == 0 ? 0 : firstFrom(*this, start, passes(test));
}

unsigned IBuffer::indexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  const unsigned start = startSearch(startPos, 1);
  return start == 0 ? 0 : firstFrom(*this, start, fails(test));
}

unsigned IBuffer::lastIndexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  return lastUpTo(*this, startBackwardsSearch(startPos, 1), passes(test));
}

unsigned IBuffer::lastIndexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  return lastUpTo(*this, startBackwardsSearch(startPos, 1), fails(test));
}
