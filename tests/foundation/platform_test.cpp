// platform_test.cpp - IPlatform: every question about other operating systems is answered with no.
#include <quelmcl/iplatfrm.hpp>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace {

static_assert(std::is_base_of<IBase, IPlatform>::value, "every class derives from the root");

struct PlatformCase {
  const char* name;
  bool (*question)();
};

const PlatformCase platformCases[] = {
  {"isWin32", [] { return static_cast<bool>(IPlatform::isWin32()); }},
  {"isWinNT", [] { return static_cast<bool>(IPlatform::isWinNT()); }},
  {"isNTNewShell", [] { return static_cast<bool>(IPlatform::isNTNewShell()); }},
  {"isWin32S", [] { return static_cast<bool>(IPlatform::isWin32S()); }},
  {"isWin95", [] { return static_cast<bool>(IPlatform::isWin95()); }},
};

class PlatformQuestion : public testing::TestWithParam<PlatformCase> {};

TEST_P(PlatformQuestion, IsAnsweredWithNo)
{
  EXPECT_FALSE(GetParam().question());
}

INSTANTIATE_TEST_SUITE_P(Questions, PlatformQuestion, testing::ValuesIn(platformCases),
                         [](const testing::TestParamInfo<PlatformCase>& row) { return std::string(row.param.name); });

}  // namespace
