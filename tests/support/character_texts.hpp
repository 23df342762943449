/// @file character_texts.hpp
/// Random texts in the character set of the locale in force: sound ones, ones with pieces of broken characters, and
/// rubbish.
///
///     CharacterTexts random;
///     for (int round = 0; round < 2000; ++round) {
///       const std::string text = random.characters();
///       const std::string set = random.setFor(text);
///       ...
///     }
///
/// The pieces that texts are made of stand in an Alphabet, which tests can also ask for one by one.
#ifndef QUELMCL_TESTS_SUPPORT_CHARACTER_TEXTS_HPP
#define QUELMCL_TESTS_SUPPORT_CHARACTER_TEXTS_HPP

#include "support/random_texts.hpp"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace quelmcl_test {

/// What texts of a character set are made of.
struct Alphabet {
  std::vector<std::string>
    oneByte;  ///< characters of one byte: letters, digits, blanks, NUL, bytes above 0x7F where there are any
  std::vector<std::string>
    longCharacters;                 ///< characters of several bytes, among them ones with bytes that look like ASCII
  std::vector<std::string> broken;  ///< beginnings without an end, ends without a beginning, what no character may be

  /// Of the locale in force. Fails the test when the set is none of those known here.
  static const Alphabet& current();
};

/// Random texts over the alphabet of the locale in force.
class CharacterTexts : public RandomTexts {
public:
  /// A text of at most about `longest` bytes: sound, mixed, broken, or any bytes at all. It may begin or end within a
  /// character.
  std::string characters(unsigned longest = 24);
  /// A set or a list: characters of the text and others, one byte alone, the first byte of a long character alone,
  /// characters with the last one cut off, nothing.
  std::string setFor(const std::string& text);
  /// Something to look for: a piece of the text, mostly from the beginning of a character on, or a few characters.
  std::string needle(const std::string& text);
  /// A filler: mostly one of a kind that is seen at once.
  char filler();

private:
  const std::string& pieceOf(const std::vector<std::string>& pieces);
};

/// Bytes in a block of exactly their number, with nothing behind them: sanitizers see who reads on.
class ExactBytes {
public:
  explicit ExactBytes(const std::string& text) : block(new char[text.size()]), count(static_cast<unsigned>(text.size()))
  {
    text.copy(block.get(), count);
  }
  const char* get() const { return block.get(); }
  unsigned length() const { return count; }

private:
  std::unique_ptr<char[]> block;
  unsigned count;
};

/// A locale for the length of a block; the kind of buffer of the process is that of the locale before. Fails the test
/// when the machine does not have it.
class LocaleInForce {
public:
  explicit LocaleInForce(const char* name);
  ~LocaleInForce();
  LocaleInForce(const LocaleInForce&) = delete;
  LocaleInForce& operator=(const LocaleInForce&) = delete;

private:
  std::string before;
};

/// The locales that the tests bring with them, one for each kind of character set, the plain one included.
extern const char* const testLocales[8];

}  // namespace quelmcl_test

#endif
