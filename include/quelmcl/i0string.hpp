/// @file i0string.hpp
/// I0String, an IString whose positions count from 0.
///
///     I0String path("usr/lib");
///     path.indexOf('/');       // 3
///     path.subString(4);       // "lib"
///     path.indexOf('x');       // I0String::notFound
///
/// Only positions differ. Lengths, counts and word numbers are the same in both classes, and what takes or gives no
/// position is inherited. An operation inherited from IString returns an IString&, on which positions count from 1
/// again.
#ifndef QUELMCL_I0STRING_HPP
#define QUELMCL_I0STRING_HPP

#include <quelmcl/istring.hpp>

/// The zero-based string. Every operation here shifts positions by one and calls the operation of the same name of
/// IString, where its results, failures and costs are told. The shift wraps around on purpose: a search that finds
/// nothing gives `notFound`, and a backward search from `notFound` finds nothing.
class QUELMCL_API I0String : public IString {
public:
  /// What a search gives when there is nothing to give.
  static const unsigned notFound = 4294967295u;

  /// @name Construction
  /// As in IString.
  /// @{
  I0String();
  I0String(const I0String& source) noexcept;
  I0String(I0String&& source) noexcept;
  I0String(const IString& source) noexcept;
  I0String(IString&& source) noexcept;
  I0String(std::nullptr_t);
  I0String(int number);
  I0String(unsigned number);
  I0String(long number);
  I0String(unsigned long number);
  I0String(short number);
  I0String(unsigned short number);
  I0String(long long number);
  I0String(unsigned long long number);
  I0String(double number);
  I0String(char character);
  I0String(unsigned char character);
  I0String(signed char character);
  I0String(const char* text);
  I0String(const unsigned char* text);
  I0String(const signed char* text);
  template <class Text, class = quelmcl::detail::ForStandardText<Text, void>>
  explicit I0String(const Text& text) : IString(text)
  {
  }
  I0String(const void* p1, unsigned len1, char padCharacter = ' ');
  I0String(const void* p1, unsigned len1, const void* p2, unsigned len2, char padCharacter = ' ');
  I0String(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
           char padCharacter = ' ');
  template <class Length, class = typename std::enable_if<quelmcl::detail::IsWideLength<Length>::value>::type>
  I0String(const void* p1, Length len1, char padCharacter = ' ') : IString(p1, len1, padCharacter)
  {
  }
  template <class Length1, class Length2,
            class = typename std::enable_if<quelmcl::detail::IsWideLength<Length1>::value ||
                                            quelmcl::detail::IsWideLength<Length2>::value>::type>
  I0String(const void* p1, Length1 len1, const void* p2, Length2 len2, char padCharacter = ' ')
    : IString(p1, len1, p2, len2, padCharacter)
  {
  }
  template <class Length1, class Length2, class Length3,
            class = typename std::enable_if<quelmcl::detail::IsWideLength<Length1>::value ||
                                            quelmcl::detail::IsWideLength<Length2>::value ||
                                            quelmcl::detail::IsWideLength<Length3>::value>::type>
  I0String(const void* p1, Length1 len1, const void* p2, Length2 len2, const void* p3, Length3 len3,
           char padCharacter = ' ')
    : IString(p1, len1, p2, len2, p3, len3, padCharacter)
  {
  }
  virtual ~I0String();
  I0String& operator=(const I0String& source) noexcept;
  I0String& operator=(I0String&& source) noexcept;
  template <class Text>
  quelmcl::detail::ForStandardText<Text, I0String&> operator=(const Text& text)
  {
    return *this = I0String(text);
  }
  /// @}

  /// @name Access
  /// @{
  const char& operator[](unsigned pos) const;
  const char& operator[](int pos) const;
  const char& operator[](unsigned long pos) const;
  const char& operator[](long pos) const;
  char& operator[](unsigned pos);
  char& operator[](int pos);
  char& operator[](unsigned long pos);
  char& operator[](long pos);
  IStringEnum::CharType charType(unsigned pos) const;
  I0String subString(unsigned startPos) const;
  I0String subString(unsigned startPos, unsigned len, char padCharacter = ' ') const;
  /// @}

