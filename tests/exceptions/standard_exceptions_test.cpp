// standard_exceptions_test.cpp - the bridge of istdexcp.hpp: exceptions of the library for handlers of std::exception, and last
// words for those that nobody handles.
#include <quelmcl/ibase.hpp>
#include <quelmcl/istdexcp.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

// ---- the object ----

TEST(StandardError, KeepsTextIdGroupNameAndSeverity)
{
  const IInvalidParameter failure("the text", 77, IException::recoverable);
  const quelmcl::Error error(failure);
  EXPECT_STREQ(error.what(), "the text");
  EXPECT_STREQ(error.name(), "IInvalidParameter");
  EXPECT_EQ(error.errorId(), 77u);
  EXPECT_STREQ(error.errorGroup(), "Quelm Class Library");
  EXPECT_TRUE(error.isRecoverable());
  EXPECT_FALSE(quelmcl::Error(IException("text")).isRecoverable());
}

TEST(StandardError, OutlivesTheExceptionAndItsGroup)
{
  std::string group("a group of the caller's");
  auto failure = std::make_unique<IException>("the text", 5);
  failure->setErrorCodeGroup(group.c_str());
  const quelmcl::Error error(*failure);
  failure.reset();
  group.assign(group.size(), '?');
  EXPECT_STREQ(error.what(), "the text");
  EXPECT_STREQ(error.errorGroup(), "a group of the caller's");
}

TEST(StandardError, TellsTheNewestTextOrElseTheName)
{
  IException failure("older");
  failure.setText("newest");
  EXPECT_STREQ(quelmcl::Error(failure).what(), "newest");
  EXPECT_STREQ(quelmcl::Error(IAccessError(nullptr)).what(), "IAccessError");
}

TEST(StandardError, OfAnExceptionWithoutGroupHasAnEmptyOne)
{
  IException failure("text");
  failure.setErrorCodeGroup(nullptr);
  EXPECT_STREQ(quelmcl::Error(failure).errorGroup(), "");
}

TEST(StandardError, IsARuntimeErrorThatIsCopiedWithoutFailure)
{
  static_assert(std::is_base_of<std::runtime_error, quelmcl::Error>::value, "handlers of std::exception catch it");
  static_assert(std::is_nothrow_copy_constructible<quelmcl::Error>::value, "as exceptions must be");
  IException failure("text");
  failure.setErrorCodeGroup(IException::other);
  const quelmcl::Error original(failure);
  const quelmcl::Error copy(original);
  EXPECT_STREQ(copy.what(), "text");
  EXPECT_STREQ(copy.errorGroup(), "Other Error Group");
}

// ---- on the way ----

template <class Action>
std::string thrownBy(Action action)
{
  try {
    action();
  } catch (const quelmcl::Error& error) {
    return std::string("Error ") + error.name() + " " + std::to_string(error.errorId());
  } catch (const std::exception& exception) {
    return std::string("std ") + exception.what();
  } catch (const IException& failure) {
    return std::string("IException ") + failure.name();
  } catch (int number) {
    return std::to_string(number);
  }
  return "nothing";
}

char byteBehind(const IString& text)
{
  return text[text.length() + 1];
}

TEST(StandardErrors, ReplaceTheExceptionsOfTheLibrary)
{
  EXPECT_EQ(thrownBy([] { quelmcl::withStandardErrors([] { byteBehind("abc"); }); }), "Error IInvalidRequest 1011");
  EXPECT_EQ(thrownBy([] { quelmcl::withStandardErrors([] { throw IOutOfMemory("none", 4); }); }),
            "Error IOutOfMemory 4");
}

TEST(StandardErrors, LetResultsAndOtherExceptionsPass)
{
  EXPECT_EQ(quelmcl::withStandardErrors([] { return 5; }), 5);
  int number = 6;
  int& same = quelmcl::withStandardErrors([&]() -> int& { return number; });
  EXPECT_EQ(&same, &number);
  EXPECT_EQ(thrownBy([] { quelmcl::withStandardErrors([] { throw std::logic_error("mine"); }); }), "std mine");
  EXPECT_EQ(thrownBy([] { quelmcl::withStandardErrors([] { throw 7; }); }), "7");
}

TEST(StandardErrors, AreThrownOnFromAHandlerOfEverything)
{
  const auto rethrown = [](auto action) {
    return thrownBy([&] {
      try {
        action();
      } catch (...) {
        quelmcl::rethrowAsStandard();
      }
    });
  };
  EXPECT_EQ(rethrown([] { throw IDeviceError("text", 9); }), "Error IDeviceError 9");
  EXPECT_EQ(rethrown([] { throw std::logic_error("mine"); }), "std mine");
  EXPECT_EQ(rethrown([] { throw 7; }), "7");
}

TEST(StandardErrors, HoldTheExceptionItselfWithItsLocationsAndTexts)
{
  unsigned long locations = 0, texts = 0;
  try {
    quelmcl::withStandardErrors([] {
      IDeviceError failure("older");
      failure.setText("newest").addLocation(IExceptionLocation("file", "function", 3));
      throw failure;
    });
  } catch (const std::runtime_error& error) {
    try {
      std::rethrow_if_nested(error);
    } catch (const IDeviceError& failure) {
      locations = failure.locationCount();
      texts = failure.textCount();
    }
  }
  EXPECT_EQ(locations, 1u);
  EXPECT_EQ(texts, 2u);
}

// ---- last words ----

[[noreturn]] void endBy(void (*thrower)())
{
  std::set_terminate(quelmcl::reportAndAbort);
  [&]() noexcept { thrower(); }();
  std::abort();
}

TEST(TerminateHandlerDeathTest, TellsWhichExceptionEndsTheProgram)
{
  EXPECT_EXIT(endBy([] { throw IInvalidRequest("past the end", 1011); }), testing::KilledBySignal(SIGABRT),
              "^terminated by IInvalidRequest 1011: past the end\n$");
  EXPECT_EXIT(endBy([] { throw IAccessError(nullptr); }), testing::KilledBySignal(SIGABRT),
              "^terminated by IAccessError 0: \n$");
  EXPECT_EXIT(endBy([] { throw std::logic_error("mine"); }), testing::KilledBySignal(SIGABRT),
              "^terminated by an exception: mine\n$");
  EXPECT_EXIT(endBy([] { throw 7; }), testing::KilledBySignal(SIGABRT),
              "^terminated by an exception of an unknown class\n$");
  EXPECT_EXIT(endBy([] { std::terminate(); }), testing::KilledBySignal(SIGABRT), "^terminated without an exception\n$");
}

}  // namespace
