// istring8.cpp - IString, words: count, extract, find, remove, respace. (Digit 8 is always words: docs/architecture.md)
// Tests: tests/strings/words_test.cpp
#include <quelmcl/istring.hpp>

#include "strings/words.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <optional>
#include <vector>

using quelmcl::detail::findsWordsByBytes;
using quelmcl::detail::Forward;
using quelmcl::detail::isWhiteSpace;
using quelmcl::detail::measureWords;
using quelmcl::detail::nowhere;
using quelmcl::detail::positionBehind;
using quelmcl::detail::TextSearch;
using quelmcl::detail::vectors;
using quelmcl::detail::Word;
using quelmcl::detail::WordReader;
using quelmcl::detail::WordTotals;

namespace {

constexpr unsigned largestNumber = quelmcl::detail::allOfIt;

/// The word of that number from a position on, counted from `before` + 1; position 0 when there is none.
Word wordNumbered(const IBuffer& text, unsigned long wordNumber, unsigned startPos = 1, unsigned long before = 0)
{
  if (wordNumber <= before)
    return {0, 0};
  WordReader reader(text, startPos);
  reader.skip(wordNumber - before - 1);
  return reader.next();
}

}  // namespace

// ---- counting and finding ----

unsigned long IString::numWords() const
{
  return static_cast<unsigned long>(measureWords(*buffer()).words);
}

unsigned long IString::indexOfWord(unsigned long wordNumber, unsigned long startPos, unsigned long numWords) const
{
  if (startPos == 0 || startPos > length())
    return 0;
  return wordNumbered(*buffer(), wordNumber, static_cast<unsigned>(startPos), numWords).pos;
}

unsigned long IString::lengthOfWord(unsigned long wordNumber) const
{
  return wordNumbered(*buffer(), wordNumber).len;
}

// ---- extracting ----

IString IString::word(unsigned long wordNumber) const
{
  const Word word = wordNumbered(*buffer(), std::max(wordNumber, 1ul));
  return word.pos == 0 ? IString() : subString(word.pos, word.len, ' ');
}

IString IString::words(unsigned long firstWord, unsigned long numWords) const
{
  if (numWords == 0)
    return IString();
  const unsigned start = wordNumbered(*buffer(), std::max(firstWord, 1ul)).pos;
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

/// The words of a text from a position on, to be compared with those of another.
struct WordsOf {
  explicit WordsOf(const IBuffer& buffer, unsigned startPos = 1) : text(buffer.contents())
  {
    WordReader reader(buffer, startPos);
    for (Word word = reader.next(); word.pos != 0; word = reader.next())
      words.push_back(word);
  }

  unsigned count() const { return static_cast<unsigned>(words.size()); }
  /// Whether the two words are equal; both count from 0.
  bool isSame(unsigned index, const WordsOf& other, unsigned otherIndex) const
  {
    const Word& one = words[index];
    const Word& second = other.words[otherIndex];
    return one.len == second.len && std::memcmp(text + (one.pos - 1), other.text + (second.pos - 1), one.len) == 0;
  }

  const char* text;
  std::vector<Word> words;
};

/// The position of the first word where the phrase, which is not empty, stands; 0 if nowhere. Linear, however nearly the phrase
/// stands in many places: as Knuth, Morris and Pratt do with characters, words that have been compared are not gone back to.
/// borders[n] is the greatest number of words, less than n + 1, that end as well as begin the first n + 1 words of the phrase.
unsigned findWords(const WordsOf& present, const WordsOf& phrase)
{
  std::vector<unsigned> borders(phrase.count(), 0);
  const auto matchedWith = [&](unsigned matched, const WordsOf& words, unsigned index) {
    while (matched > 0 && !phrase.isSame(matched, words, index))
      matched = borders[matched - 1];
    return phrase.isSame(matched, words, index) ? matched + 1 : 0;
  };
  for (unsigned index = 1; index < phrase.count(); ++index)
    borders[index] = matchedWith(borders[index - 1], phrase, index);

  unsigned matched = 0;
  for (unsigned index = 0; index < present.count(); ++index) {
    matched = matchedWith(matched, present, index);
    if (matched == phrase.count())
      return present.words[index + 1 - matched].pos;
  }
  return 0;
}

/// Bytes in which words are told apart.
struct Bytes {
  const char* begin;
  const char* end;

  bool isAtWord() const { return begin != end && !isWhiteSpace(*begin); }
  void passWhiteSpace()
  {
    while (begin != end && isWhiteSpace(*begin))
      ++begin;
  }
};

/// Whether a text begins with the words of a phrase. Both begin with a word. `text.begin` is then as far as was compared.
bool beginsWith(Bytes& text, Bytes phrase)
{
  for (;;) {
    for (; phrase.isAtWord(); ++phrase.begin, ++text.begin)
      if (text.begin == text.end || *text.begin != *phrase.begin)
        return false;
    phrase.passWhiteSpace();
    if (text.isAtWord() || phrase.begin == phrase.end)
      return !text.isAtWord();
    text.passWhiteSpace();
  }
}

/// The same as findWords() by a search for the first word, or nothing when that stands in so many places that words had better be
/// compared in turn. The text begins with a word.
std::optional<std::size_t> findByFirstWord(Bytes text, Bytes phrase)
{
  phrase.passWhiteSpace();
  const char* const endOfFirst = std::find_if(phrase.begin, phrase.end, isWhiteSpace);
  TextSearch<Forward> search(text.begin, static_cast<std::size_t>(text.end - text.begin), phrase.begin,
                             static_cast<std::size_t>(endOfFirst - phrase.begin));
  std::size_t compared = 0;
  for (std::size_t at = search.next(); at != nowhere; at = search.next()) {
    if (at > 0 && !isWhiteSpace(text.begin[at - 1]))
      continue;
    Bytes rest = {text.begin + at, text.end};
    if (beginsWith(rest, phrase))
      return at;
    compared += static_cast<std::size_t>(rest.begin - text.begin) - at;
    if (compared > 1024 + 4 * at)
      return std::nullopt;
  }
  return nowhere;
}

/// The position of the first word at or behind `startPos`, where one begins, where the phrase stands; 0 if nowhere.
unsigned positionOfPhrase(const IBuffer& text, const IBuffer& phrase, unsigned startPos)
{
  if (findsWordsByBytes(text) && findsWordsByBytes(phrase)) {
    const auto found = findByFirstWord({text.contents() + (startPos - 1), text.contents() + text.length()},
                                       {phrase.contents(), phrase.contents() + phrase.length()});
    if (found)
      return positionBehind(startPos - 1, *found);
  }
  return findWords(WordsOf(text, startPos), WordsOf(phrase));
}

}  // namespace

