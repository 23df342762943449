/// @file istrchar.hpp
/// A string as a range of characters: what IString::characters() gives.
///
///     for (const quelmcl::Character letter : IString("né").characters())
///       std::cout << letter.position() << ' ' << letter.length() << ' ' << letter.text() << '\n';   // 1 1 n, 2 2 é
///
/// Where characters begin and end is the rule of the string's buffer (docs/character-sets.md): in a process with
/// characters of one byte every byte is one; in the multi-byte kind the character set of the locale in force tells,
/// each time a step is made. A NUL byte, and a byte that begins no sound and complete character, is one by itself.
/// To count them, ask IString::numCharacters(), which does not go from one to the next.
#ifndef QUELMCL_ISTRCHAR_HPP
#define QUELMCL_ISTRCHAR_HPP

#include <quelmcl/istring.hpp>

#include <cstddef>
#if __cplusplus >= 201703L
#  include <string_view>
#else
#  include <array>  // for the tags of iterators; <iterator> costs three times as much
#endif

namespace quelmcl {

/// One character of a text: where it stands, how long it is, and its bytes. They belong to the range that it comes
/// from, and end with it.
class Character {
public:
  /// No character, or the one of `length` bytes at `begin`, before which `offset` bytes of the text stand.
  Character() noexcept : bytes(nullptr), bytesBefore(0), byteCount(0) {}
  Character(const char* begin, unsigned offset, unsigned length) noexcept
    : bytes(begin), bytesBefore(offset), byteCount(length)
  {
  }

  /// How many bytes of the text stand before it.
  unsigned offset() const noexcept { return bytesBefore; }
  /// Its position in an IString: offset() + 1.
  unsigned position() const noexcept { return bytesBefore + 1; }
  /// How many bytes it has, at least 1.
  unsigned length() const noexcept { return byteCount; }
  /// Its first byte; no NUL stands behind its last.
  const char* data() const noexcept { return bytes; }
  const char* begin() const noexcept { return bytes; }            ///< the same
  const char* end() const noexcept { return bytes + byteCount; }  ///< the place behind its last byte
  /// A string of this character alone. Cost: one allocation.
  IString text() const { return IString(bytes, byteCount); }
#ifdef __cpp_lib_string_view
  /// Its bytes.
  std::string_view view() const noexcept
  {
    return std::string_view(bytes, byteCount);
  }
#endif

private:
  const char* bytes;
  unsigned bytesBefore;
  unsigned byteCount;
};

/// The characters of a text, from the first to the last. It holds a copy of the string, which costs one increment: a
/// change to the string does not disturb a loop over its characters, and the string may be a temporary.
class Characters {
public:
  /// Goes from character to character. It can be copied, and each copy goes its own way; it ends with its range.
  class Iterator;
  using const_iterator = Iterator;  ///< the only kind
  using value_type = Character;     ///< what is gone through

  /// Those of that text.
  explicit Characters(const IString& text) noexcept : held(text) {}

  /// On the first character, or at the end when there is none.
  Iterator begin() const;
  /// Behind the last character.
  Iterator end() const noexcept;
  /// Whether there is none.
  bool empty() const noexcept { return held.length() == 0; }

private:
  IString held;
};

/// A place in a range of characters, or its end.
class Characters::Iterator {
public:
  /// What algorithms ask of an iterator.
  using iterator_category = std::input_iterator_tag;   // of C++17: what it gives is a value, no reference
  using iterator_concept = std::forward_iterator_tag;  // of C++20
  using value_type = Character;
  using difference_type = std::ptrdiff_t;
  using pointer = const Character*;
  using reference = Character;

  Iterator() noexcept : buffer(nullptr) {}

  /// The character that it stands on.
  Character operator*() const noexcept { return current; }
  /// What it points to ends with the iterator, or with its next step.
  const Character* operator->() const noexcept { return &current; }
  /// The next character. Cost: its bytes.
  Iterator& operator++()
  {
    standAt(current.offset() + current.length());
    return *this;
  }
  Iterator operator++(int)
  {
    const Iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const Iterator& left, const Iterator& right) noexcept
  {
    return left.current.data() == right.current.data();
  }
  friend bool operator!=(const Iterator& left, const Iterator& right) noexcept { return !(left == right); }

private:
  friend class Characters;
  Iterator(const IBuffer* text, unsigned offset) : buffer(text) { standAt(offset); }

  void standAt(unsigned offset)
  {
    const char* const here = buffer->contents() + offset;
    if (offset == buffer->length()) {
      current = Character(here, offset, 0);
      return;
    }
    // The single-byte kind answers with the very place that it was asked about.
    const std::ptrdiff_t step = buffer->next(here) - here;
    current = Character(here, offset, step == 0 ? 1u : static_cast<unsigned>(step));
  }

  const IBuffer* buffer;
  Character current;
};

inline Characters::Iterator Characters::begin() const
{
  return Iterator(IBuffer::fromContents(static_cast<const char*>(held)), 0);
}

inline Characters::Iterator Characters::end() const noexcept
{
  return Iterator(IBuffer::fromContents(static_cast<const char*>(held)), held.length());
}

}  // namespace quelmcl

inline quelmcl::Characters IString::characters() const noexcept
{
  return quelmcl::Characters(*this);
}

#endif
