// parser_random_test.cpp - IStringParser: random templates on random texts, against the rules taken literally.
#include "support/character_texts.hpp"
#include "support/expect_text.hpp"
#include "support/parser_chains.hpp"

#include <quelmcl/istparse.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

using parserchains::apply;
using parserchains::tests;
using quelmcl_test::CharacterTexts;
using reference::TemplateElement;
using reference::TextRules;

namespace {

constexpr unsigned variableCount = 4;

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
  const TextRules& rules = parserchains::rulesInForce();
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
