/// @file parser_chains.hpp
/// Elements of templates as data, for chains of any length: what the reference takes, applied to the library's parser.
#ifndef QUELMCL_TESTS_SUPPORT_PARSER_CHAINS_HPP
#define QUELMCL_TESTS_SUPPORT_PARSER_CHAINS_HPP

#include "support/multibyte_reference.hpp"
#include "support/parser_reference.hpp"
#include "support/reference.hpp"

#include <quelmcl/istparse.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrtest.hpp>

#include <ctype.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace parserchains {

inline const reference::TextRules bytewise = {
  [](const std::string& text, const std::string& needle, unsigned start) {
    return reference::indexOf(text, needle, start);
  },
  [](const std::string& text, const std::function<int(int)>& test, unsigned start) {
    return reference::indexOf(text, test, start);
  },
  [](const std::string& text, const std::string& set, unsigned start) {
    return reference::indexOfAnyOf(text, set, start);
  },
  [](const std::string& text, const std::string& set, unsigned start) {
    return reference::indexOfAnyBut(text, set, start);
  },
  [](const std::string& text, unsigned start, unsigned length) { return reference::subString(text, start, length); },
};

inline const reference::TextRules characterwise = {
  [](const std::string& text, const std::string& needle, unsigned start) {
    return reference::multibyte::indexOf(text, needle, start);
  },
  [](const std::string& text, const std::function<int(int)>& test, unsigned start) {
    return reference::multibyte::indexOf(text, test, start);
  },
  [](const std::string& text, const std::string& set, unsigned start) {
    return reference::multibyte::indexOfAnyOf(text, set, start);
  },
  [](const std::string& text, const std::string& set, unsigned start) {
    return reference::multibyte::indexOfAnyBut(text, set, start);
  },
  [](const std::string& text, unsigned start, unsigned length) {
    return reference::multibyte::subString(text, start, length, ' ');
  },
};

/// Those of the locale in force.
inline const reference::TextRules& rulesInForce()
{
  return MB_CUR_MAX > 1 ? characterwise : bytewise;
}

/// The tests that elements are made of.
inline int (*const tests[])(int) = {isspace, isdigit, ispunct, isupper};

inline void apply(IStringParser& parser, const reference::TemplateElement& element, std::vector<IString>& variables)
{
  const std::string& pattern = element.pattern;
  switch (element.kind) {
  case reference::TemplateElement::token:
    parser >> variables[element.variable];
    break;
  case reference::TemplateElement::skip:
    parser >> IStringParser::skipWord;
    break;
  case reference::TemplateElement::skips:
    parser >> IStringParser::SkipWords(element.number);
    break;
  case reference::TemplateElement::literal:
    if (pattern.size() == 1)
      parser >> pattern[0];
    else if (pattern.size() % 2 == 0 && pattern.find('\0') == std::string::npos)
      parser >> pattern.c_str();
    else
      parser >> IString(pattern.data(), static_cast<unsigned>(pattern.size()));
    break;
  case reference::TemplateElement::test:
    parser >> IStringTest(*element.passes.target<int (*)(int)>());
    break;
  case reference::TemplateElement::absolute:
    parser << element.number;
    break;
  case reference::TemplateElement::forward:
    parser >> element.number;
    break;
  case reference::TemplateElement::signedMove:
    parser >> element.delta;
    break;
  case reference::TemplateElement::reset:
    parser >> IStringParser::reset;
    break;
  }
}

}  // namespace parserchains

#endif
