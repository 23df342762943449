/// @file multibyte_reference.hpp
/// What every operation on a text with characters of several bytes is to answer, under the locale in force: one walk
/// from the front of the text for every question, the C library asked at every step, and no regard to cost. Tests
/// compare the library with these on many small random texts.
///
///     EXPECT_EQ(buffer->charType(3), reference::multibyte::charType(text, 3));
///
/// Positions are 1-based bytes and 0 means none; texts are std::strings, which may hold NULs. Sets and lists are read
/// up to their length and never beyond: a character that is cut off at their end is so many of one byte. Results that
/// no text can have (lengths beyond 32 bits) are none of this file's business, except where translate would make a text
/// shorter.
#ifndef QUELMCL_TESTS_SUPPORT_MULTIBYTE_REFERENCE_HPP
#define QUELMCL_TESTS_SUPPORT_MULTIBYTE_REFERENCE_HPP

#include <functional>
#include <optional>
#include <string>

namespace reference::multibyte {

/// A question about one character, which is asked as the number that a signed char is. Takes isdigit and its like.
using Test = std::function<int(int)>;

/// The text that an editing operation gives, and in which buffer.
struct Result {
  enum Buffer {
    receiver,  ///< the one that was asked, its text as it was
    edited,    ///< the one that was asked when it had a sole owner, else a new one
    fresh      ///< a new one, or the null buffer for no text
  };
  std::string text;
  Buffer buffer;
};

// ---- where characters begin and end ----

unsigned charLength(const std::string& text, unsigned pos);
/// Positions from 0 to the one behind the end.
unsigned charType(const std::string& text, unsigned pos);
/// Positions from 1 to the one behind the end.
unsigned prevCharLength(const std::string& text, unsigned pos);
bool isCharValid(const std::string& text, unsigned pos, const std::string& set);

// ---- of what the text consists ----

bool isSBCS(const std::string& text);
bool isMBCS(const std::string& text);
bool isValidMBCS(const std::string& text);
/// Whether the text is not empty and the first byte of every character passes.
bool isAll(const std::string& text, const Test& test);
bool isASCII(const std::string& text);

// ---- searching ----

unsigned startSearch(const std::string& text, unsigned startPos, unsigned searchLen);
unsigned startBackwardsSearch(const std::string& text, unsigned startPos, unsigned searchLen);

unsigned indexOf(const std::string& text, const std::string& needle, unsigned startPos);
unsigned indexOf(const std::string& text, const Test& test, unsigned startPos);
unsigned indexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos);
unsigned indexOfAnyOf(const std::string& text, const Test& test, unsigned startPos);
unsigned indexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos);
unsigned indexOfAnyBut(const std::string& text, const Test& test, unsigned startPos);
unsigned lastIndexOf(const std::string& text, const std::string& needle, unsigned startPos);
unsigned lastIndexOf(const std::string& text, const Test& test, unsigned startPos);
unsigned lastIndexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos);
unsigned lastIndexOfAnyOf(const std::string& text, const Test& test, unsigned startPos);
unsigned lastIndexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos);
unsigned lastIndexOfAnyBut(const std::string& text, const Test& test, unsigned startPos);
unsigned occurrencesOf(const std::string& text, const std::string& needle, unsigned startPos);
unsigned occurrencesOf(const std::string& text, const Test& test, unsigned startPos);

// ---- editing ----

std::string subString(const std::string& text, unsigned startPos, unsigned length, char pad);

Result center(const std::string& text, unsigned newLength, char pad);
Result leftJustify(const std::string& text, unsigned newLength, char pad);
Result rightJustify(const std::string& text, unsigned newLength, char pad);
Result insert(const std::string& text, const std::string& inserted, unsigned index, char pad);
Result overlayWith(const std::string& text, const std::string& overlay, unsigned index, char pad);
Result remove(const std::string& text, unsigned startPos, unsigned numChars);
Result copy(const std::string& text, unsigned numCopies);
Result lowerCase(const std::string& text);
Result upperCase(const std::string& text);
Result reverse(const std::string& text);
/// Modes: 0 strips leading characters, 1 trailing ones, anything else both.
Result strip(const std::string& text, const std::string& set, int mode);
Result strip(const std::string& text, const Test& test, int mode);
/// Nothing when the text would become shorter. What is given is a text of its own in any case.
std::optional<std::string> translate(const std::string& text, const std::string& input, const std::string& output,
                                     char pad);
Result change(const std::string& text, const std::string& pattern, const std::string& replacement, unsigned startPos,
              unsigned numChanges);

// ---- words ----

unsigned long numWords(const std::string& text);
unsigned long indexOfWord(const std::string& text, unsigned long wordNumber, unsigned long startPos = 1,
                          unsigned long passed = 0);
unsigned long lengthOfWord(const std::string& text, unsigned long wordNumber);
std::string word(const std::string& text, unsigned long wordNumber);
std::string words(const std::string& text, unsigned long firstWord, unsigned long count);
/// The position of the phrase.
unsigned long indexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord);
/// The number of the phrase's first word.
unsigned long wordIndexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord);
std::string removeWords(const std::string& text, unsigned long firstWord, unsigned long count);
std::string space(const std::string& text, unsigned long numSpaces, char spaceChar);

}  // namespace reference::multibyte

#endif
