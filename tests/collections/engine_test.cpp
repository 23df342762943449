// engine_test.cpp - ILinkedSequenceImpl: adding, removing, positions, comparison.
#include "numbers.hpp"

#include <quelmcl/iilnseq.hpp>

#include <gtest/gtest.h>

using namespace sequencetests;

namespace {

class Engine : public testing::Test {
protected:
  void SetUp() override { aliveBefore = NumberNode::alive(); }
  void TearDown() override { EXPECT_EQ(aliveBefore, NumberNode::alive()) << "every node is destroyed once"; }

private:
  long aliveBefore = 0;
};

bool isEven(int number, void*)
{
  return number % 2 == 0;
}

bool isAtLeast(int number, void* limit)
{
  return number >= *static_cast<int*>(limit);
}

// ---------------------------------------------------------------------------------------------------------------------
// Adding

TEST_F(Engine, StartsEmpty)
{
  const Numbers sequence;
  expectNumbers(sequence, {});
  EXPECT_EQ(nullptr, sequence.first());
  EXPECT_EQ(nullptr, sequence.last());
  EXPECT_FALSE(sequence.isFull());
}

TEST_F(Engine, ANewNodeIsLinkedNowhere)
{
  const Node node;
  EXPECT_EQ(nullptr, node.ivNext);
  EXPECT_EQ(nullptr, node.ivPrevious);
}

TEST_F(Engine, AddsAtBothEndsAndReturnsTheNode)
{
  Numbers sequence;
  Node* const two = made(2);
  EXPECT_EQ(two, sequence.addAsFirst(two));
  expectNumbers(sequence, {2});
  EXPECT_TRUE(sequence.isFirst(two) && sequence.isLast(two));
  Node* const three = made(3);
  EXPECT_EQ(three, sequence.addAsLast(three));
  Node* const one = made(1);
  EXPECT_EQ(one, sequence.addAsFirst(one));
  expectNumbers(sequence, {1, 2, 3});
  EXPECT_TRUE(sequence.isFirst(one));
  EXPECT_FALSE(sequence.isFirst(two) || sequence.isLast(two));
  EXPECT_TRUE(sequence.isLast(three));
}

TEST_F(Engine, AddsBehindANode)
{
  Numbers sequence{1, 3};
  Node* const two = made(2);
  EXPECT_EQ(two, sequence.addAsNext(sequence.first(), two));
  expectNumbers(sequence, {1, 2, 3});
  sequence.addAsNext(sequence.last(), made(4));
  expectNumbers(sequence, {1, 2, 3, 4});
}

TEST_F(Engine, AddsInFrontBehindNoNode)
{
  Numbers sequence{2};
  sequence.addAsNext(nullptr, made(1));
  expectNumbers(sequence, {1, 2});
  Numbers empty;
  empty.addAsNext(nullptr, made(1));
  expectNumbers(empty, {1});
}

TEST_F(Engine, AddsBeforeANode)
{
  Numbers sequence{1, 3};
  Node* const two = made(2);
  EXPECT_EQ(two, sequence.addAsPrevious(sequence.last(), two));
  expectNumbers(sequence, {1, 2, 3});
  sequence.addAsPrevious(sequence.first(), made(0));
  expectNumbers(sequence, {0, 1, 2, 3});
}

TEST_F(Engine, AddsBehindAllBeforeNoNode)
{
  Numbers sequence{1};
  sequence.addAsPrevious(nullptr, made(2));
  expectNumbers(sequence, {1, 2});
}

TEST_F(Engine, AddsAtAPosition)
{
  Numbers sequence;
  sequence.addAtPosition(1, made(10));
  expectNumbers(sequence, {10});
  Node* const node = made(20);
  EXPECT_EQ(node, sequence.addAtPosition(2, node));
  sequence.addAtPosition(2, made(15));
  sequence.addAtPosition(1, made(5));
  sequence.addAtPosition(5, made(25));
  sequence.addAtPosition(0, made(0));
  expectNumbers(sequence, {0, 5, 10, 15, 20, 25});
}

TEST_F(Engine, AddsCopiesOfAllNodesOfAnother)
{
  Numbers sequence{1, 2};
  const Numbers other{3, 4, 5};
  sequence.addAllFrom(other);
  expectNumbers(sequence, {1, 2, 3, 4, 5});
  expectNumbers(other, {3, 4, 5});
  sequence.addAllFrom(Numbers());
  expectNumbers(sequence, {1, 2, 3, 4, 5});
}

TEST_F(Engine, AddsOneCopyOfItself)
{
  Numbers sequence{1, 2, 3};
  sequence.addAllFrom(sequence);
  expectNumbers(sequence, {1, 2, 3, 1, 2, 3});
  Numbers empty;
  empty.addAllFrom(empty);
  expectNumbers(empty, {});
}

TEST_F(Engine, StaysConsistentWhenACopyThrows)
{
  for (long copies = 0; copies < 3; ++copies) {
    Numbers sequence{1, 2, 3};
    sequence.copiesLeft = copies;
    EXPECT_THROW(sequence.addAllFrom(sequence), Thrown);
    EXPECT_EQ(3u + static_cast<unsigned long>(copies), sequence.numberOfElements());
    EXPECT_TRUE(sequence.isConsistent());
  }
}

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
/// Copies the engine and nothing else.
struct BareCopy : Numbers {
  BareCopy() = default;
  BareCopy(const BareCopy& source) : Numbers(static_cast<const ILinkedSequenceImpl&>(source)) {}
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

TEST_F(Engine, IsCopiedEmptyAndFilledByTheDerivedClass)
{
  BareCopy source;
  source.addAsLast(made(1));
  const BareCopy bare(source);
  expectNumbers(bare, {});
  expectNumbers(source, {1});

  const Numbers sequence{1, 2, 3};
  const Numbers copy(sequence);  // its own copy constructor fills the copy that the engine leaves empty
  expectNumbers(copy, {1, 2, 3});
  EXPECT_NE(sequence.first(), copy.first());
}

// ---------------------------------------------------------------------------------------------------------------------
// Removing

TEST_F(Engine, RemovesAtTheEnds)
{
  Numbers sequence{1, 2, 3, 4};
  sequence.removeFirst();
  expectNumbers(sequence, {2, 3, 4});
  sequence.removeLast();
  expectNumbers(sequence, {2, 3});
  sequence.removeFirst();
  sequence.removeLast();
  expectNumbers(sequence, {});
  EXPECT_EQ(nullptr, sequence.first());
  EXPECT_EQ(nullptr, sequence.last());
}

TEST_F(Engine, RemovesANode)
{
  Numbers sequence{1, 2, 3};
  sequence.removeAt(sequence.first()->ivNext);
  expectNumbers(sequence, {1, 3});
  sequence.removeAt(sequence.last());
  expectNumbers(sequence, {1});
  sequence.removeAt(sequence.first());
  expectNumbers(sequence, {});
}

TEST_F(Engine, RemovesAtAPosition)
{
  Numbers sequence{1, 2, 3, 4};
  sequence.removeAtPosition(2);
  expectNumbers(sequence, {1, 3, 4});
  sequence.removeAtPosition(3);
  expectNumbers(sequence, {1, 3});
  sequence.removeAtPosition(1);
  expectNumbers(sequence, {3});
}

TEST_F(Engine, RemovesAll)
{
  const long before = NumberNode::alive();
  Numbers sequence{1, 2, 3};
  EXPECT_EQ(before + 3, NumberNode::alive());
  sequence.removeAll();
  EXPECT_EQ(before, NumberNode::alive());
  expectNumbers(sequence, {});
  EXPECT_EQ(nullptr, sequence.first());
  EXPECT_EQ(nullptr, sequence.last());
  sequence.removeAll();
  expectNumbers(sequence, {});
  sequence.addAsLast(made(1));
  expectNumbers(sequence, {1});
}

TEST_F(Engine, RemovesWhatAPredicateSays)
{
  Predicate predicate = isEven;
  Numbers sequence{1, 2, 4, 3, 6};
  EXPECT_EQ(3u, sequence.removeAll(&predicate, nullptr));
  expectNumbers(sequence, {1, 3});
  EXPECT_EQ(0u, sequence.removeAll(&predicate, nullptr));
  expectNumbers(sequence, {1, 3});
  Numbers empty;
  EXPECT_EQ(0u, empty.removeAll(&predicate, nullptr));
}

TEST_F(Engine, HandsThePredicateItsArgument)
{
  Predicate predicate = isAtLeast;
  int limit = 3;
  Numbers sequence{5, 1, 3, 2};
  EXPECT_EQ(2u, sequence.removeAll(&predicate, &limit));
  expectNumbers(sequence, {1, 2});
}

TEST_F(Engine, RemovesEveryElementByAPredicate)
{
  Predicate predicate = isEven;
  Numbers sequence{2, 4, 6, 8};
  EXPECT_EQ(4u, sequence.removeAll(&predicate, nullptr));
  expectNumbers(sequence, {});
  EXPECT_EQ(nullptr, sequence.first());
  EXPECT_EQ(nullptr, sequence.last());
}

TEST_F(Engine, StaysConsistentWhenAPredicateThrows)
{
  Predicate predicate = [](int number, void*) {
    if (number == 6)
      throw Thrown();
    return number % 2 == 0;
  };
  Numbers sequence{1, 2, 4, 6, 8};
  EXPECT_THROW(sequence.removeAll(&predicate, nullptr), Thrown);
  expectNumbers(sequence, {1, 6, 8});
}

// ---------------------------------------------------------------------------------------------------------------------
// Places

TEST_F(Engine, WalksBothWays)
{
  const Numbers sequence{1, 2};
  Node* node = nullptr;
  EXPECT_TRUE(sequence.setToFirst(node));
  EXPECT_EQ(1, numberOf(node));
  EXPECT_TRUE(sequence.setToNext(node));
  EXPECT_EQ(2, numberOf(node));
  EXPECT_FALSE(sequence.setToNext(node));
  EXPECT_EQ(nullptr, node);
  EXPECT_TRUE(sequence.setToLast(node));
  EXPECT_EQ(2, numberOf(node));
  EXPECT_TRUE(sequence.setToPrevious(node));
  EXPECT_EQ(1, numberOf(node));
  EXPECT_FALSE(sequence.setToPrevious(node));
  EXPECT_EQ(nullptr, node);
  const Numbers empty;
  EXPECT_FALSE(empty.setToFirst(node));
  EXPECT_FALSE(empty.setToLast(node));
}

TEST_F(Engine, PositionsCountFromOneAndZeroIsTheFirst)
{
  const Numbers sequence{10, 20, 30};
  Node* node = nullptr;
  for (unsigned long position = 1; position <= 3; ++position) {
    EXPECT_TRUE(sequence.setToPosition(position, node));
    EXPECT_EQ(static_cast<int>(position) * 10, numberOf(node));
    EXPECT_EQ(position, sequence.position(node));
  }
  EXPECT_TRUE(sequence.setToPosition(0, node));
  EXPECT_EQ(10, numberOf(node));
}

TEST_F(Engine, KnowsItsOwnNodes)
{
  const Numbers sequence{1, 2, 3}, other{1};
  EXPECT_TRUE(sequence.checkNode(sequence.first()));
  EXPECT_TRUE(sequence.checkNode(sequence.first()->ivNext));
  EXPECT_TRUE(sequence.checkNode(sequence.last()));
  EXPECT_FALSE(sequence.checkNode(other.first()));
  EXPECT_FALSE(sequence.checkNode(nullptr));
  EXPECT_FALSE(Numbers().checkNode(sequence.first()));
  EXPECT_FALSE(Numbers().checkNode(nullptr));
}

TEST_F(Engine, SeesThatItsLinksAreBroken)
{
  Numbers sequence{1, 2, 3};
  Node* const first = sequence.first();
  Node* const middle = first->ivNext;
  Node* const last = sequence.last();

  first->ivPrevious = last;
  EXPECT_FALSE(sequence.isConsistent()) << "something before the first";
  first->ivPrevious = nullptr;

  last->ivPrevious = first;
  EXPECT_FALSE(sequence.isConsistent()) << "a next node that does not point back";
  last->ivPrevious = middle;

  last->ivNext = middle;
  EXPECT_FALSE(sequence.isConsistent()) << "a circle";
  last->ivNext = first;
  EXPECT_FALSE(sequence.isConsistent()) << "a full circle";
  last->ivNext = nullptr;

  middle->ivNext = nullptr;
  EXPECT_FALSE(sequence.isConsistent()) << "fewer than are counted";
  middle->ivNext = last;
  EXPECT_TRUE(sequence.isConsistent());
}

// ---------------------------------------------------------------------------------------------------------------------
// Comparison

TEST_F(Engine, ComparesElementByElement)
{
  Order order = byNumber;
  EXPECT_EQ(-1, Numbers({1, 2}).compare(Numbers{1, 2, 3}, &order));
  EXPECT_EQ(1, Numbers({1, 2, 3}).compare(Numbers{1, 2}, &order));
  EXPECT_EQ(0, Numbers().compare(Numbers(), &order));
  EXPECT_EQ(0, Numbers({1, 2}).compare(Numbers{1, 2}, &order));
  EXPECT_EQ(-1, Numbers().compare(Numbers{1}, &order));
  EXPECT_EQ(1, Numbers({1}).compare(Numbers(), &order));
  EXPECT_EQ(1, Numbers({2}).compare(Numbers{1, 5, 9}, &order));
  const Numbers itself{1, 2};
  EXPECT_EQ(0, itself.compare(itself, &order));
}

TEST_F(Engine, PassesTheComparisonsOwnResultOn)
{
  Order order = [](int left, int right) { return 10 * (left - right); };
  EXPECT_EQ(-20, Numbers({1, 2}).compare(Numbers{1, 4}, &order));
  EXPECT_EQ(30, Numbers({1, 7}).compare(Numbers{1, 4, 5}, &order));
}

}  // namespace
