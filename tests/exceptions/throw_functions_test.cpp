// throw_functions_test.cpp - IException::assertParameter and the IExcept__ functions: what they throw, and that they log it.
#include <quelmcl/ibase.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/imsgtext.hpp>

#include "hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;

typedef std::vector<std::string> Lines;

const char alpha[] = QUELMCL_TEST_CATALOGS "/alpha.cat";
const char beta[] = QUELMCL_TEST_CATALOGS "/beta.cat";
const char unavailable[] = "Unable to load text from message file.";

/// A value of the enumeration's type that need not be one of its enumerators.
IBaseErrorInfo::ExceptionType exceptionType(unsigned value)
{
  static_assert(sizeof(IBaseErrorInfo::ExceptionType) == sizeof value, "both are one word");
  IBaseErrorInfo::ExceptionType type;
  std::memcpy(&type, &value, sizeof type);
  return type;
}

/// What arrived at the catcher; kept beyond the handler.
struct Caught {
  bool arrived = false;
  std::string dynamicType;
  std::string name;
  Lines texts;
  unsigned long errorId = 0;
  bool isRecoverable = false;
  const char* group = nullptr;
  unsigned long locationCount = 0;
  IExceptionLocation location;
};

template <class Call>
Caught catchFrom(Call call)
{
  Caught caught;
  try {
    call();
  } catch (const IException& exception) {
    caught.arrived = true;
    caught.dynamicType = typeid(exception).name();
    caught.name = exception.name();
    for (unsigned long level = 0; level < exception.textCount(); ++level)
      caught.texts.push_back(exception.text(level) == nullptr ? "(null)" : exception.text(level));
    caught.errorId = exception.errorId();
    caught.isRecoverable = exception.isRecoverable() != 0;
    caught.group = exception.errorCodeGroup();
    caught.locationCount = exception.locationCount();
    if (exception.locationCount() > 0)
      caught.location = *exception.locationAtIndex(0);
  }
  return caught;
}

/// Reports go to `hook`, messages come from the catalog alpha.
class ThrowFunctions : public testing::Test {
protected:
  ThrowFunctions() : installed(hook), previousFile(IBase::messageFile()) { IBase::setMessageFile(alpha); }
  ~ThrowFunctions() override { IBase::setMessageFile(previousFile.c_str()); }

  static IExceptionLocation here() { return IExceptionLocation("file.cpp", "work", 12); }

  static void expectHere(const Caught& caught)
  {
    ASSERT_EQ(caught.locationCount, 1u);
    EXPECT_STREQ(caught.location.fileName(), "file.cpp");
    EXPECT_STREQ(caught.location.functionName(), "work");
    EXPECT_EQ(caught.location.lineNumber(), 12u);
  }

  RecordingHook hook;
  InstalledHook installed;
  const std::string previousFile;
};

typedef ThrowFunctions AssertParameterMember;

TEST_F(AssertParameterMember, ThrowsAnAssertionFailureWithTheTextUnchanged)
{
  const Caught caught = catchFrom([] { IException::assertParameter("100% %1", here()); });
  ASSERT_TRUE(caught.arrived);
  EXPECT_EQ(caught.dynamicType, typeid(IAssertionFailure).name());
  EXPECT_EQ(caught.texts, Lines{"100% %1"});
  EXPECT_EQ(caught.errorId, 0u);
  EXPECT_FALSE(caught.isRecoverable);
  EXPECT_STREQ(caught.group, "Other Error Group");
  expectHere(caught);
}

TEST_F(AssertParameterMember, ThrowsWithoutATextWhenThereIsNone)
{
  const Caught caught = catchFrom([] { IException::assertParameter(nullptr, here()); });
  ASSERT_TRUE(caught.arrived);
  EXPECT_TRUE(caught.texts.empty());
}

TEST_F(AssertParameterMember, LogsBeforeItThrows)
{
  catchFrom([] { IException::assertParameter("text", here()); });
  EXPECT_EQ(hook.lines, (Lines{
                          "IAssertionFailure exception thrown.\n   function: work\n   file: file.cpp\n   line: 12",
                          "   Error Id is unavailable.",
                          "   Error Code group is Other Error Group",
                          "   Exception text is:",
                          "      text",
                        }));
  EXPECT_EQ(hook.reports, 1);
}

typedef ThrowFunctions AssertParameterFunction;

