// main.cpp - the main function of every test program: sets the locale that the run is about, before the library is used at all. The
// first string of a process decides for good how its strings see characters.
#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#ifdef QUELMCL_COVERAGE
#  include <csignal>

extern "C" void __gcov_dump();
#endif

namespace {

/// What has been counted is written when a process ends; one that aborts, as some tests want it to, has to be told.
void countWhatAbortsToo()
{
#ifdef QUELMCL_COVERAGE
  std::signal(SIGABRT, [](int) { __gcov_dump(); });
#endif
}

/// Whether the locale named by QUELMCL_TEST_LOCALE, if any, is in force now.
bool setLocaleOfThisRun()
{
  const char* const wanted = std::getenv("QUELMCL_TEST_LOCALE");
  if (wanted == nullptr || std::setlocale(LC_ALL, wanted) != nullptr)
    return true;
  std::fprintf(stderr, "The tests are to run in the locale %s, which this machine does not have.\n", wanted);
  return false;
}

/// The status that tells ctest of tests that could not be made here.
constexpr int skipped = 77;

bool hasOnlySkipped()
{
  const testing::UnitTest& run = *testing::UnitTest::GetInstance();
  return run.skipped_test_count() > 0 && run.skipped_test_count() == run.test_to_run_count();
}

}  // namespace

int main(int argc, char** argv)
{
  countWhatAbortsToo();
  if (!setLocaleOfThisRun())
    return EXIT_FAILURE;
  testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  return status == EXIT_SUCCESS && hasOnlySkipped() ? skipped : status;
}
