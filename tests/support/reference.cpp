// reference.cpp - what every operation on texts is to answer: slow, obvious, and sharing no line with the library.
#include "support/reference.hpp"

#include <climits>
#include <cstddef>
#include <ctype.h>

namespace reference {

namespace {

using std::size_t;

// Wide enough that no sum of two lengths or positions wraps around.
using Wide = unsigned long long;

Wide lengthOf(const std::string& text)
{
  return text.size();
}

char at(const std::string& text, Wide pos)
{
  return text.at(static_cast<size_t>(pos - 1));
}

/// The bytes from `first` to `last`, both included; none when `last` comes before `first`.
std::string piece(const std::string& text, Wide first, Wide last)
{
  std::string bytes;
  for (Wide pos = first; pos <= last; ++pos)
    bytes += at(text, pos);
  return bytes;
}

std::string padding(Wide count, char pad)
{
  return std::string(static_cast<size_t>(count), pad);
}

Test isIn(const std::string& set)
{
  return [set](int character) { return set.find(static_cast<char>(character)) != std::string::npos; };
}

Test isNot(const Test& test)
{
  return [test](int character) { return test(character) == 0; };
}

bool passes(const Test& test, char byte)
{
  return test(static_cast<signed char>(byte)) != 0;
}

unsigned firstThatPasses(const std::string& text, const Test& test, unsigned startPos)
{
  const Wide start = startSearch(text, startPos, 1);
  if (start == 0)
    return 0;
  for (Wide pos = start; pos <= lengthOf(text); ++pos)
    if (passes(test, at(text, pos)))
      return static_cast<unsigned>(pos);
  return 0;
}

unsigned lastThatPasses(const std::string& text, const Test& test, unsigned startPos)
{
  for (Wide pos = startBackwardsSearch(text, startPos, 1); pos > 0; --pos)
    if (passes(test, at(text, pos)))
      return static_cast<unsigned>(pos);
  return 0;
}

}  // namespace

// ---- comparison and classes ----

int compare(const std::string& text, const std::string& other)
{
  for (size_t i = 0; i < text.size() && i < other.size(); ++i) {
    const unsigned char mine = static_cast<unsigned char>(text[i]);
    const unsigned char theirs = static_cast<unsigned char>(other[i]);
    if (mine != theirs)
      return mine > theirs ? 1 : 2;
  }
  if (text.size() == other.size())
    return 0;
  return text.size() > other.size() ? 1 : 2;
}

bool isAll(const std::string& text, const Test& test)
{
  for (const char byte : text)
    if (!passes(test, byte))
      return false;
  return !text.empty();
}

bool isASCII(const std::string& text)
{
  return isAll(text, [](int character) { return character >= 0; });
}

bool isBinaryDigits(const std::string& text)
{
  return isAll(text, [](int character) { return character == '0' || character == '1'; });
}

// ---- searching ----

unsigned startSearch(const std::string& text, unsigned startPos, unsigned searchLen)
{
  const Wide start = startPos == 0 ? 1 : startPos;
  if (start > lengthOf(text) || searchLen > lengthOf(text) - start + 1)
    return 0;
  return static_cast<unsigned>(start);
}

unsigned startBackwardsSearch(const std::string& text, unsigned startPos, unsigned searchLen)
{
  if (searchLen > lengthOf(text))
    return 0;
  Wide start = startPos;
  if (start > lengthOf(text))
    start = lengthOf(text);
  if (start > lengthOf(text) - searchLen + 1)
    start = lengthOf(text) - searchLen + 1;
  return static_cast<unsigned>(start);
}

unsigned indexOf(const std::string& text, const std::string& needle, unsigned startPos)
{
  const Wide start = startSearch(text, startPos, static_cast<unsigned>(needle.size()));
  if (start == 0 || needle.empty())
    return 0;
  for (Wide pos = start; pos + needle.size() - 1 <= lengthOf(text); ++pos)
    if (piece(text, pos, pos + needle.size() - 1) == needle)
      return static_cast<unsigned>(pos);
  return 0;
}

unsigned indexOf(const std::string& text, const Test& test, unsigned startPos)
{
  return indexOfAnyOf(text, test, startPos);
}

unsigned indexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos)
{
  return firstThatPasses(text, isIn(set), startPos);
}

unsigned indexOfAnyOf(const std::string& text, const Test& test, unsigned startPos)
{
  return firstThatPasses(text, test, startPos);
}

unsigned indexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos)
{
  return firstThatPasses(text, isNot(isIn(set)), startPos);
}

