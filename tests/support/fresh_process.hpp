/// @file fresh_process.hpp
/// Runs statements in a process in which nothing of the library was used before, for what happens once in a process: the first
/// look at an environment variable, the hook that nobody has replaced yet.
///
///     TEST(MessageFileDeathTest, StartsAsTheDefault)
///     {
///       EXPECT_FRESH_PROCESS_WRITES("quelmcl.cat", std::fputs(IBase::messageFile(), stderr));
///     }
///
/// The test program starts itself again for this one test, so what stands before the macro in the test runs there as well. The
/// statements report by writing to standard error, and the whole of it must equal the expected text. By the custom of the test
/// framework the test suite's name ends in DeathTest.
#ifndef QUELMCL_TESTS_SUPPORT_FRESH_PROCESS_HPP
#define QUELMCL_TESTS_SUPPORT_FRESH_PROCESS_HPP

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#define EXPECT_FRESH_PROCESS_WRITES(expected, ...)                                                  \
  do {                                                                                              \
    GTEST_FLAG_SET(death_test_style, "threadsafe");                                                 \
    EXPECT_EXIT(                                                                                    \
      {                                                                                             \
        __VA_ARGS__;                                                                                \
        std::exit(0);                                                                               \
      },                                                                                            \
      ::testing::ExitedWithCode(0), ::testing::Matcher<const std::string&>(std::string(expected))); \
  } while (false)

#endif
