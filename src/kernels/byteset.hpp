// byteset.hpp - a set of bytes as a map of 256 bits: one look a byte, however many members.
// Tests: tests/kernels/byteset_test.cpp
#ifndef QUELMCL_SRC_KERNELS_BYTESET_HPP
#define QUELMCL_SRC_KERNELS_BYTESET_HPP

#include <cstddef>

namespace quelmcl::detail {

/// A bit for every byte, in two tables of 16 rows, as vector instructions look sixteen bytes up at a time: the second
/// table is of the bytes from 0x80 on; the lower four bits of a byte name its row, the next three its place there.
class ByteSet {
public:
  constexpr ByteSet() noexcept = default;
  constexpr ByteSet(const char* members, std::size_t count) noexcept
  {
    for (std::size_t i = 0; i < count; ++i)
      add(members[i]);
  }

  constexpr void add(char byte) noexcept
  {
    rows[row(byte)] = static_cast<unsigned char>(rows[row(byte)] | place(byte));
  }

  constexpr bool has(char byte) const noexcept { return (rows[row(byte)] & place(byte)) != 0; }

  /// The rows of both tables.
  constexpr const unsigned char* tables() const noexcept { return rows; }

private:
  static constexpr unsigned row(char byte) noexcept
  {
    const unsigned value = static_cast<unsigned char>(byte);
    return (value >> 3 & 0x10) | (value & 0x0F);
  }
  static constexpr unsigned place(char byte) noexcept { return places[static_cast<unsigned char>(byte) >> 4]; }

  static constexpr unsigned char places[16] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
  unsigned char rows[32] = {};
};

}  // namespace quelmcl::detail

#endif
