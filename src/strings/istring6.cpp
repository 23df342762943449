// istring6.cpp - IString, search front-ends: hand over to the buffer, and count. (Digit 6 is always searching:
// docs/architecture.md)
// Tests: tests/strings/search_test.cpp
#include <quelmcl/istring.hpp>

#include "buffers/forwardsearch.hpp"

namespace {

/// One character as a text with a NUL behind it: the rules for characters of several bytes may look at what follows.
struct OneCharacter {
  explicit OneCharacter(char character) : text{character, '\0'} {}
  char text[2];
};

}  // namespace

// ---- indexOf ----

unsigned IString::indexOf(const IString& aString, unsigned startPos) const
{
  return buffer()->indexOf(aString.pBuffer, aString.length(), startPos);
}

unsigned IString::indexOf(const char* pString, unsigned startPos) const
{
  return buffer()->indexOf(pString, lengthOf(pString), startPos);
}

unsigned IString::indexOf(char aCharacter, unsigned startPos) const
{
  return buffer()->indexOf(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::indexOf(const IStringTest& aTest, unsigned startPos) const
{
  return buffer()->indexOf(aTest, startPos);
}

// ---- indexOfAnyBut ----

unsigned IString::indexOfAnyBut(const IString& characters, unsigned startPos) const
{
  return buffer()->indexOfAnyBut(characters.pBuffer, characters.length(), startPos);
}

unsigned IString::indexOfAnyBut(const char* pCharacters, unsigned startPos) const
{
  return buffer()->indexOfAnyBut(pCharacters, lengthOf(pCharacters), startPos);
}

unsigned IString::indexOfAnyBut(char aCharacter, unsigned startPos) const
{
  return buffer()->indexOfAnyBut(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::indexOfAnyBut(const IStringTest& aTest, unsigned startPos) const
{
  return buffer()->indexOfAnyBut(aTest, startPos);
}

// ---- indexOfAnyOf ----

unsigned IString::indexOfAnyOf(const IString& characters, unsigned startPos) const
{
  return buffer()->indexOfAnyOf(characters.pBuffer, characters.length(), startPos);
}

unsigned IString::indexOfAnyOf(const char* pCharacters, unsigned startPos) const
{
  return buffer()->indexOfAnyOf(pCharacters, lengthOf(pCharacters), startPos);
}

unsigned IString::indexOfAnyOf(char aCharacter, unsigned startPos) const
{
  return buffer()->indexOfAnyOf(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::indexOfAnyOf(const IStringTest& aTest, unsigned startPos) const
{
  return buffer()->indexOfAnyOf(aTest, startPos);
}

// ---- lastIndexOf ----

unsigned IString::lastIndexOf(const IString& aString, unsigned startPos) const
{
  return buffer()->lastIndexOf(aString.pBuffer, aString.length(), startPos);
}

unsigned IString::lastIndexOf(const char* pString, unsigned startPos) const
{
  return buffer()->lastIndexOf(pString, lengthOf(pString), startPos);
}

unsigned IString::lastIndexOf(char aCharacter, unsigned startPos) const
{
  return buffer()->lastIndexOf(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::lastIndexOf(const IStringTest& aTest, unsigned startPos) const
{
  return buffer()->lastIndexOf(aTest, startPos);
}

// ---- lastIndexOfAnyBut ----

unsigned IString::lastIndexOfAnyBut(const IString& characters, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyBut(characters.pBuffer, characters.length(), startPos);
}

unsigned IString::lastIndexOfAnyBut(const char* pCharacters, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyBut(pCharacters, lengthOf(pCharacters), startPos);
}

unsigned IString::lastIndexOfAnyBut(char aCharacter, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyBut(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::lastIndexOfAnyBut(const IStringTest& aTest, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyBut(aTest, startPos);
}

// ---- lastIndexOfAnyOf ----

unsigned IString::lastIndexOfAnyOf(const IString& characters, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyOf(characters.pBuffer, characters.length(), startPos);
}

unsigned IString::lastIndexOfAnyOf(const char* pCharacters, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyOf(pCharacters, lengthOf(pCharacters), startPos);
}

unsigned IString::lastIndexOfAnyOf(char aCharacter, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyOf(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::lastIndexOfAnyOf(const IStringTest& aTest, unsigned startPos) const
{
  return buffer()->lastIndexOfAnyOf(aTest, startPos);
}

// ---- occurrencesOf ----

namespace {

/// Counts what `next` finds, going on `step` bytes behind the beginning of each.
template <class Next>
unsigned count(Next next, unsigned startPos, unsigned step)
{
  unsigned found = 0;
  for (unsigned pos = next(startPos); pos != 0; pos = next(pos + step))
    ++found;
  return found;
}

}  // namespace

unsigned IString::occurrencesOf(const IString& aString, unsigned startPos) const
{
  return occurrencesOf(aString.pBuffer, aString.length(), startPos);
}

unsigned IString::occurrencesOf(const char* pString, unsigned startPos) const
{
  return occurrencesOf(pString, lengthOf(pString), startPos);
}

unsigned IString::occurrencesOf(char aCharacter, unsigned startPos) const
{
  return occurrencesOf(OneCharacter(aCharacter).text, 1, startPos);
}

unsigned IString::occurrencesOf(const IStringTest& aTest, unsigned startPos) const
{
  quelmcl::detail::ForwardSearch search(*buffer());
  return count([&](unsigned from) { return search.indexOf(aTest, from); }, startPos, 1);
}

unsigned IString::occurrencesOf(const char* pSearch, unsigned searchLen, unsigned startPos) const
{
  quelmcl::detail::ForwardSearch search(*buffer());
  return count([&](unsigned from) { return search.indexOf(pSearch, searchLen, from); }, startPos, searchLen);
}
