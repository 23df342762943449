// engine_sort_test.cpp - ILinkedSequenceImpl: sorting, against the passes that define its result.
#include "numbers.hpp"
#include "support/random_texts.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

using namespace sequencetests;

namespace {

struct Tagged {
  int number, tag;
};

std::vector<Tagged> someNumbers(quelmcl_test::RandomTexts& random, unsigned count, unsigned limit)
{
  std::vector<Tagged> numbers;
  for (unsigned i = 0; i < count; ++i)
    numbers.push_back({static_cast<int>(random.below(limit)), static_cast<int>(i)});
  return numbers;
}

void fill(Numbers& sequence, const std::vector<Tagged>& numbers)
{
  for (const Tagged& tagged : numbers)
    sequence.addAsLast(made(tagged.number, tagged.tag));
}

/// Pass by pass, neighbours that stand the wrong way round change places.
void sortByPasses(std::vector<Tagged>& numbers, Order order)
{
  for (std::size_t boundary = numbers.size(); boundary > 1; --boundary)
    for (std::size_t i = 0; i + 1 < boundary; ++i)
      if (order(numbers[i].number, numbers[i + 1].number) > 0)
        std::swap(numbers[i], numbers[i + 1]);
}

void expectSortedByPasses(std::vector<Tagged> numbers, Order order)
{
  Numbers sequence;
  fill(sequence, numbers);
  sequence.sort(&order);
  sortByPasses(numbers, order);
  std::vector<int> expected, expectedTags;
  for (const Tagged& tagged : numbers) {
    expected.push_back(tagged.number);
    expectedTags.push_back(tagged.tag);
  }
  ASSERT_EQ(expectedTags, sequence.tags());
  expectNumbers(sequence, expected);
}

TEST(EngineSort, LeavesNoneAndOneAlone)
{
  Order order = byNumber;
  Numbers empty;
  empty.sort(&order);
  expectNumbers(empty, {});
  Numbers one{7};
  one.sort(&order);
  expectNumbers(one, {7});
  EXPECT_EQ(0u, one.comparisons);
}

TEST(EngineSort, KeepsEqualElementsInTheirOrder)
{
  Order order = [](int left, int right) { return byNumber(left / 10, right / 10); };
  Numbers sequence{31, 12, 33, 14, 25, 36, 17};
  sequence.sort(&order);
  expectNumbers(sequence, {12, 14, 17, 25, 31, 33, 36});
}

TEST(EngineSort, EveryOrderOfUpToSevenElementsIsThatOfThePasses)
{
  for (int count = 0; count <= 7; ++count) {
    std::vector<Tagged> numbers;
    for (int i = 0; i < count; ++i)
      numbers.push_back({i, i});
    const auto byTag = [](const Tagged& left, const Tagged& right) { return left.tag < right.tag; };
    do {
      expectSortedByPasses(numbers, byNumber);
      // The same with equal ones among them.
      expectSortedByPasses(numbers, [](int left, int right) { return byNumber(left / 3, right / 3); });
      if (testing::Test::HasFatalFailure())
        return;
    } while (std::next_permutation(numbers.begin(), numbers.end(), byTag));
  }
}

TEST(EngineSort, RandomNumbersAreInTheOrderOfThePasses)
{
  quelmcl_test::RandomTexts random;
  for (int round = 0; round < 400; ++round) {
    const unsigned count = random.below(120);
    const unsigned limit = 1 + random.below(random.onceIn(2) ? 5 : 200);
    expectSortedByPasses(someNumbers(random, count, limit), byNumber);
    expectSortedByPasses(someNumbers(random, count, limit), [](int left, int right) { return right - left; });
    if (testing::Test::HasFatalFailure())
      return;
  }
}

TEST(EngineSort, TakesAsManyComparisonsAsPromised)
{
  quelmcl_test::RandomTexts random;
  Order order = byNumber;
  for (const unsigned count : {2u, 3u, 100u, 1000u, 4096u, 10000u}) {
    Numbers sequence;
    fill(sequence, someNumbers(random, count, 1000000));
    sequence.sort(&order);
    EXPECT_LE(sequence.comparisons, static_cast<unsigned long>(count * std::log2(count)) + 1) << count;
    sequence.comparisons = 0;
    sequence.sort(&order);
    EXPECT_EQ(count - 1, sequence.comparisons) << "in order already";
  }
}

TEST(EngineSort, LosesNothingWhenAComparisonThrows)
{
  quelmcl_test::RandomTexts random;
  const long before = NumberNode::alive();
  Order order = byNumber;
  const std::vector<Tagged> numbers = someNumbers(random, 60, 20);
  unsigned long allComparisons = 0;
  {
    Numbers sequence;
    fill(sequence, numbers);
    sequence.sort(&order);
    allComparisons = sequence.comparisons;
  }
  ASSERT_GT(allComparisons, 100u);
  for (unsigned long nth = 0; nth < allComparisons; ++nth) {
    Numbers sequence;
    fill(sequence, numbers);
    sequence.comparisonsLeft = static_cast<long>(nth);
    ASSERT_THROW(sequence.sort(&order), Thrown);

    std::vector<int> tags = sequence.tags();
    std::vector<int> backward = sequence.backward();
    std::reverse(backward.begin(), backward.end());
    ASSERT_EQ(sequence.forward(), backward) << nth;
    ASSERT_TRUE(sequence.isConsistent()) << nth;
    std::sort(tags.begin(), tags.end());
    for (int tag = 0; tag < 60; ++tag)
      ASSERT_EQ(tag, tags[static_cast<std::size_t>(tag)]) << nth << ": every node once";

    sequence.comparisonsLeft = -1;
    sequence.sort(&order);  // and it can be sorted still
    const std::vector<int> sorted = sequence.forward();
    ASSERT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
  }
  EXPECT_EQ(before, NumberNode::alive());
}

// A comparison that contradicts itself gets some order, and every node is there.
TEST(EngineSort, EndsWithAComparisonThatMakesNoSense)
{
  Order order = [](int, int) { return 1; };
  Numbers sequence{1, 2, 3, 4, 5, 6, 7};
  sequence.sort(&order);
  std::vector<int> numbers = sequence.forward();
  EXPECT_TRUE(sequence.isConsistent());
  std::sort(numbers.begin(), numbers.end());
  EXPECT_EQ((std::vector<int>{1, 2, 3, 4, 5, 6, 7}), numbers);
}

TEST(EngineSort, AMillionNodesAreSortedAndDestroyed)
{
  quelmcl_test::RandomTexts random;
  const long before = NumberNode::alive();
  Order order = byNumber;
  {
    Numbers sequence;
    fill(sequence, someNumbers(random, 1000000, 500000));
    sequence.sort(&order);
    EXPECT_TRUE(sequence.isConsistent());
    EXPECT_EQ(1000000u, sequence.numberOfElements());
    const NumberNode* previous = static_cast<const NumberNode*>(sequence.first());
    for (const Node* node = previous->ivNext; node != nullptr; node = node->ivNext) {
      const NumberNode* const current = static_cast<const NumberNode*>(node);
      if (previous->number > current->number || (previous->number == current->number && previous->tag > current->tag))
        FAIL() << previous->number << " before " << current->number;
      previous = current;
    }
  }
  EXPECT_EQ(before, NumberNode::alive());
}

}  // namespace