  /// @name Searching
  /// A position, or `notFound`. A backward search is started at `notFound` - 1 to begin at the end.
  /// @{
  unsigned indexOf(const IString& aString, unsigned startPos = 0) const;
  unsigned indexOf(const char* pString, unsigned startPos = 0) const;
  unsigned indexOf(char aCharacter, unsigned startPos = 0) const;
  unsigned indexOf(const IStringTest& aTest, unsigned startPos = 0) const;
  template <class Text>
  quelmcl::detail::ForStandardText<Text, unsigned> indexOf(const Text& text, unsigned startPos = 0) const
  {
    return adjustResult(IString::indexOf(text, adjustArg(startPos)));
  }
  unsigned indexOfAnyBut(const IString& validChars, unsigned startPos = 0) const;
  unsigned indexOfAnyBut(const char* pValidChars, unsigned startPos = 0) const;
  unsigned indexOfAnyBut(char validChar, unsigned startPos = 0) const;
  unsigned indexOfAnyBut(const IStringTest& aTest, unsigned startPos = 0) const;
  unsigned indexOfAnyOf(const IString& searchChars, unsigned startPos = 0) const;
  unsigned indexOfAnyOf(const char* pSearchChars, unsigned startPos = 0) const;
  unsigned indexOfAnyOf(char searchChar, unsigned startPos = 0) const;
  unsigned indexOfAnyOf(const IStringTest& aTest, unsigned startPos = 0) const;
  unsigned lastIndexOf(const IString& aString, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOf(const char* pString, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOf(char aCharacter, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOf(const IStringTest& aTest, unsigned startPos = notFound - 1) const;
  template <class Text>
  quelmcl::detail::ForStandardText<Text, unsigned> lastIndexOf(const Text& text, unsigned startPos = notFound - 1) const
  {
    return adjustResult(IString::lastIndexOf(text, adjustArg(startPos)));
  }
  unsigned lastIndexOfAnyBut(const IString& validChars, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyBut(const char* pValidChars, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyBut(char validChar, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyBut(const IStringTest& aTest, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyOf(const IString& searchChars, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyOf(const char* pSearchChars, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyOf(char searchChar, unsigned startPos = notFound - 1) const;
  unsigned lastIndexOfAnyOf(const IStringTest& aTest, unsigned startPos = notFound - 1) const;
  unsigned occurrencesOf(const IString& aString, unsigned startPos = 0) const;
  unsigned occurrencesOf(const char* pString, unsigned startPos = 0) const;
  unsigned occurrencesOf(char aCharacter, unsigned startPos = 0) const;
  unsigned occurrencesOf(const IStringTest& aTest, unsigned startPos = 0) const;
  template <class Text>
  quelmcl::detail::ForStandardText<Text, unsigned> occurrencesOf(const Text& text, unsigned startPos = 0) const
  {
    return IString::occurrencesOf(text, adjustArg(startPos));
  }
  /// The position of the phrase; word numbers count from 1 here, too.
  unsigned indexOfPhrase(const IString& aPhrase, unsigned startWord = 1) const;
  /// The position of the word; word numbers count from 1 here, too.
  unsigned indexOfWord(unsigned wordNumber) const;
  /// @}

  /// @name Editing
  /// @{
  I0String& change(const IString& pattern, const IString& replacement, unsigned startPos = 0,
                   unsigned numChanges = quelmcl::detail::allOfIt);
  I0String& change(const IString& pattern, const char* pReplacement, unsigned startPos = 0,
                   unsigned numChanges = quelmcl::detail::allOfIt);
  I0String& change(const char* pPattern, const IString& replacement, unsigned startPos = 0,
                   unsigned numChanges = quelmcl::detail::allOfIt);
  I0String& change(const char* pPattern, const char* pReplacement, unsigned startPos = 0,
                   unsigned numChanges = quelmcl::detail::allOfIt);
  /// Inserts after the byte at position `index`; `notFound` stands for the front.
  I0String& insert(const IString& aString, unsigned index = notFound, char padCharacter = ' ');
  I0String& insert(const char* pString, unsigned index = notFound, char padCharacter = ' ');
  I0String& overlayWith(const IString& aString, unsigned index = 0, char padCharacter = ' ');
  I0String& overlayWith(const char* pString, unsigned index = 0, char padCharacter = ' ');
  /// Removes from position `startPos` on; nothing from `notFound`.
  I0String& remove(unsigned startPos);
  I0String& remove(unsigned startPos, unsigned numChars);

  QUELMCL_NODISCARD static I0String change(const IString& aString, const IString& pattern, const IString& replacement,
                                           unsigned startPos = 0, unsigned numChanges = quelmcl::detail::allOfIt);
  QUELMCL_NODISCARD static I0String insert(const IString& aString, const IString& anInsert, unsigned index = notFound,
                                           char padCharacter = ' ');
  QUELMCL_NODISCARD static I0String overlayWith(const IString& aString, const IString& anOverlay, unsigned index = 0,
                                                char padCharacter = ' ');
  QUELMCL_NODISCARD static I0String remove(const IString& aString, unsigned startPos);
  QUELMCL_NODISCARD static I0String remove(const IString& aString, unsigned startPos, unsigned numChars);
  /// @}

  /// GoogleTest shows strings with this.
  friend void PrintTo(const I0String& text, std::ostream* aStream) { text.writeQuoted(*aStream); }

  /// @name The shift
  /// An argument becomes 1-based, a result 0-based; both wrap around.
  /// @{
  static unsigned adjustArg(unsigned pos) noexcept { return pos + 1u; }
  static int adjustArg(int pos) noexcept { return static_cast<int>(static_cast<unsigned>(pos) + 1u); }
  static unsigned adjustResult(unsigned pos) noexcept { return pos - 1u; }
  static int adjustResult(int pos) noexcept { return static_cast<int>(static_cast<unsigned>(pos) - 1u); }
  /// @}
};

/// The hash of the bytes, as that of an IString.
template <>
struct std::hash<I0String> : std::hash<IString> {
};

#endif
