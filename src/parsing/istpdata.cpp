// istpdata.cpp - IStringParserData: what each element of a template does.
// Tests: tests/parsing/parser_test.cpp
#include "parsing/istpdata.hpp"

#include "parsing/partoftext.hpp"

#include <algorithm>
#include <climits>
#include <cstring>
#include <limits>

using quelmcl::detail::isOfBytes;
using quelmcl::detail::PartOfText;

namespace {

/// The text from a position on, shared where that is all of it.
IString restFrom(const IString& text, unsigned long position)
{
  return position == 1 ? text : text.subString(static_cast<unsigned>(position));
}

/// Makes a variable the text from `from` to before `behind`, or empty where that is nothing. Mostly it is that already,
/// from when it was cut down to a word.
void assignPart(IString* token, const IString& text, unsigned long from, unsigned long behind)
{
  if (token == nullptr)
    return;
  const unsigned length = from < behind ? static_cast<unsigned>(behind - from) : 0;
  const char* const part = static_cast<const char*>(text) + (length == 0 ? 0 : from - 1);
  if (token->length() == length && isOfBytes(*token) == isOfBytes(text) &&
      std::memcmp(static_cast<const char*>(*token), part, length) == 0)
    return;
  if (length == 0)
    *token = IString();
  else
    *token = length == text.length() ? text : text.subString(static_cast<unsigned>(from), length);
}

}  // namespace

// ---- life cycle ----

IStringParserData::IStringParserData(const IString& text)
  : parseText(text),
    currentPosition(1),
    patternPosition(1),
    patternLength(0),
    tokenCount(0),
    tokenArraySize(0),
    lastToken(nullptr),
    lastSkip(0),
    refs(1)
{
}

IStringParserData::~IStringParserData() = default;

void IStringParserData::removeRef() noexcept
{
  if (--refs == 0)
    delete this;
}

// ---- tokens and skips ----

void IStringParserData::processToken(IString& token)
{
  reparseLastToken();
  token = currentPosition < behindText() ? restFrom(parseText, currentPosition) : IString();
  lastToken = &token;
  saveToken(&token);
}

void IStringParserData::processSkip()
{
  processSkips(1);
}

// Where the text has no more words, no further skip changes anything; but if a position is set next, the last match may
// be shared out once more, and has no more words than bytes.
void IStringParserData::processSkips(unsigned long count)
{
  PartOfText words(parseText, behindText());
  for (; count > 0 && currentPosition < behindText(); --count)
    skipWord(words);
  for (count = std::min(count, patternLength + 1); count > 0; --count)
    skipWord(words);
}

void IStringParserData::skipWord(PartOfText& words)
{
  reparseLastToken(words);
  saveToken(nullptr);
  lastSkip = 1;
}

/// Cuts the token assigned last down to one word, or passes over the word to skip.
void IStringParserData::reparseLastToken()
{
  if (lastToken == nullptr && !lastSkip)
    return;
  PartOfText words(parseText, behindText());
  reparseLastToken(words);
}

void IStringParserData::reparseLastToken(PartOfText& words)
{
  if (lastToken == nullptr && !lastSkip)
    return;
  const PartOfText::Word word = words.wordFrom(currentPosition);
  IString* const token = lastToken;
  if (token != nullptr && word.start == 0)
    *token = IString();
  else if (token != nullptr && word.start > currentPosition)
    *token = parseText.subString(static_cast<unsigned>(word.start), word.length());
  else if (token != nullptr && word.end < behindText())
    token->remove(word.length() + 1);
  currentPosition = word.next;
  lastToken = nullptr;
  lastSkip = 0;
}

/// Shares the text from `startPos` to before `stopPos` out to the tokens saved: a word to each, the rest to the last.
void IStringParserData::reparseTokens(unsigned long startPos, unsigned long stopPos)
{
  if (isOfBytes(parseText))
    shareOut(parseText, startPos, stopPos);
  else {  // what is left of characters at the ends is for subString to say
    const IString section(
      parseText.subString(static_cast<unsigned>(startPos), static_cast<unsigned>(stopPos - startPos)));
    shareOut(section, 1, section.length() + 1ul);
  }
  clearSavedTokens();
}

