/// @file random_texts.hpp
/// Random texts, positions and counts for comparisons with the reference functions.
///
///     RandomTexts random;
///     for (int round = 0; round < 2000; ++round) {
///       const std::string text = random.text();
///       const unsigned start = random.position(text.size());
///       ...
///     }
///
/// The same texts come every time. The environment variable QUELMCL_TEST_SEED brings others; a failure within the life
/// of a generator names the seed that was used.
#ifndef QUELMCL_TESTS_SUPPORT_RANDOM_TEXTS_HPP
#define QUELMCL_TESTS_SUPPORT_RANDOM_TEXTS_HPP

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>

namespace quelmcl_test {

class RandomTexts {
public:
  RandomTexts();
  explicit RandomTexts(unsigned seed);

  /// A number below `limit`, which is not 0.
  unsigned below(unsigned limit);
  /// Yes once in `times`.
  bool onceIn(unsigned times) { return below(times) == 0; }

  /// A text over one of some small alphabets: mostly up to 40 bytes, often very few, sometimes several hundred. Some
  /// alphabets have NULs, some have bytes above 0x7F; these are chosen so that they never make up a character of
  /// several bytes in UTF-8.
  std::string text();
  /// A text over this alphabet, of at most `longest` bytes.
  std::string text(const std::string& alphabet, unsigned longest);
  /// A text over the bytes of `like`, of at most `longest` bytes, so that the two have much in common; over a few
  /// letters when `like` is empty.
  std::string textLike(const std::string& like, unsigned longest);
  /// Something to look for in `text`: a piece of it, a piece with a byte changed, or a short text like it. May be
  /// empty.
  std::string needleFor(const std::string& text);

  /// A position around what matters for a text of that length: 0, 1, the end and both sides of it, the largest number,
  /// or anything within.
  unsigned position(std::size_t length);
  /// A length that a result may really get: around 0, 1, `length` and a little more than it.
  unsigned newLength(std::size_t length);
  /// A limit on how often something is to be done: 0, a few times, or without limit.
  unsigned limit();
  /// One byte, often NUL, a blank or above 0x7F.
  char byte();

private:
  std::mt19937 engine;
  testing::ScopedTrace seedOnFailure;
};

}  // namespace quelmcl_test

#endif
