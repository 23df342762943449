// wildcard.cpp - matches a text against a pattern with wildcards.
// Tests: tests/kernels/wildcard_test.cpp
#include "kernels/wildcard.hpp"

#include "kernels/textsearch.hpp"

#include <algorithm>

namespace quelmcl::detail {

namespace {

/// What stands in a pattern between two zeroOrMores: bytes, and anyChars that stand for exactly one.
class Segment {
public:
  Segment(const char* begin, const char* end, char wildcard) noexcept
    : pattern(begin), length(static_cast<std::size_t>(end - begin)), anyChar(wildcard)
  {
  }

  std::size_t size() const noexcept { return length; }

  /// Whether it matches the bytes at `place`, of which there are enough.
  bool matchesAt(const char* place) const noexcept
  {
    return std::equal(pattern, pattern + length, place,
                      [this](char wanted, char byte) { return wanted == anyChar || wanted == byte; });
  }

  /// The offset of the first place in the text where it matches, or nowhere. Looks for its first run of bytes.
  std::size_t findIn(const char* text, std::size_t textLength) const noexcept
  {
    if (length > textLength)
      return nowhere;
    const char* const end = pattern + length;
    const char* const run = std::find_if(pattern, end, [this](char byte) { return byte != anyChar; });
    const char* const runEnd = std::find(run, end, anyChar);
    if (run == end)
      return 0;
    const std::size_t before = static_cast<std::size_t>(run - pattern);
    const std::size_t behind = static_cast<std::size_t>(end - runEnd);
    TextSearch<Forward> search(text + before, textLength - before - behind, run,
                               static_cast<std::size_t>(runEnd - run));
    for (std::size_t found = search.next(); found != nowhere; found = search.next())
      if (matchesAt(text + found))
        return found;
    return nowhere;
  }

private:
  const char* pattern;
  std::size_t length;
  char anyChar;
};

}  // namespace

// The front of the pattern, up to its first zeroOrMore, must match at the beginning of the text, and its back at the
// end. What is between two zeroOrMores may be taken where it is found first: that leaves most to the others.
bool matchesWildcards(const char* text, std::size_t length, const char* pattern, std::size_t patternLength,
                      char zeroOrMore, char anyChar) noexcept
{
  const char* const patternEnd = pattern + patternLength;
  const char* star = std::find(pattern, patternEnd, zeroOrMore);
  const Segment front(pattern, star, anyChar);
  if (star == patternEnd)
    return length == front.size() && front.matchesAt(text);

  const char* const lastStar = pattern + findLastText(pattern, patternLength, &zeroOrMore, 1);
  const Segment back(lastStar + 1, patternEnd, anyChar);
  if (front.size() > length || back.size() > length - front.size())
    return false;
  const char* const end = text + (length - back.size());
  if (!front.matchesAt(text) || !back.matchesAt(end))
    return false;

  const char* from = text + front.size();
  while (star != lastStar) {
    const char* const next = std::find(star + 1, lastStar, zeroOrMore);
    const Segment middle(star + 1, next, anyChar);
    const std::size_t found = middle.findIn(from, static_cast<std::size_t>(end - from));
    if (found == nowhere)
      return false;
    from += found + middle.size();
    star = next;
  }
  return true;
}

}  // namespace quelmcl::detail
