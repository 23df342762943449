// searchstart.hpp - where a search begins when every byte is a character: the clamps that both kinds of buffer start
// from.
// Tests: tests/buffers/search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_SEARCHSTART_HPP
#define QUELMCL_SRC_BUFFERS_SEARCHSTART_HPP

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

}  // namespace quelmcl::detail

#endif
