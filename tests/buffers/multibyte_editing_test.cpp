// multibyte_editing_test.cpp - IDBCSBuffer, editing: no character is left split.
#include "exceptions/hooks.hpp"
#include "multibyte_probe.hpp"
#include "support/character_texts.hpp"
#include "support/expect_text.hpp"
#include "support/multibyte_reference.hpp"

#include <quelmcl/idbcsb.hpp>
#include <quelmcl/iexcept.hpp>

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <optional>
#include <string>

using namespace buffertests;
using quelmcl_test::CharacterTexts;
using quelmcl_test::ExactBytes;
using quelmcl_test::LocaleInForce;
using reference::multibyte::Result;

namespace rules = reference::multibyte;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// By name, in UTF-8

class MultiByteEditing : public testing::Test {
  LocaleInForce locale{"C.UTF-8"};

protected:
  const Text aEb{
    "a\xC3\xA9"
    "b"};  // a character of two bytes between letters
  const Text euro{
    "a\xE2\x82\xAC"
    "b"};  // a character of three bytes between letters
};

TEST_F(MultiByteEditing, LeftJustifyFillsWhatIsLeftOfACharacterCutAtTheEnd)
{
  EXPECT_TEXT(Held(aEb->leftJustify(2, '*')).get(), "a*");
  EXPECT_TEXT(Held(aEb->leftJustify(3, '*')).get(), "a\xC3\xA9");
  EXPECT_TEXT(Held(aEb->leftJustify(6, '*')).get(),
              "a\xC3\xA9"
              "b**");
  EXPECT_TEXT(Held(euro->leftJustify(3, '*')).get(), "a**");
  EXPECT_TEXT(Held(euro->leftJustify(0, '*')).get(), "");
}

