// patterns.cpp - fuzz target: wildcards, abbreviations and questions about all characters, beside tests/support/reference.hpp.
#include "input.hpp"
#include "strings/string_probe.hpp"
#include "support/reference.hpp"

#include <ctype.h>

using fuzz::agree;
using stringtests::made;

namespace {

const std::vector<fuzz::Palette> palettes = {
  fuzz::bytesOf("ab**?"), fuzz::bytesOf("aab*?\0\xE9"), {}, fuzz::bytesOf("01"), fuzz::bytesOf("09afAF gG\t\x7F!")};

struct Operands {
  explicit Operands(fuzz::Input& input)
    : text(input.text(24)),
      other(input.flag() ? input.text(24) : input.near(text, 24)),
      zeroOrMore(input.flag() ? '*' : input.byte()),
      anyChar(input.flag() ? '?' : input.byte()),
      minimum(input.position(text.size())),
      string(made(text))
  {
  }

  std::string text, other;
  char zeroOrMore, anyChar;
  unsigned minimum;
  IString string;
};

int truth(bool value)
{
  return value ? 1 : 0;
}

/// Both forms of a question about classes of characters.
struct Question {
  int (IString::*ours)() const;
  int (*slow)(int);
};

const Question questions[] = {
  {&IString::isAlphanumeric, isalnum}, {&IString::isAlphabetic, isalpha}, {&IString::isControl, iscntrl},
  {&IString::isDigits, isdigit},       {&IString::isGraphics, isgraph},   {&IString::isHexDigits, isxdigit},
  {&IString::isLowerCase, islower},    {&IString::isPrintable, isprint},  {&IString::isPunctuation, ispunct},
  {&IString::isUpperCase, isupper},    {&IString::isWhiteSpace, isspace},
};

const fuzz::Operation<Operands> operations[] = {
  {"isLike",
   [](const Operands& on) {
     agree(truth(on.string.isLike(made(on.other)) != 0), truth(reference::isLike(on.text, on.other)));
   }},
  {"isLike with other wildcards",
   [](const Operands& on) {
     agree(truth(on.string.isLike(made(on.other), on.zeroOrMore, on.anyChar) != 0),
           truth(reference::isLike(on.text, on.other, on.zeroOrMore, on.anyChar)));
   }},
  {"isLike a C text",
   [](const Operands& on) {
     agree(truth(on.string.isLike(on.other.c_str(), on.zeroOrMore, on.anyChar) != 0),
           truth(reference::isLike(on.text, stringtests::asCText(on.other), on.zeroOrMore, on.anyChar)));
   }},
  {"isAbbreviationFor",
   [](const Operands& on) {
     agree(truth(on.string.isAbbreviationFor(made(on.other), on.minimum) != 0),
           truth(reference::isAbbreviationFor(on.text, on.other, on.minimum)));
   }},
  {"is abbreviated by",
   [](const Operands& on) {
     agree(truth(made(on.other).isAbbreviationFor(on.string, on.minimum) != 0),
           truth(reference::isAbbreviationFor(on.other, on.text, on.minimum)));
   }},
  {"classes of characters",
   [](const Operands& on) {
     for (const Question& question : questions)
       agree(truth((on.string.*question.ours)() != 0), truth(reference::isAll(on.text, question.slow)));
     agree(truth(on.string.isASCII() != 0), truth(reference::isASCII(on.text)));
     agree(truth(on.string.isBinaryDigits() != 0), truth(reference::isBinaryDigits(on.text)));
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
