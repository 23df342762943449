// threads_test.cpp - what the page on threads allows: each thread works on strings, dates, templates and exceptions of its own, hands
// strings over to others, and ends before the strings that it has made.
//
// The ordinary suite does a part of the operations; "./dev check threads" does 100,000 in each thread, watched by ThreadSanitizer and by
// helgrind.
#include "support/expect_text.hpp"
#include "support/together.hpp"

#include <quelmcl/quelmcl.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <deque>
#include <mutex>
#include <random>
#include <string>
#include <utility>
#include <vector>

using quelmcl_test::together;

namespace {

constexpr unsigned threadCount = 8;

/// How many operations each thread does.
unsigned operationCount()
{
  const char* const wanted = std::getenv("QUELMCL_TEST_THREAD_OPERATIONS");
  return wanted == nullptr ? 2000 : static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
}

std::string bytesOf(const IString& text)
{
  return std::string(static_cast<const char*>(text), text.length());
}

// ---------------------------------------------------------------------------------------------------------------------
// What a thread does. Every result is compared with one that needs nothing of the library; wrong ones are counted.

class Worker {
public:
  explicit Worker(unsigned threadNumber) : random(threadNumber), number(threadNumber) {}

  bool shortStrings();
  bool longStrings();
  bool emptyStrings();
  bool dates();
  bool templates();
  bool exceptions();

  std::mt19937 random;

private:
  unsigned upTo(unsigned limit) { return static_cast<unsigned>(random() % (limit + 1)); }

  unsigned number;
  IString kept;          // lives from one operation to the next
  std::string expected;  // what it has to be
};

bool Worker::shortStrings()
{
  const unsigned value = upTo(99999);
  IString text = IString("t") + IString(number);
  const IString before(text);
  text += IString(value);
  text.upperCase().insert("-", 2);
  IString moved(std::move(text));
  const std::string wanted = "T" + std::to_string(number) + "-" + std::to_string(value);
  return bytesOf(moved) == wanted && bytesOf(before) == "t" + std::to_string(number) &&
         bytesOf(moved.subString(4)) == wanted.substr(3) && IString(value).asUnsigned() == value;
}

bool Worker::longStrings()
{
  const unsigned length = 1 + upTo(600);
  const char letter = static_cast<char>('a' + upTo(25));
  const IString piece = IString(letter).copy(length);
  kept += piece;
  expected += std::string(length, letter);
  IString reversed = kept;
  reversed.reverse();
  const bool isRight =
    bytesOf(kept) == expected && bytesOf(reversed) == std::string(expected.rbegin(), expected.rend());
  if (expected.size() > 2000) {
    kept = IString();
    expected.clear();
  }
  return isRight;
}

bool Worker::emptyStrings()
{
  const IString empty;
  const IString copy(empty);
  IString assigned("abc");
  assigned = copy;
  IString moved(std::move(assigned));
  const IString part = IString("abc").remove(1);
  const I0String zeroBased;
  return moved.length() == 0 && part.length() == 0 && zeroBased.length() == 0 && empty == copy &&
         IString("abc").subString(2, 0).length() == 0;
}

bool Worker::dates()
{
  const int year = static_cast<int>(1800 + upTo(400));
  const unsigned day = 1 + upTo(27);
  const IDate date(static_cast<int>(day), IDate::March, year);
  char wanted[32];
  std::snprintf(wanted, sizeof wanted, "%02u.03.%d", day, year);
  const IString later = (date + 31).asString("%m");
  const long seconds = static_cast<long>(upTo(86399));
  return bytesOf(date.asString("%d.%m.") + IString(year)) == wanted && bytesOf(later) == "04" &&
         ITime(seconds).asSeconds() == seconds;
}

bool Worker::templates()
{
  const std::string key = "key" + std::to_string(number);
  const std::string value = std::to_string(upTo(99999));
  IString readKey;
  IString readValue;
  IString rest;
  IString((key + "=" + value + "; the rest").c_str()) >> readKey >> "=" >> readValue >> ';' >> rest;
  return bytesOf(readKey) == key && bytesOf(readValue) == value && bytesOf(rest) == " the rest";
}

bool Worker::exceptions()
{
  const IString text("abc");
  try {
    static_cast<void>(text[4 + upTo(99)]);
  } catch (const IInvalidRequest& failure) {
    IInvalidRequest copy(failure);
    copy.appendText(std::to_string(number).c_str());
    const std::string added = std::to_string(number);
    const std::string whole = copy.text();
    return failure.errorId() == 1011 && failure.textCount() == 1 && whole.size() > added.size() &&
           whole.compare(whole.size() - added.size(), added.size(), added) == 0;
  }
  return false;
}

struct Kind {
  const char* name;
  unsigned share;  // of a hundred operations
  bool (Worker::*work)();
};

const Kind kinds[] = {{"short strings", 34, &Worker::shortStrings}, {"long strings", 10, &Worker::longStrings},
                      {"empty strings", 30, &Worker::emptyStrings}, {"dates", 15, &Worker::dates},
                      {"templates", 10, &Worker::templates},        {"exceptions", 1, &Worker::exceptions}};

const Kind& anyKind(std::mt19937& random)
{
  unsigned drawn = static_cast<unsigned>(random() % 100);
  for (const Kind& kind : kinds) {
    if (drawn < kind.share)
      return kind;
    drawn -= kind.share;
  }
  return kinds[0];
}

// What the first need makes is made by several threads at once. Checkers that know nothing of atomic accesses leave this one out.
TEST(ThreadsAtTheBeginning, MakeWhatAllNeedOnlyOnce)
{
  tzset();  // the C library reads the time zone under a lock of its own, which checkers do not see
  std::vector<std::string> wrong(threadCount);
  together(threadCount, [&wrong](unsigned number) {
    Worker worker(number);
    for (const Kind& kind : kinds)
      if (!(worker.*kind.work)())
        wrong[number] += std::string(kind.name) + ' ';
  });
  for (const std::string& names : wrong)
    EXPECT_EQ(names, "");
}

class Threads : public testing::Test {
protected:
  /// What the first need makes is there before the threads start: making it is the subject of the test above.
  static void SetUpTestSuite()
  {
    Worker worker(threadCount);
    for (const Kind& kind : kinds)
      EXPECT_TRUE((worker.*kind.work)()) << kind.name;
  }

