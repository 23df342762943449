// first_use_test.cpp - what the library fills at its first use may fail there, and is filled at the next. Each test is a process in which
// nothing of the library was used before.
#include <quelmcl/quelmcl.hpp>

#include "support/failing_allocations.hpp"
#include "support/fresh_process.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <new>

namespace {

using quelmcl_test::FailingAllocations;

/// Does `action` with its 1st, 2nd, ... allocation alone failing, until it passes, and tells of what happened: how often it threw, and
/// "wrong" where something else than an exhausted heap was told of.
template <class Action>
void failFirstUse(Action action)
{
  unsigned long failures = 1;
  unsigned throws = 0;
  for (unsigned long nth = 1; failures != 0; ++nth) {
    try {
      FailingAllocations scope(nth, FailingAllocations::andNoOther);
      failures = 0;
      const struct Told {
        ~Told() { to = of.failures(); }
        FailingAllocations& of;
        unsigned long& to;
      } told = {scope, failures};
      action();
    } catch (const IOutOfMemory& failure) {
      ++throws;
      std::fputs(failure.errorId() == 4 ? "" : "wrong ", stderr);
    }
  }
  std::fputs(throws > 0 ? "exhausted, then: " : "never exhausted: ", stderr);
}

TEST(FirstUseDeathTest, OfAStringMayFail)
{
  EXPECT_FRESH_PROCESS_WRITES("exhausted, then: text", failFirstUse([] { const IString first("text"); });
                              std::fputs(IString("text"), stderr));
}

TEST(FirstUseDeathTest, OfAnEmptyStringMayFail)
{
  EXPECT_FRESH_PROCESS_WRITES("exhausted, then: empty", failFirstUse([] { const IString first; });
                              std::fputs(IString().length() == 0 ? "empty" : "not empty", stderr));
}

TEST(FirstUseDeathTest, OfAZeroBasedStringMayFail)
{
  EXPECT_FRESH_PROCESS_WRITES("exhausted, then: text", failFirstUse([] { const I0String first("text"); });
                              std::fputs(I0String("text"), stderr));
}

TEST(FirstUseDeathTest, OfTheNullBufferMayFail)
{
  EXPECT_FRESH_PROCESS_WRITES("exhausted, then: 1", failFirstUse([] { IBuffer::defaultBuffer(); });
                              std::fprintf(stderr, "%u", IBuffer::defaultBuffer()->useCount()));
}

TEST(FirstUseDeathTest, OfTheNameOfTheCatalogDoesWithoutStorage)
{
  EXPECT_FRESH_PROCESS_WRITES("never exhausted: quelmcl.cat", failFirstUse([] {
                                if (std::strcmp(IBase::messageFile(), "quelmcl.cat") != 0)
                                  std::fputs("wrong ", stderr);
                              });
                              std::fputs(IBase::messageFile(), stderr));
}

TEST(FirstUseDeathTest, OfAMessageDoesWithoutStorage)
{
  EXPECT_FRESH_PROCESS_WRITES("never exhausted: ", failFirstUse([] { IBase::messageText(4); }));
}

// The reference to the new null buffer stays the caller's when it could not be made the default one.
TEST(FirstUseDeathTest, OfAnotherDefaultBufferMayFail)
{
  EXPECT_FRESH_PROCESS_WRITES("exhausted, then: the new one", {
    const IString empty;
    IBuffer* const before = IBuffer::defaultBuffer();
    IBuffer* const made = IBuffer::initialize();
    failFirstUse([before, made] {
      try {
        IBuffer::setDefaultBuffer(made);
      } catch (...) {
        if (IBuffer::defaultBuffer() != before || made->useCount() != 1)
          std::fputs("wrong ", stderr);
        throw;
      }
    });
    std::fputs(IBuffer::defaultBuffer() == made && IString().length() == 0 ? "the new one" : "another one", stderr);
  });
}

}  // namespace
