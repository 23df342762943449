/// @file reference.hpp
/// What every operation on texts is to answer, written as simply as it can be said and without any regard to cost.
/// Tests compare the library with these on many small random texts.
///
///     EXPECT_TEXT(IString(text).center(9, '*'), reference::center("abc", 9, '*'));
///
/// Positions are 1-based and 0 means none, as in the library; texts are std::strings, which may hold NULs. Results that
/// no text can have (lengths beyond 32 bits) are none of this file's business.
#ifndef QUELMCL_TESTS_SUPPORT_REFERENCE_HPP
#define QUELMCL_TESTS_SUPPORT_REFERENCE_HPP

#include <functional>
#include <string>
#include <vector>

namespace reference {

/// The count, position or length that stands for "as many as there are".
constexpr unsigned largest = 4294967295u;

/// A question about one character, which is asked as the number that a signed char is. Takes isdigit and its like.
using Test = std::function<int(int)>;

// ---- comparison and classes ----

/// 0 for equal texts, 1 when `text` sorts after `other`, 2 when it sorts before it. Bytes are unsigned.
int compare(const std::string& text, const std::string& other);
/// Whether the text is not empty and every character passes.
bool isAll(const std::string& text, const Test& test);
bool isASCII(const std::string& text);
bool isBinaryDigits(const std::string& text);

// ---- searching ----

unsigned startSearch(const std::string& text, unsigned startPos, unsigned searchLen);
unsigned startBackwardsSearch(const std::string& text, unsigned startPos, unsigned searchLen);

unsigned indexOf(const std::string& text, const std::string& needle, unsigned startPos = 1);
unsigned indexOf(const std::string& text, const Test& test, unsigned startPos = 1);
unsigned indexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos = 1);
unsigned indexOfAnyOf(const std::string& text, const Test& test, unsigned startPos = 1);
unsigned indexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos = 1);
unsigned indexOfAnyBut(const std::string& text, const Test& test, unsigned startPos = 1);
unsigned lastIndexOf(const std::string& text, const std::string& needle, unsigned startPos = largest);
unsigned lastIndexOf(const std::string& text, const Test& test, unsigned startPos = largest);
unsigned lastIndexOfAnyOf(const std::string& text, const std::string& set, unsigned startPos = largest);
unsigned lastIndexOfAnyOf(const std::string& text, const Test& test, unsigned startPos = largest);
unsigned lastIndexOfAnyBut(const std::string& text, const std::string& set, unsigned startPos = largest);
unsigned lastIndexOfAnyBut(const std::string& text, const Test& test, unsigned startPos = largest);
unsigned occurrencesOf(const std::string& text, const std::string& needle, unsigned startPos = 1);
unsigned occurrencesOf(const std::string& text, const Test& test, unsigned startPos = 1);

// ---- substrings ----

/// Exactly `length` bytes.
std::string subString(const std::string& text, unsigned startPos, unsigned length, char pad = ' ');
/// To the end. From position 0 one blank more than the text, as strings have it.
std::string subString(const std::string& text, unsigned startPos);

// ---- editing ----

std::string center(const std::string& text, unsigned newLength, char pad = ' ');
std::string leftJustify(const std::string& text, unsigned newLength, char pad = ' ');
std::string rightJustify(const std::string& text, unsigned newLength, char pad = ' ');
std::string insert(const std::string& text, const std::string& inserted, unsigned index = 0, char pad = ' ');
std::string overlayWith(const std::string& text, const std::string& overlay, unsigned index = 1, char pad = ' ');
std::string remove(const std::string& text, unsigned startPos, unsigned numChars = largest);
std::string copy(const std::string& text, unsigned numCopies);
std::string reverse(const std::string& text);
std::string lowerCase(const std::string& text);
std::string upperCase(const std::string& text);
/// Modes: 0 strips leading characters, 1 trailing ones, anything else both.
std::string strip(const std::string& text, const std::string& set, int mode = 2);
std::string strip(const std::string& text, const Test& test, int mode = 2);
std::string translate(const std::string& text, const std::string& input, const std::string& output, char pad = ' ');
std::string change(const std::string& text, const std::string& pattern, const std::string& replacement,
                   unsigned startPos = 1, unsigned numChanges = largest);

// ---- bits ----

std::string bitAnd(const std::string& text, const std::string& argument);
std::string bitOr(const std::string& text, const std::string& argument);
std::string bitExclusiveOr(const std::string& text, const std::string& argument);
std::string complement(const std::string& text);

// ---- patterns ----

bool isLike(const std::string& text, const std::string& pattern, char zeroOrMore = '*', char anyChar = '?');
bool isAbbreviationFor(const std::string& text, const std::string& fullText, unsigned minLen = 0);

// ---- words ----

/// A word and where it begins.
struct Word {
  unsigned long pos;
  std::string text;
};

/// All words of the text, in order.
std::vector<Word> wordsOf(const std::string& text);

unsigned long numWords(const std::string& text);
std::string word(const std::string& text, unsigned long wordNumber);
std::string words(const std::string& text, unsigned long firstWord);
std::string words(const std::string& text, unsigned long firstWord, unsigned long count);
/// With the number of words that were passed before `startPos`.
unsigned long indexOfWord(const std::string& text, unsigned long wordNumber, unsigned long startPos = 1,
                          unsigned long passed = 0);
unsigned long lengthOfWord(const std::string& text, unsigned long wordNumber);
/// The position of the phrase.
unsigned long indexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord = 1);
/// The number of the phrase's first word.
unsigned long wordIndexOfPhrase(const std::string& text, const std::string& phrase, unsigned long startWord = 1);
std::string removeWords(const std::string& text, unsigned long firstWord);
std::string removeWords(const std::string& text, unsigned long firstWord, unsigned long count);
std::string space(const std::string& text, unsigned long numSpaces = 1, char spaceChar = ' ');

}  // namespace reference

#endif