TEST_F(MultiByteEditing, RightJustifyFillsWhatIsLeftOfACharacterCutAtTheFront)
{
  EXPECT_TEXT(Held(aEb->rightJustify(2, '*')).get(), "*b");
  EXPECT_TEXT(Held(aEb->rightJustify(3, '*')).get(),
              "\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(aEb->rightJustify(6, '*')).get(),
              "**a\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(euro->rightJustify(3, '*')).get(), "**b");
  EXPECT_TEXT(Held(Text("\xE2\x82\xAC")->rightJustify(1, '*')).get(), "*") << "no more than the result holds";
  EXPECT_TEXT(Held(euro->rightJustify(0, '*')).get(), "");
}

TEST_F(MultiByteEditing, CenterBeginsWithAWholeCharacterAndFillsAtTheEnd)
{
  // Of a, Euro, b the middle three bytes would begin inside of the Euro.
  EXPECT_TEXT(Held(euro->center(3, '*')).get(), "\xE2\x82\xAC");
  EXPECT_TEXT(Held(Text("\xE2\x82\xAC"
                        "abc")
                     ->center(3, '*'))
                .get(),
              "\xE2\x82\xAC")
    << "moved back to the front";
  EXPECT_TEXT(Held(euro->center(2, '*')).get(), "**") << "begins with the Euro, of which two bytes fit";
  EXPECT_TEXT(Held(euro->center(1, '*')).get(), "*");
  EXPECT_TEXT(Held(euro->center(0, '*')).get(), "");
  EXPECT_TEXT(Held(euro->center(8, '*')).get(),
              "*a\xE2\x82\xAC"
              "b**");
  EXPECT_TEXT(Held(Text("abcde")->center(2, '*')).get(), "bc");
}

TEST_F(MultiByteEditing, RemoveFillsWithBlanksOnBothSides)
{
  EXPECT_TEXT(Held(aEb->remove(3, 1)).get(), "a b");
  EXPECT_TEXT(Held(aEb->remove(2, 1)).get(), "a b");
  EXPECT_TEXT(Held(aEb->remove(2, 2)).get(), "ab");
  EXPECT_TEXT(Held(euro->remove(3, 1)).get(), "a  b");
  EXPECT_TEXT(Held(euro->remove(3, 100)).get(), "a ");
  EXPECT_TEXT(Held(euro->remove(0, 2)).get(), "  b");
  EXPECT_TEXT(Held(Text("\xE2\x82\xAC"
                        "\xC3\xA9"
                        "b")
                     ->remove(2, 3))
                .get(),
              "  b");
}

TEST_F(MultiByteEditing, RemovingNothingInsideACharacterCutsItAllTheSame)
{
  EXPECT_TEXT(Held(aEb->remove(3, 0)).get(), "a  b");
  EXPECT_TEXT(Held(aEb->remove(2, 0)).get(),
              "a\xC3\xA9"
              "b");
}

TEST_F(MultiByteEditing, RemoveBehindTheEndGivesTheReceiver)
{
  const Held same(aEb->remove(5, 1));
  EXPECT_EQ(same.get(), aEb.get());
  EXPECT_TEXT(same.get(),
              "a\xC3\xA9"
              "b",
              2);
}

TEST_F(MultiByteEditing, InsertGoesBeforeTheCharacterThatTheIndexPointsInto)
{
  EXPECT_TEXT(Held(aEb->insert("X", 1, 2, '*')).get(),
              "aX\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(aEb->insert("X", 1, 1, '*')).get(),
              "aX\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(aEb->insert("X", 1, 3, '*')).get(),
              "a\xC3\xA9"
              "Xb");
  EXPECT_TEXT(Held(aEb->insert("X", 1, 4, '*')).get(),
              "a\xC3\xA9"
              "bX");
  EXPECT_TEXT(Held(aEb->insert("X", 1, 6, '*')).get(),
              "a\xC3\xA9"
              "b**X");
  EXPECT_TEXT(Held(Text("\xE2\x82\xAC")->insert("X", 1, 2, '*')).get(), "X\xE2\x82\xAC");
  EXPECT_TEXT(Held(Text("a\xE2\x82\xAC")->insert("X", 1, 4, '*')).get(), "a\xE2\x82\xACX")
    << "behind the last character";
}

TEST_F(MultiByteEditing, AnOverlayFillsWithBlanksInFrontAndPadsBehind)
{
  EXPECT_TEXT(Held(aEb->overlayWith("X", 1, 3, '*')).get(), "a Xb");
  EXPECT_TEXT(Held(aEb->overlayWith("X", 1, 2, '*')).get(), "aX*b");
  EXPECT_TEXT(Held(euro->overlayWith("X", 1, 3, '*')).get(), "a X*b");
  EXPECT_TEXT(Held(euro->overlayWith("X", 1, 1, '*')).get(),
              "X\xE2\x82\xAC"
              "b");
  EXPECT_TEXT(Held(euro->overlayWith("XY", 2, 0, '*')).get(), "XY**b");
  EXPECT_TEXT(Held(euro->overlayWith("X", 1, 7, '*')).get(),
              "a\xE2\x82\xAC"
              "b*X");
  EXPECT_TEXT(Held(euro->overlayWith("XYZ", 3, 3, '*')).get(), "a XYZ");
}

TEST_F(MultiByteEditing, SubStringFillsAtBothEnds)
{
  EXPECT_TEXT(Held(aEb->subString(3, 2, '*')).get(), "*b");
  EXPECT_TEXT(Held(aEb->subString(1, 2, '*')).get(), "a*");
  EXPECT_TEXT(Held(euro->subString(3, 1, '*')).get(), "*") << "one byte out of the middle of a character";
  EXPECT_TEXT(Held(euro->subString(3, 0, '*')).get(), "");
  EXPECT_TEXT(Held(euro->subString(3, 5, '*')).get(), "**b**");
  EXPECT_TEXT(Held(euro->subString(9, 2, '*')).get(), "**");
  EXPECT_TEXT(Held(euro->subString(0, 2, '*')).get(), "a*");
}

TEST_F(MultiByteEditing, ReverseKeepsTheBytesOfACharacterInOrder)
{
  EXPECT_TEXT(Held(aEb->reverse()).get(),
              "b\xC3\xA9"
              "a",
              1);
  EXPECT_TEXT(aEb.get(),
              "a\xC3\xA9"
              "b",
              1)
    << "a new buffer for a sole owner too";
  EXPECT_TEXT(Held(Text("\xC3\xA9")->reverse()).get(), "\xC3\xA9");
  EXPECT_TEXT(Held(Text("\xA9\xC3")->reverse()).get(), "\xC3\xA9") << "two strays become a character";
}

TEST_F(MultiByteEditing, CaseMappingChangesAsciiOnly)
{
  EXPECT_TEXT(Held(Text("\xC3\x89"
                        "A")
                     ->lowerCase())
                .get(),
              "\xC3\x89"
              "a");
  EXPECT_TEXT(Held(Text("\xC3\xA9"
                        "a")
                     ->upperCase())
                .get(),
              "\xC3\xA9"
              "A");
  const Held same(aEb->lowerCase());
  EXPECT_EQ(same.get(), aEb.get()) << "nothing to change";
}

TEST_F(MultiByteEditing, StripKeepsTheLastCharacterWhole)
{
  const Text padded("  \xC3\xA9  ");
  EXPECT_TEXT(Held(padded->strip(" ", 1, IStringEnum::both)).get(), "\xC3\xA9");
  EXPECT_TEXT(Held(padded->strip(" ", 1, IStringEnum::leading)).get(), "\xC3\xA9  ");
  EXPECT_TEXT(Held(padded->strip(" ", 1, IStringEnum::trailing)).get(), "  \xC3\xA9");
  EXPECT_TEXT(Held(padded->strip(IStringTest(isspace), IStringEnum::both)).get(), "\xC3\xA9");
  EXPECT_TEXT(Held(Text("\xC3\xA9"
                        "a\xC3\xA9")
                     ->strip("\xC3\xA9", 2, IStringEnum::both))
                .get(),
              "a");
  const Text longAtTheEnd("a\xE2\x82\xAC");
  const Held same(longAtTheEnd->strip(" ", 1, IStringEnum::both));
  EXPECT_EQ(same.get(), longAtTheEnd.get()) << "nothing to strip, although the last character begins before the end";
}

TEST_F(MultiByteEditing, StripOfNothingButStripCharactersGivesAnEmptyText)
{
  for (const auto mode : {IStringEnum::leading, IStringEnum::trailing, IStringEnum::both}) {
    EXPECT_TEXT(Held(Text("\xC3\xA9\xC3\xA9")->strip("\xC3\xA9", 2, mode)).get(), "");
    EXPECT_TEXT(Held(Text("   ")->strip(IStringTest(isspace), mode)).get(), "");
  }
}

TEST_F(MultiByteEditing, StrippingALoneLeadByteTakesEverythingAtTheEndAndNothingAtTheFront)
{
  const Text text(
    "\xC3\xA9"
    "a\xC3\xA9");
  const Held same(text->strip("\xC3", 1, IStringEnum::leading));
  EXPECT_EQ(same.get(), text.get());
  EXPECT_TEXT(Held(text->strip("\xC3", 1, IStringEnum::trailing)).get(), "");
  EXPECT_TEXT(Held(text->strip("\xC3", 1, IStringEnum::both)).get(), "");
}

TEST_F(MultiByteEditing, ATranslationMayMakeTheTextLonger)
{
  EXPECT_TEXT(Held(Text("eb")->translate("e", 1, "\xC3\xA9", 2, '*')).get(),
              "\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(Text("a-a")->translate("a", 1, "\xE2\x82\xAC", 3, '*')).get(), "\xE2\x82\xAC-\xE2\x82\xAC");
}

TEST_F(MultiByteEditing, ATranslationThatMakesTheTextShorterFails)
{
  CountingHook quiet;
  const InstalledHook installed(quiet);
  try {
    const Held result(aEb->translate("\xC3\xA9", 2, "e", 1, '*'));
    ADD_FAILURE() << "there was a result: " << shown(bytesOf(result.get()));
  } catch (const IInvalidRequest& failure) {
    EXPECT_EQ(failure.errorId(), 1010u);
  }
  EXPECT_TEXT(aEb.get(),
              "a\xC3\xA9"
              "b",
              1);
}

TEST_F(MultiByteEditing, WhatGrowsMayMakeUpForWhatShrinks)
{
  EXPECT_TEXT(Held(aEb->translate("\xC3\xA9"
                                  "b",
                                  3, "e\xC3\xA8", 3, '*'))
                .get(),
              "ae\xC3\xA8");
}

TEST_F(MultiByteEditing, CharactersBeyondTheOutputListBecomeThePadCharacter)
{
  EXPECT_TEXT(Held(Text("abc")->translate("ab", 2, "x", 1, '-')).get(), "x-c");
  EXPECT_TEXT(Held(Text("abc")->translate("ab", 2, "", 0, '-')).get(), "--c");
  EXPECT_TEXT(Held(Text("abc")->translate("a", 1, "xyz", 3, '-')).get(), "xbc")
    << "what the input list does not reach is ignored";
}

TEST_F(MultiByteEditing, TheFirstPlaceOfARepeatedCharacterCounts)
{
  EXPECT_TEXT(Held(Text("aba")->translate("aa", 2, "xy", 2, '-')).get(), "xbx");
  EXPECT_TEXT(Held(aEb->translate("\xC3\xA9\xC3\xA9", 4, "\xC3\xA8\xC3\xAA", 4, '-')).get(),
              "a\xC3\xA8"
              "b");
}

TEST_F(MultiByteEditing, ATranslationAlwaysGivesANewBuffer)
{
  const Held result(aEb->translate("x", 1, "y", 1, '-'));
  EXPECT_NE(result.get(), aEb.get());
  EXPECT_TEXT(result.get(),
              "a\xC3\xA9"
              "b",
              1);
  EXPECT_TEXT(Held(aEb->translate("x", 0, "y", 0, '-')).get(),
              "a\xC3\xA9"
              "b",
              1);
  const Text empty("");
  EXPECT_TEXT(Held(empty->translate("x", 1, "y", 1, '-')).get(), "");
}

TEST_F(MultiByteEditing, ATranslationTakesTheRestOverUpToItsFirstNul)
{
  // Two more bytes. Behind the last "a" the text goes on with "b" and a NUL; then stands what stood there in the text
  // made longer.
  const Text text(bytes("aab\0cd"));
  EXPECT_TEXT(Held(text->translate("a", 1, "\xC3\xA9", 2, '-')).get(), bytes("\xC3\xA9\xC3\xA9"
                                                                             "b\0  "));
  const Text farther(bytes("ab\0cdefg"));
  EXPECT_TEXT(Held(farther->translate("a", 1, "\xC3\xA9", 2, '-')).get(), bytes("\xC3\xA9"
                                                                                "b\0defg "));
  EXPECT_TEXT(Held(text->translate("b", 1, "x", 1, '-')).get(), bytes("aax\0cd"))
    << "of the same length all of it is in place";
}

TEST_F(MultiByteEditing, ALoneLeadByteOfTheInputListTranslatesNothingButItself)
{
  EXPECT_TEXT(Held(aEb->translate("\xC3", 1, "x", 1, '-')).get(),
              "a\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(Text("a\xC3"
                        "b")
                     ->translate("\xC3", 1, "x", 1, '-'))
                .get(),
              "axb");
}

