/// @file istring.hpp
/// IString, the text value: reference-counted, copy-on-write, with operations to search, edit, split and compare
/// texts.
///
///     IString line("  alpha beta\tgamma  ");
///     line.numWords();                          // 3
///     line.word(2);                             // "beta"
///     line.indexOf("beta");                     // 9, counting from 1
///     line.strip().change("a", "A").space();    // "AlphA betA gAmmA": editing operations change the string and chain
///     IString::upperCase(line);                 // their static forms leave it alone and return a changed copy
///
/// **Positions** are bytes counted from 1 and 32 bits wide on every target. As a result 0 means "none". Positions and
/// lengths out of range are no errors: they are clamped, padded, or give 0 or the empty string, as each operation
/// says. The one exception is reading a single byte past the end.
///
/// **Sharing.** A string is one pointer to a shared buffer. Copying costs one increment, whatever the length; the
/// text is copied when one of the sharers changes. Strings that share no text may be used by different threads at
/// once, empty ones included; strings that were copied from one another need the caller's lock. `IString mine((const
/// char*)theirs, theirs.length())` is a private copy to hand to another thread.
///
/// **Pointers** to the text live until the string changes or ends. Arguments may point into the text of the string
/// that is being changed; they are read to the end before it is let go.
///
/// **Texts** may hold NUL bytes; only what takes a NUL-terminated `const char*` stops at one. A null `const char*` is
/// the empty text everywhere.
///
/// **Failures.** IInvalidRequest 1010 when a result would be longer than 4294967274 bytes, IOutOfMemory 4
/// when the heap is exhausted. The string is then as it was before; only stream input may leave it shortened.
#ifndef QUELMCL_ISTRING_HPP
#define QUELMCL_ISTRING_HPP

#include <quelmcl/ibase.hpp>
#include <quelmcl/ibuffer.hpp>
#include <quelmcl/istrenum.hpp>
#include <quelmcl/istrstd.hpp>
#include <quelmcl/istrtest.hpp>

#include <cstddef>
#include <iosfwd>
#include <type_traits>

/// Programs that define QUELMCL_EXPLICIT_POINTERS before they include this header must ask for the pointer to a text,
/// as in `static_cast<const char*>(text)`; nothing becomes one by itself. The library and its binary interface are the
/// same either way.
#ifdef QUELMCL_EXPLICIT_POINTERS
#  define QUELMCL_POINTER_CONVERSION explicit
#else
#  define QUELMCL_POINTER_CONVERSION
#endif

namespace quelmcl {

class Characters;

namespace detail {

/// The largest length or count: "all of it" as a default argument.
enum : unsigned { allOfIt = 4294967295u };

/// Chooses the overloads for lengths of more bits than a string's own, which are checked before they are used.
template <class Length>
struct IsWideLength
  : std::integral_constant<bool, std::is_integral<Length>::value && (sizeof(Length) > sizeof(unsigned))> {
};

/// `length` as a string's length. Throws IInvalidRequest 1010 when it does not fit, rather than cutting it.
template <class Length>
unsigned checkedLength(Length length)
{
  const unsigned asStringLength = static_cast<unsigned>(length);
  if (static_cast<Length>(asStringLength) != length)
    IBuffer::overflow();
  return asStringLength;
}

}  // namespace detail
}  // namespace quelmcl

/// A text that copies share until one of them changes. The head of istring.hpp tells of sharing, pointers and threads.
class QUELMCL_API IString : public IBase {
public:
  /// The bit operators, for applyBitOp.
  enum BitOperator { bitAnd = 0, bitOr = 1, bitExclusiveOr = 2 };
  /// What findPhrase reports: the position of a character or the number of a word.
  enum IndexType { charIndex = 0, wordIndex = 1 };

  static const char* const null;     ///< the empty text ""
  static const char* const zero;     ///< the text "0"
  static const char* const maxLong;  ///< the text "2147483647L", with its letter

  /// @name Construction
  /// A number becomes its decimal text (a double with up to 15 significant digits, as "%.15g" prints it in the locale
  /// in force), a character a text of one byte, a pointer the bytes up to its first NUL. Cost: one allocation, none
  /// for the empty text.
  /// @{
  IString();
  IString(const IString& source) noexcept : IBase(source), pBuffer(source.pBuffer) { buffer()->addRef(); }
  /// Takes the text over; `source` is the empty string afterwards and can be used on.
  IString(IString&& source) noexcept : IBase(source), pBuffer(source.pBuffer) { source.pBuffer = emptyText(); }

  IString(std::nullptr_t);
  IString(int number);
  IString(unsigned number);
  IString(long number);
  IString(unsigned long number);
  IString(short number);
  IString(unsigned short number);
  IString(long long number);
  IString(unsigned long long number);
  IString(double number);
  IString(char character);
  IString(unsigned char character);
  IString(signed char character);
  IString(const char* text);
  IString(const unsigned char* text);
  IString(const signed char* text);
  /// All bytes of a std::string or std::string_view. Explicit, because comparisons of these types with C texts would
  /// otherwise be ambiguous wherever this header is included.
  template <class Text, class = quelmcl::detail::ForStandardText<Text, void>>
  explicit IString(const Text& text) : IString(text.data(), text.size())
  {
  }

