// charactersearch.hpp - the searches of a text with characters of several bytes: what they find begins where a
// character begins.
// Tests: tests/buffers/multibyte_search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_CHARACTERSEARCH_HPP
#define QUELMCL_SRC_BUFFERS_CHARACTERSEARCH_HPP

#include <quelmcl/ibuffer.hpp>

#include "buffers/characterset.hpp"

namespace quelmcl::detail {

class CharacterList;

/// One search after the other through the same text. A start is a position (from 1) where a character begins, or 0,
/// which finds nothing; what is found is such a position too, or 0. Forward searches whose starts do not decrease share
/// one pass over the text, so that a loop over all occurrences is linear in every character set; between two of them,
/// what stands before the start of the first may change.
class CharacterSearch {
public:
  CharacterSearch(const IBuffer& searched, const CharacterSet& set)
    : text(searched.contents()), length(searched.length()), walk(set, searched.contents())
  {
  }
  explicit CharacterSearch(const IBuffer& searched) : CharacterSearch(searched, CharacterSet::current()) {}

  /// Where a search from `startPos` for `searchLen` bytes begins: at a boundary of characters.
  unsigned forwardStart(unsigned startPos, unsigned searchLen);
  unsigned backwardStart(unsigned startPos, unsigned searchLen);

  /// The first occurrence of a text of at least one byte that begins at or behind `start`, and the last at or before.
  unsigned firstText(const char* sought, unsigned soughtLen, unsigned start);
  unsigned lastText(const char* sought, unsigned soughtLen, unsigned start);

  /// The first and last character that is, or is not, in a list.
  unsigned firstMember(const CharacterList& list, unsigned start);
  unsigned firstOther(const CharacterList& list, unsigned start);
  unsigned lastMember(const CharacterList& list, unsigned start);
  unsigned lastOther(const CharacterList& list, unsigned start);

  /// The first byte that passes, inside of characters too.
  unsigned firstBytePassing(const IStringTest& test, unsigned start) const;
  /// The first and last character whose first byte fails or passes.
  unsigned firstFailing(const IStringTest& test, unsigned start);
  unsigned lastPassing(const IStringTest& test, unsigned start);
  unsigned lastFailing(const IStringTest& test, unsigned start);

  const CharacterSet& characters() const noexcept { return walk.characters(); }
  /// Whether backward searches look back from character to character, or walk to each from the front. Those need no
  /// start at a boundary.
  bool looksBack() const { return characters().isSelfSynchronizing(); }

private:
  unsigned found(std::size_t offset);
  template <class Claim>
  unsigned firstCharacter(unsigned start, Claim claim);
  template <class Claim>
  unsigned lastCharacter(unsigned start, Claim claim);

  const char* text;
  unsigned length;
  CharacterWalk walk;
};

}  // namespace quelmcl::detail

#endif
