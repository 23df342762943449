// idbcsb6.cpp - IDBCSBuffer, searching: where a search begins is asked virtually, and what it finds begins where a
// character begins. (Digit 6 is always searching: docs/architecture.md)
// Tests: tests/buffers/multibyte_search_test.cpp
#include <quelmcl/idbcsb.hpp>

#include "buffers/bytesearch.hpp"
#include "buffers/characterlist.hpp"
#include "buffers/charactersearch.hpp"
#include "buffers/kinds.hpp"

using quelmcl::detail::CharacterList;
using quelmcl::detail::CharacterSearch;
using quelmcl::detail::SearchStart;

// ---- where a search begins ----

unsigned IDBCSBuffer::startSearch(unsigned startPos, unsigned searchLen) const
{
  return CharacterSearch(*this).forwardStart(startPos, searchLen);
}

unsigned IDBCSBuffer::startBackwardsSearch(unsigned startPos, unsigned searchLen) const
{
  return CharacterSearch(*this).backwardStart(startPos, searchLen);
}

namespace quelmcl::detail {

/// Where the searches of a buffer begin. Of our own kind the answer is known, and the locale need not be looked at once
/// more.
class SearchStart {
public:
  /// What startSearch gives.
  static unsigned forward(const IDBCSBuffer& buffer, CharacterSearch& search, unsigned startPos, unsigned searchLen)
  {
    return isOwnMultiByte(buffer) ? search.forwardStart(startPos, searchLen) : buffer.startSearch(startPos, searchLen);
  }

  /// What startBackwardsSearch gives, as far as it matters: where characters are found by walking to them from the
  /// front, a search may as well begin inside of one, and walks once instead of twice.
  static unsigned backward(const IDBCSBuffer& buffer, CharacterSearch& search, unsigned startPos, unsigned searchLen)
  {
    if (!isOwnMultiByte(buffer))
      return buffer.startBackwardsSearch(startPos, searchLen);
    return search.looksBack() ? search.backwardStart(startPos, searchLen)
                              : backwardStart(buffer.length(), startPos, searchLen);
  }
};

}  // namespace quelmcl::detail

// ---- texts ----

unsigned IDBCSBuffer::indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const
{
  if (searchLen == 1)
    return indexOfAnyOf(pSearchString, 1, startPos);
  CharacterSearch search(*this);
  const unsigned start = SearchStart::forward(*this, search, startPos, searchLen);
  return searchLen == 0 ? 0 : search.firstText(pSearchString, searchLen, start);
}

unsigned IDBCSBuffer::lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const
{
  CharacterSearch search(*this);
  const unsigned start = SearchStart::backward(*this, search, startPos, searchLen);
  return searchLen == 0 ? 0 : search.lastText(pSearchString, searchLen, start);
}

// ---- sets ----

unsigned IDBCSBuffer::indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  CharacterSearch search(*this);
  const unsigned start = SearchStart::forward(*this, search, startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  if (numValidChars == 1)  // the first character that begins with this byte
    return search.firstText(pValidChars, 1, start);
  return search.firstMember(CharacterList(search.characters(), pValidChars, numValidChars), start);
}

unsigned IDBCSBuffer::indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  CharacterSearch search(*this);
  const unsigned start = SearchStart::forward(*this, search, startPos, 1);
  if (start == 0 || numValidChars == 0)
    return start;
  // No whole character can equal the lone beginning of one.
  if (numValidChars == 1 && search.characters().beginsLongCharacter(*pValidChars))
    return start;
  return search.firstOther(CharacterList(search.characters(), pValidChars, numValidChars), start);
}

unsigned IDBCSBuffer::lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  CharacterSearch search(*this);
  const unsigned start = SearchStart::backward(*this, search, startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  if (numValidChars == 1)  // the last character that begins with this byte
    return search.lastText(pValidChars, 1, start);
  return search.lastMember(CharacterList(search.characters(), pValidChars, numValidChars), start);
}

unsigned IDBCSBuffer::lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const
{
  if (numValidChars == 0)
    return startBackwardsSearch(startPos, 1);
  CharacterSearch search(*this);
  const unsigned start = SearchStart::backward(*this, search, startPos, 1);
  if (start == 0)
    return 0;
  // Deliberate: nothing is found here, where a search from the front finds its start.
  // Test: MultiByteSearch.ALoneLeadByteIsNoMemberForwardsAndStopsBackwards
  if (numValidChars == 1 && search.characters().beginsLongCharacter(*pValidChars))
    return 0;
  return search.lastOther(CharacterList(search.characters(), pValidChars, numValidChars), start);
}

// ---- tests ----

unsigned IDBCSBuffer::indexOf(const IStringTest& test, unsigned startPos) const
{
  return indexOfAnyOf(test, startPos);
}

unsigned IDBCSBuffer::lastIndexOf(const IStringTest& test, unsigned startPos) const
{
  return lastIndexOfAnyOf(test, startPos);
}

// Deliberate: the search begins where a character begins, but then sees every byte.
// Test: MultiByteSearch.ATestMayPassInsideACharacter
unsigned IDBCSBuffer::indexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  CharacterSearch search(*this);
  return search.firstBytePassing(test, SearchStart::forward(*this, search, startPos, 1));
}

unsigned IDBCSBuffer::indexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  CharacterSearch search(*this);
  return search.firstFailing(test, SearchStart::forward(*this, search, startPos, 1));
}

unsigned IDBCSBuffer::lastIndexOfAnyOf(const IStringTest& test, unsigned startPos) const
{
  CharacterSearch search(*this);
  return search.lastPassing(test, SearchStart::backward(*this, search, startPos, 1));
}

unsigned IDBCSBuffer::lastIndexOfAnyBut(const IStringTest& test, unsigned startPos) const
{
  CharacterSearch search(*this);
  return search.lastFailing(test, SearchStart::backward(*this, search, startPos, 1));
}
