/// @file istrbld.hpp
/// IStringBuilder, a text that grows piece by piece and ends as an IString.
///
///     IStringBuilder report;
///     report.append("name=").append(name).append(", count=").append(42);
///     report.appendPadding(3, '.').append("done");
///     IString text = report.handOver();  // the bytes are not copied; the builder is empty again
///
/// An IString that grows by `+=` makes a new text each time, so n pieces cost n copies of what stands before them. A
/// builder keeps storage in reserve and doubles it when it is used up: each byte is copied about twice in all, however
/// many pieces it comes in.
///
/// **Ownership.** The builder alone owns the text it builds. handOver() gives that very block away, what it has in
/// reserve included, which is as much again at most; asString() makes a copy that fits. A builder that begins with a
/// string shares its text until the first change, so later changes of the builder are never seen through a string.
///
/// **Pointers** to the text live until the next change of the builder. Arguments may point into its own text; they are
/// read before it is let go. The text is always followed by a NUL and may hold NULs of its own.
///
/// **Failures.** IInvalidRequest 1010 when the text would be longer than 4294967274 bytes, IOutOfMemory 4 when the heap
/// is exhausted. The builder is then as it was before. Different builders may be used by different threads at once.
#ifndef QUELMCL_ISTRBLD_HPP
#define QUELMCL_ISTRBLD_HPP

#include <quelmcl/ibase.hpp>
#include <quelmcl/ibuffer.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrstd.hpp>

#include <cstddef>
#include <cstring>
#include <iosfwd>
#include <type_traits>
#include <utility>

/// A text that grows piece by piece and becomes a string without a copy. The head of istrbld.hpp tells more.
class QUELMCL_API IStringBuilder : public IBase {
public:
  /// @name Construction
  /// @{

  /// Empty; no storage is taken before the first piece.
  IStringBuilder() noexcept : textBegin(nullptr), textEnd(nullptr), blockEnd(nullptr) {}
  /// Begins with a text, or with anything else that a string can be made from: `IStringBuilder total("total: ")`. The
  /// text is shared until the first change. What is built has the kind of buffer that `start` has.
  explicit IStringBuilder(const IString& start) noexcept;
  /// A copy of the text, without the storage in reserve.
  IStringBuilder(const IStringBuilder& source) : IStringBuilder(source.asString()) {}
  /// Takes text and storage over; `source` is empty afterwards and can be used on.
  IStringBuilder(IStringBuilder&& source) noexcept
    : IBase(source), textBegin(source.textBegin), textEnd(source.textEnd), blockEnd(source.blockEnd)
  {
    source.forget();
  }
  ~IStringBuilder()
  {
    if (textBegin != nullptr)
      buffer()->removeRef();
  }
  IStringBuilder& operator=(const IStringBuilder& source)
  {
    if (this == &source)
      return *this;
    return *this = IStringBuilder(source);
  }
  IStringBuilder& operator=(IStringBuilder&& source) noexcept
  {
    IStringBuilder taken(std::move(source));
    std::swap(textBegin, taken.textBegin);
    std::swap(textEnd, taken.textEnd);
    std::swap(blockEnd, taken.blockEnd);
    return *this;
  }
  /// @}

  /// @name Appending
  /// Each appends what an IString made from the same arguments would hold, and returns this builder. Cost: the bytes
  /// appended, and now and then a copy of the text into a block of twice the size.
  /// @{

  /// `textLength` bytes from `text`, or that many pad characters when `text` is null.
  IStringBuilder& append(const void* text, unsigned textLength, char padCharacter = ' ')
  {
    if (text == nullptr || textLength >= room())
      return appendPieces(text, textLength, nullptr, 0, nullptr, 0, padCharacter);
    std::memcpy(textEnd, text, textLength);
    return endAt(textEnd + textLength);
  }
  /// Two pieces, one after the other, each as above.
  IStringBuilder& append(const void* p1, unsigned len1, const void* p2, unsigned len2, char padCharacter = ' ')
  {
    return appendPieces(p1, len1, p2, len2, nullptr, 0, padCharacter);
  }
  /// Three pieces, one after the other, each as above.
  IStringBuilder& append(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
                         char padCharacter = ' ')
  {
    return appendPieces(p1, len1, p2, len2, p3, len3, padCharacter);
  }

