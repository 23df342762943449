// failing_malloc.cpp - malloc and its relatives, replaced: they count, fail when told to, and otherwise hand over to the C library's.
// Tests: tests/fault/failing_malloc_test.cpp
#include "support/failing_malloc.hpp"

#include "support/sanitizer_heap.hpp"

#include <atomic>
#include <cerrno>
#include <cstdlib>

namespace {

// Constant-initialised: blocks are handed out before any constructor of this program has run.
std::atomic<long> live(0);
thread_local quelmcl_test::FailingMalloc* current = nullptr;

}  // namespace

namespace quelmcl_test {

MallocWatch::MallocWatch() noexcept : liveBefore(live.load()) {}

long MallocWatch::liveBlocks() const noexcept
{
  return live.load() - liveBefore;
}

FailingMalloc::FailingMalloc(unsigned long nth, FailingAllocations::Extent extentOfFailure) noexcept
  : firstToFail(nth), extent(extentOfFailure), attempted(0), failed(0)
{
  current = this;
}

FailingMalloc::~FailingMalloc()
{
  current = nullptr;
}

bool FailingMalloc::nextFails() noexcept
{
  FailingMalloc* const scope = current;
  if (scope == nullptr)
    return false;

  ++scope->attempted;
  if (scope->firstToFail == FailingAllocations::never)
    return false;
  const bool fails = scope->extent == FailingAllocations::andNoOther ? scope->attempted == scope->firstToFail
                                                                     : scope->attempted >= scope->firstToFail;
  if (fails)
    ++scope->failed;
  return fails;
}

}  // namespace quelmcl_test

#ifdef QUELMCL_HEAP_OF_A_SANITIZER

const bool quelmcl_test::FailingMalloc::isPossible = false;

#else

const bool quelmcl_test::FailingMalloc::isPossible = true;

// The C library's own, under the names that it keeps for those who replace the usual ones.
extern "C" {
void* __libc_malloc(std::size_t size) noexcept;
void* __libc_calloc(std::size_t count, std::size_t size) noexcept;
void* __libc_realloc(void* block, std::size_t size) noexcept;
void* __libc_memalign(std::size_t alignment, std::size_t size) noexcept;
void __libc_free(void* block) noexcept;
}

namespace {

template <class Request>
void* blockOrNull(Request request) noexcept
{
  if (quelmcl_test::FailingMalloc::nextFails()) {
    errno = ENOMEM;
    return nullptr;
  }
  void* const block = request();
  if (block != nullptr)
    live.fetch_add(1, std::memory_order_relaxed);
  return block;
}

void release(void* block) noexcept
{
  if (block == nullptr)
    return;
  live.fetch_sub(1, std::memory_order_relaxed);
  __libc_free(block);
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) noexcept
{
  return blockOrNull([size] { return __libc_malloc(size); });
}

void* calloc(std::size_t count, std::size_t size) noexcept
{
  return blockOrNull([count, size] { return __libc_calloc(count, size); });
}

void* realloc(void* block, std::size_t size) noexcept
{
  if (block == nullptr)
    return malloc(size);
  if (size == 0) {
    release(block);
    return nullptr;
  }
  if (quelmcl_test::FailingMalloc::nextFails()) {
    errno = ENOMEM;
    return nullptr;
  }
  return __libc_realloc(block, size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept
{
  return blockOrNull([alignment, size] { return __libc_memalign(alignment, size); });
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept
{
  return memalign(alignment, size);
}

int posix_memalign(void** result, std::size_t alignment, std::size_t size) noexcept
{
  void* const block = memalign(alignment, size);
  if (block == nullptr)
    return ENOMEM;
  *result = block;
  return 0;
}

void free(void* block) noexcept
{
  release(block);
}

}  // extern "C"

#endif
