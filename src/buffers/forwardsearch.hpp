// forwardsearch.hpp - one search after the other through the same text, for either kind of buffer.
// Tests: tests/buffers/multibyte_search_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_FORWARDSEARCH_HPP
#define QUELMCL_SRC_BUFFERS_FORWARDSEARCH_HPP

#include "buffers/bytesearch.hpp"
#include "buffers/characterlist.hpp"
#include "buffers/charactersearch.hpp"
#include "buffers/kinds.hpp"
#include "kernels/textsearch.hpp"

namespace quelmcl::detail {

/// For loops over all occurrences of something: the searches of the buffer, from starts that do not decrease. A
/// multi-byte text is then passed over once, while each search of the buffer itself would have to find its start from
/// the front.
class ForwardSearch {
public:
  explicit ForwardSearch(const IBuffer& searched)
    : text(searched),
      isOwn(isOwnKind(searched)),
      isBytes(isOwnSingleByte(searched)),
      search(searched, isOwnMultiByte(searched) ? CharacterSet::current() : CharacterSet::ofBytes())
  {
  }

  unsigned indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos)
  {
    if (!isOwn)
      return text.indexOf(pSearchString, searchLen, startPos);
    if (isBytes)
      return indexOfBytes(pSearchString, searchLen, startPos);
    const unsigned start = search.forwardStart(startPos, searchLen);
    return searchLen == 0 ? 0 : search.firstText(pSearchString, searchLen, start);
  }

  unsigned indexOf(const IStringTest& test, unsigned startPos)
  {
    return isOwn ? search.firstBytePassing(test, search.forwardStart(startPos, 1)) : text.indexOf(test, startPos);
  }

  /// A list of two or more characters to search for, prepared once for many searches.
  CharacterList listOf(const char* pChars, unsigned count) const { return {search.characters(), pChars, count}; }

  /// Whether characters of ASCII can be found by looking at bytes, without asking the buffer.
  bool findsAsciiByBytes() const { return isOwn && search.characters().isSelfSynchronizing(); }
  /// Where a search for one character begins that starts at a position.
  unsigned start(unsigned startPos) { return search.forwardStart(startPos, 1); }

  unsigned indexOfAnyOf(const CharacterList& list, unsigned startPos)
  {
    return isOwn ? search.firstMember(list, search.forwardStart(startPos, 1))
                 : text.indexOfAnyOf(list.text(), list.length(), startPos);
  }

  unsigned indexOfAnyBut(const CharacterList& list, unsigned startPos)
  {
    return isOwn ? search.firstOther(list, search.forwardStart(startPos, 1))
                 : text.indexOfAnyBut(list.text(), list.length(), startPos);
  }

private:
  unsigned indexOfBytes(const char* pSearchString, unsigned searchLen, unsigned startPos) const
  {
    const unsigned start = searchLen == 0 ? 0 : forwardStart(text.length(), startPos, searchLen);
    if (start == 0)
      return 0;
    const unsigned skipped = start - 1;
    return positionBehind(skipped,
                          findText(text.contents() + skipped, text.length() - skipped, pSearchString, searchLen));
  }

  const IBuffer& text;
  bool isOwn, isBytes;
  CharacterSearch search;  // of our own kinds; others are asked
};

}  // namespace quelmcl::detail

#endif
