/// @file istrlit.hpp
/// Literals that are strings.
///
///     using namespace quelmcl::literals;
///     const IString line = "key\0value"_text;   // the whole literal, its NUL bytes included
#ifndef QUELMCL_ISTRLIT_HPP
#define QUELMCL_ISTRLIT_HPP

#include <quelmcl/istring.hpp>

#include <cstddef>

namespace quelmcl {
namespace literals {

/// A string of all bytes of the literal. Cost: as for every string made from a text.
inline IString operator""_text(const char* text, std::size_t length)
{
  return IString(text, length);
}

}  // namespace literals
}  // namespace quelmcl

#endif
