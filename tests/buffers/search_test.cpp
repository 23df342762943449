// search_test.cpp - buffers: the searches, forwards and backwards, for texts, sets and tests.
#include "buffer_probe.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <ctype.h>

#include <string>
#include <vector>

using namespace buffertests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// Where a search begins

struct StartCase {
  const char* name;
  unsigned start;
  unsigned searchLength;
  unsigned forwards;
  unsigned backwards;
};

class SearchStart : public testing::TestWithParam<StartCase> {};

TEST_P(SearchStart, IsClampedToWhereTheTextFits)
{
  const StartCase& row = GetParam();
  SingleByteBuffer* const buffer = SingleByteBuffer::holding("abcdef");
  const Owned owner(buffer);
  EXPECT_EQ(buffer->startSearch(row.start, row.searchLength), row.forwards);
  EXPECT_EQ(buffer->startBackwardsSearch(row.start, row.searchLength), row.backwards);
}

const StartCase startCases[] = {
  // in a text of six bytes
  {"from_0", 0, 1, 1, 0},
  {"from_the_first_byte", 1, 1, 1, 1},
  {"from_the_middle", 3, 2, 3, 3},
  {"from_the_last_byte", 6, 1, 6, 6},
  {"from_just_past_the_end", 7, 1, 0, 6},
  {"from_the_largest_position", largest, 1, 0, 6},
  {"two_bytes_just_fit", 5, 2, 5, 5},
  {"two_bytes_do_not_fit_at_the_end", 6, 2, 0, 5},
  {"the_whole_text", 1, 6, 1, 1},
  {"the_whole_text_from_0", 0, 6, 1, 0},
  {"the_whole_text_from_the_second_byte", 2, 6, 0, 1},
  {"more_than_the_text", 1, 7, 0, 0},
  {"the_largest_length", 1, largest, 0, 0},
  {"the_largest_length_from_the_largest_position", largest, largest, 0, 0},
  {"no_length", 3, 0, 3, 3},
  {"no_length_from_0", 0, 0, 1, 0},
  {"no_length_at_the_end", 6, 0, 6, 6},
  {"no_length_past_the_end", 7, 0, 0, 6},
};

INSTANTIATE_TEST_SUITE_P(Rows, SearchStart, testing::ValuesIn(startCases),
                         [](const testing::TestParamInfo<StartCase>& row) { return std::string(row.param.name); });

TEST(SearchStartOfNothing, IsNowhereInAnEmptyText)
{
  SingleByteBuffer* const buffer = SingleByteBuffer::holding("");
  const Owned owner(buffer);
  for (const unsigned start : {0u, 1u, largest}) {
    EXPECT_EQ(buffer->startSearch(start, 0), 0u);
    EXPECT_EQ(buffer->startSearch(start, 1), 0u);
    EXPECT_EQ(buffer->startBackwardsSearch(start, 0), 0u);
    EXPECT_EQ(buffer->startBackwardsSearch(start, 1), 0u);
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Rules

class Search : public testing::TestWithParam<bool> {
protected:
  IBuffer* made(const std::string& text) const
  {
    return GetParam() ? ofThisProcess(text) : SingleByteBuffer::holding(text);
  }
};

class BackwardSearch : public Search {};

INSTANTIATE_TEST_SUITE_P(Kinds, Search, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& row) { return row.param ? "process" : "single"; });
INSTANTIATE_TEST_SUITE_P(Kinds, BackwardSearch, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& row) { return row.param ? "process" : "single"; });

TEST_P(Search, FindsATextFromTheStartOn)
{
  const Owned text(made("abcabc"));
  EXPECT_EQ(text->indexOf("bc", 2, 0), 2u);
  EXPECT_EQ(text->indexOf("bc", 2, 1), 2u);
  EXPECT_EQ(text->indexOf("bc", 2, 2), 2u);
  EXPECT_EQ(text->indexOf("bc", 2, 3), 5u);
  EXPECT_EQ(text->indexOf("bc", 2, 5), 5u);
}

TEST_P(Search, FindsNoTextThatNoLongerFits)
{
  const Owned text(made("abcabc"));
  EXPECT_EQ(text->indexOf("bc", 2, 6), 0u);
  EXPECT_EQ(text->indexOf("bc", 2, 7), 0u);
  EXPECT_EQ(text->indexOf("bc", 2, largest), 0u);
  EXPECT_EQ(text->indexOf("abcabcabc", 9, 1), 0u);
}

