/// @file expect_text.hpp
/// EXPECT_TEXT compares a string or a buffer with the bytes that it is to hold.
///
///     EXPECT_TEXT(text, "abc");                  // an IString, or an IBuffer by pointer or reference
///     EXPECT_TEXT(text, "a\0b");                 // a literal counts with its length, NULs included
///     EXPECT_TEXT(text, std::string(3, '\0'));
///     EXPECT_TEXT(text, "abc", 2);               // and its buffer holds two references
///
/// It checks the length, every byte, the NUL behind the text and, when given, the reference count. A message can be
/// added with <<.
#ifndef QUELMCL_TESTS_SUPPORT_EXPECT_TEXT_HPP
#define QUELMCL_TESTS_SUPPORT_EXPECT_TEXT_HPP

#include <quelmcl/ibuffer.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <type_traits>
#include <utility>

#define EXPECT_TEXT(actual, ...) EXPECT_PRED_FORMAT1((::quelmcl_test::IsText(__VA_ARGS__)), actual)

namespace quelmcl_test {

/// The bytes as they would be written in source code.
inline std::string quoted(const std::string& bytes)
{
  std::string result = "\"";
  for (const char byte : bytes) {
    char shown[8];
    const bool isPlain = byte >= ' ' && byte < 0x7F && byte != '"' && byte != '\\';
    std::snprintf(shown, sizeof shown, isPlain ? "%c" : "\\x%02X", isPlain ? byte : static_cast<unsigned char>(byte));
    result += shown;
  }
  return result + "\" (" + std::to_string(bytes.size()) + " bytes)";
}

/// What a text is expected to be; the check behind EXPECT_TEXT.
class IsText {
public:
  IsText(std::string bytes) : expected(std::move(bytes)), references(anyCount) {}
  IsText(std::string bytes, unsigned useCount) : expected(std::move(bytes)), references(useCount) {}

  template <std::size_t Size>
  IsText(const char (&literal)[Size]) : IsText(std::string(literal, Size - 1))
  {
  }
  template <std::size_t Size>
  IsText(const char (&literal)[Size], unsigned useCount) : IsText(std::string(literal, Size - 1), useCount)
  {
  }

  // A pointer to a C text: templates, so that literals rather take the forms above, which know their length.
  template <class Pointer, class = typename std::enable_if<std::is_same<Pointer, const char*>::value>::type>
  IsText(const Pointer& text) : IsText(std::string(text))
  {
  }
  template <class Pointer, class = typename std::enable_if<std::is_same<Pointer, const char*>::value>::type>
  IsText(const Pointer& text, unsigned useCount) : IsText(std::string(text), useCount)
  {
  }

  testing::AssertionResult operator()(const char* expression, const IBuffer* buffer) const
  {
    const std::string held(buffer->contents(), buffer->length());
    if (held != expected)
      return testing::AssertionFailure() << expression << "\n  is       " << quoted(held) << "\n  expected "
                                         << quoted(expected);
    if (buffer->contents()[buffer->length()] != '\0')
      return testing::AssertionFailure() << expression << " is not followed by a NUL";
    if (references != anyCount && buffer->useCount() != references)
      return testing::AssertionFailure() << expression << " holds " << buffer->useCount() << " references, expected "
                                         << references;
    return testing::AssertionSuccess();
  }

  testing::AssertionResult operator()(const char* expression, const IBuffer& buffer) const
  {
    return (*this)(expression, &buffer);
  }

  testing::AssertionResult operator()(const char* expression, const IString& text) const
  {
    const char* const bytes = text;
    return (*this)(expression, IBuffer::fromContents(bytes));
  }

private:
  enum : unsigned { anyCount = 0 };

  std::string expected;
  unsigned references;
};

}  // namespace quelmcl_test

#endif
