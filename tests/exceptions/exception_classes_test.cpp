// exception_classes_test.cpp - the family: names, bases, catching, copying by value.
#include <quelmcl/iexcbase.hpp>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <string>
#include <type_traits>
#include <typeinfo>

namespace {

static_assert(!std::is_copy_assignable<IException>::value, "exceptions are copied, not assigned");
static_assert(std::is_copy_constructible<IException>::value, "exceptions are thrown by value");
static_assert(!std::is_base_of<std::exception, IException>::value, "the family stands on its own");
static_assert(std::has_virtual_destructor<IException>::value, "exceptions can be destroyed through their base");

template <class ExceptionClass, class BaseClass>
struct Member {
  typedef ExceptionClass Class;
  typedef BaseClass Base;
};

template <class Class>
const char* nameOf();
template <>
const char* nameOf<IException>()
{
  return "IException";
}
template <>
const char* nameOf<IAccessError>()
{
  return "IAccessError";
}
template <>
const char* nameOf<IAssertionFailure>()
{
  return "IAssertionFailure";
}
template <>
const char* nameOf<IDeviceError>()
{
  return "IDeviceError";
}
template <>
const char* nameOf<IInvalidParameter>()
{
  return "IInvalidParameter";
}
template <>
const char* nameOf<IInvalidRequest>()
{
  return "IInvalidRequest";
}
template <>
const char* nameOf<IResourceExhausted>()
{
  return "IResourceExhausted";
}
template <>
const char* nameOf<IOutOfMemory>()
{
  return "IOutOfMemory";
}
template <>
const char* nameOf<IOutOfSystemResource>()
{
  return "IOutOfSystemResource";
}
template <>
const char* nameOf<IOutOfWindowResource>()
{
  return "IOutOfWindowResource";
}

typedef testing::Types<
  Member<IException, IException>, Member<IAccessError, IException>, Member<IAssertionFailure, IException>,
  Member<IDeviceError, IException>, Member<IInvalidParameter, IException>, Member<IInvalidRequest, IException>,
  Member<IResourceExhausted, IException>, Member<IOutOfMemory, IResourceExhausted>,
  Member<IOutOfSystemResource, IResourceExhausted>, Member<IOutOfWindowResource, IResourceExhausted>>
  Family;

struct MemberNames {
  template <class Row>
  static std::string GetName(int)
  {
    return nameOf<typename Row::Class>();
  }
};

template <class Row>
class ExceptionClass : public testing::Test {
};
TYPED_TEST_SUITE(ExceptionClass, Family, MemberNames);

TYPED_TEST(ExceptionClass, AnswersItsName)
{
  const typename TypeParam::Class exception("text", 1, IException::recoverable);
  const IException& base = exception;
  EXPECT_STREQ(base.name(), nameOf<typename TypeParam::Class>());
}

TYPED_TEST(ExceptionClass, PassesItsArgumentsOn)
{
  const typename TypeParam::Class exception("text", 77, IException::recoverable);
  EXPECT_STREQ(exception.text(0), "text");
  EXPECT_EQ(exception.textCount(), 1u);
  EXPECT_EQ(exception.errorId(), 77u);
  EXPECT_TRUE(exception.isRecoverable());
  EXPECT_STREQ(exception.errorCodeGroup(), "Quelm Class Library");
}

TYPED_TEST(ExceptionClass, IsUnrecoverableAndWithoutIdUnlessToldOtherwise)
{
  const typename TypeParam::Class exception("text");
  EXPECT_EQ(exception.errorId(), 0u);
  EXPECT_FALSE(exception.isRecoverable());
}

TYPED_TEST(ExceptionClass, IsCaughtAsItself)
{
  typedef typename TypeParam::Class Class;
  try {
    throw Class("text", 3, IException::recoverable);
  } catch (const Class& caught) {
    EXPECT_TRUE(typeid(caught) == typeid(Class));
    EXPECT_STREQ(caught.text(0), "text");
  }
}

TYPED_TEST(ExceptionClass, IsCaughtAsItsBase)
{
  typedef typename TypeParam::Class Class;
  try {
    throw Class("text", 3, IException::recoverable);
  } catch (const typename TypeParam::Base& caught) {
    EXPECT_TRUE(typeid(caught) == typeid(Class));
    EXPECT_STREQ(caught.name(), nameOf<Class>());
  }
}

TYPED_TEST(ExceptionClass, IsCaughtAsTheRootOfTheFamily)
{
  typedef typename TypeParam::Class Class;
  try {
    throw Class("text", 3, IException::recoverable);
  } catch (const IException& caught) {
    EXPECT_TRUE(typeid(caught) == typeid(Class));
    EXPECT_EQ(caught.errorId(), 3u);
  }
}

TYPED_TEST(ExceptionClass, CopiesIntoAnEqualException)
{
  typedef typename TypeParam::Class Class;
  static_assert(!std::is_copy_assignable<Class>::value, "exceptions are copied, not assigned");
  Class source("older", 9, IException::recoverable);
  source.setText("newer").setErrorCodeGroup("group").addLocation(IExceptionLocation("file", "function", 5));

  const Class copy(source);
  EXPECT_STREQ(copy.name(), nameOf<Class>());
  EXPECT_EQ(copy.errorId(), 9u);
  EXPECT_TRUE(copy.isRecoverable());
  EXPECT_STREQ(copy.errorCodeGroup(), "group");
  ASSERT_EQ(copy.textCount(), 2u);
  EXPECT_STREQ(copy.text(0), "newer");
  EXPECT_STREQ(copy.text(1), "older");
  ASSERT_EQ(copy.locationCount(), 1u);
  EXPECT_EQ(copy.locationAtIndex(0)->lineNumber(), 5u);
}

TEST(ExceptionFamily, KeepsSiblingsApart)
{
  static_assert(!std::is_base_of<IResourceExhausted, IInvalidRequest>::value, "not a shortage of anything");
  static_assert(!std::is_base_of<IInvalidRequest, IInvalidParameter>::value, "two kinds of misuse");
  static_assert(!std::is_base_of<IOutOfMemory, IOutOfSystemResource>::value, "two kinds of shortage");
  try {
    throw IOutOfMemory("text");
  } catch (const IInvalidRequest&) {
    FAIL() << "a shortage of memory was caught as a request that cannot be met";
  } catch (const IResourceExhausted& caught) {
    EXPECT_STREQ(caught.name(), "IOutOfMemory");
  }
}

TEST(ExceptionFamily, CanBeDerivedFrom)
{
  class OutOfTapes : public IDeviceError {
  public:
    OutOfTapes() : IDeviceError("no tape", 12, IException::recoverable) {}
    const char* name() const override { return "OutOfTapes"; }
    int isRecoverable() const override { return 0; }
  };

  try {
    throw OutOfTapes();
  } catch (const IDeviceError& caught) {
    EXPECT_STREQ(caught.name(), "OutOfTapes");
    EXPECT_FALSE(caught.isRecoverable());
    EXPECT_STREQ(caught.text(), "no tape");
  }
}

TEST(ExceptionFamily, AddedTextsAndLocationsSurviveRethrowing)
{
  try {
    try {
      throw IAccessError("refused", 5, IException::recoverable);
    } catch (IException& caught) {
      caught.setText("while saving").addLocation(IExceptionLocation("outer.cpp", "save", 20));
      throw;
    }
  } catch (const IAccessError& caught) {
    ASSERT_EQ(caught.textCount(), 2u);
    EXPECT_STREQ(caught.text(0), "while saving");
    EXPECT_STREQ(caught.text(1), "refused");
    ASSERT_EQ(caught.locationCount(), 1u);
    EXPECT_STREQ(caught.locationAtIndex(0)->fileName(), "outer.cpp");
  }
}

void leaveWithSeven()
{
  std::exit(7);
}

TEST(ExceptionTerminateDeathTest, EndsTheProgramThroughTheTerminateHandler)
{
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
    {
      std::set_terminate(leaveWithSeven);
      IException("text").terminate();
    },
    testing::ExitedWithCode(7), "");
}

TEST(ExceptionTerminateDeathTest, AbortsWhenNobodySetATerminateHandler)
{
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(IException("text").terminate(), testing::KilledBySignal(SIGABRT), "");
}

}  // namespace
