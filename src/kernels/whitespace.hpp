// whitespace.hpp - what separates words, and where words begin and end, 64 bytes at a time.
// Tests: tests/kernels/whitespace_test.cpp
#ifndef QUELMCL_SRC_KERNELS_WHITESPACE_HPP
#define QUELMCL_SRC_KERNELS_WHITESPACE_HPP

#include "kernels/vectors.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace quelmcl::detail {

/// The characters that separate words: these six in every locale.
inline constexpr char wordSeparators[] = "\t\n\v\f\r ";
inline constexpr unsigned wordSeparatorCount = sizeof wordSeparators - 1;

constexpr bool isWhiteSpace(char byte) noexcept
{
  return byte == ' ' || (byte >= '\t' && byte <= '\r');
}

/// Finds white space and what is none. The text must not change meanwhile. Places that do not decrease cost one pass
/// over the text together.
class WhiteSpaceScan {
public:
  WhiteSpaceScan(const char* scanned, std::size_t lengthOfText) noexcept : text(scanned), length(lengthOfText) {}

  /// The offset of the first byte from `from` on that is white space, or is not; the length when there is none.
  std::size_t firstWhite(std::size_t from) noexcept { return first(from, 0); }
  std::size_t firstOther(std::size_t from) noexcept { return first(from, ~std::uint64_t{0}); }

  /// How many words begin in the whole text.
  std::size_t countWords() noexcept
  {
    std::size_t count = 0;
    std::uint64_t whiteBefore = 1;
    for (std::size_t at = 0; at < length; at += blockSize) {
      lookAt(at);
      count += static_cast<std::size_t>(__builtin_popcountll(~white & (white << 1 | whiteBefore)));
      whiteBefore = white >> (blockSize - 1);
    }
    return count;
  }

private:
  enum : std::size_t { blockSize = 64 };

  /// The first place from `from` on whose bit in the mask differs from `other`'s.
  std::size_t first(std::size_t from, std::uint64_t other) noexcept
  {
    if (from >= length)
      return length;
    lookAt(from / blockSize * blockSize);
    std::uint64_t found = (white ^ other) >> (from % blockSize) << (from % blockSize);
    while (found == 0) {
      if (length - block <= blockSize)
        return length;
      lookAt(block + blockSize);
      found = white ^ other;
    }
    return std::min(block + static_cast<std::size_t>(__builtin_ctzll(found)), length);
  }

  /// Fills the mask for the block at `at`. Behind the text there are blanks.
  void lookAt(std::size_t at) noexcept
  {
    if (at == block)
      return;
    block = at;
    if (length - at >= blockSize) {
      white = vectors().whiteSpace(text + at);
      return;
    }
    char padded[blockSize];
    std::memset(padded, ' ', sizeof padded);
    std::memcpy(padded, text + at, length - at);
    white = vectors().whiteSpace(padded);
  }

  const char* text;
  std::size_t length;
  std::size_t block = nowhere;  // the place of the block that the mask is of
  std::uint64_t white = 0;      // a bit for each byte of it
};

}  // namespace quelmcl::detail

#endif
