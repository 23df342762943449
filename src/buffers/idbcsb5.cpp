// idbcsb5.cpp - IDBCSBuffer, substrings. (Digit 5 is always substrings: docs/architecture.md)
// Tests: tests/buffers/multibyte_editing_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/repair.hpp"

IBuffer* IDBCSBuffer::subString(unsigned startPos, unsigned length, char padCharacter) const
{
  IBuffer* const result = IBuffer::subString(startPos, length, padCharacter);
  const unsigned start = std::max(startPos, 1u);
  if (start > len)
    return result;
  quelmcl::detail::Repair repair(*this, result);
  const unsigned kept = start - 1;
  repair.cutAtFront(kept, 0, length, padCharacter);
  if (length < len - kept)
    repair.cutAtEnd(kept + length, length, length, padCharacter);
  return result;
}