  // The same for lengths of more bits, such as a 64-bit size_t: what no string can hold is refused (1010), never cut.
  template <class Length, class = typename std::enable_if<quelmcl::detail::IsWideLength<Length>::value>::type>
  IStringBuilder& append(const void* text, Length textLength, char padCharacter = ' ')
  {
    return append(text, quelmcl::detail::checkedLength(textLength), padCharacter);
  }
  template <class Length1, class Length2,
            class = typename std::enable_if<quelmcl::detail::IsWideLength<Length1>::value ||
                                            quelmcl::detail::IsWideLength<Length2>::value>::type>
  IStringBuilder& append(const void* p1, Length1 len1, const void* p2, Length2 len2, char padCharacter = ' ')
  {
    return append(p1, quelmcl::detail::checkedLength(len1), p2, quelmcl::detail::checkedLength(len2), padCharacter);
  }
  template <class Length1, class Length2, class Length3,
            class = typename std::enable_if<quelmcl::detail::IsWideLength<Length1>::value ||
                                            quelmcl::detail::IsWideLength<Length2>::value ||
                                            quelmcl::detail::IsWideLength<Length3>::value>::type>
  IStringBuilder& append(const void* p1, Length1 len1, const void* p2, Length2 len2, const void* p3, Length3 len3,
                         char padCharacter = ' ')
  {
    return append(p1, quelmcl::detail::checkedLength(len1), p2, quelmcl::detail::checkedLength(len2), p3,
                  quelmcl::detail::checkedLength(len3), padCharacter);
  }

  IStringBuilder& append(const IString& text) { return append(static_cast<const char*>(text), text.length()); }
  IStringBuilder& append(const IStringBuilder& other) { return append(other.text(), other.length()); }
  /// A std::string, a std::string_view, or one of their kind: all of it, NULs included.
  template <class Text>
  typename std::enable_if<quelmcl::detail::IsStandardText<Text>::value, IStringBuilder&>::type append(const Text& text)
  {
    return append(text.data(), text.size());
  }
  /// The bytes up to the first NUL; nothing for a null pointer.
  IStringBuilder& append(const char* text)
  {
    return text == nullptr ? *this : append(text, quelmcl::detail::checkedLength(std::strlen(text)));
  }
  IStringBuilder& append(const unsigned char* text) { return append(reinterpret_cast<const char*>(text)); }
  IStringBuilder& append(const signed char* text) { return append(reinterpret_cast<const char*>(text)); }
  /// Nothing.
  IStringBuilder& append(std::nullptr_t) noexcept { return *this; }

  /// The one byte.
  IStringBuilder& append(char character)
  {
    if (room() < 2)
      return appendPieces(&character, 1, nullptr, 0, nullptr, 0, ' ');
    *textEnd = character;
    return endAt(textEnd + 1);
  }
  IStringBuilder& append(unsigned char character) { return append(static_cast<char>(character)); }
  IStringBuilder& append(signed char character) { return append(static_cast<char>(character)); }

  /// The number in decimal digits; a double with up to 15 significant ones and the decimal point of the locale.
  IStringBuilder& append(int number) { return append(static_cast<long>(number)); }
  IStringBuilder& append(unsigned number) { return append(static_cast<unsigned long>(number)); }
  IStringBuilder& append(short number) { return append(static_cast<long>(number)); }
  IStringBuilder& append(unsigned short number) { return append(static_cast<unsigned long>(number)); }
  IStringBuilder& append(long number);
  IStringBuilder& append(unsigned long number);
  IStringBuilder& append(long long number);
  IStringBuilder& append(unsigned long long number);
  IStringBuilder& append(double number);

