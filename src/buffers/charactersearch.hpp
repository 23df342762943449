// charactersearch.hpp - the searches of a text with characters of several bytes: what they find begins where a
// character begins.
// Tests: tests/buffers/multibyte_search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_CHARACTERSEARCH_HPP
#define QUELMCL_SRC_BUFFERS_CHARACTERSEARCH_HPP

#include <quelmcl/ibuffer.hpp>

#include "buffers/characterset.hpp"

namespace quelmcl::detail {

class CharacterList;

/// The operations are those of the same names of IBuffer, with their arguments. Forward searches whose starts do not
/// decrease share one pass over the text, so that a loop over all occurrences is linear in every character set;
/// between two of them, what stands before the start of the first may change.
class CharacterSearch {
public:
  explicit CharacterSearch(const IBuffer& searched)
    : text(searched.contents()), length(searched.length()), walk(CharacterSet::current(), searched.contents())
  {
  }

  unsigned startSearch(unsigned startPos, unsigned searchLen);
  unsigned startBackwardsSearch(unsigned startPos, unsigned searchLen);

  unsigned indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos);
  unsigned indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos);
  unsigned indexOfAnyBut(const IStringTest& test, unsigned startPos);
  unsigned indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos);
  unsigned indexOfAnyOf(const IStringTest& test, unsigned startPos);
  unsigned lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos);
  unsigned lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos);
  unsigned lastIndexOfAnyBut(const IStringTest& test, unsigned startPos);
  unsigned lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos);
  unsigned lastIndexOfAnyOf(const IStringTest& test, unsigned startPos);

  /// The character that holds the byte at `offset`, which is less than the length.
  Character holding(unsigned offset) { return walk.holding(offset); }

private:
  template <class Claim>
  unsigned firstCharacter(unsigned startPos, Claim claim);
  template <class Claim>
  unsigned lastCharacter(unsigned startPos, Claim claim);
  unsigned lastOccurrence(const char* pSearchString, unsigned searchLen, unsigned start);
  unsigned firstByte(unsigned start, const CharacterList& list, bool wanted) const;
  bool looksBack() const { return walk.characters().isUtf8() || walk.characters().isSingleByte(); }

  const char* text;
  unsigned length;
  CharacterWalk walk;
};

}  // namespace quelmcl::detail

#endif
