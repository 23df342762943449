// concatenation_test.cpp - IString: joining, appending, and combining bytes by the bit operators.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <cstring>
#include <string>

using namespace stringtests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Joining

TEST(StringJoin, GivesANewStringOfBothTexts)
{
  const IString left("abc");
  const IString right("def");
  EXPECT_TEXT(left + right, "abcdef");
  EXPECT_TEXT(left, "abc");
  EXPECT_TEXT(right, "def");
}

TEST(StringJoin, TakesConstantAndWritableTextsOnEitherSide)
{
  const IString text("abc");
  char writable[8] = "buf";
  EXPECT_TEXT(text + "x", "abcx");
  EXPECT_TEXT("x" + text, "xabc");
  EXPECT_TEXT(text + writable, "abcbuf");
  EXPECT_TEXT(writable + text, "bufabc");
  EXPECT_TEXT(text + text + "x" + "y", "abcabcxy");
}

TEST(StringJoin, TakesOneCharacterOnEitherSide)
{
  IString text("abc");
  EXPECT_TEXT(text + 'x', "abcx");
  EXPECT_TEXT('x' + text, "xabc");
  EXPECT_TEXT("a" + text + 'x', "aabcx");
  EXPECT_TEXT(text + text[1], "abca");
  EXPECT_TEXT(text + '\0', bytes("abc\0"));
}

TEST(StringJoin, KeepsTheNulsOfStrings)
{
  const IString left("a\0", 2);
  const IString right("\0b", 2);
  EXPECT_TEXT(left + right, bytes("a\0\0b"));
  EXPECT_TEXT(left + "x", bytes("a\0x"));
  EXPECT_TEXT("x" + right, bytes("x\0b"));
}

TEST(StringJoin, OfANullPointerAddsNothing)
{
  const IString text("abc");
  const char* const none = nullptr;
  EXPECT_TEXT(text + none, "abc");
  EXPECT_TEXT(none + text, "abc");
}

TEST(StringJoin, OfEmptyTextsIsTheSharedEmptyText)
{
  const IString empty;
  EXPECT_TRUE(shareText(empty + empty, empty));
  EXPECT_TRUE(shareText(empty + "", empty));
  EXPECT_TRUE(shareText("" + empty, empty));
}

TEST(StringJoin, WithItself)
{
  const IString text("ab");
  EXPECT_TEXT(text + text, "abab");
}

// ---------------------------------------------------------------------------------------------------------------------
// Appending

TEST(StringAppend, ReturnsTheStringItself)
{
  IString text("abc");
  EXPECT_EQ(&(text += "d"), &text);
  EXPECT_EQ(&(text += IString("e")), &text);
  EXPECT_EQ(&(text += ""), &text);
  EXPECT_TEXT(text, "abcde");
}

TEST(StringAppend, TakesWhateverAStringCanBeMadeFrom)
{
  IString text("abc");
  char writable[8] = "buf";
  EXPECT_TEXT(text += IString("def"), "abcdef");
  EXPECT_TEXT(text += "x", "abcdefx");
  EXPECT_TEXT(text += writable, "abcdefxbuf");
  EXPECT_TEXT(text += 'y', "abcdefxbufy");
  EXPECT_TEXT(text += 5, "abcdefxbufy5");
}

TEST(StringAppend, OfAnEmptyTextKeepsTheVeryBufferAndItsCount)
{
  IString text("abc");
  const IString sharer(text);
  const IBuffer* const before = bufferOf(text);
  const char* const none = nullptr;
  text += IString();
  text += "";
  text += none;
  text += 0;
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(bufferOf(text), before);
  EXPECT_EQ(useCountOf(text), 2u);
}

