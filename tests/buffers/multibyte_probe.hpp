// multibyte_probe.hpp - buffers of the multi-byte kind in any locale, opened for tests.
#ifndef QUELMCL_TESTS_BUFFERS_MULTIBYTE_PROBE_HPP
#define QUELMCL_TESTS_BUFFERS_MULTIBYTE_PROBE_HPP

#include "support/expect_text.hpp"

#include <quelmcl/idbcsb.hpp>

#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <utility>

namespace buffertests {

constexpr unsigned largest = 4294967295u;

/// The bytes of a literal, NULs of its own included.
template <std::size_t Size>
std::string bytes(const char (&literal)[Size])
{
  return std::string(literal, Size - 1);
}

/// A multi-byte buffer of a text, with one reference of its own, whatever the locale; and what such buffers keep for
/// the library.
class Text {
public:
  explicit Text(const std::string& text)
    : buffer(static_cast<IDBCSBuffer*>(model()->allocate(static_cast<unsigned>(text.size()))))
  {
    text.copy(buffer->contents(), buffer->length());
  }
  ~Text() { buffer->removeRef(); }
  Text(const Text&) = delete;
  Text& operator=(const Text&) = delete;

  IDBCSBuffer* operator->() const { return buffer; }
  IDBCSBuffer* get() const { return buffer; }

  unsigned startSearch(unsigned startPos, unsigned length) const
  {
    return (buffer->*&Opened::startSearch)(startPos, length);
  }
  unsigned startBackwardsSearch(unsigned startPos, unsigned length) const
  {
    return (buffer->*&Opened::startBackwardsSearch)(startPos, length);
  }
  unsigned charLength(unsigned pos) const
  {
    unsigned (IDBCSBuffer::*const ofPosition)(unsigned) const = &Opened::charLength;
    return (buffer->*ofPosition)(pos);
  }
  unsigned prevCharLength(unsigned pos) const { return (buffer->*&Opened::prevCharLength)(pos); }
  int isCharValid(unsigned pos, const char* set, unsigned count) const
  {
    return (buffer->*&Opened::isCharValid)(pos, set, count);
  }

private:
  class Opened : public IDBCSBuffer {
  public:
    Opened() noexcept : IDBCSBuffer(0) {}
    using IDBCSBuffer::charLength;
    using IDBCSBuffer::isCharValid;
    using IDBCSBuffer::prevCharLength;
    using IDBCSBuffer::startBackwardsSearch;
    using IDBCSBuffer::startSearch;
  };

  /// Allocates the buffers of all texts, so that these are no derived class's.
  static const IDBCSBuffer* model()
  {
    static const IDBCSBuffer* const only = new (0) Opened;
    return only;
  }

  IDBCSBuffer* const buffer;
};

/// Owns the reference that comes with the result of an operation.
class Held {
public:
  explicit Held(IBuffer* result) : buffer(result) {}
  ~Held() { buffer->removeRef(); }
  Held(const Held&) = delete;
  Held& operator=(const Held&) = delete;

  IBuffer* operator->() const { return buffer; }
  IBuffer* get() const { return buffer; }

private:
  IBuffer* const buffer;
};

inline std::string bytesOf(const IBuffer* buffer)
{
  return std::string(buffer->contents(), buffer->length());
}

/// The bytes as they would be written in source code. (The standard library has a function `quoted` for strings, which
/// would be chosen for those that are not constant.)
inline std::string shown(const std::string& text)
{
  return quelmcl_test::quoted(text);
}

/// Asks any question about a byte, given as the number that a signed char is.
class Asks : public IStringTest {
public:
  explicit Asks(std::function<int(int)> askedQuestion) : IStringTest(user, nullptr), question(std::move(askedQuestion))
  {
  }
  int test(int character) const override { return question(character); }

private:
  std::function<int(int)> question;
};

}  // namespace buffertests

#endif
