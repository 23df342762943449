// multibyte_reference.cpp - what every operation on texts with characters of several bytes is to answer: slow, obvious,
// and sharing no line with the library.
#include "support/multibyte_reference.hpp"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cwchar>
#include <vector>

namespace reference::multibyte {

namespace {

using std::size_t;

// Wide enough that no sum of two lengths or positions wraps around.
using Wide = unsigned long long;

constexpr unsigned largest = 4294967295u;

Wide lengthOf(const std::string& text)
{
  return text.size();
}

unsigned narrow(Wide number)
{
  return static_cast<unsigned>(number);
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

/// The one rule of where characters end, looking at no more than `available` bytes.
unsigned lengthWithin(const char* p, size_t available)
{
  constexpr size_t lookAhead = 16;
  if (*p == '\0')
    return 1;
  const int answer = std::mblen(p, std::min(lookAhead, available));
  return answer <= 0 ? 1 : static_cast<unsigned>(answer);
}

/// The characters of a set or of a list.
std::vector<std::string> charactersOf(const std::string& list)
{
  std::vector<std::string> characters;
  characters.reserve(list.size());
  for (size_t offset = 0; offset < list.size();) {
    const unsigned length = lengthWithin(list.data() + offset, list.size() - offset);
    characters.push_back(list.substr(offset, length));
    offset += length;
  }
  return characters;
}

bool beginsLongCharacter(char byte)
{
  std::mbstate_t fresh = {};
  return std::mbrlen(&byte, 1, &fresh) == static_cast<size_t>(-2);
}

bool passes(const Test& test, char byte)
{
  return test(static_cast<signed char>(byte)) != 0;
}

/// The character at a position where one begins.
std::string characterAt(const std::string& text, unsigned pos)
{
  return piece(text, pos, Wide{pos} + charLength(text, pos) - 1);
}

}  // namespace

// ---- where characters begin and end ----

unsigned charLength(const std::string& text, unsigned pos)
{
  return lengthWithin(text.c_str() + (pos - 1), 16);
}

unsigned charType(const std::string& text, unsigned pos)
{
  unsigned offset = 0;
  unsigned length = charLength(text, 1);
  while (offset + length < pos) {
    offset += length;
    length = charLength(text, offset + 1);
  }
  return length == 1 ? 0 : pos - offset;
}

unsigned prevCharLength(const std::string& text, unsigned pos)
{
  if (pos == 1)
    return 1;
  const unsigned type = charType(text, pos - 1);
  return type == 0 ? 1 : type;
}

bool isCharValid(const std::string& text, unsigned pos, const std::string& set)
{
  const size_t wanted = charLength(text, pos);
  for (size_t offset = 0; set.size() - offset >= wanted;) {
    const size_t length = lengthWithin(set.data() + offset, set.size() - offset);
    if (set.compare(offset, length, text, pos - 1, wanted) == 0)
      return true;
    offset += length;
  }
  return false;
}

// ---- of what the text consists ----

bool isSBCS(const std::string& text)
{
  for (unsigned pos = 1; pos <= text.size(); pos += charLength(text, pos))
    if (charLength(text, pos) != 1)
      return false;
  return true;
}

bool isMBCS(const std::string& text)
{
  for (unsigned pos = 1; pos <= text.size(); pos += charLength(text, pos)) {
    if (charLength(text, pos) < 2)
      return false;
    const char* const p = text.c_str() + (pos - 1);
    wchar_t ignored = 0;
    static_cast<void>(std::mbtowc(&ignored, p, MB_CUR_MAX));
    if (std::mblen(p, MB_CUR_MAX) < 2)
      return false;
  }
  return true;
}

bool isValidMBCS(const std::string& text)
{
  for (unsigned pos = 1; pos <= text.size(); pos += charLength(text, pos)) {
    if (charLength(text, pos) == 1)
      return false;
    if (text.substr(pos - 1, charLength(text, pos)).find('\0') != std::string::npos)
      return false;
  }
  return true;
}

bool isAll(const std::string& text, const Test& test)
{
  return !text.empty() && indexOfAnyBut(text, test, 1) == 0;
}

bool isASCII(const std::string& text)
{
  for (const char byte : text)
    if (static_cast<unsigned char>(byte) >= 0x80)
      return false;
  return !text.empty();
}

// ---- searching ----

unsigned startSearch(const std::string& text, unsigned startPos, unsigned searchLen)
{
  const Wide length = lengthOf(text);
  Wide start = startPos == 0 ? 1 : startPos;
  if (start > length || searchLen > length - start + 1)
    return 0;
  while (start != 0 && charType(text, narrow(start)) >= 2) {
    ++start;
    if (start > length)
      start = 0;
  }
  return narrow(start);
}

unsigned startBackwardsSearch(const std::string& text, unsigned startPos, unsigned searchLen)
{
  const Wide length = lengthOf(text);
  if (searchLen > length)
    return 0;
  Wide start = startPos;
  if (start > length)
    start = length;
  if (start > length - searchLen + 1)
    start = length - searchLen + 1;
  while (start != 0 && charType(text, narrow(start)) >= 2)
    --start;
  return narrow(start);
}

unsigned indexOf(const std::string& text, const std::string& needle, unsigned startPos)
{
  if (needle.size() == 1)
    return indexOfAnyOf(text, needle, startPos);
  const unsigned start = startSearch(text, startPos, narrow(needle.size()));
  if (start == 0 || needle.empty())
    return 0;
  for (unsigned pos = start; pos + needle.size() - 1 <= text.size(); pos += charLength(text, pos))
    if (text.compare(pos - 1, needle.size(), needle) == 0)
      return pos;
  return 0;
}

unsigned indexOf(const std::string& text, const Test& test, unsigned startPos)
{
  return indexOfAnyOf(text, test, startPos);
}

unsigned indexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos)
{
  const unsigned start = startSearch(text, startPos, 1);
  if (start == 0 || set.empty())
    return 0;
  for (unsigned pos = start; pos <= text.size(); pos += charLength(text, pos))
    if (set.size() == 1 ? at(text, pos) == set[0] : isCharValid(text, pos, set))
      return pos;
  return 0;
}

// From a beginning of a character on, every byte.
unsigned indexOfAnyOf(const std::string& text, const Test& test, unsigned startPos)
{
  const unsigned start = startSearch(text, startPos, 1);
  if (start == 0)
    return 0;
  for (unsigned pos = start; pos <= text.size(); ++pos)
    if (passes(test, at(text, pos)))
      return pos;
  return 0;
}

unsigned indexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos)
{
  const unsigned start = startSearch(text, startPos, 1);
  if (start == 0 || set.empty())
    return start;
  if (set.size() == 1) {
    if (beginsLongCharacter(set[0]))
      return start;
    for (unsigned pos = start; pos <= text.size(); ++pos)
      if (at(text, pos) != set[0])
        return pos;
    return 0;
  }
  for (unsigned pos = start; pos <= text.size(); pos += charLength(text, pos))
    if (!isCharValid(text, pos, set))
      return pos;
  return 0;
}

