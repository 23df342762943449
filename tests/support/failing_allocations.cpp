// failing_allocations.cpp - the replaced allocation operators behind AllocationWatch and FailingAllocations.
// Tests: tests/support/failing_allocations_test.cpp
#include "support/failing_allocations.hpp"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Constant-initialised: blocks are handed out before any constructor of this program has run.
std::atomic<unsigned long> handedOut(0);
std::atomic<unsigned long> released(0);
thread_local quelmcl_test::FailingAllocations* innermost = nullptr;

const std::size_t ordinaryAlignment = 0;

void* blockOrNull(std::size_t size, std::size_t alignment) noexcept
{
  if (quelmcl_test::FailingAllocations::nextFails())
    return nullptr;

  const std::size_t atLeastOne = size == 0 ? 1 : size;  // every block has an address of its own
  void* block = nullptr;
  if (alignment == ordinaryAlignment)
    block = std::malloc(atLeastOne);
  else if (posix_memalign(&block, alignment, atLeastOne) != 0)
    block = nullptr;

  if (block != nullptr)
    handedOut.fetch_add(1, std::memory_order_relaxed);
  return block;
}

void* blockOrThrow(std::size_t size, std::size_t alignment)
{
  for (;;) {
    if (void* block = blockOrNull(size, alignment))
      return block;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr)
      throw std::bad_alloc();
    handler();
  }
}

void* blockOrNullAfterHandlers(std::size_t size, std::size_t alignment) noexcept
{
  try {
    return blockOrThrow(size, alignment);
  } catch (...) {
    return nullptr;
  }
}

void release(void* block) noexcept
{
  if (block == nullptr)
    return;
  released.fetch_add(1, std::memory_order_relaxed);
  std::free(block);
}

}  // namespace

namespace quelmcl_test {

AllocationWatch::AllocationWatch() noexcept : handedOutBefore(handedOut.load()), releasedBefore(released.load()) {}

unsigned long AllocationWatch::allocations() const noexcept
{
  return handedOut.load() - handedOutBefore;
}

long AllocationWatch::liveBlocks() const noexcept
{
  return static_cast<long>(handedOut.load() - handedOutBefore) - static_cast<long>(released.load() - releasedBefore);
}

const unsigned long FailingAllocations::never;

FailingAllocations::FailingAllocations(unsigned long nth, Extent extentOfFailure) noexcept
  : firstToFail(nth), extent(extentOfFailure), attempted(0), failed(0), outer(innermost)
{
  innermost = this;
}

FailingAllocations::~FailingAllocations()
{
  innermost = outer;
}

bool FailingAllocations::nextFails() noexcept
{
  FailingAllocations* const scope = innermost;
  if (scope == nullptr)
    return false;

  ++scope->attempted;
  if (scope->firstToFail == never)
    return false;
  const bool fails =
    scope->extent == andNoOther ? scope->attempted == scope->firstToFail : scope->attempted >= scope->firstToFail;
  if (fails)
    ++scope->failed;
  return fails;
}

}  // namespace quelmcl_test

void* operator new(std::size_t size)
{
  return blockOrThrow(size, ordinaryAlignment);
}
void* operator new[](std::size_t size)
{
  return blockOrThrow(size, ordinaryAlignment);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
  return blockOrNullAfterHandlers(size, ordinaryAlignment);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
  return blockOrNullAfterHandlers(size, ordinaryAlignment);
}
void operator delete(void* block) noexcept
{
  release(block);
}
void operator delete[](void* block) noexcept
{
  release(block);
}
void operator delete(void* block, std::size_t) noexcept
{
  release(block);
}
void operator delete[](void* block, std::size_t) noexcept
{
  release(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept
{
  release(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept
{
  release(block);
}

#ifdef __cpp_aligned_new
void* operator new(std::size_t size, std::align_val_t alignment)
{
  return blockOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
  return blockOrThrow(size, static_cast<std::size_t>(alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
  return blockOrNullAfterHandlers(size, static_cast<std::size_t>(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
  return blockOrNullAfterHandlers(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* block, std::align_val_t) noexcept
{
  release(block);
}
void operator delete[](void* block, std::align_val_t) noexcept
{
  release(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
  release(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
  release(block);
}
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept
{
  release(block);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept
{
  release(block);
}
#endif
