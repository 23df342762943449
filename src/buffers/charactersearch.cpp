// charactersearch.cpp - the searches of a text with characters of several bytes.
// Tests: tests/buffers/multibyte_search_test.cpp
#include "buffers/charactersearch.hpp"

#include "buffers/characterlist.hpp"
#include "buffers/searchstart.hpp"
#include "kernels/textsearch.hpp"

namespace quelmcl::detail {

namespace {

/// The 1-based position of an offset, 0 for nowhere.
unsigned positionOf(std::size_t offset)
{
  static_assert(nowhere + 1 == 0, "nowhere becomes position 0");
  return static_cast<unsigned>(offset + 1);
}

// A test sees a byte as the number that a char is: 0x80 to 0xFF are negative.
bool passes(const IStringTest& test, char byte)
{
  return test.test(static_cast<signed char>(byte)) != 0;
}

}  // namespace

// ---- where a search begins ----

unsigned CharacterSearch::startSearch(unsigned startPos, unsigned searchLen)
{
  const unsigned start = forwardStart(length, startPos, searchLen);
  if (start == 0)
    return 0;
  const Character at = walk.holding(start - 1);
  const std::size_t boundary = at.offset == start - 1 ? at.offset : at.end();
  if (boundary >= length)
    return 0;
  walk.standAt(boundary);
  return positionOf(boundary);
}

unsigned CharacterSearch::startBackwardsSearch(unsigned startPos, unsigned searchLen)
{
  const unsigned start = backwardStart(length, startPos, searchLen);
  return start == 0 ? 0 : positionOf(walk.holding(start - 1).offset);
}

// ---- character by character ----

/// The position of the first character from `start` on, where one begins, for which `claim` holds, or 0.
template <class Claim>
unsigned CharacterSearch::firstCharacter(unsigned start, Claim claim)
{
  for (Character at = walk.holding(start - 1); at.offset < length; at = walk.holding(at.end()))
    if (claim(text + at.offset, at.length))
      return positionOf(at.offset);
  return 0;
}

/// The position of the last character that begins at or before `start` for which `claim` holds, or 0. Where
/// characters cannot be found by looking back, all of them are passed from the front.
template <class Claim>
unsigned CharacterSearch::lastCharacter(unsigned start, Claim claim)
{
  if (looksBack()) {
    Character at = walk.holding(start - 1);
    while (!claim(text + at.offset, at.length)) {
      if (at.offset == 0)
        return 0;
      at = walk.holding(at.offset - 1);
    }
    return positionOf(at.offset);
  }
  unsigned last = 0;
  for (Character at = walk.holding(0); at.offset < start; at = walk.holding(at.end()))
    if (claim(text + at.offset, at.length))
      last = positionOf(at.offset);
  return last;
}

// ---- texts ----

unsigned CharacterSearch::indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos)
{
  const unsigned start = startSearch(startPos, searchLen);
  if (start == 0 || searchLen == 0)
    return 0;
  const unsigned skipped = start - 1;
  TextSearch<Forward> search(text + skipped, length - skipped, pSearchString, searchLen);
  for (std::size_t found = search.next(); found != nowhere; found = search.next())
    if (walk.isBoundary(skipped + found))
      return positionOf(skipped + found);
  return 0;
}

unsigned CharacterSearch::lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos)
{
  const unsigned start = backwardStart(length, startPos, searchLen);
  return start == 0 || searchLen == 0 ? 0 : lastOccurrence(pSearchString, searchLen, start);
}

/// The position of the last occurrence that begins at or before `start`, where a character begins, or 0.
unsigned CharacterSearch::lastOccurrence(const char* pSearchString, unsigned searchLen, unsigned start)
{
  const std::size_t searched = start - 1 + std::size_t{searchLen};
  if (looksBack()) {
    TextSearch<Backward> search(text, searched, pSearchString, searchLen);
    for (std::size_t found = search.next(); found != nowhere; found = search.next())
      if (walk.isBoundary(found))
        return positionOf(found);
    return 0;
  }
  unsigned last = 0;
  TextSearch<Forward> search(text, searched, pSearchString, searchLen);
  for (std::size_t found = search.next(); found != nowhere; found = search.next())
    if (walk.isBoundary(found))
      last = positionOf(found);
  return last;
}

// ---- sets ----

