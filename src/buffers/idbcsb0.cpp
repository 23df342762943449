// idbcsb0.cpp - IDBCSBuffer, life cycle. (Digit 0 is always the life cycle: docs/architecture.md)
// Tests: tests/buffers/life_cycle_test.cpp
#include <quelmcl/idbcsb.hpp>

IDBCSBuffer::IDBCSBuffer(unsigned newLen) noexcept : IBuffer(newLen) {}

IDBCSBuffer::~IDBCSBuffer() = default;

IBuffer* IDBCSBuffer::allocate(unsigned newLen) const
{
  return new (newLen) IDBCSBuffer(newLen);
}

const char* IDBCSBuffer::className() const
{
  return "IDBCSBuffer";
}
