// i0string.cpp - I0String: shifts positions by one and calls the operation of the same name of IString.
// Tests: tests/strings/zero_based_test.cpp
#include <quelmcl/i0string.hpp>

#include <utility>

const unsigned I0String::notFound;

// ---- construction ----

I0String::I0String() = default;

I0String::I0String(const I0String& source) noexcept = default;

I0String::I0String(I0String&& source) noexcept = default;

I0String::I0String(const IString& source) noexcept : IString(source) {}

I0String::I0String(IString&& source) noexcept : IString(std::move(source)) {}

I0String::I0String(std::nullptr_t) {}

I0String::I0String(int number) : IString(number) {}

I0String::I0String(unsigned number) : IString(number) {}

I0String::I0String(long number) : IString(number) {}

I0String::I0String(unsigned long number) : IString(number) {}

I0String::I0String(short number) : IString(number) {}

I0String::I0String(unsigned short number) : IString(number) {}

I0String::I0String(long long number) : IString(number) {}

I0String::I0String(unsigned long long number) : IString(number) {}

I0String::I0String(double number) : IString(number) {}

I0String::I0String(char character) : IString(character) {}

I0String::I0String(unsigned char character) : IString(character) {}

I0String::I0String(signed char character) : IString(character) {}

I0String::I0String(const char* text) : IString(text) {}

I0String::I0String(const unsigned char* text) : IString(text) {}

I0String::I0String(const signed char* text) : IString(text) {}

I0String::I0String(const void* p1, unsigned len1, char padCharacter) : IString(p1, len1, padCharacter) {}

I0String::I0String(const void* p1, unsigned len1, const void* p2, unsigned len2, char padCharacter)
  : IString(p1, len1, p2, len2, padCharacter)
{
}

I0String::I0String(const void* p1, unsigned len1, const void* p2, unsigned len2, const void* p3, unsigned len3,
                   char padCharacter)
  : IString(p1, len1, p2, len2, p3, len3, padCharacter)
{
}

I0String::~I0String() = default;

I0String& I0String::operator=(const I0String& source) noexcept = default;

I0String& I0String::operator=(I0String&& source) noexcept = default;

// ---- access ----

namespace {

/// A position of `long` width as a 1-based one. The shift wraps around, as that of an unsigned position does.
long shifted(long pos)
{
  return static_cast<long>(static_cast<unsigned long>(pos) + 1);
}

/// A position of `unsigned long` width as a 1-based one. Where such a number is wider than a position, what no
/// position can be stays as it is.
unsigned long shifted(unsigned long pos)
{
  return pos <= I0String::notFound ? I0String::adjustArg(static_cast<unsigned>(pos)) : pos;
}

}  // namespace

const char& I0String::operator[](unsigned pos) const
{
  return IString::operator[](adjustArg(pos));
}

const char& I0String::operator[](int pos) const
{
  return IString::operator[](adjustArg(pos));
}

const char& I0String::operator[](unsigned long pos) const
{
  return IString::operator[](shifted(pos));
}

const char& I0String::operator[](long pos) const
{
  return IString::operator[](shifted(pos));
}

char& I0String::operator[](unsigned pos)
{
  return IString::operator[](adjustArg(pos));
}

char& I0String::operator[](int pos)
{
  return IString::operator[](adjustArg(pos));
}

char& I0String::operator[](unsigned long pos)
{
  return IString::operator[](shifted(pos));
}

char& I0String::operator[](long pos)
{
  return IString::operator[](shifted(pos));
}

IStringEnum::CharType I0String::charType(unsigned pos) const
{
  return IString::charType(adjustArg(pos));
}

I0String I0String::subString(unsigned startPos) const
{
  return IString::subString(adjustArg(startPos));
}

I0String I0String::subString(unsigned startPos, unsigned len, char padCharacter) const
{
  return IString::subString(adjustArg(startPos), len, padCharacter);
}

// ---- searching ----

unsigned I0String::indexOf(const IString& aString, unsigned startPos) const
{
  return adjustResult(IString::indexOf(aString, adjustArg(startPos)));
}

unsigned I0String::indexOf(const char* pString, unsigned startPos) const
{
  return adjustResult(IString::indexOf(pString, adjustArg(startPos)));
}

unsigned I0String::indexOf(char aCharacter, unsigned startPos) const
{
  return adjustResult(IString::indexOf(aCharacter, adjustArg(startPos)));
}

