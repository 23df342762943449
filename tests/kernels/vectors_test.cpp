// vectors_test.cpp - kernels: every form of the loops over bytes gives what the plainest loop gives, for every length and
// alignment, at the very end of the memory that may be read, and touches nothing else.
#include "kernels/vectors.hpp"

#include "forms.hpp"
#include "kernels/bytes.hpp"
#include "kernels/utf8.hpp"
#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

using kerneltests::formsOnThisMachine;
using kerneltests::nameOfForm;
using quelmcl::detail::ByteSet;
using quelmcl::detail::nowhere;
using quelmcl::detail::Vectors;
using quelmcl::detail::WordTotals;
using quelmcl_test::RandomTexts;

namespace {

/// Memory whose last readable byte is followed, and whose first one is preceded, by what must not be touched.
class Fenced {
public:
  Fenced() : page(static_cast<std::size_t>(sysconf(_SC_PAGESIZE)))
  {
    void* const mapped = mmap(nullptr, 3 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED || mprotect(static_cast<char*>(mapped) + page, page, PROT_READ | PROT_WRITE) != 0)
      std::abort();
    memory = static_cast<char*>(mapped);
  }
  ~Fenced() { munmap(memory, 3 * page); }
  Fenced(const Fenced&) = delete;
  Fenced& operator=(const Fenced&) = delete;

  char* atEnd(const std::string& text) { return put(memory + 2 * page - text.size(), text); }
  char* atFront(const std::string& text, std::size_t offset) { return put(memory + page + offset, text); }

private:
  static char* put(char* to, const std::string& text)
  {
    std::memcpy(to, text.data(), text.size());
    return to;
  }

  std::size_t page;
  char* memory;
};

constexpr std::size_t longest = 300;
const char* const whiteSpace = "\t\n\v\f\r ";

bool isSpace(char byte)
{
  return byte != '\0' && std::strchr(whiteSpace, byte) != nullptr;
}

class VectorForms : public testing::TestWithParam<const Vectors*> {
protected:
  std::string textOf(std::size_t length)
  {
    std::string text(length, ' ');
    for (char& byte : text)
      byte = alphabet[random.below(static_cast<unsigned>(alphabet.size()))];
    return text;
  }

  const Vectors& form() const { return *GetParam(); }

