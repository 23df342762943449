// shortbytes.hpp - copies and compares bytes of which there are mostly few, where a call of the C library would cost more
// than the work.
// Tests: tests/kernels/shortbytes_test.cpp
#ifndef QUELMCL_SRC_KERNELS_SHORTBYTES_HPP
#define QUELMCL_SRC_KERNELS_SHORTBYTES_HPP

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace quelmcl::detail {

/// A number of so many bytes as a text has them, and no more.
template <class Word>
Word wordAt(const char* bytes) noexcept
{
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// Copies a word or two of them, by two words that overlap. The texts may overlap, too.
template <class Word>
void copyTwoWords(char* to, const char* from, std::size_t length) noexcept
{
  const Word first = wordAt<Word>(from);
  const Word last = wordAt<Word>(from + length - sizeof(Word));
  std::memcpy(to, &first, sizeof first);
  std::memcpy(to + length - sizeof last, &last, sizeof last);
}

/// Whether texts of a word or two of them are the same.
template <class Word>
bool areSameTwoWords(const char* a, const char* b, std::size_t length) noexcept
{
  const std::size_t last = length - sizeof(Word);
  return ((wordAt<Word>(a) ^ wordAt<Word>(b)) | (wordAt<Word>(a + last) ^ wordAt<Word>(b + last))) == 0;
}

/// Copies any number of bytes and returns the place behind them. Neither pointer is looked at for none.
inline char* copyBytes(char* to, const char* from, std::size_t length) noexcept
{
  if (length > 16)
    std::memcpy(to, from, length);
  else if (length >= 8)
    copyTwoWords<std::uint64_t>(to, from, length);
  else if (length >= 4)
    copyTwoWords<std::uint32_t>(to, from, length);
  else if (length >= 2)
    copyTwoWords<std::uint16_t>(to, from, length);
  else if (length == 1)
    *to = *from;
  return to + length;
}

/// Whether any number of bytes are the same. Neither pointer is looked at for none.
inline bool areSame(const char* a, const char* b, std::size_t length) noexcept
{
  if (length > 16)
    return std::memcmp(a, b, length) == 0;
  if (length >= 8)
    return areSameTwoWords<std::uint64_t>(a, b, length);
  if (length >= 4)
    return areSameTwoWords<std::uint32_t>(a, b, length);
  if (length >= 2)
    return areSameTwoWords<std::uint16_t>(a, b, length);
  return length == 0 || *a == *b;
}

}  // namespace quelmcl::detail

#endif
