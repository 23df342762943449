// words.hpp - reads the words of a text one after the other, through the searches of its buffer.
#ifndef QUELMCL_SRC_STRINGS_WORDS_HPP
#define QUELMCL_SRC_STRINGS_WORDS_HPP

#include "buffers/forwardsearch.hpp"
#include "kernels/whitespace.hpp"

#include <algorithm>
#include <optional>

namespace quelmcl::detail {

/// A word of a text: where it begins (1-based) and how many bytes it has. No word has position and length 0.
struct Word {
  unsigned pos;
  unsigned len;
};

/// Whether the words of a text are told apart by looking at bytes: white space is never a part of a longer character.
inline bool findsWordsByBytes(const IBuffer& text)
{
  return isOwnSingleByte(text) || (isOwnMultiByte(text) && CharacterSet::current().isSelfSynchronizing());
}

/// Goes over the words of a text from a position on. The buffer must not change meanwhile.
class WordReader {
public:
  explicit WordReader(const IBuffer& read, unsigned startPos = 1)
    : text(read),
      search(read),
      isOfBytes(search.findsAsciiByBytes()),
      from(isOfBytes ? search.start(startPos) : startPos),
      edges(read.contents(), read.length(), isOfBytes && from != 0 ? from - 1 : read.length())
  {
    if (!isOfBytes)
      separators.emplace(search.listOf(wordSeparators, wordSeparatorCount));
  }

  /// The next word, or position 0 when there is none.
  Word next() { return isOfBytes ? nextOfBytes() : nextOfCharacters(); }

  /// What so many calls of next() do.
  void skip(unsigned long count)
  {
    if (isOfBytes)
      return edges.skip(2 * std::min<std::size_t>(count, text.length() / 2 + 1));
    while (count > 0 && next().pos != 0)
      --count;
  }

private:
  Word nextOfBytes()
  {
    const std::size_t begin = edges.next();
    if (begin == text.length())
      return {0, 0};
    const std::size_t end = edges.next();
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
  bool isOfBytes;                           // white space is never a part of a longer character
  std::optional<CharacterList> separators;  // of texts in which it may be
  unsigned from;
  WordEdges edges;
};

/// How many words begin before the position `endPos`, where one begins or the text has ended, and at or behind `startPos`; and how
/// many bytes they have together.
inline WordTotals measureWords(const IBuffer& text, unsigned startPos, unsigned endPos)
{
  if (findsWordsByBytes(text))
    return vectors().measureWords(text.contents() + (startPos - 1), endPos - startPos);
  WordTotals totals = {0, 0};
  WordReader reader(text, startPos);
  for (Word word = reader.next(); word.pos != 0 && word.pos < endPos; word = reader.next()) {
    ++totals.words;
    totals.bytes += word.len;
  }
  return totals;
}
inline WordTotals measureWords(const IBuffer& text)
{
  return measureWords(text, 1, text.length() + 1);
}

}  // namespace quelmcl::detail

#endif
