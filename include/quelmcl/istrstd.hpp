/// @file istrstd.hpp
/// Which texts of the standard library strings work with: std::string and, from C++17 on, std::string_view.
///
/// Nothing here is for programs to use. What takes such texts is a template limited to exactly these two types, so
/// that no other overload is disturbed, and no function of the library itself mentions either: one library serves
/// every language version and both layouts of std::string.
#ifndef QUELMCL_ISTRSTD_HPP
#define QUELMCL_ISTRSTD_HPP

// The lightest headers that declare std::string, std::string_view and std::hash.
#include <cstddef>
#include <cstring>
#include <iosfwd>
#include <type_traits>
#if __cplusplus >= 201703L
#  include <string_view>
#else
#  include <typeindex>
#endif

namespace quelmcl {
namespace detail {

/// Whether `Text` is a text of the standard library; its members data() and size() tell what it holds.
template <class Text>
struct IsStandardText : std::is_same<Text, std::string> {
};
#ifdef __cpp_lib_string_view
template <>
struct IsStandardText<std::string_view> : std::true_type {
};
#endif

/// `Result`, in overloads for texts of the standard library alone.
template <class Text, class Result>
using ForStandardText = typename std::enable_if<IsStandardText<Text>::value, Result>::type;

/// `length` as a string's length, for comparison alone: what no string can hold is longer than every string, and the
/// largest number is enough to show it.
inline unsigned cutLength(std::size_t length) noexcept
{
  return length > 4294967295u ? 4294967295u : static_cast<unsigned>(length);
}

/// The length of a C text; 0 for null.
inline std::size_t lengthOfText(const char* text) noexcept
{
  return text == nullptr ? 0 : std::strlen(text);
}

}  // namespace detail
}  // namespace quelmcl

#endif
