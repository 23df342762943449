// characterlist.cpp - a set of characters given as a text.
// Tests: tests/buffers/multibyte_search_test.cpp
#include "buffers/characterlist.hpp"

#include "kernels/textsearch.hpp"

#include <cstring>

namespace quelmcl::detail {

CharacterList::CharacterList(const CharacterSet& charactersOf, const char* listed, std::size_t count)
  : set(charactersOf), list(listed), size(count), hasLongMembers(false), ofBytes(set.isSingleByte() || set.isUtf8())
{
  for (std::size_t offset = 0; offset < size;) {
    const unsigned length = set.lengthWithin(list + offset, size - offset);
    if (length == 1)
      oneByteMembers.add(list[offset]);
    else
      hasLongMembers = true;
    const bool isAscii = static_cast<unsigned char>(list[offset]) < 0x80;
    ofBytes = ofBytes && (isAscii || set.isSingleByte());
    offset += length;
  }
}

bool CharacterList::hasLong(const char* p, unsigned length) const
{
  if (set
        .isUtf8())  // wherever a sound character stands among the bytes of the list, it is one of the list's characters
    return findText(list, size, p, length) != nowhere;
  for (std::size_t offset = 0; offset + length <= size;) {
    const unsigned lengthOfMember = set.lengthWithin(list + offset, size - offset);
    if (lengthOfMember == length && std::memcmp(list + offset, p, length) == 0)
      return true;
    offset += lengthOfMember;
  }
  return false;
}

}  // namespace quelmcl::detail
