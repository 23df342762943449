/// @file istrhash.hpp
/// Strings as keys of hashed containers. istring.hpp includes it.
///
///     std::unordered_map<IString, int> counts;                                       // std::hash
///     std::unordered_map<IString, int, quelmcl::TextHash, std::equal_to<>> hashed;   // C++20
///     hashed.find("key");                                                            // makes no IString
#ifndef QUELMCL_ISTRHASH_HPP
#define QUELMCL_ISTRHASH_HPP

#include <quelmcl/istring.hpp>
#include <quelmcl/istrstd.hpp>

#include <cstddef>

namespace quelmcl {

/// Hashes texts of every kind to what std::hash<IString> gives for their bytes. It is transparent: an unordered
/// container that has it, and `std::equal_to<>`, finds a C text, std::string or std::string_view without making an
/// IString of it (C++20). A null pointer is the empty text.
struct TextHash {
  using is_transparent = void;  ///< as containers ask for it

  /// The hash of the text's bytes. Linear in the text.
  std::size_t operator()(const IString& text) const noexcept { return text.hash(); }
  std::size_t operator()(const char* text) const noexcept { return bytes(text, detail::lengthOfText(text)); }
  template <class Text>
  detail::ForStandardText<Text, std::size_t> operator()(const Text& text) const noexcept
  {
    return bytes(text.data(), text.size());
  }

private:
  static std::size_t bytes(const char* text, std::size_t length) noexcept
  {
    return IString::hashOf(text, detail::cutLength(length));  // what is cut equals no string, whatever its hash is
  }
};

}  // namespace quelmcl

/// The hash of the bytes: equal texts have equal ones. Linear in the text.
template <>
struct std::hash<IString> {
  /// The text's own hash.
  std::size_t operator()(const IString& text) const noexcept { return text.hash(); }
};

#endif
