/// @file iformat.hpp
/// Strings in std::format, where the standard library has it (C++20; `__cpp_lib_format`). Elsewhere this header gives
/// nothing. It is no part of quelmcl.hpp because `<format>` is large.
///
///     std::format("{:*>6}|{:.2}", IString("abc"), IString("abc"));   // "***abc|ab"
#ifndef QUELMCL_IFORMAT_HPP
#define QUELMCL_IFORMAT_HPP

#include <quelmcl/i0string.hpp>

#if __cplusplus >= 202002L && __has_include(<format>)
#  include <format>
#endif

#ifdef __cpp_lib_format
/// The whole text, NUL bytes included, with the fill, alignment, width and precision that std::string_view has.
template <>
struct std::formatter<IString, char> : std::formatter<std::string_view, char> {
  /// Writes the text as its format says.
  template <class Context>
  auto format(const IString& text, Context& context) const
  {
    return std::formatter<std::string_view, char>::format(std::string_view(text), context);
  }
};
/// The same.
template <>
struct std::formatter<I0String, char> : std::formatter<IString, char> {
};
#endif

#endif
