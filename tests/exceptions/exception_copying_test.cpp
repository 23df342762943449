// exception_copying_test.cpp - a copy owns its texts, and where storage runs out it takes over those of its source.
#include <quelmcl/iexcbase.hpp>

#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

/// Storage on the stack for an object that is to outlive the block in which it is built.
template <class Object>
class LatePlace {
public:
  LatePlace() : object(nullptr) {}
  ~LatePlace()
  {
    if (object != nullptr)
      object->~Object();
  }
  LatePlace(const LatePlace&) = delete;
  LatePlace& operator=(const LatePlace&) = delete;

  void copyFrom(const Object& source) { object = new (storage) Object(source); }
  Object& operator*() { return *object; }
  Object* operator->() { return object; }

private:
  alignas(Object) unsigned char storage[sizeof(Object)];
  Object* object;
};

TEST(ExceptionCopy, OwnsItsTexts)
{
  IException source("a");
  source.setText("b");
  IException copy(source);
  ASSERT_EQ(copy.textCount(), 2u);
  EXPECT_NE(copy.text(0), source.text(0));
  EXPECT_NE(copy.text(1), source.text(1));

  copy.appendText("+").setText("c");
  EXPECT_EQ(source.textCount(), 2u);
  EXPECT_STREQ(source.text(0), "b");
  EXPECT_STREQ(source.text(1), "a");

  source.appendText("-");
  EXPECT_EQ(copy.textCount(), 3u);
  EXPECT_STREQ(copy.text(1), "b+");
}

TEST(ExceptionCopy, OutlivesItsSource)
{
  LatePlace<IException> copy;
  {
    IException source("a");
    source.setText("b");
    copy.copyFrom(source);
  }
  EXPECT_STREQ(copy->text(0), "b");
  EXPECT_STREQ(copy->text(1), "a");
}

TEST(ExceptionCopy, OfAnExceptionWithoutTextHasNone)
{
  const IException source(nullptr, 4);
  const IException copy(source);
  EXPECT_EQ(copy.textCount(), 0u);
  EXPECT_EQ(copy.text(0), nullptr);
  EXPECT_EQ(copy.errorId(), 4u);
}

TEST(ExceptionCopy, CopiesAttributesOfItsOwn)
{
  IException source("a", 1, IException::recoverable);
  IException copy(source);
  copy.setErrorId(2).setSeverity(IException::unrecoverable).setErrorCodeGroup("other");
  EXPECT_EQ(source.errorId(), 1u);
  EXPECT_TRUE(source.isRecoverable());
  EXPECT_STREQ(source.errorCodeGroup(), "Quelm Class Library");
}

