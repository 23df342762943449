// exception_texts_test.cpp - the stack of texts: constructor, setText, appendText, text, and IExcText itself.
#include <quelmcl/iexcbase.hpp>

#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <pthread.h>
#include <string>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

TEST(ExceptionTexts, ANullTextGivesNoLevel)
{
  const IException exception(nullptr, 0, IException::recoverable);
  EXPECT_EQ(exception.textCount(), 0u);
  EXPECT_EQ(exception.text(0), nullptr);
  EXPECT_STREQ(exception.errorCodeGroup(), "Quelm Class Library");
  EXPECT_TRUE(exception.isRecoverable());
}

TEST(ExceptionTexts, TheEmptyTextIsALevel)
{
  const IException exception("");
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_STREQ(exception.text(0), "");
}

TEST(ExceptionTexts, AreCopiedFromTheCaller)
{
  char given[] = "abc";
  IException exception(given);
  given[0] = 'x';
  EXPECT_STREQ(exception.text(0), "abc");

  exception.setText(given);
  given[0] = 'y';
  EXPECT_STREQ(exception.text(0), "xbc");
}

TEST(ExceptionTexts, TheLatestIsTextZero)
{
  IException exception("a");
  exception.setText("b");
  EXPECT_EQ(exception.textCount(), 2u);
  EXPECT_STREQ(exception.text(0), "b");
  EXPECT_STREQ(exception.text(1), "a");
}

TEST(ExceptionTexts, TextWithoutAnIndexIsTheLatest)
{
  IException exception("a");
  exception.setText("b");
  EXPECT_STREQ(exception.text(), "b");
}

TEST(ExceptionTexts, PastTheOldestThereIsNone)
{
  IException exception("a");
  exception.setText("b");
  EXPECT_EQ(exception.text(2), nullptr);
  EXPECT_EQ(exception.text(3), nullptr);
  EXPECT_EQ(exception.text(~0ul), nullptr);
}

TEST(ExceptionTexts, SetTextOnAnEmptyStackStartsOne)
{
  IException exception(nullptr);
  exception.setText("a");
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_STREQ(exception.text(0), "a");
}

TEST(ExceptionTexts, AppendingExtendsTheLatestWithoutASeparator)
{
  IException exception("a");
  exception.setText("b").appendText("c");
  EXPECT_EQ(exception.textCount(), 2u);
  EXPECT_STREQ(exception.text(0), "bc");
  EXPECT_STREQ(exception.text(1), "a");
}

TEST(ExceptionTexts, AppendingToNoTextSetsOne)
{
  IException exception(nullptr);
  exception.appendText("a");
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_STREQ(exception.text(0), "a");
}

TEST(ExceptionTexts, AppendingAgainAndAgainKeepsOneLevel)
{
  IException exception("");
  std::string expected;
  for (int round = 0; round < 1000; ++round) {
    exception.appendText("xyz");
    expected += "xyz";
  }
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_EQ(exception.text(0), expected);
}

TEST(ExceptionTexts, AppendingTheEmptyTextChangesNothing)
{
  IException exception("a");
  exception.appendText("");
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_STREQ(exception.text(0), "a");
}

TEST(ExceptionTexts, SettingNullChangesNothing)
{
  IException exception("a");
  IException& result = exception.setText(nullptr);
  EXPECT_EQ(&result, &exception);
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_STREQ(exception.text(0), "a");
}

TEST(ExceptionTexts, AppendingNullChangesNothing)
{
  IException exception("a");
  IException& result = exception.appendText(nullptr);
  EXPECT_EQ(&result, &exception);
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_STREQ(exception.text(0), "a");
}

TEST(ExceptionTexts, NullChangesNothingOnAnEmptyStackEither)
{
  IException exception(nullptr);
  exception.setText(nullptr).appendText(nullptr);
  EXPECT_EQ(exception.textCount(), 0u);
  EXPECT_EQ(exception.text(0), nullptr);
}

TEST(ExceptionTexts, SettersReturnTheExceptionForChaining)
{
  IException exception("a");
  EXPECT_EQ(&exception.setText("b"), &exception);
  EXPECT_EQ(&exception.appendText("c"), &exception);
}

TEST(ExceptionTexts, AnExceptionsOwnTextCanBeAppendedToIt)
{
  IException exception("ab");
  exception.appendText(exception.text());
  EXPECT_STREQ(exception.text(0), "abab");
}

