/// @file ilibfmt.hpp
/// Strings in libfmt (<fmt/format.h>), version 8 or later, where it is installed; elsewhere this header gives nothing.
/// It is no part of quelmcl.hpp, which must not depend on other libraries. FMT_HEADER_ONLY is respected.
///
///     fmt::format("{:*>6}|{:.2}", IString("abc"), IString("abc"));   // "***abc|ab"
#ifndef QUELMCL_ILIBFMT_HPP
#define QUELMCL_ILIBFMT_HPP

#include <quelmcl/i0string.hpp>

#if __has_include(<fmt/format.h>)
#  include <fmt/format.h>

/// The whole text, NUL bytes included, with the fill, alignment, width and precision that other texts have.
template <>
struct fmt::formatter<IString, char> : fmt::formatter<fmt::string_view, char> {
  template <class Context>
  auto format(const IString& text, Context& context) const -> decltype(context.out())
  {
    const fmt::string_view view(static_cast<const char*>(text), text.length());
    return fmt::formatter<fmt::string_view, char>::format(view, context);
  }
};
/// The same.
template <>
struct fmt::formatter<I0String, char> : fmt::formatter<IString, char> {
};
#endif

#endif
