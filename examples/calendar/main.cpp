// calendar - prints the pages of a month or of a year, from 4713 BC on.
// Tests: tests/examples/calendar_test.sh
//
// Dates do the counting: a page begins with the first of a month and ends where the date has become one of the next
// month, so the eleven days that September 1752 lacks are no case of their own. Names come from the locale, and are
// placed by the columns that they take up, not by their bytes. Pages are sequences of lines; those of three months are
// printed side by side by walking through them with three cursors.
#include <quelmcl/quelmcl.hpp>

#include <clocale>
#include <cstdint>
#include <cwchar>
#include <exception>
#include <iostream>
#include <langinfo.h>
#include <vector>

namespace {

const char helpText[] =
  "Usage: calendar [--help] [--monday|--sunday] [[MONTH] YEAR]\n"
  "\n"
  "Prints the page of this month, of a month, or of all months of a year.\n"
  "\n"
  "  MONTH     1 to 12, or the beginning of a name that no other month has\n"
  "  YEAR      1 to 11754507, or -1 to -4713 for the years 1 BC to 4713 BC\n"
  "  --monday  let weeks begin with Monday\n"
  "  --sunday  let weeks begin with Sunday (default: as the locale has it)\n"
  "  --help    print this text and nothing else\n"
  "\n"
  "Names are those of the locale that the environment names. The calendar is the\n"
  "Julian one up to 2 September 1752, which the 14th followed, and the Gregorian\n"
  "one since. There is no year 0.\n"
  "\n"
  "Exit status: 0 if all went well; 1 if the calendar could not be written; 2 for\n"
  "wrong options.\n";

enum ExitStatus { allWell = 0, troubleWithOutput = 1, wrongUsage = 2 };

const int firstYear = -4713, lastYear = 11754507;
const unsigned pageColumns = 7 * 2 + 6, gapColumns = 2;
const unsigned pagesInRow = 3;

using Page = ILinkedSequence<IString>;

// ---- columns ----

/// How many columns the beginning of a text takes up, in whole characters and at most so many; and its bytes.
struct Piece {
  unsigned length, columns;
};

Piece pieceOf(const IString& text, unsigned mostColumns)
{
  const char* const bytes = text;
  Piece piece = {0, 0};
  while (piece.length < text.length()) {
    const char* const character = bytes + piece.length;
    const unsigned length = IDBCSBuffer::charLength(character);
    std::mbstate_t atItsBeginning = std::mbstate_t();
    wchar_t code = 0;
    const bool isSound = std::mbrtowc(&code, character, length, &atItsBeginning) <= length;
    const int columns = isSound ? wcwidth(code) : 1;
    if (piece.columns + static_cast<unsigned>(columns < 0 ? 1 : columns) > mostColumns)
      break;
    piece.length += length;
    piece.columns += static_cast<unsigned>(columns < 0 ? 1 : columns);
  }
  return piece;
}

IString blanks(unsigned count)
{
  return IString(nullptr, count, ' ');
}

/// The text in exactly so many columns.
IString leftJustified(const IString& text, unsigned columns)
{
  const Piece piece = pieceOf(text, columns);
  return IString((const char*)text, piece.length) + blanks(columns - piece.columns);
}

IString centered(const IString& text, unsigned columns)
{
  const Piece piece = pieceOf(text, columns);
  return leftJustified(blanks((columns - piece.columns) / 2) + text, columns);
}

// ---- pages ----

IString yearText(int year)
{
  return year > 0 ? IString(year) : IString(-year) + " BC";
}

/// The names of the days, cut to the two columns that a day has.
IString dayNames(IDate::DayOfWeek firstInWeek)
{
  IString line;
  for (int i = 0; i < 7; ++i)
    line += leftJustified(IDate::dayName(static_cast<IDate::DayOfWeek>((firstInWeek + i) % 7)), 2) + " ";
  return line.remove(line.length());
}

Page pageOf(IDate::Month month, int year, const IString& title, IDate::DayOfWeek firstInWeek)
{
  Page page{centered(title, pageColumns), dayNames(firstInWeek)};
  IDate date(month, 1, year);
  unsigned column = static_cast<unsigned>((date.dayOfWeek() - firstInWeek + 7) % 7);
  IString week = blanks(3 * column);
  for (; date.monthOfYear() == month; date += 1) {
    if (column == 7) {
      page.add(week);
      week = "";
      column = 0;
    }
    week += IString(date.dayOfMonth()).rightJustify(2) + (++column < 7 ? " " : "");
  }
  page.add(week);
  return page;
}

void printLine(IString line)
{
  std::cout << line.stripTrailing() << '\n';
}

void printSideBySide(const ILinkedSequence<Page>& pages)
{
  ILinkedSequence<Page::Cursor> cursors;
  pages.allElementsDo([&](const Page& page) { cursors.add(page.newCursor()); });
  bool isMore = true;
  for (Page::Cursor& cursor : cursors)
    cursor.setToFirst();
  while (isMore) {
    isMore = false;
    IString line;
    for (Page::Cursor& cursor : cursors) {
      line += leftJustified(cursor.isValid() ? cursor.element() : IString(), pageColumns) + blanks(gapColumns);
      isMore |= cursor.isValid() && cursor.setToNext();
    }
    printLine(line);
  }
}

void printMonth(IDate::Month month, int year, IDate::DayOfWeek firstInWeek)
{
  const Page page = pageOf(month, year, IDate::monthName(month) + " " + yearText(year), firstInWeek);
  for (const IString& line : page)
    printLine(line);
}

void printYear(int year, IDate::DayOfWeek firstInWeek)
{
  printLine(centered(yearText(year), pagesInRow * (pageColumns + gapColumns) - gapColumns));
  for (unsigned number = 1; number <= 12; number += pagesInRow) {
    ILinkedSequence<Page> row;
    for (unsigned i = 0; i < pagesInRow; ++i) {
      const IDate::Month month = static_cast<IDate::Month>(number + i);
      row.add(pageOf(month, year, IDate::monthName(month), firstInWeek));
    }
    std::cout << '\n';
    printSideBySide(row);
  }
}

// ---- the program ----

struct Options {
  bool helpWanted = false;
  bool isYear = false;  // or else a month
  IDate::Month month = IDate().monthOfYear();
  int year = IDate().year();
  IDate::DayOfWeek firstInWeek = IDate::Monday;
};

/// With which day the weeks of the locale begin. The C library tells a day from which others count, and a number.
IDate::DayOfWeek firstDayOfWeek()
{
  const std::uintptr_t countFrom = reinterpret_cast<std::uintptr_t>(nl_langinfo(_NL_TIME_WEEK_1STDAY));
  const int ofCounting = (countFrom & 0xFFFFFFFF) == 19971201 ? IDate::Monday : IDate::Sunday;
  const int number = *nl_langinfo(_NL_TIME_FIRST_WEEKDAY);
  return static_cast<IDate::DayOfWeek>((ofCounting + number - 1 + 7) % 7);
}

bool isNumber(const IString& text)
{
  return IString(text).stripLeading("-").isDigits() && text.indexOf('-') <= 1 && text.lastIndexOf('-') <= 1;
}

int yearFrom(const IString& text)
{
  const long year = text.asInt();
  if (!isNumber(text) || year < firstYear || year > lastYear || year == 0)
    throw IInvalidParameter("the year is a number from " + IString(firstYear) + " to -1 or from 1 to " +
                            IString(lastYear));
  return static_cast<int>(year);
}

IDate::Month monthFrom(const IString& text)
{
  if (text.isDigits() && text.asUnsigned() >= 1 && text.asUnsigned() <= 12)
    return static_cast<IDate::Month>(text.asInt());
  ILinkedSequence<IDate::Month> candidates;
  for (int number = 1; number <= 12; ++number) {
    const IDate::Month month = static_cast<IDate::Month>(number);
    if (IString::upperCase(text).isAbbreviationFor(IDate::monthName(month).upperCase(), 1))
      candidates.add(month);
  }
  if (candidates.size() != 1)
    throw IInvalidParameter("the month is a number from 1 to 12 or the beginning of one name: " + text);
  return candidates.firstElement();
}

Options optionsFrom(int argumentCount, char* arguments[])
{
  Options options;
  options.firstInWeek = firstDayOfWeek();
  std::vector<IString> operands;
  for (int i = 1; i < argumentCount; ++i) {
    const IString argument = arguments[i];
    if (argument == "--help")
      options.helpWanted = true;
    else if (argument == "--monday")
      options.firstInWeek = IDate::Monday;
    else if (argument == "--sunday")
      options.firstInWeek = IDate::Sunday;
    else if (argument.isLike("-?*") && !isNumber(argument))
      throw IInvalidParameter("there is no option " + argument + "; --help tells which there are");
    else
      operands.push_back(argument);
  }
  if (operands.size() > 2)
    throw IInvalidParameter("there is more than a month and a year");
  if (!operands.empty())
    options.year = yearFrom(operands.back());
  if (operands.size() == 2)
    options.month = monthFrom(operands.front());
  options.isYear = operands.size() == 1;
  return options;
}

void run(const Options& options)
{
  if (options.helpWanted)
    std::cout << helpText;
  else if (options.isYear)
    printYear(options.year, options.firstInWeek);
  else
    printMonth(options.month, options.year, options.firstInWeek);
}

}  // namespace

int main(int argc, char* argv[])
{
  // Before the first string: one that is made earlier takes every byte for a character, whatever comes later.
  if (std::setlocale(LC_ALL, "") == nullptr)
    std::cerr << "calendar: there is no locale as the environment names it; the names are English\n";

  std::ios::sync_with_stdio(false);
  try {
    run(optionsFrom(argc, argv));
    if (!std::cout.flush())
      throw IAccessError("the calendar could not be written");
    return allWell;
  } catch (const IInvalidParameter& failure) {
    std::cerr << "calendar: " << failure.text() << '\n';
    return wrongUsage;
  } catch (const IException& failure) {
    std::cerr << "calendar: " << failure.text() << '\n';
  } catch (const std::exception& failure) {
    std::cerr << "calendar: " << failure.what() << '\n';
  }
  return troubleWithOutput;
}
