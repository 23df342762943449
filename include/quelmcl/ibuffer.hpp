/// @file ibuffer.hpp
/// IBuffer, the reference-counted storage behind strings, for texts in which every byte is a character.
///
/// Applications use IString; a buffer is seen by those who extend the library. A buffer is one block of storage: this
/// record and, directly behind it, the text and a NUL. It is created holding one reference, shared by every string
/// that copies it, and frees itself when the last reference goes. While it is shared its text never changes. All
/// empty strings share a null buffer.
///
/// Positions are 1-based bytes, lengths are bytes; both are 32 bits wide on every target. Editing operations return a
/// buffer that carries one reference for the caller: this one (its count raised by one) when nothing changes or a
/// sole owner was edited in place, else a new one, else the null buffer. They leave this buffer as it was when they
/// throw: IInvalidRequest 1010 for a length that no buffer can hold, IOutOfMemory 4 for an exhausted heap. Pointer arguments may point into this buffer's own text.
///
/// Buffers that share nothing may be used by different threads at once, the null buffer included; a buffer that
/// several threads share needs a lock of the callers' around every use.
#ifndef QUELMCL_IBUFFER_HPP
#define QUELMCL_IBUFFER_HPP

#include <quelmcl/istrenum.hpp>
#include <quelmcl/istrtest.hpp>

#include <cstddef>

/// The buffer of the single-byte kind and base of the multi-byte kind. The order of its virtual operations and of its
/// fields is part of the binary interface.
class QUELMCL_API IBuffer : public IVBase {
public:
  /// How this text compares with another.
  enum Comparison {
    equal = 0,
    greaterThan = 1,  ///< this one sorts after the other
    lessThan = 2      ///< this one sorts before the other
  };

  IBuffer(const IBuffer&) = delete;
  IBuffer& operator=(const IBuffer&) = delete;

  /// The class name, the address in decimal digits, the count, the length and the text:
  /// `IBuffer(@134520840,refs=2,len=5, data=[hello])`. A text of 24 bytes or more shows its first and last ten only,
  /// a shorter one ends at its first NUL.
  IString asDebugInfo() const override;

  /// @name Characters and comparison
  /// @{

  /// What the byte at `pos` (1 to length) is: always a single-byte character here.
  virtual IStringEnum::CharType charType(unsigned pos) const;
  /// The start of the character after the one at `p`. Deliberate: this kind returns `p` itself.
  virtual char* next(const char* p);
  /// The same for a constant buffer.
  virtual const char* next(const char* p) const;
  /// Compares this text with `len` bytes at `p`, as unsigned bytes; with an equal common part the shorter one is
  /// less. A null `p` is less than everything. Cost: the common part.
  virtual Comparison compare(const void* p, unsigned len) const;
  /// Exactly `len` bytes from `startPos` on (0 means 1), filled with `padCharacter` where the text has ended.
  virtual IBuffer* subString(unsigned startPos, unsigned len, char padCharacter) const;

  // Whether every character belongs to a class of the current locale; no for an empty text. isASCII: every byte below
  // 0x80.
  virtual int isAlphanumeric() const;
  virtual int isAlphabetic() const;
  virtual int isASCII() const;
  virtual int isControl() const;
  virtual int isDigits() const;
  virtual int isGraphics() const;
  virtual int isHexDigits() const;
  virtual int isLowerCase() const;
  virtual int isPrintable() const;
  virtual int isPunctuation() const;
  virtual int isUpperCase() const;
  virtual int isWhiteSpace() const;

  // Of how many bytes the characters are. This kind answers without looking: all are of one byte, none of several,
  // and what asks for validity or for some single byte is told yes.
  virtual int isMBCS() const;
  virtual int isDBCS() const;
  virtual int isSBCS() const;
  virtual int isValidMBCS() const;
  virtual int isValidDBCS() const;
  virtual int includesMBCS() const;
  virtual int includesDBCS() const;
  virtual int includesSBCS() const;
  /// @}

