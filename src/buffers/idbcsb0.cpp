// idbcsb0.cpp - IDBCSBuffer, life cycle. (Digit 0 is always the life cycle: docs/architecture.md)
// Tests: tests/buffers/life_cycle_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/kinds.hpp"

const char quelmcl::detail::multiByteKind[] = "IDBCSBuffer";

IDBCSBuffer::IDBCSBuffer(unsigned newLen) noexcept : IBuffer(newLen) {}

IDBCSBuffer::~IDBCSBuffer() = default;

IBuffer* IDBCSBuffer::allocate(unsigned newLen) const
{
  return new (newLen) IDBCSBuffer(newLen);
}

const char* IDBCSBuffer::className() const
{
  return quelmcl::detail::multiByteKind;
}
