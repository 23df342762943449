// scan.hpp - scanning bytes one at a time, forwards and backwards, for whatever question is asked of each.
// Tests: tests/kernels/scan_test.cpp
#ifndef QUELMCL_SRC_KERNELS_SCAN_HPP
#define QUELMCL_SRC_KERNELS_SCAN_HPP

#include <cstddef>

namespace quelmcl::detail {

/// What a search gives instead of an offset when there is nothing to give.
inline constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// The offset of the first byte for which `claim` holds, or nowhere.
template <class Claim>
std::size_t firstWhere(const char* text, std::size_t length, Claim claim)
{
  for (std::size_t offset = 0; offset < length; ++offset)
    if (claim(text[offset]))
      return offset;
  return nowhere;
}

/// The offset of the last byte for which `claim` holds, or nowhere.
template <class Claim>
std::size_t lastWhere(const char* text, std::size_t length, Claim claim)
{
  for (std::size_t offset = length; offset > 0; --offset)
    if (claim(text[offset - 1]))
      return offset - 1;
  return nowhere;
}

}  // namespace quelmcl::detail

#endif
