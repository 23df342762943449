// failing_malloc_test.cpp - the replaced malloc: that it fails when told to, whoever asks, and that it counts.
#include "support/failing_malloc.hpp"

#include "support/sanitizer_heap.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#ifndef QUELMCL_HEAP_OF_A_SANITIZER

namespace {

using quelmcl_test::FailingAllocations;
using quelmcl_test::FailingMalloc;
using quelmcl_test::MallocWatch;

struct Freed {
  void operator()(void* block) const { std::free(block); }
};
using Block = std::unique_ptr<void, Freed>;

TEST(FailingMallocScope, FailsFromTheNthRequestOn)
{
  Block first, second, third;
  int error = 0;
  {
    const FailingMalloc scope(2);
    first.reset(std::malloc(10));
    second.reset(std::calloc(2, 5));
    error = errno;
    third.reset(strdup("text"));  // the C library's own requests are the same
  }
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(second, nullptr);
  EXPECT_EQ(third, nullptr);
  EXPECT_EQ(error, ENOMEM);
  EXPECT_NE(Block(std::malloc(10)), nullptr);
}

TEST(FailingMallocScope, FailsOnlyOnceWhenToldSo)
{
  Block first, second;
  unsigned long failures = 0;
  {
    const FailingMalloc scope(1, FailingAllocations::andNoOther);
    first.reset(std::malloc(10));
    second.reset(std::malloc(10));
    failures = scope.failures();
  }
  EXPECT_EQ(first, nullptr);
  EXPECT_NE(second, nullptr);
  EXPECT_EQ(failures, 1u);
}

TEST(FailingMallocScope, FailsOperatorNewAsWell)
{
  void* block = nullptr;
  {
    const FailingMalloc scope(1, FailingAllocations::andNoOther);
    block = ::operator new(10, std::nothrow);
  }
  EXPECT_EQ(block, nullptr);
  ::operator delete(block);
}

TEST(FailingMallocScope, LeavesABlockThatCannotBecomeLarger)
{
  std::FILE* const file = std::tmpfile();
  ASSERT_NE(file, nullptr);
  std::fputs("a line that is longer than the block", file);
  std::rewind(file);
  std::size_t size = 4;
  char* line = static_cast<char*>(std::malloc(size));
  long length = 0;
  {
    const FailingMalloc scope(1);
    length = getline(&line, &size, file);  // asks for a larger block, and keeps the one it has
  }
  EXPECT_EQ(length, -1);
  EXPECT_EQ(size, 4u);
  std::free(line);
  std::fclose(file);
}

TEST(FailingMallocScope, CountsWhatIsAlive)
{
  const MallocWatch watch;
  void* const one = std::malloc(10);
  void* other = nullptr;
  ASSERT_EQ(posix_memalign(&other, 64, 10), 0);
  const long whenTwo = watch.liveBlocks();
  other = std::realloc(other, 1000);
  const long whenLarger = watch.liveBlocks();
  std::free(one);
  std::free(other);
  std::free(nullptr);
  EXPECT_EQ(whenTwo, 2);
  EXPECT_EQ(whenLarger, 2);
  EXPECT_EQ(watch.liveBlocks(), 0);
}

}  // namespace

#endif
