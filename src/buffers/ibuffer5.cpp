// ibuffer5.cpp - IBuffer, substrings. (Digit 5 is always substrings: docs/architecture.md)
// Tests: tests/buffers/substring_test.cpp
#include <quelmcl/ibuffer.hpp>

#include "buffers/pieces.hpp"

#include <algorithm>

IBuffer* IBuffer::subString(unsigned startPos, unsigned length, char padCharacter) const
{
  const unsigned start = std::max(startPos, 1u);
  const unsigned available = start <= len ? len - start + 1 : 0;
  const unsigned taken = std::min(length, available);
  const char* const first = taken > 0 ? contents() + (start - 1) : nullptr;
  if (taken == length)
    return quelmcl::detail::newBufferOf(*this, first, length);
  return newBuffer(first, taken, nullptr, length - taken, nullptr, 0, padCharacter);
}
