// message_text_test.cpp - IMessageText: variables, line ends, what happens without a catalog or a message, copies.
#include <quelmcl/imsgtext.hpp>

#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <unistd.h>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

const char variables[] = QUELMCL_TEST_CATALOGS "/variables.cat";
const char unavailable[] = "Unable to load text from message file.";

struct VariableCase {
  const char* name;
  unsigned long message;  // of catalogs/variables.msg, repeated behind each row
  const char* inserts[9];
  const char* expected;
};

const VariableCase variableCases[] = {
  {"TextWithoutVariablesStays", 1, {}, "no variables"},
  {"TextWithoutVariablesIgnoresInserts", 1, {"x", "y"}, "no variables"},
  {"InsertsAfterANullOneDoNotCount", 2, {"a", nullptr, "c"}, "a-%3"},   // %1-%3
  {"AnInsertThatIsNotAskedForIsLeftAway", 2, {"a", "b", "c"}, "a-c"},   // %1-%3
  {"VariablesWithoutInsertsStay", 2, {}, "%1-%3"},                      // %1-%3
  {"ANullFirstInsertHidesAllOthers", 2, {nullptr, "b", "c"}, "%1-%3"},  // %1-%3
  {"PercentBeforeZeroStays", 4, {"x"}, "%0|x"},                         // %0|%1
  {"PercentBeforeALetterStays", 5, {"x"}, "%a|x"},                      // %a|%1
  {"PercentAtTheEndStays", 6, {"x"}, "x%"},                             // %1%
  {"OnlyOneDigitIsRead", 7, {"x"}, "x2"},                               // %12
  {"OnlyOneDigitIsReadEvenWithManyInserts", 7, {"a", "b", "c", "d", "e", "f", "g", "h", "i"}, "a2"},
  {"VariablesRepeatInAnyOrder", 8, {"a", "b"}, "b a b a"},                                // %2 %1 %2 %1
  {"AllNineAreFilledIn", 9, {"a", "b", "c", "d", "e", "f", "g", "h", "i"}, "abcdefghi"},  // %1%2%3%4%5%6%7%8%9
  {"TheNinthStaysWithEightInserts", 9, {"a", "b", "c", "d", "e", "f", "g", "h"}, "abcdefgh%9"},
  {"DoubledPercentHidesTheDigitBehindIt", 10, {"x"}, "%%1"},  // %%1
  {"ThirdPercentStartsAVariable", 11, {"x"}, "%%x"},          // %%%1
  {"EmptyMessageIsEmpty", 12, {"x"}, ""},
  {"OneCharacterStays", 13, {"y"}, "x"},
  {"OnePercentStays", 14, {"y"}, "%"},
  {"LineEndAloneIsLeftOut", 15, {}, ""},                             // CR LF
  {"LineEndIsLeftOut", 16, {}, "text"},                              // text CR LF
  {"LoneLineFeedStays", 17, {}, "text\n"},                           // text LF
  {"OnlyOneLineEndIsLeftOut", 18, {}, "text\r\n"},                   // text CR LF CR LF
  {"LineFeedBeforeCarriageReturnStays", 19, {}, "text\n\r"},         // text LF CR
  {"OneLineFeedAsTheWholeTextStays", 20, {}, "\n"},                  // LF
  {"LineEndBehindAVariableIsLeftOut", 21, {"x"}, "x"},               // %1 CR LF
  {"LineEndOfAnInsertIsLeftOutAtTheEnd", 30, {"x\r\n"}, "textx"},    // text%1
  {"LineEndOfAnInsertStaysElsewhere", 29, {"x\r\n"}, "x\r\ntext"},   // %1text
  {"EmptyInsertCounts", 22, {""}, "[]"},                             // [%1]
  {"EmptyInsertDoesNotHideTheNext", 23, {"", "b"}, " b"},            // %1 %2
  {"AnInsertIsNotSearchedForVariables", 23, {"%2", "%1"}, "%2 %1"},  // %1 %2
  {"NeighboursAreBothFilledIn", 24, {"ab"}, "abab"},                 // %1%1
  {"LoneCarriageReturnStays", 25, {}, "text\r"},                     // text CR
  {"ThreePercentsAtTheEndStay", 26, {"x"}, "%%%"},                   // %%%
  {"DoubledPercentAtTheEndStays", 27, {"x"}, "50%%"},                // 50%%
  {"PercentBeforeABlankStays", 28, {"x"}, "% 1"},                    // % 1
  {"VariableAtTheStart", 29, {"x"}, "xtext"},                        // %1text
  {"VariableAtTheEnd", 30, {"x"}, "textx"},                          // text%1
  {"DoubledPercentAloneStays", 32, {"x"}, "%%"},                     // %%
  {"PercentsOfAllKindsInARow", 33, {"x"}, "%-%%-x"},                 // %-%%-%1
  {"LineEndAtTheStartStays", 34, {}, "\r\ntext"},                    // CR LF text
  {"VariableAboveTheNumberOfInsertsStays", 35, {"x"}, "%2"},         // %2
};

