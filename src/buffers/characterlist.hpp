// characterlist.hpp - a set of characters given as a text, in which they stand one after the other.
// Tests: tests/buffers/multibyte_search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_CHARACTERLIST_HPP
#define QUELMCL_SRC_BUFFERS_CHARACTERLIST_HPP

#include "buffers/characterset.hpp"
#include "kernels/byteset.hpp"

namespace quelmcl::detail {

/// The list is read up to its count and never beyond: a character that is cut off at its end is so many of one byte.
class CharacterList {
public:
  CharacterList(const CharacterSet& charactersOf, const char* listed, std::size_t count);

  /// Whether the character of `length` bytes at `p` is in the list.
  bool has(const char* p, unsigned length) const
  {
    return length == 1 ? oneByteMembers.has(*p) : hasLongMembers && hasLong(p, length);
  }

  /// Whether the list can be looked for byte by byte: none of its members can be a part of a longer character.
  bool isOfBytes() const noexcept { return ofBytes; }
  /// The members of one byte.
  const ByteSet& bytes() const noexcept { return oneByteMembers; }

private:
  bool hasLong(const char* p, unsigned length) const;

  CharacterSet set;
  const char* list;
  std::size_t size;
  ByteSet oneByteMembers;
  bool hasLongMembers;
  bool ofBytes;
};

}  // namespace quelmcl::detail

#endif