TEST_F(MultiByteEditing, ListsWithACharacterCutOffAreReadUpToTheirCount)
{
  const std::string cut = "a\xE2\x82\xAC";
  EXPECT_TEXT(Held(euro->translate(cut.data(), 3, "xyz", 3, '-')).get(),
              "x\xE2\x82\xAC"
              "b");
  EXPECT_TEXT(Held(Text("ab")->translate("ab", 2, cut.data() + 1, 2, '-')).get(), "\xE2\x82");
}

TEST_F(MultiByteEditing, ChangeFindsWholeCharactersOnly)
{
  const Text text("\xC3\xA9\xA9");
  EXPECT_TEXT(Held(text->change("\xA9", 1, "x", 1, 1, largest)).get(), "\xC3\xA9x");
  EXPECT_TEXT(Held(Text("\xC3\xA9\xA9")->change("\xA9", 1, "xyz", 3, 1, largest)).get(), "\xC3\xA9xyz");
  EXPECT_TEXT(Held(Text("\xC3\xA9-\xC3\xA9")->change("\xC3\xA9", 2, "e", 1, 1, 1)).get(), "e-\xC3\xA9");
}

TEST_F(MultiByteEditing, CopyIsThatOfTheSingleByteKind)
{
  EXPECT_TEXT(Held(aEb->copy(2)).get(),
              "a\xC3\xA9"
              "ba\xC3\xA9"
              "b");
  EXPECT_TEXT(Held(aEb->copy(0)).get(), "");
  const Held same(aEb->copy(1));
  EXPECT_EQ(same.get(), aEb.get());
}

