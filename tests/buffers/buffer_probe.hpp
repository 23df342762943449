// buffer_probe.hpp - what the buffer tests work with: buffers of both kinds, references that are given back, arguments
// that end exactly where they say.
#ifndef QUELMCL_TESTS_BUFFERS_BUFFER_PROBE_HPP
#define QUELMCL_TESTS_BUFFERS_BUFFER_PROBE_HPP

#include <quelmcl/ibuffer.hpp>
#include <quelmcl/iexcbase.hpp>

#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

namespace buffertests {

constexpr unsigned largest = 4294967295u;
constexpr unsigned longestText = 4294967274u;
constexpr unsigned long tooLong = 1010;

/// The bytes of a literal, NULs of its own included.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size])
{
  return std::string(literal, Size - 1);
}

inline std::string bytesOf(const IBuffer& buffer)
{
  return std::string(buffer.contents(), buffer.length());
}

/// A buffer with the rules of the single-byte kind whatever the locale, since it allocates its like. Counts what is
/// made of it. It has no fields of its own: the text lies where they would.
class SingleByteBuffer : public IBuffer {
public:
  /// A buffer of that text with one reference; also for the empty text a buffer of its own, not the null buffer.
  static SingleByteBuffer* holding(const std::string& text)
  {
    const unsigned length = static_cast<unsigned>(text.size());
    SingleByteBuffer* const buffer = new (length) SingleByteBuffer(length);
    std::memcpy(buffer->contents(), text.data(), length);
    return buffer;
  }

  IBuffer* allocate(unsigned newLen) const override
  {
    ++allocations;
    return new (newLen) SingleByteBuffer(newLen);
  }

  using IBuffer::startBackwardsSearch;
  using IBuffer::startSearch;

  static inline int alive = 0;        ///< how many there are
  static inline int allocations = 0;  ///< how often allocate() was called

protected:
  explicit SingleByteBuffer(unsigned newLen) : IBuffer(newLen) { ++alive; }
  ~SingleByteBuffer() override { --alive; }
};

/// Owns one reference to a buffer.
class Owned {
public:
  explicit Owned(IBuffer* buffer) : held(buffer) {}
  ~Owned() { held->removeRef(); }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;

  IBuffer* get() const { return held; }
  IBuffer* operator->() const { return held; }
  IBuffer& operator*() const { return *held; }

private:
  IBuffer* const held;
};

/// A buffer of that text of the kind that this process has chosen, with one reference.
inline IBuffer* ofThisProcess(const std::string& text)
{
  return IBuffer::defaultBuffer()->newBuffer(text.data(), static_cast<unsigned>(text.size()), nullptr, 0, nullptr, 0,
                                             0);
}

inline bool localeIsMultiByte()
{
  return MB_CUR_MAX >= 2;
}

/// Bytes in a block that ends with them, without a NUL, so that a sanitizer sees who reads on.
class Exactly {
public:
  explicit Exactly(const std::string& text) : count(static_cast<unsigned>(text.size())), block(new char[text.size()])
  {
    std::memcpy(block.get(), text.data(), text.size());
  }
  const char* data() const { return block.get(); }
  unsigned size() const { return count; }

private:
  unsigned count;
  std::unique_ptr<char[]> block;
};

/// The error id of the IInvalidRequest that `action` throws; 0 when it throws none.
template <class Action>
unsigned long errorIdOf(Action action)
{
  try {
    action();
  } catch (const IInvalidRequest& failure) {
    return failure.errorId();
  }
  return 0;
}

}  // namespace buffertests

#endif
