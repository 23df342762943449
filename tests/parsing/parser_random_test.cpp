// parser_random_test.cpp - IStringParser: random templates on random texts, against the rules taken literally.
#include "support/character_texts.hpp"
#include "support/expect_text.hpp"
#include "support/multibyte_reference.hpp"
#include "support/parser_reference.hpp"
#include "support/reference.hpp"

#include <quelmcl/istparse.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrtest.hpp>

#include <gtest/gtest.h>

#include <ctype.h>

#include <climits>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

using quelmcl_test::CharacterTexts;
using reference::TemplateElement;
using reference::TextRules;

namespace {

constexpr unsigned variableCount = 4;

const TextRules bytewise = {
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

const TextRules characterwise = {
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

int (*const tests[])(int) = {isspace, isdigit, ispunct, isupper};

/// Texts with words, separators, and in multi-byte locales long and broken characters among them.
class Chains {
public:
  std::string text()
  {
    if (MB_CUR_MAX > 1 && random.onceIn(2))
      return random.characters() + separators() + random.characters();
    return random.text("ab ,; \t1", 24);
  }

  std::vector<TemplateElement> chain(const std::string& text)
  {
    std::vector<TemplateElement> elements(1 + random.below(12));
    for (TemplateElement& one : elements)
      one = element(text);
    return elements;
  }

private:
  std::string separators() { return random.text(" ,;", 2); }

  TemplateElement element(const std::string& text)
  {
    TemplateElement made = {TemplateElement::token, random.below(variableCount), "", 0, 0, isspace};
    if (random.onceIn(2))
      return made;
    made.kind = static_cast<TemplateElement::Kind>(random.below(TemplateElement::reset + 1));
    made.pattern = random.onceIn(2) ? separators() : random.needle(text);
    made.number =
      random.onceIn(8) ? std::numeric_limits<unsigned long>::max() - random.below(3) : random.position(text.size());
    if (made.kind == TemplateElement::skips)
      made.number = random.below(30);
    made.delta =
      random.onceIn(8) ? INT_MIN + static_cast<int>(random.below(2)) : static_cast<int>(random.below(12)) - 6;
    made.passes = tests[random.below(4)];
    return made;
  }

  CharacterTexts random;
};

void apply(IStringParser& parser, const TemplateElement& element, std::vector<IString>& variables)
{
  const std::string& pattern = element.pattern;
  switch (element.kind) {
  case TemplateElement::token:
    parser >> variables[element.variable];
    break;
  case TemplateElement::skip:
    parser >> IStringParser::skipWord;
    break;
  case TemplateElement::skips:
    parser >> IStringParser::SkipWords(element.number);
    break;
  case TemplateElement::literal:
    if (pattern.size() == 1)
      parser >> pattern[0];
    else if (pattern.size() % 2 == 0 && pattern.find('\0') == std::string::npos)
      parser >> pattern.c_str();
    else
      parser >> IString(pattern.data(), static_cast<unsigned>(pattern.size()));
    break;
  case TemplateElement::test:
    parser >> IStringTest(*element.passes.target<int (*)(int)>());
    break;
  case TemplateElement::absolute:
    parser << element.number;
    break;
  case TemplateElement::forward:
    parser >> element.number;
    break;
  case TemplateElement::signedMove:
    parser >> element.delta;
    break;
  case TemplateElement::reset:
    parser >> IStringParser::reset;
    break;
  }
}

std::string told(const std::vector<TemplateElement>& chain)
{
  std::string text;
  for (const TemplateElement& element : chain)
    text += " kind " + std::to_string(element.kind) + " variable " + std::to_string(element.variable) + " pattern " +
            testing::PrintToString(element.pattern) + " number " + std::to_string(element.number) + " delta " +
            std::to_string(element.delta) + ';';
  return text;
}

TEST(ParserChains, AtRandomDoWhatTheirElementsSayOneAfterTheOther)
{
  const TextRules& rules = MB_CUR_MAX > 1 ? characterwise : bytewise;
  Chains random;
  for (int round = 0; round < 20000; ++round) {
    const std::string text = random.text();
    const std::vector<TemplateElement> chain = random.chain(text);
    const std::vector<std::string> expected = reference::parsed(text, chain, variableCount, rules);

    std::vector<IString> variables(variableCount);
    {
      const IString source(text.data(), static_cast<unsigned>(text.size()));
      auto&& parser = source >> 0;
      for (const TemplateElement& element : chain)
        apply(parser, element, variables);
    }
    for (unsigned i = 0; i < variableCount; ++i)
      EXPECT_TEXT(variables[i], expected[i]) << testing::PrintToString(text) << told(chain) << " variable " << i;
    if (HasFailure())
      break;
  }
}

}  // namespace