unsigned long IString::findPhrase(const IString& aPhrase, unsigned long startWord, IndexType charOrWord) const
{
  if (startWord > largestNumber)
    return 0;
  const unsigned sought = static_cast<unsigned>(measureWords(*aPhrase.buffer()).words);
  unsigned first = static_cast<unsigned>(startWord);
  const unsigned last = first + sought - 1;
  // Word numbers wrap around at 32 bits: a start so large that the phrase would end beyond the largest number finds
  // it from the first word on.  Test: Phrases.AStartThatWrapsAroundSearchesFromTheFirstWord
  const bool wrapsAround = last < first;
  if ((wrapsAround || sought == 0) && last > numWords())
    return 0;
  if (sought == 0)
    return charOrWord == wordIndex ? first : indexOfWord(first);

  if (wrapsAround || first == 0)
    first = 1;
  const unsigned start = wordNumbered(*buffer(), first).pos;
  const unsigned pos = start == 0 ? 0 : positionOfPhrase(*buffer(), *aPhrase.buffer(), start);
  if (charOrWord == charIndex || pos == 0)
    return pos;
  return first + static_cast<unsigned>(measureWords(*buffer(), start, pos).words);
}

// ---- removing and respacing ----

IString& IString::removeWords(unsigned long firstWord, unsigned long numWords)
{
  if (numWords == 0)
    return *this;
  const unsigned start = wordNumbered(*buffer(), firstWord).pos;
  if (start == 0)
    return *this;
  WordReader reader(*buffer(), start);
  unsigned next = reader.next().pos;
  for (unsigned long removed = 0; removed < numWords && next != 0; ++removed)
    next = reader.next().pos;
  const unsigned end = next == 0 ? length() + 1 : next;
  return remove(start, end - start);
}

namespace {

/// Writes the words of a text and what is to stand between them.
void writeWords(char* to, const IBuffer& text, unsigned spaces, char spaceChar)
{
  WordReader reader(text);
  Word word = reader.next();
  for (;;) {
    to = std::copy_n(text.contents() + (word.pos - 1), word.len, to);
    word = reader.next();
    if (word.pos == 0)
      return;
    to = std::fill_n(to, spaces, spaceChar);
  }
}

}  // namespace

IString& IString::space(unsigned long numSpaces, char spaceChar)
{
  if (length() == 0)
    return *this;
  const unsigned spaces = static_cast<unsigned>(std::min<unsigned long>(numSpaces, largestNumber));
  const WordTotals totals = measureWords(*buffer());
  if (totals.words == 0)
    return adopt(buffer()->null()->addRef());
  const std::uint64_t newLength = totals.bytes + std::uint64_t{totals.words - 1} * spaces;
  if (newLength > largestNumber)
    IBuffer::overflow();

  IBuffer* const spaced = buffer()->allocate(static_cast<unsigned>(newLength));
  if (spaces <= 1 && findsWordsByBytes(*buffer()))  // as nearly always
    vectors().copyWords(pBuffer, length(), spaced->contents(), spaced->length(), spaces == 1, spaceChar);
  else
    writeWords(spaced->contents(), *buffer(), spaces, spaceChar);
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
