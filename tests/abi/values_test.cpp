// values_test.cpp - the numbers behind enumerators and constants, which programs were compiled with.
#include <quelmcl/quelmcl.hpp>

#include <gtest/gtest.h>

namespace {

// The number of an enumerator, so that a failure prints numbers.
template <class Enumeration>
int numberOf(Enumeration value)
{
  static_assert(sizeof(Enumeration) == 4, "enumerations are 32 bits wide");
  return static_cast<int>(value);
}

TEST(EnumeratorValues, Severity)
{
  EXPECT_EQ(0, numberOf(IException::unrecoverable));
  EXPECT_EQ(1, numberOf(IException::recoverable));
}

// Bound to references, so that the constants must also have a definition to link with.
TEST(EnumeratorValues, TheRootRepeatsTheSeverities)
{
  const IException::Severity& unrecoverable = IBase::unrecoverable;
  const IException::Severity& recoverable = IBase::recoverable;
  EXPECT_EQ(0, numberOf(unrecoverable));
  EXPECT_EQ(1, numberOf(recoverable));
}

TEST(EnumeratorValues, ExceptionType)
{
  EXPECT_EQ(0, numberOf(IBaseErrorInfo::accessError));
  EXPECT_EQ(1, numberOf(IBaseErrorInfo::deviceError));
  EXPECT_EQ(2, numberOf(IBaseErrorInfo::invalidParameter));
  EXPECT_EQ(3, numberOf(IBaseErrorInfo::invalidRequest));
  EXPECT_EQ(4, numberOf(IBaseErrorInfo::outOfSystemResource));
  EXPECT_EQ(5, numberOf(IBaseErrorInfo::outOfWindowResource));
  EXPECT_EQ(6, numberOf(IBaseErrorInfo::outOfMemory));
  EXPECT_EQ(7, numberOf(IBaseErrorInfo::resourceExhausted));
}

TEST(EnumeratorValues, Destination)
{
  EXPECT_EQ(0, numberOf(ITrace::queue));
  EXPECT_EQ(1, numberOf(ITrace::standardError));
  EXPECT_EQ(2, numberOf(ITrace::standardOutput));
  EXPECT_EQ(3, numberOf(ITrace::file));
}

// A program that was compiled with this header tests the flags itself.
template <int* flags>
struct TraceFlags {
  friend int traceFlags() { return *flags; }
};
int traceFlags();
template struct TraceFlags<&ITrace::iClState>;

TEST(ConstantValues, FlagsOfTheTrace)
{
  ITraceSetup::initialize();
  ITrace::disableTrace();
  ITrace::disableWriteLineNumber();
  ITrace::disableWritePrefix();
  EXPECT_EQ(0, traceFlags());
  ITrace::enableTrace();
  EXPECT_EQ(2, traceFlags());
  ITrace::enableWriteLineNumber();
  EXPECT_EQ(6, traceFlags());
  ITrace::enableWritePrefix();
  EXPECT_EQ(14, traceFlags());
  ITrace::disableTrace();
  EXPECT_EQ(12, traceFlags());
}

TEST(EnumeratorValues, CharType)
{
  const IStringEnum::CharType types[] = {
    IStringEnum::sbcs,   IStringEnum::mbcs1,  IStringEnum::mbcs2,  IStringEnum::mbcs3,  IStringEnum::mbcs4,
    IStringEnum::mbcs5,  IStringEnum::mbcs6,  IStringEnum::mbcs7,  IStringEnum::mbcs8,  IStringEnum::mbcs9,
    IStringEnum::mbcs10, IStringEnum::mbcs11, IStringEnum::mbcs12, IStringEnum::mbcs13, IStringEnum::mbcs14,
    IStringEnum::mbcs15, IStringEnum::mbcs16,
  };
  int expected = 0;
  for (const IStringEnum::CharType type : types)
    EXPECT_EQ(expected++, numberOf(type));
  EXPECT_EQ(17, expected);
}

TEST(EnumeratorValues, StripMode)
{
  EXPECT_EQ(0, numberOf(IStringEnum::leading));
  EXPECT_EQ(1, numberOf(IStringEnum::trailing));
  EXPECT_EQ(2, numberOf(IStringEnum::both));
}

TEST(EnumeratorValues, Comparison)
{
  EXPECT_EQ(0, numberOf(IBuffer::equal));
  EXPECT_EQ(1, numberOf(IBuffer::greaterThan));
  EXPECT_EQ(2, numberOf(IBuffer::lessThan));
}

TEST(EnumeratorValues, BitOperator)
{
  EXPECT_EQ(0, numberOf(IString::bitAnd));
  EXPECT_EQ(1, numberOf(IString::bitOr));
  EXPECT_EQ(2, numberOf(IString::bitExclusiveOr));
}

TEST(EnumeratorValues, IndexType)
{
  EXPECT_EQ(0, numberOf(IString::charIndex));
  EXPECT_EQ(1, numberOf(IString::wordIndex));
}

TEST(EnumeratorValues, FnType)
{
  EXPECT_EQ(0, numberOf(IStringTest::user));
  EXPECT_EQ(1, numberOf(IStringTest::c));
  EXPECT_EQ(2, numberOf(IStringTest::cpp));
  EXPECT_EQ(3, numberOf(IStringTest::memFn));
  EXPECT_EQ(4, numberOf(IStringTest::cMemFn));
}

TEST(EnumeratorValues, Month)
{
  const IDate::Month months[] = {IDate::January,   IDate::February, IDate::March,    IDate::April,
                                 IDate::May,       IDate::June,     IDate::July,     IDate::August,
                                 IDate::September, IDate::October,  IDate::November, IDate::December};
  int expected = 1;
  for (const IDate::Month month : months)
    EXPECT_EQ(expected++, numberOf(month));
  EXPECT_EQ(13, expected);
}

TEST(EnumeratorValues, DayOfWeek)
{
  const IDate::DayOfWeek days[] = {IDate::Monday, IDate::Tuesday,  IDate::Wednesday, IDate::Thursday,
                                   IDate::Friday, IDate::Saturday, IDate::Sunday};
  int expected = 0;
  for (const IDate::DayOfWeek day : days)
    EXPECT_EQ(expected++, numberOf(day));
  EXPECT_EQ(7, expected);
}

TEST(EnumeratorValues, YearFormat)
{
  EXPECT_EQ(0, numberOf(IDate::localeYear));
  EXPECT_EQ(1, numberOf(IDate::fourDigitYear));
}

TEST(ConstantValues, NotFoundHasAllBitsSet)
{
  const unsigned& notFound = I0String::notFound;
  EXPECT_EQ(4294967295u, notFound);
}

TEST(ConstantValues, TextsOfTheStringClass)
{
  EXPECT_STREQ("", IString::null);
  EXPECT_STREQ("0", IString::zero);
  EXPECT_STREQ("2147483647L", IString::maxLong);
}

TEST(ConstantValues, NamesOfTheErrorGroups)
{
  EXPECT_STREQ("Quelm Class Library", IException::baseLibrary);
  EXPECT_STREQ("Standard C Library", IException::CLibrary);
  EXPECT_STREQ("Operating System", IException::operatingSystem);
  EXPECT_STREQ("Presentation System", IException::presentationSystem);
  EXPECT_STREQ("Other Error Group", IException::other);
}

// A program may name a group anew, like any variable.
TEST(ConstantValues, ErrorGroupsAreVariables)
{
  const char* const kept = IException::other;
  IException::other = "mine";
  EXPECT_STREQ("mine", IException::other);
  IException::other = kept;
}

TEST(ConstantValues, TheVersionForThePreprocessorIsTheVersionAtRunTime)
{
  EXPECT_EQ(310, IBase::version().major);
  EXPECT_EQ(2, IBase::version().minor);
  EXPECT_EQ(QUELMCL_VERSION_MAJOR, IBase::version().major);
  EXPECT_EQ(QUELMCL_VERSION_MINOR, IBase::version().minor);
}

}  // namespace