TEST_P(BackwardSearch, FindsATextThatBeginsAtOrBeforeTheStart)
{
  const Owned text(made("abcabc"));
  EXPECT_EQ(text->lastIndexOf("bc", 2, 7), 5u);
  EXPECT_EQ(text->lastIndexOf("bc", 2, largest), 5u);
  EXPECT_EQ(text->lastIndexOf("bc", 2, 6), 5u);
  EXPECT_EQ(text->lastIndexOf("bc", 2, 5), 5u);
  EXPECT_EQ(text->lastIndexOf("bc", 2, 4), 2u);
  EXPECT_EQ(text->lastIndexOf("bc", 2, 2), 2u);
  EXPECT_EQ(text->lastIndexOf("bc", 2, 1), 0u);
}

TEST_P(BackwardSearch, FromZeroFindsNothing)
{
  const Owned text(made("abcabc"));
  EXPECT_EQ(text->lastIndexOf("bc", 2, 0), 0u);
  EXPECT_EQ(text->lastIndexOf("a", 1, 0), 0u);
  EXPECT_EQ(text->lastIndexOf(isalpha, 0), 0u);
  EXPECT_EQ(text->lastIndexOfAnyOf("abc", 3, 0), 0u);
  EXPECT_EQ(text->lastIndexOfAnyOf(isalpha, 0), 0u);
  EXPECT_EQ(text->lastIndexOfAnyBut("xy", 2, 0), 0u);
  EXPECT_EQ(text->lastIndexOfAnyBut("", 0, 0), 0u);
  EXPECT_EQ(text->lastIndexOfAnyBut(isdigit, 0), 0u);
}

TEST_P(Search, ForwardsFromZeroBeginsAtTheFirstCharacter)
{
  const Owned text(made("abcabc"));
  EXPECT_EQ(text->indexOf("a", 1, 0), 1u);
  EXPECT_EQ(text->indexOf(isalpha, 0), 1u);
  EXPECT_EQ(text->indexOfAnyOf("xa", 2, 0), 1u);
  EXPECT_EQ(text->indexOfAnyOf(isalpha, 0), 1u);
  EXPECT_EQ(text->indexOfAnyBut("xb", 2, 0), 1u);
  EXPECT_EQ(text->indexOfAnyBut(isdigit, 0), 1u);
}

TEST_P(Search, NeverFindsTheEmptyText)
{
  const Owned text(made("abc"));
  for (const unsigned start : {0u, 1u, 2u, 3u, 4u, largest}) {
    EXPECT_EQ(text->indexOf("", 0, start), 0u) << start;
    EXPECT_EQ(text->lastIndexOf("", 0, start), 0u) << start;
  }
}

TEST_P(Search, FindsNoMemberOfAnEmptySet)
{
  const Owned text(made("abc"));
  for (const unsigned start : {0u, 1u, 3u, 4u, largest}) {
    EXPECT_EQ(text->indexOfAnyOf("", 0, start), 0u) << start;
    EXPECT_EQ(text->lastIndexOfAnyOf("", 0, start), 0u) << start;
  }
}

TEST_P(Search, FindsTheFirstCharacterOutsideOfAnEmptySetAtTheStart)
{
  const Owned text(made("abc"));
  EXPECT_EQ(text->indexOfAnyBut("", 0, 0), 1u);
  EXPECT_EQ(text->indexOfAnyBut("", 0, 1), 1u);
  EXPECT_EQ(text->indexOfAnyBut("", 0, 3), 3u);
  EXPECT_EQ(text->indexOfAnyBut("", 0, 4), 0u);
}

TEST_P(BackwardSearch, FindsTheLastCharacterOutsideOfAnEmptySetAtTheClampedStart)
{
  const Owned text(made("abc"));
  EXPECT_EQ(text->lastIndexOfAnyBut("", 0, 1), 1u);
  EXPECT_EQ(text->lastIndexOfAnyBut("", 0, 3), 3u);
  EXPECT_EQ(text->lastIndexOfAnyBut("", 0, 4), 3u);
  EXPECT_EQ(text->lastIndexOfAnyBut("", 0, largest), 3u);
}

