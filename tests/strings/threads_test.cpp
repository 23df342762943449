// threads_test.cpp - strings that share no text, used by many threads at once. Only the null buffer is common to them.
#include "string_probe.hpp"
#include "support/expect_text.hpp"
#include "support/together.hpp"

#include <quelmcl/i0string.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <utility>
#include <vector>

using namespace stringtests;

namespace {

constexpr unsigned threadCount = 8;
constexpr int rounds = 2000;

/// Each of eight threads does `action(number)`.
template <class Action>
void together(Action action)
{
  quelmcl_test::together(threadCount, action);
}

/// The empty text is as it should be: the strings of all threads stood on it. Its count is a guess after that, and no matter.
void expectTheNullBufferIsSound()
{
  const IString empty;
  IString copy(empty);
  EXPECT_TEXT(empty, "");
  EXPECT_EQ(IBuffer::fromContents(empty), IBuffer::defaultBuffer());
  copy += "text";
  EXPECT_TEXT(copy, "text");
  EXPECT_TEXT(empty, "");
}

TEST(StringThreads, MakeCopyChangeAndDestroyStringsOfTheirOwn)
{
  std::atomic<unsigned> wrong(0);
  together([&wrong](unsigned number) {
    const std::string expected = "THREAD " + std::to_string(number) + " says hello";
    for (int round = 0; round < rounds; ++round) {
      IString text = IString("thread ") + IString(number);
      const IString before(text);
      text.upperCase() += IString(" says ");
      text.insert("hello", text.length());
      IString moved(std::move(text));
      IString word = moved.word(2);
      word.change(IString(number), "x").copy(3);
      if (bytesOf(moved) != expected || bytesOf(word) != "xxx" || before != IString("thread ") + IString(number))
        ++wrong;
    }
  });
  EXPECT_EQ(wrong, 0u);
  expectTheNullBufferIsSound();
}

TEST(StringThreads, MayHoldEmptyStringsOfTheirOwn)
{
  std::atomic<unsigned> wrong(0);
  together([&wrong](unsigned) {
    for (int round = 0; round < rounds * 5; ++round) {
      const IString empty;
      const IString copy(empty);
      IString assigned("abc");
      assigned = copy;
      IString moved(std::move(assigned));
      const IString part = IString("abc").remove(1);
      const I0String zeroBased;
      if (moved.length() != 0 || part.length() != 0 || zeroBased.length() != 0 || empty != copy ||
          assigned.length() != 0)
        ++wrong;
    }
  });
  EXPECT_EQ(wrong, 0u);
  expectTheNullBufferIsSound();
}

TEST(StringThreads, MayGrowStringsFromNothing)
{
  std::vector<IString> results(threadCount);
  together([&results](unsigned number) {
    for (int round = 0; round < 200; ++round) {
      IString text;
      for (int letter = 0; letter < 20; ++letter)
        text += IString(static_cast<char>('a' + letter));
      text.remove(1);
      text[5] = static_cast<char>('0' + number);
      results[number] = std::move(text);
    }
  });
  for (unsigned number = 0; number < threadCount; ++number)
    EXPECT_TEXT(results[number], "    " + std::to_string(number));
  expectTheNullBufferIsSound();
}

TEST(StringThreads, MayFailOnTheirOwn)
{
  std::atomic<unsigned> refused(0);
  together([&refused](unsigned) {
    for (int round = 0; round < 3; ++round) {
      const IString text("abc");
      if (errorIdOf([&] { (void)text[4]; }) == pastEnd)
        ++refused;
    }
  });
  EXPECT_EQ(refused, threadCount * 3u);
}

TEST(StringThreads, MayWorkOnPrivateCopiesOfOneText)
{
  const IString theirs("a text that all threads read");
  std::vector<IString> copies;
  for (unsigned number = 0; number < threadCount; ++number)
    copies.emplace_back(static_cast<const char*>(theirs), theirs.length());
  together([&copies](unsigned number) {
    for (int round = 0; round < rounds; ++round) {
      IString mine(copies[number]);
      mine.change("text", IString(number)).reverse();
      if (round == rounds - 1)
        copies[number] = mine;
    }
  });
  for (unsigned number = 0; number < threadCount; ++number) {
    const std::string changed = "a " + std::to_string(number) + " that all threads read";
    EXPECT_TEXT(copies[number], std::string(changed.rbegin(), changed.rend()));
  }
  EXPECT_TEXT(theirs, "a text that all threads read");
  EXPECT_EQ(useCountOf(theirs), 1u);
}

}  // namespace
