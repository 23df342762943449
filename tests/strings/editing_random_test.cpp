// editing_random_test.cpp - IString: every operation that edits beside a slow one, on random texts.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace stringtests;

namespace {

/// Applies the edit to a sole owner and to a string that shares its text, and expects the same of both.
template <class EditOperation>
void expectEdited(const std::string& text, const std::string& expected, EditOperation edit)
{
  IString sole = made(text);
  EXPECT_EQ(&edit(sole), &sole);
  EXPECT_TEXT(sole, expected);

  IString sharing = made(text);
  const IString sharer(sharing);
  EXPECT_EQ(&edit(sharing), &sharing);
  EXPECT_TEXT(sharing, expected);
  EXPECT_TEXT(sharer, text);
}

class StringEditOnRandomTexts : public testing::Test {
protected:
  template <class Check>
  void onManyTexts(Check check)
  {
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
      const std::string text = random.text(bytes("aabB\0c "), 12);
      SCOPED_TRACE(testing::PrintToString(text));
      check(text, static_cast<unsigned>(text.size()));
    }
  }

  quelmcl_test::RandomTexts random{20260108};
};

TEST_F(StringEditOnRandomTexts, JustifiesAndRepeats)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const unsigned newLength = random.below(2 * length + 3);
    const unsigned copies = random.below(6);
    SCOPED_TRACE(std::to_string(newLength) + " bytes, " + std::to_string(copies) + " copies");
    expectEdited(text, reference::center(text, newLength, '*'),
                 [=](IString& string) -> IString& { return string.center(newLength, '*'); });
    expectEdited(text, reference::leftJustify(text, newLength, '*'),
                 [=](IString& string) -> IString& { return string.leftJustify(newLength, '*'); });
    expectEdited(text, reference::rightJustify(text, newLength, '*'),
                 [=](IString& string) -> IString& { return string.rightJustify(newLength, '*'); });
    expectEdited(text, reference::copy(text, copies), [=](IString& string) -> IString& { return string.copy(copies); });
    EXPECT_TEXT(made(text).subString(newLength, copies, '*'), reference::subString(text, newLength, copies, '*'));
  });
}

TEST_F(StringEditOnRandomTexts, ChangesOccurrences)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const std::string pattern = random.text(bytes("aab\0"), 3);
    const std::string replacement = random.text(bytes("ab\0x"), 4);
    const std::string cPattern = asCText(pattern);
    const std::string cReplacement = asCText(replacement);
    const unsigned start = random.position(length);
    const unsigned limit = random.below(3) == 0 ? random.below(3) : largest;
    SCOPED_TRACE(testing::PrintToString(pattern) + " to " + testing::PrintToString(replacement) + " from " +
                 std::to_string(start) + " limit " + std::to_string(limit));
    expectEdited(text, reference::change(text, pattern, replacement, start, limit), [&](IString& string) -> IString& {
      return string.change(made(pattern), made(replacement), start, limit);
    });
    expectEdited(text, reference::change(text, pattern, cReplacement, start, limit), [&](IString& string) -> IString& {
      return string.change(made(pattern), replacement.c_str(), start, limit);
    });
    expectEdited(text, reference::change(text, cPattern, replacement, start, limit), [&](IString& string) -> IString& {
      return string.change(pattern.c_str(), made(replacement), start, limit);
    });
    expectEdited(text, reference::change(text, cPattern, cReplacement, start, limit), [&](IString& string) -> IString& {
      return string.change(pattern.c_str(), replacement.c_str(), start, limit);
    });
  });
}

TEST_F(StringEditOnRandomTexts, ChangesPartsOfItselfByPartsOfItself)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const unsigned patternAt = random.below(length + 1);
    const unsigned replacementAt = random.below(length + 1);
    const std::string cPattern = asCText(text.substr(patternAt));
    const std::string cReplacement = asCText(text.substr(replacementAt));
    SCOPED_TRACE(std::to_string(patternAt) + " by " + std::to_string(replacementAt));
    expectEdited(text, reference::change(text, cPattern, cReplacement, 1, largest), [=](IString& string) -> IString& {
      return string.change(static_cast<const char*>(string) + patternAt,
                           static_cast<const char*>(string) + replacementAt);
    });
    expectEdited(text, reference::change(text, cPattern, text, 1, largest), [=](IString& string) -> IString& {
      return string.change(static_cast<const char*>(string) + patternAt, string);
    });
    expectEdited(text, reference::change(text, "a", cReplacement, 1, largest), [=](IString& string) -> IString& {
      return string.change("a", static_cast<const char*>(string) + replacementAt);
    });
    expectEdited(text, reference::translate(text, cPattern, cReplacement, '-'), [=](IString& string) -> IString& {
      return string.translate(static_cast<const char*>(string) + patternAt,
                              static_cast<const char*>(string) + replacementAt, '-');
    });
  });
}