TEST_P(Search, FindsNothingInAnEmptyText)
{
  const Owned text(made(""));
  for (const unsigned start : {0u, 1u, largest}) {
    EXPECT_EQ(text->indexOf("ab", 2, start), 0u);
    EXPECT_EQ(text->indexOf("a", 1, start), 0u);
    EXPECT_EQ(text->indexOf("", 0, start), 0u);
    EXPECT_EQ(text->indexOf(isalpha, start), 0u);
    EXPECT_EQ(text->indexOfAnyOf("ab", 2, start), 0u);
    EXPECT_EQ(text->indexOfAnyOf("a", 1, start), 0u);
    EXPECT_EQ(text->indexOfAnyOf(isalpha, start), 0u);
    EXPECT_EQ(text->indexOfAnyBut("ab", 2, start), 0u);
    EXPECT_EQ(text->indexOfAnyBut("a", 1, start), 0u);
    EXPECT_EQ(text->indexOfAnyBut("", 0, start), 0u);
    EXPECT_EQ(text->indexOfAnyBut(isalpha, start), 0u);
    EXPECT_EQ(text->lastIndexOf("ab", 2, start), 0u);
    EXPECT_EQ(text->lastIndexOf("a", 1, start), 0u);
    EXPECT_EQ(text->lastIndexOf("", 0, start), 0u);
    EXPECT_EQ(text->lastIndexOf(isalpha, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyOf("ab", 2, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyOf("a", 1, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyOf(isalpha, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyBut("ab", 2, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyBut("a", 1, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyBut("", 0, start), 0u);
    EXPECT_EQ(text->lastIndexOfAnyBut(isalpha, start), 0u);
  }
}

TEST_P(Search, FindsNulsLikeOtherBytes)
{
  const Owned text(made(bytes("ab\0cd\0e")));
  EXPECT_EQ(text->indexOf("\0", 1, 1), 3u);
  EXPECT_EQ(text->indexOf("\0", 1, 4), 6u);
  EXPECT_EQ(text->indexOf("\0e", 2, 1), 6u);
  EXPECT_EQ(text->lastIndexOf("\0", 1, largest), 6u);
  EXPECT_EQ(text->lastIndexOf("\0c", 2, largest), 3u);
  EXPECT_EQ(text->indexOfAnyOf("x\0", 2, 1), 3u);
  EXPECT_EQ(text->indexOfAnyBut("ab\0", 3, 1), 4u);
  EXPECT_EQ(text->lastIndexOfAnyBut("e\0", 2, largest), 5u);
}

TEST_P(Search, DoesNotFindTheNulBehindTheText)
{
  const Owned text(made("abc"));
  EXPECT_EQ(text->indexOf("\0", 1, 1), 0u);
  EXPECT_EQ(text->indexOf("c\0", 2, 1), 0u);
  EXPECT_EQ(text->lastIndexOf("\0", 1, largest), 0u);
  EXPECT_EQ(text->lastIndexOf("c\0", 2, largest), 0u);
}

TEST_P(Search, FindsOverlappingOccurrencesFromTheirOwnStarts)
{
  const Owned text(made("aaaa"));
  EXPECT_EQ(text->indexOf("aa", 2, 2), 2u);
  EXPECT_EQ(text->indexOf("aa", 2, 3), 3u);
  EXPECT_EQ(text->indexOf("aa", 2, 4), 0u);
  EXPECT_EQ(text->lastIndexOf("aa", 2, 2), 2u);
  EXPECT_EQ(text->lastIndexOf("aa", 2, 4), 3u);
}

TEST_P(Search, AllocatesNothing)
{
  const Owned text(made(std::string(5000, 'a') + "b"));
  const std::string needle = std::string(2000, 'a') + "c";
  const unsigned length = static_cast<unsigned>(needle.size());
  quelmcl_test::AllocationWatch watch;
  text->indexOf(needle.data(), length, 1);
  text->lastIndexOf(needle.data(), length, largest);
  text->indexOfAnyOf("xyz", 3, 1);
  text->lastIndexOfAnyBut("ab", 2, largest);
  EXPECT_EQ(watch.allocations(), 0u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Tests

/// Notes which characters it was asked about; passes capital letters.
class Recorder : public IStringTest {
public:
  Recorder() : IStringTest(user, nullptr) {}
  int test(int character) const override
  {
    asked.push_back(character);
    return character >= 'A' && character <= 'Z' ? 256 : 0;
  }
  mutable std::vector<int> asked;
};

TEST(SearchByTest, HandsBytesOverAsSignedNumbers)
{
  const Owned text(SingleByteBuffer::holding(bytes("a\x7F\x80\xFF\0")));
  const Recorder test;
  EXPECT_EQ(text->indexOfAnyOf(test, 1), 0u);
  EXPECT_EQ(test.asked, (std::vector<int>{'a', 127, -128, -1, 0}));
}

TEST(SearchByTest, BackwardsHandsBytesOverAsSignedNumbersToo)
{
  const Owned text(SingleByteBuffer::holding(bytes("a\x7F\x80\xFF\0")));
  const Recorder test;
  EXPECT_EQ(text->lastIndexOfAnyOf(test, largest), 0u);
  EXPECT_EQ(test.asked, (std::vector<int>{0, -1, -128, 127, 'a'}));
}

TEST(SearchByTest, StopsAtTheFirstAnswer)
{
  const Owned text(SingleByteBuffer::holding("abCdE"));
  const Recorder forwards;
  EXPECT_EQ(text->indexOfAnyOf(forwards, 2), 3u);
  EXPECT_EQ(forwards.asked, (std::vector<int>{'b', 'C'}));
  const Recorder backwards;
  EXPECT_EQ(text->lastIndexOfAnyOf(backwards, 4), 3u);
  EXPECT_EQ(backwards.asked, (std::vector<int>{'d', 'C'}));
}

TEST(SearchByTest, TakesAnyNumberButZeroForPassed)
{
  const Owned text(SingleByteBuffer::holding("ABc"));
  const Recorder test;  // answers 256, which a narrower type would lose
  EXPECT_EQ(text->indexOf(test, 1), 1u);
  EXPECT_EQ(text->indexOfAnyBut(test, 1), 3u);
  EXPECT_EQ(text->lastIndexOf(test, largest), 2u);
  EXPECT_EQ(text->lastIndexOfAnyBut(test, largest), 3u);
}

// ---------------------------------------------------------------------------------------------------------------------
// What other kinds can rely on

/// Says that no search can begin anywhere.
class ClosedBuffer : public SingleByteBuffer {
public:
  static ClosedBuffer* holding(const std::string& text)
  {
    const unsigned length = static_cast<unsigned>(text.size());
    ClosedBuffer* const buffer = new (length) ClosedBuffer(length);
    std::memcpy(buffer->contents(), text.data(), length);
    return buffer;
  }

protected:
  unsigned startSearch(unsigned startPos, unsigned searchLen) const override
  {
    lastStart = startPos;
    lastLength = searchLen;
    return 0;
  }
  unsigned startBackwardsSearch(unsigned startPos, unsigned searchLen) const override
  {
    lastBackwardStart = startPos;
    lastBackwardLength = searchLen;
    return 0;
  }

public:
  static inline unsigned lastStart = 0;
  static inline unsigned lastLength = 0;
  static inline unsigned lastBackwardStart = 0;
  static inline unsigned lastBackwardLength = 0;

private:
  explicit ClosedBuffer(unsigned newLen) : SingleByteBuffer(newLen) {}
};

TEST(SearchOfOtherKinds, AsksWhereToBegin)
{
  const Owned text(ClosedBuffer::holding("abcabc"));
  EXPECT_EQ(text->indexOf("bc", 2, 1), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 1u);
  EXPECT_EQ(ClosedBuffer::lastLength, 2u);
  EXPECT_EQ(text->indexOf("b", 1, 2), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 2u);
  EXPECT_EQ(ClosedBuffer::lastLength, 1u);
  EXPECT_EQ(text->indexOf(isalpha, 3), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 3u);
  EXPECT_EQ(text->indexOfAnyOf("abc", 3, 4), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 4u);
  EXPECT_EQ(ClosedBuffer::lastLength, 1u);
  EXPECT_EQ(text->indexOfAnyOf(isalpha, 5), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 5u);
  EXPECT_EQ(text->indexOfAnyBut("x", 1, 6), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 6u);
  EXPECT_EQ(text->indexOfAnyBut("", 0, 5), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 5u);
  EXPECT_EQ(text->indexOfAnyBut(isdigit, 4), 0u);
  EXPECT_EQ(ClosedBuffer::lastStart, 4u);
  EXPECT_EQ(ClosedBuffer::lastLength, 1u);
}

TEST(SearchOfOtherKinds, AsksWhereToBeginBackwards)
{
  const Owned text(ClosedBuffer::holding("abcabc"));
  EXPECT_EQ(text->lastIndexOf("bc", 2, 1), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 1u);
  EXPECT_EQ(ClosedBuffer::lastBackwardLength, 2u);
  EXPECT_EQ(text->lastIndexOf("b", 1, 2), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 2u);
  EXPECT_EQ(ClosedBuffer::lastBackwardLength, 1u);
  EXPECT_EQ(text->lastIndexOf(isalpha, 3), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 3u);
  EXPECT_EQ(text->lastIndexOfAnyOf("abc", 3, 4), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 4u);
  EXPECT_EQ(ClosedBuffer::lastBackwardLength, 1u);
  EXPECT_EQ(text->lastIndexOfAnyOf(isalpha, 5), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 5u);
  EXPECT_EQ(text->lastIndexOfAnyBut("x", 1, 6), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 6u);
  EXPECT_EQ(text->lastIndexOfAnyBut("", 0, 5), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 5u);
  EXPECT_EQ(text->lastIndexOfAnyBut(isdigit, 4), 0u);
  EXPECT_EQ(ClosedBuffer::lastBackwardStart, 4u);
  EXPECT_EQ(ClosedBuffer::lastBackwardLength, 1u);
}

// ---------------------------------------------------------------------------------------------------------------------
// Comparison with the reference

class RandomSearch : public testing::TestWithParam<bool> {
protected:
  quelmcl_test::RandomTexts random;

  /// Calls `check` with many buffers and their texts.
  template <class Check>
  void forManyTexts(Check check)
  {
    for (int round = 0; round < 3000 && !HasFailure(); ++round) {
      const std::string text = random.text();
      const Owned buffer(GetParam() ? ofThisProcess(text) : SingleByteBuffer::holding(text));
      check(*buffer, text);
      EXPECT_TEXT(*buffer, text);
    }
  }
};

INSTANTIATE_TEST_SUITE_P(Kinds, RandomSearch, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& row) { return row.param ? "process" : "single"; });

std::string request(const std::string& text, const std::string& sought, unsigned start)
{
  return quelmcl_test::quoted(sought) + " in " + quelmcl_test::quoted(text) + " from " + std::to_string(start);
}

TEST_P(RandomSearch, ForTextsAgreesWithTheReference)
{
  forManyTexts([this](const IBuffer& buffer, const std::string& text) {
    const std::string needle = random.needleFor(text);
    const Exactly sought(needle);
    const unsigned start = random.position(text.size());
    EXPECT_EQ(buffer.indexOf(sought.data(), sought.size(), start), reference::indexOf(text, needle, start))
      << request(text, needle, start);
    EXPECT_EQ(buffer.lastIndexOf(sought.data(), sought.size(), start), reference::lastIndexOf(text, needle, start))
      << request(text, needle, start);
  });
}

TEST_P(RandomSearch, ForPartsOfTheTextItselfAgreesWithTheReference)
{
  forManyTexts([this](const IBuffer& buffer, const std::string& text) {
    const unsigned first = random.below(buffer.length() + 1);
    const unsigned length = random.below(buffer.length() - first + 1);
    const std::string part = text.substr(first, length);
    const char* const inside = buffer.contents() + first;
    const unsigned start = random.position(text.size());
    EXPECT_EQ(buffer.indexOf(inside, length, start), reference::indexOf(text, part, start))
      << request(text, part, start);
    EXPECT_EQ(buffer.lastIndexOf(inside, length, start), reference::lastIndexOf(text, part, start))
      << request(text, part, start);
    EXPECT_EQ(buffer.indexOfAnyBut(inside, length, start), reference::indexOfAnyBut(text, part, start))
      << request(text, part, start);
  });
}

TEST_P(RandomSearch, ForSetsAgreesWithTheReference)
{
  forManyTexts([this](const IBuffer& buffer, const std::string& text) {
    const std::string set = random.textLike(text, random.onceIn(5) ? 40 : 3);
    const Exactly sought(set);
    const unsigned start = random.position(text.size());
    EXPECT_EQ(buffer.indexOfAnyOf(sought.data(), sought.size(), start), reference::indexOfAnyOf(text, set, start))
      << request(text, set, start);
    EXPECT_EQ(buffer.indexOfAnyBut(sought.data(), sought.size(), start), reference::indexOfAnyBut(text, set, start))
      << request(text, set, start);
    EXPECT_EQ(buffer.lastIndexOfAnyOf(sought.data(), sought.size(), start),
              reference::lastIndexOfAnyOf(text, set, start))
      << request(text, set, start);
    EXPECT_EQ(buffer.lastIndexOfAnyBut(sought.data(), sought.size(), start),
              reference::lastIndexOfAnyBut(text, set, start))
      << request(text, set, start);
  });
}

int isNegativeOrB(int character)
{
  return character < 0 || character == 'b';
}

TEST_P(RandomSearch, ByTestsAgreesWithTheReference)
{
  int (*const tests[])(int) = {isalpha, isspace, isupper, isNegativeOrB};
  forManyTexts([this, &tests](const IBuffer& buffer, const std::string& text) {
    int (*const test)(int) = tests[random.below(4)];
    const unsigned start = random.position(text.size());
    const std::string what = request(text, "by test", start);
    EXPECT_EQ(buffer.indexOf(test, start), reference::indexOf(text, test, start)) << what;
    EXPECT_EQ(buffer.indexOfAnyOf(test, start), reference::indexOfAnyOf(text, test, start)) << what;
    EXPECT_EQ(buffer.indexOfAnyBut(test, start), reference::indexOfAnyBut(text, test, start)) << what;
    EXPECT_EQ(buffer.lastIndexOf(test, start), reference::lastIndexOf(text, test, start)) << what;
    EXPECT_EQ(buffer.lastIndexOfAnyOf(test, start), reference::lastIndexOfAnyOf(text, test, start)) << what;
    EXPECT_EQ(buffer.lastIndexOfAnyBut(test, start), reference::lastIndexOfAnyBut(text, test, start)) << what;
  });
}

TEST(RandomSearchStart, AgreesWithTheReference)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 5000; ++round) {
    const std::string text = random.text();
    const unsigned start = random.position(text.size());
    const unsigned length = random.position(text.size());
    SingleByteBuffer* const buffer = SingleByteBuffer::holding(text);
    const Owned owner(buffer);
    ASSERT_EQ(buffer->startSearch(start, length), reference::startSearch(text, start, length))
      << text.size() << " bytes, start " << start << ", length " << length;
    ASSERT_EQ(buffer->startBackwardsSearch(start, length), reference::startBackwardsSearch(text, start, length))
      << text.size() << " bytes, start " << start << ", length " << length;
  }
}

// ---------------------------------------------------------------------------------------------------------------------
// Texts and needles that keep a simple search busy: done at once when the time is linear, after minutes when it is the
// product

constexpr unsigned adversaryLength = 200000;

class AdversarialSearch : public testing::TestWithParam<unsigned> {};

TEST_P(AdversarialSearch, ForARunThatEndsInAnotherByte)
{
  const std::string needle = std::string(GetParam(), 'a') + "b";
  const unsigned length = static_cast<unsigned>(needle.size());
  const Owned without(SingleByteBuffer::holding(std::string(adversaryLength, 'a')));
  EXPECT_EQ(without->indexOf(needle.data(), length, 1), 0u);
  EXPECT_EQ(without->lastIndexOf(needle.data(), length, largest), 0u);

  const Owned atTheEnd(SingleByteBuffer::holding(std::string(adversaryLength, 'a') + "b"));
  EXPECT_EQ(atTheEnd->indexOf(needle.data(), length, 1), adversaryLength - GetParam() + 1);
  EXPECT_EQ(atTheEnd->lastIndexOf(needle.data(), length, largest), adversaryLength - GetParam() + 1);

  const Owned atTheFront(SingleByteBuffer::holding(needle + std::string(adversaryLength, 'a')));
  EXPECT_EQ(atTheFront->indexOf(needle.data(), length, 1), 1u);
  EXPECT_EQ(atTheFront->lastIndexOf(needle.data(), length, largest), 1u);
}

TEST_P(AdversarialSearch, ForARunThatBeginsWithAnotherByte)
{
  const std::string needle = "b" + std::string(GetParam(), 'a');
  const unsigned length = static_cast<unsigned>(needle.size());
  const Owned without(SingleByteBuffer::holding(std::string(adversaryLength, 'a')));
  EXPECT_EQ(without->indexOf(needle.data(), length, 1), 0u);
  EXPECT_EQ(without->lastIndexOf(needle.data(), length, largest), 0u);

  const Owned atTheEnd(SingleByteBuffer::holding(std::string(adversaryLength, 'a') + needle));
  EXPECT_EQ(atTheEnd->indexOf(needle.data(), length, 1), adversaryLength + 1);
  EXPECT_EQ(atTheEnd->lastIndexOf(needle.data(), length, largest), adversaryLength + 1);
}

TEST_P(AdversarialSearch, ForAByteWithinARun)
{
  const std::string needle = std::string(GetParam(), 'a') + "b" + std::string(GetParam(), 'a');
  const unsigned length = static_cast<unsigned>(needle.size());
  const Owned without(SingleByteBuffer::holding(std::string(adversaryLength, 'a')));
  EXPECT_EQ(without->indexOf(needle.data(), length, 1), 0u);
  EXPECT_EQ(without->lastIndexOf(needle.data(), length, largest), 0u);

  const Owned within(
    SingleByteBuffer::holding(std::string(adversaryLength, 'a') + "b" + std::string(adversaryLength, 'a')));
  EXPECT_EQ(within->indexOf(needle.data(), length, 1), adversaryLength - GetParam() + 1);
  EXPECT_EQ(within->lastIndexOf(needle.data(), length, largest), adversaryLength - GetParam() + 1);
}

TEST_P(AdversarialSearch, ForRunsAmongRunsThatAreOneTooShort)
{
  const std::string tooShort = std::string(GetParam() - 1, 'a') + "b";
  const std::string needle = std::string(GetParam(), 'a') + "b";
  const unsigned length = static_cast<unsigned>(needle.size());
  std::string runs;
  while (runs.size() < adversaryLength)
    runs += tooShort;
  const Owned without(SingleByteBuffer::holding(runs));
  EXPECT_EQ(without->indexOf(needle.data(), length, 1), 0u);
  EXPECT_EQ(without->lastIndexOf(needle.data(), length, largest), 0u);

  const Owned with(SingleByteBuffer::holding(runs + needle + runs));
  const unsigned expected = static_cast<unsigned>(runs.size()) + 1;
  EXPECT_EQ(with->indexOf(needle.data(), length, 1), expected);
  EXPECT_EQ(with->lastIndexOf(needle.data(), length, largest), expected);
}

INSTANTIATE_TEST_SUITE_P(RunLengths, AdversarialSearch, testing::Values(2, 3, 100, 1000, 50000),
                         testing::PrintToStringParamName());

// Comparing so many bytes at so many places would take minutes even with the fastest comparison.
TEST(AdversarialSearchOfAllSizes, ForMillionsOfBytes)
{
  constexpr unsigned run = 2000000;
  const std::string needle = std::string(run, 'a') + "b" + std::string(run, 'a');
  const unsigned length = static_cast<unsigned>(needle.size());
  const Owned text(SingleByteBuffer::holding(std::string(5 * run, 'a')));
  EXPECT_EQ(text->indexOf(needle.data(), length, 1), 0u);
  EXPECT_EQ(text->lastIndexOf(needle.data(), length, largest), 0u);
}

TEST(AdversarialChange, OfLongRunsIsLinearToo)
{
  const std::string run(50000, 'a');
  const std::string pattern = run + "b";
  const Owned text(SingleByteBuffer::holding(std::string(4 * 50000, 'a') + "b"));
  const Owned result(text->change(pattern.data(), static_cast<unsigned>(pattern.size()), "X", 1, 1, largest));
  EXPECT_TEXT(*result, std::string(3 * 50000, 'a') + "X", 1);
}

}  // namespace
