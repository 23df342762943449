// multibyte.cpp - fuzz target: the multi-byte kind of buffer, and strings on it, beside tests/support/multibyte_reference.hpp. Each
// character set has runs of its own: QUELMCL_TEST_LOCALE names the locale.
#include "buffers/multibyte_probe.hpp"
#include "input.hpp"
#include "strings/string_probe.hpp"
#include "support/character_texts.hpp"
#include "support/multibyte_reference.hpp"

#include <ctype.h>

#include <optional>

namespace rules = reference::multibyte;
using buffertests::Asks;
using buffertests::Held;
using buffertests::Text;
using fuzz::agree;
using quelmcl_test::ExactBytes;
using stringtests::made;

namespace {

std::vector<fuzz::Palette> palettesOfLocale()
{
  const quelmcl_test::Alphabet& alphabet = quelmcl_test::Alphabet::current();
  fuzz::Palette sound = alphabet.longCharacters;
  sound.insert(sound.end(), alphabet.oneByte.begin(), alphabet.oneByte.end());
  fuzz::Palette mixed = sound;
  mixed.insert(mixed.end(), alphabet.broken.begin(), alphabet.broken.end());
  return {mixed, sound, mixed, {}};
}

/// Answers for the test of a character that is asked.
int isHigh(int byte)
{
  return byte < 0;
}

struct Operands {
  explicit Operands(fuzz::Input& input)
    : text(input.text(10)),
      other(input.near(text, 4)),
      another(input.near(text, 4)),
      start(input.position(text.size())),
      place(text.empty() ? 1 : 1 + input.below(static_cast<unsigned>(text.size()))),
      index(input.below(static_cast<unsigned>(text.size()) + 4)),
      length(input.length(text.size())),
      count(input.position(text.size())),
      limit(input.limit()),
      wordNumber(input.wordNumber()),
      wordCount(input.wordNumber()),
      small(input.below(5)),
      pad(input.flag() ? '*' : input.byte()),
      mode(static_cast<IStringEnum::StripMode>(input.below(4))),
      owners(1 + input.below(2)),
      question(input.flag() ? isHigh : isspace),
      buffer(text),
      sought(other),
      second(another)
  {
  }

  /// Lets a buffer of the text be edited, which one or two own, and looks at which buffer comes out.
  template <class Edit>
  void edit(Edit edit, const rules::Result& expected) const
  {
    const Text receiver(text);
    std::optional<Held> otherOwner;
    if (owners == 2)
      otherOwner.emplace(receiver->addRef());
    const Held result(edit(receiver.get()));
    agree(result.get(), expected.text);
    const bool isReceiver =
      expected.buffer == rules::Result::receiver || (expected.buffer == rules::Result::edited && owners == 1);
    agree((result.get() == receiver.get()) == isReceiver, "is the receiver exactly where the rules say so");
    if (!isReceiver)
      agree(receiver.get(), text);
    agree(receiver->useCount(), isReceiver ? owners + 1 : owners);
  }

