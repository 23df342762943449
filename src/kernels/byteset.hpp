// byteset.hpp - a set of bytes as a map of 256 bits: one look a byte, however many members.
// Tests: tests/kernels/byteset_test.cpp
#ifndef QUELMCL_SRC_KERNELS_BYTESET_HPP
#define QUELMCL_SRC_KERNELS_BYTESET_HPP

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

/// A bit for every byte, twice: in words, where one byte is looked up quickest, and in two tables of 16 rows, where vector
/// instructions look up sixteen at a time. The second table is of the bytes from 0x80 on; the lower four bits of a byte
/// name its row, the next three its place there.
class ByteSet {
public:
  ByteSet() noexcept = default;
  ByteSet(const char* members, std::size_t count) noexcept
  {
    for (std::size_t i = 0; i < count; ++i)
      add(members[i]);
  }

  void add(char byte) noexcept
  {
    const unsigned value = static_cast<unsigned char>(byte);
    words[value >> 5] |= std::uint32_t{1} << (value & 31);
    unsigned char& row = rows[(value >> 3 & 0x10) | (value & 0x0F)];
    row = static_cast<unsigned char>(row | 1u << (value >> 4 & 7));
  }

  bool has(char byte) const noexcept
  {
    const unsigned value = static_cast<unsigned char>(byte);
    return (words[value >> 5] >> (value & 31) & 1) != 0;
  }

  /// The rows of both tables.
  const unsigned char* tables() const noexcept { return rows; }

private:
  std::uint32_t words[8] = {};
  unsigned char rows[32] = {};
};

}  // namespace quelmcl::detail

#endif
