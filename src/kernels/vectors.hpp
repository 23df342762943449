// vectors.hpp - the loops over bytes that vector instructions speed up, in the widest form that the processor has.
// Tests: tests/kernels/vectors_test.cpp
#ifndef QUELMCL_SRC_KERNELS_VECTORS_HPP
#define QUELMCL_SRC_KERNELS_VECTORS_HPP

#include "kernels/byteset.hpp"
#include "kernels/processor.hpp"
#include "kernels/scan.hpp"

#include <cstddef>
#include <cstdint>

namespace quelmcl::detail {

/// How many words a text has, and how many bytes they have together.
struct WordTotals {
  std::size_t words;
  std::size_t bytes;
};

/// One form of all loops. None reads or writes outside of what it is given.
struct Vectors {
  Instructions needed;

  /// The first of `places` places, from `begin` on, where `first` stands, with `last` so many bytes behind it; nowhere
  /// when there is none. All places with what is behind them are in the text.
  std::size_t (*firstPair)(const char* text, std::size_t places, std::size_t begin, char first, char last,
                           std::size_t distance) noexcept;
  /// For each of 64 places, the first in the lowest bit, whether it is such a one.
  std::uint64_t (*pairs)(const char* text, char first, char last, std::size_t distance) noexcept;
  /// The last such place of `places`.
  std::size_t (*lastPair)(const char* text, std::size_t places, char first, char last, std::size_t distance) noexcept;

  /// The first or last byte that is in the set, or (not `wanted`) is not; nowhere when there is none.
  std::size_t (*firstMember)(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept;
  std::size_t (*lastMember)(const char* text, std::size_t length, const ByteSet& set, bool wanted) noexcept;

  /// How many bytes stand before the first that is not ASCII.
  std::size_t (*asciiPrefix)(const char* text, std::size_t length) noexcept;
  /// How many bytes of a text in UTF-8 continue the characters that begin in its first `places` bytes. What is no sound
  /// character is so many of one byte.
  std::size_t (*utf8Continuations)(const char* text, std::size_t places, std::size_t length) noexcept;
  /// For each of the next 64 bytes, the first in the lowest bit, whether it is white space: tab to carriage return, or blank.
  /// So is what stands behind the text.
  std::uint64_t (*whiteSpace)(const char* text, std::size_t length) noexcept;
  WordTotals (*measureWords)(const char* text, std::size_t length) noexcept;
  /// Copies the words of a text, without anything between them or with one `separator` between any two. They fill
  /// `copyLength` bytes at `copy`; there is one at least.
  void (*copyWords)(const char* text, std::size_t length, char* copy, std::size_t copyLength, bool separated,
                    char separator) noexcept;

  /// Makes the letters A to Z small, or a to z capital.
  void (*lower)(char* text, std::size_t length) noexcept;
  void (*upper)(char* text, std::size_t length) noexcept;
  void (*reverse)(char* text, std::size_t length) noexcept;

  /// Combines each byte with the one at the same place of `other`.
  void (*bitAnd)(char* text, const char* other, std::size_t length) noexcept;
  void (*bitOr)(char* text, const char* other, std::size_t length) noexcept;
  void (*bitExclusiveOr)(char* text, const char* other, std::size_t length) noexcept;
};

/// The length of the narrowest vectors.
inline constexpr std::size_t shortestForVectors = 16;

/// The forms: any processor; sixteen bytes at a time; thirty-two.
extern const Vectors portableVectors;
extern const Vectors ssse3Vectors;
extern const Vectors avx2Vectors;

extern const Forms<Vectors> vectorForms;

/// The form in use.
inline const Vectors& vectors() noexcept
{
  return vectorForms.inUse();
}

/// Vectors::firstMember and lastMember; short texts are not worth a call.
inline std::size_t findMember(const char* text, std::size_t length, const ByteSet& set, bool wanted = true) noexcept
{
  if (length >= shortestForVectors)
    return vectors().firstMember(text, length, set, wanted);
  return firstWhere(text, length, [&](char byte) { return set.has(byte) == wanted; });
}
inline std::size_t findLastMember(const char* text, std::size_t length, const ByteSet& set, bool wanted = true) noexcept
{
  if (length >= shortestForVectors)
    return vectors().lastMember(text, length, set, wanted);
  return lastWhere(text, length, [&](char byte) { return set.has(byte) == wanted; });
}

/// Whether all bytes of a text are in a set; so are those of the empty text.
inline bool hasOnly(const char* text, std::size_t length, const ByteSet& set) noexcept
{
  return findMember(text, length, set, false) == nowhere;
}

}  // namespace quelmcl::detail

#endif
