// location_macros_test.cpp - the macros that fill in file, function and line.
#include <quelmcl/iexcept.hpp>

#include "hooks.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <typeinfo>

namespace {

class LocationMacros : public testing::Test {
protected:
  LocationMacros() : installed(hook) {}
  CountingHook hook;
  InstalledHook installed;
};

void expectLatestLocation(const IException& caught, const char* function, unsigned long line)
{
  ASSERT_GE(caught.locationCount(), 1u);
  const IExceptionLocation& latest = *caught.locationAtIndex(caught.locationCount() - 1);
  EXPECT_STREQ(latest.fileName(), "place.cpp");
  EXPECT_STREQ(latest.functionName(), function);
  EXPECT_EQ(latest.lineNumber(), line);
}

IException dummy("none");

template <class Work>
IException caughtFrom(Work work, const char* name)
{
  try {
    work();
  } catch (const IException& failure) {
    EXPECT_STREQ(failure.name(), name);
    return failure;
  }
  ADD_FAILURE() << "nothing was thrown";
  return dummy;
}

// clang-format off
#line 100 "place.cpp"
void checkParameter(int count) { QUELMCL_ASSERT_PARAMETER(count > 0); }
void checkState(bool isOpen) { QUELMCL_ASSERT_STATE(isOpen && true); }
void check(bool condition) { QUELMCL_ASSERT(condition); }
void throwDirectly() { QUELMCL_THROW(IDeviceError("tape torn", 31, IException::recoverable)); }
void throwFromLibrary() { QUELMCL_THROW_LIBRARY_ERROR(1, IBaseErrorInfo::invalidRequest, IException::recoverable, "x"); }
void throwFromCatalog() { QUELMCL_THROW_ERROR(1, QUELMCL_TEST_CATALOGS "/alpha.cat", "mine", IBaseErrorInfo::deviceError, IException::recoverable); }
void throwErrno() { QUELMCL_THROW_CLIB_ERROR("f", IBaseErrorInfo::accessError, IException::recoverable); }
void throwSystem() { QUELMCL_THROW_SYSTEM_ERROR(7, "f", IBaseErrorInfo::accessError, IException::recoverable); }
void throwWindow() { QUELMCL_THROW_GUI_ERROR("f", IBaseErrorInfo::accessError, IException::recoverable); }
void throwX() { QUELMCL_THROW_XLIB_ERROR("f", IBaseErrorInfo::accessError, IException::recoverable); }
void throwOn() { try { throwDirectly(); } catch (IException& failure) { QUELMCL_RETHROW(failure); } }
// clang-format on

TEST_F(LocationMacros, ChecksThatHoldDoNothing)
{
  checkParameter(1);
  checkState(true);
  check(true);
  EXPECT_EQ(hook.reports, 0);
}

TEST_F(LocationMacros, ChecksThatFailShowTheirConditionAndPlace)
{
  const IException parameter = caughtFrom([] { checkParameter(0); }, "IInvalidParameter");
  expectLatestLocation(parameter, "checkParameter", 100);
  EXPECT_EQ(parameter.errorId(), 1u);
  EXPECT_NE(std::strstr(parameter.text(), "count > 0"), nullptr);
  const IException state = caughtFrom([] { checkState(false); }, "IInvalidRequest");
  expectLatestLocation(state, "checkState", 101);
  EXPECT_NE(std::strstr(state.text(), "isOpen && true"), nullptr);
  const IException assertion = caughtFrom([] { check(false); }, "IAssertionFailure");
  expectLatestLocation(assertion, "check", 102);
  EXPECT_STREQ(assertion.text(), "condition");
  EXPECT_EQ(hook.reports, 3);
}

TEST_F(LocationMacros, ThrowLogsAndThrowsTheClassItIsGiven)
{
  const IException caught = caughtFrom(throwDirectly, "IDeviceError");
  expectLatestLocation(caught, "throwDirectly", 103);
  EXPECT_EQ(caught.errorId(), 31u);
  EXPECT_TRUE(caught.isRecoverable());
  EXPECT_STREQ(caught.text(), "tape torn");
  EXPECT_EQ(hook.reports, 1);
}

TEST_F(LocationMacros, ThrowFunctionsHaveOneEach)
{
  const IException library = caughtFrom(throwFromLibrary, "IInvalidRequest");
  expectLatestLocation(library, "throwFromLibrary", 104);
  EXPECT_EQ(library.errorId(), 1u);
  const IException catalog = caughtFrom(throwFromCatalog, "IDeviceError");
  expectLatestLocation(catalog, "throwFromCatalog", 105);
  EXPECT_STREQ(catalog.text(), "alpha 1: %1");
  EXPECT_STREQ(catalog.errorCodeGroup(), "mine");
}

TEST_F(LocationMacros, ErrorsOfOutsideServicesHaveOneEach)
{
  errno = EDOM;
  const IException ofErrno = caughtFrom(throwErrno, "IAccessError");
  expectLatestLocation(ofErrno, "throwErrno", 106);
  EXPECT_EQ(ofErrno.errorId(), static_cast<unsigned long>(EDOM));
  const IException ofSystem = caughtFrom(throwSystem, "IAccessError");
  expectLatestLocation(ofSystem, "throwSystem", 107);
  EXPECT_EQ(ofSystem.errorId(), 7u);
  expectLatestLocation(caughtFrom(throwWindow, "IAccessError"), "throwWindow", 108);
  expectLatestLocation(caughtFrom(throwX, "IAccessError"), "throwX", 109);
}

TEST_F(LocationMacros, RethrowAddsAPlaceAndKeepsTheClass)
{
  const IException caught = caughtFrom(throwOn, "IDeviceError");
  EXPECT_EQ(caught.locationCount(), 2u);
  expectLatestLocation(caught, "throwOn", 110);
  EXPECT_EQ(hook.reports, 1);
}

TEST_F(LocationMacros, EvaluateTheirConditionOnce)
{
  int count = 0;
  QUELMCL_ASSERT_PARAMETER(++count == 1);
  QUELMCL_ASSERT_STATE(++count == 2);
  QUELMCL_ASSERT(++count == 3);
  EXPECT_EQ(count, 3);
}

TEST_F(LocationMacros, AreSingleStatements)
{
  int reached = 0;
  for (const bool isTrue : {true, false})
    if (isTrue)
      QUELMCL_ASSERT(isTrue);
    else
      ++reached;
  EXPECT_EQ(reached, 1);
}

}  // namespace
