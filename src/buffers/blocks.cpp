// blocks.cpp - the memory of buffers: a few small blocks are kept in each thread.
//
// Blocks of the sizes that the C library has are kept in a list each, linked through their first word, and go back to
// the heap when their thread ends. Nothing is kept where somebody watches or replaces the heap: in builds without
// NDEBUG, under valgrind or a sanitizer, with an operator new or a malloc that is not the usual one, and with
// QUELMCL_BLOCK_CACHE=off in the environment.
// Tests: tests/buffers/blocks_test.cpp
#include "buffers/blocks.hpp"

#include "foundation/errnoguard.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <malloc.h>
#include <new>
#include <pthread.h>

namespace quelmcl::detail {

namespace {

// What malloc hands out are multiples of 16 bytes, less a word that it keeps for itself.
constexpr std::size_t stepOfSizes = 16;
constexpr std::size_t mostSteps = 132;         // a text of 2 KB and its record
constexpr std::size_t mostBytesOfList = 1024;  // or one block, so that a thread keeps some 180 KB at the very most

constexpr std::size_t stepsFor(std::size_t size)  // rounded up: a block of so many steps has room for it
{
  return (size + sizeof(std::size_t) + stepOfSizes - 1) / stepOfSizes;
}

constexpr std::size_t stepsOf(std::size_t usable)  // rounded down: a block of this size has room for so many steps
{
  return (usable + sizeof(std::size_t)) / stepOfSizes;
}

constexpr std::size_t sizeOf(std::size_t steps)
{
  return steps * stepOfSizes - sizeof(std::size_t);
}

struct Block {
  Block* next;
};

struct List {
  Block* first;
  std::size_t room;  // bytes that may still join
};

/// The blocks that a thread keeps: for each size a list.
struct Kept {
  List lists[mostSteps + 1];
};

/// What every thread begins and ends with: nothing kept, and room for nothing.
constinit Kept nothing{};

// Two words of each thread. They have no destructor, since strings that end with the thread give blocks back after it.
// The library may be loaded late, but the room set aside for that is enough for so little; the address of anything else
// in a thread costs a call.
[[gnu::tls_model("initial-exec")]] constinit thread_local Kept* kept = &nothing;
[[gnu::tls_model("initial-exec")]] constinit thread_local bool hasTried = false;  // to make room

// ---- whether blocks may be kept ----

bool comesFrom(void* function, const char* library)
{
  Dl_info found;
  return dladdr(function, &found) != 0 && std::strstr(found.dli_fname, library) != nullptr;
}

bool isUsualHeap()
{
  void* (*const usualNew)(std::size_t) = ::operator new;
  return comesFrom(reinterpret_cast<void*>(usualNew), "/libstdc++.so") &&
         comesFrom(reinterpret_cast<void*>(&std::malloc), "/libc.so");
}

bool isWatched()
{
  const char* const preloaded = std::getenv("LD_PRELOAD");
  return preloaded != nullptr && std::strstr(preloaded, "vgpreload") != nullptr;
}

bool isForbidden()
{
  const char* const wish = std::getenv("QUELMCL_BLOCK_CACHE");
  return wish != nullptr && std::strcmp(wish, "off") == 0;
}

#ifdef NDEBUG
constexpr bool isForDebugging = false;
#else
constexpr bool isForDebugging = true;
#endif

bool mayKeepBlocks()
{
  return !isForDebugging && !isForbidden() && !isWatched() && isUsualHeap();
}

// ---- the end of a thread ----

void giveAllBack(void* ofThread) noexcept
{
  kept = &nothing;
  for (List& list : static_cast<Kept*>(ofThread)->lists)
    while (Block* const block = list.first) {
      list.first = block->next;
      ::operator delete(block);
    }
  std::free(ofThread);
}

/// The key whose value is given to giveAllBack() when a thread ends. Unlike a destructor of the thread, it costs
/// nothing that could fail.
struct EndOfThread {
  EndOfThread() : isUsable(mayKeepBlocks() && pthread_key_create(&key, giveAllBack) == 0) {}
  pthread_key_t key{};
  bool isUsable;
};

/// Makes lists for this thread, unless nothing may be kept.
void makeLists() noexcept
{
  static const EndOfThread end;
  void* const memory = end.isUsable ? std::malloc(sizeof(Kept)) : nullptr;
  if (memory == nullptr)
    return;
  if (pthread_setspecific(end.key, memory) != 0) {
    std::free(memory);
    return;
  }
  kept = new (memory) Kept;
  for (std::size_t steps = 0; steps <= mostSteps; ++steps)
    kept->lists[steps] = {nullptr, std::max(mostBytesOfList, steps * stepOfSizes)};
}

/// Where there is no room. The first block that a thread gives back comes here, too, and makes room for all others.
void giveToHeap(void* block) noexcept
{
  if (hasTried) {
    ::operator delete(block);
    return;
  }
  hasTried = true;
  const ErrnoGuard errnoAsItWas;
  makeLists();
  giveBlock(block);
}

}  // namespace

// ---- to and fro ----

void* takeBlock(std::size_t size)
{
  if (size > sizeOf(mostSteps))  // before anything is rounded, which would wrap for the longest texts
    return ::operator new(size);

  const std::size_t steps = stepsFor(size);
  List& list = kept->lists[steps];
  Block* const block = list.first;
  if (block == nullptr)
    return ::operator new(sizeOf(steps));
  list.first = block->next;
  list.room += steps * stepOfSizes;
  return block;
}

void giveBlock(void* block) noexcept
{
  const std::size_t steps = stepsOf(malloc_usable_size(block));
  List& list = kept->lists[std::min(steps, mostSteps)];
  if (list.room < steps * stepOfSizes || block == nullptr) {
    giveToHeap(block);
    return;
  }
  list.room -= steps * stepOfSizes;
  list.first = new (block) Block{list.first};
}

}  // namespace quelmcl::detail
