// words.cpp - fuzz target: words of the single-byte kind, beside tests/support/reference.hpp.
#include "input.hpp"
#include "strings/string_probe.hpp"
#include "support/reference.hpp"

using fuzz::agree;
using stringtests::made;

namespace {

const std::vector<fuzz::Palette> palettes = {
  fuzz::bytesOf("ab  "), fuzz::bytesOf("aab\t\n\v\f\r \0\x1F\x85\xA0\xE9"), {}};

struct Operands {
  explicit Operands(fuzz::Input& input)
    : text(input.text(40)),
      phrase(input.near(text, 10)),
      number(input.wordNumber()),
      count(input.wordNumber()),
      start(input.position(text.size())),
      passed(input.below(3)),
      spaces(input.below(5)),
      filler(input.byte()),
      string(made(text))
  {
  }

  std::string text, phrase;
  unsigned long number, count;
  unsigned start;
  unsigned long passed, spaces;
  char filler;
  stringtests::Probe string;
};

const fuzz::Operation<Operands> operations[] = {
  {"numWords", [](const Operands& on) { agree(on.string.numWords(), reference::numWords(on.text)); }},
  {"word", [](const Operands& on) { agree(on.string.word(on.number), reference::word(on.text, on.number)); }},
  {"words to the end",
   [](const Operands& on) { agree(on.string.words(on.number), reference::words(on.text, on.number)); }},
  {"words",
   [](const Operands& on) {
     agree(on.string.words(on.number, on.count), reference::words(on.text, on.number, on.count));
   }},
  {"indexOfWord",
   [](const Operands& on) {
     const IString& string = on.string;
     agree(string.indexOfWord(on.number), reference::indexOfWord(on.text, on.number));
   }},
  {"indexOfWord from a position",
   [](const Operands& on) {
     agree(on.string.indexOfWord(on.number, on.start, on.passed),
           reference::indexOfWord(on.text, on.number, on.start, on.passed));
   }},
  {"lengthOfWord",
   [](const Operands& on) { agree(on.string.lengthOfWord(on.number), reference::lengthOfWord(on.text, on.number)); }},
  {"indexOfPhrase",
   [](const Operands& on) {
     agree(on.string.indexOfPhrase(made(on.phrase), on.number),
           reference::indexOfPhrase(on.text, on.phrase, on.number));
   }},
  {"wordIndexOfPhrase",
   [](const Operands& on) {
     agree(on.string.wordIndexOfPhrase(made(on.phrase), on.number),
           reference::wordIndexOfPhrase(on.text, on.phrase, on.number));
   }},
  {"removeWords to the end",
   [](const Operands& on) {
     agree(IString::removeWords(on.string, on.number), reference::removeWords(on.text, on.number));
     agree(on.string, on.text);
   }},
  {"removeWords",
   [](const Operands& on) {
     agree(IString::removeWords(on.string, on.number, on.count), reference::removeWords(on.text, on.number, on.count));
     agree(on.string, on.text);
   }},
  {"space",
   [](const Operands& on) {
     agree(IString::space(on.string, on.spaces, on.filler), reference::space(on.text, on.spaces, on.filler));
     agree(on.string, on.text);
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
