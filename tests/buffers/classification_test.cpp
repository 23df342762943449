// classification_test.cpp - buffers: classes of characters, and what the single-byte kind says about the lengths of
// characters.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <clocale>
#include <ctype.h>

#include <string>
#include <vector>

using namespace buffertests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Classes of characters

struct ClassRow {
  const char* name;
  int (IBuffer::*question)() const;
  int (*belongs)(int);  // of one character; null where the library does not ask the C library
};

const ClassRow classes[] = {
  {"isAlphanumeric", &IBuffer::isAlphanumeric, isalnum},
  {"isAlphabetic", &IBuffer::isAlphabetic, isalpha},
  {"isASCII", &IBuffer::isASCII, nullptr},
  {"isControl", &IBuffer::isControl, iscntrl},
  {"isDigits", &IBuffer::isDigits, isdigit},
  {"isGraphics", &IBuffer::isGraphics, isgraph},
  {"isHexDigits", &IBuffer::isHexDigits, isxdigit},
  {"isLowerCase", &IBuffer::isLowerCase, islower},
  {"isPrintable", &IBuffer::isPrintable, isprint},
  {"isPunctuation", &IBuffer::isPunctuation, ispunct},
  {"isUpperCase", &IBuffer::isUpperCase, isupper},
  {"isWhiteSpace", &IBuffer::isWhiteSpace, isspace},
};

bool expectedFor(const ClassRow& row, const std::string& text)
{
  return row.belongs == nullptr ? reference::isASCII(text) : reference::isAll(text, row.belongs);
}

class CharacterClass : public testing::TestWithParam<ClassRow> {
protected:
  /// The answers, as 0 or 1, of both kinds must be the same.
  static int answer(const std::string& text)
  {
    const Owned buffer(SingleByteBuffer::holding(text));
    const Owned ofTheProcess(ofThisProcess(text));
    const int answered = ((*buffer).*GetParam().question)();
    EXPECT_EQ(((*ofTheProcess).*GetParam().question)(), answered) << quelmcl_test::quoted(text);
    return answered;
  }
};

TEST_P(CharacterClass, HasNoEmptyText)
{
  EXPECT_EQ(answer(""), 0);
  EXPECT_EQ((IBuffer::defaultBuffer()->*GetParam().question)(), 0);
}

TEST_P(CharacterClass, IsThatOfTheCLibraryForEveryByte)
{
  for (int byte = 0; byte < 256; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    EXPECT_EQ(answer(text), expectedFor(GetParam(), text) ? 1 : 0) << quelmcl_test::quoted(text);
  }
}

TEST_P(CharacterClass, IsThatOfEveryLocaleOfThisMachine)
{
  const std::string before = std::setlocale(LC_ALL, nullptr);
  unsigned locales = 0;
  for (const char* const name : {"C", "C.UTF-8", "de_DE.UTF-8", "de_DE.ISO-8859-1", "ja_JP.SJIS", "ja_JP.EUC-JP",
                                 "zh_CN.GB18030", "zh_TW.BIG5"}) {
    if (std::setlocale(LC_ALL, name) == nullptr)
      continue;
    ++locales;
    for (int byte = 0x80; byte < 0x100; ++byte) {
      const std::string text(1, static_cast<char>(byte));
      const Owned buffer(SingleByteBuffer::holding(text));
      const Owned ofTheProcess(ofThisProcess(text));
      const int expected = expectedFor(GetParam(), text) ? 1 : 0;
      EXPECT_EQ(((*buffer).*GetParam().question)(), expected) << name << ' ' << quelmcl_test::quoted(text);
      EXPECT_EQ(((*ofTheProcess).*GetParam().question)(), expected) << name << ' ' << quelmcl_test::quoted(text);
      EXPECT_EQ((IBuffer::fromContents(IString(text.c_str()))->*GetParam().question)(), expected) << name;
    }
  }
  std::setlocale(LC_ALL, before.c_str());
  EXPECT_GE(locales, 8u);
}

TEST_P(CharacterClass, NeedsEveryByteOfTheText)
{
  std::string members;
  std::string others;
  for (int byte = 1; byte < 128; ++byte) {
    const std::string text(1, static_cast<char>(byte));
    (expectedFor(GetParam(), text) ? members : others) += text;
  }
  ASSERT_FALSE(members.empty());
  EXPECT_EQ(answer(members), 1);
  if (others.empty())
    others = "\x80";  // ASCII: only bytes above it do not belong
  EXPECT_EQ(answer(members + others[0]), 0);
  EXPECT_EQ(answer(others[0] + members), 0);
  EXPECT_EQ(answer(members + others[0] + members), 0);
}

TEST_P(CharacterClass, AgreesWithTheReference)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 1000; ++round) {
    const std::string text = random.text();
    EXPECT_EQ(answer(text), expectedFor(GetParam(), text) ? 1 : 0) << quelmcl_test::quoted(text);
  }
}

