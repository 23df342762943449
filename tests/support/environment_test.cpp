// environment_test.cpp - what every test takes for granted about the process it runs in.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <nl_types.h>
#include <string>

TEST(Environment, LocaleIsTheOneOfThisRun)
{
  const char* const wanted = std::getenv("QUELMCL_TEST_LOCALE");
  ASSERT_NE(wanted, nullptr) << "start the tests with ctest";
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), wanted);
  EXPECT_EQ(MB_CUR_MAX >= 2, std::string(wanted) == "C.UTF-8");
}

TEST(Environment, CatalogOfThisBuildIsFound)
{
  EXPECT_EQ(std::getenv("KOLTA MSGFILE"), nullptr);
  const nl_catd catalog = catopen("quelmcl.cat", 0);
  ASSERT_NE(catalog, reinterpret_cast<nl_catd>(-1));
  for (const int number : {1, 4, 185, 186, 1010, 1011})
    EXPECT_STRNE(catgets(catalog, 1, number, ""), "") << number;
  catclose(catalog);
}
