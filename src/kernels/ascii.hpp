// ascii.hpp - the bytes that mean the same in every character set.
// Tests: tests/kernels/ascii_test.cpp
#ifndef QUELMCL_SRC_KERNELS_ASCII_HPP
#define QUELMCL_SRC_KERNELS_ASCII_HPP

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quelmcl::detail {

constexpr bool isAscii(char byte) noexcept
{
  return static_cast<unsigned char>(byte) < 0x80;
}

/// How many bytes are looked at together.
inline constexpr std::size_t asciiBlock = 8;

/// Whether the block at `p` is ASCII throughout; the block is put into `block`.
inline bool isAsciiBlock(const char* p, std::uint64_t& block) noexcept
{
  static_assert(sizeof block == asciiBlock, "a block is one number");
  std::memcpy(&block, p, sizeof block);
  return (block & 0x8080808080808080u) == 0;
}

/// How many of the `length` bytes at `p` stand before the first that is not ASCII.
inline std::size_t asciiPrefix(const char* p, std::size_t length) noexcept
{
  std::size_t passed = 0;
  for (std::uint64_t block; passed + asciiBlock <= length && isAsciiBlock(p + passed, block);)
    passed += asciiBlock;
  while (passed < length && isAscii(p[passed]))
    ++passed;
  return passed;
}

/// Writes the ASCII bytes that the text from `from` to `end` begins with in reverse, so that they end at `to`, as far
/// as they fill whole blocks. Returns how many bytes that were.
inline std::size_t reverseAsciiBlocks(const char* from, const char* end, char* to) noexcept
{
  const char* at = from;
  for (std::uint64_t block; end - at >= std::ptrdiff_t{asciiBlock} && isAsciiBlock(at, block); at += asciiBlock) {
    block = __builtin_bswap64(block);
    to -= asciiBlock;
    std::memcpy(to, &block, sizeof block);
  }
  return static_cast<std::size_t>(at - from);
}

}  // namespace quelmcl::detail

#endif
