// istring8.cpp - IString, words: count, extract, find, remove, respace. (Digit 8 is always words: docs/architecture.md)
// Tests: tests/strings/words_test.cpp
#include <quelmcl/istring.hpp>

#include "strings/words.hpp"

#include <algorithm>
#include <cstring>
#include <vector>

using quelmcl::detail::Word;
using quelmcl::detail::WordReader;

namespace {

constexpr unsigned largestNumber = quelmcl::detail::allOfIt;

/// The words of a text in order, without the text.
std::vector<Word> wordList(const IBuffer& text)
{
  std::vector<Word> words;
  WordReader reader(text);
  for (Word word = reader.next(); word.pos != 0; word = reader.next())
    words.push_back(word);
  return words;
}

}  // namespace

// ---- counting and finding ----

unsigned long IString::numWords() const
{
  return WordReader(*buffer()).count();
}

unsigned long IString::indexOfWord(unsigned long wordNumber, unsigned long startPos, unsigned long numWords) const
{
  if (startPos == 0 || startPos > length())
    return 0;
  WordReader reader(*buffer(), static_cast<unsigned>(startPos));
  for (Word word = reader.next(); word.pos != 0; word = reader.next())
    if (++numWords == wordNumber)
      return word.pos;
  return 0;
}

unsigned long IString::lengthOfWord(unsigned long wordNumber) const
{
  const unsigned start = static_cast<unsigned>(indexOfWord(wordNumber, 1, 0));
  return start == 0 ? 0 : WordReader(*buffer(), start).next().len;
}

// ---- extracting ----

IString IString::word(unsigned long wordNumber) const
{
  const unsigned start = static_cast<unsigned>(indexOfWord(std::max(wordNumber, 1ul), 1, 0));
  if (start == 0)
    return IString();
  return subString(start, WordReader(*buffer(), start).next().len, ' ');
}

IString IString::words(unsigned long firstWord, unsigned long numWords) const
{
  if (numWords == 0)
    return IString();
  const unsigned start = static_cast<unsigned>(indexOfWord(std::max(firstWord, 1ul), 1, 0));
  if (start == 0)
    return IString();

  WordReader reader(*buffer(), start);
  unsigned end = start;
  for (Word word = reader.next(); word.pos != 0; word = reader.next()) {
    end = word.pos + word.len;
    if (--numWords == 0)
      break;
  }
  return subString(start, end - start, ' ');
}

// ---- phrases ----

namespace {

/// Whether the words of `phrase` are those of `text` from `word` on.
bool isPhraseAt(const Word* word, const char* text, const std::vector<Word>& phrase, const char* phraseText)
{
  return std::equal(phrase.begin(), phrase.end(), word, [&](const Word& sought, const Word& present) {
    return sought.len == present.len &&
           std::memcmp(phraseText + (sought.pos - 1), text + (present.pos - 1), sought.len) == 0;
  });
}

}  // namespace

unsigned long IString::findPhrase(const IString& aPhrase, unsigned long startWord, IndexType charOrWord) const
{
  if (startWord > largestNumber)
    return 0;
  const std::vector<Word> present = wordList(*buffer());
  const std::vector<Word> phrase = wordList(*aPhrase.buffer());
  const unsigned presentCount = static_cast<unsigned>(present.size());
  const unsigned phraseCount = static_cast<unsigned>(phrase.size());

  // Word numbers wrap around at 32 bits: a start so large that the phrase would end beyond the largest number finds
  // it from the first word on.  Test: Phrases.AStartThatWrapsAroundSearchesFromTheFirstWord
  for (unsigned at = static_cast<unsigned>(startWord); phraseCount + at - 1 <= presentCount; ++at) {
    const bool isPresent = phraseCount == 0 || (at >= 1 && at <= presentCount);
    if (!isPresent || !isPhraseAt(present.data() + (at - 1), pBuffer, phrase, aPhrase.pBuffer))
      continue;
    if (charOrWord == wordIndex)
      return at;
    return at >= 1 && at <= presentCount ? present[at - 1].pos : 0;
  }
  return 0;
}

// ---- removing and respacing ----

IString& IString::removeWords(unsigned long firstWord, unsigned long numWords)
{
  if (numWords == 0)
    return *this;
  const unsigned start = static_cast<unsigned>(indexOfWord(firstWord, 1, 0));
  if (start == 0)
    return *this;
  WordReader reader(*buffer(), start);
  unsigned next = reader.next().pos;
  for (unsigned long removed = 0; removed < numWords && next != 0; ++removed)
    next = reader.next().pos;
  const unsigned end = next == 0 ? length() + 1 : next;
  return remove(start, end - start);
}

IString& IString::space(unsigned long numSpaces, char spaceChar)
{
  if (length() == 0)
    return *this;
  const unsigned spaces = static_cast<unsigned>(std::min<unsigned long>(numSpaces, largestNumber));
  WordReader measuring(*buffer());
  unsigned newLength = measuring.next().len;
  for (Word word = measuring.next(); word.pos != 0; word = measuring.next())
    newLength = IBuffer::checkAddition(IBuffer::checkAddition(newLength, spaces), word.len);
  if (newLength == 0)
    return adopt(buffer()->null()->addRef());

  IBuffer* const spaced = buffer()->allocate(newLength);
  char* end = spaced->contents();
  WordReader filling(*buffer());
  for (Word word = filling.next(); word.pos != 0; word = filling.next()) {
    if (end != spaced->contents() && spaces == 1)  // as nearly always
      *end++ = spaceChar;
    else if (end != spaced->contents())
      end = std::fill_n(end, spaces, spaceChar);
    std::memcpy(end, pBuffer + (word.pos - 1), word.len);
    end += word.len;
  }
  return adopt(spaced);
}

IString IString::removeWords(const IString& aString, unsigned long firstWord)
{
  return IString(aString).removeWords(firstWord);
}

IString IString::removeWords(const IString& aString, unsigned long firstWord, unsigned long numWords)
{
  return IString(aString).removeWords(firstWord, numWords);
}

IString IString::space(const IString& aString, unsigned long numSpaces, char spaceChar)
{
  return IString(aString).space(numSpaces, spaceChar);
}
