// editing.hpp - what the editing operations of both kinds of buffer have in common.
// Tests: tests/buffers/editing_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_EDITING_HPP
#define QUELMCL_SRC_BUFFERS_EDITING_HPP

#include "buffers/pieces.hpp"

namespace quelmcl::detail {

/// What is to be written to in place of `buffer`: itself, with one more reference, when it has a sole owner, else a
/// copy.
inline IBuffer* editable(IBuffer* buffer)
{
  if (buffer->useCount() < 2)
    return buffer->addRef();
  return newBufferOf(*buffer, buffer->contents(), buffer->length());
}

/// Strips with the two searches that say where the first and the last character to keep are.
template <class FirstKept, class LastKept>
IBuffer* stripEnds(IBuffer* buffer, IStringEnum::StripMode mode, FirstKept firstKept, LastKept lastKept)
{
  const unsigned length = buffer->length();
  if (length == 0)
    return buffer->addRef();
  const unsigned first = mode == IStringEnum::trailing ? 1 : firstKept();
  if (first == 0)
    return buffer->null()->addRef();
  const unsigned last = mode == IStringEnum::leading ? length : lastKept();
  if (first == 1 && last == length)
    return buffer->addRef();
  return newBufferOf(*buffer, buffer->contents() + (first - 1), last - (first - 1));
}

}  // namespace quelmcl::detail

#endif