unsigned indexOfAnyBut(const std::string& text, const Test& test, unsigned startPos)
{
  return firstThatPasses(text, isNot(test), startPos);
}

unsigned lastIndexOf(const std::string& text, const std::string& needle, unsigned startPos)
{
  if (needle.empty())
    return 0;
  for (Wide pos = startBackwardsSearch(text, startPos, static_cast<unsigned>(needle.size())); pos > 0; --pos)
    if (piece(text, pos, pos + needle.size() - 1) == needle)
      return static_cast<unsigned>(pos);
  return 0;
}

unsigned lastIndexOf(const std::string& text, const Test& test, unsigned startPos)
{
  return lastIndexOfAnyOf(text, test, startPos);
}

unsigned lastIndexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos)
{
  return lastThatPasses(text, isIn(set), startPos);
}

unsigned lastIndexOfAnyOf(const std::string& text, const Test& test, unsigned startPos)
{
  return lastThatPasses(text, test, startPos);
}

unsigned lastIndexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos)
{
  return lastThatPasses(text, isNot(isIn(set)), startPos);
}

unsigned lastIndexOfAnyBut(const std::string& text, const Test& test, unsigned startPos)
{
  return lastThatPasses(text, isNot(test), startPos);
}

unsigned occurrencesOf(const std::string& text, const std::string& needle, unsigned startPos)
{
  unsigned count = 0;
  for (unsigned pos = indexOf(text, needle, startPos); pos != 0;) {
    ++count;
    pos = indexOf(text, needle, pos + static_cast<unsigned>(needle.size()));
  }
  return count;
}

unsigned occurrencesOf(const std::string& text, const Test& test, unsigned startPos)
{
  unsigned count = 0;
  for (unsigned pos = indexOf(text, test, startPos); pos != 0; pos = indexOf(text, test, pos + 1))
    ++count;
  return count;
}

// ---- substrings ----

std::string subString(const std::string& text, unsigned startPos, unsigned length, char pad)
{
  const Wide start = startPos == 0 ? 1 : startPos;
  std::string result;
  for (Wide pos = start; pos < start + length; ++pos)
    result += pos <= lengthOf(text) ? at(text, pos) : pad;
  return result;
}

std::string subString(const std::string& text, unsigned startPos)
{
  if (startPos > lengthOf(text))
    return "";
  return subString(text, startPos, static_cast<unsigned>(lengthOf(text) - startPos + 1), ' ');
}

// ---- editing ----

std::string center(const std::string& text, unsigned newLength, char pad)
{
  if (newLength < lengthOf(text)) {
    const Wide first = (lengthOf(text) - newLength) / 2 + 1;
    return piece(text, first, first + newLength - 1);
  }
  const Wide surplus = newLength - lengthOf(text);
  return padding(surplus / 2, pad) + text + padding(surplus - surplus / 2, pad);
}

std::string leftJustify(const std::string& text, unsigned newLength, char pad)
{
  if (newLength < lengthOf(text))
    return piece(text, 1, newLength);
  return text + padding(newLength - lengthOf(text), pad);
}

std::string rightJustify(const std::string& text, unsigned newLength, char pad)
{
  if (newLength < lengthOf(text))
    return piece(text, lengthOf(text) - newLength + 1, lengthOf(text));
  return padding(newLength - lengthOf(text), pad) + text;
}

std::string insert(const std::string& text, const std::string& inserted, unsigned index, char pad)
{
  if (index > lengthOf(text))
    return text + padding(index - lengthOf(text), pad) + inserted;
  return piece(text, 1, index) + inserted + piece(text, Wide{index} + 1, lengthOf(text));
}

std::string overlayWith(const std::string& text, const std::string& overlay, unsigned index, char pad)
{
  if (overlay.empty() && index <= lengthOf(text))
    return text;
  const Wide kept = index == 0 ? 0 : index - 1;
  if (kept > lengthOf(text))
    return text + padding(kept - lengthOf(text), pad) + overlay;
  return piece(text, 1, kept) + overlay + piece(text, kept + overlay.size() + 1, lengthOf(text));
}

std::string remove(const std::string& text, unsigned startPos, unsigned numChars)
{
  const Wide start = startPos == 0 ? 1 : startPos;
  std::string result;
  for (Wide pos = 1; pos <= lengthOf(text); ++pos)
    if (pos < start || pos >= start + numChars)
      result += at(text, pos);
  return result;
}

