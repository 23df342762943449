// characterlist.cpp - a set of characters given as a text.
// Tests: tests/buffers/multibyte_search_test.cpp
#include "buffers/characterlist.hpp"

#include "kernels/textsearch.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace quelmcl::detail {

namespace {

/// The first two bytes of a character, to be compared at once.
inline std::uint16_t firstTwo(const char* p) noexcept
{
  std::uint16_t two;
  std::memcpy(&two, p, sizeof two);
  return two;
}

}  // namespace

CharacterList::CharacterList(const CharacterSet& charactersOf, const char* listed, unsigned count)
  : set(charactersOf), list(listed), size(count), ofBytes(set.isSelfSynchronizing()), lastNoted(0), boundaries{}
{
  unsigned offset = 0;
  while (offset < count && set.isWholeAnywhere(listed[offset]))
    oneByteMembers.add(listed[offset++]);
  if (offset == count && ofBytes)
    return;  // as most lists do, of which nothing more is asked

  heads = HeadBytes(oneByteMembers);
  while (offset < count) {
    if (offset < noted) {
      boundaries[offset / 32] |= std::uint32_t{1} << (offset % 32);
      lastNoted = offset;
    }
    const unsigned length = set.lengthWithin(list + offset, size - offset);
    heads.add(list[offset]);
    if (length == 1)
      oneByteMembers.add(list[offset]);
    ofBytes = ofBytes && (isAscii(list[offset]) || set.isSingleByte());
    offset += length;
  }
}

// Its bytes are looked for, which is quick; where they stand, the list has this character or others that it is made of
// parts of.
bool CharacterList::hasLong(const char* p, unsigned length) const
{
  constexpr unsigned few = 32;
  if (size <= few)  // a search would take longer to begin than all of this
    return hasLongAmongFew(p, length);
  TextSearch<Forward> search(list, size, p, length);
  for (std::size_t found = search.next(); found != nowhere; found = search.next())
    if (set.isUtf8() || isBoundary(static_cast<unsigned>(found)))
      return true;
  return false;
}

inline bool CharacterList::hasLongAmongFew(const char* p, unsigned length) const
{
  for (unsigned offset = 0; offset + length <= size; ++offset)
    if (firstTwo(list + offset) == firstTwo(p) && std::equal(p + 2, p + length, list + offset + 2) &&
        (set.isUtf8() || isBoundary(offset)))
      return true;
  return false;
}

/// Whether a character of the list begins at `offset`.
bool CharacterList::isBoundary(unsigned offset) const
{
  if (offset < noted)
    return (boundaries[offset / 32] >> (offset % 32) & 1) != 0;
  unsigned at = lastNoted;
  while (at < offset)
    at += set.lengthWithin(list + at, size - at);
  return at == offset;
}

}  // namespace quelmcl::detail
