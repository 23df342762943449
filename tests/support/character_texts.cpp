// character_texts.cpp - random texts in the character set of the locale in force.
// Tests: tests/buffers/multibyte_rules_test.cpp
#include "support/character_texts.hpp"

#include <quelmcl/ibuffer.hpp>

#include <clocale>
#include <iterator>
#include <langinfo.h>
#include <map>

namespace quelmcl_test {

const char* const testLocales[8] = {"ja_JP.SJIS",  "ja_JP.EUC-JP",     "zh_CN.GB18030", "zh_TW.BIG5",
                                    "de_DE.UTF-8", "de_DE.ISO-8859-1", "C.UTF-8",       "C"};

namespace {

template <std::size_t Size>
std::string bytes(const char (&literal)[Size])
{
  return std::string(literal, Size - 1);
}

// Letters of either case, the other characters whose bytes end long characters in some set, white space, and NUL.
const std::vector<std::string> ascii = {"a", "b", "A", "B", "e",  "E",  "@",        "\\",
                                        "|", "0", "9", " ", "\t", "\n", bytes("\0")};

std::vector<std::string> asciiAnd(const std::vector<std::string>& more)
{
  std::vector<std::string> all = ascii;
  all.insert(all.end(), more.begin(), more.end());
  return all;
}

const std::map<std::string, Alphabet> alphabets = {
  {"UTF-8",
   {ascii,
    {"\xC3\xA9", "\xC3\x89", "\xC2\x80", "\xDF\xBF", "\xE2\x82\xAC", "\xE3\x81\x82", "\xEF\xBF\xBF", "\xF0\x9F\x98\x80",
     "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFC\x84\x80\x80\x80\x80", "\xFD\xBF\xBF\xBF\xBF\xBF"},
    {"\xC3",
     "\xE2",
     "\xE2\x82",
     "\xF0\x9F",
     "\xF0\x9F\x98",
     "\xF8\x88\x80\x80",
     "\xFC\x84\x80\x80\x80",
     "\x80",
     "\xBF",
     "\xA9",
     "\xC0\x80",
     "\xC1\xBF",
     "\xE0\x80\x80",
     "\xE0\x9F\xBF",
     "\xED\xA0\x80",
     "\xF0\x8F\xBF\xBF",
     "\xF8\x87\xBF\xBF\xBF",
     "\xFC\x83\xBF\xBF\xBF\xBF",
     "\xFE",
     "\xFF"}}},
  // Second bytes may be letters, '@', '\' and '|'. With 0x84 before it, 'E' ends a character and 'e' does not.
  {"SHIFT_JIS",
   {asciiAnd({"\xB1", "\xDF"}),
    {"\x82\xA0", "\x83\x5C", "\x95\x5C", "\x83\x40", "\x83\x41", "\x83\x61", "\x84\x45", "\x83\x7C", "\x88\x9F",
     "\xE0\x40", "\x81\x40"},
    {"\x83", "\x84", "\x95", "\xE0", "\x81", "\x80", "\xA0", "\xFD", "\xFF", "\x84\x65", "\x85\x41"}}},
  {"EUC-JP",
   {ascii,
    {"\xA4\xA2", "\xA5\xBD", "\xB0\xA1", "\xA1\xA1", "\x8E\xB1", "\x8E\xDF", "\x8F\xB0\xA1", "\x8F\xB0\xA2"},
    {"\xA4", "\x8E", "\x8F", "\x8F\xB0", "\xA1", "\xB0", "\xFF", "\xA4\x41", "\x8E\x41", "\x8F\x41", "\x8F\xB0\x41"}}},
  // Second bytes may be letters, '@', '\' and '|'; second and fourth ones may be digits.
  {"GB18030",
   {ascii,
    {"\xB0\xA1", "\x81\x40", "\x95\x5C", "\x81\x41", "\x81\x61", "\x81\x7C", "\xB0\xA2", "\x81\x30\x81\x30",
     "\x81\x30\x89\x39", "\x90\x30\x81\x30", "\x95\x32\x82\x36"},
    {"\x81", "\xB0", "\x90", "\x81\x30", "\x81\x30\x81", "\x90\x30\x81", "\x80", "\xFF", "\x81\x30\x81\x41",
     "\x81\x39\x30", "\x81\x3A"}}},
  // Second bytes may be letters, '@', '\' and '|'.
  {"BIG5",
   {ascii,
    {"\xA4\x40", "\xA5\x5C", "\xB3\x5C", "\xA4\xA4", "\xA4\x41", "\xA4\x61", "\xA4\x7C", "\xA1\x40", "\xF9\xD5"},
    {"\xA4", "\xA5", "\xF9", "\xA1", "\x80", "\xFF", "\xA4\x30", "\xA4\x80", "\xC7\xFF"}}},
  {"ISO-8859-1", {asciiAnd({"\xE9", "\xC9", "\x80", "\xFF"}), {}, {}}},
  {"ANSI_X3.4-1968", {asciiAnd({"\xC3\xA9", "\x80", "\xFF"}), {}, {}}},
};

std::string joined(const std::vector<std::string>& pieces)
{
  std::string all;
  for (const std::string& piece : pieces)
    all += piece;
  return all;
}

}  // namespace

const Alphabet& Alphabet::current()
{
  static const Alphabet plain = {ascii, {}, {}};
  const auto known = alphabets.find(nl_langinfo(CODESET));
  if (known != alphabets.end())
    return known->second;
  ADD_FAILURE() << "no texts are prepared for the character set " << nl_langinfo(CODESET);
  return plain;
}

const std::string& CharacterTexts::pieceOf(const std::vector<std::string>& pieces)
{
  return pieces[below(static_cast<unsigned>(pieces.size()))];
}

std::string CharacterTexts::characters(unsigned longest)
{
  const Alphabet& alphabet = Alphabet::current();
  const std::vector<std::string>& longOnes =
    alphabet.longCharacters.empty() ? alphabet.oneByte : alphabet.longCharacters;
  const std::vector<std::string>& brokenOnes = alphabet.broken.empty() ? alphabet.oneByte : alphabet.broken;

  // A few pieces only, so that there is much to be found.
  const unsigned kind = below(8);
  std::vector<std::string> palette;
  for (unsigned left = 1 + below(5); left > 0; --left) {
    palette.push_back(pieceOf(alphabet.oneByte));
    palette.push_back(pieceOf(longOnes));
    if (kind >= 3)
      palette.push_back(pieceOf(brokenOnes));
  }
  if (kind == 7)  // their bytes in any order
    return text(joined(palette), longest);
  const unsigned wanted = below(longest + 1);
  std::string text;
  while (text.size() < wanted) {
    if (kind == 6 && onceIn(4))
      text += static_cast<char>(below(256));
    else
      text += pieceOf(palette);
  }
  if (onceIn(4) && !text.empty())
    text.pop_back();
  if (onceIn(8) && !text.empty())
    text.erase(0, 1);
  return text;
}

std::string CharacterTexts::setFor(const std::string& text)
{
  const Alphabet& alphabet = Alphabet::current();
  const std::string likeText = text.empty() ? "a" : text;
  std::string set;
  switch (below(8)) {
  case 0:
    return "";
  case 1:
    return likeText.substr(below(static_cast<unsigned>(likeText.size())), 1);
  case 2:
    return alphabet.longCharacters.empty() ? "\xC3" : pieceOf(alphabet.longCharacters).substr(0, 1);
  case 3:
    return textLike(text, 5);
  case 4:
    return characters(8);
  default:
    break;
  }
  for (unsigned left = 1 + below(4); left > 0; --left) {
    const unsigned first = below(static_cast<unsigned>(likeText.size()));
    set += onceIn(3) && !alphabet.longCharacters.empty() ? pieceOf(alphabet.longCharacters)
                                                         : likeText.substr(first, 1 + below(4));
  }
  if (onceIn(3))
    set.pop_back();
  return set;
}

std::string CharacterTexts::needle(const std::string& text)
{
  if (text.empty() || onceIn(6))
    return characters(4);
  const std::size_t first = below(static_cast<unsigned>(text.size()));
  std::string piece = text.substr(first, below(onceIn(4) ? 12 : 5));
  if (!piece.empty() && onceIn(8))
    piece[below(static_cast<unsigned>(piece.size()))] = byte();
  return piece;
}

char CharacterTexts::filler()
{
  return onceIn(4) ? byte() : '*';
}

LocaleInForce::LocaleInForce(const char* name) : before(std::setlocale(LC_ALL, nullptr))
{
  IBuffer::defaultBuffer();  // decides the kind of buffer for this process: the locale of the run, not this one
  if (std::setlocale(LC_ALL, name) == nullptr)
    ADD_FAILURE() << "this machine does not have the locale " << name;
}

LocaleInForce::~LocaleInForce()
{
  std::setlocale(LC_ALL, before.c_str());
}

}  // namespace quelmcl_test
