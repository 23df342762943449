// gathering.hpp - which of eight bytes to take, for vector instructions that put them side by side.
// Tests: tests/kernels/vectors_test.cpp
#ifndef QUELMCL_SRC_KERNELS_GATHERING_HPP
#define QUELMCL_SRC_KERNELS_GATHERING_HPP

namespace quelmcl::detail {

/// For each mask of eight bits the numbers of those that are set, from the lowest on, and how many they are.
struct Gatherings {
  constexpr Gatherings() noexcept
  {
    for (unsigned mask = 0; mask < 256; ++mask)
      for (unsigned bit = 0; bit < 8; ++bit)
        if ((mask >> bit & 1) != 0)
          places[mask][counts[mask]++] = static_cast<unsigned char>(bit);
  }

  unsigned char places[256][8] = {};
  unsigned char counts[256] = {};
};

inline constexpr Gatherings gatherings;

}  // namespace quelmcl::detail

#endif
