// processes_test.cpp - whole programs: static objects of their own, the library linked in, opened, closed and there twice, and a
// heap that is exhausted for real.
#include "support/child_process.hpp"
#include "support/sanitizer_heap.hpp"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

#ifndef QUELMCL_HEAP_OF_A_SANITIZER

namespace {

using quelmcl_test::ChildProcess;
using quelmcl_test::runChild;

const std::string exhausted = "The memory is exhausted: there is no room for what was to be stored.";

// ---- static objects of a program ----

std::string lifetimeTraceOf(const std::string& moment)
{
  return "+" + moment +
         "\n"
         "  >strings work " +
         moment +
         "\n"
         "  >IInvalidParameter exception thrown.\n"
         "  >   function: useEverything\n"
         "  >   file: FILE\n"
         "  >   line: LINE\n"
         "  >   Error Id is 1\n"
         "  >   Error Code group is Other Error Group\n"
         "  >   Exception text is:\n"
         "  >      A check failed. This was expected to hold: moment == nullptr\n"
         "  >caught IInvalidParameter\n"
         "  >IOutOfMemory exception thrown.\n"
         "  >   function: Unknown\n"
         "  >   file: ibase\n"
         "  >   line: 147\n"
         "  >   Error Id is 4\n"
         "  >   Error Code group is Quelm Class Library\n"
         "  >   Exception text is:\n"
         "  >      " +
         exhausted +
         "\n"
         "  >caught IOutOfMemory4 from ibase\n"
         "-" +
         moment + "\n";
}

/// The text with the rest of every line that begins with `start` replaced.
std::string withLinesAs(std::string text, const std::string& start, const std::string& replacement)
{
  for (std::size_t at = text.find(start); at != std::string::npos; at = text.find(start, at + 1))
    text.replace(at + start.size(), text.find('\n', at) - at - start.size(), replacement);
  return text;
}

class StaticObjects : public testing::TestWithParam<const char*> {};

TEST_P(StaticObjects, UseTheLibraryBeforeAndAfterMain)
{
  const ChildProcess child = runChild({GetParam()}, {"KOLTA TRACE=noprefix"});
  const std::string expected =
    lifetimeTraceOf("before main") + lifetimeTraceOf("in main") + lifetimeTraceOf("after main");
  const std::string file = "  >   file: ";
  const std::string line = "  >   line: ";
  EXPECT_EQ(withLinesAs(withLinesAs(child.out, file, "F"), line, "L"),
            withLinesAs(withLinesAs(expected, file, "F"), line, "L"));
  EXPECT_NE(child.out.find("lifetime.cpp\n"), std::string::npos);
  EXPECT_NE(child.out.find("  >   file: ibase\n  >   line: 147\n"), std::string::npos);
  EXPECT_EQ(child.err, "");
  EXPECT_EQ(child.status, 0);
}

TEST_P(StaticObjects, ReportNothingWhileTheTraceIsOff)
{
  const ChildProcess child = runChild({GetParam()});
  EXPECT_EQ(child.out, "");
  EXPECT_EQ(child.err, "");
  EXPECT_EQ(child.status, 0);
}

INSTANTIATE_TEST_SUITE_P(Shared, StaticObjects, testing::Values(QUELMCL_STARTUP_FOLDER "/startup_lifetime"));
INSTANTIATE_TEST_SUITE_P(Static, StaticObjects, testing::Values(QUELMCL_STARTUP_FOLDER "/startup_lifetime_static"));

// ---- strings and dates of a program's own that live as long as the process ----

class GlobalStrings : public testing::TestWithParam<const char*> {};

TEST_P(GlobalStrings, LiveLongerThanTheLibrarysOwnObjects)
{
  const ChildProcess child = runChild({GetParam()});
  EXPECT_EQ(child.out,
            "LAUSU|CHILD|2024-03-01|13:14:15|0|1011\n"
            "child 7\n"
            "USUAL|PARENT|2024-03-01|13:14:15|0|1011\n"
            "EARLY|MAIN|2024-03-01|13:14:15|0|1011\n"
            "USUAL|ATEXIT|2024-03-01|13:14:15|0|1011\n"
            "USUAL|ENDS|2024-03-01|13:14:15|0|1011\n"
            "REGISTERED|LAST|2024-03-01|13:14:15|0|1011\n"
            "REGISTERED|ENDS|2024-03-01|13:14:15|0|1011\n"
            "EARLY|ENDS|2024-03-01|13:14:15|0|1011\n");
  EXPECT_EQ(child.status, 0);
}

INSTANTIATE_TEST_SUITE_P(Shared, GlobalStrings, testing::Values(QUELMCL_STARTUP_FOLDER "/startup_globals"));
INSTANTIATE_TEST_SUITE_P(LinkedBeforeTheLibrary, GlobalStrings,
                         testing::Values(QUELMCL_STARTUP_FOLDER "/startup_globals_first"));
INSTANTIATE_TEST_SUITE_P(LinkedBehindTheLibrary, GlobalStrings,
                         testing::Values(QUELMCL_STARTUP_FOLDER "/startup_globals_last"));

// ---- a heap without a byte ----

ChildProcess lastByte(const char* name, const std::vector<std::string>& settings = {})
{
  return runChild({QUELMCL_STARTUP_FOLDER "/startup_lastbyte", name}, settings);
}

const std::string outOfMemory = "IOutOfMemory 4 unrecoverable ibase:147\n";

TEST(ReallyExhaustedHeap, EndsTheGrowthOfAString)
{
  const ChildProcess child = lastByte("growAString");
  EXPECT_EQ(child.out, "1\n" + outOfMemory + "text: 1\n");
  EXPECT_EQ(child.err, "");
  EXPECT_EQ(child.status, 0);
}

const std::string reportWithoutStorage =
  "IOutOfMemory exception thrown.\n"
  "   function: Unknown\n"
  "   file: ibase\n"
  "   line: 147.\n"
  "   Error ID is 4\n"
  " Error Code group is Quelm Class Library\n"
  "   Exception text is unavailable.\n";

std::string repeated(const std::string& text, int count)
{
  std::string all;
  for (int i = 0; i < count; ++i)
    all += text;
  return all;
}

TEST(ReallyExhaustedHeap, IsTheSameExceptionFromEveryOperationWithoutAByteLeft)
{
  const ChildProcess child = lastByte("everyOperation");
  EXPECT_EQ(child.out, repeated(outOfMemory, 5) + "untouched\n");
  EXPECT_EQ(child.err, repeated(reportWithoutStorage, 5));
  EXPECT_EQ(child.status, 0);
}

TEST(ReallyExhaustedHeap, LeavesOtherFailuresTheirClassesWithoutAByteLeft)
{
  const ChildProcess child = lastByte("otherFailures");
  EXPECT_EQ(withLinesAs(child.out, "istring5:", "LINE"),
            "IInvalidRequest 1 recoverable file.cpp:12\n"
            "IInvalidRequest 1011 recoverable istring5:LINE\n" +
              outOfMemory);  // the text of an error information is storage that has to be there
  EXPECT_EQ(child.status, 0);
}

TEST(ReallyExhaustedHeap, IsOverWhenStorageIsGivenBack)
{
  const ChildProcess child = lastByte("again");
  EXPECT_EQ(child.out, repeated(outOfMemory, 3) + "16000\n");
  EXPECT_EQ(child.status, 0);
}

TEST(ReallyExhaustedHeap, GivesNullToThoseWhoAskForThat)
{
  EXPECT_EQ(lastByte("nothrow").out, "1\n");
}

TEST(ReallyExhaustedHeap, CanStillBeTraced)
{
  const ChildProcess child = lastByte("traced", {"KOLTA TRACE=noprefix", "KOLTA TRACETO=err"});
  EXPECT_EQ(child.err, "+work(5)\n  >no storage is needed for this\n-work\n");
  EXPECT_EQ(child.status, 0);
}

// ---- a library that is opened ----

#  ifdef QUELMCL_SHARED_LIBRARY

/// A second file with the same library in it, for the length of a block. A loader takes another file for another library.
class CopiedLibrary {
public:
  CopiedLibrary() : name(testing::TempDir() + "quelmcl_copy_" + std::to_string(getpid()))
  {
    std::ofstream(name, std::ios::binary) << std::ifstream(QUELMCL_SHARED_LIBRARY, std::ios::binary).rdbuf();
  }
  ~CopiedLibrary() { unlink(name.c_str()); }
  CopiedLibrary(const CopiedLibrary&) = delete;
  CopiedLibrary& operator=(const CopiedLibrary&) = delete;

