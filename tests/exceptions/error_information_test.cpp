// error_information_test.cpp - IBaseErrorInfo::throwError, seen through a small service of the test's own.
#include <quelmcl/ierrinfo.hpp>
#include <quelmcl/istring.hpp>

#include "hooks.hpp"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace {

static_assert(std::is_abstract<IBaseErrorInfo>::value, "each service has its own kind");
static_assert(std::is_base_of<IVBase, IBaseErrorInfo>::value, "handled through base pointers");

class TapeErrorInfo : public IBaseErrorInfo {
public:
  TapeErrorInfo(const char* errorText, unsigned long number) : ownText(errorText), ownNumber(number) {}
  operator const char*() const override { return ownText; }
  const char* text() const override { return ownText; }
  unsigned long errorId() const override { return ownNumber; }
  int isAvailable() const override { return 1; }

private:
  const char* ownText;
  unsigned long ownNumber;
};

class ErrorInfo : public testing::Test {
protected:
  ErrorInfo() : installed(hook), info("tape torn", 31) {}

  static IExceptionLocation here() { return IExceptionLocation("file.cpp", "work", 12); }

  RecordingHook hook;
  InstalledHook installed;
  TapeErrorInfo info;
};

TEST_F(ErrorInfo, InheritsTheTextsOfTheVirtualRoot)
{
  const IBaseErrorInfo& base = info;
  EXPECT_STREQ(base.asString(), "IVBase object");
  EXPECT_EQ(std::string(base.asDebugInfo()).substr(0, 8), "IVBase(@");
}

TEST_F(ErrorInfo, ThrowsItsTextAndNumber)
{
  const char group[] = "Tapes";
  try {
    info.throwError(here(), IBaseErrorInfo::deviceError, IException::recoverable, group);
    FAIL() << "nothing was thrown";
  } catch (const IException& caught) {
    EXPECT_TRUE(typeid(caught) == typeid(IDeviceError));
    ASSERT_EQ(caught.textCount(), 1u);
    EXPECT_STREQ(caught.text(0), "tape torn");
    EXPECT_EQ(caught.errorId(), 31u);
    EXPECT_TRUE(caught.isRecoverable());
    EXPECT_EQ(caught.errorCodeGroup(), group);
    ASSERT_EQ(caught.locationCount(), 1u);
    EXPECT_STREQ(caught.locationAtIndex(0)->fileName(), "file.cpp");
    EXPECT_STREQ(caught.locationAtIndex(0)->functionName(), "work");
    EXPECT_EQ(caught.locationAtIndex(0)->lineNumber(), 12u);
  }
}

TEST_F(ErrorInfo, ThrowsWithTheSeverityGiven)
{
  try {
    info.throwError(here(), IBaseErrorInfo::deviceError, IException::unrecoverable, "Tapes");
    FAIL() << "nothing was thrown";
  } catch (const IDeviceError& caught) {
    EXPECT_FALSE(caught.isRecoverable());
  }
}

TEST_F(ErrorInfo, LogsBeforeItThrows)
{
  EXPECT_THROW(info.throwError(here(), IBaseErrorInfo::outOfMemory, IException::recoverable, "Tapes"), IOutOfMemory);
  EXPECT_EQ(hook.lines, (std::vector<std::string>{
                          "IOutOfMemory exception thrown.\n   function: work\n   file: file.cpp\n   line: 12",
                          "   Error Id is 31",
                          "   Error Code group is Tapes",
                          "   Exception text is:",
                          "      tape torn",
                        }));
  EXPECT_EQ(hook.reports, 1);
}

TEST_F(ErrorInfo, ReportsAMissingNumberAndGroupAsUnavailable)
{
  TapeErrorInfo unnumbered("tape torn", 0);
  EXPECT_THROW(unnumbered.throwError(here(), IBaseErrorInfo::deviceError, IException::recoverable, nullptr),
               IDeviceError);
  EXPECT_EQ(hook.lines.at(1), "   Error Id is unavailable.");
  EXPECT_EQ(hook.lines.at(2), "    Error Code group is unavailable.");
}

TEST_F(ErrorInfo, ThrowsWithoutATextWhenItHasNone)
{
  TapeErrorInfo textless(nullptr, 31);
  try {
    textless.throwError(here(), IBaseErrorInfo::deviceError, IException::recoverable, "Tapes");
    FAIL() << "nothing was thrown";
  } catch (const IDeviceError& caught) {
    EXPECT_EQ(caught.textCount(), 0u);
  }
}

TEST_F(ErrorInfo, TheExceptionOutlivesTheText)
{
  char text[] = "tape torn";
  TapeErrorInfo shortLived(text, 31);
  try {
    shortLived.throwError(here(), IBaseErrorInfo::deviceError, IException::recoverable, "Tapes");
    FAIL() << "nothing was thrown";
  } catch (const IDeviceError& caught) {
    text[0] = 'x';
    EXPECT_STREQ(caught.text(0), "tape torn");
  }
}

struct TypeCase {
  const char* name;
  IBaseErrorInfo::ExceptionType type;
  const std::type_info* thrown;
};

const TypeCase typeCases[] = {
  {"IAccessError", IBaseErrorInfo::accessError, &typeid(IAccessError)},
  {"IDeviceError", IBaseErrorInfo::deviceError, &typeid(IDeviceError)},
  {"IInvalidParameter", IBaseErrorInfo::invalidParameter, &typeid(IInvalidParameter)},
  {"IInvalidRequest", IBaseErrorInfo::invalidRequest, &typeid(IInvalidRequest)},
  {"IOutOfSystemResource", IBaseErrorInfo::outOfSystemResource, &typeid(IOutOfSystemResource)},
  {"IOutOfWindowResource", IBaseErrorInfo::outOfWindowResource, &typeid(IOutOfWindowResource)},
  {"IOutOfMemory", IBaseErrorInfo::outOfMemory, &typeid(IOutOfMemory)},
  {"IResourceExhausted", IBaseErrorInfo::resourceExhausted, &typeid(IResourceExhausted)},
};

class ErrorInfoClass : public ErrorInfo, public testing::WithParamInterface<TypeCase> {};

TEST_P(ErrorInfoClass, IsChosenByTheType)
{
  try {
    info.throwError(here(), GetParam().type, IException::recoverable, "Tapes");
    FAIL() << "nothing was thrown";
  } catch (const IException& caught) {
    EXPECT_TRUE(typeid(caught) == *GetParam().thrown) << "thrown was " << caught.name();
  }
}

INSTANTIATE_TEST_SUITE_P(Types, ErrorInfoClass, testing::ValuesIn(typeCases),
                         [](const testing::TestParamInfo<TypeCase>& row) { return std::string(row.param.name); });

class ErrorInfoWithoutClass : public ErrorInfo, public testing::WithParamInterface<unsigned> {};

TEST_P(ErrorInfoWithoutClass, ReturnsWithoutThrowingOrLogging)
{
  const unsigned value = GetParam();
  IBaseErrorInfo::ExceptionType type;
  std::memcpy(&type, &value, sizeof type);
  EXPECT_NO_THROW(info.throwError(here(), type, IException::recoverable, "Tapes"));
  EXPECT_TRUE(hook.lines.empty());
}

INSTANTIATE_TEST_SUITE_P(Values, ErrorInfoWithoutClass, testing::Values(8u, 9u, 2147483648u, 4294967295u),
                         testing::PrintToStringParamName());

}  // namespace
