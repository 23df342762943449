// whitespace.hpp - what separates words, and where words begin and end, 64 bytes at a time.
// Tests: tests/kernels/whitespace_test.cpp
#ifndef QUELMCL_SRC_KERNELS_WHITESPACE_HPP
#define QUELMCL_SRC_KERNELS_WHITESPACE_HPP

#include "kernels/vectors.hpp"

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace quelmcl::detail {

/// The characters that separate words: these six in every locale.
inline constexpr char wordSeparators[] = "\t\n\v\f\r ";
inline constexpr unsigned wordSeparatorCount = sizeof wordSeparators - 1;

constexpr bool isWhiteSpace(char byte) noexcept
{
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// The number of the lowest bit set; there is one. By halves, since 32-bit code would call a function for the whole.
inline unsigned lowestBit(std::uint64_t mask) noexcept
{
  const std::uint32_t low = static_cast<std::uint32_t>(mask);
  const std::uint32_t high = static_cast<std::uint32_t>(mask >> 32);
  return static_cast<unsigned>(low != 0 ? __builtin_ctz(low) : 32 + __builtin_ctz(high));
}

/// Calls `visit` with every place of a text where a word begins and with every one where it ends, in turns.
template <class Visit>
void forEachWordEdge(const char* text, std::size_t length, Visit visit)
{
  constexpr std::size_t blockSize = 64;
  std::uint64_t whiteBefore = 1;
  for (std::size_t at = 0; at < length; at += blockSize) {
    const std::uint64_t white = vectors().whiteSpace(text + at, length - at);
    const std::uint64_t edges = white ^ (white << 1 | whiteBefore);
    whiteBefore = white >> (blockSize - 1);
    for (const unsigned half : {0u, 32u})
      for (std::uint32_t left = static_cast<std::uint32_t>(edges >> half); left != 0; left &= left - 1)
        visit(at + half + static_cast<unsigned>(__builtin_ctz(left)));
  }
  if (whiteBefore == 0)
    visit(length);
}

/// The places of a text where words begin and end, one after the other. The text must not change meanwhile. Cost: one
/// pass over it together.
class WordEdges {
public:
  /// From `from` on; what stands before it is taken for white space.
  WordEdges(const char* scanned, std::size_t lengthOfText, std::size_t from) noexcept
    : text(scanned), length(lengthOfText), block(from / blockSize * blockSize)
  {
    const std::uint64_t whiteBefore = (std::uint64_t{1} << (from % blockSize)) - 1;
    lookAt(block, whiteBefore);
  }

  /// The beginning of a word, or the end of the one that began at the place given last; the length of the text when there
  /// is no more word.
  std::size_t next() noexcept
  {
    while (edges == 0) {
      if (length - block <= blockSize)
        return length;
      block += blockSize;
      lookAt(block, 0);
    }
    const std::size_t edge = block + lowestBit(edges);
    edges &= edges - 1;
    return edge;
  }

  /// What so many calls of next() do. Edges are counted, and only those of the last block told apart.
  void skip(std::size_t count) noexcept
  {
    while (count > 0 && bitCount(edges) <= count) {
      count -= bitCount(edges);
      edges = 0;
      if (length - block <= blockSize)
        return;
      block += blockSize;
      lookAt(block, 0);
    }
    for (; count > 0; --count)
      edges &= edges - 1;
  }

private:
  enum : std::size_t { blockSize = 64 };

  static std::size_t bitCount(std::uint64_t mask) noexcept
  {
    return static_cast<std::size_t>(__builtin_popcountll(mask));
  }

  void lookAt(std::size_t at, std::uint64_t alsoWhite) noexcept
  {
    const std::uint64_t white = vectors().whiteSpace(text + at, length - at) | alsoWhite;
    edges = white ^ (white << 1 | lastWasWhite);
    lastWasWhite = white >> (blockSize - 1);
  }

  const char* text;
  std::size_t length;
  std::size_t block;
  std::uint64_t edges = 0;         // of the block, those not given yet: bytes unlike the one before them
  std::uint64_t lastWasWhite = 1;  // the last byte of the block before, or what stands before the text
};

}  // namespace quelmcl::detail

#endif