  /// `count` pad characters.
  IStringBuilder& appendPadding(unsigned count, char padCharacter = ' ')
  {
    return appendPieces(nullptr, count, nullptr, 0, nullptr, 0, padCharacter);
  }
  template <class Length, class = typename std::enable_if<quelmcl::detail::IsWideLength<Length>::value>::type>
  IStringBuilder& appendPadding(Length count, char padCharacter = ' ')
  {
    return appendPadding(quelmcl::detail::checkedLength(count), padCharacter);
  }

  /// What append() of the same piece does. Unlike that of a string, `+= 0` appends the digit.
  template <class Piece>
  auto operator+=(const Piece& piece) -> decltype(this->append(piece))
  {
    return append(piece);
  }
  /// @}

  /// @name Access
  /// @{

  /// The text, followed by a NUL; "" while there is none. Lives until the next change.
  const char* text() const noexcept { return textBegin == nullptr ? "" : textBegin; }
  const char* begin() const noexcept { return text(); }           ///< the first byte
  const char* end() const noexcept { return text() + length(); }  ///< the place after the last one
  /// The number of bytes.
  unsigned length() const noexcept { return static_cast<unsigned>(textEnd - textBegin); }
  /// The number of bytes.
  unsigned size() const noexcept { return length(); }
  /// How long the text can become before storage is taken again.
  unsigned capacity() const noexcept { return ownsText() ? static_cast<unsigned>(blockEnd - textBegin) - 1 : length(); }
  /// @}

  /// @name Changing all of it
  /// @{

  /// Sees to it that the text can become `newCapacity` bytes long without taking storage again, and takes exactly that
  /// much if it must. For a text whose length is known beforehand this saves every copy and all reserve.
  IStringBuilder& reserve(unsigned newCapacity);
  /// Removes the end: what is left are the first `newLength` bytes. Nothing when the text is no longer than that. The
  /// storage stays.
  IStringBuilder& truncate(unsigned newLength);
  /// Removes everything. The storage stays, for the next text.
  IStringBuilder& clear() noexcept;
  /// @}

  /// @name The text as a string
  /// @{

  /// The text as a string, its block handed over as it is: nothing is copied, nor allocated. Afterwards the builder is
  /// empty, without storage. While it is empty it gives the empty string and keeps its storage.
  IString handOver();
  /// A copy of the text. One allocation, one copy; none when empty or shared.
  IString asString() const;
  /// "IStringBuilder(@", this object's address in decimal digits, ",length=", ",capacity=", ")".
  IString asDebugInfo() const;
  /// @}

private:
  IBuffer* buffer() const noexcept { return IBuffer::fromContents(textBegin); }
  /// Whether the bytes may be written. A block of one's own has a place for the NUL at the least.
  bool ownsText() const noexcept { return textEnd != blockEnd; }
  /// The bytes that can be written, that of the NUL included: none without a block of one's own.
  std::size_t room() const noexcept { return static_cast<std::size_t>(blockEnd - textEnd); }
  IStringBuilder& endAt(char* newEnd) noexcept
  {
    textEnd = newEnd;
    *newEnd = '\0';
    return *this;
  }
  void forget() noexcept { textBegin = textEnd = blockEnd = nullptr; }

  IStringBuilder& appendPieces(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3,
                               unsigned len3, char padCharacter);
  IBuffer* blockBeginningWith(unsigned kept, unsigned newCapacity) const;
  void hold(IBuffer* block, char* newEnd) noexcept;

  char* textBegin;  // null, or the text of a buffer on which a reference is held
  char* textEnd;
  char* blockEnd;  // behind the place of the last possible NUL; the text's end when the buffer is shared
};

/// Writes the text up to its first NUL byte, as the stream writes a C text: width and fill are obeyed.
QUELMCL_API std::ostream& operator<<(std::ostream& aStream, const IStringBuilder& builder);

#endif
