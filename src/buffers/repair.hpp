// repair.hpp - overwrites what an edit has left of characters that it cut.
// Tests: tests/buffers/multibyte_editing_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_REPAIR_HPP
#define QUELMCL_SRC_BUFFERS_REPAIR_HPP

#include <quelmcl/ibuffer.hpp>

#include "buffers/characterset.hpp"

#include <algorithm>
#include <cstring>

namespace quelmcl::detail {

/// The result of an edit, seen beside the text that it was made of. Offsets that do not decrease cost one pass over
/// that text.
class Repair {
public:
  Repair(const IBuffer& source, IBuffer* result)
    : length(source.length()), walk(CharacterSet::current(), source.contents()), edited(result->contents())
  {
  }

  /// The text was cut off at `offset`, and the part kept, of `kept` bytes at most, ends at `editedOffset` of the
  /// result: overwrites what is left there of the character cut.
  void cutAtEnd(unsigned offset, unsigned editedOffset, unsigned kept, char filler)
  {
    if (offset >= length)
      return;
    const unsigned left = std::min(offset - static_cast<unsigned>(walk.holding(offset).offset), kept);
    std::memset(edited + (editedOffset - left), filler, left);
  }

  /// The text is kept from `offset` on, `kept` bytes at most, and that part begins at `editedOffset` of the result:
  /// overwrites what is left there of the character cut.
  void cutAtFront(unsigned offset, unsigned editedOffset, unsigned kept, char filler)
  {
    if (offset >= length)
      return;
    const Character at = walk.holding(offset);
    if (at.offset < offset)
      std::memset(edited + editedOffset, filler, std::min(static_cast<unsigned>(at.end()) - offset, kept));
  }

private:
  unsigned length;
  CharacterWalk walk;
  char* edited;
};

}  // namespace quelmcl::detail

#endif
