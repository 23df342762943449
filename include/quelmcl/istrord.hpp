/// @file istrord.hpp
/// Strings and texts of the standard library side by side: joined and compared with a std::string or std::string_view,
/// and the three-way order of C++20. istring.hpp includes it.
///
/// The operators are templates that take an IString, or a class derived from it, as it is: no conversion leads to
/// them, so comparisons among other types stay what they were.
#ifndef QUELMCL_ISTRORD_HPP
#define QUELMCL_ISTRORD_HPP

#include <quelmcl/istring.hpp>
#include <quelmcl/istrstd.hpp>

#include <cstddef>
#include <type_traits>
#if __cplusplus >= 202002L && __has_include(<compare>)
#  include <compare>
#endif

namespace quelmcl {
namespace detail {

/// Whether `String` is IString or derived from it. Only asked of what stands beside a text, because the class must be
/// complete.
template <class String, bool standsBesideText>
struct IsString : std::is_base_of<IString, String> {
};
template <class String>
struct IsString<String, false> : std::false_type {
};

/// `Result`, for a string and a text of the standard library.
template <class String, class Text, class Result>
using ForStringAndText = typename std::enable_if<IsString<String, IsStandardText<Text>::value>::value, Result>::type;

/// Below, at or above 0 as `left` sorts before, with or behind the other text.
inline int order(const IString& left, const char* right, std::size_t rightLength) noexcept
{
  const IBuffer* const buffer = IBuffer::fromContents(static_cast<const char*>(left));
  const IBuffer::Comparison found = buffer->compare(right == nullptr ? "" : right, cutLength(rightLength));
  return found == IBuffer::equal ? 0 : found == IBuffer::lessThan ? -1 : 1;
}

}  // namespace detail
}  // namespace quelmcl

/// @name Joining with texts of the standard library
/// A new string: the first text and then the second, NUL bytes included. Cost: one allocation.
/// @{
template <class String, class Text>
quelmcl::detail::ForStringAndText<String, Text, IString> operator+(const String& aString, const Text& text)
{
  return IString(static_cast<const char*>(aString), aString.length(), text.data(), text.size());
}
template <class String, class Text>
quelmcl::detail::ForStringAndText<String, Text, IString> operator+(const Text& text, const String& aString)
{
  return IString(text.data(), text.size(), static_cast<const char*>(aString), aString.length());
}
/// @}

/// @name Comparison with texts of the standard library
/// By unsigned bytes, NUL bytes included; nothing is copied.
/// @{

/// Declares a comparison with a text of the standard library on either side.
#define QUELMCL_COMPARE_STANDARD(op)                                                                               \
  template <class String, class Text>                                                                              \
  quelmcl::detail::ForStringAndText<String, Text, int> operator op(const String& left, const Text& right) noexcept \
  {                                                                                                                \
    return quelmcl::detail::order(left, right.data(), right.size()) op 0;                                          \
  }                                                                                                                \
  template <class String, class Text>                                                                              \
  quelmcl::detail::ForStringAndText<String, Text, int> operator op(const Text& left, const String& right) noexcept \
  {                                                                                                                \
    return 0 op quelmcl::detail::order(right, left.data(), left.size());                                           \
  }
QUELMCL_COMPARE_STANDARD(==)
QUELMCL_COMPARE_STANDARD(!=)
QUELMCL_COMPARE_STANDARD(<)
QUELMCL_COMPARE_STANDARD(<=)
QUELMCL_COMPARE_STANDARD(>)
QUELMCL_COMPARE_STANDARD(>=)
#undef QUELMCL_COMPARE_STANDARD
/// @}

#ifdef __cpp_lib_three_way_comparison
/// @name The order of C++20
/// By unsigned bytes, as `<` and `==`: a string and another, a C text or a text of the standard library, either first.
/// @{
inline std::strong_ordering operator<=>(const IString& left, const IString& right) noexcept
{
  return quelmcl::detail::order(left, static_cast<const char*>(right), right.length()) <=> 0;
}
template <class String, class Character>
typename std::enable_if<quelmcl::detail::IsString<String, std::is_same<const Character, const char>::value>::value,
                        std::strong_ordering>::type
operator<=>(const String& left, Character* right) noexcept
{
  return quelmcl::detail::order(left, right, quelmcl::detail::lengthOfText(right)) <=> 0;
}
template <class String, class Text>
quelmcl::detail::ForStringAndText<String, Text, std::strong_ordering> operator<=>(const String& left,
                                                                                  const Text& right) noexcept
{
  return quelmcl::detail::order(left, right.data(), right.size()) <=> 0;
}
/// @}
#endif

#endif