  std::string text, other, another;
  unsigned start, place, index, length, count, limit;
  unsigned long wordNumber, wordCount;
  unsigned small;
  char pad;
  IStringEnum::StripMode mode;
  unsigned owners;
  int (*question)(int);
  Text buffer;
  ExactBytes sought, second;  // of `other` and `another`
};

/// A search for the bytes of a set or a text, in both forms.
using LibrarySearch = unsigned (IBuffer::*)(const char*, unsigned, unsigned) const;
using SlowSearch = unsigned (*)(const std::string&, const std::string&, unsigned);

template <LibrarySearch library, SlowSearch slow>
void search(const Operands& on)
{
  agree((on.buffer.get()->*library)(on.sought.get(), on.sought.length(), on.start), slow(on.text, on.other, on.start));
}

using LibraryTestSearch = unsigned (IBuffer::*)(const IStringTest&, unsigned) const;
using SlowTestSearch = unsigned (*)(const std::string&, const rules::Test&, unsigned);

template <LibraryTestSearch library, SlowTestSearch slow>
void searchByTest(const Operands& on)
{
  agree((on.buffer.get()->*library)(Asks(on.question), on.start), slow(on.text, on.question, on.start));
}

const fuzz::Operation<Operands> operations[] = {
  {"lengths and kinds of characters",
   [](const Operands& on) {
     agree(static_cast<unsigned>(on.buffer->charType(on.place)), rules::charType(on.text, on.place));
     if (on.text.empty())
       return;
     agree(on.buffer.charLength(on.place), rules::charLength(on.text, on.place));
     agree(on.buffer.prevCharLength(on.place), rules::prevCharLength(on.text, on.place));
     agree(on.buffer.isCharValid(on.place, on.sought.get(), on.sought.length()) != 0,
           rules::isCharValid(on.text, on.place, on.other));
   }},
  {"of what the text consists",
   [](const Operands& on) {
     agree(on.buffer->isSBCS() != 0, rules::isSBCS(on.text));
     agree(on.buffer->isMBCS() != 0, rules::isMBCS(on.text));
     agree(on.buffer->isValidMBCS() != 0, rules::isValidMBCS(on.text));
     agree(on.buffer->isWhiteSpace() != 0, rules::isAll(on.text, isspace));
     agree(on.buffer->isPrintable() != 0, rules::isAll(on.text, isprint));
     agree(on.buffer->isASCII() != 0, rules::isASCII(on.text));
   }},
  {"where searches start",
   [](const Operands& on) {
     agree(on.buffer.startSearch(on.start, on.count), rules::startSearch(on.text, on.start, on.count));
     agree(on.buffer.startBackwardsSearch(on.start, on.count),
           rules::startBackwardsSearch(on.text, on.start, on.count));
   }},
  {"indexOf", search<&IBuffer::indexOf, rules::indexOf>},
  {"indexOfAnyOf", search<&IBuffer::indexOfAnyOf, rules::indexOfAnyOf>},
  {"indexOfAnyBut", search<&IBuffer::indexOfAnyBut, rules::indexOfAnyBut>},
  {"lastIndexOf", search<&IBuffer::lastIndexOf, rules::lastIndexOf>},
  {"lastIndexOfAnyOf", search<&IBuffer::lastIndexOfAnyOf, rules::lastIndexOfAnyOf>},
  {"lastIndexOfAnyBut", search<&IBuffer::lastIndexOfAnyBut, rules::lastIndexOfAnyBut>},
  {"indexOf a test", searchByTest<&IBuffer::indexOf, rules::indexOf>},
  {"indexOfAnyBut a test", searchByTest<&IBuffer::indexOfAnyBut, rules::indexOfAnyBut>},
  {"lastIndexOf a test", searchByTest<&IBuffer::lastIndexOf, rules::lastIndexOf>},
  {"lastIndexOfAnyBut a test", searchByTest<&IBuffer::lastIndexOfAnyBut, rules::lastIndexOfAnyBut>},
  {"occurrencesOf a text",
   [](const Operands& on) {
     agree(made(on.text).occurrencesOf(made(on.other), on.start), rules::occurrencesOf(on.text, on.other, on.start));
   }},
  {"occurrencesOf a test",
   [](const Operands& on) {
     agree(made(on.text).occurrencesOf(Asks(on.question), on.start),
           rules::occurrencesOf(on.text, on.question, on.start));
   }},
  {"subString",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->subString(on.start, on.length, on.pad); },
             {rules::subString(on.text, on.start, on.length, on.pad), rules::Result::fresh});
   }},
  {"center",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->center(on.length, on.pad); }, rules::center(on.text, on.length, on.pad));
   }},
  {"leftJustify",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->leftJustify(on.length, on.pad); },
             rules::leftJustify(on.text, on.length, on.pad));
   }},
  {"rightJustify",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->rightJustify(on.length, on.pad); },
             rules::rightJustify(on.text, on.length, on.pad));
   }},
  {"insert",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->insert(on.sought.get(), on.sought.length(), on.index, on.pad); },
             rules::insert(on.text, on.other, on.index, on.pad));
   }},
  {"insert its own end",
   [](const Operands& on) {
     const unsigned offset = on.text.empty() ? 0 : on.place - 1;
     const std::string tail = on.text.substr(offset);
     on.edit(
       [&](IBuffer* text) {
         return text->insert(text->contents() + offset, static_cast<unsigned>(tail.size()), on.index, on.pad);
       },
       rules::insert(on.text, tail, on.index, on.pad));
   }},
  {"overlayWith",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->overlayWith(on.sought.get(), on.sought.length(), on.index, on.pad); },
             rules::overlayWith(on.text, on.other, on.index, on.pad));
   }},
  {"remove",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->remove(on.start, on.count); },
             rules::remove(on.text, on.start, on.count));
   }},
  {"copy",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->copy(on.small); }, rules::copy(on.text, on.small));
   }},
  {"lowerCase",
   [](const Operands& on) { on.edit([](IBuffer* text) { return text->lowerCase(); }, rules::lowerCase(on.text)); }},
  {"upperCase",
   [](const Operands& on) { on.edit([](IBuffer* text) { return text->upperCase(); }, rules::upperCase(on.text)); }},
  {"reverse",
   [](const Operands& on) { on.edit([](IBuffer* text) { return text->reverse(); }, rules::reverse(on.text)); }},
  {"strip a set",
   [](const Operands& on) {
     on.edit([&](IBuffer* text) { return text->strip(on.sought.get(), on.sought.length(), on.mode); },
             rules::strip(on.text, on.other, on.mode));
   }},
  {"strip by a test",
   [](const Operands& on) {
     const Asks test(on.question);
     on.edit([&](IBuffer* text) { return text->strip(test, on.mode); }, rules::strip(on.text, on.question, on.mode));
   }},
  {"change",
   [](const Operands& on) {
     on.edit(
       [&](IBuffer* text) {
         return text->change(on.sought.get(), on.sought.length(), on.second.get(), on.second.length(), on.start,
                             on.limit);
       },
       rules::change(on.text, on.other, on.another, on.start, on.limit));
   }},
  {"translate",
   [](const Operands& on) {
     const std::optional<std::string> expected = rules::translate(on.text, on.other, on.another, on.pad);
     const auto translate = [&](IBuffer* text) {
       return text->translate(on.sought.get(), on.sought.length(), on.second.get(), on.second.length(), on.pad);
     };
     if (expected) {
       on.edit(translate, {*expected, rules::Result::fresh});
       return;
     }
     agree(stringtests::errorIdOf([&] { Held(translate(on.buffer.get())); }), stringtests::tooLong);
     agree(on.buffer.get(), on.text);
   }},
  {"words are counted and measured",
   [](const Operands& on) {
     const IString text = made(on.text);
     agree(text.numWords(), rules::numWords(on.text));
     agree(text.indexOfWord(on.wordNumber), rules::indexOfWord(on.text, on.wordNumber));
     agree(text.lengthOfWord(on.wordNumber), rules::lengthOfWord(on.text, on.wordNumber));
   }},
  {"words are taken",
   [](const Operands& on) {
     agree(made(on.text).word(on.wordNumber), rules::word(on.text, on.wordNumber));
     agree(made(on.text).words(on.wordNumber, on.wordCount), rules::words(on.text, on.wordNumber, on.wordCount));
   }},
  {"words are removed",
   [](const Operands& on) {
     const IString text = made(on.text);
     agree(IString::removeWords(text, on.wordNumber, on.wordCount),
           rules::removeWords(on.text, on.wordNumber, on.wordCount));
     agree(text, on.text);
   }},
  {"words are spaced",
   [](const Operands& on) {
     agree(IString::space(made(on.text), on.small, on.pad), rules::space(on.text, on.small, on.pad));
   }},
  {"phrases",
   [](const Operands& on) {
     agree(made(on.text).indexOfPhrase(made(on.other), on.wordNumber),
           rules::indexOfPhrase(on.text, on.other, on.wordNumber));
     agree(made(on.text).wordIndexOfPhrase(made(on.other), on.wordNumber),
           rules::wordIndexOfPhrase(on.text, on.other, on.wordNumber));
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  static const std::vector<fuzz::Palette> palettes = palettesOfLocale();
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
