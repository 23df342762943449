// textsearch.cpp - the first and the last occurrence of a text.
// Tests: tests/kernels/textsearch_test.cpp
#include "kernels/textsearch.hpp"

namespace quelmcl::detail {

std::size_t findText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept
{
  return TextSearch<Forward>(text, length, needle, needleLength).next();
}

std::size_t findLastText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept
{
  return TextSearch<Backward>(text, length, needle, needleLength).next();
}

}  // namespace quelmcl::detail
