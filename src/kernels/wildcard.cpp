// wildcard.cpp - matches a text against a pattern with wildcards.
// Tests: tests/kernels/wildcard_test.cpp
#include "kernels/wildcard.hpp"

#include "kernels/scan.hpp"

namespace quelmcl::detail {

bool matchesWildcards(const char* text, std::size_t length, const char* pattern, std::size_t patternLength,
                      char zeroOrMore, char anyChar) noexcept
{
  std::size_t inText = 0;
  std::size_t inPattern = 0;
  std::size_t resumePattern = nowhere;  // behind the latest zeroOrMore
  std::size_t resumeText = 0;           // where the present attempt to match what follows it began

  for (;;) {
    if (inPattern < patternLength && pattern[inPattern] == zeroOrMore) {
      ++inPattern;
      if (inPattern == patternLength)
        return true;
      resumePattern = inPattern;
      resumeText = inText;
      continue;
    }
    if (inText == length)
      return inPattern == patternLength;
    if (inPattern < patternLength && (pattern[inPattern] == anyChar || pattern[inPattern] == text[inText])) {
      ++inPattern;
      ++inText;
      continue;
    }
    if (resumePattern == nowhere)
      return false;
    inPattern = resumePattern;
    inText = ++resumeText;
  }
}

}  // namespace quelmcl::detail