  /// @name Searching
  /// Each returns the 1-based position of what it found, or 0. Forward searches begin at `startPos` (0 means 1) and
  /// find nothing from beyond the end; backward searches begin there or, from beyond the end, at the end, and find
  /// nothing from 0. Sets and texts may hold NUL bytes. An empty text is never found, and neither is a member of an
  /// empty set; the first character outside of an empty set is the one at the start. No search throws or allocates;
  /// all are linear in the text.
  /// @{
  virtual unsigned indexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const;
  virtual unsigned indexOf(const IStringTest& test, unsigned startPos) const;
  virtual unsigned indexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const;
  virtual unsigned indexOfAnyBut(const IStringTest& test, unsigned startPos) const;
  virtual unsigned indexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const;
  virtual unsigned indexOfAnyOf(const IStringTest& test, unsigned startPos) const;
  virtual unsigned lastIndexOf(const char* pSearchString, unsigned searchLen, unsigned startPos) const;
  virtual unsigned lastIndexOf(const IStringTest& test, unsigned startPos) const;
  virtual unsigned lastIndexOfAnyBut(const char* pValidChars, unsigned numValidChars, unsigned startPos) const;
  virtual unsigned lastIndexOfAnyBut(const IStringTest& test, unsigned startPos) const;
  virtual unsigned lastIndexOfAnyOf(const char* pValidChars, unsigned numValidChars, unsigned startPos) const;
  virtual unsigned lastIndexOfAnyOf(const IStringTest& test, unsigned startPos) const;
  /// @}

  /// @name Editing
  /// What each does to a text is told at the operation of the same name of IString. Case mapping, reversal,
  /// translation and changes of equal length edit a sole owner in place.
  /// @{
  virtual IBuffer* center(unsigned newLength, char padCharacter);
  virtual IBuffer* change(const char* pPattern, unsigned patternLen, const char* pReplacement, unsigned replacementLen,
                          unsigned startPos, unsigned numChanges);
  virtual IBuffer* copy(unsigned numCopies);
  virtual IBuffer* insert(const char* pInsert, unsigned len, unsigned index, char padCharacter);
  virtual IBuffer* leftJustify(unsigned newLength, char padCharacter);
  virtual IBuffer* lowerCase();
  virtual IBuffer* overlayWith(const char* pOverlay, unsigned len, unsigned index, char padCharacter);
  virtual IBuffer* remove(unsigned startPos, unsigned numChars);
  virtual IBuffer* reverse();
  virtual IBuffer* rightJustify(unsigned newLength, char padCharacter);
  virtual IBuffer* strip(const char* pChars, unsigned len, IStringEnum::StripMode mode);
  virtual IBuffer* strip(const IStringTest& aTest, IStringEnum::StripMode mode);
  virtual IBuffer* translate(const char* pInputChars, unsigned inputLen, const char* pOutputChars, unsigned outputLen,
                             char padCharacter);
  virtual IBuffer* upperCase();
  /// @}

protected:
  /// The first position that a forward search for `searchLen` bytes may try, or 0.
  virtual unsigned startSearch(unsigned startPos, unsigned searchLen) const;
  /// The first position that a backward search for `searchLen` bytes may try, or 0.
  virtual unsigned startBackwardsSearch(unsigned startPos, unsigned searchLen) const;

public:
  /// @name Life cycle
  /// @{

  /// A new buffer of `newLen` bytes, holding one reference: NUL behind its text, the text itself not filled in.
  /// Deliberate: of the multi-byte kind whenever the locale in force has multi-byte characters, although this buffer
  /// is not.
  virtual IBuffer* allocate(unsigned newLen) const;
  /// "IBuffer". Kinds are told apart by the address of this text.
  virtual const char* className() const;