TEST_F(MultiByteEditing, ResultsAreOfTheMultiByteKind)
{
  const char* const kind = aEb->className();
  EXPECT_STREQ(kind, "IDBCSBuffer");
  EXPECT_EQ(Held(aEb->center(3, '*'))->className(), kind);
  EXPECT_EQ(Held(aEb->leftJustify(9, '*'))->className(), kind);
  EXPECT_EQ(Held(aEb->reverse())->className(), kind);
  EXPECT_EQ(Held(aEb->translate("x", 1, "y", 1, '*'))->className(), kind);
  EXPECT_EQ(Held(aEb->subString(1, 2, '*'))->className(), kind);
  const LocaleInForce plain("C");
  EXPECT_EQ(Held(aEb->subString(1, 2, '*'))->className(), kind) << "whatever the locale";
}

TEST_F(MultiByteEditing, SearchesForEditsAreAskedVirtually)
{
  // Answers that the text would not give show who is asked.
  class Answers : public IDBCSBuffer {
  public:
    Answers() noexcept : IDBCSBuffer(4) { std::memcpy(contents(), "aBcd", 4); }
    unsigned indexOf(const char*, unsigned, unsigned startPos) const override { return startPos <= 3 ? 3 : 0; }
    unsigned indexOfAnyBut(const char*, unsigned, unsigned) const override { return 2; }
    unsigned indexOfAnyBut(const IStringTest&, unsigned) const override { return 2; }
    unsigned lastIndexOfAnyBut(const char*, unsigned, unsigned) const override { return 3; }
    unsigned lastIndexOfAnyBut(const IStringTest&, unsigned) const override { return 3; }
  };
  const Held text(new (4) Answers);
  EXPECT_TEXT(Held(text->strip("x", 1, IStringEnum::both)).get(), "Bc");
  EXPECT_TEXT(Held(text->strip(IStringTest(isspace), IStringEnum::both)).get(), "Bc");
  EXPECT_TEXT(Held(text->change("x", 1, "yz", 2, 1, largest)).get(), "aByzd");
}

