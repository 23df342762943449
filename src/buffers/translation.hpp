// translation.hpp - which character becomes which, when characters may have several bytes.
// Tests: tests/buffers/multibyte_editing_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_TRANSLATION_HPP
#define QUELMCL_SRC_BUFFERS_TRANSLATION_HPP

#include "buffers/characterset.hpp"

#include <cstdint>
#include <cstring>
#include <vector>

namespace quelmcl::detail {

/// A character of the input list and what it becomes. No character is longer than 16 bytes.
struct transTable {
  char in[16];
  char out[16];
  std::uint8_t inLen;
  std::uint8_t outLen;
  std::int32_t difference;
};

/// The lists of a translation, paired. An input character beyond the output list becomes the pad character; of a
/// character listed twice, the first place counts. The lists are read up to their counts and never beyond.
class Translation {
public:
  Translation(const CharacterSet& set, const char* input, unsigned inputLen, const char* output, unsigned outputLen,
              char padCharacter)
  {
    List in = {set, input, inputLen};
    List out = {set, output, outputLen};
    while (in.left > 0) {
      transTable entry = {};
      entry.inLen = in.take(entry.in);
      entry.out[0] = padCharacter;
      entry.outLen = out.left > 0 ? out.take(entry.out) : std::uint8_t{1};
      entry.difference = entry.outLen - entry.inLen;
      ofBytes = ofBytes && entry.outLen == 1 && set.isWholeAnywhere(entry.in[0]);
      hasDifferences = hasDifferences || entry.difference != 0;
      heads.add(entry.in[0]);
      entries.push_back(entry);
    }
    for (std::size_t i = entries.size(); i > 0; --i)  // backwards, so that the first place of a byte is noted last
      if (entries[i - 1].inLen == 1)
        entryOfByte[static_cast<unsigned char>(entries[i - 1].in[0])] = static_cast<std::uint32_t>(i);
  }

  /// Whether bytes become bytes, and no byte of a longer character is meant.
  bool isOfBytes() const noexcept { return ofBytes; }
  /// Whether every character has as many bytes as what it becomes.
  bool keepsLengths() const noexcept { return !hasDifferences; }
  /// What the input characters begin with.
  const HeadBytes& headBytes() const noexcept { return heads; }

  /// What becomes of the character of `length` bytes at `p`; null when it stays.
  const transTable* entryFor(const char* p, unsigned length) const
  {
    if (length == 1) {
      const std::uint32_t place = entryOfByte[static_cast<unsigned char>(*p)];
      return place == 0 ? nullptr : &entries[place - 1];
    }
    for (const transTable& entry : entries)
      if (entry.inLen == length && std::memcmp(entry.in, p, length) == 0)
        return &entry;
    return nullptr;
  }

private:
  /// The characters of a list, taken one after the other.
  struct List {
    const CharacterSet& set;
    const char* next;
    unsigned left;

    std::uint8_t take(char* to)
    {
      const unsigned length = set.lengthWithin(next, left);
      std::memcpy(to, next, length);
      next += length;
      left -= length;
      return static_cast<std::uint8_t>(length);
    }
  };

  std::vector<transTable> entries;
  std::uint32_t entryOfByte[256] = {};  // counted from 1
  HeadBytes heads;
  bool hasDifferences = false;
  bool ofBytes = true;
};

}  // namespace quelmcl::detail

#endif
