// textsearch.hpp - finds one text in another, from the front or from the back, in linear time whatever the texts.
// Tests: tests/kernels/textsearch_test.cpp
#ifndef QUELMCL_SRC_KERNELS_TEXTSEARCH_HPP
#define QUELMCL_SRC_KERNELS_TEXTSEARCH_HPP

#include "kernels/shortbytes.hpp"
#include "kernels/vectors.hpp"

#include <algorithm>
#include <cstring>
#include <optional>

namespace quelmcl::detail {

/// How many places there are in a text where a needle (at least one byte) can begin.
inline std::size_t placesToBegin(std::size_t length, std::size_t needleLength) noexcept
{
  return needleLength > length ? 0 : length - needleLength + 1;
}

/// Whether a needle stands at `place`, where its first and its last byte are known to stand.
inline bool isAt(const char* place, const char* needle, std::size_t needleLength) noexcept
{
  return needleLength <= 2 || areSame(place + 1, needle + 1, needleLength - 2);
}

/// Searching from the front: the text is read from its first byte to its last.
struct Forward {
  /// The bytes of a text as this direction reads them.
  class Reading {
  public:
    Reading(const char* text, std::size_t) noexcept : front(text) {}
    unsigned char operator[](std::size_t i) const noexcept { return static_cast<unsigned char>(front[i]); }

  private:
    const char* front;
  };

  /// The offset of the place that is `passed` places behind the one to begin with.
  static std::size_t placeAfter(std::size_t passed, std::size_t) noexcept { return passed; }

  /// How many places must be passed, at least `passed`, until one begins with the needle's first byte and ends with its
  /// last; nowhere when none does.
  static std::size_t firstPlace(const char* text, std::size_t places, std::size_t passed, const char* needle,
                                std::size_t needleLength) noexcept
  {
    if (needleLength > 1)
      return vectors().firstPair(text, places, passed, needle[0], needle[needleLength - 1], needleLength - 1);
    const void* const found = std::memchr(text + passed, static_cast<unsigned char>(*needle), places - passed);
    return found == nullptr ? nowhere : static_cast<std::size_t>(static_cast<const char*>(found) - text);
  }

  /// The same for one place after the other: `passed` does not decrease. Where they are close together, 64 of them are
  /// looked at at once.
  std::size_t nextPlace(const char* text, std::size_t places, std::size_t passed, const char* needle,
                        std::size_t needleLength) noexcept
  {
    if (passed < window + windowSize)
      candidates &= ~std::uint64_t{0} << (passed - window);
    else
      candidates = 0;
    if (candidates != 0)
      return window + static_cast<unsigned>(__builtin_ctzll(candidates));

    const std::size_t begin = std::max(passed, openedTo);
    if (begin >= places)
      return nowhere;
    const std::size_t place = firstPlace(text, places, begin, needle, needleLength);
    const bool isClose = place - begin < windowSize;
    if (place != nowhere && isClose && places - place >= windowSize) {
      window = place;
      openedTo = place + windowSize;
      candidates = vectors().pairs(text + place, needle[0], needle[needleLength - 1], needleLength - 1);
    }
    return place;
  }

private:
  static constexpr std::size_t windowSize = 64;
  std::size_t window = 0;        // where the candidates begin
  std::size_t openedTo = 0;      // all candidates before are known
  std::uint64_t candidates = 0;  // a bit for each place of the window
};

/// Searching from the back: the text is read from its last byte to its first, so that its last occurrence comes first.
struct Backward {
  class Reading {
  public:
    Reading(const char* text, std::size_t length) noexcept : end(text + length) {}
    unsigned char operator[](std::size_t i) const noexcept { return static_cast<unsigned char>(*(end - 1 - i)); }

  private:
    const char* end;
  };

  static std::size_t placeAfter(std::size_t passed, std::size_t places) noexcept { return places - 1 - passed; }

  std::size_t nextPlace(const char* text, std::size_t places, std::size_t passed, const char* needle,
                        std::size_t needleLength) const noexcept
  {
    const std::size_t found =
      vectors().lastPair(text, places - passed, needle[0], needle[needleLength - 1], needleLength - 1);
    return found == nowhere ? nowhere : places - 1 - found;
  }
};

/// The two-way algorithm of Crochemore and Perrin ("Two-way string-matching", Journal of the ACM 38, 1991).
///
/// The needle is cut at a critical place, where its local period is its period. The right half is compared first,
/// from left to right; a mismatch there moves the needle behind it. Then the left half is compared from right to
/// left; a mismatch there, like an occurrence, moves the needle by its period. Time: at most two comparisons a byte
/// of the text and some five a byte of the needle; no storage.
template <class Reading>
class TwoWay {
public:
  TwoWay(Reading needleRead, std::size_t length) noexcept : needle(needleRead), needleLength(length)
  {
    const Suffix ascending = maximalSuffix([](unsigned char a, unsigned char b) { return a < b; });
    const Suffix descending = maximalSuffix([](unsigned char a, unsigned char b) { return a > b; });
    const Suffix& later = ascending.start > descending.start ? ascending : descending;
    cut = later.start;
    period = later.period;
    isPeriodic = true;
    for (std::size_t i = 0; i < cut && isPeriodic; ++i)
      isPeriodic = needle[i] == needle[i + period];
    if (!isPeriodic)
      period = std::max(cut, needleLength - cut) + 1;  // no less than this is safe, and nothing need be remembered
  }

