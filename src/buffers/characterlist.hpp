// characterlist.hpp - a set of characters given as a text, in which they stand one after the other.
// Tests: tests/buffers/multibyte_search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_CHARACTERLIST_HPP
#define QUELMCL_SRC_BUFFERS_CHARACTERLIST_HPP

#include "buffers/characterset.hpp"
#include "kernels/byteset.hpp"

#include <cstdint>

namespace quelmcl::detail {

/// The list is read up to its count and never beyond: a character that is cut off at its end is so many of one byte.
/// It is cut into its characters once; the text that it is given as must live as long. No storage is asked for.
class CharacterList {
public:
  CharacterList(const CharacterSet& charactersOf, const char* listed, unsigned count);

  /// Whether the character of `length` bytes at `p` is in the list.
  bool has(const char* p, unsigned length) const
  {
    return length == 1 ? oneByteMembers.has(*p) : heads.has(*p) && hasLong(p, length);
  }

  /// Whether the list can be looked for byte by byte: all members have one byte, and none can be a part of a longer
  /// character.
  bool isOfBytes() const noexcept { return ofBytes; }
  /// The members of one byte.
  const ByteSet& bytes() const noexcept { return oneByteMembers; }
  /// What the members begin with, unless the list is of bytes.
  const HeadBytes& headBytes() const noexcept { return heads; }

  /// The list as it was given.
  const char* text() const noexcept { return list; }
  unsigned length() const noexcept { return size; }

private:
  bool hasLong(const char* p, unsigned length) const;
  bool hasLongAmongFew(const char* p, unsigned length) const;
  bool isBoundary(unsigned offset) const;

  enum : unsigned { noted = 256 };  // how many bytes of the list have a note of whether a character begins there

  CharacterSet set;
  const char* list;
  unsigned size;
  ByteSet oneByteMembers;
  HeadBytes heads;
  bool ofBytes;
  unsigned lastNoted;  // a place where a character begins, the last one within the notes
  std::uint32_t boundaries[noted / 32];
};

}  // namespace quelmcl::detail

#endif
