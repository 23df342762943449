// editing.cpp - fuzz target: edits of the single-byte kind, joining and bits, beside tests/support/reference.hpp.
#include "input.hpp"
#include "strings/string_probe.hpp"
#include "support/reference.hpp"

#include <ctype.h>

using fuzz::agree;
using stringtests::made;

namespace {

const std::vector<fuzz::Palette> palettes = {fuzz::bytesOf("ab"), fuzz::bytesOf("aAbZz@[`{ \t\0\xC1\xE9\xFF"), {}};

struct Operands {
  explicit Operands(fuzz::Input& input)
    : text(input.text(32)),
      other(input.near(text)),
      another(input.near(text, 9)),
      start(input.position(text.size())),
      index(input.length(text.size())),
      length(input.length(text.size())),
      limit(input.limit()),
      copies(input.below(5)),
      pad(input.byte()),
      mode(static_cast<int>(input.below(4))),
      isShared(input.flag()),
      string(made(text))
  {
  }

  IStringEnum::StripMode stripMode() const { return static_cast<IStringEnum::StripMode>(mode); }

  /// Lets a string of the text be changed, as its only owner or as one of two; the other one keeps its text.
  template <class Change>
  void edit(Change change, const std::string& expected) const
  {
    IString changed = made(text);
    const IString sharer = isShared ? changed : IString();
    change(changed);
    agree(changed, expected);
    agree(sharer, isShared ? text : std::string());
  }

  std::string text, other, another;
  unsigned start, index, length, limit, copies;
  char pad;
  int mode;
  bool isShared;
  IString string;
};

const fuzz::Operation<Operands> operations[] = {
  {"center",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.center(on.length, on.pad); }, reference::center(on.text, on.length, on.pad));
   }},
  {"leftJustify",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.leftJustify(on.length, on.pad); }, reference::leftJustify(on.text, on.length, on.pad));
   }},
  {"rightJustify",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.rightJustify(on.length, on.pad); },
             reference::rightJustify(on.text, on.length, on.pad));
   }},
  {"insert",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.insert(made(on.other), on.index, on.pad); },
             reference::insert(on.text, on.other, on.index, on.pad));
   }},
  {"insert itself",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.insert(s, on.index, on.pad); }, reference::insert(on.text, on.text, on.index, on.pad));
   }},
  {"insert its own end",
   [](const Operands& on) {
     const std::size_t half = on.text.size() / 2;
     on.edit([&](IString& s) { s.insert(static_cast<const char*>(s) + half, on.index, on.pad); },
             reference::insert(on.text, stringtests::asCText(on.text.substr(half)), on.index, on.pad));
   }},
  {"overlayWith",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.overlayWith(made(on.another), on.index, on.pad); },
             reference::overlayWith(on.text, on.another, on.index, on.pad));
   }},
  {"overlayWith its own end",
   [](const Operands& on) {
     const std::size_t half = on.text.size() / 2;
     on.edit([&](IString& s) { s.overlayWith(static_cast<const char*>(s) + half, on.index, on.pad); },
             reference::overlayWith(on.text, stringtests::asCText(on.text.substr(half)), on.index, on.pad));
   }},
  {"remove",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.remove(on.start, on.limit); }, reference::remove(on.text, on.start, on.limit));
   }},
  {"remove to the end",
   [](const Operands& on) { on.edit([&](IString& s) { s.remove(on.start); }, reference::remove(on.text, on.start)); }},
  {"copy",
   [](const Operands& on) { on.edit([&](IString& s) { s.copy(on.copies); }, reference::copy(on.text, on.copies)); }},
  {"reverse", [](const Operands& on) { on.edit([&](IString& s) { s.reverse(); }, reference::reverse(on.text)); }},
  {"lowerCase", [](const Operands& on) { on.edit([&](IString& s) { s.lowerCase(); }, reference::lowerCase(on.text)); }},
  {"upperCase", [](const Operands& on) { on.edit([&](IString& s) { s.upperCase(); }, reference::upperCase(on.text)); }},
  {"strip", [](const Operands& on) { on.edit([&](IString& s) { s.strip(); }, reference::strip(on.text, isspace)); }},
  {"strip a set",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.strip(made(on.other), on.stripMode()); },
             reference::strip(on.text, on.other, on.mode));
   }},
  {"strip a character",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.strip(on.pad, on.stripMode()); },
             reference::strip(on.text, std::string(1, on.pad), on.mode));
   }},
  {"strip by a test",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.strip(IStringTest(isalpha), on.stripMode()); },
             reference::strip(on.text, isalpha, on.mode));
   }},
  {"translate",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.translate(made(on.other), made(on.another), on.pad); },
             reference::translate(on.text, on.other, on.another, on.pad));
   }},
  {"change",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.change(made(on.other), made(on.another), on.start, on.limit); },
             reference::change(on.text, on.other, on.another, on.start, on.limit));
   }},
  {"change to as many bytes",
   [](const Operands& on) {
     std::string replacement = on.another;
     replacement.resize(on.other.size(), on.pad);
     on.edit([&](IString& s) { s.change(made(on.other), made(replacement), on.start, on.limit); },
             reference::change(on.text, on.other, replacement, on.start, on.limit));
   }},
  {"change to itself",
   [](const Operands& on) {
     on.edit([&](IString& s) { s.change(made(on.other), s, on.start, on.limit); },
             reference::change(on.text, on.other, on.text, on.start, on.limit));
   }},
  {"join",
   [](const Operands& on) {
     on.edit([&](IString& s) { s += made(on.other); }, on.text + on.other);
     agree(on.string + made(on.another), on.text + on.another);
   }},
  {"join with itself", [](const Operands& on) { on.edit([&](IString& s) { s += s; }, on.text + on.text); }},
  {"and",
   [](const Operands& on) { on.edit([&](IString& s) { s &= made(on.other); }, reference::bitAnd(on.text, on.other)); }},
  {"or",
   [](const Operands& on) { on.edit([&](IString& s) { s |= made(on.other); }, reference::bitOr(on.text, on.other)); }},
  {"exclusive or",
   [](const Operands& on) {
     on.edit([&](IString& s) { s ^= made(on.other); }, reference::bitExclusiveOr(on.text, on.other));
   }},
  {"complement", [](const Operands& on) { agree(~on.string, reference::complement(on.text)); }},
  {"write one byte",
   [](const Operands& on) {
     std::string expected = on.text;
     const std::size_t offset = on.index == 0 ? 0 : on.index - 1;
     if (offset >= expected.size())
       expected.resize(offset + 1, ' ');
     expected[offset] = on.pad;
     on.edit([&](IString& s) { s[on.index] = on.pad; }, expected);
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