unsigned I0String::indexOf(const IStringTest& aTest, unsigned startPos) const
{
  return adjustResult(IString::indexOf(aTest, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyBut(const IString& characters, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyBut(characters, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyBut(const char* pCharacters, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyBut(pCharacters, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyBut(char aCharacter, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyBut(aCharacter, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyBut(const IStringTest& aTest, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyBut(aTest, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyOf(const IString& characters, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyOf(characters, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyOf(const char* pCharacters, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyOf(pCharacters, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyOf(char aCharacter, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyOf(aCharacter, adjustArg(startPos)));
}

unsigned I0String::indexOfAnyOf(const IStringTest& aTest, unsigned startPos) const
{
  return adjustResult(IString::indexOfAnyOf(aTest, adjustArg(startPos)));
}

unsigned I0String::lastIndexOf(const IString& aString, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOf(aString, adjustArg(startPos)));
}

unsigned I0String::lastIndexOf(const char* pString, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOf(pString, adjustArg(startPos)));
}

unsigned I0String::lastIndexOf(char aCharacter, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOf(aCharacter, adjustArg(startPos)));
}

unsigned I0String::lastIndexOf(const IStringTest& aTest, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOf(aTest, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyBut(const IString& characters, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyBut(characters, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyBut(const char* pCharacters, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyBut(pCharacters, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyBut(char aCharacter, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyBut(aCharacter, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyBut(const IStringTest& aTest, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyBut(aTest, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyOf(const IString& characters, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyOf(characters, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyOf(const char* pCharacters, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyOf(pCharacters, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyOf(char aCharacter, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyOf(aCharacter, adjustArg(startPos)));
}

unsigned I0String::lastIndexOfAnyOf(const IStringTest& aTest, unsigned startPos) const
{
  return adjustResult(IString::lastIndexOfAnyOf(aTest, adjustArg(startPos)));
}

unsigned I0String::occurrencesOf(const IString& aString, unsigned startPos) const
{
  return IString::occurrencesOf(aString, adjustArg(startPos));
}

unsigned I0String::occurrencesOf(const char* pString, unsigned startPos) const
{
  return IString::occurrencesOf(pString, adjustArg(startPos));
}

unsigned I0String::occurrencesOf(char aCharacter, unsigned startPos) const
{
  return IString::occurrencesOf(aCharacter, adjustArg(startPos));
}

unsigned I0String::occurrencesOf(const IStringTest& aTest, unsigned startPos) const
{
  return IString::occurrencesOf(aTest, adjustArg(startPos));
}

unsigned I0String::indexOfPhrase(const IString& aPhrase, unsigned startWord) const
{
  return adjustResult(static_cast<unsigned>(IString::indexOfPhrase(aPhrase, startWord)));
}

unsigned I0String::indexOfWord(unsigned wordNumber) const
{
  return adjustResult(static_cast<unsigned>(IString::indexOfWord(wordNumber)));
}

// ---- editing ----

I0String& I0String::change(const IString& pattern, const IString& replacement, unsigned startPos, unsigned numChanges)
{
  IString::change(pattern, replacement, adjustArg(startPos), numChanges);
  return *this;
}

I0String& I0String::change(const IString& pattern, const char* pReplacement, unsigned startPos, unsigned numChanges)
{
  IString::change(pattern, pReplacement, adjustArg(startPos), numChanges);
  return *this;
}

I0String& I0String::change(const char* pPattern, const IString& replacement, unsigned startPos, unsigned numChanges)
{
  IString::change(pPattern, replacement, adjustArg(startPos), numChanges);
  return *this;
}

I0String& I0String::change(const char* pPattern, const char* pReplacement, unsigned startPos, unsigned numChanges)
{
  IString::change(pPattern, pReplacement, adjustArg(startPos), numChanges);
  return *this;
}

I0String& I0String::insert(const IString& aString, unsigned index, char padCharacter)
{
  IString::insert(aString, adjustArg(index), padCharacter);
  return *this;
}

I0String& I0String::insert(const char* pString, unsigned index, char padCharacter)
{
  IString::insert(pString, adjustArg(index), padCharacter);
  return *this;
}

I0String& I0String::overlayWith(const IString& aString, unsigned index, char padCharacter)
{
  IString::overlayWith(aString, adjustArg(index), padCharacter);
  return *this;
}

I0String& I0String::overlayWith(const char* pString, unsigned index, char padCharacter)
{
  IString::overlayWith(pString, adjustArg(index), padCharacter);
  return *this;
}

// Deliberate: notFound is not shifted here. It would become 0, from where a removal begins at the first byte.
// Test: ZeroBasedRemove.FromNotFoundLeavesTheTextAlone
I0String& I0String::remove(unsigned startPos)
{
  IString::remove(startPos == notFound ? notFound : adjustArg(startPos));
  return *this;
}

I0String& I0String::remove(unsigned startPos, unsigned numChars)
{
  IString::remove(startPos == notFound ? notFound : adjustArg(startPos), numChars);
  return *this;
}

// ---- static forms: the operation on a copy ----

I0String I0String::change(const IString& aString, const IString& pattern, const IString& replacement, unsigned startPos,
                          unsigned numChanges)
{
  return I0String(aString).change(pattern, replacement, startPos, numChanges);
}

I0String I0String::insert(const IString& aString, const IString& anInsert, unsigned index, char padCharacter)
{
  return I0String(aString).insert(anInsert, index, padCharacter);
}

I0String I0String::overlayWith(const IString& aString, const IString& anOverlay, unsigned index, char padCharacter)
{
  return I0String(aString).overlayWith(anOverlay, index, padCharacter);
}

I0String I0String::remove(const IString& aString, unsigned startPos)
{
  return I0String(aString).remove(startPos);
}

I0String I0String::remove(const IString& aString, unsigned startPos, unsigned numChars)
{
  return I0String(aString).remove(startPos, numChars);
}
