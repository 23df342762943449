// ibuffer2.cpp - IBuffer, comparison. (Digit 2 is always comparison: docs/architecture.md)
// Tests: tests/buffers/comparison_test.cpp
#include <quelmcl/ibuffer.hpp>

#include <algorithm>
#include <cstring>

IBuffer::Comparison IBuffer::compare(const void* p, unsigned n) const
{
  if (p == nullptr)
    return greaterThan;
  if (p == contents() && n == len)
    return equal;
  const unsigned common = std::min(len, n);
  const int difference = common == 0 ? 0 : std::memcmp(contents(), p, common);
  if (difference != 0)
    return difference < 0 ? lessThan : greaterThan;
  if (len == n)
    return equal;
  return len < n ? lessThan : greaterThan;
}
