/// @file lacking_package.hpp
/// Ends a test that needs a package which is not installed. `./dev` installs all of them, so in CI (the environment variable CI is not
/// empty) that is a failure: otherwise a test could vanish there unnoticed. Elsewhere the test is skipped.
///
///     if (!Zone::isKnown("Pacific/Apia"))
///       QUELMCL_END_FOR_LACK_OF("tzdata");
#ifndef QUELMCL_TESTS_SUPPORT_LACKING_PACKAGE_HPP
#define QUELMCL_TESTS_SUPPORT_LACKING_PACKAGE_HPP

#include <gtest/gtest.h>

#include <cstdlib>

namespace quelmcl_test {

inline bool isInCi()
{
  const char* const setting = std::getenv("CI");
  return setting != nullptr && *setting != '\0';
}

}  // namespace quelmcl_test

/// Returns from the function it stands in, which is a test or its SetUp().
#define QUELMCL_END_FOR_LACK_OF(package)                               \
  do {                                                                 \
    if (quelmcl_test::isInCi())                                        \
      FAIL() << "the Debian package " package " is not installed";     \
    GTEST_SKIP() << "the Debian package " package " is not installed"; \
  } while (false)

#endif
