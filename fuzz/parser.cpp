// parser.cpp - fuzz target: templates of any elements on any texts, beside tests/support/parser_reference.hpp, in the locale of the run.
#include "input.hpp"
#include "support/parser_chains.hpp"

#include <climits>

using reference::TemplateElement;

namespace {

constexpr unsigned variableCount = 3;

const std::vector<fuzz::Palette> palettes = {fuzz::bytesOf("ab ,;\t1"),
                                             fuzz::bytesOf("a  ,"),
                                             {"a", "b", " ", ",", "1", "\xC3\xA9", "\xE2\x82\xAC", "\xC3", "\x83\x5C"},
                                             {}};

TemplateElement elementOf(fuzz::Input& input, const std::string& text)
{
  TemplateElement made = {TemplateElement::token, 0, "", 0, 0, isspace};
  // More variables than anything else: the other elements are about them.
  if (const unsigned kind = input.below(16); kind <= TemplateElement::reset)
    made.kind = static_cast<TemplateElement::Kind>(kind);
  switch (made.kind) {
  case TemplateElement::token:
    made.variable = input.below(variableCount);
    break;
  case TemplateElement::skips:
    made.number = input.below(30);
    break;
  case TemplateElement::literal:
    made.pattern = input.near(text, 3);
    break;
  case TemplateElement::test:
    made.passes = parserchains::tests[input.below(4)];
    break;
  case TemplateElement::absolute:
  case TemplateElement::forward:
    made.number = input.flag() ? input.position(text.size()) : input.wordNumber();
    break;
  case TemplateElement::signedMove:
    made.delta = input.flag() ? static_cast<int>(input.below(12)) - 6 : input.anyInt();
    break;
  case TemplateElement::skip:
  case TemplateElement::reset:
    break;
  }
  return made;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  constexpr std::size_t longestChain = 6;
  fuzz::Input input(bytes, count, palettes);
  const std::string text = input.text(12);
  std::vector<TemplateElement> chain;
  while (!input.isUsedUp() && chain.size() < longestChain)
    chain.push_back(elementOf(input, text));

  std::vector<IString> variables(variableCount);
  {
    const IString source(text.data(), static_cast<unsigned>(text.size()));
    auto&& parser = source >> 0;
    for (const TemplateElement& element : chain)
      parserchains::apply(parser, element, variables);
  }
  const std::vector<std::string> expected = reference::parsed(text, chain, variableCount, parserchains::rulesInForce());
  for (unsigned i = 0; i < variableCount; ++i)
    fuzz::agree(variables[i], expected[i]);
  return 0;
}
