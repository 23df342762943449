// destinations_test.cpp - where trace lines go: standard output, standard error, the file that the environment names.
#include "probe.hpp"

#include <gtest/gtest.h>

#include <cstdlib>
#include <dirent.h>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using quelmcl_test::ChildProcess;

TEST(TraceDestination, QueueAndStandardOutputAreTheSame)
{
  for (const char* const name : {"stdout", "out", "queue", "xyz"}) {
    const ChildProcess child = probe({"KOLTA TRACE=noprefix", std::string("KOLTA TRACETO=") + name}, {"write", "x"});
    EXPECT_EQ(child.out, ">x\n") << name;
    EXPECT_EQ(child.err, "") << name;
  }
}

TEST(TraceDestination, StandardErrorIsAnother)
{
  const ChildProcess child = probe({"KOLTA TRACE=noprefix", "KOLTA TRACETO=err"}, {"write", "x", "enter", "A"});
  EXPECT_EQ(child.out, "");
  EXPECT_EQ(child.err, ">x\n+A\n-A\n");
}

TEST(TraceDestination, CanChangeFromLineToLine)
{
  const ChildProcess child =
    probe({"KOLTA TRACE=noprefix"}, {"write", "a", "to-stderr", "write", "b", "to-queue", "write", "c", "to-stderr",
                                     "write", "d", "to-stdout", "write", "e"});
  EXPECT_EQ(child.out, ">a\n>c\n>e\n");
  EXPECT_EQ(child.err, ">b\n>d\n");
}

TEST(TraceDestination, HasTheLineWhateverHappensNext)
{
  EXPECT_EQ(probe({"KOLTA TRACE=noprefix"}, {"print", "write", "x", "end-at-once"}).out, "printed >x\n");
  EXPECT_EQ(probe({"KOLTA TRACE=noprefix", "KOLTA TRACETO=err"}, {"write", "x", "end-at-once"}).err, ">x\n");
}

/// A folder for the length of a test.
class TraceFile : public testing::Test {
protected:
  TraceFile() : folder(testing::TempDir() + "traceXXXXXX")
  {
    if (mkdtemp(&folder[0]) == nullptr)
      std::abort();
  }

  ~TraceFile() override
  {
    for (const std::string& name : names()) {
      rmdir((folder + "/" + name).c_str());
      unlink((folder + "/" + name).c_str());
    }
    rmdir(folder.c_str());
  }

  std::vector<std::string> names() const
  {
    std::vector<std::string> found;
    DIR* const directory = opendir(folder.c_str());
    while (const dirent* const entry = readdir(directory))
      if (entry->d_name[0] != '.')
        found.push_back(entry->d_name);
    closedir(directory);
    return found;
  }

  std::string content(const std::string& name) const
  {
    std::ifstream stream(folder + "/" + name);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
  }

  /// Runs the commands with tracing to a file, and the settings.
  ChildProcess traceWith(Words settings, const Words& commands) const
  {
    settings.push_back("KOLTA TRACE=noprefix");
    settings.push_back("KOLTA TRACETO=file");
    const ChildProcess child = probe(settings, commands, folder);
    EXPECT_EQ(child.out, "");
    EXPECT_EQ(child.err, "");
    EXPECT_EQ(child.status, 0);
    return child;
  }

  std::string folder;
};

TEST_F(TraceFile, HasTheNameInUpperCase)
{
  traceWith({"KOLTA TRACEFILE=trace.log"}, {"enter-3", "A", "write", "x\ny", "leave"});
  EXPECT_EQ(names(), Words{"TRACE.LOG"});
  EXPECT_EQ(content("TRACE.LOG"), "+A(3)\n  >x\n  >y\n-A\n");
}

TEST_F(TraceFile, HasANameWithoutTheBlanksAroundIt)
{
  traceWith({"KOLTA TRACEFILE=  my trace\t "}, {"write", "x"});
  EXPECT_EQ(names(), Words{"MY TRACE\t"});
}

TEST_F(TraceFile, IsNamedByTheUnderscoreFormToo)
{
  traceWith({"KOLTA_TRACEFILE=other"}, {"write", "x"});
  EXPECT_EQ(names(), Words{"OTHER"});
}

TEST_F(TraceFile, IsNamedByTheBlankFormFirst)
{
  traceWith({"KOLTA TRACEFILE=first", "KOLTA_TRACEFILE=second"}, {"write", "x"});
  EXPECT_EQ(names(), Words{"FIRST"});
}

TEST_F(TraceFile, IsNoneWhenTheBlankFormIsEmpty)
{
  traceWith({"KOLTA TRACEFILE=", "KOLTA_TRACEFILE=second"}, {"write", "x"});
  EXPECT_EQ(names(), Words{});
}

