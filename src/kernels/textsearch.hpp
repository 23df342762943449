// textsearch.hpp - finds one text in another, from the front or from the back, in linear time whatever the texts.
// Tests: tests/kernels/textsearch_test.cpp
#ifndef QUELMCL_SRC_KERNELS_TEXTSEARCH_HPP
#define QUELMCL_SRC_KERNELS_TEXTSEARCH_HPP

#include "kernels/scan.hpp"

namespace quelmcl::detail {

/// The offset of the first occurrence of the needle (at least one byte) in the text, or nowhere. No allocation.
std::size_t findText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept;

/// The offset of the last occurrence of the needle (at least one byte) in the text, or nowhere. No allocation.
std::size_t findLastText(const char* text, std::size_t length, const char* needle, std::size_t needleLength) noexcept;

}  // namespace quelmcl::detail

#endif
