// ibuffer0.cpp - IBuffer, life cycle: blocks, references, null buffers, the choice of the kind, length limits, debug
// text. (Digit 0 is always the life cycle: docs/architecture.md)
// Tests: tests/buffers/life_cycle_test.cpp
#include <quelmcl/ibuffer.hpp>
#include <quelmcl/idbcsb.hpp>
#include <quelmcl/istring.hpp>

#include "buffers/blocks.hpp"
#include "buffers/kinds.hpp"
#include "buffers/pieces.hpp"
#include "exceptions/throwing.hpp"
#include "foundation/address.hpp"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <sys/single_threaded.h>
#include <vector>

const char quelmcl::detail::singleByteKind[] = "IBuffer";

IBuffer* IBuffer::nullBuffer = nullptr;
IBuffer* IBuffer::nullIBuffer = nullptr;

namespace {

enum Message : unsigned long { lengthOverflow = 1010 };

using quelmcl::detail::longestText;

constexpr unsigned largestLength = 4294967295u;

bool localeIsMultiByte()
{
  return MB_CUR_MAX >= 2;
}

/// Publishes a null buffer that was made at its first need. The first one stands; a later one goes.
IBuffer* publishOnce(IBuffer*& place, IBuffer* made)
{
  IBuffer* first = nullptr;
  if (__atomic_compare_exchange_n(&place, &first, made, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE))
    return made;
  made->removeRef();
  return first;
}

/// Null buffers that setDefaultBuffer has replaced and that strings may still share. No list until there is one, and
/// the list is never destroyed, since strings may end after it.
std::vector<IBuffer*>* formerNullBuffers = nullptr;

void noteFormerNullBuffer(IBuffer* former)
{
  if (formerNullBuffers == nullptr)
    formerNullBuffers = new std::vector<IBuffer*>;
  const auto end = formerNullBuffers->end();
  if (std::find(formerNullBuffers->begin(), end, former) == end)
    formerNullBuffers->push_back(former);
}

/// Whether a buffer on which no reference is counted any more must stay because it was a null buffer. Threads count
/// on null buffers without a lock, so once there were threads a count of 0 does not prove that no string holds it.
bool mayStillBeHeld(IBuffer* uncounted)
{
  if (formerNullBuffers == nullptr)
    return false;
  const auto former = std::find(formerNullBuffers->begin(), formerNullBuffers->end(), uncounted);
  if (former == formerNullBuffers->end())
    return false;
  if (!__libc_single_threaded)
    return true;
  formerNullBuffers->erase(former);
  return false;
}

}  // namespace

// ---- blocks ----

IBuffer::IBuffer(unsigned newLen) noexcept : refs(1), len(newLen)
{
  contents()[newLen] = '\0';
}

IBuffer::~IBuffer() = default;

void* IBuffer::operator new(std::size_t size, unsigned newLen)
{
  static_assert(longestText <= SIZE_MAX - offsetOfText - 1,
                "the size of the longest text's block must not wrap around");
  if (newLen > longestText)
    overflow();
  return quelmcl::detail::takeBlock(std::max(size, offsetOfText + std::size_t{newLen} + 1));
}

void IBuffer::operator delete(void* block) noexcept
{
  quelmcl::detail::giveBlock(block);
}

IBuffer* IBuffer::allocate(unsigned newLen) const
{
  if (localeIsMultiByte())
    return new (newLen) IDBCSBuffer(newLen);
  return new (newLen) IBuffer(newLen);
}

const char* IBuffer::className() const
{
  return quelmcl::detail::singleByteKind;
}

IBuffer* IBuffer::newBuffer(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
                            char padCharacter) const
{
  const unsigned total = checkAddition(checkAddition(len1, len2), len3);
  if (total == 0)
    return null()->addRef();

  IBuffer* const result = allocate(total);
  char* const end = quelmcl::detail::writePiece(result->contents(), p1, len1, padCharacter);
  if (total != len1)
    quelmcl::detail::writePiece(quelmcl::detail::writePiece(end, p2, len2, padCharacter), p3, len3, padCharacter);
  return result;
}

// ---- null buffers ----

IBuffer* IBuffer::initialize()
{
  if (!localeIsMultiByte())
    return new (0u) IBuffer(0);
  if (__atomic_load_n(&nullIBuffer, __ATOMIC_ACQUIRE) == nullptr)
    publishOnce(nullIBuffer, new (0u) IBuffer(0));
  return new (0u) IDBCSBuffer(0);
}

IBuffer* IBuffer::defaultBuffer()
{
  if (IBuffer* const known = __atomic_load_n(&nullBuffer, __ATOMIC_ACQUIRE))
    return known;
  return publishOnce(nullBuffer, initialize());
}

IBuffer* IBuffer::null() const
{
  IBuffer* const standard = defaultBuffer();  // first, since it brings the single-byte null buffer along
  IBuffer* const singleByte = __atomic_load_n(&nullIBuffer, __ATOMIC_ACQUIRE);
  const bool isSingleByte = singleByte != nullptr && quelmcl::detail::areOfOneKind(*singleByte, *this);
  return isSingleByte ? singleByte : standard;
}

void IBuffer::setDefaultBuffer(IBuffer* newDefault)
{
  IBuffer* const former = __atomic_load_n(&nullBuffer, __ATOMIC_ACQUIRE);
  if (former != nullptr && former != newDefault)
    noteFormerNullBuffer(former);
  __atomic_store_n(&nullBuffer, newDefault, __ATOMIC_RELEASE);
  IString::setDefaultBuffer(newDefault->contents());
  if (former != nullptr)
    former->removeRef();
}

void IBuffer::release() noexcept
{
  const bool isNullBuffer =
    this == __atomic_load_n(&nullBuffer, __ATOMIC_RELAXED) || this == __atomic_load_n(&nullIBuffer, __ATOMIC_RELAXED);
  if (!isNullBuffer && !mayStillBeHeld(this))
    delete this;
}

// ---- length limits ----

unsigned IBuffer::checkAddition(unsigned a, unsigned b)
{
  if (a >= largestLength - b)
    overflow();
  return a + b;
}

unsigned IBuffer::checkMultiplication(unsigned a, unsigned b)
{
  if (a >= largestLength / b)
    overflow();
  return a * b;
}

void IBuffer::overflow()
{
  quelmcl::detail::throwInvalidRequest(lengthOverflow, IExceptionLocation("ibuffer0", nullptr, 557));
}

// ---- debug text ----

IString IBuffer::asDebugInfo() const
{
  constexpr unsigned shownWhole = 23;
  constexpr unsigned shownOfEachEnd = 10;
  const IString text =
    len > shownWhole ? IString(contents(), shownOfEachEnd, "...", 3, contents() + len - shownOfEachEnd, shownOfEachEnd)
                     : IString(contents());
  return className() + ("(@" + quelmcl::detail::decimalAddress(this)) + ",refs=" + IString(useCount()) +
         ",len=" + IString(len) + ",data=[" + text + "])";
}
