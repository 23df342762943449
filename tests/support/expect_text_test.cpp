// expect_text_test.cpp - the check of texts that all other tests rely on: what it passes and what it does not.
#include "support/expect_text.hpp"

#include <quelmcl/istring.hpp>

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <string>

namespace {

TEST(ExpectText, PassesEqualTextsHoweverTheyAreGiven)
{
  const IString text("a\0b", 3);
  const char* const pointer = "abc";
  EXPECT_TEXT(text, "a\0b");
  EXPECT_TEXT(text, std::string("a\0b", 3));
  EXPECT_TEXT(text, "a\0b", 1);
  EXPECT_TEXT(IString("abc"), pointer);
  EXPECT_TEXT(IString("abc"), pointer, 1);
  EXPECT_TEXT(IString(), "");
  EXPECT_TEXT(IBuffer::fromContents(text), "a\0b");
  EXPECT_TEXT(*IBuffer::fromContents(text), "a\0b");
}

TEST(ExpectText, FailsForAnotherByte)
{
  EXPECT_NONFATAL_FAILURE(EXPECT_TEXT(IString("abc"), "abd"), "abd");
}

TEST(ExpectText, FailsForAByteBehindANul)
{
  EXPECT_NONFATAL_FAILURE(EXPECT_TEXT(IString("a\0b", 3), "a\0c"), "a\\x00c");
}

TEST(ExpectText, FailsForAnotherLength)
{
  EXPECT_NONFATAL_FAILURE(EXPECT_TEXT(IString("a\0", 2), "a"), "(2 bytes)");
  EXPECT_NONFATAL_FAILURE(EXPECT_TEXT(IString("a"), "a\0"), "(2 bytes)");
}

TEST(ExpectText, FailsWithoutTheNulBehindTheText)
{
  static IString text("abc");
  static_cast<char*>(text)[3] = 'd';
  EXPECT_NONFATAL_FAILURE(EXPECT_TEXT(text, "abc"), "NUL");
  static_cast<char*>(text)[3] = '\0';
}

TEST(ExpectText, FailsForAnotherReferenceCount)
{
  static const IString text("abc");
  const IString sharer(text);
  EXPECT_NONFATAL_FAILURE(EXPECT_TEXT(text, "abc", 1), "2 references");
  EXPECT_TEXT(sharer, "abc", 2);
}

}  // namespace
