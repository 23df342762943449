// words.hpp - reads the words of a text one after the other, through the searches of its buffer.
#ifndef QUELMCL_SRC_STRINGS_WORDS_HPP
#define QUELMCL_SRC_STRINGS_WORDS_HPP

#include "buffers/forwardsearch.hpp"

namespace quelmcl::detail {

/// The characters that separate words: these six in every locale.
inline constexpr char whiteSpace[] = "\t\n\v\f\r ";
inline constexpr unsigned whiteSpaceCount = sizeof whiteSpace - 1;

/// A word of a text: where it begins (1-based) and how many bytes it has. No word has position and length 0.
struct Word {
  unsigned pos;
  unsigned len;
};

/// Goes over the words of a text from a position on. The buffer must not change meanwhile.
class WordReader {
public:
  explicit WordReader(const IBuffer& read, unsigned startPos = 1)
    : text(read), search(read), separators(search.listOf(whiteSpace, whiteSpaceCount)), from(startPos)
  {
  }

  /// The next word, or position 0 when there is none.
  Word next()
  {
    const unsigned start = from == 0 ? 0 : search.indexOfAnyBut(separators, from);
    if (start == 0) {
      from = 0;
      return {0, 0};
    }
    from = search.indexOfAnyOf(separators, start);
    const unsigned end = from == 0 ? text.length() + 1 : from;
    return {start, end - start};
  }

private:
  const IBuffer& text;
  ForwardSearch search;
  CharacterList separators;
  unsigned from;
};

}  // namespace quelmcl::detail

#endif