TEST_F(TraceFile, IsNoneWhenNothingNamesOne)
{
  traceWith({}, {"write", "x"});
  EXPECT_EQ(names(), Words{});
}

TEST_F(TraceFile, GrowsFromProcessToProcess)
{
  std::ofstream(folder + "/T") << "before\n";
  traceWith({"KOLTA TRACEFILE=t"}, {"write", "a"});
  traceWith({"KOLTA TRACEFILE=t"}, {"write", "b"});
  EXPECT_EQ(content("T"), "before\n>a\n>b\n");
}

TEST_F(TraceFile, IsLookedUpForEveryLine)
{
  traceWith({"KOLTA TRACEFILE=a"},
            {"write", "1", "set", "KOLTA TRACEFILE=b", "write", "2", "set", "KOLTA TRACEFILE=a", "write", "3"});
  EXPECT_EQ(content("A"), ">1\n>3\n");
  EXPECT_EQ(content("B"), ">2\n");
}

TEST_F(TraceFile, ThatCannotBeOpenedDropsTheLine)
{
  mkdir((folder + "/D").c_str(), 0700);
  traceWith({"KOLTA TRACEFILE=d"}, {"write", "x"});                          // a directory
  traceWith({"KOLTA TRACEFILE=nowhere/d"}, {"write", "x"});                  // in a folder that is not there
  traceWith({"KOLTA TRACEFILE=" + std::string(300, 'n')}, {"write", "x"});   // longer than a file name may be
  traceWith({"KOLTA TRACEFILE=" + std::string(9000, 'n')}, {"write", "x"});  // longer than a path may be
  EXPECT_EQ(names(), Words{"D"});
}

TEST_F(TraceFile, HasFoldersInUpperCaseAsWell)
{
  mkdir((folder + "/SUB").c_str(), 0700);
  traceWith({"KOLTA TRACEFILE=sub/t"}, {"write", "x"});
  EXPECT_EQ(content("SUB/T"), ">x\n");
  unlink((folder + "/SUB/T").c_str());
}

TEST_F(TraceFile, KeepsLettersBeyondTheAlphabetOfEnglish)
{
  traceWith({"KOLTA TRACEFILE=gr\xC3\xBC\xC3\x9F"
             "e"},
            {"write", "x"});
  EXPECT_EQ(names(), Words{"GR\xC3\xBC\xC3\x9F"
                           "E"});
}

// The second byte of the first character is the letter 'a' when it stands alone.
TEST_F(TraceFile, KeepsCharactersOfSeveralBytesWhole)
{
  traceWith({"QUELMCL_TEST_LOCALE=ja_JP.SJIS",
             "KOLTA TRACEFILE=\x83"
             "ab"},
            {"write", "x"});
  EXPECT_EQ(names(), Words{"\x83"
                           "aB"});
}

// Programs with sanitizers do not run with another user's rights, and those that count what they run have files to write.
#if !defined(__SANITIZE_ADDRESS__) && !defined(QUELMCL_COVERAGE)

// A file that belongs to another user and runs with his rights, as a password program does. Such a file is for root to make, and
// file systems may be mounted so that it has no effect: neither is anything that `./dev` could install.
TEST_F(TraceFile, IsNotWrittenByAProgramThatRunsWithAnotherUsersRights)
{
  const uid_t somebody = 65534;
  const std::string program = folder + "/probe";
  std::ofstream(program, std::ios::binary) << std::ifstream(QUELMCL_TRACE_PROBE, std::ios::binary).rdbuf();
  if (chmod(folder.c_str(), 0777) != 0 || chown(program.c_str(), somebody, somebody) != 0 ||
      chmod(program.c_str(), 04755) != 0)
    GTEST_SKIP() << "only root can make such a file";
  const Words settings = {"KOLTA TRACE=on", "KOLTA TRACETO=file", "KOLTA TRACEFILE=t", "KOLTA_CHECKSTACK=on"};
  const ChildProcess child =
    quelmcl_test::runChild({program, "rights", "read", "state", "to-file", "enable", "write", "x"}, settings, folder);
  if (child.err.compare(0, 16, "another's rights") != 0)
    GTEST_SKIP() << "this machine does not start such files with the other user's rights: " << child.err;
  EXPECT_EQ(child.err, "another's rights\noff numbers=1 prefix=1 to=stdout stack=0\n");
  EXPECT_EQ(child.status, 0);
  EXPECT_EQ(names(), Words{"probe"});
}

#endif

}  // namespace
