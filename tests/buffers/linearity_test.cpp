// linearity_test.cpp - every operation on texts with characters of several bytes is linear in the text: counted in
// decisions of how long a character is, which no other load of the machine can disturb. The library's sources are
// compiled into this program with QUELMCL_COUNT_CHARACTER_DECISIONS.
#include "buffers/characterset.hpp"
#include "exceptions/hooks.hpp"
#include "multibyte_probe.hpp"
#include "support/character_texts.hpp"

#include <quelmcl/idbcsb.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <string>
#include <vector>

using namespace buffertests;
using quelmcl_test::LocaleInForce;

namespace {

/// What an operation works on: one text as a buffer and as a string.
struct Subject {
  explicit Subject(const std::string& text)
    : size(static_cast<unsigned>(text.size())), held(text), buffer(held.get()), string(text.data(), size)
  {
  }
  unsigned size;
  Text held;
  IDBCSBuffer* buffer;
  IString string;
};

struct Operation {
  const char* name;
  double perByte;  ///< the greatest number of decisions for each byte of the text
  std::function<void(Subject&)> run;
};

// Above what grows with the text: decisions about sets, lists, and the two ends.
constexpr double constantPart = 200;

void drop(IBuffer* result)
{
  result->removeRef();
}

const IStringTest never([](int) { return 0; });
const IStringTest always([](int) { return 1; });
const char set[] = "\x83\x5C\xA9\xC3\xA9?!";
constexpr unsigned setLength = sizeof set - 1;

// A character has at least one byte. One: each character is decided on once at most. Two: at most once more, to see
// whether what was found begins a character, or there is a pass that counts and one that builds. Four: both.
const Operation operations[] = {
  {"charType", 1, [](Subject& on) { on.buffer->charType(on.size); }},
  {"prevCharLength", 1, [](Subject& on) { on.held.prevCharLength(on.size + 1); }},
  {"startSearch", 1, [](Subject& on) { on.held.startSearch(on.size, 1); }},
  {"startBackwardsSearch", 1, [](Subject& on) { on.held.startBackwardsSearch(on.size, 1); }},
  {"isSBCS", 1, [](Subject& on) { on.buffer->isSBCS(); }},
  {"isMBCS", 1, [](Subject& on) { on.buffer->isMBCS(); }},
  {"isValidMBCS", 1, [](Subject& on) { on.buffer->isValidMBCS(); }},
  {"includesMBCS", 1, [](Subject& on) { on.buffer->includesMBCS(); }},
  {"includesSBCS", 1, [](Subject& on) { on.buffer->includesSBCS(); }},
  {"isPrintable", 1, [](Subject& on) { on.buffer->isPrintable(); }},

  {"indexOf a text that is nowhere", 1, [](Subject& on) { on.buffer->indexOf("\x5C?", 2, 1); }},
  {"indexOf bytes that are inside of characters only", 1, [](Subject& on) { on.buffer->indexOf("\x5C\x83", 2, 1); }},
  {"indexOf trail bytes", 1, [](Subject& on) { on.buffer->indexOf("\xA9\xC3", 2, 1); }},
  {"indexOf one byte", 1, [](Subject& on) { on.buffer->indexOf("\x5C", 1, 1); }},
  {"indexOf one trail byte", 1, [](Subject& on) { on.buffer->indexOf("\xA9", 1, 1); }},
  {"indexOf from the end", 1, [](Subject& on) { on.buffer->indexOf("?", 1, on.size); }},
  {"indexOfAnyOf a set", 1, [](Subject& on) { on.buffer->indexOfAnyOf("?!", 2, 1); }},
  {"indexOfAnyOf a set of long characters", 1, [](Subject& on) { on.buffer->indexOfAnyOf("\xC3\x80\x83\x7C?", 5, 1); }},
  {"indexOfAnyOf a test", 1, [](Subject& on) { on.buffer->indexOfAnyOf(never, 1); }},
  {"indexOfAnyBut a set", 1, [](Subject& on) { on.buffer->indexOfAnyBut(set, setLength, 1); }},
  {"indexOfAnyBut a test", 1, [](Subject& on) { on.buffer->indexOfAnyBut(always, 1); }},
  {"lastIndexOf a text that is nowhere", 1, [](Subject& on) { on.buffer->lastIndexOf("\x5C?", 2, largest); }},
  {"lastIndexOf bytes that are inside of characters only", 1,
   [](Subject& on) { on.buffer->lastIndexOf("\x5C\x83", 2, largest); }},
  {"lastIndexOf trail bytes", 1, [](Subject& on) { on.buffer->lastIndexOf("\xA9\xC3", 2, largest); }},
  {"lastIndexOf one byte", 1, [](Subject& on) { on.buffer->lastIndexOf("\x5C", 1, largest); }},
  {"lastIndexOf one trail byte", 1, [](Subject& on) { on.buffer->lastIndexOf("\xA9", 1, largest); }},
  {"lastIndexOf the first byte", 1, [](Subject& on) { on.buffer->lastIndexOf(on.buffer->contents(), 1, on.size / 2); }},
  {"lastIndexOfAnyOf a set", 1, [](Subject& on) { on.buffer->lastIndexOfAnyOf("?!", 2, largest); }},
  {"lastIndexOfAnyOf a set of long characters", 1,
   [](Subject& on) { on.buffer->lastIndexOfAnyOf("\xC3\x80\x83\x7C?", 5, largest); }},
  {"lastIndexOfAnyOf a test", 1, [](Subject& on) { on.buffer->lastIndexOfAnyOf(never, largest); }},
  {"lastIndexOfAnyBut a set", 1, [](Subject& on) { on.buffer->lastIndexOfAnyBut(set, setLength, largest); }},
  {"lastIndexOfAnyBut a test", 1, [](Subject& on) { on.buffer->lastIndexOfAnyBut(always, largest); }},

  {"subString", 1, [](Subject& on) { drop(on.buffer->subString(on.size / 2, on.size / 3, '*')); }},
  {"center", 1, [](Subject& on) { drop(on.buffer->center(on.size / 2, '*')); }},
  {"leftJustify", 1, [](Subject& on) { drop(on.buffer->leftJustify(on.size - 1, '*')); }},
  {"rightJustify", 1, [](Subject& on) { drop(on.buffer->rightJustify(on.size - 1, '*')); }},
  {"insert", 1, [](Subject& on) { drop(on.buffer->insert("x", 1, on.size - 1, '*')); }},
  {"overlayWith", 1, [](Subject& on) { drop(on.buffer->overlayWith("x", 1, on.size - 3, '*')); }},
  {"remove", 1, [](Subject& on) { drop(on.buffer->remove(on.size / 3, on.size / 2)); }},
  {"lowerCase", 1, [](Subject& on) { drop(on.buffer->lowerCase()); }},
  {"upperCase", 1, [](Subject& on) { drop(on.buffer->upperCase()); }},
  {"reverse", 1, [](Subject& on) { drop(on.buffer->reverse()); }},
  {"strip a set", 2, [](Subject& on) { drop(on.buffer->strip(set, setLength, IStringEnum::both)); }},
  {"strip by a test", 2, [](Subject& on) { drop(on.buffer->strip(IStringTest(isspace), IStringEnum::both)); }},
  {"strip everything at the end", 2, [](Subject& on) { drop(on.buffer->strip(always, IStringEnum::trailing)); }},
  {"translate", 2, [](Subject& on) { drop(on.buffer->translate("aeo ", 4, "AEO-", 4, '*')); }},
  {"translate to longer characters", 2,
   [](Subject& on) { drop(on.buffer->translate("ae", 2, "\xC3\xA9\x83\x5C", 4, '*')); }},
  {"change to the same length", 2, [](Subject& on) { drop(on.buffer->change("a", 1, "b", 1, 1, largest)); }},
  {"change to another length", 4, [](Subject& on) { drop(on.buffer->change("a", 1, "bcd", 3, 1, largest)); }},
  {"change of bytes that are inside of characters only", 4,
   [](Subject& on) { drop(on.buffer->change("\x5C", 1, "bcd", 3, 1, largest)); }},
  {"change of long characters", 4,
   [](Subject& on) { drop(on.buffer->change(on.buffer->contents(), 2, "-", 1, 1, largest)); }},
  {"change the last occurrence", 2,
   [](Subject& on) { drop(on.buffer->change("a", 1, "bcd", 3, on.size - 9, largest)); }},

  {"occurrencesOf a text", 2, [](Subject& on) { on.string.occurrencesOf("a "); }},
  {"occurrencesOf bytes inside of characters", 2, [](Subject& on) { on.string.occurrencesOf("\x5C"); }},
  {"occurrencesOf one byte", 2, [](Subject& on) { on.string.occurrencesOf('a'); }},
  {"occurrencesOf a lead byte", 2, [](Subject& on) { on.string.occurrencesOf(on.buffer->contents()[0]); }},
  {"occurrencesOf a test", 2, [](Subject& on) { on.string.occurrencesOf(always); }},
  {"numWords", 2, [](Subject& on) { on.string.numWords(); }},
  {"indexOfWord", 2, [](Subject& on) { on.string.indexOfWord(4000000000ul); }},
  {"word", 2, [](Subject& on) { on.string.word(on.size / 20); }},
  {"words", 2, [](Subject& on) { on.string.words(on.size / 40, on.size); }},
  {"lengthOfWord", 2, [](Subject& on) { on.string.lengthOfWord(on.size / 20); }},
  {"indexOfPhrase", 2, [](Subject& on) { on.string.indexOfPhrase("ab a zz"); }},
  {"removeWords", 2, [](Subject& on) { on.string.removeWords(3, on.size / 40); }},
  {"space", 4, [](Subject& on) { on.string.space(2); }},
  {"strip of a string", 2, [](Subject& on) { on.string.strip(); }},
};

/// Repeats a pattern up to about a size, whole.
std::string repeated(const std::string& pattern, unsigned size)
{
  std::string text;
  while (text.size() < size)
    text += pattern;
  return text;
}

struct Texts {
  const char* locale;
  std::vector<std::string> patterns;
};

// Words of short and long characters; nothing but long ones; nothing but what is no character; white space; ASCII;
// bytes of sets that the operations look for, everywhere.
const Texts allTexts[] = {
  {"C.UTF-8",
   {"a\xC3\xA9"
    "o \xE2\x82\xAC"
    "x ab a zz\xF0\x9F\x98\x80 ",
    "\xC3\xA9", "\xE2\x82\xAC\xC3\xA9\xC3\xA9", "\xFD\xBF\xBF\xBF\xBF\xBF", "\xA9\x80", "\xC3\xE2\x82", " ", "a",
    "ab a ", "\x5C"}},
  {"ja_JP.SJIS",
   {"a\x83\x5C"
    "o \x83\x41x ab a zz\x95\x5C ",
    "\x83\x5C", "\x82\xA0\x83\x83", "\x83\xFD", "\xB1", " ", "a", "ab a ", "\x5C"}},
  {"zh_CN.GB18030",
   {"a\x95\x5C"
    "o \x81\x30\x81\x30x ab a zz\xB0\xA1 ",
    "\x81\x30\x81\x30", "\x95\x5C\xB0\xA1", "\x81\xFF", "\x81\x30\x81", " ", "a", "ab a ", "\x5C"}},
};

class Linearity : public testing::TestWithParam<std::tuple<unsigned, unsigned>> {
protected:
  const Texts& texts() const { return allTexts[std::get<0>(GetParam())]; }
  const Operation& operation() const { return operations[std::get<1>(GetParam())]; }
};

TEST_P(Linearity, ADecisionOrTwoForEachCharacterWhateverTheSize)
{
  CountingHook quiet;
  const InstalledHook installed(quiet);
  const LocaleInForce locale(texts().locale);
  for (const std::string& pattern : texts().patterns)
    for (const unsigned size : {1u << 10, 1u << 16, 1u << 20}) {
      if (size > 1u << 16 && &pattern != &texts().patterns.front())
        continue;  // the mixed text shows that nothing bends upwards; all of them would take minutes
      Subject subject(repeated(pattern, size));
      const unsigned long before = quelmcl::detail::characterDecisions;
      operation().run(subject);
      const double decisions = static_cast<double>(quelmcl::detail::characterDecisions - before);
      EXPECT_LE(decisions, operation().perByte * subject.size + constantPart)
        << operation().name << " on " << subject.size << " bytes of " << shown(pattern) << " in " << texts().locale
        << ": " << decisions / subject.size << " for each byte";
    }
}

std::string nameOf(const testing::TestParamInfo<std::tuple<unsigned, unsigned>>& info)
{
  std::string name =
    std::string(allTexts[std::get<0>(info.param)].locale) + '_' + operations[std::get<1>(info.param)].name;
  for (char& byte : name)
    if (!std::isalnum(static_cast<unsigned char>(byte)))
      byte = '_';
  return name;
}

INSTANTIATE_TEST_SUITE_P(All, Linearity,
                         testing::Combine(testing::Range(0u, static_cast<unsigned>(std::size(allTexts))),
                                          testing::Range(0u, static_cast<unsigned>(std::size(operations)))),
                         nameOf);

// Nothing above means anything unless decisions are counted.
TEST(LinearityItself, EveryDecisionIsCounted)
{
  const LocaleInForce locale("ja_JP.SJIS");
  const Subject subject(repeated("a\x83\x5C", 3000));
  unsigned long before = quelmcl::detail::characterDecisions;
  IDBCSBuffer::charLength("\x83\x5C");
  EXPECT_EQ(quelmcl::detail::characterDecisions - before, 1u);
  before = quelmcl::detail::characterDecisions;
  drop(subject.buffer->reverse());
  EXPECT_EQ(quelmcl::detail::characterDecisions - before, 1000u)
    << "as many as there are characters that are not seen at a glance to have one byte";
}

}  // namespace