TEST(ExceptionCopy, LeaksNothing)
{
  AllocationWatch watch;
  {
    IException source("a");
    source.setText("b").setText("c");
    const IException copy(source);
    const IException copyOfCopy(copy);
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

// Which of the allocations of a copy fails, and whether the later ones do as well.
struct FailureCase {
  unsigned long nth;
  FailingAllocations::Extent extent;
};

std::vector<FailureCase> failureCases()
{
  std::vector<FailureCase> cases;
  for (unsigned long nth = 1; nth <= 6; ++nth) {
    cases.push_back({nth, FailingAllocations::andAllLater});
    cases.push_back({nth, FailingAllocations::andNoOther});
  }
  return cases;
}

std::string nameOfFailure(const testing::TestParamInfo<FailureCase>& row)
{
  return (row.param.extent == FailingAllocations::andAllLater ? "From" : "Only") + std::to_string(row.param.nth);
}

const unsigned levels = 3;

class CopyWithoutStorage : public testing::TestWithParam<FailureCase> {
protected:
  CopyWithoutStorage() : source("oldest", 9, IException::recoverable)
  {
    source.setText("middle").setText("newest").addLocation(IExceptionLocation("file.cpp", "function", 1));
  }

  /// Copies the source while allocations fail, and says how many did.
  unsigned long copySource()
  {
    FailingAllocations scope(GetParam().nth, GetParam().extent);
    copy.copyFrom(source);
    return scope.failures();
  }

  IException source;
  LatePlace<IException> copy;
};

const char* const newestFirst[] = {"newest", "middle", "oldest"};

TEST_P(CopyWithoutStorage, HasAllTexts)
{
  EXPECT_GT(copySource(), 0u);
  ASSERT_EQ(copy->textCount(), levels);
  for (unsigned level = 0; level < levels; ++level)
    EXPECT_STREQ(copy->text(level), newestFirst[level]);
  EXPECT_EQ(copy->text(levels), nullptr);
}

TEST_P(CopyWithoutStorage, HasTheRestToo)
{
  copySource();
  EXPECT_EQ(copy->errorId(), 9u);
  EXPECT_TRUE(copy->isRecoverable());
  EXPECT_STREQ(copy->errorCodeGroup(), "Quelm Class Library");
  ASSERT_EQ(copy->locationCount(), 1u);
  EXPECT_STREQ(copy->locationAtIndex(0)->fileName(), "file.cpp");
}

TEST_P(CopyWithoutStorage, SharesNoTextWithItsSource)
{
  copySource();
  for (unsigned level = 0; level < levels; ++level) {
    const char* const left = source.text(level);
    if (left == nullptr)
      continue;  // it lives in the copy now
    EXPECT_NE(left, copy->text(level)) << "level " << level;
    EXPECT_STREQ(left, newestFirst[level]) << "level " << level;
  }
}

TEST_P(CopyWithoutStorage, LeavesItsSourceUsable)
{
  copySource();
  source.setText("again").appendText("!");
  EXPECT_STREQ(source.text(0), "again!");
  EXPECT_EQ(source.text(source.textCount()), nullptr);
  const IException another(source);
  EXPECT_STREQ(another.text(0), "again!");
}

TEST_P(CopyWithoutStorage, CanItselfBeChangedAndCopied)
{
  copySource();
  copy->appendText("+").setText("top");
  const IException another(*copy);
  ASSERT_EQ(another.textCount(), levels + 1);
  EXPECT_STREQ(another.text(0), "top");
  EXPECT_STREQ(another.text(1), "newest+");
  EXPECT_STREQ(another.text(2), "middle");
  EXPECT_STREQ(another.text(3), "oldest");
}

TEST_P(CopyWithoutStorage, LeaksNothing)
{
  AllocationWatch watch;
  unsigned long failures = 0;
  {
    IException original("a");
    original.setText("b").setText("c");
    FailingAllocations scope(GetParam().nth, GetParam().extent);
    const IException duplicate(original);
    failures = scope.failures();
  }
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
  EXPECT_GT(failures, 0u);
}

INSTANTIATE_TEST_SUITE_P(Failing, CopyWithoutStorage, testing::ValuesIn(failureCases()), nameOfFailure);

TEST(CopyWithoutAnyStorage, TakesTheTextsThemselvesOver)
{
  IException source("older");
  source.setText("newer");
  const char* const newer = source.text(0);
  const char* const older = source.text(1);
  LatePlace<IException> copy;
  {
    FailingAllocations scope(1);
    copy.copyFrom(source);
  }
  EXPECT_EQ(copy->text(0), newer);
  EXPECT_EQ(copy->text(1), older);
}

TEST(CopyWithoutAnyStorage, CanBeRepeatedFromCopyToCopy)
{
  AllocationWatch watch;
  {
    IException source("older");
    source.setText("newer");
    LatePlace<IException> first;
    LatePlace<IException> second;
    {
      FailingAllocations scope(1);
      first.copyFrom(source);
      second.copyFrom(*first);
    }
    EXPECT_STREQ(second->text(0), "newer");
    EXPECT_STREQ(second->text(1), "older");
  }
  EXPECT_EQ(watch.liveBlocks(), 0);
}

TEST(CopyWithoutAnyStorage, ThrowingKeepsTheTexts)
{
  IException source("older");
  source.setText("newer");
  std::string newer;
  std::string older;
  const char* caughtNewer = nullptr;
  const char* caughtOlder = nullptr;
  newer.reserve(100);
  older.reserve(100);
  try {
    FailingAllocations scope(1);
    throw IException(source);
  } catch (const IException& caught) {
    caughtNewer = caught.text(0);
    caughtOlder = caught.text(1);
    newer = caughtNewer == nullptr ? "" : caughtNewer;
    older = caughtOlder == nullptr ? "" : caughtOlder;
  }
  EXPECT_EQ(newer, "newer");
  EXPECT_EQ(older, "older");
}

TEST(TextLevelCopyWithoutStorage, TakesOverTextAndOlderLevels)
{
  for (unsigned long nth = 1; nth <= 4; ++nth) {
    AllocationWatch watch;
    {
      const IExcText source("newest", new IExcText("middle", new IExcText("oldest")));
      LatePlace<IExcText> copy;
      {
        FailingAllocations scope(nth);
        copy.copyFrom(source);
      }
      EXPECT_STREQ(copy->text(), "newest") << "allocation " << nth;
      ASSERT_NE(copy->next(), nullptr) << "allocation " << nth;
      EXPECT_STREQ(copy->next()->text(), "middle") << "allocation " << nth;
      ASSERT_NE(copy->next()->next(), nullptr) << "allocation " << nth;
      EXPECT_STREQ(copy->next()->next()->text(), "oldest") << "allocation " << nth;
      EXPECT_EQ(copy->next()->next()->next(), nullptr) << "allocation " << nth;
    }
    EXPECT_EQ(watch.liveBlocks(), 0) << "allocation " << nth;
  }
}

TEST(TextLevelCopy, KeepsLevelsWithoutText)
{
  const IExcText source("newer", new IExcText(nullptr, new IExcText("oldest")));
  const IExcText copy(source);
  EXPECT_STREQ(copy.text(), "newer");
  ASSERT_NE(copy.next(), nullptr);
  EXPECT_EQ(copy.next()->text(), nullptr);
  ASSERT_NE(copy.next()->next(), nullptr);
  EXPECT_STREQ(copy.next()->next()->text(), "oldest");
}

}  // namespace
