// byteset.hpp - a set of bytes as a map of 256 bits: one look a byte, however many members.
// Tests: tests/kernels/byteset_test.cpp
#ifndef QUELMCL_SRC_KERNELS_BYTESET_HPP
#define QUELMCL_SRC_KERNELS_BYTESET_HPP

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

class ByteSet {
public:
  ByteSet() noexcept = default;
  ByteSet(const char* members, std::size_t count) noexcept
  {
    for (std::size_t i = 0; i < count; ++i)
      add(members[i]);
  }

  void add(char byte) noexcept { words[word(byte)] |= bit(byte); }

  bool has(char byte) const noexcept { return (words[word(byte)] & bit(byte)) != 0; }

private:
  static std::size_t word(char byte) noexcept { return static_cast<unsigned char>(byte) >> 5; }
  static std::uint32_t bit(char byte) noexcept { return std::uint32_t{1} << (static_cast<unsigned char>(byte) & 31); }

  std::uint32_t words[8] = {};
};

}  // namespace quelmcl::detail

#endif