// ---------------------------------------------------------------------------------------------------------------------
// By name, in sets whose bytes mean different things in different places

TEST(MultiByteEditingOfShiftJis, LettersInsideCharactersStay)
{
  const LocaleInForce locale("ja_JP.SJIS");
  EXPECT_TEXT(Held(Text("\x83\x61"
                        "a")
                     ->upperCase())
                .get(),
              "\x83\x61"
              "A");
  EXPECT_TEXT(Held(Text("\x83\x41"
                        "A")
                     ->lowerCase())
                .get(),
              "\x83\x41"
              "a");
  const Text nothing("\x83\x41");
  const Held same(nothing->lowerCase());
  EXPECT_EQ(same.get(), nothing.get());
}

// 0x84 0x65 is no character and 0x84 0x45 is one: the mapped letter ends what used to be a stray.
TEST(MultiByteEditingOfShiftJis, AMappedLetterMayJoinAStrayByteBeforeIt)
{
  const LocaleInForce locale("ja_JP.SJIS");
  for (const bool isShared : {false, true}) {
    const Text text(
      "\x84"
      "eab");
    const Held other(text->addRef());
    if (!isShared)
      text->removeRef();
    EXPECT_TEXT(Held(text->upperCase()).get(),
                "\x84"
                "EAB");
    if (!isShared)
      text->addRef();
  }
}

TEST(MultiByteEditingOfGb18030, CharactersOfFourBytesAreKeptWhole)
{
  const LocaleInForce locale("zh_CN.GB18030");
  const Text text(
    "a\x81\x30\x81\x30"
    "b");
  EXPECT_TEXT(Held(text->reverse()).get(),
              "b\x81\x30\x81\x30"
              "a");
  EXPECT_TEXT(Held(text->leftJustify(4, '*')).get(), "a***");
  EXPECT_TEXT(Held(text->rightJustify(4, '*')).get(), "***b");
  EXPECT_TEXT(Held(text->overlayWith("X", 1, 4, '*')).get(), "a  X*b");
  EXPECT_TEXT(Held(text->remove(3, 1)).get(), "a   b");
  EXPECT_TEXT(Held(text->insert("X", 1, 3, '*')).get(),
              "aX\x81\x30\x81\x30"
              "b");
}

// ---------------------------------------------------------------------------------------------------------------------
// Every edit in the locale of this run, compared with the reference

class MultiByteEditingHere : public testing::Test {
protected:
  template <class Check>
  void onManyTexts(int rounds, Check check)
  {
    for (int round = 0; round < rounds && !HasFailure(); ++round)
      check(random.characters());
  }

