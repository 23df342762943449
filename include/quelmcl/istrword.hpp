/// @file istrword.hpp
/// IWordList, all words of a text, found in one pass: the way to go over them.
///
///     const IWordList words("the quick  fox");
///     for (const IWordList::Word word : words)
///       std::cout << word.position() << ' ' << word.text() << '\n';    // 1 the, 5 quick, 12 fox
///     words.count();           // 3
///     words[2].length();       // 5
///
/// Words are those of IString::numWords and IString::word: what stands between white space, which is tab, line feed, vertical
/// tab, form feed, carriage return and blank in every locale; the string's buffer tells where characters of several bytes
/// stand. A list holds a copy of the string, which costs one increment, and in a block of its own 8 bytes a word, which
/// copies of the list share. Later changes to the string are not seen in it.
#ifndef QUELMCL_ISTRWORD_HPP
#define QUELMCL_ISTRWORD_HPP

#include <quelmcl/istring.hpp>

#include <cstddef>
#include <cstring>
#if __cplusplus >= 201703L
#  include <string_view>
#else
#  include <array>  // for the tags of iterators; <iterator> costs three times as much
#endif

/// The words of a text in order, counted from 1. The head of istrword.hpp tells more.
class QUELMCL_API IWordList {
public:
  class Word;
  class Iterator;
  using const_iterator = Iterator;  ///< the only kind
  using value_type = Word;          ///< what is gone through

  /// The words of that text. Cost: one pass to count them and one to note them; one allocation, none where there is no
  /// word. Throws IOutOfMemory (4), and IInvalidRequest (1010) for more than 536870910 words.
  explicit IWordList(const IString& text);

  /// The number of words: IString::numWords without looking at the text.
  unsigned count() const noexcept { return places.length() / bytesOfWord; }
  /// The number of words.
  unsigned size() const noexcept { return count(); }
  /// Whether there is none.
  bool empty() const noexcept { return places.length() == 0; }

  /// The word of that number, from 1 on. No word, at position 0 and of length 0, for any other number, 0 included.
  inline Word operator[](unsigned long wordNumber) const noexcept;

  /// On the first word, or at the end when there is none.
  inline Iterator begin() const noexcept;
  /// Behind the last word.
  inline Iterator end() const noexcept;

private:
  enum : unsigned { bytesOfWord = 2 * sizeof(unsigned) };

  IString held;
  IString places;  // not a text: for each word the offsets of its begin and of its end
};

/// One word of a list: where it stands, how long it is, and its bytes. They belong to the list and its copies, and end with
/// the last of them.
class IWordList::Word {
public:
  /// No word.
  Word() noexcept : bytes(nullptr), firstPosition(0), byteCount(0) {}

  /// Its position in the text, as IString::indexOfWord gives it; 0 for no word.
  unsigned position() const noexcept { return firstPosition; }
  /// How many bytes it has.
  unsigned length() const noexcept { return byteCount; }
  /// Its first byte; no NUL stands behind its last. Null for no word.
  const char* data() const noexcept { return bytes; }
  const char* begin() const noexcept { return bytes; }            ///< the same
  const char* end() const noexcept { return bytes + byteCount; }  ///< the place behind its last byte
  /// A string of this word alone, as IString::word gives it. Cost: one allocation.
  IString text() const { return IString(bytes, byteCount); }
#ifdef __cpp_lib_string_view
  /// Its bytes.
  std::string_view view() const noexcept
  {
    return std::string_view(bytes, byteCount);
  }
#endif

private:
  friend class IWordList;
  Word(const char* text, const char* place) noexcept
  {
    unsigned edges[2];  // of the word: its begin and its end
    std::memcpy(edges, place, sizeof edges);
    bytes = text + edges[0];
    firstPosition = edges[0] + 1;
    byteCount = edges[1] - edges[0];
  }

  const char* bytes;
  unsigned firstPosition;
  unsigned byteCount;
};

/// A place in a list, or its end. It ends with the list.
class IWordList::Iterator {
public:
  /// What `->` goes through.
  struct Pointer {
    Word word;                                                 ///< what is pointed to
    const Word* operator->() const noexcept { return &word; }  ///< its address
  };

  /// What algorithms ask of an iterator.
  using iterator_category = std::input_iterator_tag;   // of C++17: what it gives is a value, no reference
  using iterator_concept = std::forward_iterator_tag;  // of C++20
  using value_type = Word;
  using difference_type = std::ptrdiff_t;
  using pointer = Pointer;
  using reference = Word;

  Iterator() noexcept : text(nullptr), place(nullptr) {}

  /// The word that it stands on.
  Word operator*() const noexcept { return Word(text, place); }
  Pointer operator->() const noexcept { return Pointer{**this}; }
  /// The next word.
  Iterator& operator++() noexcept
  {
    place += bytesOfWord;
    return *this;
  }
  Iterator operator++(int) noexcept
  {
    const Iterator before = *this;
    ++*this;
    return before;
  }
  friend bool operator==(const Iterator& left, const Iterator& right) noexcept { return left.place == right.place; }
  friend bool operator!=(const Iterator& left, const Iterator& right) noexcept { return !(left == right); }

private:
  friend class IWordList;
  Iterator(const char* textOfList, const char* placeInList) noexcept : text(textOfList), place(placeInList) {}

  const char* text;
  const char* place;
};

inline IWordList::Word IWordList::operator[](unsigned long wordNumber) const noexcept
{
  if (wordNumber == 0 || wordNumber > count())
    return Word();
  return Word(static_cast<const char*>(held), static_cast<const char*>(places) + (wordNumber - 1) * bytesOfWord);
}

inline IWordList::Iterator IWordList::begin() const noexcept
{
  return Iterator(static_cast<const char*>(held), static_cast<const char*>(places));
}

inline IWordList::Iterator IWordList::end() const noexcept
{
  return Iterator(static_cast<const char*>(held), static_cast<const char*>(places) + places.length());
}

#endif