std::string copy(const std::string& text, unsigned numCopies)
{
  std::string result;
  if (!text.empty())
    for (unsigned i = 0; i < numCopies; ++i)
      result += text;
  return result;
}

std::string reverse(const std::string& text)
{
  std::string result;
  for (Wide pos = lengthOf(text); pos > 0; --pos)
    result += at(text, pos);
  return result;
}

std::string lowerCase(const std::string& text)
{
  return translate(text, "ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz", '?');
}

std::string upperCase(const std::string& text)
{
  return translate(text, "abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ", '?');
}

std::string strip(const std::string& text, const std::string& set, int mode)
{
  return strip(text, isIn(set), mode);
}

std::string strip(const std::string& text, const Test& test, int mode)
{
  std::string result = text;
  if (mode != 1)
    while (!result.empty() && passes(test, result.front()))
      result.erase(0, 1);
  if (mode != 0)
    while (!result.empty() && passes(test, result.back()))
      result.pop_back();
  return result;
}

std::string translate(const std::string& text, const std::string& input, const std::string& output, char pad)
{
  std::string result;
  for (const char byte : text) {
    const size_t place = input.find(byte);
    if (place == std::string::npos)
      result += byte;
    else
      result += place < output.size() ? output[place] : pad;
  }
  return result;
}

std::string change(const std::string& text, const std::string& pattern, const std::string& replacement,
                   unsigned startPos, unsigned numChanges)
{
  std::string result;
  Wide copied = 0;  // this many bytes of the text have been dealt with
  unsigned from = startPos;
  for (unsigned done = 0; done < numChanges; ++done) {
    const unsigned found = indexOf(text, pattern, from);
    if (found == 0)
      break;
    result += piece(text, copied + 1, Wide{found} - 1) + replacement;
    copied = Wide{found} - 1 + pattern.size();
    from = found + static_cast<unsigned>(pattern.size());
  }
  return result + piece(text, copied + 1, lengthOf(text));
}

// ---- bits ----

namespace {

template <class Combine>
std::string combined(const std::string& text, const std::string& argument, Combine combine)
{
  std::string result = text;
  if (!argument.empty())
    for (size_t i = 0; i < text.size(); ++i)
      result[i] = static_cast<char>(
        combine(static_cast<unsigned char>(text[i]), static_cast<unsigned char>(argument[i % argument.size()])));
  return result;
}

}  // namespace

std::string bitAnd(const std::string& text, const std::string& argument)
{
  return combined(text, argument, [](unsigned a, unsigned b) { return a & b; });
}

std::string bitOr(const std::string& text, const std::string& argument)
{
  return combined(text, argument, [](unsigned a, unsigned b) { return a | b; });
}

std::string bitExclusiveOr(const std::string& text, const std::string& argument)
{
  return combined(text, argument, [](unsigned a, unsigned b) { return a ^ b; });
}

std::string complement(const std::string& text)
{
  return bitExclusiveOr(text, "\xFF");
}

// ---- patterns ----

bool isLike(const std::string& text, const std::string& pattern, char zeroOrMore, char anyChar)
{
  if (text == pattern)
    return true;
  if (pattern.empty())
    return false;

  size_t inPattern = 0;
  size_t inText = 0;
  bool canGoBack = false;
  size_t resume = 0;   // behind the last zeroOrMore
  size_t attempt = 0;  // where in the text the attempt to match what follows it began
  while (inPattern < pattern.size()) {
    const char wanted = pattern[inPattern++];
    if (wanted == zeroOrMore) {
      if (inPattern == pattern.size())
        return true;
      canGoBack = true;
      resume = inPattern;
      attempt = inText;
      continue;
    }
    if (inText == text.size())
      return false;
    const char given = text[inText++];
    const bool matches = wanted == anyChar || wanted == given;
    const bool endsTooEarly = inPattern == pattern.size() && inText < text.size();
    if (matches && !(endsTooEarly && canGoBack))
      continue;
    if (!canGoBack)
      return false;
    inPattern = resume;
    inText = ++attempt;
  }
  return inText == text.size();
}

bool isAbbreviationFor(const std::string& text, const std::string& fullText, unsigned minLen)
{
  const size_t shortest = minLen == 0 ? text.size() : minLen;
  return text.size() <= fullText.size() && text.size() >= shortest && fullText.substr(0, text.size()) == text;
}

// ---- words ----