TEST_F(AssertParameterFunction, ThrowsAnInvalidParameterShowingTheExpression)
{
  const Caught caught = catchFrom([] { IExcept__assertParameter("count > 0", here()); });
  ASSERT_TRUE(caught.arrived);
  EXPECT_EQ(caught.dynamicType, typeid(IInvalidParameter).name());
  EXPECT_EQ(caught.texts, Lines{"alpha 1: count > 0"});
  EXPECT_EQ(caught.errorId, 1u);
  EXPECT_TRUE(caught.isRecoverable);
  EXPECT_EQ(caught.group, IException::other);
  EXPECT_STREQ(caught.group, "Other Error Group");
  expectHere(caught);
}

TEST_F(AssertParameterFunction, ShowsTheVariableWhenThereIsNoExpression)
{
  const Caught caught = catchFrom([] { IExcept__assertParameter(nullptr, here()); });
  EXPECT_EQ(caught.texts, Lines{"alpha 1: %1"});
}

TEST_F(AssertParameterFunction, LogsBeforeItThrows)
{
  catchFrom([] { IExcept__assertParameter("count > 0", here()); });
  EXPECT_EQ(hook.lines, (Lines{
                          "IInvalidParameter exception thrown.\n   function: work\n   file: file.cpp\n   line: 12",
                          "   Error Id is 1",
                          "   Error Code group is Other Error Group",
                          "   Exception text is:",
                          "      alpha 1: count > 0",
                        }));
  EXPECT_EQ(hook.reports, 1);
}

TEST_F(AssertParameterFunction, FallsBackWithoutACatalog)
{
  IBase::setMessageFile("/nowhere/none.cat");
  const Caught caught = catchFrom([] { IExcept__assertParameter("count > 0", here()); });
  EXPECT_EQ(caught.texts, Lines{unavailable});
  EXPECT_EQ(caught.errorId, 1u);
}

TEST_F(AssertParameterFunction, TakesTheGroupAsItIsNow)
{
  const char* const original = IException::other;
  IException::other = "changed";
  const Caught caught = catchFrom([] { IExcept__assertParameter("count > 0", here()); });
  IException::other = original;
  EXPECT_STREQ(caught.group, "changed");
}

typedef ThrowFunctions AssertStateFunction;

TEST_F(AssertStateFunction, ThrowsAnInvalidRequestShowingTheExpression)
{
  const Caught caught = catchFrom([] { IExcept__assertState("isOpen", here()); });
  ASSERT_TRUE(caught.arrived);
  EXPECT_EQ(caught.dynamicType, typeid(IInvalidRequest).name());
  EXPECT_EQ(caught.texts, Lines{"alpha 1: isOpen"});
  EXPECT_EQ(caught.errorId, 1u);
  EXPECT_TRUE(caught.isRecoverable);
  EXPECT_EQ(caught.group, IException::other);
  expectHere(caught);
}

TEST_F(AssertStateFunction, LogsBeforeItThrows)
{
  catchFrom([] { IExcept__assertState("isOpen", here()); });
  EXPECT_EQ(hook.lines, (Lines{
                          "IInvalidRequest exception thrown.\n   function: work\n   file: file.cpp\n   line: 12",
                          "   Error Id is 1",
                          "   Error Code group is Other Error Group",
                          "   Exception text is:",
                          "      alpha 1: isOpen",
                        }));
}

struct TypeCase {
  const char* name;
  unsigned value;
  IBaseErrorInfo::ExceptionType enumerator;
  const std::type_info* thrown;
};

const TypeCase typeCases[] = {
  {"IAccessError", 0, IBaseErrorInfo::accessError, &typeid(IAccessError)},
  {"IDeviceError", 1, IBaseErrorInfo::deviceError, &typeid(IDeviceError)},
  {"IInvalidParameter", 2, IBaseErrorInfo::invalidParameter, &typeid(IInvalidParameter)},
  {"IInvalidRequest", 3, IBaseErrorInfo::invalidRequest, &typeid(IInvalidRequest)},
  {"IOutOfSystemResource", 4, IBaseErrorInfo::outOfSystemResource, &typeid(IOutOfSystemResource)},
  {"IOutOfWindowResource", 5, IBaseErrorInfo::outOfWindowResource, &typeid(IOutOfWindowResource)},
  {"IOutOfMemory", 6, IBaseErrorInfo::outOfMemory, &typeid(IOutOfMemory)},
  {"IResourceExhausted", 7, IBaseErrorInfo::resourceExhausted, &typeid(IResourceExhausted)},
};

std::string nameOfType(const testing::TestParamInfo<TypeCase>& row)
{
  return row.param.name;
}

class ThrownClass : public ThrowFunctions, public testing::WithParamInterface<TypeCase> {};

TEST_P(ThrownClass, HasItsNumber)
{
  EXPECT_EQ(static_cast<unsigned>(GetParam().enumerator), GetParam().value);
}