  Fenced fenced;
  RandomTexts random;
  std::string alphabet = std::string("ab \t\n\r\x0E\x08\0zAZ[@`{\x7F\x80\xC3\xE1\xFF", 20);
};

/// Texts of every length from 0 on at the end of the memory, and at every alignment at its front.
#define FOR_TEXTS(text, length)                                                                       \
  for (std::size_t length = 0; length <= longest && !HasFailure(); ++length)                          \
    for (std::size_t place = 0; place <= 32 && !HasFailure(); place += length > 70 && place ? 31 : 1) \
      if (const std::string model = textOf(length); true)                                             \
        if (char* const text = place == 32 ? fenced.atEnd(model) : fenced.atFront(model, place); true)

TEST_P(VectorForms, FindThePlacesOfPairs)
{
  FOR_TEXTS(text, length)
  {
    for (const std::size_t distance : {1u, 2u, 17u, 40u}) {
      if (length <= distance)
        continue;
      const std::size_t places = length - distance;
      const std::size_t begin = random.below(static_cast<unsigned>(places + 1));
      const char first = alphabet[random.below(5)];
      const char last = alphabet[random.below(5)];
      std::size_t expectedFirst = nowhere;
      std::size_t expectedLast = nowhere;
      for (std::size_t at = 0; at < places; ++at)
        if (model[at] == first && model[at + distance] == last) {
          expectedLast = at;
          if (at >= begin && expectedFirst == nowhere)
            expectedFirst = at;
        }
      EXPECT_EQ(form().firstPair(text, places, begin, first, last, distance), expectedFirst)
        << length << " bytes at " << place << " from " << begin << ", " << distance << " apart";
      EXPECT_EQ(form().lastPair(text, places, first, last, distance), expectedLast)
        << length << " bytes at " << place << ", " << distance << " apart";
      if (places < 64)
        continue;
      std::uint64_t expectedPairs = 0;
      for (unsigned at = 0; at < 64; ++at)
        expectedPairs |= std::uint64_t{model[at] == first && model[at + distance] == last} << at;
      EXPECT_EQ(form().pairs(text, first, last, distance), expectedPairs)
        << length << " bytes at " << place << ", " << distance << " apart";
    }
  }
}

TEST_P(VectorForms, FindMembersAndOthersOfSets)
{
  FOR_TEXTS(text, length)
  {
    std::string members = random.onceIn(2) ? alphabet.substr(random.below(20), 3) : std::string();
    while (random.below(3) != 0)
      members += static_cast<char>(random.below(256));
    if (random.onceIn(3))
      members += alphabet.substr(1);  // nearly everything, so that others are rare
    const ByteSet set(members.data(), members.size());
    const std::size_t in = model.find_first_of(members);
    const std::size_t out = model.find_first_not_of(members);
    const std::size_t lastIn = model.find_last_of(members);
    const std::size_t lastOut = model.find_last_not_of(members);
    EXPECT_EQ(form().firstMember(text, length, set, true), in) << length << " bytes at " << place;
    EXPECT_EQ(form().firstMember(text, length, set, false), out) << length << " bytes at " << place;
    EXPECT_EQ(form().lastMember(text, length, set, true), lastIn) << length << " bytes at " << place;
    EXPECT_EQ(form().lastMember(text, length, set, false), lastOut) << length << " bytes at " << place;
  }
}

TEST_P(VectorForms, KnowEveryByteInEverySetOfOne)
{
  for (int member = 0; member < 256; ++member) {
    const char only = static_cast<char>(member);
    const ByteSet set(&only, 1);
    for (int byte = 0; byte < 256; ++byte) {
      const std::string text(40, static_cast<char>(byte));
      ASSERT_EQ(form().firstMember(text.data(), text.size(), set, true), byte == member ? 0 : nowhere) << byte;
      ASSERT_EQ(form().lastMember(text.data(), text.size(), set, true), byte == member ? 39 : nowhere) << byte;
    }
  }
}

TEST_P(VectorForms, FindTheEndOfAscii)
{
  FOR_TEXTS(text, length)
  {
    if (random.onceIn(2))
      std::replace_if(
        text, text + length, [](char byte) { return byte < 0; }, 'x');
    const auto end = std::find_if(text, text + length, [](char byte) { return byte < 0; });
    EXPECT_EQ(form().asciiPrefix(text, length), static_cast<std::size_t>(end - text)) << length << " at " << place;
  }
}

/// Pieces that make sound characters, nearly sound ones, and characters cut off.
std::string utf8Of(RandomTexts& random, std::size_t length)
{
  static const char* const pieces[] = {"a",
                                       "\xC3\xA9",
                                       "\xE2\x82\xAC",
                                       "\xF0\x9F\x98\x80",
                                       "\xF7\xBF\xBF\xBF",
                                       "\xC1\xBF",
                                       "\xE0\xA0\x80",
                                       "\xE0\x9F\xBF",
                                       "\xED\x9F\xBF",
                                       "\xED\xA0\x80",
                                       "\xEE\x80\x80",
                                       "\xF0\x90\x80\x80",
                                       "\x80",
                                       "\xF0\x8F\xBF\xBF",
                                       "\xF8\x88\x80\x80\x80",
                                       "\xFC\x84\x80\x80\x80\x80",
                                       "\xF8\x87\xBF\xBF\xBF",
                                       "\xFE",
                                       "abcdefghijklmnopqrstuvwxyz"};
  const unsigned kinds = random.onceIn(2) ? 4 : static_cast<unsigned>(std::size(pieces));
  std::string text;
  while (text.size() < length) {
    text += pieces[random.below(kinds)];
    if (random.onceIn(9))
      text.pop_back();
    if (random.onceIn(20))
      text += static_cast<char>(random.below(256));
  }
  return text.substr(0, length);
}

TEST_P(VectorForms, CountWhatContinuesCharactersOfUtf8)
{
  FOR_TEXTS(text, length)
  {
    const std::string characters = utf8Of(random, length);
    characters.copy(text, length);
    const std::size_t places = random.onceIn(2) ? length : random.below(static_cast<unsigned>(length) + 1);
    std::size_t expected = 0;
    for (std::size_t at = 0; at < places;) {
      const unsigned bytes = quelmcl::detail::utf8Length(text + at, length - at);
      expected += bytes - 1;
      at += bytes;
    }
    EXPECT_EQ(form().utf8Continuations(text, places, length), expected)
      << places << " of " << testing::PrintToString(characters) << " at " << place;
  }
}

TEST_P(VectorForms, CountWhatContinuesCharactersOfLongTexts)
{
  for (const char* const character : {"\xC3\xA9", "\xE2\x82\xAC", "\xF0\x9F\x98\x80", "\xFC\x84\x80\x80\x80\x80"}) {
    std::string text;
    std::size_t count = 0;
    for (; text.size() < 100000; ++count)
      text += character;
    EXPECT_EQ(form().utf8Continuations(text.data(), text.size(), text.size()), text.size() - count) << character;
  }
}

TEST_P(VectorForms, MarkWhiteSpace)
{
  for (int byte = 0; byte < 256; ++byte)
    for (unsigned at = 0; at < 64; ++at) {
      std::string text(64, 'x');
      text[at] = static_cast<char>(byte);
      const std::uint64_t expected = isSpace(text[at]) ? std::uint64_t{1} << at : 0;
      ASSERT_EQ(form().whiteSpace(fenced.atEnd(text), text.size()), expected) << byte << " at " << at;
    }
}

TEST_P(VectorForms, TakeWhatIsBehindATextForWhiteSpace)
{
  FOR_TEXTS(text, length)
  {
    std::uint64_t expected = 0;
    for (std::size_t at = 0; at < 64; ++at)
      expected |= std::uint64_t{at >= length || isSpace(model[at])} << at;
    EXPECT_EQ(form().whiteSpace(text, length), expected) << length << " at " << place;
  }
}

/// The words of a text.
std::vector<std::string> wordsOf(const std::string& text)
{
  std::vector<std::string> words;
  for (std::size_t end = 0, begin; (begin = text.find_first_not_of(whiteSpace, end)) != std::string::npos;) {
    end = std::min(text.find_first_of(whiteSpace, begin), text.size());
    words.push_back(text.substr(begin, end - begin));
  }
  return words;
}

TEST_P(VectorForms, MeasureAndCopyWords)
{
  Fenced copies;
  for (const char* const ofTexts : {"ab\t", "  \t\n\v\f\ra", "abcdefghijklmnopqrstuvwxyz\x80\xFF\x08\x0E ", "a"}) {
    alphabet = ofTexts;
    FOR_TEXTS(text, length)
    {
      const std::vector<std::string> words = wordsOf(model);
      const std::string joined = std::accumulate(words.begin(), words.end(), std::string());
      const WordTotals totals = form().measureWords(text, length);
      ASSERT_EQ(totals.words, words.size()) << length << " at " << place;
      ASSERT_EQ(totals.bytes, joined.size()) << length << " at " << place;
      if (words.empty())
        continue;

      char* const copy = copies.atEnd(joined);
      std::memset(copy, '?', joined.size());
      form().copyWords(text, length, copy, joined.size(), false, '-');
      ASSERT_EQ(std::string(copy, joined.size()), joined) << length << " at " << place;

      std::string separated = words.front();
      for (std::size_t i = 1; i < words.size(); ++i)
        separated += '-' + words[i];
      char* const inFront = copies.atFront(std::string(separated.size() + 40, '?'), 0);
      form().copyWords(text, length, inFront, separated.size(), true, '-');
      ASSERT_EQ(std::string(inFront, separated.size() + 40), separated + std::string(40, '?'))
        << length << " at " << place;
    }
  }
}

TEST_P(VectorForms, ChangeTheCaseOfAsciiLettersOnly)
{
  FOR_TEXTS(text, length)
  {
    std::string expected = model;
    for (char& byte : expected)
      byte = byte >= 'a' && byte <= 'z' ? static_cast<char>(byte - 32) : byte;
    form().upper(text, length);
    EXPECT_EQ(std::string(text, length), expected) << place;
    for (char& byte : expected)
      byte = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + 32) : byte;
    form().lower(text, length);
    EXPECT_EQ(std::string(text, length), expected) << place;
  }
}