class MessageVariables : public testing::TestWithParam<VariableCase> {};

TEST_P(MessageVariables, AreFilledIn)
{
  const VariableCase& row = GetParam();
  const char* const* const insert = row.inserts;
  const IMessageText message(row.message, variables, insert[0], insert[1], insert[2], insert[3], insert[4], insert[5],
                             insert[6], insert[7], insert[8]);
  EXPECT_STREQ(message.text(), row.expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, MessageVariables, testing::ValuesIn(variableCases),
                         [](const testing::TestParamInfo<VariableCase>& row) { return std::string(row.param.name); });

TEST(MessageVariables, MayBeLong)
{
  const std::string longInsert(1000000, 'x');
  const IMessageText message(24, variables, longInsert.c_str());  // %1%1
  EXPECT_EQ(message.text(), longInsert + longInsert);
}

TEST(MessageText, ADoubledPercentSignStaysDoubled)
{
  EXPECT_STREQ(IMessageText(3, variables, "x").text(), "100%% x");  // 100%% %1
}

TEST(MessageText, ConvertsToItsText)
{
  const IMessageText message(1, variables);
  const char* const text = message;
  EXPECT_EQ(text, message.text());
  EXPECT_STREQ(text, "no variables");
}

TEST(MessageText, OwnsACopyOfItsInserts)
{
  char insert[] = "abc";
  const IMessageText message(22, variables, insert);
  insert[0] = 'x';
  EXPECT_STREQ(message.text(), "[abc]");
}

class CatalogFile {
public:
  explicit CatalogFile(const std::string& contents)
    : path(testing::TempDir() + "quelmcl-test-" + std::to_string(getpid()) + ".cat")
  {
    std::ofstream(path, std::ios::binary) << contents;
  }
  ~CatalogFile() { std::remove(path.c_str()); }
  CatalogFile(const CatalogFile&) = delete;
  CatalogFile& operator=(const CatalogFile&) = delete;

  const std::string path;
};

TEST(MessageTextFallback, ForAMissingMessage)
{
  EXPECT_STREQ(IMessageText(9999, variables).text(), unavailable);
}

TEST(MessageTextFallback, ForMessageZero)
{
  EXPECT_STREQ(IMessageText(0, variables).text(), unavailable);
}

TEST(MessageTextFallback, ForTheLargestNumber)
{
  EXPECT_STREQ(IMessageText(~0ul, variables).text(), unavailable);
  EXPECT_STREQ(IMessageText(2147483648u, variables).text(), unavailable);
}

#if ULONG_MAX > 0xFFFFFFFFu
TEST(MessageTextFallback, ForANumberThatIsSmallOnlyInItsLowHalf)
{
  EXPECT_STREQ(IMessageText(0x100000001u, variables).text(), unavailable);  // its low half is message 1
}
#endif

TEST(MessageTextFallback, ForANullName)
{
  EXPECT_STREQ(IMessageText(1, nullptr).text(), unavailable);
}

TEST(MessageTextFallback, ForAnEmptyName)
{
  EXPECT_STREQ(IMessageText(1, "").text(), unavailable);
}

TEST(MessageTextFallback, ForAMissingFile)
{
  EXPECT_STREQ(IMessageText(1, "/nowhere/none.cat", "x").text(), unavailable);
}

TEST(MessageTextFallback, ForADirectory)
{
  EXPECT_STREQ(IMessageText(1, QUELMCL_TEST_CATALOGS).text(), unavailable);
  EXPECT_STREQ(IMessageText(1, "/").text(), unavailable);
}

TEST(MessageTextFallback, ForAnEmptyFile)
{
  const CatalogFile file("");
  EXPECT_STREQ(IMessageText(1, file.path.c_str()).text(), unavailable);
}

TEST(MessageTextFallback, ForAFileThatIsNoCatalog)
{
  const CatalogFile file(std::string(10000, '%'));
  EXPECT_STREQ(IMessageText(1, file.path.c_str()).text(), unavailable);
}

/// The bytes of a sound catalog.
std::string soundCatalog()
{
  std::ifstream file(variables, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

/// Reads some messages. What a damaged catalog answers is its own affair; that a text comes of it is not.
void expectTexts(const std::string& catalog)
{
  const CatalogFile file(catalog);
  for (const unsigned long number : {1ul, 2ul, 12ul, 9999ul})
    EXPECT_NE(IMessageText(number, file.path.c_str(), "one", "two").text(), nullptr);
}

TEST(MessageTextFallback, ForACatalogThatIsCutOffAnywhere)
{
  const std::string sound = soundCatalog();
  ASSERT_GT(sound.size(), 100u);
  for (std::size_t length = 0; length < sound.size(); ++length)
    expectTexts(sound.substr(0, length));
}

TEST(MessageTextFallback, ForALargeCatalogThatIsCutOffWithinItsTables)
{
  // 400 times 4 entries: the tables end behind the first pages of memory, where nothing is when the file ends before.
  const std::string header("\xDE\x08\x04\x96\x90\x01\0\0\x04\0\0\0", 12);
  for (const std::size_t length : {12u, 13u, 100u, 4095u, 4096u, 4097u, 8192u, 38411u, 38412u}) {
    const CatalogFile file(header + std::string(length - header.size(), '\0'));
    EXPECT_STREQ(IMessageText(1, file.path.c_str()).text(), unavailable) << length;
  }
}

TEST(MessageTextFallback, ForACatalogWithEmptyTables)
{
  std::string sound = soundCatalog();
  for (const std::size_t place : {4u, 8u}) {  // the two sizes of the tables
    std::string damaged = sound;
    damaged.replace(place, 4, 4, '\0');
    const CatalogFile file(damaged);
    EXPECT_STREQ(IMessageText(1, file.path.c_str()).text(), unavailable);
  }
}

TEST(MessageTextFallback, ForADamagedCatalogAlongThePathForCatalogs)
{
  const CatalogFile file(soundCatalog().substr(0, 200));
  const std::size_t slash = file.path.rfind('/');
  const std::string folder = file.path.substr(0, slash);
  const std::string name = file.path.substr(slash + 1);
  const char* const before = std::getenv("NLSPATH");
  const std::string kept = before == nullptr ? "" : before;
  for (const std::string& path :
       {folder + "/%N", "/nowhere/%L/%l/%t/%c/%N:" + folder + "/%N", folder + "/%N:/nowhere"}) {
    setenv("NLSPATH", path.c_str(), 1);
    EXPECT_STREQ(IMessageText(1, name.c_str()).text(), unavailable) << path;
  }
  setenv("NLSPATH", kept.c_str(), 1);
}

TEST(MessageTextFallback, ForACatalogWithBytesOfChance)
{
  const std::string sound = soundCatalog();
  std::mt19937 random(8);
  for (int round = 0; round < 3000; ++round) {
    std::string damaged = sound;
    for (unsigned changes = 1 + random() % 4; changes != 0; --changes)
      damaged[random() % (round % 2 == 0 ? 24 : sound.size())] = static_cast<char>(random());
    expectTexts(damaged);
  }
  for (int round = 0; round < 300; ++round) {
    std::string noise(random() % 2000, ' ');
    for (char& byte : noise)
      byte = static_cast<char>(random());
    expectTexts(noise);
    expectTexts(sound.substr(0, 12) + noise);
  }
}

TEST(MessageTextFallback, ForACatalogWithoutTheSet)
{
  EXPECT_STREQ(IMessageText(1, QUELMCL_TEST_CATALOGS "/otherset.cat").text(), unavailable);
}

TEST(MessageTextFallback, IsNotSearchedForVariables)
{
  EXPECT_STREQ(IMessageText(9999, variables, "x").text(), unavailable);
}

/// How many files of that name the process has mapped or open.
int usesOf(const std::string& path)
{
  int uses = 0;
  std::ifstream maps("/proc/self/maps");
  for (std::string line; std::getline(maps, line);)
    uses += line.find(path) != std::string::npos;
  for (int descriptor = 0; descriptor < 256; ++descriptor) {
    char target[4096];
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const ssize_t length = readlink(link.c_str(), target, sizeof target);
    uses += length > 0 && std::string(target, static_cast<std::size_t>(length)).find(path) != std::string::npos;
  }
  return uses;
}

TEST(MessageText, ClosesItsCatalog)
{
  for (int round = 0; round < 10; ++round)
    IMessageText(1, variables);
  EXPECT_EQ(usesOf("variables.cat"), 0);
}

TEST(MessageText, ClosesItsCatalogWhenTheMessageIsMissing)
{
  for (int round = 0; round < 10; ++round)
    IMessageText(9999, variables);
  EXPECT_EQ(usesOf("variables.cat"), 0);
}

TEST(MessageText, LeaksNothing)
{
  AllocationWatch watch;
  {
    IMessageText loaded(8, variables, "a", "b");
    IMessageText missing(9999, variables);
    missing.setDefaultText("text");
    const IMessageText copy(loaded);
    missing = copy;
  }
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
}

TEST(MessageTextCopy, OwnsItsText)
{
  std::unique_ptr<IMessageText> source(new IMessageText(1, variables));
  const IMessageText copy(*source);
  EXPECT_NE(copy.text(), source->text());
  source.reset();
  EXPECT_STREQ(copy.text(), "no variables");
}

TEST(MessageTextCopy, RemembersThatTheTextIsFromTheCatalog)
{
  const IMessageText source(1, variables);
  IMessageText copy(source);
  copy.setDefaultText("default");
  EXPECT_STREQ(copy.text(), "no variables");
}

TEST(MessageTextCopy, RemembersThatTheTextIsTheFallback)
{
  const IMessageText source(1, nullptr);
  IMessageText copy(source);
  copy.setDefaultText("default");
  EXPECT_STREQ(copy.text(), "default");
  EXPECT_STREQ(source.text(), unavailable);
}

TEST(MessageTextAssignment, CopiesTheText)
{
  std::unique_ptr<IMessageText> source(new IMessageText(1, variables));
  IMessageText target(1, nullptr);
  EXPECT_EQ(&(target = *source), &target);
  EXPECT_NE(target.text(), source->text());
  source.reset();
  EXPECT_STREQ(target.text(), "no variables");
}

TEST(MessageTextAssignment, CopiesWhereTheTextIsFrom)
{
  const IMessageText loaded(1, variables);
  const IMessageText missing(1, nullptr);
  IMessageText first(1, nullptr);
  IMessageText second(1, variables);
  first = loaded;
  second = missing;
  first.setDefaultText("default");
  second.setDefaultText("default");
  EXPECT_STREQ(first.text(), "no variables");
  EXPECT_STREQ(second.text(), "default");
}

TEST(MessageTextAssignment, ToItselfChangesNothing)
{
  IMessageText message(1, variables);
  const IMessageText& same = message;
  message = same;
  EXPECT_STREQ(message.text(), "no variables");
}

TEST(MessageTextDefault, ReplacesTheFallback)
{
  IMessageText message(1, nullptr);
  char given[] = "default";
  EXPECT_EQ(&message.setDefaultText(given), &message);
  given[0] = 'x';
  EXPECT_STREQ(message.text(), "default");
}

TEST(MessageTextDefault, ReplacesAnEarlierDefault)
{
  IMessageText message(1, nullptr);
  message.setDefaultText("first").setDefaultText("second");
  EXPECT_STREQ(message.text(), "second");
}

TEST(MessageTextDefault, LeavesATextFromTheCatalog)
{
  IMessageText message(1, variables);
  EXPECT_EQ(&message.setDefaultText("default"), &message);
  EXPECT_STREQ(message.text(), "no variables");
}

TEST(MessageTextDefault, LeavesAnEmptyTextFromTheCatalog)
{
  IMessageText message(12, variables);
  message.setDefaultText("default");
  EXPECT_STREQ(message.text(), "");
}

TEST(MessageTextDefault, NullChangesNothing)
{
  IMessageText message(1, nullptr);
  EXPECT_EQ(&message.setDefaultText(nullptr), &message);
  EXPECT_STREQ(message.text(), unavailable);
}

TEST(MessageTextDefault, MayBeTheMessagesOwnText)
{
  IMessageText message(1, nullptr);
  message.setDefaultText(message.text());
  EXPECT_STREQ(message.text(), unavailable);
}

TEST(MessageTextWithoutStorage, KeepsTheFallbackWhenOneCopyFails)
{
  bool sawFallback = false;
  for (unsigned long nth = 1; nth <= 6; ++nth) {
    std::string text;
    text.reserve(100);
    bool isNull = true;
    {
      FailingAllocations scope(nth, FailingAllocations::andNoOther);
      const IMessageText message(8, variables, "a", "b");  // %2 %1 %2 %1
      isNull = message.text() == nullptr;
      if (!isNull)
        text.assign(message.text());
    }
    EXPECT_FALSE(isNull) << "allocation " << nth;
    EXPECT_TRUE(text == "b a b a" || text == unavailable) << "allocation " << nth << ": " << text;
    sawFallback = sawFallback || text == unavailable;
  }
  EXPECT_TRUE(sawFallback);
}

TEST(MessageTextWithoutStorage, HasNoTextWhenNothingCanBeStored)
{
  const char* text = "";
  bool isSafe = false;
  {
    FailingAllocations scope(1);
    const IMessageText message(1, variables);
    text = message.text();
    const IMessageText copy(message);
    isSafe = copy.text() == nullptr;
  }
  EXPECT_EQ(text, nullptr);
  EXPECT_TRUE(isSafe);
}

TEST(MessageTextWithoutStorage, ATextlessMessageCanBeCopiedAssignedAndGivenATextLater)
{
  const IMessageText other(1, variables);
  std::unique_ptr<IMessageText> textless;
  void* const place = ::operator new(sizeof(IMessageText));
  {
    FailingAllocations scope(1);
    textless.reset(new (place) IMessageText(1, nullptr));
  }
  const IMessageText copy(*textless);
  EXPECT_EQ(copy.text(), nullptr);
  IMessageText target(other);
  target = *textless;
  EXPECT_EQ(target.text(), nullptr);
  textless->setDefaultText("default");
  EXPECT_STREQ(textless->text(), "default");
}

TEST(MessageTextWithoutStorage, SetDefaultTextKeepsTheOldText)
{
  IMessageText message(1, nullptr);
  unsigned long failures = 0;
  {
    FailingAllocations scope(1);
    message.setDefaultText("default");
    failures = scope.failures();
  }
  EXPECT_GT(failures, 0u);
  EXPECT_STREQ(message.text(), unavailable);
}

TEST(MessageTextWithoutStorage, AssignmentKeepsTheOldText)
{
  const IMessageText source(1, variables);
  IMessageText target(13, variables);
  unsigned long failures = 0;
  {
    FailingAllocations scope(1);
    target = source;
    failures = scope.failures();
  }
  EXPECT_GT(failures, 0u);
  EXPECT_STREQ(target.text(), "x");
}

TEST(MessageTextWithoutStorage, LeaksNothing)
{
  for (unsigned long nth = 1; nth <= 6; ++nth) {
    AllocationWatch watch;
    {
      FailingAllocations scope(nth);
      IMessageText message(8, variables, "a", "b");
      const IMessageText copy(message);
      message = copy;
    }
    const long live = watch.liveBlocks();
    EXPECT_EQ(live, 0) << "allocation " << nth;
  }
}

}  // namespace
