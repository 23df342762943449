// words.hpp - reads the words of a text one after the other, through the searches of its buffer.
#ifndef QUELMCL_SRC_STRINGS_WORDS_HPP
#define QUELMCL_SRC_STRINGS_WORDS_HPP

#include "buffers/forwardsearch.hpp"
#include "kernels/whitespace.hpp"

#include <optional>

namespace quelmcl::detail {

/// A word of a text: where it begins (1-based) and how many bytes it has. No word has position and length 0.
struct Word {
  unsigned pos;
  unsigned len;
};

/// Goes over the words of a text from a position on. The buffer must not change meanwhile.
class WordReader {
public:
  explicit WordReader(const IBuffer& read, unsigned startPos = 1)
    : text(read), search(read), bytes(read.contents(), read.length()), from(startPos)
  {
    if (search.findsAsciiByBytes())
      from = search.start(startPos);
    else
      separators.emplace(search.listOf(wordSeparators, wordSeparatorCount));
  }

  /// The next word, or position 0 when there is none.
  Word next() { return separators ? nextOfCharacters() : nextOfBytes(); }

  /// How many words there are from here on, all of them when none has been read yet. Nothing is left to read then.
  unsigned long countRest()
  {
    if (!separators && from <= 1)
      return bytes.countWords();
    unsigned long count = 0;
    while (next().pos != 0)
      ++count;
    return count;
  }

private:
  Word nextOfBytes()
  {
    const std::size_t begin = from == 0 ? text.length() : bytes.firstOther(from - 1);
    if (begin == text.length()) {
      from = 0;
      return {0, 0};
    }
    const std::size_t end = bytes.firstWhite(begin);
    from = static_cast<unsigned>(end + 1);
    return {static_cast<unsigned>(begin + 1), static_cast<unsigned>(end - begin)};
  }

  Word nextOfCharacters()
  {
    const unsigned start = from == 0 ? 0 : search.indexOfAnyBut(*separators, from);
    if (start == 0) {
      from = 0;
      return {0, 0};
    }
    from = search.indexOfAnyOf(*separators, start);
    const unsigned end = from == 0 ? text.length() + 1 : from;
    return {start, end - start};
  }

  const IBuffer& text;
  ForwardSearch search;
  std::optional<CharacterList> separators;  // none where white space is found by looking at bytes
  WhiteSpaceScan bytes;
  unsigned from;
};

}  // namespace quelmcl::detail

#endif