TEST_F(StringEditOnRandomTexts, InsertsOverlaysAndRemoves)
{
  onManyTexts([this](const std::string& text, unsigned length) {
    const std::string argument = random.text(bytes("xy\0"), 4);
    const std::string cArgument = asCText(argument);
    const unsigned place = random.newLength(length);
    const unsigned start = random.position(length);
    const unsigned count = random.position(length);
    const unsigned ownPart = random.below(length + 1);
    const std::string cOwnPart = asCText(text.substr(ownPart));
    SCOPED_TRACE(testing::PrintToString(argument) + " at " + std::to_string(place) + ", " + std::to_string(count) +
                 " bytes from " + std::to_string(start) + ", own part at " + std::to_string(ownPart));
    expectEdited(text, reference::insert(text, argument, place, '-'),
                 [&](IString& string) -> IString& { return string.insert(made(argument), place, '-'); });
    expectEdited(text, reference::insert(text, cArgument, place, '-'),
                 [&](IString& string) -> IString& { return string.insert(argument.c_str(), place, '-'); });
    expectEdited(text, reference::insert(text, text, place, '-'),
                 [&](IString& string) -> IString& { return string.insert(string, place, '-'); });
    expectEdited(text, reference::insert(text, cOwnPart, place, '-'), [&](IString& string) -> IString& {
      return string.insert(static_cast<const char*>(string) + ownPart, place, '-');
    });
    expectEdited(text, reference::overlayWith(text, argument, place, '-'),
                 [&](IString& string) -> IString& { return string.overlayWith(made(argument), place, '-'); });
    expectEdited(text, reference::overlayWith(text, cArgument, place, '-'),
                 [&](IString& string) -> IString& { return string.overlayWith(argument.c_str(), place, '-'); });
    expectEdited(text, reference::overlayWith(text, text, place, '-'),
                 [&](IString& string) -> IString& { return string.overlayWith(string, place, '-'); });
    expectEdited(text, reference::overlayWith(text, cOwnPart, place, '-'), [&](IString& string) -> IString& {
      return string.overlayWith(static_cast<const char*>(string) + ownPart, place, '-');
    });
    expectEdited(text, reference::remove(text, start, count),
                 [&](IString& string) -> IString& { return string.remove(start, count); });
    expectEdited(text, reference::remove(text, start, largest),
                 [&](IString& string) -> IString& { return string.remove(start); });
  });
}

TEST_F(StringEditOnRandomTexts, MapsCaseReversesAndTranslates)
{
  onManyTexts([this](const std::string& text, unsigned) {
    const std::string input = random.text(bytes("aabc\0"), 4);
    const std::string output = random.text(bytes("xyz\0"), 4);
    const std::string cInput = asCText(input);
    const std::string cOutput = asCText(output);
    SCOPED_TRACE(testing::PrintToString(input) + " to " + testing::PrintToString(output));
    expectEdited(text, reference::upperCase(text), [](IString& string) -> IString& { return string.upperCase(); });
    expectEdited(text, reference::lowerCase(text), [](IString& string) -> IString& { return string.lowerCase(); });
    expectEdited(text, reference::reverse(text), [](IString& string) -> IString& { return string.reverse(); });
    expectEdited(text, reference::translate(text, input, output, '-'),
                 [&](IString& string) -> IString& { return string.translate(made(input), made(output), '-'); });
    expectEdited(text, reference::translate(text, input, cOutput, '-'),
                 [&](IString& string) -> IString& { return string.translate(made(input), output.c_str(), '-'); });
    expectEdited(text, reference::translate(text, cInput, output, '-'),
                 [&](IString& string) -> IString& { return string.translate(input.c_str(), made(output), '-'); });
    expectEdited(text, reference::translate(text, cInput, cOutput, '-'),
                 [&](IString& string) -> IString& { return string.translate(input.c_str(), output.c_str(), '-'); });
  });
}

int passesLetterA(int character)
{
  return character == 'a' || character == 'A';
}

TEST_F(StringEditOnRandomTexts, StripsTheEnds)
{
  onManyTexts([this](const std::string& text, unsigned) {
    const std::string set = random.text(bytes("aab\0"), 3);
    const IStringEnum::StripMode mode = static_cast<IStringEnum::StripMode>(random.below(3));
    SCOPED_TRACE(testing::PrintToString(set) + " mode " + std::to_string(mode));
    expectEdited(text, reference::strip(text, set, mode),
                 [&](IString& string) -> IString& { return string.strip(made(set), mode); });
    expectEdited(text, reference::strip(text, asCText(set), mode),
                 [&](IString& string) -> IString& { return string.strip(set.c_str(), mode); });
    expectEdited(text, reference::strip(text, "a", mode),
                 [&](IString& string) -> IString& { return string.strip('a', mode); });
    expectEdited(text, reference::strip(text, passesLetterA, mode),
                 [&](IString& string) -> IString& { return string.strip(IStringTest(passesLetterA), mode); });
    expectEdited(text, reference::strip(text, " \t\n\v\f\r"),
                 [&](IString& string) -> IString& { return string.strip(); });
  });
}

}  // namespace