TEST_P(VectorForms, ReverseTexts)
{
  FOR_TEXTS(text, length)
  {
    form().reverse(text, length);
    EXPECT_EQ(std::string(text, length), std::string(model.rbegin(), model.rend())) << place;
  }
}

TEST_P(VectorForms, CombineBits)
{
  Fenced others;
  FOR_TEXTS(text, length)
  {
    const std::string key = textOf(length);
    const char* const other = others.atEnd(key);
    std::string expected = model;
    form().bitExclusiveOr(text, other, length);
    std::transform(expected.begin(), expected.end(), key.begin(), expected.begin(),
                   [](char a, char b) { return static_cast<char>(a ^ b); });
    EXPECT_EQ(std::string(text, length), expected) << place;
    form().bitOr(text, other, length);
    std::transform(expected.begin(), expected.end(), key.begin(), expected.begin(),
                   [](char a, char b) { return static_cast<char>(a | b); });
    EXPECT_EQ(std::string(text, length), expected) << place;
    const std::string mask = textOf(length);
    form().bitAnd(text, others.atEnd(mask), length);
    std::transform(expected.begin(), expected.end(), mask.begin(), expected.begin(),
                   [](char a, char b) { return static_cast<char>(a & b); });
    EXPECT_EQ(std::string(text, length), expected) << place;
  }
}

TEST(HasOnly, HoldsForTextsOfMembersAlone)
{
  constexpr ByteSet set("ab", 2);
  EXPECT_TRUE(quelmcl::detail::hasOnly("", 0, set));
  for (std::size_t length = 1; length <= 70; ++length) {
    std::string text(length, 'b');
    EXPECT_TRUE(quelmcl::detail::hasOnly(text.data(), length, set)) << length;
    for (std::size_t at = 0; at < length; ++at) {
      text[at] = 'c';
      EXPECT_FALSE(quelmcl::detail::hasOnly(text.data(), length, set)) << at << " of " << length;
      text[at] = 'a';
    }
  }
}

INSTANTIATE_TEST_SUITE_P(All, VectorForms, testing::ValuesIn(formsOnThisMachine(quelmcl::detail::vectorForms)),
                         nameOfForm<Vectors>);

}  // namespace