TEST_P(ThrownClass, IsChosenByThrowLibraryError)
{
  const TypeCase& row = GetParam();
  for (const IException::Severity severity : {IException::unrecoverable, IException::recoverable}) {
    hook.lines.clear();
    const Caught caught =
      catchFrom([&] { IExcept__throwLibraryError(1010, here(), exceptionType(row.value), severity, "%2"); });
    ASSERT_TRUE(caught.arrived);
    EXPECT_EQ(caught.dynamicType, row.thrown->name());
    EXPECT_EQ(caught.name, row.name);
    EXPECT_EQ(caught.texts, Lines{"alpha 1010: %2"});
    EXPECT_EQ(caught.errorId, 1010u);
    EXPECT_EQ(caught.isRecoverable, severity == IException::recoverable);
    EXPECT_STREQ(caught.group, "Quelm Class Library");
    expectHere(caught);
    EXPECT_EQ(hook.lines.at(0),
              std::string(row.name) + " exception thrown.\n   function: work\n   file: file.cpp\n   line: 12");
    EXPECT_EQ(hook.lines.at(1), "   Error Id is 1010");
    EXPECT_EQ(hook.lines.at(4), "      alpha 1010: %2");
  }
}

TEST_P(ThrownClass, IsChosenByThrowError)
{
  const TypeCase& row = GetParam();
  for (const IException::Severity severity : {IException::unrecoverable, IException::recoverable}) {
    hook.lines.clear();
    const char group[] = "My Group";
    const Caught caught = catchFrom(
      [&] { IExcept__throwError(1, here(), "/nowhere/none.cat", group, exceptionType(row.value), severity, beta); });
    ASSERT_TRUE(caught.arrived);
    EXPECT_EQ(caught.dynamicType, row.thrown->name());
    EXPECT_EQ(caught.name, row.name);
    EXPECT_EQ(caught.texts, Lines{"beta 1: %1"});
    EXPECT_EQ(caught.errorId, 1u);
    EXPECT_EQ(caught.isRecoverable, severity == IException::recoverable);
    EXPECT_EQ(caught.group, group);
    expectHere(caught);
    EXPECT_EQ(hook.lines.at(2), "   Error Code group is My Group");
    EXPECT_EQ(hook.lines.at(4), "      beta 1: %1");
  }
}

INSTANTIATE_TEST_SUITE_P(Types, ThrownClass, testing::ValuesIn(typeCases), nameOfType);

class ValueThatNamesNoClass : public ThrowFunctions, public testing::WithParamInterface<unsigned> {};

TEST_P(ValueThatNamesNoClass, MakesThrowLibraryErrorReturn)
{
  EXPECT_NO_THROW(IExcept__throwLibraryError(1010, here(), exceptionType(GetParam()), IException::recoverable, "text"));
  EXPECT_TRUE(hook.lines.empty());
  EXPECT_EQ(hook.reports, 0);
}

TEST_P(ValueThatNamesNoClass, MakesThrowErrorReturn)
{
  EXPECT_NO_THROW(
    IExcept__throwError(1, here(), alpha, "group", exceptionType(GetParam()), IException::recoverable, beta));
  EXPECT_TRUE(hook.lines.empty());
  EXPECT_EQ(hook.reports, 0);
}

TEST_P(ValueThatNamesNoClass, LeaksNothing)
{
  quelmcl_test::AllocationWatch watch;
  IExcept__throwLibraryError(1010, here(), exceptionType(GetParam()), IException::recoverable, "text");
  IExcept__throwError(1, here(), alpha, "group", exceptionType(GetParam()), IException::recoverable, beta);
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
}

INSTANTIATE_TEST_SUITE_P(Values, ValueThatNamesNoClass, testing::Values(8u, 9u, 255u, 2147483648u, 4294967295u),
                         testing::PrintToStringParamName());

typedef ThrowFunctions ThrowLibraryError;

TEST_F(ThrowLibraryError, SubstitutesNothingWithoutAText)
{
  const Caught caught = catchFrom(
    [] { IExcept__throwLibraryError(1010, here(), IBaseErrorInfo::invalidRequest, IException::recoverable, nullptr); });
  EXPECT_EQ(caught.texts, Lines{"alpha 1010: %1"});
}

TEST_F(ThrowLibraryError, FallsBackWhenTheMessageIsMissing)
{
  const Caught caught = catchFrom(
    [] { IExcept__throwLibraryError(777, here(), IBaseErrorInfo::invalidRequest, IException::recoverable, nullptr); });
  EXPECT_EQ(caught.texts, Lines{unavailable});
  EXPECT_EQ(caught.errorId, 777u);
}

