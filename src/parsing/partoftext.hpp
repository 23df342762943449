// partoftext.hpp - the words of a part of a text, for templates.
// Tests: tests/parsing/parser_test.cpp
#ifndef QUELMCL_SRC_PARSING_PARTOFTEXT_HPP
#define QUELMCL_SRC_PARSING_PARTOFTEXT_HPP

#include <quelmcl/istring.hpp>

#include "buffers/forwardsearch.hpp"
#include "kernels/whitespace.hpp"

#include <algorithm>
#include <optional>

namespace quelmcl::detail {

/// Whether a text is of the kind in which every byte is a character, and searched as we search it.
inline bool isOfBytes(const IString& text)
{
  return isOwnSingleByte(*IBuffer::fromContents(text));
}

/// Takes words out of the part of a text before the place `behind`. One that follows the other from left to right shares
/// its pass over the text, which counts where only the front tells the characters.
class PartOfText {
public:
  /// Where a word begins (0 for none), where it ends, and where to go on, one white-space character behind it.
  struct Word {
    unsigned length() const { return static_cast<unsigned>(end - start); }

    unsigned long start, end, next;
  };

  PartOfText(const IString& whole, unsigned long behindPart) : text(whole), behind(behindPart)
  {
    if (isOfBytes(text))
      return;
    search.emplace(*IBuffer::fromContents(text));
    separators.emplace(search->listOf(wordSeparators, wordSeparatorCount));
  }

  Word wordFrom(unsigned long from)
  {
    const unsigned long found = from < behind ? firstByte(from, false) : 0;
    const unsigned long start = found < behind ? found : 0;
    const unsigned long space = start == 0 ? 0 : firstByte(start, true);
    const bool isLast = space == 0 || space >= behind;
    return {start, isLast ? behind : space, isLast ? behind : space + 1};
  }

private:
  /// The position of the first byte from `from` on that is white space, or is not; 0 when there is none.
  unsigned long firstByte(unsigned long from, bool wantsWhiteSpace)
  {
    if (!search) {  // most words end so near that no search pays
      constexpr unsigned long near = 24;
      const char* const bytes = text;
      for (const unsigned long nearEnd = std::min(from + near, text.length() + 1ul); from < nearEnd; ++from)
        if (isWhiteSpace(bytes[from - 1]) == wantsWhiteSpace)
          return from;
    }
    if (from > text.length())
      return 0;
    const unsigned start = static_cast<unsigned>(from);
    if (search)
      return wantsWhiteSpace ? search->indexOfAnyOf(*separators, start) : search->indexOfAnyBut(*separators, start);
    return wantsWhiteSpace ? text.indexOfAnyOf(wordSeparators, start) : text.indexOfAnyBut(wordSeparators, start);
  }

  const IString& text;
  const unsigned long behind;
  std::optional<ForwardSearch> search;  // where characters may have several bytes
  std::optional<CharacterList> separators;
};

}  // namespace quelmcl::detail

#endif