  /// Does `edit` to a buffer of the text that has a sole owner, and to one that has two, and compares text, owner and
  /// sharing.
  template <class Edit>
  void expectEdit(const std::string& text, const Result& expected, Edit edit)
  {
    for (const unsigned owners : {1u, 2u}) {
      const Text receiver(text);
      std::optional<Held> second;
      if (owners == 2)
        second.emplace(receiver->addRef());
      const Held result(edit(receiver.get()));
      const bool isReceiver = expected.buffer == Result::receiver || (expected.buffer == Result::edited && owners == 1);
      EXPECT_EQ(result.get() == receiver.get(), isReceiver) << shown(text) << ", " << owners << " owners";
      EXPECT_TEXT(result.get(), expected.text) << shown(text) << ", " << owners << " owners";
      if (isReceiver) {
        EXPECT_EQ(receiver->useCount(), owners + 1);
        continue;
      }
      EXPECT_TEXT(receiver.get(), text, owners) << "the receiver was to stay as it was";
      if (expected.text.empty())
        EXPECT_EQ(result.get(), receiver->null());
      else
        EXPECT_EQ(result->useCount(), 1u);
    }
  }

  unsigned someLength(const std::string& text) { return random.newLength(text.size()); }

  /// A position that is near enough for results that fill up to it.
  unsigned nearPosition(const std::string& text) { return random.below(static_cast<unsigned>(text.size()) + 6); }

  IStringEnum::StripMode someMode() { return static_cast<IStringEnum::StripMode>(random.below(4)); }

  CharacterTexts random;
};

constexpr int rounds = 5000;

TEST_F(MultiByteEditingHere, Center)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const unsigned length = someLength(text);
    const char pad = random.filler();
    SCOPED_TRACE(length);
    expectEdit(text, rules::center(text, length, pad), [&](IBuffer* buffer) { return buffer->center(length, pad); });
  });
}

TEST_F(MultiByteEditingHere, LeftJustify)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const unsigned length = someLength(text);
    const char pad = random.filler();
    SCOPED_TRACE(length);
    expectEdit(text, rules::leftJustify(text, length, pad),
               [&](IBuffer* buffer) { return buffer->leftJustify(length, pad); });
  });
}

TEST_F(MultiByteEditingHere, RightJustify)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const unsigned length = someLength(text);
    const char pad = random.filler();
    SCOPED_TRACE(length);
    expectEdit(text, rules::rightJustify(text, length, pad),
               [&](IBuffer* buffer) { return buffer->rightJustify(length, pad); });
  });
}

TEST_F(MultiByteEditingHere, Insert)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const std::string inserted = random.characters(6);
    const ExactBytes exact(inserted);
    const unsigned index = nearPosition(text);
    const char pad = random.filler();
    SCOPED_TRACE(index);
    expectEdit(text, rules::insert(text, inserted, index, pad),
               [&](IBuffer* buffer) { return buffer->insert(exact.get(), exact.length(), index, pad); });
  });
}

TEST_F(MultiByteEditingHere, OverlayWith)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const std::string overlay = random.characters(random.onceIn(3) ? 30 : 3);
    const ExactBytes exact(overlay);
    const unsigned index = nearPosition(text);
    const char pad = random.filler();
    SCOPED_TRACE(index);
    expectEdit(text, rules::overlayWith(text, overlay, index, pad),
               [&](IBuffer* buffer) { return buffer->overlayWith(exact.get(), exact.length(), index, pad); });
  });
}

TEST_F(MultiByteEditingHere, Remove)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const unsigned start = random.position(text.size());
    const unsigned count = random.onceIn(2) ? random.below(4) : random.position(text.size());
    SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(count));
    expectEdit(text, rules::remove(text, start, count), [&](IBuffer* buffer) { return buffer->remove(start, count); });
  });
}

TEST_F(MultiByteEditingHere, SubString)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const unsigned start = random.position(text.size());
    const unsigned length = random.onceIn(2) ? random.below(4) : someLength(text);
    const char pad = random.filler();
    SCOPED_TRACE(std::to_string(start) + ", " + std::to_string(length));
    expectEdit(text, {rules::subString(text, start, length, pad), Result::fresh},
               [&](const IBuffer* buffer) { return buffer->subString(start, length, pad); });
  });
}

TEST_F(MultiByteEditingHere, Copy)
{
  onManyTexts(rounds / 5, [&](const std::string& text) {
    const unsigned copies = random.below(5);
    expectEdit(text, rules::copy(text, copies), [&](IBuffer* buffer) { return buffer->copy(copies); });
  });
}