void IStringParserData::shareOut(const IString& text, unsigned long from, unsigned long behind)
{
  PartOfText words(text, behind);
  for (unsigned long i = 0; i < tokenCount; ++i) {
    IString* const token = usedTokens[i];
    if (i + 1 == tokenCount) {
      assignPart(token, text, from, behind);
      break;
    }
    const PartOfText::Word word = words.wordFrom(from);
    assignPart(token, text, word.start, word.start == 0 ? 0 : word.end);
    from = word.next;
  }
}

// The array grows by half its size at least, so that very many skips stay linear.
void IStringParserData::saveToken(IString* token)
{
  if (tokenArraySize <= tokenCount + 1) {
    const unsigned long larger = tokenArraySize + std::max(10ul, tokenArraySize / 2);
    std::unique_ptr<IString*[]> tokens(new IString*[larger]);
    std::copy_n(usedTokens.get(), tokenCount, tokens.get());
    usedTokens = std::move(tokens);
    tokenArraySize = larger;
  }
  usedTokens[tokenCount++] = token;
}

void IStringParserData::clearSavedTokens() noexcept
{
  tokenCount = 0;
  lastToken = nullptr;
  lastSkip = 0;
}

// ---- patterns ----

/// Where a pattern is searched for: behind the last one, whatever tokens have taken meanwhile.
unsigned IStringParserData::searchStart() const noexcept
{
  return static_cast<unsigned>(patternPosition + patternLength);
}

void IStringParserData::processPattern(const IString& pattern)
{
  const unsigned length = pattern.length();
  matched(parseText.indexOf(pattern, searchStart()), length);
}

void IStringParserData::processPattern(const char* pattern)
{
  const unsigned found = parseText.indexOf(pattern, searchStart());
  matched(found, found == 0 ? 0 : static_cast<unsigned long>(std::strlen(pattern)));
}

void IStringParserData::processPattern(char pattern)
{
  matched(parseText.indexOf(pattern, searchStart()), 1);
}

/// Goes on behind what was found at `position`, or behind the text for 0.
void IStringParserData::matched(unsigned long position, unsigned long length)
{
  if (position != 0 && tokenCount > 0)
    reparseTokens(searchStart(), position);
  patternPosition = position == 0 ? behindText() : position;
  patternLength = position == 0 ? 0 : length;
  currentPosition = patternPosition + patternLength;
  clearSavedTokens();
}

void IStringParserData::processTest(const IStringTest& test)
{
  const unsigned found = parseText.indexOf(test, searchStart());
  setPosition(found == 0 ? behindText() : found);
}

// ---- positions ----

void IStringParserData::setPosition(unsigned long position)
{
  const unsigned long reached = std::max(position, 1ul);
  if (reached < behindText() && reached > searchStart() && tokenCount > 0)
    reparseTokens(searchStart(), reached);
  patternPosition = std::min(reached, behindText());
  patternLength = 0;
  currentPosition = patternPosition;
  clearSavedTokens();
}

/// Shares out what follows the beginning of the last match, when a move leaves the text behind it.
void IStringParserData::reparseMatch()
{
  if (patternLength != 0 && tokenCount > 0)
    reparseTokens(patternPosition, behindText());
}

// Deliberate: distances count from where the last pattern begins, not from where it ends.
// Test: Parser.ARelativePositionCountsFromWhereTheLiteralBegins
void IStringParserData::changePosition(unsigned long distance)
{
  const bool isOverflow = distance > std::numeric_limits<unsigned long>::max() - patternPosition;
  const unsigned long target = isOverflow ? behindText() : patternPosition + distance;
  if (target >= behindText())
    reparseMatch();
  patternLength = 0;
  setPosition(target);
}

void IStringParserData::changePosition(int delta)
{
  if (delta >= 0)
    changePosition(static_cast<unsigned long>(delta));
  else
    moveBack(delta == INT_MIN ? patternPosition : static_cast<unsigned long>(-delta));
}

void IStringParserData::moveBack(unsigned long distance)
{
  reparseMatch();
  patternLength = 0;
  setPosition(distance < patternPosition ? patternPosition - distance : 1);
}
