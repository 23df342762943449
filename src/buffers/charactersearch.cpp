// charactersearch.cpp - the searches of a text with characters of several bytes.
// Tests: tests/buffers/multibyte_search_test.cpp
#include "buffers/charactersearch.hpp"

#include "buffers/bytesearch.hpp"
#include "buffers/characterlist.hpp"
#include "kernels/textsearch.hpp"

namespace quelmcl::detail {

// ---- where a search begins ----

unsigned CharacterSearch::forwardStart(unsigned startPos, unsigned searchLen)
{
  const unsigned start = detail::forwardStart(length, startPos, searchLen);
  if (start == 0)
    return 0;
  const Character at = walk.holding(start - 1);
  const std::size_t boundary = at.offset == start - 1 ? at.offset : at.end();
  if (boundary >= length)
    return 0;
  walk.standAt(boundary);
  return positionOf(boundary);
}

unsigned CharacterSearch::backwardStart(unsigned startPos, unsigned searchLen)
{
  const unsigned start = detail::backwardStart(length, startPos, searchLen);
  return start == 0 ? 0 : positionOf(walk.holding(start - 1).offset);
}

// ---- character by character ----

/// The position of a character that a forward search has found, which the next one may start from.
unsigned CharacterSearch::found(std::size_t offset)
{
  if (offset != nowhere)
    walk.standAt(offset);
  return positionOf(offset);
}

/// The first character from `start` on for which `claim` holds.
template <class Claim>
unsigned CharacterSearch::firstCharacter(unsigned start, Claim claim)
{
  return start == 0 ? 0 : found(characters().firstWhere(text, start - 1, length, claim));
}

/// The last character that begins at or before `start` for which `claim` holds. Where characters cannot be found by
/// looking back, all of them are passed from the front.
template <class Claim>
unsigned CharacterSearch::lastCharacter(unsigned start, Claim claim)
{
  if (start == 0)
    return 0;
  if (!looksBack()) {
    std::size_t last = nowhere;
    characters().forEach(text, start, [&](const char* p, unsigned n) {
      if (claim(p, n))
        last = static_cast<std::size_t>(p - text);
    });
    return positionOf(last);
  }
  for (std::size_t end = start; end > 0;) {
    const Character at = walk.holding(end - 1);
    if (claim(text + at.offset, at.length))
      return positionOf(at.offset);
    end = at.offset;
  }
  return 0;
}

// ---- texts ----

unsigned CharacterSearch::firstText(const char* sought, unsigned soughtLen, unsigned start)
{
  if (start == 0)
    return 0;
  const unsigned skipped = start - 1;
  walk.standAt(skipped);
  TextSearch<Forward> search(text + skipped, length - skipped, sought, soughtLen);
  for (std::size_t at = search.next(); at != nowhere; at = search.next())
    if (walk.isBoundary(skipped + at))
      return positionOf(skipped + at);
  return 0;
}

unsigned CharacterSearch::lastText(const char* sought, unsigned soughtLen, unsigned start)
{
  if (start == 0)
    return 0;
  const std::size_t searched = start - 1 + std::size_t{soughtLen};
  if (looksBack()) {
    TextSearch<Backward> search(text, searched, sought, soughtLen);
    for (std::size_t at = search.next(); at != nowhere; at = search.next())
      if (walk.isBoundary(at))
        return positionOf(at);
    return 0;
  }
  std::size_t last = nowhere;
  TextSearch<Forward> search(text, searched, sought, soughtLen);
  for (std::size_t at = search.next(); at != nowhere; at = search.next())
    if (walk.isBoundary(at))
      last = at;
  return positionOf(last);
}

// ---- lists ----

unsigned CharacterSearch::firstMember(const CharacterList& list, unsigned start)
{
  if (list.isOfBytes())
    return firstByte(text, length, start, list.bytes(), true);
  if (start == 0)
    return 0;
  return found(characters().firstWithHead(text, start - 1, length, list.headBytes(),
                                          [&](const char* p, unsigned n) { return list.has(p, n); }));
}

unsigned CharacterSearch::firstOther(const CharacterList& list, unsigned start)
{
  if (list.isOfBytes())
    return firstByte(text, length, start, list.bytes(), false);
  return firstCharacter(start, [&](const char* p, unsigned n) { return !list.has(p, n); });
}

unsigned CharacterSearch::lastMember(const CharacterList& list, unsigned start)
{
  if (list.isOfBytes())
    return positionOf(findLastMember(text, start, list.bytes()));
  if (!characters().beginAnywhere(list.headBytes()))
    return lastCharacter(start, [&](const char* p, unsigned n) { return list.has(p, n); });
  for (std::size_t end = start; end > 0;) {
    const std::size_t head = detail::findLastMember(text, end, list.headBytes().set());
    if (head == nowhere || list.has(text + head, characters().length(text + head)))
      return positionOf(head);
    end = head;
  }
  return 0;
}

unsigned CharacterSearch::lastOther(const CharacterList& list, unsigned start)
{
  if (list.isOfBytes()) {
    const std::size_t other = findLastMember(text, start, list.bytes(), false);
    return other == nowhere ? 0 : positionOf(walk.holding(other).offset);
  }
  return lastCharacter(start, [&](const char* p, unsigned n) { return !list.has(p, n); });
}

// ---- tests ----

unsigned CharacterSearch::firstBytePassing(const IStringTest& test, unsigned start) const
{
  return firstByte(text, length, start, [&](char byte) { return passes(test, byte); });
}

unsigned CharacterSearch::firstFailing(const IStringTest& test, unsigned start)
{
  return firstCharacter(start, [&](const char* p, unsigned) { return !passes(test, *p); });
}

unsigned CharacterSearch::lastPassing(const IStringTest& test, unsigned start)
{
  return lastCharacter(start, [&](const char* p, unsigned) { return passes(test, *p); });
}

unsigned CharacterSearch::lastFailing(const IStringTest& test, unsigned start)
{
  return lastCharacter(start, [&](const char* p, unsigned) { return !passes(test, *p); });
}

}  // namespace quelmcl::detail
