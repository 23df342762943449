// numbertext.hpp - numbers as texts, in an array of their own: how a string spells a number.
#ifndef QUELMCL_SRC_STRINGS_NUMBERTEXT_HPP
#define QUELMCL_SRC_STRINGS_NUMBERTEXT_HPP

#include <charconv>
#include <cstdio>

namespace quelmcl::detail {

class NumberText {
public:
  template <class Integer>
  explicit NumberText(Integer number)
    : textLength(static_cast<unsigned>(std::to_chars(text, text + sizeof text, number).ptr - text))
  {
  }
  explicit NumberText(double number)
  {
    constexpr int precision = 15;
    textLength = static_cast<unsigned>(std::snprintf(text, sizeof text, "%.*g", precision, number));
  }

  const char* bytes() const { return text; }
  unsigned length() const { return textLength; }

private:
  char text[32];  // sign, 20 digits; or sign, 15 digits, a decimal point of a few bytes, an exponent
  unsigned textLength;
};

}  // namespace quelmcl::detail

#endif