TEST_F(ThrowLibraryError, KeepsTheLibrarysGroupWhenTheConstantWasChanged)
{
  const char* const original = IException::baseLibrary;
  IException::baseLibrary = "changed";
  const Caught caught = catchFrom(
    [] { IExcept__throwLibraryError(1010, here(), IBaseErrorInfo::invalidRequest, IException::recoverable, nullptr); });
  IException::baseLibrary = original;
  EXPECT_STREQ(caught.group, "Quelm Class Library");
}

typedef ThrowFunctions ThrowError;

TEST_F(ThrowError, ReadsTheCatalogNamedByTheSubstitutionText)
{
  const Caught caught = catchFrom(
    [] { IExcept__throwError(1, here(), alpha, "group", IBaseErrorInfo::accessError, IException::recoverable, beta); });
  EXPECT_EQ(caught.texts, Lines{"beta 1: %1"});
}

TEST_F(ThrowError, NeverReadsTheMessageFile)
{
  const Caught caught = catchFrom([] {
    IExcept__throwError(1, here(), alpha, "group", IBaseErrorInfo::accessError, IException::recoverable,
                        "/nowhere/none.cat");
  });
  EXPECT_EQ(caught.texts, Lines{unavailable});
  EXPECT_EQ(caught.errorId, 1u);
}

TEST_F(ThrowError, FallsBackWithoutASubstitutionText)
{
  const Caught caught = catchFrom([] {
    IExcept__throwError(1, here(), alpha, "group", IBaseErrorInfo::accessError, IException::recoverable, nullptr);
  });
  EXPECT_EQ(caught.texts, Lines{unavailable});
}

TEST_F(ThrowError, AcceptsANullMessageFile)
{
  const Caught caught = catchFrom([] {
    IExcept__throwError(1, here(), nullptr, "group", IBaseErrorInfo::accessError, IException::recoverable, beta);
  });
  EXPECT_EQ(caught.texts, Lines{"beta 1: %1"});
}

TEST_F(ThrowError, AcceptsANullGroup)
{
  const Caught caught = catchFrom(
    [] { IExcept__throwError(1, here(), alpha, nullptr, IBaseErrorInfo::accessError, IException::recoverable, beta); });
  ASSERT_TRUE(caught.arrived);
  EXPECT_EQ(caught.group, nullptr);
  EXPECT_EQ(hook.lines.at(2), "    Error Code group is unavailable.");
}

TEST_F(ThrowError, ReportsANullLocationSafely)
{
  const Caught caught = catchFrom([] {
    IExcept__throwError(1, IExceptionLocation(nullptr, nullptr, 0), alpha, "group", IBaseErrorInfo::accessError,
                        IException::recoverable, beta);
  });
  ASSERT_TRUE(caught.arrived);
  EXPECT_EQ(hook.lines.at(0), "IAccessError exception thrown.\n   function: Unknown\n   file: (null)\n   line: 0");
}

TEST(ThrowFunctionsWithoutStorage, ThrowTheSameClassAllTheSame)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IBase::messageFile();
  CapturedStandardError quiet;  // reports without storage for a line end up there
  const IExceptionLocation location("file.cpp", "work", 12);

  for (unsigned long nth = 1; nth <= 12; ++nth) {
    quelmcl_test::AllocationWatch watch;
    int asExpected = 0;
    try {
      FailingAllocations scope(nth);
      IExcept__assertParameter("count > 0", location);
    } catch (const IInvalidParameter& caught) {
      asExpected += caught.errorId() == 1 && caught.locationCount() == 1;
    } catch (const std::bad_alloc&) {
    }
    try {
      FailingAllocations scope(nth);
      IExcept__throwLibraryError(1010, location, IBaseErrorInfo::invalidRequest, IException::recoverable, nullptr);
    } catch (const IInvalidRequest& caught) {
      asExpected += caught.errorId() == 1010 && caught.locationCount() == 1;
    } catch (const std::bad_alloc&) {
    }
    try {
      FailingAllocations scope(nth);
      IException::assertParameter("text", location);
    } catch (const IAssertionFailure& caught) {
      asExpected += caught.errorId() == 0 && caught.locationCount() == 1;
    } catch (const std::bad_alloc&) {
    }
    EXPECT_EQ(asExpected, 3) << "allocation " << nth;
    EXPECT_EQ(watch.liveBlocks(), 0) << "allocation " << nth;
  }
}

TEST_F(ThrowFunctions, LeakNothing)
{
  CountingHook counting;
  InstalledHook countingInstalled(counting);
  quelmcl_test::AllocationWatch watch;
  try {
    IExcept__assertState("isOpen", here());
  } catch (const IInvalidRequest&) {
  }
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
  EXPECT_EQ(counting.lineCount, 5);
}

}  // namespace
