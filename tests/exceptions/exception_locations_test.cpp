// exception_locations_test.cpp - IExceptionLocation and the five places of an exception.
#include <quelmcl/iexcbase.hpp>

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

TEST(ExceptionLocation, KeepsWhatItWasGiven)
{
  const char file[] = "file.cpp";
  const char function[] = "function";
  const IExceptionLocation location(file, function, 42);
  EXPECT_EQ(location.fileName(), file);
  EXPECT_EQ(location.functionName(), function);
  EXPECT_EQ(location.lineNumber(), 42u);
}

TEST(ExceptionLocation, CallsANullFunctionUnknown)
{
  const char file[] = "file.cpp";
  const IExceptionLocation location(file, nullptr, 42);
  EXPECT_STREQ(location.functionName(), "Unknown");
  EXPECT_EQ(location.fileName(), file);
}

TEST(ExceptionLocation, KeepsAnEmptyFunctionName)
{
  EXPECT_STREQ(IExceptionLocation("file.cpp", "", 1).functionName(), "");
}

TEST(ExceptionLocation, KeepsANullFileName)
{
  EXPECT_EQ(IExceptionLocation(nullptr, "function", 1).fileName(), nullptr);
}

TEST(ExceptionLocation, KeepsTheLargestLineNumber)
{
  const unsigned long largest = std::numeric_limits<unsigned long>::max();
  EXPECT_EQ(IExceptionLocation("file.cpp", "function", largest).lineNumber(), largest);
}

TEST(ExceptionLocation, IsAPlainValue)
{
  const IExceptionLocation first("first.cpp", "one", 1);
  IExceptionLocation second("second.cpp", "two", 2);
  const IExceptionLocation copy(first);
  second = first;
  EXPECT_EQ(copy.fileName(), first.fileName());
  EXPECT_EQ(copy.functionName(), first.functionName());
  EXPECT_EQ(copy.lineNumber(), 1u);
  EXPECT_EQ(second.fileName(), first.fileName());
  EXPECT_EQ(second.functionName(), first.functionName());
  EXPECT_EQ(second.lineNumber(), 1u);
}

/// The file names of all locations, one letter each in these tests.
std::string files(const IException& exception)
{
  std::string all;
  for (unsigned long index = 0; index < exception.locationCount(); ++index)
    all += exception.locationAtIndex(index)->fileName();
  return all;
}

void addFiles(IException& exception, const char* const* names, unsigned count)
{
  for (unsigned index = 0; index < count; ++index)
    exception.addLocation(IExceptionLocation(names[index], "function", index + 1));
}

const char* const letters[] = {"A", "B", "C", "D", "E", "F", "G"};

TEST(ExceptionLocations, AreNoneAtFirst)
{
  const IException exception("text");
  EXPECT_EQ(exception.locationCount(), 0u);
  EXPECT_EQ(exception.locationAtIndex(0), nullptr);
}

TEST(ExceptionLocations, StartWithTheFirstThatWasAdded)
{
  IException exception("text");
  addFiles(exception, letters, 2);
  EXPECT_EQ(files(exception), "AB");
}

TEST(ExceptionLocations, AreCopiedFromTheCaller)
{
  IException exception("text");
  {
    IExceptionLocation location("file.cpp", nullptr, 7);
    exception.addLocation(location);
    location = IExceptionLocation("other.cpp", "other", 8);
  }
  ASSERT_EQ(exception.locationCount(), 1u);
  EXPECT_STREQ(exception.locationAtIndex(0)->fileName(), "file.cpp");
  EXPECT_STREQ(exception.locationAtIndex(0)->functionName(), "Unknown");
  EXPECT_EQ(exception.locationAtIndex(0)->lineNumber(), 7u);
}

TEST(ExceptionLocations, FiveFit)
{
  IException exception("text");
  addFiles(exception, letters, 5);
  EXPECT_EQ(exception.locationCount(), 5u);
  EXPECT_EQ(files(exception), "ABCDE");
}

TEST(ExceptionLocations, TheFifthPlaceHoldsTheLatest)
{
  IException exception("text");
  addFiles(exception, letters, 6);
  EXPECT_EQ(exception.locationCount(), 5u);
  EXPECT_EQ(files(exception), "ABCDF");
}

TEST(ExceptionLocations, TheSeventhReplacesTheSixth)
{
  IException exception("text");
  addFiles(exception, letters, 7);
  EXPECT_EQ(exception.locationCount(), 5u);
  EXPECT_EQ(files(exception), "ABCDG");
  EXPECT_EQ(exception.locationAtIndex(4)->lineNumber(), 7u);
}

TEST(ExceptionLocations, PastTheLastThereIsNone)
{
  IException exception("text");
  addFiles(exception, letters, 2);
  EXPECT_EQ(exception.locationAtIndex(2), nullptr);
  EXPECT_EQ(exception.locationAtIndex(4), nullptr);
  EXPECT_EQ(exception.locationAtIndex(5), nullptr);
  EXPECT_EQ(exception.locationAtIndex(~0ul), nullptr);
}

TEST(ExceptionLocations, PastTheFifthThereIsNone)
{
  IException exception("text");
  addFiles(exception, letters, 7);
  EXPECT_EQ(exception.locationAtIndex(exception.locationCount()), nullptr);
}

TEST(ExceptionLocations, AddingReturnsTheException)
{
  IException exception("text");
  EXPECT_EQ(&exception.addLocation(IExceptionLocation("A", "function", 1)), &exception);
}

TEST(ExceptionLocations, AnExceptionsOwnLocationCanBeAddedToIt)
{
  IException exception("text");
  addFiles(exception, letters, 5);
  exception.addLocation(*exception.locationAtIndex(4));
  EXPECT_EQ(files(exception), "ABCDE");
  exception.addLocation(*exception.locationAtIndex(0));
  EXPECT_EQ(files(exception), "ABCDA");
}

TEST(ExceptionLocations, AreCopiedWithTheException)
{
  IException source("text");
  addFiles(source, letters, 6);
  const IException copy(source);
  EXPECT_EQ(copy.locationCount(), 5u);
  EXPECT_EQ(files(copy), "ABCDF");
}

TEST(ExceptionLocations, OfACopyGrowOnTheirOwn)
{
  IException source("text");
  addFiles(source, letters, 2);
  IException copy(source);
  copy.addLocation(IExceptionLocation("Z", "function", 9));
  EXPECT_EQ(files(copy), "ABZ");
  EXPECT_EQ(files(source), "AB");
}

}  // namespace
