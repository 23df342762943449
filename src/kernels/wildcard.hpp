// wildcard.hpp - matches a text against a pattern with wildcards.
// Tests: tests/kernels/wildcard_test.cpp
#ifndef QUELMCL_SRC_KERNELS_WILDCARD_HPP
#define QUELMCL_SRC_KERNELS_WILDCARD_HPP

#include <cstddef>

namespace quelmcl::detail {

/// Whether the whole text matches the pattern, in which `zeroOrMore` stands for any bytes, also none, and `anyChar`
/// for exactly one. A byte that is both is `zeroOrMore`. Linear in the text unless the pattern has anyChars between two
/// zeroOrMores; then the cost is at most the text's length times the pattern's.
bool matchesWildcards(const char* text, std::size_t length, const char* pattern, std::size_t patternLength,
                      char zeroOrMore, char anyChar) noexcept;

}  // namespace quelmcl::detail

#endif
