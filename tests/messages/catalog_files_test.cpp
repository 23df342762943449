// catalog_files_test.cpp - what compares translations finds what is wrong with one.
#include "catalog_files.hpp"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using namespace catalogs;

TEST(CatalogSource, HasTheNumbersThatLinesBeginWith)
{
  std::istringstream source("$ 5 is a remark\n$set 1\n1 \"one\"\n\n1010 \"1011 in the text\"\n 7 indented\n8\nquelm\n");
  EXPECT_EQ(numbersIn(source), (std::set<int>{1, 1010}));
}

TEST(CatalogMessage, HasTheVariablesThatTheLibraryReplaces)
{
  EXPECT_EQ(variablesIn("%2 and %1, %2"), (std::set<char>{'1', '2'}));
  EXPECT_EQ(variablesIn("%9%8"), (std::set<char>{'8', '9'}));
  EXPECT_EQ(variablesIn("100%%1"), std::set<char>{});
  EXPECT_EQ(variablesIn("%%%1"), std::set<char>{'1'});
  EXPECT_EQ(variablesIn("%0 %a %"), std::set<char>{});
  EXPECT_EQ(variablesIn(""), std::set<char>{});
}

TEST(CatalogMessage, IsUtf8OrNot)
{
  EXPECT_TRUE(isUtf8(""));
  EXPECT_TRUE(isUtf8("plain"));
  EXPECT_TRUE(isUtf8("größer 日本語"));
  EXPECT_FALSE(
    isUtf8("gr\xF6\xDF"
           "er"));
  EXPECT_FALSE(isUtf8("\xC3"));
}

TEST(CatalogFile, LeavesOutTheMessagesThatItLacks)
{
  const Messages messages = messagesOf(QUELMCL_TEST_CATALOG_DIR "/C/LC_MESSAGES/quelmcl.cat", {4, 9999});
  ASSERT_EQ(messages.size(), 1u);
  EXPECT_EQ(messages.begin()->first, 4);
}

TEST(CatalogFile, ThatIsMissingIsToldOf)
{
  EXPECT_THROW(messagesOf(QUELMCL_TEST_CATALOG_DIR "/none.cat", {1}), std::runtime_error);
}

// ---- a translation is held against the English messages ----

const Messages english{{1, "Expected: %1"}, {2, " failed."}};

std::vector<std::string> faults(const Messages& translation)
{
  return faultsOf(translation, english);
}

using Faults = std::vector<std::string>;

TEST(TranslationFaults, AreNoneInASoundOne)
{
  EXPECT_EQ(faults({{1, "%1 was erwartet"}, {2, " schlug fehl."}}), Faults{});
}

TEST(TranslationFaults, AreMessagesThatAreMissing)
{
  EXPECT_EQ(faults({{1, "Erwartet: %1"}}), Faults{"2 is missing"});
}

TEST(TranslationFaults, AreMessagesThatAreTooMany)
{
  EXPECT_EQ(faults({{1, "Erwartet: %1"}, {2, " schlug fehl."}, {3, "Neu"}}), Faults{"3 is no message in English"});
}

TEST(TranslationFaults, AreMessagesLeftInEnglish)
{
  EXPECT_EQ(faults({{1, "Expected: %1"}, {2, " schlug fehl."}}), Faults{"1 is not translated"});
}

TEST(TranslationFaults, AreOtherVariables)
{
  const Faults expected{"1 has other variables than the English one"};
  EXPECT_EQ(faults({{1, "Erwartet: %2"}, {2, " schlug fehl."}}), expected);
  EXPECT_EQ(faults({{1, "Erwartet"}, {2, " schlug fehl."}}), expected);
  EXPECT_EQ(faults({{1, "Erwartet: %1 %2"}, {2, " schlug fehl."}}), expected);
}

TEST(TranslationFaults, AreOtherBlanksAtTheFront)
{
  EXPECT_EQ(faults({{1, "Erwartet: %1"}, {2, "schlug fehl."}}),
            Faults{"2 begins with other blanks than the English one"});
}

TEST(TranslationFaults, AreLineEnds)
{
  EXPECT_EQ(faults({{1, "Erwartet:\n%1"}, {2, " schlug fehl."}}), Faults{"1 has a line end"});
  EXPECT_EQ(faults({{1, "Erwartet: %1\r"}, {2, " schlug fehl."}}), Faults{"1 has a line end"});
}

TEST(TranslationFaults, AreOtherCharacterSets)
{
  EXPECT_EQ(faults({{1, "F\xFCr %1"}, {2, " schlug fehl."}}), Faults{"1 is not UTF-8"});
}

}  // namespace
