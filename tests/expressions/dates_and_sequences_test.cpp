// dates_and_sequences_test.cpp - ways of writing expressions with dates, times and sequences, with their results, from C++11
// to C++23, with both compilers, at both widths and without a warning.
#include <quelmcl/quelmcl.hpp>

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "checks.hpp"

namespace {

template <class Value>
std::string printed(const Value& value)
{
  std::ostringstream stream;
  stream << value;
  return stream.str();
}

TEST(DateExpressions, AreBuiltInEveryWay)
{
  const IDate date(IDate::July, 20, 1969);
  EXPECT_TRUE(date == IDate(20, IDate::July, 1969));
  EXPECT_TRUE(date == IDate(1969, 201));
  EXPECT_TRUE(date == IDate(2440423));
  EXPECT_TRUE(date == IDate(2440423u));
  EXPECT_TRUE(date == IDate(2440423ul));
  EXPECT_TRUE(date == IDate(date.asICnrDate()));
  EXPECT_TRUE(date == IDate(ICnrDate{20, 7, 1969}));
  IDate copy = date;
  copy = 2440424;
  EXPECT_TRUE(copy == 2440424ul);
  EXPECT_TRUE(copy - date == 1);
  EXPECT_FALSE(IDate() != IDate::today() && IDate() != IDate::today());
}

TEST(DateExpressions, CountInDays)
{
  const IDate date(2440423ul);
  const short two = 2;
  EXPECT_EQ(2440424u, (date + 1).julianDate());
  EXPECT_EQ(2440425u, (date + two).julianDate());
  EXPECT_EQ(2440422u, (date - 1).julianDate());
  EXPECT_EQ(2440421u, (date - two).julianDate());
  EXPECT_EQ(2440433u, (date + IDate::daysInMonth(IDate::July, 1969) - 21).julianDate());
  EXPECT_TYPE(int, date - date);
  EXPECT_TYPE(IDate, date - 1);
  IDate changed(date);
  EXPECT_TYPE(IDate&, changed += 1);
  EXPECT_EQ(2440424u, ((changed += 2) -= 1).julianDate());
}

TEST(DateExpressions, BecomeTexts)
{
  const IDate date(2440423ul);
  EXPECT_EQ("1969", std::string(date.asString("%Y")));
  EXPECT_EQ("1969", std::string(date.asString(IString("%Y"))));
  EXPECT_EQ(printed(date), std::string(date.asString()));
  EXPECT_EQ(printed(date), std::string(date.asString(0)));
  EXPECT_EQ(printed(date), std::string(date.asString(nullptr)));
  EXPECT_EQ(printed(date), std::string(date.asString(IDate::localeYear)));
  EXPECT_EQ(printed(IDate::dayName(IDate::Sunday)), printed(date.dayName()));
  EXPECT_TRUE(IDate::parse("20.07.1969", "%d.%m.%Y") == date);
  EXPECT_TRUE(IDate::parse(IString("20.07.1969"), "%d.%m.%Y") == date);
}

TEST(DateExpressions, AreKeysAndValues)
{
  std::map<IDate, int> counts;
  ++counts[IDate(5ul)];
  ++counts[IDate(5ul)];
  EXPECT_EQ(2, counts[5ul]);
  std::vector<IDate> dates(3, IDate(9ul));
  dates[1] = IDate(8ul);
  std::sort(dates.begin(), dates.end());
  EXPECT_EQ(8u, dates.front().julianDate());
  static_assert(std::is_nothrow_copy_constructible<IDate>::value, "a plain value");
  static_assert(!std::is_convertible<IDate, unsigned long>::value, "no number by itself");
}

TEST(TimeExpressions, AreBuiltAndAdded)
{
  const ITime time(1, 2, 3);
  EXPECT_TRUE(time == ITime(3723));
  EXPECT_TRUE(time == ITime(3723l));
  EXPECT_TRUE(time == 3723);
  EXPECT_TRUE(time == ITime(time.asICnrTime()));
  EXPECT_TRUE(time == ITime(ICnrTime{1, 2, 3, 0}));
  EXPECT_EQ(3724, (time + 1).asSeconds());
  EXPECT_EQ(3722, (time - 1).asSeconds());
  ITime changed(time);
  EXPECT_EQ(3733, ((changed += 20) -= ITime(10)).asSeconds());
  EXPECT_EQ(printed(time), std::string(time.asString()));
  EXPECT_TRUE(ITime::parse("01:02:03", "%T") == time);
}

int byLastDigit(const int& left, const int& right)
{
  return left % 10 - right % 10;
}

bool isOdd(int number)
{
  return number % 2 != 0;
}

TEST(SequenceExpressions, AreBuiltInEveryWay)
{
  const std::vector<int> numbers(3, 7);
  ILinkedSequence<int> sequence(numbers.begin(), numbers.end());
  EXPECT_TRUE(sequence == (ILinkedSequence<int>{7, 7, 7}));
  ILinkedSequence<IString> names = {"a", "b"};
  names = {"c"};
  names.add("d");
  names.addAsFirst(IString("b"));
  EXPECT_EQ(3u, names.size());
  ILinkedSequence<IString> taken = std::move(names);
  EXPECT_TRUE(names.isEmpty() && taken != names);
  EXPECT_TRUE((ILinkedSequence<std::pair<IString, int>>{{"a", 1}, {"b", 2}}).lastElement().second == 2);
}

TEST(SequenceExpressions, TakeAnyFunction)
{
  ILinkedSequence<int> sequence{12, 31, 22};
  sequence.sort();
  sequence.sort(byLastDigit);
  sequence.sort(&byLastDigit);
  EXPECT_EQ(31, sequence.firstElement());
  sequence.sort(std::greater<int>());
  const std::less<int> less = std::less<int>();
  sequence.sort(less);
  EXPECT_EQ(12, sequence.firstElement());
  EXPECT_EQ(0, sequence.compare(sequence, less));
  EXPECT_EQ(1u, sequence.removeAllThat(isOdd));
  EXPECT_EQ(0u, sequence.removeAllThat(&isOdd));
  int sum = 0;
  EXPECT_TRUE(sequence.allElementsDo([&sum](int number) { sum += number; }));
  EXPECT_EQ(34, sum);
}

TEST(SequenceExpressions, AreWalkedThrough)
{
  const ILinkedSequence<IString> names{"b", "a"};
  std::string joined;
  for (const IString& name : names)
    joined += name;
  ILinkedSequence<IString>::Cursor cursor = names.newCursor(), other(cursor);
  for (cursor.setToFirst(); cursor.isValid(); cursor.setToNext())
    joined += cursor.element();
  for (auto name = names.rbegin(); name != names.rend(); ++name)
    joined += *name;
  EXPECT_EQ("babaab", joined);
  EXPECT_TRUE(cursor == other);
  EXPECT_FALSE(cursor != other);
  const ICursor& plain = other;
  EXPECT_TRUE(cursor == plain && plain == cursor && !(plain != other));
  EXPECT_EQ(1u, std::find(names.begin(), names.end(), IString("b"))->length());
}

}  // namespace