TEST_F(MultiByteEditingHere, Case)
{
  onManyTexts(rounds, [&](const std::string& text) {
    expectEdit(text, rules::lowerCase(text), [&](IBuffer* buffer) { return buffer->lowerCase(); });
    expectEdit(text, rules::upperCase(text), [&](IBuffer* buffer) { return buffer->upperCase(); });
  });
}

TEST_F(MultiByteEditingHere, Reverse)
{
  onManyTexts(rounds, [&](const std::string& text) {
    expectEdit(text, rules::reverse(text), [&](IBuffer* buffer) { return buffer->reverse(); });
  });
}

TEST_F(MultiByteEditingHere, StripASet)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const std::string set = random.setFor(text);
    const ExactBytes exact(set);
    const IStringEnum::StripMode mode = someMode();
    SCOPED_TRACE(shown(set) + ", mode " + std::to_string(mode));
    expectEdit(text, rules::strip(text, set, mode),
               [&](IBuffer* buffer) { return buffer->strip(exact.get(), exact.length(), mode); });
  });
}

TEST_F(MultiByteEditingHere, StripByATest)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const std::string members = random.textLike(text, 4);
    const rules::Test question = [&](int byte) { return members.find(static_cast<char>(byte)) != std::string::npos; };
    const Asks test(question);
    const IStringEnum::StripMode mode = someMode();
    SCOPED_TRACE(shown(members) + ", mode " + std::to_string(mode));
    expectEdit(text, rules::strip(text, question, mode), [&](IBuffer* buffer) { return buffer->strip(test, mode); });
  });
}

TEST_F(MultiByteEditingHere, Change)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const std::string pattern = random.needle(text);
    std::string replacement = random.characters(5);
    if (random.onceIn(2)) {
      replacement.append(pattern);
      replacement.resize(pattern.size());
    }
    const ExactBytes exactPattern(pattern);
    const ExactBytes exactReplacement(replacement);
    const unsigned start = random.position(text.size());
    const unsigned limit = random.limit();
    SCOPED_TRACE(shown(pattern) + " by " + shown(replacement) + " from " + std::to_string(start));
    expectEdit(text, rules::change(text, pattern, replacement, start, limit), [&](IBuffer* buffer) {
      return buffer->change(exactPattern.get(), exactPattern.length(), exactReplacement.get(),
                            exactReplacement.length(), start, limit);
    });
  });
}

TEST_F(MultiByteEditingHere, Translate)
{
  CountingHook quiet;
  const InstalledHook installed(quiet);
  int failures = 0;
  int results = 0;
  onManyTexts(rounds, [&](const std::string& text) {
    const std::string input = random.setFor(text);
    const std::string output = random.setFor(text);
    const ExactBytes in(input);
    const ExactBytes out(output);
    const char pad = random.filler();
    SCOPED_TRACE(shown(input) + " to " + shown(output));
    const auto translate = [&](IBuffer* buffer) {
      return buffer->translate(in.get(), in.length(), out.get(), out.length(), pad);
    };
    const std::optional<std::string> expected = rules::translate(text, input, output, pad);
    if (expected) {
      ++results;
      expectEdit(text, {*expected, Result::fresh}, translate);
      return;
    }
    ++failures;
    const Text receiver(text);
    EXPECT_THROW(Held(translate(receiver.get())), IInvalidRequest) << shown(text);
    EXPECT_TEXT(receiver.get(), text, 1) << "the receiver was to stay as it was";
  });
  EXPECT_GT(results, rounds / 4);
  if (IDBCSBuffer::maxCharLength() > 1)
    EXPECT_GT(failures, rounds / 100);
  else
    EXPECT_EQ(failures, 0);
}

// ---- arguments that are pieces of the receiver's own text ----

class MultiByteEditingOfItself : public MultiByteEditingHere {
protected:
  /// A piece of a text, as offset and bytes.
  struct Piece {
    unsigned offset;
    std::string bytes;
    unsigned length() const { return static_cast<unsigned>(bytes.size()); }
    const char* in(const IBuffer* buffer) const { return buffer->contents() + offset; }
  };

  Piece pieceOf(const std::string& text)
  {
    const unsigned offset = random.below(static_cast<unsigned>(text.size()) + 1);
    return {offset, text.substr(offset, random.below(5))};
  }
};