  const std::string name;
};

const std::string standardReport =
  "IOutOfMemory exception thrown.\n"
  "   function: Unknown\n"
  "   file: ibase\n"
  "   line: 147\n"
  "   Error Id is 4\n"
  "   Error Code group is Quelm Class Library\n"
  "   Exception text is:\n"
  "      " +
  exhausted + "\n";

TEST(OpenedLibrary, TakesTheHeapOverAndKeepsItWhenItIsClosed)
{
  const ChildProcess child = runChild({QUELMCL_STARTUP_FOLDER "/startup_opener", QUELMCL_SHARED_LIBRARY});
  EXPECT_EQ(child.out,
            "before: St9bad_alloc\n"
            "opening installs a new handler\n"
            "open: 12IOutOfMemory\n"
            "closing leaves it\n"
            "closed: 12IOutOfMemory\n"
            "at the very end: 12IOutOfMemory\n");
  EXPECT_EQ(child.status, 0);
}

TEST(OpenedLibrary, CanBeOpenedAndClosedAHundredTimes)
{
  std::vector<std::string> words(101, QUELMCL_SHARED_LIBRARY);
  words[0] = QUELMCL_STARTUP_FOLDER "/startup_opener";
  const ChildProcess child = runChild(words);
  std::string expected =
    "before: St9bad_alloc\n"
    "opening installs a new handler\n"
    "open: 12IOutOfMemory\n"
    "closing leaves it\n"
    "closed: 12IOutOfMemory\n";
  for (int again = 1; again < 100; ++again)
    expected +=
      "opening installs the same handler\n"
      "open: 12IOutOfMemory\n"
      "closing leaves it\n"
      "closed: 12IOutOfMemory\n"
      "the one before: 12IOutOfMemory\n";
  EXPECT_EQ(child.out, expected + "at the very end: 12IOutOfMemory\n");
  EXPECT_EQ(child.status, 0);
}

// Whose static objects are gone before those of the program: its hook has become a plain one.
TEST(OpenedLibrary, ReportsToStandardErrorOnceItsStaticObjectsAreGone)
{
  const ChildProcess child = runChild({QUELMCL_STARTUP_FOLDER "/startup_opener", QUELMCL_SHARED_LIBRARY});
  EXPECT_EQ(child.err, standardReport);
}

TEST(OpenedLibrary, TracesItsReports)
{
  const ChildProcess child =
    runChild({QUELMCL_STARTUP_FOLDER "/startup_opener", QUELMCL_SHARED_LIBRARY}, {"KOLTA TRACE=noprefix"});
  std::string traced;
  for (std::size_t at = 0; at < standardReport.size();) {
    const std::size_t end = standardReport.find('\n', at) + 1;
    traced += ">" + standardReport.substr(at, end - at);
    at = end;
  }
  EXPECT_EQ(child.out,
            "before: St9bad_alloc\n"
            "opening installs a new handler\n" +
              traced +
              "open: 12IOutOfMemory\n"
              "closing leaves it\n" +
              traced +
              "closed: 12IOutOfMemory\n"
              "at the very end: 12IOutOfMemory\n");
  EXPECT_EQ(child.err, standardReport);
}

TEST(TwoCopiesOfTheLibrary, WorkBesideEachOther)
{
  const CopiedLibrary copy;
  const ChildProcess child = runChild({QUELMCL_STARTUP_FOLDER "/startup_opener", QUELMCL_SHARED_LIBRARY, copy.name});
  EXPECT_EQ(child.out,
            "before: St9bad_alloc\n"
            "opening installs a new handler\n"
            "open: 12IOutOfMemory\n"
            "closing leaves it\n"
            "closed: 12IOutOfMemory\n"
            "opening installs a new handler\n"
            "open: 12IOutOfMemory\n"
            "closing leaves it\n"
            "closed: 12IOutOfMemory\n"
            "the one before: 12IOutOfMemory\n"
            "at the very end: 12IOutOfMemory\n");
  EXPECT_EQ(child.err, standardReport);
  EXPECT_EQ(child.status, 0);
}

class ProgramWithALibrary : public testing::TestWithParam<const char*> {};

TEST_P(ProgramWithALibrary, MayOpenACopyOfIt)
{
  const CopiedLibrary copy;
  const ChildProcess child = runChild({GetParam(), copy.name}, {"KOLTA TRACE=noprefix"});
  const std::string eachTime = "  >caught " + exhausted + " recoverable: 0\n";
  std::size_t caught = 0;
  for (std::size_t at = child.out.find(eachTime); at != std::string::npos; at = child.out.find(eachTime, at + 1))
    ++caught;
  EXPECT_EQ(caught, 3u) << child.out;
  EXPECT_EQ(child.err, "");
  EXPECT_EQ(child.status, 0);
}

INSTANTIATE_TEST_SUITE_P(Shared, ProgramWithALibrary, testing::Values(QUELMCL_STARTUP_FOLDER "/startup_copies"));
INSTANTIATE_TEST_SUITE_P(Static, ProgramWithALibrary, testing::Values(QUELMCL_STARTUP_FOLDER "/startup_copies_static"));

#  endif

}  // namespace

#endif