  /// How many places are passed until the next occurrence, beginning with `passed` of `places`; nowhere when there is
  /// none. For the one after it, go on with moveOn.
  std::size_t next(Reading text, std::size_t places, std::size_t passed) noexcept
  {
    while (passed < places) {
      std::size_t right = std::max(cut, known);
      while (right < needleLength && needle[right] == text[passed + right])
        ++right;
      if (right < needleLength) {
        passed += right - cut + 1;
        known = 0;
        continue;
      }
      std::size_t left = cut;
      while (left > known && needle[left - 1] == text[passed + left - 1])
        --left;
      if (left <= known)
        return passed;
      passed = moveOn(passed);
    }
    return nowhere;
  }

  /// The place to go on with behind one where the right half was found.
  std::size_t moveOn(std::size_t passed) noexcept
  {
    known = isPeriodic ? needleLength - period : 0;
    return passed + period;
  }

private:
  struct Suffix {
    std::size_t start;
    std::size_t period;
  };

  /// The suffix of the needle that is greatest in the order `less`, and its period.
  template <class Less>
  Suffix maximalSuffix(Less less) const noexcept
  {
    Suffix greatest = {0, 1};
    std::size_t candidate = 1;
    std::size_t matched = 0;
    while (candidate + matched < needleLength) {
      const unsigned char ofCandidate = needle[candidate + matched];
      const unsigned char ofGreatest = needle[greatest.start + matched];
      if (less(ofCandidate, ofGreatest)) {
        candidate += matched + 1;
        matched = 0;
        greatest.period = candidate - greatest.start;
      } else if (ofCandidate == ofGreatest) {
        ++matched;
        if (matched == greatest.period) {
          candidate += greatest.period;
          matched = 0;
        }
      } else {
        greatest = {candidate, 1};
        ++candidate;
        matched = 0;
      }
    }
    return greatest;
  }

  Reading needle;
  std::size_t needleLength;
  std::size_t cut;
  std::size_t period;
  std::size_t known = 0;  // so many bytes at the front of the needle are known to match, from the last move by a period
  bool isPeriodic;
};

/// All occurrences of a needle, also those that overlap, in the order of the direction. Candidates are places that
/// begin and end as the needle does, which vectors find; when too many of them have been looked at for the progress
/// made, the linear algorithm takes over. Together all calls of next() are linear in the text and the needle. No allocation.
template <class Direction>
class TextSearch {
public:
  /// The needle has at least one byte. Neither text may change meanwhile.
  TextSearch(const char* textToSearch, std::size_t length, const char* needleSought,
             std::size_t lengthOfNeedle) noexcept
    : text(textToSearch),
      needle(needleSought),
      needleLength(lengthOfNeedle),
      places(placesToBegin(length, lengthOfNeedle)),
      passed(0),
      spent(0)
  {
  }

  /// The offset of the next occurrence, or nowhere.
  std::size_t next() noexcept
  {
    while (!linear && passed < places) {
      passed = direction.nextPlace(text, places, passed, needle, needleLength);
      if (passed == nowhere)
        return nowhere;
      const std::size_t offset = Direction::placeAfter(passed++, places);
      const bool isHere = isAt(text + offset, needle, needleLength);
      losePatience(needleLength);
      if (isHere)
        return offset;
    }
    return linear ? nextInLinearTime() : nowhere;
  }

private:
  using Reading = typename Direction::Reading;

  // A candidate may cost a fixed price a byte of progress, and something to begin with, so that short searches never
  // pay for the preparation of the linear algorithm.
  void losePatience(std::size_t compared) noexcept
  {
    spent += compared;
    if (spent > 1024 + 8 * passed)
      linear.emplace(Reading(needle, needleLength), needleLength);
  }

  std::size_t nextInLinearTime() noexcept
  {
    if (passed == nowhere)
      return nowhere;
    passed = linear->next(Reading(text, places + needleLength - 1), places, passed);
    if (passed == nowhere)
      return nowhere;
    const std::size_t offset = Direction::placeAfter(passed, places);
    passed = linear->moveOn(passed);
    return offset;
  }

  Direction direction;
  const char* text;
  const char* needle;
  std::size_t needleLength;
  std::size_t places;
  std::size_t passed;  // places that are done with
  std::size_t spent;
  std::optional<TwoWay<Reading>> linear;
};

/// The offset of the first occurrence of the needle (at least one byte) in the text, or nowhere.
std::size_t findText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept;

/// The offset of the last occurrence of the needle (at least one byte) in the text, or nowhere.
std::size_t findLastText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept;

}  // namespace quelmcl::detail

#endif