  /// `len1` bytes from `p1`, or that many pad characters when `p1` is null; NUL bytes are bytes like any other.
  IString(const void* p1, unsigned len1, char padCharacter = ' ');
  /// Two pieces, one after the other, each as above.
  IString(const void* p1, unsigned len1, const void* p2, unsigned len2, char padCharacter = ' ');
  /// Three pieces, one after the other, each as above.
  IString(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
          char padCharacter = ' ');

  // The same for lengths of more bits, such as a 64-bit size_t: what no string can hold is refused (1010), never cut.
  template <class Length, class = typename std::enable_if<quelmcl::detail::IsWideLength<Length>::value>::type>
  IString(const void* p1, Length len1, char padCharacter = ' ')
    : IString(p1, quelmcl::detail::checkedLength(len1), padCharacter)
  {
  }
  template <class Length1, class Length2,
            class = typename std::enable_if<quelmcl::detail::IsWideLength<Length1>::value ||
                                            quelmcl::detail::IsWideLength<Length2>::value>::type>
  IString(const void* p1, Length1 len1, const void* p2, Length2 len2, char padCharacter = ' ')
    : IString(p1, quelmcl::detail::checkedLength(len1), p2, quelmcl::detail::checkedLength(len2), padCharacter)
  {
  }
  template <class Length1, class Length2, class Length3,
            class = typename std::enable_if<quelmcl::detail::IsWideLength<Length1>::value ||
                                            quelmcl::detail::IsWideLength<Length2>::value ||
                                            quelmcl::detail::IsWideLength<Length3>::value>::type>
  IString(const void* p1, Length1 len1, const void* p2, Length2 len2, const void* p3, Length3 len3,
          char padCharacter = ' ')
    : IString(p1, quelmcl::detail::checkedLength(len1), p2, quelmcl::detail::checkedLength(len2), p3,
              quelmcl::detail::checkedLength(len3), padCharacter)
  {
  }

  ~IString()
  {
    buffer()->removeRef();
    pBuffer = nullptr;
  }

  /// Shares the text of `source`. Anything a string can be made from can be assigned.
  IString& operator=(const IString& source) noexcept
  {
    source.buffer()->addRef();
    buffer()->removeRef();
    pBuffer = source.pBuffer;
    return *this;
  }
  /// Takes the text of `source` over; `source` is the empty string afterwards and can be used on.
  IString& operator=(IString&& source) noexcept
  {
    if (this == &source)
      return *this;
    buffer()->removeRef();
    pBuffer = source.pBuffer;
    source.pBuffer = emptyText();
    return *this;
  }
  /// Takes all bytes of a std::string or std::string_view.
  template <class Text>
  quelmcl::detail::ForStandardText<Text, IString&> operator=(const Text& text)
  {
    return *this = IString(text);
  }
  /// @}

  /// @name Access
  /// @{

  /// The text, followed by a NUL; it may hold NULs of its own, so measure it with length(). The pointer belongs to
  /// this string and ends with its next change, assignment or destruction. Never write through it: other strings may
  /// share these bytes.
  QUELMCL_POINTER_CONVERSION operator char*() const noexcept { return pBuffer; }
  /// The same, as unsigned bytes.
  QUELMCL_POINTER_CONVERSION operator unsigned char*() const noexcept
  {
    return reinterpret_cast<unsigned char*>(pBuffer);
  }
  /// The same, as signed bytes.
  QUELMCL_POINTER_CONVERSION operator signed char*() const noexcept { return reinterpret_cast<signed char*>(pBuffer); }

  /// The whole text, NUL bytes included, as any type that is made from a pointer and a length:
  /// `text.as<std::string>()`. (`std::string(text)` goes through the pointer and ends at the first NUL.)
  template <class Text>
  Text as() const
  {
    return Text(static_cast<const char*>(pBuffer), std::size_t{length()});
  }

  /// The number of bytes.
  unsigned length() const noexcept { return buffer()->length(); }
  /// The number of bytes.
  unsigned size() const noexcept { return buffer()->length(); }

  /// The decimal number at the front of the text, after white space; what follows it is ignored. 0 when there is
  /// none, the nearest value of the type when it does not fit (a negative number is 0 for asUnsigned).
  long asInt() const;
  /// The same for a number without a sign.
  unsigned long asUnsigned() const;
  /// The same for a number with a fraction. The decimal point is the locale's; numbers too large are infinite.
  double asDouble() const;

  /// A copy.
  IString asString() const { return *this; }
  /// "IString(@", this object's address in decimal digits, ",pBuffer->", the buffer's own debug text, ")".
  IString asDebugInfo() const;

  /// The byte at `pos`, 0 meaning 1, to read. Throws IInvalidRequest 1011 past the end and for a negative position.
  const char& operator[](unsigned pos) const;
  const char& operator[](int pos) const;
  const char& operator[](unsigned long pos) const;
  const char& operator[](long pos) const;
  /// The byte at `pos`, 0 meaning 1, to write. The string takes a private copy of its text first when it is shared,
  /// and becomes longer, by blanks, when `pos` is past its end. Throws IInvalidRequest 1011 for a negative position.
  /// The reference ends with the next change; a string copied from this one meanwhile would change with it.
  char& operator[](unsigned pos);
  char& operator[](int pos);
  char& operator[](unsigned long pos);
  char& operator[](long pos);

