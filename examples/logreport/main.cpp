// logreport - what happened to the packages of a Debian machine: reads the package log and prints a report of one page.
// Tests: tests/examples/logreport_test.sh
//
// Strings from front to back: a line of the log is taken apart by a template, the parts are the keys of ordinary maps,
// the tables are linked sequences of rows, sorted in place, and the columns of the report are justified texts. Dates
// count the days. Failures travel as the library's exceptions and end as one sentence each.
//
// Nobody calls setlocale here, on purpose: the first string finds the "C" locale, so a character is a byte for as long
// as the program runs. That suits a log: any byte can be in it, and what is not visible ASCII must not reach the
// terminal.
#include <quelmcl/quelmcl.hpp>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <exception>
#include <fstream>
#include <iostream>
#include <map>
#include <utility>
#include <vector>

namespace {

const char helpText[] =
  "Usage: logreport [--help] [--top N] [--width N] [FILE...]\n"
  "\n"
  "Reports what Debian's package log tells: the period it covers, how often each\n"
  "action occurs, how many lines each day has (each hour, if the log covers less\n"
  "than three days), and which packages were touched most.\n"
  "\n"
  "  FILE       a log to read, - for standard input (default: /var/log/dpkg.log)\n"
  "  --top N    how many packages to list, 1 to 1000000 (default: 10)\n"
  "  --width N  how many columns the report may take, 40 to 1000 (default: 80)\n"
  "  --help     print this text and nothing else\n"
  "\n"
  "Exit status: 0 if all went well; 1 if an input could not be read, was empty or\n"
  "had malformed lines, the report being about the rest; 2 for wrong options.\n";

enum ExitStatus { allWell = 0, troubleWithInput = 1, wrongUsage = 2 };

using Counts = std::map<IString, unsigned long>;
using Row = std::pair<IString, unsigned long>;
using Rows = ILinkedSequence<Row>;

// ---- one line of the log ----

/// A line in its parts. What the line does not name is empty.
struct Entry {
  IString moment;  // "date time"
  IString action;
  IString package;  // "package architecture"
  IString version;  // the one that is now at hand or installed
};

/// How the lines of one action go on: words of no interest, then so many parts, of which the first is the package or not.
struct LineForm {
  const char* action;
  unsigned long skipped, parts;
  bool namesPackage;
};

const LineForm lineForms[] = {
  {"startup", 0, 2, false},   // archives|packages command
  {"conffile", 0, 2, false},  // file decision
  {"status", 1, 2, true},     // state package:architecture installed-version
  {"install", 0, 3, true},    // package:architecture installed-version available-version, and so on:
  {"upgrade", 0, 3, true},   {"configure", 0, 3, true}, {"trigproc", 0, 3, true},
  {"disappear", 0, 3, true}, {"remove", 0, 3, true},    {"purge", 0, 3, true},
};

/// Whether the two digits at `pos` are in a range. Numbers of as many digits compare as texts.
bool isWithin(const IString& text, unsigned pos, const char* least, const char* most)
{
  const IString digits = text.subString(pos, 2);
  return digits >= least && digits <= most;
}

/// Whether the text is a "YYYY-MM-DD hh:mm:ss".
bool isMoment(const IString& text)
{
  return IString::translate(text, "123456789", "", '0') == "0000-00-00 00:00:00" &&  // any digit becomes a 0
         isWithin(text, 6, "01", "12") && isWithin(text, 9, "01", "31") && isWithin(text, 12, "00", "23") &&
         isWithin(text, 15, "00", "59") && isWithin(text, 18, "00", "60");
}

const LineForm& lineFormOf(const IString& action)
{
  for (const LineForm& form : lineForms)
    if (action == form.action)
      return form;
  throw IInvalidParameter("unknown action");
}

/// Takes a line apart. Throws IInvalidParameter, saying why, if it is malformed.
Entry entryFrom(const IString& line)
{
  Entry entry;
  IString date, time, rest, part[4];
  line >> date >> time >> entry.action >> rest;
  entry.moment = date + ' ' + time;
  if (!isMoment(entry.moment))
    throw IInvalidParameter("no date and time in front");

  const LineForm& form = lineFormOf(entry.action);
  rest >> IStringParser::SkipWords(form.skipped) >> part[0] >> part[1] >> part[2] >> part[3] >> IStringParser::skipWord;
  if (part[form.parts - 1].length() == 0)
    throw IInvalidParameter("too few words");
  if (!form.namesPackage)  // further words belong to the name of a file
    return entry;
  if (part[form.parts].length() > 0)
    throw IInvalidParameter("too many words");
  if (!(part[0] + part[1] + part[2]).isPrintable())
    throw IInvalidParameter("unprintable bytes");

  entry.package = part[0].indexOf(':') == 0 ? part[0] + " -" : part[0].change(":", " ", 1, 1);
  entry.version = part[2].change("<none>", "").length() > 0 ? part[2] : part[1].change("<none>", "");
  return entry;
}

// ---- all lines together ----

/// What the report is made from.
struct Log {
  unsigned long lineCount = 0, malformedCount = 0;
  IString first, last;                  // "date time"
  Counts actions, hours, packages;      // by "action", "date hour", "package architecture"
  std::map<IString, IString> versions;  // the latest version of "package architecture", as "date time version"
  ILinkedSequence<IString> malformed;   // the first few
};

void addEntry(const Entry& entry, Log& log)
{
  if (log.actions.empty() || entry.moment < log.first)
    log.first = entry.moment;
  if (entry.moment > log.last)
    log.last = entry.moment;
  ++log.actions[entry.action];
  ++log.hours[entry.moment.subString(1, 13) + ":00"];
  if (entry.package.length() == 0)
    return;

  ++log.packages[entry.package];
  IString& latest = log.versions[entry.package];
  if (entry.version.length() > 0 && entry.moment >= latest.subString(1, 19))  // the logs may be read in any order
    latest = entry.moment + ' ' + entry.version;
}

/// The text with its unprintable bytes as \xHH.
IString visible(const IString& text)
{
  IString shown;
  for (unsigned pos = 1; pos <= text.length(); ++pos) {
    const IString byte = text.subString(pos, 1);
    shown += byte.isPrintable() ? byte : "\\x" + IString::c2x(byte);
  }
  return shown;
}

void addMalformed(const IString& line, const IString& place, const IException& failure, Log& log)
{
  const unsigned shownLines = 5, shownBytes = 1000;  // no page is wider
  if (log.malformedCount++ < shownLines)
    log.malformed.add(place + ": " + failure.text() + ": " + visible(IString(line).remove(shownBytes + 1)));
}

[[noreturn]] void throwAccessError(int errorNumber, const IExceptionLocation& location)
{
  IAccessError failure(std::strerror(errorNumber), static_cast<unsigned long>(errorNumber), IException::recoverable);
  failure.setErrorCodeGroup(IException::CLibrary);
  failure.addLocation(location);
  throw failure;
}

void readLines(std::istream& input, const IString& name, Log& log)
{
  unsigned long lineNumber = 0;
  while (input.peek() != std::istream::traits_type::eof()) {
    const IString line = IString::lineFrom(input);
    ++lineNumber;
    try {
      addEntry(entryFrom(line), log);
    } catch (const IInvalidParameter& failure) {
      addMalformed(line, name + ':' + IString(lineNumber), failure, log);
    }
  }
  log.lineCount += lineNumber;
  if (input.bad())
    throwAccessError(errno, IExceptionLocation(__FILE__, __func__, __LINE__));
  if (lineNumber == 0)
    throw IInvalidRequest("there is not a single line in it", 0, IException::recoverable);
}

void readFile(const IString& path, Log& log)
{
  if (path == "-")
    return readLines(std::cin, "standard input", log);
  std::ifstream file(path);
  if (!file)
    throwAccessError(errno, IExceptionLocation(__FILE__, __func__, __LINE__));
  readLines(file, visible(path.subString(path.lastIndexOf('/') + 1)), log);
}

// ---- the report ----

/// The text in exactly so many columns; two dots stand for what has no room.
IString fitted(IString text, unsigned columns)
{
  if (text.length() > columns)
    text.remove(columns - 1) += "..";
  return text.leftJustify(columns);
}

/// Writes lines to standard output, none wider than the page.
class Page {
public:
  explicit Page(unsigned columns) : width(columns) {}
  unsigned columns() const { return width; }
  void line(const IString& text) const { std::cout << fitted(text, width).stripTrailing() << '\n'; }
  void title(const IString& text) const { line((' ' + text + ' ').center(width, '=')); }
  void fact(const char* name, const IString& value) const { line("  " + IString::leftJustify(name, 8) + value); }
  void heading(const IString& text) const
  {
    line("");
    line(text);
  }

private:
  unsigned width;
};

/// The date in front of a moment. Every month may have 31 days here; those that it does not have roll on into the next.
IDate dateOf(const IString& moment)
{
  const int month = static_cast<int>(moment.subString(6, 2).asInt());
  const int day = static_cast<int>(moment.subString(9, 2).asInt());
  return IDate(static_cast<IDate::Month>(month), day, static_cast<int>(moment.subString(1, 4).asInt()));
}

int daysCovered(const Log& log)
{
  return dateOf(log.last) - dateOf(log.first) + 1;
}

/// The counts as rows, the largest first.
Rows ranked(const Counts& counts)
{
  Rows rows(counts.begin(), counts.end());
  rows.sort([](const Row& left, const Row& right) { return left.second > right.second; });
  return rows;
}

void printFacts(const Log& log, const std::vector<IString>& files, const Page& page)
{
  IString sources;
  for (const IString& file : files)
    sources += (sources.length() > 0 ? ", " : "") + visible(file);
  page.fact("Source", sources);
  page.fact("Lines", IString(log.lineCount) + ", " + IString(log.malformedCount) + " malformed");
  if (log.actions.empty())
    return;
  page.fact("From", log.first);
  page.fact("To", log.last);
  page.fact("Days", daysCovered(log));
}

/// A bar for each row, the largest as long as the page has room. What occurs at all has a mark.
void printChart(const char* heading, const Rows& rows, const Page& page)
{
  unsigned labelWidth = 0;
  unsigned long largest = 0;
  for (const Row& row : rows) {
    labelWidth = std::max(labelWidth, row.first.length());
    largest = std::max(largest, row.second);
  }
  const unsigned countWidth = IString(largest).length();
  const unsigned long long room = page.columns() - labelWidth - countWidth - 6;

  page.heading(heading);
  for (const Row& row : rows) {
    const unsigned marks = static_cast<unsigned>(row.second * room / largest);
    page.line("  " + IString::leftJustify(row.first, labelWidth) + "  " + IString(row.second).rightJustify(countWidth) +
              "  " + IString::copy("#", std::max(marks, 1u)));
  }
}

void printActivity(const Log& log, const Page& page)
{
  if (daysCovered(log) < 3)
    return printChart("Lines per hour", Rows(log.hours.begin(), log.hours.end()), page);
  Counts days;
  for (const auto& hour : log.hours)
    days[hour.first.word(1)] += hour.second;
  printChart("Lines per day", Rows(days.begin(), days.end()), page);
}

void printPackages(const Log& log, unsigned top, const Page& page)
{
  Rows rows = ranked(log.packages);
  while (rows.numberOfElements() > top)
    rows.removeLast();
  if (rows.isEmpty())
    return;

  const unsigned architectureWidth = 6;
  const unsigned countWidth = std::max(5u, IString(rows.firstElement().second).length());
  const unsigned versionWidth = page.columns() * 3 / 10;
  const unsigned nameWidth = page.columns() - architectureWidth - countWidth - versionWidth - 8;
  const auto printRow = [&](const IString& key, const IString& count, const IString& version) {
    page.line("  " + fitted(key.word(1), nameWidth) + "  " + fitted(key.word(2), architectureWidth) + "  " +
              IString::rightJustify(count, countWidth) + "  " + fitted(version, versionWidth));
  };

  page.heading("Packages touched most, " + IString(rows.numberOfElements()) + " of " + IString(log.packages.size()));
  printRow("Package Arch", "Lines", "Latest version");
  for (const Row& row : rows)
    printRow(row.first, row.second, log.versions.at(row.first).word(3));
}

void printReport(const Log& log, const std::vector<IString>& files, unsigned top, const Page& page)
{
  page.title("Debian package log");
  printFacts(log, files, page);
  if (!log.actions.empty()) {
    printChart("Lines per action", ranked(log.actions), page);
    printActivity(log, page);
    printPackages(log, top, page);
  }
  if (log.malformedCount > 0)
    page.heading("Malformed lines, " + IString(log.malformed.size()) + " of " + IString(log.malformedCount));
  for (const IString& line : log.malformed)
    page.line("  " + line);
}

// ---- the program ----

struct Options {
  bool helpWanted = false;
  unsigned top = 10, width = 80;
  std::vector<IString> files;
};

/// Throws the library's message about a check that failed, which quotes the rule that does not hold.
[[noreturn]] void throwWrongUsage(const IString& rule)
{
  const unsigned long checkFailed = 1;
  IMessageText text = IBase::messageText(checkFailed, rule);
  text.setDefaultText(rule);  // without the catalog the user still has to learn what is wrong
  throw IInvalidParameter(text, checkFailed, IException::recoverable);
}

/// The number behind an option. Behind the last argument stands a null pointer, which is the empty text and no number.
unsigned numberFrom(const IString& text, const IString& option, unsigned long least, unsigned long most)
{
  const unsigned long number = text.asUnsigned();
  if (!text.isDigits() || number < least || number > most)
    throwWrongUsage(option + " is followed by a number from " + IString(least) + " to " + IString(most));
  return static_cast<unsigned>(number);
}

Options optionsFrom(int argumentCount, char* arguments[])
{
  Options options;
  for (int i = 1; i < argumentCount; ++i) {
    const IString argument = arguments[i];
    if (argument == "--help")
      options.helpWanted = true;
    else if (argument == "--top")
      options.top = numberFrom(arguments[++i], argument, 1, 1000000);
    else if (argument == "--width")
      options.width = numberFrom(arguments[++i], argument, 40, 1000);
    else if (argument.isLike("-?*"))
      throwWrongUsage(visible(argument) + " is one of --help, --top, --width");
    else
      options.files.push_back(argument);
  }
  if (options.files.empty())
    options.files.push_back("/var/log/dpkg.log");
  return options;
}

/// A failure in one sentence: first what was attempted, then why it failed.
void tell(const IException& failure)
{
  IString sentence = "logreport";
  for (unsigned long i = 0; i < failure.textCount(); ++i)
    sentence += ": " + IString(failure.text(i));
  std::cerr << sentence << '\n';
}

ExitStatus run(const Options& options)
{
  if (options.helpWanted) {
    std::cout << helpText;
    return allWell;
  }

  Log log;
  ExitStatus status = allWell;
  for (const IString& file : options.files) {
    try {
      readFile(file, log);
    } catch (IException& failure) {  // the other files are worth a report
      tell(failure.setText(visible(file)));
      status = troubleWithInput;
    }
  }
  if (log.lineCount > 0)
    printReport(log, options.files, options.top, Page(options.width));
  return log.malformedCount > 0 ? troubleWithInput : status;
}

}  // namespace

int main(int argc, char* argv[])
{
  std::ios::sync_with_stdio(false);
  try {
    const Options options = optionsFrom(argc, argv);
    const ExitStatus status = run(options);
    if (!std::cout.flush())
      throw IAccessError("the report could not be written");
    return status;
  } catch (const IInvalidParameter& failure) {
    tell(failure);
    return wrongUsage;
  } catch (const IException& failure) {
    tell(failure);
  } catch (const std::exception& failure) {
    std::cerr << "logreport: " << failure.what() << '\n';
  }
  return troubleWithInput;
}
