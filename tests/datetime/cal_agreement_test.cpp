// cal_agreement_test.cpp - pages of months as the program cal prints them, which has the same changeover in 1752.
#include "support/lacking_package.hpp"

#include <quelmcl/idate.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <sys/wait.h>

namespace {

/// What a command prints, or nothing when it does not succeed.
std::string outputOf(const std::string& command)
{
  std::FILE* const pipe = popen(command.c_str(), "r");
  if (pipe == nullptr)
    return "";
  std::string output;
  char piece[1024];
  while (const std::size_t count = std::fread(piece, 1, sizeof piece, pipe))
    output.append(piece, count);
  const int status = pclose(pipe);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? output : "";
}

/// The lines without the blanks at their ends, and without empty ones.
std::string trimmed(const std::string& page)
{
  std::string result;
  std::size_t begin = 0;
  while (begin < page.size()) {
    const std::size_t end = std::min(page.find('\n', begin), page.size());
    const IString line = IString(page.data() + begin, end - begin).stripTrailing();
    if (line.length() > 0)
      result.append(line, line.length()).append("\n");
    begin = end + 1;
  }
  return result;
}

/// A page of a month: a title in the middle of 20 columns, then weeks from Sunday on.
std::string pageOf(int month, int year)
{
  const IDate first(static_cast<IDate::Month>(month), 1, year);
  std::string page(IString::center(first.monthName() + " " + IString(year), 20));
  page += "\nSu Mo Tu We Th Fr Sa\n";
  int column = (first.dayOfWeek() + 1) % 7;
  page += std::string(static_cast<std::size_t>(3 * column), ' ');
  for (IDate date = first; date.monthOfYear() == month; date += 1) {
    page += IString(date.dayOfMonth()).rightJustify(2);
    page += ++column % 7 == 0 ? "\n" : " ";
  }
  return trimmed(page);
}

std::string calsPageOf(int month, int year)
{
  return trimmed(outputOf("cal " + std::to_string(month) + " " + std::to_string(year)));
}

class CalAgreement : public testing::Test {
protected:
  void SetUp() override
  {
    if (calsPageOf(1, 2000).empty())
      QUELMCL_END_FOR_LACK_OF("ncal");
  }

  static void expectYear(int year)
  {
    for (int month = 1; month <= 12; ++month)
      EXPECT_EQ(calsPageOf(month, year), pageOf(month, year)) << month << ' ' << year;
  }
};

TEST_F(CalAgreement, SeptemberOf1752)
{
  EXPECT_EQ(calsPageOf(9, 1752), pageOf(9, 1752));
  EXPECT_EQ(
    "   September 1752\n"
    "Su Mo Tu We Th Fr Sa\n"
    "       1  2 14 15 16\n"
    "17 18 19 20 21 22 23\n"
    "24 25 26 27 28 29 30\n",
    pageOf(9, 1752));
}

TEST_F(CalAgreement, EveryMonthOfSomeYears)
{
  for (const int year : {1,    4,    100,  1500, 1582, 1699, 1700, 1751, 1752, 1753,
                         1800, 1899, 1900, 1970, 2000, 2024, 2026, 2038, 2100, 9999})
    expectYear(year);
}

}  // namespace