  /// From `startPos` to the end; empty when it is past the end. Deliberate: from 0 it is the whole text and one blank.
  IString subString(unsigned startPos) const;
  /// Exactly `len` bytes from `startPos` on (0 means 1), filled with `padCharacter` where the text has ended: a start
  /// past the end gives `len` pad characters, a `len` of 0 the empty string. One allocation, one copy; none when
  /// empty.
  IString subString(unsigned startPos, unsigned len, char padCharacter = ' ') const;
  /// @}

  /// @name Iteration
  /// Over the bytes, each once, NUL bytes included. They are for reading, so that no loop gives the string a private
  /// copy of a shared text; they live as the pointers do.
  /// @{
  using value_type = char;
  using const_iterator = const char*;
  const char* begin() const noexcept { return pBuffer; }
  const char* end() const noexcept { return pBuffer + length(); }
  const char* cbegin() const noexcept { return begin(); }
  const char* cend() const noexcept { return end(); }
  /// The range of the characters, each of one or several bytes. Include istrchar.hpp (or quelmcl.hpp) to use it.
  inline quelmcl::Characters characters() const noexcept;
  /// How many characters there are, as many as characters() would go through. Cost: in UTF-8 one pass by vectors of bytes, in
  /// the single-byte kind nothing.
  unsigned numCharacters() const;
  /// @}

  /// @name Questions about the whole text
  /// Truth values. Those about a class of characters ask the C library under the locale in force and are 0 for the
  /// empty text.
  /// @{
  int isAlphanumeric() const;  ///< letters and digits only
  int isAlphabetic() const;    ///< letters only
  int isASCII() const;         ///< bytes below 0x80 only
  int isControl() const;       ///< control characters only
  int isDigits() const;        ///< decimal digits only
  int isGraphics() const;      ///< visible characters only
  int isHexDigits() const;     ///< hexadecimal digits only
  int isLowerCase() const;     ///< lower-case letters only
  int isPrintable() const;     ///< visible characters and blanks only
  int isPunctuation() const;   ///< punctuation only
  int isUpperCase() const;     ///< upper-case letters only
  int isWhiteSpace() const;    ///< white space only
  int isBinaryDigits() const;  ///< the digits 0 and 1 only

  int isMBCS() const;        ///< every character has several bytes
  int isDBCS() const;        ///< the same
  int isSBCS() const;        ///< every character has one byte
  int isValidMBCS() const;   ///< every character is a sound one of several bytes; always so in the single-byte kind
  int isValidDBCS() const;   ///< the same
  int includesMBCS() const;  ///< some character has several bytes
  int includesDBCS() const;  ///< the same
  int includesSBCS() const;  ///< not all characters have several bytes
  /// What the byte at `pos` (1 to length) is.
  IStringEnum::CharType charType(unsigned pos) const;

  /// Whether the whole text matches a pattern in which `zeroOrMore` stands for any bytes, also none, and `anyChar`
  /// for exactly one. A text equal to the pattern always matches. Cost: in practice the text once, at worst text
  /// times pattern.
  int isLike(const IString& aPattern, char zeroOrMore = '*', char anyChar = '?') const;
  int isLike(const char* pPattern, char zeroOrMore = '*', char anyChar = '?') const;

  /// Whether this text is the beginning of the full one and at least `minLen` bytes long (0: any length, also none).
  int isAbbreviationFor(const IString& fullString, unsigned minLen = 0) const;
  int isAbbreviationFor(const char* pFullString, unsigned minLen = 0) const;
  /// @}

  /// @name Searching
  /// The position of what is sought, or 0. A forward search begins at `startPos` (0 means 1), a backward one ends no
  /// later than there (from 0 it finds nothing; past the end means the end). What is sought is a text, one byte, the
  /// bytes of a set, or what passes a test. The empty text and members of an empty set are never found. No
  /// allocation; linear in the text, whatever it is.
  /// @{
  unsigned indexOf(const IString& aString, unsigned startPos = 1) const;
  unsigned indexOf(const char* pString, unsigned startPos = 1) const;
  unsigned indexOf(char aCharacter, unsigned startPos = 1) const;
  unsigned indexOf(const IStringTest& aTest, unsigned startPos = 1) const;
  // One byte is a character: the rules for those of several bytes look at a NUL behind it, which a view need not have.
  template <class Text>
  quelmcl::detail::ForStandardText<Text, unsigned> indexOf(const Text& text, unsigned startPos = 1) const
  {
    return text.size() == 1 ? indexOf(*text.data(), startPos)
                            : buffer()->indexOf(text.data(), quelmcl::detail::checkedLength(text.size()), startPos);
  }

  /// The first byte that is not in the set, is not the character, or fails the test.
  unsigned indexOfAnyBut(const IString& validChars, unsigned startPos = 1) const;
  unsigned indexOfAnyBut(const char* pValidChars, unsigned startPos = 1) const;
  unsigned indexOfAnyBut(char validChar, unsigned startPos = 1) const;
  unsigned indexOfAnyBut(const IStringTest& aTest, unsigned startPos = 1) const;

  /// The first byte that is in the set, is the character, or passes the test.
  unsigned indexOfAnyOf(const IString& searchChars, unsigned startPos = 1) const;
  unsigned indexOfAnyOf(const char* pSearchChars, unsigned startPos = 1) const;
  unsigned indexOfAnyOf(char searchChar, unsigned startPos = 1) const;
  unsigned indexOfAnyOf(const IStringTest& aTest, unsigned startPos = 1) const;