unsigned indexOfAnyBut(const std::string& text, const Test& test, unsigned startPos)
{
  const unsigned start = startSearch(text, startPos, 1);
  if (start == 0)
    return 0;
  for (unsigned pos = start; pos <= text.size(); pos += charLength(text, pos))
    if (!passes(test, at(text, pos)))
      return pos;
  return 0;
}

namespace {

/// The first position for which `claim` holds, from the one where a backward search begins, character by character to
/// the front.
template <class Claim>
unsigned lastWhere(const std::string& text, unsigned start, Claim claim)
{
  for (unsigned pos = start; pos != 0; pos -= prevCharLength(text, pos))
    if (claim(pos))
      return pos;
  return 0;
}

}  // namespace

unsigned lastIndexOf(const std::string& text, const std::string& needle, unsigned startPos)
{
  const unsigned start = startBackwardsSearch(text, startPos, narrow(needle.size()));
  if (start == 0 || needle.empty())
    return 0;
  return lastWhere(text, start, [&](unsigned pos) { return text.compare(pos - 1, needle.size(), needle) == 0; });
}

unsigned lastIndexOf(const std::string& text, const Test& test, unsigned startPos)
{
  return lastIndexOfAnyOf(text, test, startPos);
}

unsigned lastIndexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos)
{
  const unsigned start = startBackwardsSearch(text, startPos, 1);
  if (start == 0 || set.empty())
    return 0;
  if (set.size() == 1)
    return lastWhere(text, start, [&](unsigned pos) { return at(text, pos) == set[0]; });
  return lastWhere(text, start, [&](unsigned pos) { return isCharValid(text, pos, set); });
}