/// The position of the first byte from `start` on that is, or is not, in a list that can be looked for byte by byte.
unsigned CharacterSearch::firstByte(unsigned start, const CharacterList& list, bool wanted) const
{
  const unsigned skipped = start - 1;
  const std::size_t found =
    firstWhere(text + skipped, length - skipped, [&](char byte) { return list.bytes().has(byte) == wanted; });
  return found == nowhere ? 0 : positionOf(skipped + found);
}

unsigned CharacterSearch::indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos)
{
  if (numValidChars == 1)  // the first character that begins with this byte
    return indexOf(pValidChars, 1, startPos);
  const unsigned start = startSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  const CharacterList list(walk.characters(), pValidChars, numValidChars);
  if (list.isOfBytes())
    return firstByte(start, list, true);
  return firstCharacter(start, [&](const char* p, unsigned n) { return list.has(p, n); });
}

unsigned CharacterSearch::indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos)
{
  const unsigned start = startSearch(startPos, 1);
  if (start == 0 || numValidChars == 0)
    return start;
  // No whole character can equal the lone beginning of one.
  if (numValidChars == 1 && walk.characters().beginsLongCharacter(*pValidChars))
    return start;
  const CharacterList list(walk.characters(), pValidChars, numValidChars);
  if (list.isOfBytes())
    return firstByte(start, list, false);
  return firstCharacter(start, [&](const char* p, unsigned n) { return !list.has(p, n); });
}

unsigned CharacterSearch::lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos)
{
  const unsigned start = backwardStart(length, startPos, 1);
  if (start == 0 || numValidChars == 0)
    return 0;
  if (numValidChars == 1)  // the last character that begins with this byte
    return lastOccurrence(pValidChars, 1, start);
  const CharacterList list(walk.characters(), pValidChars, numValidChars);
  if (list.isOfBytes())
    return positionOf(lastWhere(text, start, [&](char byte) { return list.bytes().has(byte); }));
  return lastCharacter(start, [&](const char* p, unsigned n) { return list.has(p, n); });
}

unsigned CharacterSearch::lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos)
{
  const unsigned start = backwardStart(length, startPos, 1);
  if (start == 0)
    return 0;
  if (numValidChars == 0)
    return positionOf(walk.holding(start - 1).offset);
  // Deliberate: nothing is found here, where a search from the front finds its start.
  // Test: MultiByteSearch.ALoneLeadByteIsNoMemberForwardsAndStopsBackwards
  if (numValidChars == 1 && walk.characters().beginsLongCharacter(*pValidChars))
    return 0;
  const CharacterList list(walk.characters(), pValidChars, numValidChars);
  if (list.isOfBytes()) {
    const std::size_t other = lastWhere(text, start, [&](char byte) { return !list.bytes().has(byte); });
    return other == nowhere ? 0 : positionOf(walk.holding(other).offset);
  }
  return lastCharacter(start, [&](const char* p, unsigned n) { return !list.has(p, n); });
}

// ---- tests ----

// Deliberate: the search begins where a character begins, but then sees every byte.
// Test: MultiByteSearch.ATestMayPassInsideACharacter
unsigned CharacterSearch::indexOfAnyOf(const IStringTest& test, unsigned startPos)
{
  const unsigned start = startSearch(startPos, 1);
  if (start == 0)
    return 0;
  const unsigned skipped = start - 1;
  const std::size_t found = firstWhere(text + skipped, length - skipped, [&](char byte) { return passes(test, byte); });
  return found == nowhere ? 0 : positionOf(skipped + found);
}

unsigned CharacterSearch::indexOfAnyBut(const IStringTest& test, unsigned startPos)
{
  const unsigned start = startSearch(startPos, 1);
  return start == 0 ? 0 : firstCharacter(start, [&](const char* p, unsigned) { return !passes(test, *p); });
}

unsigned CharacterSearch::lastIndexOfAnyOf(const IStringTest& test, unsigned startPos)
{
  const unsigned start = backwardStart(length, startPos, 1);
  return start == 0 ? 0 : lastCharacter(start, [&](const char* p, unsigned) { return passes(test, *p); });
}

unsigned CharacterSearch::lastIndexOfAnyBut(const IStringTest& test, unsigned startPos)
{
  const unsigned start = backwardStart(length, startPos, 1);
  return start == 0 ? 0 : lastCharacter(start, [&](const char* p, unsigned) { return !passes(test, *p); });
}

}  // namespace quelmcl::detail