  /// The last occurrence that begins at or before `startPos`.
  unsigned lastIndexOf(const IString& aString, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOf(const char* pString, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOf(char aCharacter, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOf(const IStringTest& aTest, unsigned startPos = quelmcl::detail::allOfIt) const;
  template <class Text>
  quelmcl::detail::ForStandardText<Text, unsigned> lastIndexOf(const Text& text,
                                                               unsigned startPos = quelmcl::detail::allOfIt) const
  {
    return text.size() == 1 ? lastIndexOf(*text.data(), startPos)
                            : buffer()->lastIndexOf(text.data(), quelmcl::detail::checkedLength(text.size()), startPos);
  }

  /// The last byte at or before `startPos` that is not in the set, is not the character, or fails the test.
  unsigned lastIndexOfAnyBut(const IString& validChars, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOfAnyBut(const char* pValidChars, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOfAnyBut(char validChar, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOfAnyBut(const IStringTest& aTest, unsigned startPos = quelmcl::detail::allOfIt) const;

  /// The last byte at or before `startPos` that is in the set, is the character, or passes the test.
  unsigned lastIndexOfAnyOf(const IString& searchChars, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOfAnyOf(const char* pSearchChars, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOfAnyOf(char searchChar, unsigned startPos = quelmcl::detail::allOfIt) const;
  unsigned lastIndexOfAnyOf(const IStringTest& aTest, unsigned startPos = quelmcl::detail::allOfIt) const;

  /// How often the text occurs from `startPos` on, occurrences not overlapping; or how many bytes pass, or are the
  /// character; in the multi-byte kind, how many characters begin with it.
  unsigned occurrencesOf(const IString& aString, unsigned startPos = 1) const;
  unsigned occurrencesOf(const char* pString, unsigned startPos = 1) const;
  unsigned occurrencesOf(char aCharacter, unsigned startPos = 1) const;
  unsigned occurrencesOf(const IStringTest& aTest, unsigned startPos = 1) const;
  template <class Text>
  quelmcl::detail::ForStandardText<Text, unsigned> occurrencesOf(const Text& text, unsigned startPos = 1) const
  {
    return text.size() == 1 ? occurrencesOf(*text.data(), startPos)
                            : occurrencesOf(text.data(), quelmcl::detail::checkedLength(text.size()), startPos);
  }
  /// @}

  /// @name Editing
  /// Each changes this string and returns it. A result equal to the old text costs nothing; otherwise the cost is one
  /// allocation and one copy of the result, and a text that is not shared is edited in place where its length stays:
  /// case mapping, reversal, translation, changes of equal length. The static forms leave their argument alone and
  /// return a changed copy; they take every text as an IString, so literals do, too.
  /// @{

  /// Puts the text in the middle of `newLength` bytes, between pad characters or with both ends cut; what cannot be
  /// shared out equally is added or cut on the right.
  IString& center(unsigned newLength, char padCharacter = ' ');

  /// Replaces occurrences of the pattern, from `startPos` on (0 means 1), `numChanges` of them at most. They do not
  /// overlap, and replacements are not searched again. An empty pattern changes nothing. Linear in the text and the
  /// result.
  IString& change(const IString& pattern, const IString& replacement, unsigned startPos = 1,
                  unsigned numChanges = quelmcl::detail::allOfIt);
  IString& change(const IString& pattern, const char* pReplacement, unsigned startPos = 1,
                  unsigned numChanges = quelmcl::detail::allOfIt);
  IString& change(const char* pPattern, const IString& replacement, unsigned startPos = 1,
                  unsigned numChanges = quelmcl::detail::allOfIt);
  IString& change(const char* pPattern, const char* pReplacement, unsigned startPos = 1,
                  unsigned numChanges = quelmcl::detail::allOfIt);

  /// Makes the text `numCopies` times itself; 0 empties it.
  IString& copy(unsigned numCopies);

  /// Inserts after position `index` (0: at the front). Past the end the text is first filled up to `index` with pad
  /// characters.
  IString& insert(const IString& aString, unsigned index = 0, char padCharacter = ' ');
  IString& insert(const char* pString, unsigned index = 0, char padCharacter = ' ');

  /// Makes the text `newLength` bytes long, adding pad characters or cutting on the right.
  IString& leftJustify(unsigned newLength, char padCharacter = ' ');
  /// Makes the letters A to Z small; bytes above 0x7F stay, whatever the locale.
  IString& lowerCase();

  /// Writes over the text from `index` on (0 means 1), beyond its end if need be. Past the end the text is first
  /// filled up to `index` - 1 with pad characters.
  IString& overlayWith(const IString& aString, unsigned index = 1, char padCharacter = ' ');
  IString& overlayWith(const char* pString, unsigned index = 1, char padCharacter = ' ');

  /// Removes everything from `startPos` on (0 means 1).
  IString& remove(unsigned startPos);
  /// Removes `numChars` bytes from `startPos` on (0 means 1), or as many as there are.
  IString& remove(unsigned startPos, unsigned numChars);

  /// Turns the order of the characters around.
  IString& reverse();
  /// Makes the text `newLength` bytes long, adding pad characters or cutting on the left.
  IString& rightJustify(unsigned newLength, char padCharacter = ' ');

  /// Removes from the ends that `mode` names all that is white space (isspace), is the character, is in the set, or
  /// passes the test. A set held in an IString needs its mode: `s.strip(set)` would be the static form, of which the
  /// compiler warns.
  IString& strip();
  IString& strip(char aCharacter, IStringEnum::StripMode mode = IStringEnum::both);
  IString& strip(const IString& characters, IStringEnum::StripMode mode);
  IString& strip(const char* pCharacters, IStringEnum::StripMode mode = IStringEnum::both);
  IString& strip(const IStringTest& aTest, IStringEnum::StripMode mode = IStringEnum::both);
  /// strip() at the front only. For a set held in an IString write `strip(set, IStringEnum::leading)`.
  IString& stripLeading();
  IString& stripLeading(char aCharacter);
  IString& stripLeading(const char* pCharacters);
  IString& stripLeading(const IStringTest& aTest);
  /// strip() at the end only. For a set held in an IString write `strip(set, IStringEnum::trailing)`.
  IString& stripTrailing();
  IString& stripTrailing(char aCharacter);
  IString& stripTrailing(const char* pCharacters);
  IString& stripTrailing(const IStringTest& aTest);

  /// Replaces every byte that is in the input list by the byte at the same place of the output list, or by the pad
  /// character where that list is shorter. If a byte is listed twice, its first place counts. In the multi-byte kind
  /// the lists are of characters, always a new buffer is made, and a text that would become shorter by it is refused
  /// with IInvalidRequest (1010).
  IString& translate(const IString& inputChars, const IString& outputChars, char padCharacter = ' ');
  IString& translate(const IString& inputChars, const char* pOutputChars, char padCharacter = ' ');
  IString& translate(const char* pInputChars, const IString& outputChars, char padCharacter = ' ');
  IString& translate(const char* pInputChars, const char* pOutputChars, char padCharacter = ' ');

  /// Makes the letters a to z capital; bytes above 0x7F stay, whatever the locale.
  IString& upperCase();

  QUELMCL_NODISCARD static IString center(const IString& aString, unsigned newLength, char padCharacter = ' ');
  QUELMCL_NODISCARD static IString change(const IString& aString, const IString& pattern, const IString& replacement,
                                          unsigned startPos = 1, unsigned numChanges = quelmcl::detail::allOfIt);
  QUELMCL_NODISCARD static IString copy(const IString& aString, unsigned numCopies);
  QUELMCL_NODISCARD static IString insert(const IString& aString, const IString& anInsert, unsigned index = 0,
                                          char padCharacter = ' ');
  QUELMCL_NODISCARD static IString leftJustify(const IString& aString, unsigned newLength, char padCharacter = ' ');
  QUELMCL_NODISCARD static IString lowerCase(const IString& aString);
  QUELMCL_NODISCARD static IString overlayWith(const IString& aString, const IString& anOverlay, unsigned index = 1,
                                               char padCharacter = ' ');
  QUELMCL_NODISCARD static IString remove(const IString& aString, unsigned startPos);
  QUELMCL_NODISCARD static IString remove(const IString& aString, unsigned startPos, unsigned numChars);
  QUELMCL_NODISCARD static IString reverse(const IString& aString);
  QUELMCL_NODISCARD static IString rightJustify(const IString& aString, unsigned newLength, char padCharacter = ' ');
  QUELMCL_NODISCARD static IString strip(const IString& aString);
  QUELMCL_NODISCARD static IString strip(const IString& aString, const IString& characters,
                                         IStringEnum::StripMode mode = IStringEnum::both);
  QUELMCL_NODISCARD static IString strip(const IString& aString, const IStringTest& aTest,
                                         IStringEnum::StripMode mode = IStringEnum::both);
  QUELMCL_NODISCARD static IString stripLeading(const IString& aString);
  QUELMCL_NODISCARD static IString stripLeading(const IString& aString, const IString& characters);
  QUELMCL_NODISCARD static IString stripLeading(const IString& aString, const IStringTest& aTest);
  QUELMCL_NODISCARD static IString stripTrailing(const IString& aString);
  QUELMCL_NODISCARD static IString stripTrailing(const IString& aString, const IString& characters);
  QUELMCL_NODISCARD static IString stripTrailing(const IString& aString, const IStringTest& aTest);
  QUELMCL_NODISCARD static IString translate(const IString& aString, const IString& inputChars,
                                             const IString& outputChars, char padCharacter = ' ');
  QUELMCL_NODISCARD static IString upperCase(const IString& aString);
  /// @}

  /// @name Words
  /// A word is a run of characters without white space; white space is tab, line feed, vertical tab, form feed,
  /// carriage return and blank, in every locale. Words count from 1. A word that does not exist gives 0, the empty
  /// string, or no change. Linear in the text, without recursion. To go over all words, list them: IWordList.
  /// @{

  /// The number of words. Allocates nothing.
  unsigned long numWords() const;
  /// The word; word 0 is the first.
  IString word(unsigned long wordNumber) const;
  /// The words from `firstWord` to the last (word 0 is the first), with the white space between them as it stands.
  IString words(unsigned long firstWord) const { return words(firstWord, quelmcl::detail::allOfIt); }
  /// At most `numWords` of them.
  IString words(unsigned long firstWord, unsigned long numWords) const;
  /// The position of the word's first byte; 0 for word 0.
  unsigned long indexOfWord(unsigned long wordNumber) const { return indexOfWord(wordNumber, 1, 0); }
  /// The length of the word in bytes; 0 for word 0.
  unsigned long lengthOfWord(unsigned long wordNumber) const;
  /// The position where the words of `aPhrase` stand one after the other, at or after word `startWord`, whatever
  /// white space is between them. Upper and lower case differ. An empty phrase is found at `startWord` if that is at
  /// most one past the last word. Allocates lists of words only where the phrase nearly stands in many places.
  unsigned long indexOfPhrase(const IString& aPhrase, unsigned long startWord = 1) const
  {
    return findPhrase(aPhrase, startWord, charIndex);
  }
  /// The same, as the number of the phrase's first word.
  unsigned long wordIndexOfPhrase(const IString& aPhrase, unsigned long startWord = 1) const
  {
    return findPhrase(aPhrase, startWord, wordIndex);
  }

  /// Removes the words from `firstWord` on, and the white space behind each. Word 0 removes nothing.
  IString& removeWords(unsigned long firstWord) { return removeWords(firstWord, quelmcl::detail::allOfIt); }
  /// Removes at most `numWords` words.
  IString& removeWords(unsigned long firstWord, unsigned long numWords);
  /// Puts exactly `numSpaces` space characters between the words and none around them.
  IString& space(unsigned long numSpaces = 1, char spaceChar = ' ');

  QUELMCL_NODISCARD static IString removeWords(const IString& aString, unsigned long firstWord);
  QUELMCL_NODISCARD static IString removeWords(const IString& aString, unsigned long firstWord, unsigned long numWords);
  QUELMCL_NODISCARD static IString space(const IString& aString, unsigned long numSpaces = 1, char spaceChar = ' ');
  /// @}

  /// @name Conversion between number forms
  /// A number of any length, without a sign, in four forms: `c` bytes, the most significant one first; `b` binary, `d`
  /// decimal and `x` hexadecimal digits. An empty text stays empty, and a text that is not all digits of its form
  /// becomes empty. Cost: linear for bytes, binary and hexadecimal digits; for decimal digits a little more than that,
  /// and, when there are many, working storage of about 30 times the number's bytes.
  /// @{

  /// The bytes as binary digits, eight a byte. Throws IInvalidRequest 1010 from 536870911 bytes on.
  IString& c2b();
  /// The number of the bytes in decimal digits, without zeros in front. Deliberate: a zero of more than four bytes is a
  /// zero for the first four and three for each other one. Throws IInvalidRequest 1010 for more than 1431655760 bytes or
  /// so: three digits for each byte behind the first four must fit in a text, although the number has fewer.
  IString& c2d();
  /// The bytes as hexadecimal digits, two a byte, capital letters.
  IString& c2x();
  /// Eight binary digits make a byte; missing ones in front are zeros.
  IString& b2c();
  /// Decimal digits as the bytes of that number, without zero bytes in front (zero is one byte). Deliberate: the first
  /// ten digits count as 2147483647 when they are more than that. Zeros in front keep larger numbers from it.
  IString& d2c();
  /// Two hexadecimal digits of either case make a byte; a missing one in front is a zero.
  IString& x2c();
  IString& b2d() { return *this = b2d(*this); }  ///< b2c, then c2d
  IString& b2x() { return *this = b2x(*this); }  ///< b2c, then c2x
  IString& d2b() { return *this = d2b(*this); }  ///< d2c, then c2b
  IString& d2x() { return *this = d2x(*this); }  ///< d2c, then c2x
  IString& x2b() { return *this = x2b(*this); }  ///< x2c, then c2b
  IString& x2d() { return *this = x2d(*this); }  ///< x2c, then c2d

  QUELMCL_NODISCARD static IString c2b(const IString& aString) { return IString(aString).c2b(); }
  QUELMCL_NODISCARD static IString c2d(const IString& aString) { return IString(aString).c2d(); }
  QUELMCL_NODISCARD static IString c2x(const IString& aString) { return IString(aString).c2x(); }
  QUELMCL_NODISCARD static IString b2c(const IString& aString) { return IString(aString).b2c(); }
  QUELMCL_NODISCARD static IString d2c(const IString& aString) { return IString(aString).d2c(); }
  QUELMCL_NODISCARD static IString x2c(const IString& aString) { return IString(aString).x2c(); }
  QUELMCL_NODISCARD static IString b2d(const IString& aString) { return IString(aString).b2c().c2d(); }
  QUELMCL_NODISCARD static IString b2x(const IString& aString) { return IString(aString).b2c().c2x(); }
  QUELMCL_NODISCARD static IString d2b(const IString& aString) { return IString(aString).d2c().c2b(); }
  QUELMCL_NODISCARD static IString d2x(const IString& aString) { return IString(aString).d2c().c2x(); }
  QUELMCL_NODISCARD static IString x2b(const IString& aString) { return IString(aString).x2c().c2b(); }
  QUELMCL_NODISCARD static IString x2d(const IString& aString) { return IString(aString).x2c().c2d(); }
  /// @}

  /// @name Joining and bits
  /// @{

  /// A new string: this text and then the other. Cost: one allocation.
  IString operator+(const IString& aString) const;
  IString operator+(const char* pString) const;
  /// Appends. An empty argument changes nothing, the shared buffer included; any other builds a new text each time. To
  /// build a text of many pieces use an IStringBuilder.
  IString& operator+=(const IString& aString);
  IString& operator+=(const char* pString);
  template <class Text>
  quelmcl::detail::ForStandardText<Text, IString&> operator+=(const Text& text)
  {
    return appendBytes(text.data(), quelmcl::detail::checkedLength(text.size()));
  }

  /// A copy of this text, every byte combined with one of the argument, which is repeated as often as needed. The
  /// length stays; an empty argument changes nothing.
  IString operator&(const IString& aString) const;
  IString operator&(const char* pString) const;
  IString operator|(const IString& aString) const;
  IString operator|(const char* pString) const;
  IString operator^(const IString& aString) const;
  IString operator^(const char* pString) const;
  /// The same, changing this string.
  IString& operator&=(const IString& aString);
  IString& operator&=(const char* pString);
  IString& operator|=(const IString& aString);
  IString& operator|=(const char* pString);
  IString& operator^=(const IString& aString);
  IString& operator^=(const char* pString);
  /// A new string of the same length, every bit turned over.
  IString operator~() const;
  /// @}

  /// A number made of all bytes of the text: equal texts have equal ones. It is the same within a process only. Linear
  /// in the text.
  std::size_t hash() const noexcept { return hashOf(pBuffer, length()); }
  /// The same for `length` bytes at `text`, which may be null when there are none.
  static std::size_t hashOf(const char* text, unsigned length) noexcept;

  /// Writes the text in quotes, as it would stand in source code: NUL bytes and other control characters become
  /// escapes, the bytes of characters beyond ASCII stay. For messages about texts, such as those of tests.
  std::ostream& writeQuoted(std::ostream& aStream) const;
  /// GoogleTest shows strings with this.
  friend void PrintTo(const IString& text, std::ostream* aStream) { text.writeQuoted(*aStream); }

  /// The next line of the stream: what stands before `delimiter`, which is taken out of the stream, or before its
  /// end. Empty when there is nothing left to read; the state of the stream tells. May hold NUL bytes. Throws only
  /// for lack of storage. Reads what the stream holds ready in one go.
  static IString lineFrom(std::istream& aStream, char delimiter = '\n');

protected:
  /// @name Building blocks for derived classes
  /// @{

  /// Points this string at a new buffer of three pieces, made by the present buffer. The reference to the old one is
  /// not given back.
  void initBuffer(const void* p1, unsigned len1, const void* p2 = nullptr, unsigned len2 = 0, const void* p3 = nullptr,
                  unsigned len3 = 0, char padCharacter = ' ');
  void initBuffer(long number);
  void initBuffer(unsigned long number);
  void initBuffer(double number);

  /// The default null buffer's text as remembered; null before the first string.
  static char* nullBuf() noexcept;
  /// The default null buffer.
  static IBuffer* defaultBuffer() { return IBuffer::defaultBuffer(); }
  /// Remembers the text of a default null buffer.
  static void setDefaultBuffer(char* text) noexcept;
  /// Points this string at the buffer, whose reference it takes over. The reference to the old one is not given back.
  IString& setBuffer(IBuffer* newBuffer) noexcept
  {
    pBuffer = newBuffer->contents();
    return *this;
  }
  /// The buffer that holds the text.
  IBuffer* buffer() const noexcept { return IBuffer::fromContents(pBuffer); }
  /// The text.
  char* data() const noexcept { return pBuffer; }
  /// The length of a NUL-terminated text; 0 for null. Throws IInvalidRequest 1010 when no string can hold it.
  static unsigned lengthOf(const char* text);

  // What the public operations of these names do, for a text given as pointer and length.
  unsigned occurrencesOf(const char* pSearch, unsigned searchLen, unsigned startPos) const;
  int isLike(const char* pPattern, unsigned patternLen, char zeroOrMore, char anyChar) const;
  int isAbbrevFor(const char* pFullString, unsigned fullStringLen, unsigned minLen) const;
  /// Combines every byte with one of the `argLen` bytes at `pArg`, repeated as often as needed.
  IString& applyBitOp(const char* pArg, unsigned argLen, BitOperator op);
  /// The position of word `wordNumber` when `numWords` words were passed before `startPos`; 0 from position 0.
  unsigned long indexOfWord(unsigned long wordNumber, unsigned long startPos, unsigned long numWords) const;
  /// Where the words of a phrase stand, as a position or as a word number; 0 when nowhere.
  unsigned long findPhrase(const IString& aPhrase, unsigned long startWord, IndexType charOrWord) const;
  /// @}

private:
  friend class IBuffer;
  friend class IStringBuilder;
  friend QUELMCL_API std::istream& operator>>(std::istream& aStream, IString& aString);
  explicit IString(IBuffer* owned) noexcept : pBuffer(owned->contents()) {}

  static char* placeholder();
  static char* emptyText() noexcept;
  static IString unfilled(unsigned textLength);
  QUELMCL_LOCAL static IString wordFrom(std::istream& aStream, const IBuffer& alike, unsigned mostBytes);
  template <class Number>
  QUELMCL_LOCAL void initDigits(Number number);
  void prepareToChange();
  IString& adopt(IBuffer* edited) noexcept;
  bool pointsIntoText(const char* p) const noexcept;
  IString& appendBytes(const char* text, unsigned textLength);
  IString& changeBytes(const char* pPattern, unsigned patternLen, const char* pReplacement, unsigned replacementLen,
                       unsigned startPos, unsigned numChanges);
  IString& insertBytes(const char* pInsert, unsigned insertLen, unsigned index, char padCharacter);
  IString& overlayBytes(const char* pOverlay, unsigned overlayLen, unsigned index, char padCharacter);
  IString& stripBytes(const char* pCharacters, unsigned count, IStringEnum::StripMode mode);
  IString& translateBytes(const char* pInputChars, unsigned inputLen, const char* pOutputChars, unsigned outputLen,
                          char padCharacter);

  char* pBuffer;

  static char* nullBuffer;

#ifdef __cpp_lib_string_view
public:
  /// The whole text as a view (C++17), NUL bytes included. It ends as the pointers do. No template: with one,
  /// clang 14 never comes to an end with the wrong expression `delete text`.
  operator std::string_view() const noexcept
  {
    return std::string_view(pBuffer, length());
  }
#endif
};

/// Writes the text up to its first NUL byte, as the stream writes a C text: width and fill are obeyed.
QUELMCL_API std::ostream& operator<<(std::ostream& aStream, const IString& aString);
/// Reads one word: skips white space if the stream does, then takes what comes before the next white space, at most
/// width - 1 bytes when the stream has a width. Leaves the string empty when there is nothing to read.
QUELMCL_API std::istream& operator>>(std::istream& aStream, IString& aString);

/// The same operators with a C text in front: a new string, as that of the member, with the text in place of the string.
QUELMCL_API IString operator+(const char* pString, const IString& aString);
QUELMCL_API IString operator&(const char* pString, const IString& aString);
QUELMCL_API IString operator|(const char* pString, const IString& aString);
QUELMCL_API IString operator^(const char* pString, const IString& aString);

/// @name Joining with one character
/// Templates, so that exactly a char is joined: `text + 5` would otherwise be character number 5, or a pointer.
/// @{
template <class Character>
typename std::enable_if<std::is_same<Character, char>::value, IString>::type operator+(const IString& aString,
                                                                                       Character aCharacter)
{
  return aString + IString(aCharacter);
}
template <class Character>
typename std::enable_if<std::is_same<Character, char>::value, IString>::type operator+(Character aCharacter,
                                                                                       const IString& aString)
{
  return IString(aCharacter) + aString;
}
template <class Number>
typename std::enable_if<std::is_arithmetic<Number>::value && !std::is_same<Number, char>::value, IString>::type
operator+(const IString& aString, Number number) = delete;
template <class Number>
typename std::enable_if<std::is_arithmetic<Number>::value && !std::is_same<Number, char>::value, IString>::type
operator+(Number number, const IString& aString) = delete;
/// @}

/// @name Comparison
/// By unsigned bytes, NUL bytes included; with an equal common part the shorter text is less. A null pointer is the
/// empty text. The templates are for texts in writable arrays, which would otherwise be ambiguous.
/// @{
QUELMCL_API int operator==(const IString& left, const IString& right);
QUELMCL_API int operator!=(const IString& left, const IString& right);
QUELMCL_API int operator<(const IString& left, const IString& right);
QUELMCL_API int operator<=(const IString& left, const IString& right);
QUELMCL_API int operator>(const IString& left, const IString& right);
QUELMCL_API int operator>=(const IString& left, const IString& right);

QUELMCL_API int operator==(const IString& left, const char* right);
QUELMCL_API int operator!=(const IString& left, const char* right);
QUELMCL_API int operator<(const IString& left, const char* right);
QUELMCL_API int operator<=(const IString& left, const char* right);
QUELMCL_API int operator>(const IString& left, const char* right);
QUELMCL_API int operator>=(const IString& left, const char* right);

QUELMCL_API int operator==(const char* left, const IString& right);
QUELMCL_API int operator!=(const char* left, const IString& right);
QUELMCL_API int operator<(const char* left, const IString& right);
QUELMCL_API int operator<=(const char* left, const IString& right);
QUELMCL_API int operator>(const char* left, const IString& right);
QUELMCL_API int operator>=(const char* left, const IString& right);

/// Declares a comparison for `char*` on either side.
#define QUELMCL_COMPARE_WRITABLE(op)                                                                         \
  template <class Character>                                                                                 \
  typename std::enable_if<std::is_same<Character, char>::value, int>::type operator op(const IString& left,  \
                                                                                       Character* right)     \
  {                                                                                                          \
    return left op static_cast<const char*>(right);                                                          \
  }                                                                                                          \
  template <class Character>                                                                                 \
  typename std::enable_if<std::is_same<Character, char>::value, int>::type operator op(Character* left,      \
                                                                                       const IString& right) \
  {                                                                                                          \
    return static_cast<const char*>(left) op right;                                                          \
  }
QUELMCL_COMPARE_WRITABLE(==)
QUELMCL_COMPARE_WRITABLE(!=)
QUELMCL_COMPARE_WRITABLE(<)
QUELMCL_COMPARE_WRITABLE(<=)
QUELMCL_COMPARE_WRITABLE(>)
QUELMCL_COMPARE_WRITABLE(>=)
#undef QUELMCL_COMPARE_WRITABLE
/// @}

#undef QUELMCL_POINTER_CONVERSION

// What stands beside the class needs it complete.
#include <quelmcl/istrhash.hpp>
#include <quelmcl/istrord.hpp>

#endif