unsigned lastIndexOfAnyOf(const std::string& text, const Test& test, unsigned startPos)
{
  const unsigned start = startBackwardsSearch(text, startPos, 1);
  return lastWhere(text, start, [&](unsigned pos) { return passes(test, at(text, pos)); });
}

unsigned lastIndexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos)
{
  const unsigned start = startBackwardsSearch(text, startPos, 1);
  if (start == 0 || set.empty())
    return start;
  if (set.size() == 1) {
    if (beginsLongCharacter(set[0]))
      return 0;
    return lastWhere(text, start, [&](unsigned pos) { return at(text, pos) != set[0]; });
  }
  return lastWhere(text, start, [&](unsigned pos) { return !isCharValid(text, pos, set); });
}

unsigned lastIndexOfAnyBut(const std::string& text, const Test& test, unsigned startPos)
{
  const unsigned start = startBackwardsSearch(text, startPos, 1);
  return lastWhere(text, start, [&](unsigned pos) { return !passes(test, at(text, pos)); });
}

unsigned occurrencesOf(const std::string& text, const std::string& needle, unsigned startPos)
{
  unsigned count = 0;
  for (unsigned pos = indexOf(text, needle, startPos); pos != 0;) {
    ++count;
    pos = indexOf(text, needle, pos + narrow(needle.size()));
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

// ---- editing: fitting into a length ----

namespace {

/// Overwrites what the result holds of the character that the cut behind it went through; `behind` is the position in
/// the text of the byte that is the first not to be kept.
void repairEnd(std::string& result, const std::string& text, Wide behind, char filler)
{
  if (behind > lengthOf(text))
    return;
  const unsigned type = charType(text, narrow(behind));
  for (unsigned i = 1; i < type && i <= result.size(); ++i)
    result[result.size() - i] = filler;
}

/// Overwrites, from position `inResult` of the result on, what is left of the character that a cut before position
/// `pos` of the text went through.
void repairFront(std::string& result, Wide inResult, const std::string& text, Wide pos, char filler)
{
  for (; pos <= lengthOf(text) && inResult <= lengthOf(result) && charType(text, narrow(pos)) >= 2; ++pos, ++inResult)
    result.at(static_cast<size_t>(inResult - 1)) = filler;
}

}  // namespace

std::string subString(const std::string& text, unsigned startPos, unsigned length, char pad)
{
  const Wide first = startPos == 0 ? 1 : startPos;
  std::string result;
  for (Wide pos = first; pos < first + length; ++pos)
    result += pos <= lengthOf(text) ? at(text, pos) : pad;

  const Wide start = first > lengthOf(text) ? 1 : first;
  repairFront(result, 1, text, start, pad);
  repairEnd(result, text, start + length, pad);
  return result;
}

Result center(const std::string& text, unsigned newLength, char pad)
{
  const Wide length = lengthOf(text);
  if (newLength == length)
    return {text, Result::receiver};
  if (newLength > length) {
    const Wide added = newLength - length;
    return {padding(added / 2, pad) + text + padding(added - added / 2, pad), Result::fresh};
  }
  Wide start = (length - newLength) / 2 + 1;
  while (start >= 2 && charType(text, narrow(start)) >= 2)
    --start;
  std::string result = piece(text, start, start + newLength - 1);
  repairEnd(result, text, start + newLength, pad);
  return {result, Result::fresh};
}

Result leftJustify(const std::string& text, unsigned newLength, char pad)
{
  const Wide length = lengthOf(text);
  if (newLength == length)
    return {text, Result::receiver};
  if (newLength > length)
    return {text + padding(newLength - length, pad), Result::fresh};
  std::string result = piece(text, 1, newLength);
  repairEnd(result, text, Wide{newLength} + 1, pad);
  return {result, Result::fresh};
}

Result rightJustify(const std::string& text, unsigned newLength, char pad)
{
  const Wide length = lengthOf(text);
  if (newLength == length)
    return {text, Result::receiver};
  if (newLength > length)
    return {padding(newLength - length, pad) + text, Result::fresh};
  const Wide first = length - newLength + 1;
  std::string result = piece(text, first, length);
  repairFront(result, 1, text, first, pad);
  return {result, Result::fresh};
}

// ---- editing: putting in, over, out ----

Result insert(const std::string& text, const std::string& inserted, unsigned index, char pad)
{
  const Wide length = lengthOf(text);
  if (inserted.empty() && index <= length)
    return {text, Result::receiver};
  if (index > length)
    return {text + padding(index - length, pad) + inserted, Result::fresh};
  if (index < length)
    while (index > 0 && charType(text, index + 1) >= 2)
      --index;
  return {piece(text, 1, index) + inserted + piece(text, Wide{index} + 1, length), Result::fresh};
}

Result overlayWith(const std::string& text, const std::string& overlay, unsigned index, char pad)
{
  const Wide length = lengthOf(text);
  if (overlay.empty() && index <= length)
    return {text, Result::receiver};
  const Wide start = index == 0 ? 1 : index;
  if (start - 1 > length)
    return {text + padding(start - 1 - length, pad) + overlay, Result::fresh};

  std::string result = piece(text, 1, start - 1) + overlay + piece(text, start + overlay.size(), length);
  const unsigned type = start <= length && start > 1 ? charType(text, narrow(start)) : 0;
  for (Wide i = 1; i < type && i < start; ++i)
    result.at(static_cast<size_t>(start - i - 1)) = ' ';
  repairFront(result, start + overlay.size(), text, start + overlay.size(), pad);
  return {result, Result::fresh};
}

Result remove(const std::string& text, unsigned startPos, unsigned numChars)
{
  const Wide length = lengthOf(text);
  if (startPos > length || length == 0)
    return {text, Result::receiver};
  const Wide start = startPos == 0 ? 1 : startPos;
  const Wide removed = std::min<Wide>(numChars, length - start + 1);

  std::string result = piece(text, 1, start - 1) + piece(text, start + removed, length);
  const unsigned type = start >= 2 ? charType(text, narrow(start)) : 0;
  for (Wide i = 1; i < type && i < start; ++i)
    result.at(static_cast<size_t>(start - i - 1)) = ' ';
  repairFront(result, start, text, start + removed, ' ');
  return {result, Result::fresh};
}

Result copy(const std::string& text, unsigned numCopies)
{
  if (text.empty() || numCopies == 1)
    return {text, Result::receiver};
  std::string result;
  for (unsigned i = 0; i < numCopies; ++i)
    result += text;
  return {result, Result::fresh};
}

// ---- editing: every character ----

namespace {

Result letterByLetter(const std::string& text, const std::string& letters, int distance)
{
  unsigned pos = indexOfAnyOf(text, letters, 1);
  if (pos == 0)
    return {text, Result::receiver};
  std::string result = text;
  while (pos != 0) {
    if (charType(result, pos) == 0)
      result[pos - 1] = static_cast<char>(result[pos - 1] + distance);
    pos = indexOfAnyOf(result, letters, pos + 1);
  }
  return {result, Result::edited};
}

}  // namespace

Result lowerCase(const std::string& text)
{
  return letterByLetter(text, "ABCDEFGHIJKLMNOPQRSTUVWXYZ", 0x20);
}

Result upperCase(const std::string& text)
{
  return letterByLetter(text, "abcdefghijklmnopqrstuvwxyz", -0x20);
}

Result reverse(const std::string& text)
{
  if (text.size() < 2)
    return {text, Result::receiver};
  std::string result;
  for (unsigned pos = 1; pos <= text.size(); pos += charLength(text, pos))
    result = characterAt(text, pos) + result;
  return {result, Result::fresh};
}

std::optional<std::string> translate(const std::string& text, const std::string& input, const std::string& output,
                                     char pad)
{
  struct Occurrence {
    unsigned offset;
    std::string in;
    std::string out;
  };
  const std::vector<std::string> in = charactersOf(input);
  const std::vector<std::string> out = charactersOf(output);

  std::vector<Occurrence> found;
  long long added = 0;
  for (unsigned pos = indexOfAnyOf(text, input, 1); pos != 0; pos = indexOfAnyOf(text, input, pos + 1)) {
    const size_t entry = static_cast<size_t>(std::find(in.begin(), in.end(), characterAt(text, pos)) - in.begin());
    if (entry == in.size())
      continue;
    found.push_back({pos - 1, in[entry], entry < out.size() ? out[entry] : std::string(1, pad)});
    added += static_cast<long long>(found.back().out.size()) - static_cast<long long>(found.back().in.size());
  }
  if (added < 0)
    return std::nullopt;

  std::string result = text + std::string(static_cast<size_t>(added), ' ');
  size_t written = 0;
  size_t read = 0;
  const auto write = [&](char byte) {
    if (written < result.size())
      result[written] = byte;
    ++written;
  };
  for (const Occurrence& occurrence : found) {
    while (read < occurrence.offset)
      write(text[read++]);
    for (const char byte : occurrence.out)
      write(byte);
    read += occurrence.in.size();
  }
  while (read < text.size() && text[read] != '\0')
    write(text[read++]);
  write('\0');
  return result;
}

// ---- editing: both ends ----

namespace {

template <class Outside>
Result stripped(const std::string& text, const Outside& members, int mode)
{
  const Wide length = lengthOf(text);
  if (text.empty())
    return {text, Result::receiver};
  const unsigned first = mode == 1 ? 1 : indexOfAnyBut(text, members, 1);
  Wide last = length;
  if (mode != 0 && first != 0) {
    last = lastIndexOfAnyBut(text, members, narrow(length));
    if (last != 0)
      last += charLength(text, narrow(last)) - 1;
  }
  if (first == 1 && last == length)
    return {text, Result::receiver};
  return {first == 0 ? "" : piece(text, first, last), Result::fresh};
}

}  // namespace

Result strip(const std::string& text, const std::string& set, int mode)
{
  return stripped(text, set, mode);
}

Result strip(const std::string& text, const Test& test, int mode)
{
  return stripped(text, test, mode);
}

Result change(const std::string& text, const std::string& pattern, const std::string& replacement, unsigned startPos,
              unsigned numChanges)
{
  std::string result;
  Wide done = 0;  // this many bytes of the text have been dealt with
  unsigned from = startPos;
  bool isChanged = false;
  for (unsigned changes = 0; changes < numChanges; ++changes) {
    const unsigned found = indexOf(text, pattern, from);
    if (found == 0)
      break;
    isChanged = true;
    result += piece(text, done + 1, Wide{found} - 1) + replacement;
    done = Wide{found} - 1 + pattern.size();
    from = found + narrow(pattern.size());
  }
  if (!isChanged)
    return {text, Result::receiver};
  result += piece(text, done + 1, lengthOf(text));
  return {result, pattern.size() == replacement.size() ? Result::edited : Result::fresh};
}

// ---- words ----

namespace {

const std::string whiteSpace = "\t\n\v\f\r ";

struct Word {
  unsigned pos;
  unsigned length;
};

/// What a list of words answers for word 0 and for words behind the last one.
constexpr Word noWord = {0, 0};

std::vector<Word> wordsOf(const std::string& text)
{
  std::vector<Word> list;
  unsigned pos = 1;
  while (pos != 0) {
    pos = indexOfAnyBut(text, whiteSpace, pos);
    if (pos == 0)
      break;
    const unsigned end = indexOfAnyOf(text, whiteSpace, pos);
    list.push_back({pos, (end == 0 ? narrow(text.size()) + 1 : end) - pos});
    pos = end;
  }
  return list;
}

Word entry(const std::vector<Word>& list, unsigned long number)
{
  return number == 0 || number > list.size() ? noWord : list[number - 1];
}

std::string bytesOf(const std::string& text, const Word& word)
{
  return word.pos == 0 ? "" : text.substr(word.pos - 1, word.length);
}

/// The number of the word with which the phrase begins, or nothing. Numbers wrap around at 32 bits; larger ones are no
/// word's.
std::optional<unsigned long> findPhrase(const std::string& text, const std::string& phrase, unsigned long startWord)
{
  const std::vector<Word> present = wordsOf(text);
  const std::vector<Word> sought = wordsOf(phrase);
  const unsigned soughtCount = narrow(sought.size());
  if (startWord > largest)
    return std::nullopt;
  for (unsigned first = narrow(startWord); soughtCount + first - 1 <= present.size(); ++first) {
    bool matches = true;
    for (unsigned j = 1; j <= soughtCount; ++j)
      matches = matches && bytesOf(phrase, entry(sought, j)) == bytesOf(text, entry(present, first + j - 1));
    if (matches)
      return first;
  }
  return std::nullopt;
}

/// The position behind the word that begins at `start`.
unsigned endOfWord(const std::string& text, unsigned start)
{
  const unsigned end = indexOfAnyOf(text, whiteSpace, start + 1);
  return end == 0 ? narrow(text.size()) + 1 : end;
}

}  // namespace

unsigned long numWords(const std::string& text)
{
  return static_cast<unsigned long>(wordsOf(text).size());
}

unsigned long indexOfWord(const std::string& text, unsigned long wordNumber, unsigned long startPos,
                          unsigned long passed)
{
  unsigned pos = startPos > largest ? largest : static_cast<unsigned>(startPos);
  while (pos != 0) {
    pos = indexOfAnyBut(text, whiteSpace, pos);
    if (pos == 0)
      return 0;
    if (++passed == wordNumber)
      return pos;
    pos = indexOfAnyOf(text, whiteSpace, pos);
  }
  return 0;
}

unsigned long lengthOfWord(const std::string& text, unsigned long wordNumber)
{
  const unsigned start = static_cast<unsigned>(indexOfWord(text, wordNumber));
  return start == 0 ? 0 : endOfWord(text, start) - start;
}

std::string word(const std::string& text, unsigned long wordNumber)
{
  const unsigned start = static_cast<unsigned>(indexOfWord(text, wordNumber == 0 ? 1 : wordNumber));
  return start == 0 ? "" : piece(text, start, endOfWord(text, start) - 1);
}

std::string words(const std::string& text, unsigned long firstWord, unsigned long count)
{
  const unsigned long first = firstWord == 0 ? 1 : firstWord;
  const unsigned start = static_cast<unsigned>(indexOfWord(text, first));
  if (start == 0 || count == 0)
    return "";
  unsigned lastStart = static_cast<unsigned>(indexOfWord(text, first + std::min(count, largest - first) - 1));
  if (lastStart == 0)
    lastStart = lastIndexOfAnyBut(text, whiteSpace, narrow(text.size()));
  return subString(text, start, endOfWord(text, lastStart) - start, ' ');
}

unsigned long indexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord)
{
  return entry(wordsOf(text), findPhrase(text, phrase, startWord).value_or(0)).pos;
}

unsigned long wordIndexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord)
{
  return findPhrase(text, phrase, startWord).value_or(0);
}

std::string removeWords(const std::string& text, unsigned long firstWord, unsigned long count)
{
  const unsigned start = static_cast<unsigned>(indexOfWord(text, firstWord));
  if (count == 0 || start == 0)
    return text;
  const unsigned next = static_cast<unsigned>(indexOfWord(text, firstWord + count, start, firstWord - 1));
  const unsigned end = next == 0 ? narrow(text.size()) + 1 : next;
  return remove(text, start, end - start).text;
}

std::string space(const std::string& text, unsigned long numSpaces, char spaceChar)
{
  std::string result;
  for (const Word& next : wordsOf(text))
    result += (result.empty() ? "" : padding(numSpaces, spaceChar)) + bytesOf(text, next);
  return result;
}

}  // namespace reference::multibyte