  /// The empty text is as it should be: the strings of all threads stood on it. Its count is a guess after that, and no matter.
  void TearDown() override
  {
    const IString empty;
    IString copy(empty);
    EXPECT_TEXT(empty, "");
    EXPECT_EQ(IBuffer::fromContents(empty), IBuffer::defaultBuffer());
    copy += "text";
    EXPECT_TEXT(copy, "text");
    EXPECT_TEXT(empty, "");
  }
};

TEST_F(Threads, WorkOnWhatIsTheirOwn)
{
  const unsigned count = operationCount();
  std::vector<std::string> wrong(threadCount);
  together(threadCount, [&wrong, count](unsigned number) {
    Worker worker(number);
    for (unsigned done = 0; done < count; ++done) {
      const Kind& kind = anyKind(worker.random);
      if (!(worker.*kind.work)())
        wrong[number] = kind.name;
    }
  });
  for (const std::string& name : wrong)
    EXPECT_EQ(name, "");
}

// ---------------------------------------------------------------------------------------------------------------------
// Strings made in one thread and destroyed in another

/// Where one thread leaves strings for another.
class Letterbox {
public:
  void put(IString text)
  {
    const std::lock_guard<std::mutex> lock(mutex);
    texts.push_back(std::move(text));
    filled.notify_one();
  }

  IString take()
  {
    std::unique_lock<std::mutex> lock(mutex);
    filled.wait(lock, [this] { return !texts.empty(); });
    IString text = std::move(texts.front());
    texts.pop_front();
    return text;
  }

private:
  std::mutex mutex;
  std::condition_variable filled;
  std::deque<IString> texts;
};

/// A text of some bytes, most of them few, that tells who has made it and when.
std::string letterOf(unsigned number, unsigned round)
{
  const std::string text = std::to_string(number) + ":" + std::to_string(round) + ":";
  return round % 16 == 0 ? std::string() : text + std::string(round % 7 == 0 ? round % 500 : round % 23, 'x');
}

IString stringOf(const std::string& text)
{
  return IString(text.data(), static_cast<unsigned>(text.size()));
}

TEST_F(Threads, HandOverStringsThatOthersChangeAndDestroy)
{
  const unsigned count = operationCount();
  std::vector<Letterbox> boxes(threadCount);
  std::vector<unsigned> wrong(threadCount);
  together(threadCount, [&](unsigned number) {
    const unsigned before = (number + threadCount - 1) % threadCount;
    for (unsigned round = 0; round < count; ++round) {
      boxes[number].put(stringOf(letterOf(number, round)));
      IString taken = boxes[before].take();
      wrong[number] += bytesOf(taken) != letterOf(before, round);
      taken += "!";
      wrong[number] += bytesOf(taken) != letterOf(before, round) + "!";
    }
  });
  EXPECT_EQ(wrong, std::vector<unsigned>(threadCount));
}

TEST_F(Threads, MayEndBeforeTheStringsTheyHaveMade)
{
  constexpr unsigned generations = 20;
  const unsigned count = std::max(operationCount() / 1000, 5u);
  std::vector<std::vector<IString>> estate(threadCount);
  for (unsigned generation = 0; generation < generations; ++generation) {
    std::vector<unsigned> wrong(threadCount);
    together(threadCount, [&](unsigned number) {
      std::vector<IString>& inherited = estate[(number + generation) % threadCount];  // made by a thread that has ended
      for (unsigned round = 0; round < inherited.size(); ++round)
        wrong[number] +=
          bytesOf(inherited[round]) != letterOf((number + generation) % threadCount + generation - 1, round);
      inherited.clear();
      for (unsigned round = 0; round < count; ++round)
        inherited.push_back(stringOf(letterOf((number + generation) % threadCount + generation, round)));
    });
    EXPECT_EQ(wrong, std::vector<unsigned>(threadCount)) << "generation " << generation;
  }
  for (unsigned place = 0; place < threadCount; ++place)
    for (unsigned round = 0; round < count; ++round)
      EXPECT_TEXT(estate[place][round], letterOf(place + generations - 1, round));
}

/// A string that ends with its thread.
IString& ofThisThread()
{
  static thread_local IString text;
  return text;
}

TEST_F(Threads, MayKeepStringsThatEndWithThem)
{
  std::vector<unsigned> wrong(threadCount);
  for (int generation = 0; generation < 20; ++generation)
    together(threadCount, [&wrong](unsigned number) {
      IString& text = ofThisThread();
      wrong[number] += text.length() != 0;
      text = stringOf(letterOf(number, 3));
      const IString copy = text;
      text += "more";
      wrong[number] += bytesOf(text) != letterOf(number, 3) + "more" || bytesOf(copy) != letterOf(number, 3);
    });
  EXPECT_EQ(wrong, std::vector<unsigned>(threadCount));
  EXPECT_TEXT(ofThisThread(), "");
}

}  // namespace
