// random_texts.cpp - random texts, positions and counts for comparisons with the reference functions.
// Tests: tests/support/random_texts_test.cpp
#include "support/random_texts.hpp"

#include <algorithm>
#include <cstdlib>
#include <iterator>

namespace quelmcl_test {

namespace {

constexpr unsigned largest = 4294967295u;
constexpr unsigned defaultSeed = 20261121;

unsigned seedOfThisRun()
{
  const char* const wanted = std::getenv("QUELMCL_TEST_SEED");
  return wanted == nullptr ? defaultSeed : static_cast<unsigned>(std::strtoul(wanted, nullptr, 10));
}

// Small, so that matches are frequent. 0x80, 0x9F and 0xFF are no first bytes of UTF-8 characters.
const std::string alphabets[] = {
  std::string("ab"),
  std::string("a"),
  std::string("abc"),
  std::string("aAzZ@[`{ "),
  std::string("a b\t\n"),
  std::string("ab\0", 3),
  std::string("a\0\x80\xFF", 4),
  std::string("\x80\x9F\xFF"),
  std::string("0123456789"),
};

}  // namespace

RandomTexts::RandomTexts() : RandomTexts(seedOfThisRun()) {}

RandomTexts::RandomTexts(unsigned seed)
  : engine(seed), seedOnFailure(__FILE__, __LINE__, "random texts of QUELMCL_TEST_SEED=" + std::to_string(seed))
{
}

unsigned RandomTexts::below(unsigned limit)
{
  return static_cast<unsigned>(engine() % limit);  // not even to the last bit, but the same on every machine
}

std::string RandomTexts::text()
{
  const std::string& alphabet = alphabets[below(static_cast<unsigned>(std::size(alphabets)))];
  if (onceIn(50))
    return text(alphabet, 600);
  return text(alphabet, onceIn(3) ? 4 : 40);
}

std::string RandomTexts::text(const std::string& alphabet, unsigned longest)
{
  std::string result;
  for (unsigned left = below(longest + 1); left > 0; --left)
    result += alphabet[below(static_cast<unsigned>(alphabet.size()))];
  return result;
}

std::string RandomTexts::textLike(const std::string& like, unsigned longest)
{
  return text(like.empty() ? "ab" : like, longest);
}

std::string RandomTexts::needleFor(const std::string& text)
{
  if (text.empty() || onceIn(4))
    return textLike(text, 4);
  const unsigned first = below(static_cast<unsigned>(text.size()));
  std::string piece = text.substr(first, below(onceIn(4) ? 40 : 6));
  if (!piece.empty() && onceIn(4))
    piece[below(static_cast<unsigned>(piece.size()))] = byte();
  return piece;
}

unsigned RandomTexts::position(std::size_t length)
{
  const unsigned end = static_cast<unsigned>(length);
  const unsigned special[] = {0, 1, 2, end == 0 ? 0 : end - 1, end, end + 1, end + 2, largest - 1, largest};
  if (onceIn(2))
    return special[below(static_cast<unsigned>(std::size(special)))];
  return below(end + 2);
}

unsigned RandomTexts::newLength(std::size_t length)
{
  const unsigned end = static_cast<unsigned>(length);
  const unsigned special[] = {0, 1, end == 0 ? 0 : end - 1, end, end + 1, end + 2};
  if (onceIn(2))
    return special[below(static_cast<unsigned>(std::size(special)))];
  return below(2 * end + 8);
}

unsigned RandomTexts::limit()
{
  return onceIn(2) ? largest : below(5);
}

char RandomTexts::byte()
{
  const char special[] = {'\0', ' ', 'a', 'b', '*', '\x80', '\xFF'};
  return special[below(static_cast<unsigned>(std::size(special)))];
}

}  // namespace quelmcl_test
