// exception_attributes_test.cpp - error id, severity and error group.
#include <quelmcl/iexcbase.hpp>

#include <gtest/gtest.h>

#include <limits>

namespace {

/// A group name changed for the length of a block.
class ChangedGroup {
public:
  ChangedGroup(const char*& groupName, const char* changed) : group(groupName), original(groupName) { group = changed; }
  ~ChangedGroup() { group = original; }
  ChangedGroup(const ChangedGroup&) = delete;
  ChangedGroup& operator=(const ChangedGroup&) = delete;

private:
  const char*& group;
  const char* const original;
};

TEST(ErrorId, IsTheOneGiven)
{
  const unsigned long largest = std::numeric_limits<unsigned long>::max();
  EXPECT_EQ(IException("text", 5).errorId(), 5u);
  EXPECT_EQ(IException("text", largest).errorId(), largest);
  EXPECT_EQ(IException("text").errorId(), 0u);
}

TEST(ErrorId, CanBeSet)
{
  IException exception("text", 5);
  EXPECT_EQ(&exception.setErrorId(6), &exception);
  EXPECT_EQ(exception.errorId(), 6u);
}

TEST(Severity, OfTheEnumerationIsZeroOrOne)
{
  EXPECT_EQ(static_cast<int>(IException::unrecoverable), 0);
  EXPECT_EQ(static_cast<int>(IException::recoverable), 1);
  EXPECT_EQ(sizeof(IException::Severity), 4u);
}

TEST(Severity, DecidesWhetherAnExceptionIsRecoverable)
{
  EXPECT_TRUE(IException("text", 0, IException::recoverable).isRecoverable());
  EXPECT_FALSE(IException("text", 0, IException::unrecoverable).isRecoverable());
}

TEST(Severity, CanBeSet)
{
  IException exception("text");
  EXPECT_EQ(&exception.setSeverity(IException::recoverable), &exception);
  EXPECT_TRUE(exception.isRecoverable());
  exception.setSeverity(IException::unrecoverable);
  EXPECT_FALSE(exception.isRecoverable());
}

TEST(ErrorGroup, ConstantsHaveTheirTexts)
{
  EXPECT_STREQ(IException::baseLibrary, "Quelm Class Library");
  EXPECT_STREQ(IException::CLibrary, "Standard C Library");
  EXPECT_STREQ(IException::operatingSystem, "Operating System");
  EXPECT_STREQ(IException::presentationSystem, "Presentation System");
  EXPECT_STREQ(IException::other, "Other Error Group");
}

TEST(ErrorGroup, StartsAsTheLibrarys)
{
  const IException exception("text");
  EXPECT_STREQ(exception.errorCodeGroup(), "Quelm Class Library");
}

TEST(ErrorGroup, IsPointedAtAndNotCopied)
{
  char group[] = "my group";
  IException exception("text");
  EXPECT_EQ(&exception.setErrorCodeGroup(group), &exception);
  EXPECT_EQ(exception.errorCodeGroup(), group);
  const IException copy(exception);
  EXPECT_EQ(copy.errorCodeGroup(), group);
}

TEST(ErrorGroup, MayBeNull)
{
  IException exception("text");
  exception.setErrorCodeGroup(nullptr);
  EXPECT_EQ(exception.errorCodeGroup(), nullptr);
  const IException copy(exception);
  EXPECT_EQ(copy.errorCodeGroup(), nullptr);
}

TEST(ErrorGroup, OfANewExceptionIgnoresAChangedConstant)
{
  ChangedGroup changed(IException::baseLibrary, "changed");
  const IException exception("text");
  EXPECT_STREQ(exception.errorCodeGroup(), "Quelm Class Library");
}

TEST(ErrorGroup, OfAnExceptionKeepsThePointerItWasGiven)
{
  IException exception("text");
  exception.setErrorCodeGroup(IException::CLibrary);
  ChangedGroup changed(IException::CLibrary, "changed");
  EXPECT_STREQ(exception.errorCodeGroup(), "Standard C Library");
}

TEST(ExceptionSetters, CanBeChained)
{
  IException exception(nullptr);
  exception.setText("a")
    .appendText("b")
    .setErrorId(3)
    .setSeverity(IException::recoverable)
    .setErrorCodeGroup("group")
    .addLocation(IExceptionLocation("file.cpp", "function", 1));
  EXPECT_STREQ(exception.text(), "ab");
  EXPECT_EQ(exception.errorId(), 3u);
  EXPECT_TRUE(exception.isRecoverable());
  EXPECT_STREQ(exception.errorCodeGroup(), "group");
  EXPECT_EQ(exception.locationCount(), 1u);
}

}  // namespace