INSTANTIATE_TEST_SUITE_P(Rows, CharacterClass, testing::ValuesIn(classes),
                         [](const testing::TestParamInfo<ClassRow>& row) { return std::string(row.param.name); });

TEST(CharacterClasses, TellLettersAndDigitsApart)
{
  const Owned text(ofThisProcess("abc1"));
  EXPECT_FALSE(text->isAlphabetic());
  EXPECT_TRUE(text->isAlphanumeric());
}

TEST(CharacterClasses, OfAsciiEndAtTheFirstByteAbove7F)
{
  EXPECT_TRUE(Owned(ofThisProcess(bytes("\0abc\x7F")))->isASCII());
  EXPECT_FALSE(Owned(ofThisProcess("abc\x80"))->isASCII());
  EXPECT_FALSE(Owned(ofThisProcess("\xFF"
                                   "abc"))
                 ->isASCII());
}

/// Answers searches by tests with a fixed position, and notes what it was asked.
class AskedBuffer : public SingleByteBuffer {
public:
  static AskedBuffer* holding(const std::string& text)
  {
    const unsigned length = static_cast<unsigned>(text.size());
    AskedBuffer* const buffer = new (length) AskedBuffer(length);
    std::memcpy(buffer->contents(), text.data(), length);
    return buffer;
  }

  using SingleByteBuffer::indexOfAnyBut;
  unsigned indexOfAnyBut(const IStringTest& test, unsigned startPos) const override
  {
    askedFrom.push_back(startPos);
    passesDigits = test.test('7') != 0 && test.test('x') == 0;
    return answer;
  }

  static inline unsigned answer = 0;
  static inline std::vector<unsigned> askedFrom;
  static inline bool passesDigits = false;

private:
  explicit AskedBuffer(unsigned newLen) : SingleByteBuffer(newLen) {}
};

// Kinds with other ideas of a character take part in the classes by their searches alone.
TEST(CharacterClasses, AreAskedOfTheSearchForACharacterThatFails)
{
  for (const char* const text : {"abc", "123"}) {
    const Owned buffer(AskedBuffer::holding(text));
    AskedBuffer::askedFrom.clear();
    AskedBuffer::answer = 0;
    EXPECT_TRUE(buffer->isDigits()) << text;
    AskedBuffer::answer = 2;
    EXPECT_FALSE(buffer->isDigits()) << text;
    EXPECT_FALSE(buffer->isHexDigits()) << text;
    EXPECT_EQ(AskedBuffer::askedFrom, (std::vector<unsigned>{1, 1, 1})) << text;
    EXPECT_TRUE(AskedBuffer::passesDigits);
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Lengths of characters

class SingleByteRules : public testing::TestWithParam<std::string> {};

TEST_P(SingleByteRules, AnswerWithoutLookingAtTheText)
{
  const Owned text(SingleByteBuffer::holding(GetParam()));
  EXPECT_EQ(text->isSBCS(), 1);
  EXPECT_EQ(text->includesSBCS(), 1);
  EXPECT_EQ(text->isValidMBCS(), 1);
  EXPECT_EQ(text->isValidDBCS(), 1);
  EXPECT_EQ(text->isMBCS(), 0);
  EXPECT_EQ(text->isDBCS(), 0);
  EXPECT_EQ(text->includesMBCS(), 0);
  EXPECT_EQ(text->includesDBCS(), 0);
}

TEST_P(SingleByteRules, MakeEveryByteASingleByteCharacter)
{
  const Owned text(SingleByteBuffer::holding(GetParam()));
  for (unsigned pos = 1; pos <= text->length(); ++pos)
    EXPECT_EQ(text->charType(pos), IStringEnum::sbcs) << pos;
  EXPECT_EQ(text->charType(0), IStringEnum::sbcs);
}

INSTANTIATE_TEST_SUITE_P(Texts, SingleByteRules,
                         testing::Values("", "abc", bytes("a\0b"), "\xC3\xA9", "a\xE3\x81\x82", "\xFF\x80"));

TEST(Next, StaysWhereItIsInTheSingleByteKind)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  const IBuffer& constant = *text;
  EXPECT_EQ(text->next(text->contents()), text->contents());
  EXPECT_EQ(text->next(text->contents() + 2), text->contents() + 2);
  EXPECT_EQ(constant.next(constant.contents() + 1), constant.contents() + 1);
}

TEST(CharType, OfAsciiIsSingleByteInBothKinds)
{
  const Owned text(ofThisProcess("abc"));
  for (unsigned pos = 1; pos <= 3; ++pos)
    EXPECT_EQ(text->charType(pos), IStringEnum::sbcs) << pos;
}

}  // namespace
