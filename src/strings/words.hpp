// words.hpp - reads the words of a text one after the other, through the searches of its buffer.
#ifndef QUELMCL_SRC_STRINGS_WORDS_HPP
#define QUELMCL_SRC_STRINGS_WORDS_HPP

#include <quelmcl/ibuffer.hpp>

namespace quelmcl::detail {

/// The characters that separate words: these six in every locale.
inline constexpr char whiteSpace[] = "\t\n\v\f\r ";
inline constexpr unsigned whiteSpaceCount = sizeof whiteSpace - 1;

/// A word of a text: where it begins (1-based) and how many bytes it has. No word has position and length 0.
struct Word {
  unsigned pos;
  unsigned len;
};

/// The position of the first white space at or after `pos`, or 0.
inline unsigned firstWhite(const IBuffer& text, unsigned pos)
{
  return text.indexOfAnyOf(whiteSpace, whiteSpaceCount, pos);
}

/// The position of the first character at or after `pos` that is not white space, or 0.
inline unsigned firstNonWhite(const IBuffer& text, unsigned pos)
{
  return text.indexOfAnyBut(whiteSpace, whiteSpaceCount, pos);
}

/// Goes over the words of a text from a position on. The buffer must not change meanwhile.
class WordReader {
public:
  explicit WordReader(const IBuffer& read, unsigned startPos = 1) : text(read), from(startPos) {}

  /// The next word, or position 0 when there is none.
  Word next()
  {
    const unsigned start = from == 0 ? 0 : firstNonWhite(text, from);
    if (start == 0) {
      from = 0;
      return {0, 0};
    }
    from = firstWhite(text, start);
    const unsigned end = from == 0 ? text.length() + 1 : from;
    return {start, end - start};
  }

private:
  const IBuffer& text;
  unsigned from;
};

}  // namespace quelmcl::detail

#endif
