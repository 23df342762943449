/// @file idbcsb.hpp
/// IDBCSBuffer, the buffer for texts whose characters may have several bytes.
///
/// Where characters begin and end is what the C library says under the locale in force when an operation begins; a
/// program may change its locale between any two. A NUL byte is a character of one byte, and so is a byte that begins
/// no sound and complete character: broken text never fails, it only has more characters. No character is ever split.
/// Positions and lengths stay bytes: where an operation would leave a part of a character behind, that part is
/// overwritten with a filler, so that lengths come out as in the single-byte kind.
///
/// Every operation is linear in the text, searches from the back and repairs included; in UTF-8 those that look at
/// one place only cost no more than that place.
#ifndef QUELMCL_IDBCSB_HPP
#define QUELMCL_IDBCSB_HPP

#include <quelmcl/ibuffer.hpp>

namespace quelmcl {
namespace detail {
class SearchStart;
}
}  // namespace quelmcl

/// The buffer of the multi-byte kind. It is chosen for the process when the locale in force at the first string has
/// multi-byte characters, and allocates buffers of its own kind only. What is told here is what differs from IBuffer.
class QUELMCL_API IDBCSBuffer : public IBuffer {
public:
  /// The length in bytes, at least 1, of the character at `p`, where a NUL follows sooner or later. At most 16 bytes
  /// are looked at.
  static unsigned charLength(const char* p);
  /// The greatest length of a character in the locale in force.
  static unsigned maxCharLength();
  /// Whether the character at `p` has one byte.
  static int isSBC(const char* p);

  /// Which byte of its character stands at `pos` (1 to length), 0 for a character of one byte.
  IStringEnum::CharType charType(unsigned pos) const override;
  /// The start of the character behind the one at `p`.
  char* next(const char* p) override;
  const char* next(const char* p) const override;

  /// Bytes `startPos` to `startPos` + `len` - 1; what they hold of characters cut at either end is overwritten with
  /// `padCharacter`.
  IBuffer* subString(unsigned startPos, unsigned len, char padCharacter) const override;

  /// Whether every character has several bytes; so it is for an empty text.
  int isMBCS() const override;
  /// The same as isMBCS.
  int isDBCS() const override;
  /// Whether every character has one byte; so it is for an empty text.
  int isSBCS() const override;
  /// Whether every character has several bytes. Deliberate: no text with a character of one byte is valid in this
  /// sense.
  int isValidMBCS() const override;
  /// The same as isValidMBCS.
  int isValidDBCS() const override;
  /// Whether some character has several bytes.
  int includesMBCS() const override;
  /// The same as includesMBCS.
  int includesDBCS() const override;
  /// Whether not all characters have several bytes.
  int includesSBCS() const override;

  /// @name Searching
  /// What is found begins where a character begins. A start inside of a character means the next one for a forward
  /// search and the beginning of that one for a backward search. Sets are lists of whole characters; a set of one
  /// byte means the characters that begin with it. A test sees the first byte of each character; deliberate: going
  /// forwards for one that passes, it sees every byte, and the position may then be inside of a character.
  /// Deliberate: of a lone byte that would begin a longer character, indexOfAnyBut says that its start is another,
  /// and lastIndexOfAnyBut that there is none.
  /// @{
  unsigned indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const override;
  unsigned indexOf(const IStringTest& test, unsigned startPos) const override;
  unsigned indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const override;
  unsigned indexOfAnyBut(const IStringTest& test, unsigned startPos) const override;
  unsigned indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const override;
  unsigned indexOfAnyOf(const IStringTest& test, unsigned startPos) const override;
  unsigned lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const override;
  unsigned lastIndexOf(const IStringTest& test, unsigned startPos) const override;
  unsigned lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const override;
  unsigned lastIndexOfAnyBut(const IStringTest& test, unsigned startPos) const override;
  unsigned lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const override;
  unsigned lastIndexOfAnyOf(const IStringTest& test, unsigned startPos) const override;
  /// @}

  /// @name Editing
  /// @{

  /// A shorter text is cut from the beginning of a character on; a character cut at its end is overwritten with pad
  /// characters.
  IBuffer* center(unsigned newLength, char padCharacter) override;
  /// Inserts before the character that `index` points into.
  IBuffer* insert(const char* pInsert, unsigned insertLen, unsigned index, char padCharacter) override;
  /// A character cut at the end is overwritten with pad characters.
  IBuffer* leftJustify(unsigned newLength, char padCharacter) override;
  /// Changes characters of one byte only.
  IBuffer* lowerCase() override;
  /// What is left of a character that the overlay begins in is overwritten with blanks, of one that it ends in with
  /// pad characters.
  IBuffer* overlayWith(const char* pOverlay, unsigned overlayLen, unsigned index, char padCharacter) override;
  /// What is left of characters cut at either end is overwritten with blanks.
  IBuffer* remove(unsigned startPos, unsigned numChars) override;
  /// Turns the order of the characters around, not that of the bytes in them. Always a new buffer from two bytes on.
  IBuffer* reverse() override;
  /// A character cut at the front is overwritten with pad characters.
  IBuffer* rightJustify(unsigned newLength, char padCharacter) override;
  /// Keeps the last character whole. Deliberate: of a single byte that begins a longer character, a search from the
  /// back finds nothing to keep, so stripping the end by it leaves the null buffer.
  IBuffer* strip(const char* pChars, unsigned count, IStringEnum::StripMode mode) override;
  /// Keeps the last character whole.
  IBuffer* strip(const IStringTest& aTest, IStringEnum::StripMode mode) override;
  /// Translates character by character; the lengths of a character and its replacement may differ. Always a new
  /// buffer. Throws IInvalidRequest 1010 when the text would become shorter overall. Deliberate: behind the last
  /// translated character the text is taken over up to its first NUL byte only.
  IBuffer* translate(const char* pInputChars, unsigned inputLen, const char* pOutputChars, unsigned outputLen,
                     char padCharacter) override;
  /// Changes characters of one byte only.
  IBuffer* upperCase() override;
  /// @}

  /// A new multi-byte buffer of `newLen` bytes, holding one reference, its text not filled in.
  IBuffer* allocate(unsigned newLen) const override;
  /// "IDBCSBuffer".
  const char* className() const override;

protected:
  /// As IBuffer's.
  explicit IDBCSBuffer(unsigned newLen) noexcept;
  ~IDBCSBuffer() override;

  /// The first position where a character begins that a forward search for `searchLen` bytes may try, or 0.
  unsigned startSearch(unsigned startPos, unsigned searchLen) const override;
  /// The beginning of the character that a backward search for `searchLen` bytes may try first, or 0.
  unsigned startBackwardsSearch(unsigned startPos, unsigned searchLen) const override;

  /// The length of the character that begins at `pos`.
  unsigned charLength(unsigned pos) const;
  /// The length of the character that ends just before `pos`, where one begins.
  unsigned prevCharLength(unsigned pos) const;
  /// Whether the character at `pos` is one of those in the set, in which they stand one after the other.
  int isCharValid(unsigned pos, const char* pValidChars, unsigned numValidChars) const;

private:
  friend class IBuffer;
  friend class quelmcl::detail::SearchStart;
};

#endif
