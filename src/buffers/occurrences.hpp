// occurrences.hpp - the places of a pattern in a text, for changing them.
// Tests: tests/buffers/editing_test.cpp
#ifndef QUELMCL_SRC_BUFFERS_OCCURRENCES_HPP
#define QUELMCL_SRC_BUFFERS_OCCURRENCES_HPP

#include "buffers/bytesearch.hpp"
#include "buffers/forwardsearch.hpp"
#include "kernels/textsearch.hpp"

#include <algorithm>
#include <optional>
#include <vector>

namespace quelmcl::detail {

/// The occurrences of a pattern in a buffer, one after the other. They do not overlap. What stands before the end of
/// the occurrence found last but one may be written over meanwhile.
class Occurrences {
public:
  Occurrences(const IBuffer& searched, const char* pPattern, unsigned length, unsigned startPos, unsigned limit)
    : text(searched), pattern(pPattern), patternLength(length), from(std::max(startPos, 1u)), left(limit)
  {
    if (!isOwnSingleByte(text))
      characters.emplace(text);
    else if (patternLength > 0 && from <= text.length())
      bytes.emplace(text.contents() + (from - 1), text.length() - (from - 1), pattern, patternLength);
    skipped = from - 1;
  }

  /// The position of the next occurrence, or 0 when there is none or enough were found.
  unsigned next()
  {
    if (left == 0)
      return 0;
    --left;
    const unsigned found = characters ? characters->indexOf(pattern, patternLength, from) : nextOfBytes();
    if (found == 0)
      left = 0;
    from = found + patternLength;
    return found;
  }

private:
  unsigned nextOfBytes()
  {
    while (bytes) {
      const unsigned found = positionBehind(skipped, bytes->next());
      if (found == 0 || found >= from)
        return found;
    }
    return 0;
  }

  const IBuffer& text;
  std::optional<ForwardSearch> characters;   // where a byte need not be one
  std::optional<TextSearch<Forward>> bytes;  // of what is not skipped
  const char* pattern;
  unsigned patternLength;
  unsigned skipped;
  unsigned from;
  unsigned left;
};

/// All the occurrences, counted and noted.
class CountedOccurrences {
public:
  /// `finding` has found the first one.
  CountedOccurrences(Occurrences& finding, unsigned first)
  {
    for (unsigned pos = first; pos != 0; pos = finding.next())
      note(pos);
  }

  unsigned count() const { return all; }
  unsigned operator[](unsigned index) const { return index < nearby ? places[index] : others[index - nearby]; }

private:
  void note(unsigned pos)
  {
    if (all < nearby)
      places[all] = pos;
    else
      others.push_back(pos);
    ++all;
  }

  enum : unsigned { nearby = 256 };
  unsigned places[nearby];  // only those that are counted are ever written
  std::vector<unsigned> others;
  unsigned all = 0;
};

}  // namespace quelmcl::detail

#endif
