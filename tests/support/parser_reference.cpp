// parser_reference.cpp - the parser's rules, one after the other.
#include "parser_reference.hpp"

#include <climits>
#include <utility>

namespace reference {

namespace {

const std::string whiteSpace = "\t\n\v\f\r ";

class Parse {
public:
  Parse(std::string parsedText, const TextRules& textRules) : text(std::move(parsedText)), rules(textRules) {}

  void token(std::string& variable)
  {
    reparseLastToken();
    variable = current > length() ? std::string() : rest(current);
    lastToken = &variable;
    lastSkip = false;
  }

  void skip()
  {
    reparseLastToken();
    lastToken = nullptr;
    lastSkip = true;
  }

  void save(std::string* variable) { saved.push_back(variable); }

  void literal(const std::string& pattern)
  {
    const unsigned long start = patternPosition + patternLength;
    const unsigned found = rules.indexOf(text, pattern, static_cast<unsigned>(start));
    if (found != 0) {
      patternPosition = found;
      patternLength = pattern.size();
      if (!saved.empty())
        reparseTokens(start, found);
    } else {
      patternPosition = length() + 1;
      patternLength = 0;
    }
    current = patternPosition + patternLength;
    clear();
  }

  void test(const std::function<int(int)>& passes)
  {
    const unsigned found = rules.indexOfTest(text, passes, static_cast<unsigned>(patternPosition + patternLength));
    setPosition(found == 0 ? length() + 1 : found);
  }

  void setPosition(unsigned long position)
  {
    const unsigned long p = position == 0 ? 1 : position;
    if (p <= length()) {
      const unsigned long start = patternPosition + patternLength;
      if (p > start && !saved.empty())
        reparseTokens(start, p);
      patternPosition = p;
    } else {
      patternPosition = length() + 1;
    }
    patternLength = 0;
    current = patternPosition;
    clear();
  }

  void forward(unsigned long n)
  {
    unsigned long target = patternPosition + n;
    if (target < n)
      target = length() + 1;
    if (patternLength != 0 && !saved.empty() && target > length())
      reparseTokens(patternPosition, length() + 1);
    patternLength = 0;
    setPosition(target);
  }

  void move(int n)
  {
    if (n >= 0) {
      forward(static_cast<unsigned long>(n));
      return;
    }
    unsigned long target = 1;
    if (n != INT_MIN && patternPosition >= static_cast<unsigned long>(-n))
      target = patternPosition - static_cast<unsigned long>(-n);
    if (patternLength != 0 && !saved.empty())
      reparseTokens(patternPosition, length() + 1);
    patternLength = 0;
    setPosition(target);
  }

private:
  unsigned long length() const { return text.size(); }

  std::string rest(unsigned long from) const
  {
    return rules.subString(text, static_cast<unsigned>(from), static_cast<unsigned>(length() + 1 - from));
  }

  unsigned firstWhite(unsigned long from) const
  {
    return rules.indexOfAnyOf(text, whiteSpace, static_cast<unsigned>(from));
  }

  unsigned firstOther(unsigned long from) const
  {
    return rules.indexOfAnyBut(text, whiteSpace, static_cast<unsigned>(from));
  }

  void reparseLastToken()
  {
    if (lastToken != nullptr) {
      const unsigned s = firstOther(current);
      const unsigned e = s == 0 ? 0 : firstWhite(s);
      if (s == 0) {
        lastToken->clear();
        current = length() + 1;
      } else if (e != 0) {
        *lastToken = rules.subString(text, s, e - s);
        current = e + 1ul;
      } else {
        if (s > current)
          *lastToken = rest(s);
        current = length() + 1;
      }
      lastToken = nullptr;
    }
    if (lastSkip) {
      const unsigned s = firstOther(current);
      const unsigned e = s == 0 ? 0 : firstWhite(s);
      current = s != 0 && e != 0 ? e + 1ul : length() + 1;
      lastSkip = false;
    }
  }

  void reparseTokens(unsigned long start, unsigned long end)
  {
    Parse section(rules.subString(text, static_cast<unsigned>(start), static_cast<unsigned>(end - start)), rules);
    for (std::string* const entry : saved)
      if (entry != nullptr)
        section.token(*entry);
      else
        section.skip();
    clear();
  }

  void clear()
  {
    saved.clear();
    lastToken = nullptr;
    lastSkip = false;
  }

  const std::string text;
  const TextRules& rules;
  unsigned long current = 1;
  unsigned long patternPosition = 1;
  unsigned long patternLength = 0;
  std::string* lastToken = nullptr;
  bool lastSkip = false;
  std::vector<std::string*> saved;
};

void apply(Parse& parse, const TemplateElement& element, std::vector<std::string>& variables)
{
  switch (element.kind) {
  case TemplateElement::token:
    parse.token(variables[element.variable]);
    parse.save(&variables[element.variable]);
    break;
  case TemplateElement::skip:
    parse.skip();
    parse.save(nullptr);
    break;
  case TemplateElement::skips:
    for (unsigned long i = 0; i < element.number; ++i) {
      parse.skip();
      parse.save(nullptr);
    }
    break;
  case TemplateElement::literal:
    parse.literal(element.pattern);
    break;
  case TemplateElement::test:
    parse.test(element.passes);
    break;
  case TemplateElement::absolute:
    parse.setPosition(element.number);
    break;
  case TemplateElement::forward:
    parse.forward(element.number);
    break;
  case TemplateElement::signedMove:
    parse.move(element.delta);
    break;
  case TemplateElement::reset:
    parse.setPosition(1);
    break;
  }
}

}  // namespace

std::vector<std::string> parsed(const std::string& text, const std::vector<TemplateElement>& chain, unsigned count,
                                const TextRules& rules)
{
  std::vector<std::string> variables(count);
  Parse parse(text, rules);
  for (const TemplateElement& element : chain)
    apply(parse, element, variables);
  return variables;
}

}  // namespace reference
