// textsearch.cpp - the first and the last occurrence of a text.
// Tests: tests/kernels/textsearch_test.cpp
#include "kernels/textsearch.hpp"

namespace quelmcl::detail {

std::size_t findText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept
{
  const std::size_t places = placesToBegin(length, needleLength);
  if (places == 0)
    return nowhere;
  // Most searches end with the first place that begins and ends as the needle does, or with none.
  const std::size_t likely = Forward::firstPlace(text, places, 0, needle, needleLength);
  if (likely == nowhere || isAt(text + likely, needle, needleLength))
    return likely;
  const std::size_t passed = likely + 1;
  const std::size_t found = TextSearch<Forward>(text + passed, length - passed, needle, needleLength).next();
  return found == nowhere ? nowhere : passed + found;
}

std::size_t findLastText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept
{
  return TextSearch<Backward>(text, length, needle, needleLength).next();
}

}  // namespace quelmcl::detail
