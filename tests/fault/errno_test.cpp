// errno_test.cpp - runs each operation of the tables and looks at errno: callers ask it about calls of their own.
#include "operations.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <string>

namespace faulttests {

namespace {

/// Two operations set errno themselves, for the library to read.
constexpr int ofAnOperation = ENOENT;
constexpr int ofTheCaller = EXDEV;  // which nothing that the library calls sets

class EveryOperationOf : public testing::TestWithParam<Operation> {};

TEST_P(EveryOperationOf, LeavesErrnoAsItWas)
{
  const std::string name = GetParam().name;
  const int expected = name == "CLibErrorInfo" || name == "ThrowCLibError" ? ofAnOperation : ofTheCaller;
  for (const Sharing sharing : {alone, shared}) {
    World world(sharing);
    errno = ofTheCaller;
    GetParam().run(world);
    const int left = errno;
    EXPECT_EQ(left, expected) << name;
  }
}

INSTANTIATE_TEST_SUITE_P(Tables, EveryOperationOf, testing::ValuesIn(allOperations()));

}  // namespace

}  // namespace faulttests