  /// A buffer of up to three pieces, one after the other, each `padCharacter` over its length where its pointer is
  /// null. It is made by allocate(), holds one reference and belongs to the caller. Without any bytes it is the null
  /// buffer of this kind, with one reference more; nothing is allocated then. Throws IInvalidRequest 1010 when the
  /// lengths do not add up in 32 bits.
  IBuffer* newBuffer(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
                     char padCharacter) const;

  /// One reference more. Returns this buffer.
  IBuffer* addRef() noexcept
  {
    setUseCount(useCount() + 1);
    return this;
  }
  /// One reference less; the buffer is destroyed when none is left. A null buffer stays.
  void removeRef() noexcept
  {
    const unsigned left = useCount() - 1;
    setUseCount(left);
    if (left == 0)
      release();
  }
  /// How many references there are. Under threads the count of a null buffer is a good guess only.
  unsigned useCount() const noexcept { return __atomic_load_n(&refs, __ATOMIC_RELAXED); }

  /// The length of the text in bytes, without the NUL behind it.
  unsigned length() const noexcept { return len; }
  /// The text.
  char* contents() noexcept { return data; }
  /// The text.
  const char* contents() const noexcept { return data; }
  /// The buffer whose text begins at `p`: the inverse of contents().
  static IBuffer* fromContents(const char* p) noexcept;

  /// The null buffer of this buffer's kind; no reference is added.
  IBuffer* null() const;
  /// The null buffer of the kind chosen for this process, made at the first call; no reference is added. The kind
  /// follows the locale in force at that moment: multi-byte when its characters may have several bytes.
  static IBuffer* defaultBuffer();
  /// Makes `newDefault` the default null buffer, taking the caller's reference over, and gives back the one to the
  /// old default. Strings made from then on start from it. Needs a lock when other threads use strings.
  static void setDefaultBuffer(IBuffer* newDefault);
  /// Makes a default null buffer of the kind that the locale in force asks for (and, beside a multi-byte one, the
  /// single-byte null buffer) and returns it, holding one reference.
  static IBuffer* initialize();

  /// a + b. Throws IInvalidRequest 1010 when the sum is 4294967295 or more, so that a NUL always fits behind it.
  static unsigned checkAddition(unsigned a, unsigned b);
  /// a * b, for b not 0. Throws IInvalidRequest 1010 unless a < 4294967295 / b.
  static unsigned checkMultiplication(unsigned a, unsigned b);
  /// Throws IInvalidRequest 1010, recoverable: a length that no text can have.
  [[noreturn]] static void overflow();

  /// One block for a buffer of `newLen` bytes. Throws IInvalidRequest 1010 when `newLen` is above 4294967274.
  static void* operator new(std::size_t size, unsigned newLen);
  /// Frees the block; a null pointer is ignored.
  static void operator delete(void* block) noexcept;
  /// @}

protected:
  /// Takes one reference and writes the NUL at `newLen`; the text is left to the caller.
  explicit IBuffer(unsigned newLen) noexcept;
  ~IBuffer() override;

  unsigned refs;  ///< how many hold this buffer
  unsigned len;   ///< how many bytes the text has, without the NUL behind it
  char data[1];   ///< the text, which goes on behind the record, in the same block

private:
  friend class IStringBuilder;  // makes the length of a block that of the text it has built in it

  // Plain loads and stores on every processor of this library, but no data race when threads copy empty strings at
  // once.
  void setUseCount(unsigned count) noexcept { __atomic_store_n(&refs, count, __ATOMIC_RELAXED); }
  void release() noexcept;

  // Where the text begins in a block. The same in every buffer; offsetof is not meant for classes with virtual
  // operations.
  enum : std::size_t { offsetOfText = sizeof(void*) + 2 * sizeof(unsigned) };

  static IBuffer* nullBuffer;
  static IBuffer* nullIBuffer;
};

inline IBuffer* IBuffer::fromContents(const char* p) noexcept
{
  return reinterpret_cast<IBuffer*>(const_cast<char*>(p) - offsetOfText);
}

#endif