TEST(ExceptionTexts, AnExceptionsOwnTextCanBeSetOnTopOfIt)
{
  IException exception("ab");
  exception.setText(exception.text());
  EXPECT_EQ(exception.textCount(), 2u);
  EXPECT_STREQ(exception.text(0), "ab");
  EXPECT_STREQ(exception.text(1), "ab");
}

TEST(ExceptionTexts, MayBeLong)
{
  const std::string longText(1000000, 'x');
  IException exception(longText.c_str());
  exception.appendText(longText.c_str());
  EXPECT_EQ(exception.text(0), longText + longText);
}

TEST(ExceptionTexts, CostTwoAllocationsEach)
{
  AllocationWatch watch;
  const IException exception("a text that fits into no small buffer, to be sure that it is stored");
  const unsigned long allocations = watch.allocations();
  EXPECT_EQ(allocations, 2u);
}

TEST(ExceptionTexts, NoTextCostsNoAllocation)
{
  AllocationWatch watch;
  const IException exception(nullptr);
  const unsigned long allocations = watch.allocations();
  EXPECT_EQ(allocations, 0u);
}

TEST(ExceptionTexts, AreReleasedWithTheException)
{
  AllocationWatch watch;
  {
    IException exception("a");
    exception.setText("b").appendText("c").setText("d");
  }
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
}

TEST(ExceptionTextsWithoutStorage, ConstructionNeverFailsAndLeavesTheTextAway)
{
  bool sawLevelWithoutText = false;
  for (unsigned long nth = 1; nth <= 2; ++nth) {
    AllocationWatch watch;
    unsigned long failures = 0;
    unsigned long count = 99;
    const char* text = "";
    {
      FailingAllocations scope(nth, FailingAllocations::andNoOther);
      const IException exception("text", 7, IException::recoverable);
      failures = scope.failures();
      count = exception.textCount();
      text = exception.text(0);
    }
    EXPECT_EQ(failures, 1u) << "allocation " << nth;
    EXPECT_LE(count, 1u) << "allocation " << nth;
    EXPECT_EQ(text, nullptr) << "allocation " << nth;
    EXPECT_EQ(watch.liveBlocks(), 0) << "allocation " << nth;
    sawLevelWithoutText = sawLevelWithoutText || count == 1;
  }
  EXPECT_TRUE(sawLevelWithoutText) << "a text whose copy gets no storage is a level all the same";
}

TEST(ExceptionTextsWithoutStorage, TheRestOfTheExceptionIsThere)
{
  unsigned long failures = 0;
  std::unique_ptr<IException> exception;
  void* const place = ::operator new(sizeof(IException));
  {
    FailingAllocations scope(1);
    exception.reset(new (place) IException("text", 7, IException::recoverable));
    failures = scope.failures();
  }
  EXPECT_GT(failures, 0u);
  EXPECT_EQ(exception->errorId(), 7u);
  EXPECT_TRUE(exception->isRecoverable());
  EXPECT_STREQ(exception->errorCodeGroup(), "Quelm Class Library");
  EXPECT_EQ(exception->text(0), nullptr);
}

TEST(ExceptionTextsWithoutStorage, SetTextKeepsTheEarlierTexts)
{
  for (unsigned long nth = 1; nth <= 2; ++nth) {
    IException exception("a");
    unsigned long failures = 0;
    IException* result = nullptr;
    {
      FailingAllocations scope(nth);
      result = &exception.setText("b");
      failures = scope.failures();
    }
    EXPECT_GT(failures, 0u) << "allocation " << nth;
    EXPECT_EQ(result, &exception) << "allocation " << nth;
    const unsigned long count = exception.textCount();
    ASSERT_TRUE(count == 1 || count == 2) << "allocation " << nth;
    EXPECT_STREQ(exception.text(count - 1), "a") << "allocation " << nth;
    if (count == 2) {
      EXPECT_EQ(exception.text(0), nullptr) << "allocation " << nth;
    }
    EXPECT_EQ(exception.text(count), nullptr) << "allocation " << nth;
  }
}

TEST(ExceptionTextsWithoutStorage, ALevelWhoseTextGetsNoStorageCountsAllTheSame)
{
  bool sawLevelWithoutText = false;
  for (unsigned long nth = 1; nth <= 2; ++nth) {
    IException exception("a");
    {
      FailingAllocations scope(nth, FailingAllocations::andNoOther);
      exception.setText("b");
    }
    sawLevelWithoutText = sawLevelWithoutText || (exception.textCount() == 2 && exception.text(0) == nullptr);
  }
  EXPECT_TRUE(sawLevelWithoutText);
}