TEST(StringAppend, LeavesTheOtherSharersTheirText)
{
  IString text("abc");
  const IString sharer(text);
  text += "def";
  EXPECT_TEXT(text, "abcdef");
  EXPECT_TEXT(sharer, "abc");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

TEST(StringAppend, BuildsANewBufferForASoleOwnerToo)
{
  IString text("abc");
  const IString holdsTheOldOne(text);  // else the new buffer might stand where the old one was
  const IBuffer* const before = bufferOf(text);
  text += "d";
  EXPECT_NE(bufferOf(text), before);
  EXPECT_EQ(useCountOf(text), 1u);
}

TEST(StringAppend, ToAnEmptyStringIsTheArgumentsText)
{
  IString text;
  const unsigned nulls = useCountOf(text);
  text += "abc";
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(useCountOf(IString()), nulls);  // one reference left with `text`, one came with the temporary
}

TEST(StringAppend, OfItselfDoublesTheText)
{
  IString text("abc");
  text += text;
  EXPECT_TEXT(text, "abcabc");
  text += static_cast<char*>(text);
  EXPECT_TEXT(text, "abcabcabcabc");
  text += static_cast<const char*>(text) + 10;
  EXPECT_TEXT(text, "abcabcabcabcbc");
}

TEST(StringAppend, KeepsNuls)
{
  IString text("a\0", 2);
  text += IString("\0b", 2);
  text += "c";
  EXPECT_TEXT(text, bytes("a\0\0bc"));
}

// ---------------------------------------------------------------------------------------------------------------------
// Bits

/// What the operator has to give.
std::string combined(const std::string& text, const std::string& argument, IString::BitOperator op)
{
  switch (op) {
  case IString::bitAnd:
    return reference::bitAnd(text, argument);
  case IString::bitOr:
    return reference::bitOr(text, argument);
  case IString::bitExclusiveOr:
    return reference::bitExclusiveOr(text, argument);
  }
  return "no such operator";
}

TEST(StringBits, ABlankTurnsTheCaseOfLettersAround)
{
  EXPECT_TEXT(IString("abc") ^ " ", "ABC");
}

TEST(StringBits, AShorterArgumentIsRepeated)
{
  EXPECT_TEXT(IString("abcd") & "\x60\x0F", combined("abcd", "\x60\x0F", IString::bitAnd));
  EXPECT_TEXT(IString("aaaaa") ^ "\x01\x02", "`c`c`");
}

TEST(StringBits, OfALongerArgumentOnlyTheFirstBytesCount)
{
  EXPECT_TEXT(IString("abcd") & "\x7F\x7F\x7F\x60\x01\x01\x01\x01\x01\x01", "abc`");
}

TEST(StringBits, AnyPartOfTheTextItselfMayBeTheArgument)
{
  std::string bytes;
  while (bytes.size() < 300)
    bytes += static_cast<char>('!' + bytes.size() % 89);
  for (unsigned offset = 0; offset < bytes.size(); ++offset) {
    const std::string part = bytes.substr(offset);
    IString all(bytes.c_str()), some(bytes.c_str()), either(bytes.c_str());
    all &= static_cast<const char*>(all) + offset;
    some |= static_cast<const char*>(some) + offset;
    either ^= static_cast<const char*>(either) + offset;
    EXPECT_TEXT(all, combined(bytes, part, IString::bitAnd)) << offset;
    EXPECT_TEXT(some, combined(bytes, part, IString::bitOr)) << offset;
    EXPECT_TEXT(either, combined(bytes, part, IString::bitExclusiveOr)) << offset;
  }
}

TEST(StringBits, AnEmptyArgumentChangesNothing)
{
  const IString text("abc");
  const char* const none = nullptr;
  EXPECT_TEXT(text & "", "abc");
  EXPECT_TEXT(text | IString(), "abc");
  EXPECT_TEXT(text ^ none, "abc");
  EXPECT_TEXT(text & none, "abc");
  EXPECT_TEXT(text | none, "abc");
}

TEST(StringBits, AnEmptyArgumentKeepsTheSharedBuffer)
{
  IString text("abc");
  const IString sharer(text);
  text &= "";
  text |= IString();
  text ^= static_cast<const char*>(nullptr);
  EXPECT_TRUE(shareText(text, sharer));
  EXPECT_EQ(useCountOf(text), 2u);
}

TEST(StringBits, OfAnEmptyStringStayEmpty)
{
  IString text;
  EXPECT_TEXT(text & "abc", "");
  EXPECT_TEXT(text |= "a", "");
  EXPECT_TEXT(text ^= IString("ab"), "");
  EXPECT_TRUE(shareText(text, IString()));
}

TEST(StringBits, TheLengthIsThatOfTheLeftOperand)
{
  const IString right("abcdef");
  EXPECT_TEXT("ab" & right, "ab");
  EXPECT_TEXT("\x20" | right, "a");
  EXPECT_TEXT("AB" ^ IString("  \0\0\0\0", 6), "ab");
  EXPECT_TEXT("" & right, "");
  EXPECT_TEXT(static_cast<const char*>(nullptr) | right, "");
}

TEST(StringBits, OneOperandMayBeAWritableTextOrACharacter)
{
  const IString text("abc");
  char writable[8] = "  ";
  EXPECT_TEXT(text ^ writable, "ABC");
  EXPECT_TEXT(writable ^ IString("abc"), "AB");
  EXPECT_TEXT(text ^ ' ', "ABC");
}

TEST(StringBits, TheTwoOperandFormsLeaveTheirOperands)
{
  const IString left("abc");
  const IString right(" ");
  EXPECT_TEXT(left ^ right, "ABC");
  EXPECT_TEXT(left, "abc");
  EXPECT_TEXT(right, " ");
}

TEST(StringBits, TheCompoundFormsReturnTheStringItself)
{
  IString text("abc");
  EXPECT_EQ(&(text &= "\x5F"), &text);
  EXPECT_TEXT(text, "ABC");
  EXPECT_EQ(&(text |= " "), &text);
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(&(text ^= " "), &text);
  EXPECT_TEXT(text, "ABC");
  EXPECT_EQ(&(text &= IString("")), &text);
  EXPECT_EQ(&(text |= IString(" ")), &text);
  EXPECT_TEXT(text, "abc");
  EXPECT_EQ(&(text ^= IString(" ")), &text);
  EXPECT_TEXT(text, "ABC");
  EXPECT_EQ(&(text &= IString("\x60")), &text);
  EXPECT_TEXT(text, "@@@");
}

TEST(StringBits, ASoleOwnerIsChangedInPlace)
{
  IString text("abc");
  const char* const before = text;
  text ^= " ";
  EXPECT_EQ(static_cast<const char*>(text), before);
}

TEST(StringBits, TheOtherSharersKeepTheirText)
{
  IString text("abc");
  const IString sharer(text);
  text ^= " ";
  EXPECT_TEXT(text, "ABC");
  EXPECT_TEXT(sharer, "abc");
  EXPECT_EQ(useCountOf(sharer), 1u);
}

TEST(StringBits, WithItself)
{
  IString text("abc");
  const IString& same = text;
  EXPECT_TEXT(text & same, "abc");
  EXPECT_TEXT(text | same, "abc");
  text &= same;
  EXPECT_TEXT(text, "abc");
  text ^= same;
  EXPECT_TEXT(text, bytes("\0\0\0"));
}

TEST(StringBits, WithTheEndOfItselfReadsTheOldBytes)
{
  IString andText("abcd");
  andText &= static_cast<char*>(andText) + 1;
  EXPECT_TEXT(andText, combined("abcd", "bcd", IString::bitAnd));

  IString orText("abcd");
  orText |= static_cast<char*>(orText) + 2;
  EXPECT_TEXT(orText, combined("abcd", "cd", IString::bitOr));

  IString xorText("abcd");
  xorText ^= static_cast<char*>(xorText) + 1;
  EXPECT_TEXT(xorText, combined("abcd", "bcd", IString::bitExclusiveOr));

  IString lastByte("abcd");
  lastByte ^= static_cast<char*>(lastByte) + 3;
  EXPECT_TEXT(lastByte, combined("abcd", "d", IString::bitExclusiveOr));

  IString wholeText("abcd");
  wholeText ^= static_cast<char*>(wholeText);
  EXPECT_TEXT(wholeText, bytes("\0\0\0\0"));
}

TEST(StringBits, APartOfItsOwnBeginningReadsTheOldBytes)
{
  Probe text("abcdefg");
  text.applyBitOp(text, 1, IString::bitExclusiveOr);
  EXPECT_TEXT(text, combined("abcdefg", "a", IString::bitExclusiveOr));

  Probe other("abcdefg");
  other.applyBitOp(other, 3, IString::bitExclusiveOr);
  EXPECT_TEXT(other, combined("abcdefg", "abc", IString::bitExclusiveOr));
}

TEST(StringBits, TheEngineReturnsTheStringItself)
{
  Probe text("abc");
  EXPECT_EQ(&text.applyBitOp(" ", 1, IString::bitExclusiveOr), &text);
  EXPECT_TEXT(text, "ABC");
  EXPECT_EQ(&text.applyBitOp(nullptr, 0, IString::bitAnd), &text);
  EXPECT_TEXT(text, "ABC");
}

TEST(StringBits, TheOperatorsAreNumberedAsWritten)
{
  EXPECT_EQ(IString::bitAnd, 0);
  EXPECT_EQ(IString::bitOr, 1);
  EXPECT_EQ(IString::bitExclusiveOr, 2);
}

TEST(StringBits, AgreeWithByteByByteArithmeticOnRandomTexts)
{
  quelmcl_test::RandomTexts random(20260103);
  for (int round = 0; round < 3000; ++round) {
    const std::string text = random.text(bytes("az\0\x7F\x80\xFF\x55\xAA"), 40);
    const std::string argument = random.text(bytes("\x01\x80\xFF\x0F\0z"), 12);
    SCOPED_TRACE(testing::PrintToString(text) + " with " + testing::PrintToString(argument));
    ASSERT_EQ(bytesOf(made(text) & made(argument)), combined(text, argument, IString::bitAnd));
    ASSERT_EQ(bytesOf(made(text) | made(argument)), combined(text, argument, IString::bitOr));
    ASSERT_EQ(bytesOf(made(text) ^ made(argument)), combined(text, argument, IString::bitExclusiveOr));
    ASSERT_EQ(bytesOf(made(text) ^ argument.c_str()), combined(text, asCText(argument), IString::bitExclusiveOr));
    ASSERT_EQ(bytesOf(argument.c_str() & made(text)), combined(asCText(argument), text, IString::bitAnd));
    ASSERT_EQ(bytesOf(~made(text)), reference::complement(text));

    IString changed = made(text);
    const IString sharer(changed);
    ASSERT_EQ(bytesOf(changed |= argument.c_str()), combined(text, asCText(argument), IString::bitOr));
    ASSERT_EQ(bytesOf(sharer), text);
  }
}

TEST(StringBits, WithAnyPartOfItselfReadsTheOldBytes)
{
  quelmcl_test::RandomTexts random(20260104);
  for (int round = 0; round < 2000; ++round) {
    const std::string text = random.text("abcdefgh", 20) + "x";
    const unsigned length = static_cast<unsigned>(text.size());
    const unsigned first = random.below(length);
    const unsigned count = random.below(length - first + 1);
    SCOPED_TRACE(text + " with " + std::to_string(count) + " bytes at " + std::to_string(first));
    Probe changed(made(text));
    changed.applyBitOp(changed.data() + first, count, IString::bitExclusiveOr);
    ASSERT_EQ(bytesOf(changed), combined(text, text.substr(first, count), IString::bitExclusiveOr));
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Complement

TEST(StringComplement, TurnsEveryBitAround)
{
  EXPECT_EQ(bytesOf(~IString("a\0\x7F", 3)), bytes("\x9E\xFF\x80"));
}

TEST(StringComplement, OfTheEmptyStringIsTheEmptyString)
{
  const IString empty;
  EXPECT_TRUE(shareText(~empty, empty));
}

TEST(StringComplement, LeavesTheStringAndTwiceGivesItBack)
{
  const IString text("abc");
  EXPECT_TEXT(~~text, "abc");
  EXPECT_TEXT(text, "abc");
}

}  // namespace
