// Which blocks a thread keeps for its next texts, and when the heap gets them back.
#include <quelmcl/istring.hpp>

#include "fresh_process.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <malloc.h>
#include <mutex>
#include <pthread.h>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

#ifdef NDEBUG
constexpr bool areKept = true;
#else
constexpr bool areKept = false;  // a library for debugging hides nothing from heap checkers
#endif

// What stands in the heap, in bytes. The C library keeps blocks for its threads as well, and counts them as used; so the
// processes below begin without that.
std::size_t heapInUse()
{
  return mallinfo2().uordblks;
}

void keepBlocksNowhereElse()
{
  setenv("GLIBC_TUNABLES", "glibc.malloc.tcache_count=0", 1);
}

/// Makes texts of this length, all alive at once, and ends them.
void makeAndEnd(unsigned length, unsigned count)
{
  std::vector<IString> texts;
  texts.reserve(count);
  for (unsigned made = 0; made < count; ++made)
    texts.push_back(IString().leftJustify(length, 'x'));
}

/// What stays in use after that, in bytes.
long keptOf(unsigned length, unsigned count)
{
  makeAndEnd(2000, 1);  // the lists themselves
  const std::size_t before = heapInUse();
  makeAndEnd(length, count);
  return static_cast<long>(heapInUse() - before);
}

std::string ifKept(const char* bytes)
{
  return areKept ? bytes : std::string(bytes).replace(0, 1, "0");
}

void inThread(void (*work)())
{
  std::thread(work).join();
}

}  // namespace

// Now and then the C library hands out a block a step larger than asked for; it is kept among those of its size. So the
// next two divide.

TEST(SmallBlocksDeathTest, OfOneSizeAreKeptUpToAKilobyte)
{
  keepBlocksNowhereElse();
  EXPECT_FRESH_PROCESS_WRITES(ifKept("1 KB"), std::fprintf(stderr, "%ld KB", keptOf(36, 1000) / 1024));
}

TEST(SmallBlocksDeathTest, OfMoreThanAKilobyteAreKeptOneOfASize)
{
  keepBlocksNowhereElse();
  EXPECT_FRESH_PROCESS_WRITES(ifKept("1 of 1500"), std::fprintf(stderr, "%ld of 1500", keptOf(1490, 1000) / 1500));
}

TEST(SmallBlocksDeathTest, AreAllThatIsKept)
{
  keepBlocksNowhereElse();
  EXPECT_FRESH_PROCESS_WRITES("0", std::fprintf(stderr, "%ld", keptOf(2200, 100)));
}

TEST(SmallBlocksDeathTest, OfAllSizesTakeUpTo180Kilobytes)
{
  keepBlocksNowhereElse();
  EXPECT_FRESH_PROCESS_WRITES("within", {
    makeAndEnd(2000, 1);
    const std::size_t before = heapInUse();
    for (unsigned length = 1; length < 4000; ++length)
      makeAndEnd(length, 100);
    std::fputs(heapInUse() - before <= 180 * 1024 ? "within" : "beyond", stderr);
  });
}

TEST(SmallBlocksDeathTest, GoBackToTheHeapWhenTheirThreadEnds)
{
  keepBlocksNowhereElse();
  EXPECT_FRESH_PROCESS_WRITES("0", {
    void (*const work)() = [] { makeAndEnd(40, 100); };
    inThread(work);  // the second thread of a process makes more than itself
    const std::size_t before = heapInUse();
    for (int ended = 0; ended < 100; ++ended)
      inThread(work);
    std::fprintf(stderr, "%ld", static_cast<long>(heapInUse() - before));
  });
}

TEST(SmallBlocksDeathTest, AreNotKeptWhereTheEnvironmentForbidsIt)
{
  keepBlocksNowhereElse();
  setenv("QUELMCL_BLOCK_CACHE", "off", 1);
  EXPECT_FRESH_PROCESS_WRITES("0", std::fprintf(stderr, "%ld", keptOf(36, 1000)));
  unsetenv("QUELMCL_BLOCK_CACHE");
}

namespace {

/// Texts that end with the very last steps of a thread, in several rounds.
struct LastTexts {
  pthread_key_t key;
  std::vector<IString> texts;
};

constexpr unsigned rounds = 3;
constexpr unsigned textsOfRound = 10;

void endSomeTexts(void* of)
{
  LastTexts& last = *static_cast<LastTexts*>(of);
  last.texts.resize(last.texts.size() - textsOfRound);
  if (!last.texts.empty())
    pthread_setspecific(last.key, of);
}

void* makeTextsForTheEnd(void* of)
{
  LastTexts& last = *static_cast<LastTexts*>(of);
  for (unsigned made = 0; made < rounds * textsOfRound; ++made)
    last.texts.push_back("a text with a block of its own " + IString(made));
  pthread_setspecific(last.key, of);
  return nullptr;
}

void endTextsWithTheirThread(LastTexts& last)
{
  pthread_t thread{};
  pthread_create(&thread, nullptr, makeTextsForTheEnd, &last);
  pthread_join(thread, nullptr);
}

}  // namespace

TEST(SmallBlocksDeathTest, MayComeBackAfterTheirThreadHasGivenItsOwnAway)
{
  keepBlocksNowhereElse();
  EXPECT_FRESH_PROCESS_WRITES("0 texts, 0 bytes", {
    inThread([] { makeAndEnd(40, 1); });
    LastTexts last{};
    last.texts.reserve(rounds * textsOfRound);
    pthread_key_create(&last.key, endSomeTexts);
    const std::size_t before = heapInUse();
    endTextsWithTheirThread(last);
    std::fprintf(stderr, "%zu texts, %ld bytes", last.texts.size(), static_cast<long>(heapInUse() - before));
  });
}

TEST(SmallBlocks, KeepTheTextsOfThreadsThatExchangeThem)
{
  struct Exchanged {
    IString text;
    std::string expected;
  };
  std::mutex access;
  std::vector<Exchanged> pool(64);
  const auto exchange = [&](unsigned seed) {
    std::mt19937 random(seed);
    for (int step = 0; step < 20000; ++step) {
      const std::string bytes(random() % 120, static_cast<char>('a' + random() % 26));
      Exchanged own{IString(bytes.data(), static_cast<unsigned>(bytes.size())), bytes};
      {
        const std::lock_guard<std::mutex> lock(access);
        std::swap(pool[random() % 64], own);
      }
      if (std::string(own.text, own.text.length()) != own.expected) {
        ADD_FAILURE() << "a text has changed under its owner";
        return;
      }
    }
  };
  std::vector<std::thread> threads;
  for (unsigned seed = 1; seed <= 4; ++seed)
    threads.emplace_back(exchange, seed);
  for (std::thread& thread : threads)
    thread.join();
}

TEST(SmallBlocks, LeaveErrnoAsItWas)
{
  inThread([] {
    errno = 77;
    makeAndEnd(40, 3);
    EXPECT_EQ(errno, 77);
  });
}