TEST_F(MultiByteEditingOfItself, InsertAndOverlay)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const Piece piece = pieceOf(text);
    const unsigned index = nearPosition(text);
    SCOPED_TRACE(shown(piece.bytes) + " at " + std::to_string(index));
    expectEdit(text, rules::insert(text, piece.bytes, index, '*'),
               [&](IBuffer* buffer) { return buffer->insert(piece.in(buffer), piece.length(), index, '*'); });
    expectEdit(text, rules::overlayWith(text, piece.bytes, index, '*'),
               [&](IBuffer* buffer) { return buffer->overlayWith(piece.in(buffer), piece.length(), index, '*'); });
  });
}

TEST_F(MultiByteEditingOfItself, Strip)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const Piece piece = pieceOf(text);
    const IStringEnum::StripMode mode = someMode();
    SCOPED_TRACE(shown(piece.bytes) + ", mode " + std::to_string(mode));
    expectEdit(text, rules::strip(text, piece.bytes, mode),
               [&](IBuffer* buffer) { return buffer->strip(piece.in(buffer), piece.length(), mode); });
  });
}

TEST_F(MultiByteEditingOfItself, Change)
{
  onManyTexts(rounds, [&](const std::string& text) {
    const Piece pattern = pieceOf(text);
    Piece replacement = pieceOf(text);
    if (random.onceIn(2))
      replacement.bytes = text.substr(replacement.offset, pattern.length());
    SCOPED_TRACE(shown(pattern.bytes) + " by " + shown(replacement.bytes));
    expectEdit(text, rules::change(text, pattern.bytes, replacement.bytes, 1, largest), [&](IBuffer* buffer) {
      return buffer->change(pattern.in(buffer), pattern.length(), replacement.in(buffer), replacement.length(), 1,
                            largest);
    });
  });
}

TEST_F(MultiByteEditingOfItself, Translate)
{
  CountingHook quiet;
  const InstalledHook installed(quiet);
  onManyTexts(rounds, [&](const std::string& text) {
    const Piece input = pieceOf(text);
    const Piece output = pieceOf(text);
    SCOPED_TRACE(shown(input.bytes) + " to " + shown(output.bytes));
    const auto translate = [&](IBuffer* buffer) {
      return buffer->translate(input.in(buffer), input.length(), output.in(buffer), output.length(), '*');
    };
    const std::optional<std::string> expected = rules::translate(text, input.bytes, output.bytes, '*');
    if (expected)
      expectEdit(text, {*expected, Result::fresh}, translate);
    else
      EXPECT_THROW(Held(translate(Text(text).get())), IInvalidRequest) << shown(text);
  });
}

TEST_F(MultiByteEditingHere, LongTexts)
{
  // Long enough for whatever is done in blocks, and for characters that lie across their bounds.
  for (int round = 0; round < 60 && !HasFailure(); ++round) {
    const std::string text = random.characters(400);
    const unsigned length = someLength(text);
    const unsigned start = random.position(text.size());
    const std::string needle = random.needle(text);
    const unsigned needleLength = static_cast<unsigned>(needle.size());
    expectEdit(text, rules::center(text, length, '*'), [&](IBuffer* buffer) { return buffer->center(length, '*'); });
    expectEdit(text, rules::leftJustify(text, length, '*'),
               [&](IBuffer* buffer) { return buffer->leftJustify(length, '*'); });
    expectEdit(text, rules::rightJustify(text, length, '*'),
               [&](IBuffer* buffer) { return buffer->rightJustify(length, '*'); });
    expectEdit(text, rules::remove(text, start, 3), [&](IBuffer* buffer) { return buffer->remove(start, 3); });
    expectEdit(text, rules::lowerCase(text), [&](IBuffer* buffer) { return buffer->lowerCase(); });
    expectEdit(text, rules::upperCase(text), [&](IBuffer* buffer) { return buffer->upperCase(); });
    expectEdit(text, rules::reverse(text), [&](IBuffer* buffer) { return buffer->reverse(); });
    expectEdit(text, rules::change(text, needle, "*\xC3", 1, largest),
               [&](IBuffer* buffer) { return buffer->change(needle.data(), needleLength, "*\xC3", 2, 1, largest); });
    expectEdit(text, {rules::subString(text, start, length, '*'), Result::fresh},
               [&](IBuffer* buffer) { return buffer->subString(start, length, '*'); });
  }
}

}  // namespace
