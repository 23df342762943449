// searching.cpp - fuzz target: searches of the single-byte kind and parts of texts, beside tests/support/reference.hpp.
#include "input.hpp"
#include "strings/string_probe.hpp"
#include "support/reference.hpp"

#include <ctype.h>

using fuzz::agree;
using stringtests::made;

namespace {

const std::vector<fuzz::Palette> palettes = {fuzz::bytesOf("ab"), fuzz::bytesOf("abcAB1 \t\0\x80\xE9\xFF"), {}};

int isHigh(int character)
{
  return character < 0;
}

int (*const tests[])(int) = {isspace, isalpha, isdigit, isHigh};

struct Operands {
  explicit Operands(fuzz::Input& input)
    : text(input.text(40)),
      needle(input.near(text)),
      start(input.position(text.size())),
      length(input.length(text.size())),
      pad(input.byte()),
      question(tests[input.below(4)]),
      string(made(text)),
      sought(made(needle)),
      character(needle.empty() ? '\0' : needle[0]),
      one(1, character)
  {
  }

  std::string text, needle;
  unsigned start, length;
  char pad;
  int (*question)(int);
  IString string, sought;
  char character;
  std::string one;  // of the character
};

const fuzz::Operation<Operands> operations[] = {
  {"indexOf a text",
   [](const Operands& on) {
     agree(on.string.indexOf(on.sought, on.start), reference::indexOf(on.text, on.needle, on.start));
   }},
  {"indexOf a part of itself",
   [](const Operands& on) {
     const char* const tail = static_cast<const char*>(on.string) + on.text.size() / 2;
     agree(on.string.indexOf(tail, on.start),
           reference::indexOf(on.text, stringtests::asCText(on.text.substr(on.text.size() / 2)), on.start));
   }},
  {"indexOf a character",
   [](const Operands& on) {
     agree(on.string.indexOf(on.character, on.start), reference::indexOf(on.text, on.one, on.start));
   }},
  {"indexOf a test",
   [](const Operands& on) {
     agree(on.string.indexOf(IStringTest(on.question), on.start), reference::indexOf(on.text, on.question, on.start));
   }},
  {"indexOfAnyOf a set",
   [](const Operands& on) {
     agree(on.string.indexOfAnyOf(on.sought, on.start), reference::indexOfAnyOf(on.text, on.needle, on.start));
   }},
  {"indexOfAnyOf a character",
   [](const Operands& on) {
     agree(on.string.indexOfAnyOf(on.character, on.start), reference::indexOfAnyOf(on.text, on.one, on.start));
   }},
  {"indexOfAnyOf a test",
   [](const Operands& on) {
     agree(on.string.indexOfAnyOf(IStringTest(on.question), on.start),
           reference::indexOfAnyOf(on.text, on.question, on.start));
   }},
  {"indexOfAnyBut a set",
   [](const Operands& on) {
     agree(on.string.indexOfAnyBut(on.sought, on.start), reference::indexOfAnyBut(on.text, on.needle, on.start));
   }},
  {"indexOfAnyBut a character",
   [](const Operands& on) {
     agree(on.string.indexOfAnyBut(on.character, on.start), reference::indexOfAnyBut(on.text, on.one, on.start));
   }},
  {"indexOfAnyBut a test",
   [](const Operands& on) {
     agree(on.string.indexOfAnyBut(IStringTest(on.question), on.start),
           reference::indexOfAnyBut(on.text, on.question, on.start));
   }},
  {"lastIndexOf a text",
   [](const Operands& on) {
     agree(on.string.lastIndexOf(on.sought, on.start), reference::lastIndexOf(on.text, on.needle, on.start));
   }},
  {"lastIndexOf a character",
   [](const Operands& on) {
     agree(on.string.lastIndexOf(on.character, on.start), reference::lastIndexOf(on.text, on.one, on.start));
   }},
  {"lastIndexOf a test",
   [](const Operands& on) {
     agree(on.string.lastIndexOf(IStringTest(on.question), on.start),
           reference::lastIndexOf(on.text, on.question, on.start));
   }},
  {"lastIndexOfAnyOf a set",
   [](const Operands& on) {
     agree(on.string.lastIndexOfAnyOf(on.sought, on.start), reference::lastIndexOfAnyOf(on.text, on.needle, on.start));
   }},
  {"lastIndexOfAnyOf a test",
   [](const Operands& on) {
     agree(on.string.lastIndexOfAnyOf(IStringTest(on.question), on.start),
           reference::lastIndexOfAnyOf(on.text, on.question, on.start));
   }},
  {"lastIndexOfAnyBut a set",
   [](const Operands& on) {
     agree(on.string.lastIndexOfAnyBut(on.sought, on.start),
           reference::lastIndexOfAnyBut(on.text, on.needle, on.start));
   }},
  {"lastIndexOfAnyBut a character",
   [](const Operands& on) {
     agree(on.string.lastIndexOfAnyBut(on.character, on.start),
           reference::lastIndexOfAnyBut(on.text, on.one, on.start));
   }},
  {"lastIndexOfAnyBut a test",
   [](const Operands& on) {
     agree(on.string.lastIndexOfAnyBut(IStringTest(on.question), on.start),
           reference::lastIndexOfAnyBut(on.text, on.question, on.start));
   }},
  {"occurrencesOf a text",
   [](const Operands& on) {
     agree(on.string.occurrencesOf(on.sought, on.start), reference::occurrencesOf(on.text, on.needle, on.start));
   }},
  {"occurrencesOf a character",
   [](const Operands& on) {
     agree(on.string.occurrencesOf(on.character, on.start), reference::occurrencesOf(on.text, on.one, on.start));
   }},
  {"occurrencesOf a test",
   [](const Operands& on) {
     agree(on.string.occurrencesOf(IStringTest(on.question), on.start),
           reference::occurrencesOf(on.text, on.question, on.start));
   }},
  {"subString",
   [](const Operands& on) {
     agree(on.string.subString(on.start, on.length, on.pad),
           reference::subString(on.text, on.start, on.length, on.pad));
   }},
  {"subString to the end",
   [](const Operands& on) { agree(on.string.subString(on.start), reference::subString(on.text, on.start)); }},
  {"comparison",
   [](const Operands& on) {
     const int order = reference::compare(on.text, on.needle);  // 1: sorts after it
     agree(on.string == on.sought, order == 0 ? 1 : 0);
     agree(on.string < on.sought, order == 2 ? 1 : 0);
     agree(on.string >= on.sought, order != 2 ? 1 : 0);
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
