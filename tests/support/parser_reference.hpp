/// @file parser_reference.hpp
/// What a template makes of a text, step by step as the parser's rules have it and without any regard to cost.
///
///     const ParserReference parsed(text, {{Element::token, ...}, ...}, bytewise);
///     EXPECT_TEXT(first, parsed.values()[0]);
#ifndef QUELMCL_TESTS_SUPPORT_PARSER_REFERENCE_HPP
#define QUELMCL_TESTS_SUPPORT_PARSER_REFERENCE_HPP

#include <functional>
#include <string>
#include <vector>

namespace reference {

/// The searches and substrings that a template asks for: those of one-byte characters or of longer ones.
struct TextRules {
  std::function<unsigned(const std::string& text, const std::string& needle, unsigned start)> indexOf;
  std::function<unsigned(const std::string& text, const std::function<int(int)>& test, unsigned start)> indexOfTest;
  std::function<unsigned(const std::string& text, const std::string& set, unsigned start)> indexOfAnyOf;
  std::function<unsigned(const std::string& text, const std::string& set, unsigned start)> indexOfAnyBut;
  std::function<std::string(const std::string& text, unsigned start, unsigned length)> subString;
};

/// One element of a template.
struct TemplateElement {
  enum Kind { token, skip, skips, literal, test, absolute, forward, signedMove, reset };
  Kind kind;
  unsigned variable;               ///< of a token: which of the variables
  std::string pattern;             ///< of a literal
  unsigned long number;            ///< of skips, absolute and forward
  int delta;                       ///< of a signed move
  std::function<int(int)> passes;  ///< of a test
};

/// What the variables (`count` of them, empty at first) hold after a chain.
std::vector<std::string> parsed(const std::string& text, const std::vector<TemplateElement>& chain, unsigned count,
                                const TextRules& rules);

}  // namespace reference

#endif
