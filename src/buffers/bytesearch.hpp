// bytesearch.hpp - searches in which every byte is a character: where they begin, and what they find, for both kinds of
// buffer.
// Tests: tests/buffers/search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_BYTESEARCH_HPP
#define QUELMCL_SRC_BUFFERS_BYTESEARCH_HPP

#include <quelmcl/istrtest.hpp>

#include "kernels/scan.hpp"
#include "kernels/vectors.hpp"

#include <algorithm>

namespace quelmcl::detail {

/// The position where a forward search for `searchLen` bytes begins in `length` bytes, or 0 when there is no room for
/// them.
inline unsigned forwardStart(unsigned length, unsigned startPos, unsigned searchLen)
{
  const unsigned start = std::max(startPos, 1u);
  return start > length || searchLen > length - start + 1 ? 0 : start;
}

/// The position where a backward search for `searchLen` bytes begins in `length` bytes, or 0 when there is no room
/// for them. Deliberate: a backward search from 0 finds nothing, unlike a forward one.  Test:
/// BackwardSearch.FromZeroFindsNothing
inline unsigned backwardStart(unsigned length, unsigned startPos, unsigned searchLen)
{
  return searchLen > length ? 0 : std::min({startPos, length, length - searchLen + 1});
}

/// The 1-based position of an offset, 0 for nowhere.
inline unsigned positionOf(std::size_t offset)
{
  static_assert(nowhere + 1 == 0, "nowhere becomes position 0");
  return static_cast<unsigned>(offset + 1);
}

/// The position of an offset that was found behind the first `skipped` bytes; 0 for nowhere.
inline unsigned positionBehind(unsigned skipped, std::size_t offset)
{
  return offset == nowhere ? 0 : positionOf(skipped + offset);
}

/// The position of the first byte from the position `start` on for which `claim` holds, or 0; always 0 for a start of 0.
template <class Claim>
unsigned firstByte(const char* text, unsigned length, unsigned start, Claim claim)
{
  if (start == 0)
    return 0;
  const unsigned skipped = start - 1;
  return positionBehind(skipped, firstWhere(text + skipped, length - skipped, claim));
}

/// The same for a byte that is in the set, or (not `wanted`) is not.
inline unsigned firstByte(const char* text, unsigned length, unsigned start, const ByteSet& set, bool wanted)
{
  if (start == 0)
    return 0;
  const unsigned skipped = start - 1;
  return positionBehind(skipped, findMember(text + skipped, length - skipped, set, wanted));
}

/// A test sees a byte as the number that a char is: 0x80 to 0xFF are negative.
inline bool passes(const IStringTest& test, char byte)
{
  return test.test(static_cast<signed char>(byte)) != 0;
}

}  // namespace quelmcl::detail

#endif