namespace {

bool isWhite(char byte)
{
  return byte == '\t' || byte == '\n' || byte == '\v' || byte == '\f' || byte == '\r' || byte == ' ';
}

/// What a list of words answers for word 0 and for words behind the last one.
const Word noWord = {0, ""};

const Word& entry(const std::vector<Word>& list, unsigned long number)
{
  return number == 0 || number > list.size() ? noWord : list[static_cast<size_t>(number - 1)];
}

/// The number of the word with which the phrase begins, and whether there is one. Numbers wrap around at 32 bits; larger
/// ones are no word's.
bool findPhrase(const std::vector<Word>& list, const std::vector<Word>& phrase, unsigned long startWord,
                unsigned long& hit)
{
  if (startWord > largest)
    return false;
  const unsigned phraseCount = static_cast<unsigned>(phrase.size());
  for (unsigned first = static_cast<unsigned>(startWord); phraseCount + first - 1 <= list.size(); ++first) {
    bool matches = true;
    for (unsigned j = 1; j <= phraseCount; ++j)
      matches = matches && entry(list, first + j - 1).text == entry(phrase, j).text;
    if (matches) {
      hit = first;
      return true;
    }
  }
  return false;
}

}  // namespace

std::vector<Word> wordsOf(const std::string& text)
{
  std::vector<Word> list;
  bool isInWord = false;
  for (size_t i = 0; i < text.size(); ++i) {
    if (isWhite(text[i])) {
      isInWord = false;
      continue;
    }
    if (!isInWord)
      list.push_back({static_cast<unsigned long>(i + 1), ""});
    isInWord = true;
    list.back().text += text[i];
  }
  return list;
}

unsigned long numWords(const std::string& text)
{
  return static_cast<unsigned long>(wordsOf(text).size());
}

std::string word(const std::string& text, unsigned long wordNumber)
{
  return entry(wordsOf(text), wordNumber == 0 ? 1 : wordNumber).text;
}

std::string words(const std::string& text, unsigned long firstWord)
{
  return words(text, firstWord, ULONG_MAX);
}

std::string words(const std::string& text, unsigned long firstWord, unsigned long count)
{
  const std::vector<Word> list = wordsOf(text);
  const unsigned long number = firstWord == 0 ? 1 : firstWord;
  if (number > list.size() || count == 0)
    return "";
  const unsigned long left = static_cast<unsigned long>(list.size()) - number + 1;
  const Word& first = entry(list, number);
  const Word& last = entry(list, number + (count < left ? count : left) - 1);
  return piece(text, first.pos, last.pos + last.text.size() - 1);
}

unsigned long indexOfWord(const std::string& text, unsigned long wordNumber, unsigned long startPos,
                          unsigned long passed)
{
  if (startPos == 0)
    return 0;
  unsigned long counted = passed;
  for (Wide pos = startPos; pos <= lengthOf(text); ++pos) {
    const bool isFirstOfWord = !isWhite(at(text, pos)) && (pos == startPos || isWhite(at(text, pos - 1)));
    if (isFirstOfWord && ++counted == wordNumber)
      return static_cast<unsigned long>(pos);
  }
  return 0;
}

unsigned long lengthOfWord(const std::string& text, unsigned long wordNumber)
{
  return static_cast<unsigned long>(entry(wordsOf(text), wordNumber).text.size());
}

unsigned long indexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord)
{
  unsigned long hit = 0;
  return findPhrase(wordsOf(text), wordsOf(phrase), startWord, hit) ? entry(wordsOf(text), hit).pos : 0;
}

unsigned long wordIndexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord)
{
  unsigned long hit = 0;
  return findPhrase(wordsOf(text), wordsOf(phrase), startWord, hit) ? hit : 0;
}

std::string removeWords(const std::string& text, unsigned long firstWord)
{
  return removeWords(text, firstWord, ULONG_MAX);
}

std::string removeWords(const std::string& text, unsigned long firstWord, unsigned long count)
{
  const std::vector<Word> list = wordsOf(text);
  const Word& first = entry(list, firstWord);
  if (count == 0 || first.pos == 0)
    return text;
  const bool isAnyLeft = count <= list.size() - firstWord;
  return piece(text, 1, Wide{first.pos} - 1) +
         (isAnyLeft ? piece(text, entry(list, firstWord + count).pos, lengthOf(text)) : "");
}

std::string space(const std::string& text, unsigned long numSpaces, char spaceChar)
{
  std::string result;
  for (const Word& next : wordsOf(text))
    result += (result.empty() ? "" : padding(numSpaces, spaceChar)) + next.text;
  return result;
}

}  // namespace reference
