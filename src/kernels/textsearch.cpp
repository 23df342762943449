// textsearch.cpp - text search: the C library finds candidates by their first byte, and a linear-time algorithm takes
// over when too many of them fail.
// Tests: tests/kernels/textsearch_test.cpp
#include "kernels/textsearch.hpp"

#include <algorithm>
#include <cstring>

namespace quelmcl::detail {

namespace {

/// A text read from its first byte to its last.
class Forward {
public:
  Forward(const char* text, std::size_t) noexcept : front(text) {}
  unsigned char operator[](std::size_t i) const noexcept { return static_cast<unsigned char>(front[i]); }

private:
  const char* front;
};

/// A text read from its last byte to its first, so that the first occurrence is the last one.
class Backward {
public:
  Backward(const char* text, std::size_t length) noexcept : end(text + length) {}
  unsigned char operator[](std::size_t i) const noexcept { return static_cast<unsigned char>(*(end - 1 - i)); }

private:
  const char* end;
};

/// The two-way algorithm of Crochemore and Perrin ("Two-way string-matching", Journal of the ACM 38, 1991).
///
/// The needle is cut at a critical place, where its local period is its period. The right half is compared first,
/// from left to right; a mismatch there moves the needle behind it. Then the left half is compared from right to
/// left; a mismatch there moves the needle by its period. Time: at most two comparisons a byte of the text and some
/// five a byte of the needle; no storage.
template <class Reading>
class TwoWay {
public:
  TwoWay(Reading text, std::size_t length) noexcept : needle(text), needleLength(length)
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

  /// How many bytes into the reading of the text the first occurrence begins, or nowhere.
  std::size_t find(Reading text, std::size_t length) const noexcept
  {
    std::size_t known =
      0;  // so many bytes at the front of the needle are known to match, from the last move by a period
    for (std::size_t at = 0; at + needleLength <= length;) {
      std::size_t right = std::max(cut, known);
      while (right < needleLength && needle[right] == text[at + right])
        ++right;
      if (right < needleLength) {
        at += right - cut + 1;
        known = 0;
        continue;
      }
      std::size_t left = cut;
      while (left > known && needle[left - 1] == text[at + left - 1])
        --left;
      if (left <= known)
        return at;
      at += period;
      known = isPeriodic ? needleLength - period : 0;
    }
    return nowhere;
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
  bool isPeriodic;
};

/// How much candidates may cost before the linear algorithm takes over: a fixed price a byte of progress, and
/// something to begin with, so that short searches never pay for its preparation.
class Patience {
public:
  /// Notes a candidate that failed after at most `compared` bytes, `progress` bytes into the text. False when it is
  /// enough.
  bool bears(std::size_t compared, std::size_t progress) noexcept
  {
    spent += compared;
    return spent <= 1024 + 8 * progress;
  }

private:
  std::size_t spent = 0;
};

bool matches(const char* candidate, const char* needle, std::size_t needleLength) noexcept
{
  return candidate[needleLength - 1] == needle[needleLength - 1] && std::memcmp(candidate, needle, needleLength) == 0;
}

}  // namespace

std::size_t findText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept
{
  if (needleLength > length)
    return nowhere;
  const std::size_t starts = length - needleLength + 1;  // how many places the needle can begin at
  Patience patience;
  for (std::size_t at = 0; at < starts; ++at) {
    const void* const candidate = std::memchr(text + at, static_cast<unsigned char>(needle[0]), starts - at);
    if (candidate == nullptr)
      return nowhere;
    at = static_cast<std::size_t>(static_cast<const char*>(candidate) - text);
    if (matches(text + at, needle, needleLength))
      return at;
    if (!patience.bears(needleLength, at)) {
      const std::size_t rest = length - at;
      const std::size_t found =
        TwoWay(Forward(needle, needleLength), needleLength).find(Forward(text + at, rest), rest);
      return found == nowhere ? nowhere : at + found;
    }
  }
  return nowhere;
}

std::size_t findLastText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept
{
  if (needleLength > length)
    return nowhere;
  const std::size_t starts = length - needleLength + 1;
  Patience patience;
  for (std::size_t left = starts; left > 0;) {
    const void* const candidate = memrchr(text, static_cast<unsigned char>(needle[0]), left);
    if (candidate == nullptr)
      return nowhere;
    left = static_cast<std::size_t>(static_cast<const char*>(candidate) - text);
    if (matches(text + left, needle, needleLength))
      return left;
    if (!patience.bears(needleLength, starts - left)) {
      const std::size_t rest =
        left + needleLength - 1;  // what the needle still fits into, ending before this candidate's end
      const std::size_t found = TwoWay(Backward(needle, needleLength), needleLength).find(Backward(text, rest), rest);
      return found == nowhere ? nowhere : rest - found - needleLength;
    }
  }
  return nowhere;
}

}  // namespace quelmcl::detail