TEST(ExceptionTextsWithoutStorage, AppendTextLeavesTheTextAsItWas)
{
  IException exception("a");
  exception.setText("b");
  unsigned long failures = 0;
  IException* result = nullptr;
  {
    FailingAllocations scope(1);
    result = &exception.appendText("c");
    failures = scope.failures();
  }
  EXPECT_GT(failures, 0u);
  EXPECT_EQ(result, &exception);
  EXPECT_EQ(exception.textCount(), 2u);
  EXPECT_STREQ(exception.text(0), "b");
  EXPECT_STREQ(exception.text(1), "a");
}

TEST(ExceptionTextsWithoutStorage, ALevelWithoutTextCanBeAppendedTo)
{
  for (unsigned long nth = 1; nth <= 2; ++nth) {
    IException exception("a");
    {
      FailingAllocations scope(nth, FailingAllocations::andNoOther);
      exception.setText("b");
    }
    if (exception.textCount() != 2)
      continue;  // it was the level that got no storage
    exception.appendText("c");
    EXPECT_EQ(exception.textCount(), 2u);
    EXPECT_STREQ(exception.text(0), "c");
    EXPECT_STREQ(exception.text(1), "a");
  }
}

TEST(TextLevel, CopiesItsTextAndAdoptsTheOlderLevels)
{
  AllocationWatch watch;
  {
    char given[] = "newer";
    const IExcText* const older = new IExcText("older", nullptr);
    const IExcText level(given, older);
    given[0] = 'x';
    EXPECT_STREQ(level.text(), "newer");
    EXPECT_EQ(level.next(), older);
    EXPECT_STREQ(level.next()->text(), "older");
    EXPECT_EQ(level.next()->next(), nullptr);
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(TextLevel, CopiesTheWholeChain)
{
  AllocationWatch watch;
  {
    std::unique_ptr<IExcText> source(new IExcText("newer", new IExcText("older")));
    const IExcText copy(*source);
    EXPECT_NE(copy.text(), source->text());
    ASSERT_NE(copy.next(), nullptr);
    EXPECT_NE(copy.next(), source->next());
    source.reset();
    EXPECT_STREQ(copy.text(), "newer");
    EXPECT_STREQ(copy.next()->text(), "older");
    EXPECT_EQ(copy.next()->next(), nullptr);
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(TextLevel, AppendsToItsOwnTextOnly)
{
  IExcText level("newer", new IExcText("older"));
  level.appendText("+");
  EXPECT_STREQ(level.text(), "newer+");
  EXPECT_STREQ(level.next()->text(), "older");
  level.appendText(nullptr);
  EXPECT_STREQ(level.text(), "newer+");
}

TEST(TextLevel, ANullTextGivesALevelWithoutText)
{
  const IExcText level(nullptr);
  EXPECT_EQ(level.text(), nullptr);
  EXPECT_EQ(level.next(), nullptr);
}

// A stack that a recursion of one call a level would overflow by far.
const unsigned manyLevels = 100000;
const std::size_t smallStack = 256 * 1024;

void* buildCopyAndDestroy(void* finished)
{
  {
    std::unique_ptr<IException> source(new IException("level 0"));
    for (unsigned level = 1; level < manyLevels; ++level)
      source->setText("another level");
    const IException copy(*source);
    source.reset();
    *static_cast<bool*>(finished) = copy.textCount() == manyLevels && copy.text(manyLevels) == nullptr &&
                                    std::string(copy.text(manyLevels - 1)) == "level 0" &&
                                    std::string(copy.text(manyLevels - 2)) == "another level" &&
                                    std::string(copy.text(0)) == "another level";
  }
  return nullptr;
}

TEST(ManyTexts, AreCopiedAndDestroyedOnASmallStack)
{
  AllocationWatch watch;
  bool finished = false;
  pthread_attr_t attributes;
  pthread_t thread;
  ASSERT_EQ(pthread_attr_init(&attributes), 0);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, smallStack), 0);
  ASSERT_EQ(pthread_create(&thread, &attributes, buildCopyAndDestroy, &finished), 0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
  EXPECT_TRUE(finished);
  EXPECT_EQ(watch.liveBlocks(), 0);
}

}  // namespace
