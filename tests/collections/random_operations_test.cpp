// random_operations_test.cpp - long runs of random operations, on the engine and on the typed sequence, beside std::list.
#include "numbers.hpp"
#include "support/random_texts.hpp"

#include <quelmcl/ilnseq.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <list>
#include <string>

using namespace sequencetests;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// The engine

class EngineBesideList {
public:
  explicit EngineBesideList(quelmcl_test::RandomTexts& source) : random(source) {}

  void step()
  {
    const int number = static_cast<int>(random.below(50));
    const unsigned operation = list.size() > 60 ? 8 + random.below(8) : random.below(16);
    switch (operation) {
    case 0:
    case 1:
      sequence.addAsFirst(made(number));
      list.push_front(number);
      break;
    case 2:
    case 3:
      sequence.addAsLast(made(number));
      list.push_back(number);
      break;
    case 4: {
      const unsigned long position = 1 + random.below(static_cast<unsigned>(list.size()) + 1);
      sequence.addAtPosition(position, made(number));
      list.insert(std::next(list.begin(), static_cast<long>(position) - 1), number);
      break;
    }
    case 5:
      if (!list.empty()) {
        const unsigned long position = anyPosition();
        sequence.addAsNext(nodeAt(position), made(number));
        list.insert(std::next(list.begin(), static_cast<long>(position)), number);
      }
      break;
    case 6:
      if (!list.empty()) {
        const unsigned long position = anyPosition();
        sequence.addAsPrevious(nodeAt(position), made(number));
        list.insert(std::next(list.begin(), static_cast<long>(position) - 1), number);
      }
      break;
    case 7:
      if (list.size() < 30) {
        const std::list<int> copy(list);
        sequence.addAllFrom(sequence);
        list.insert(list.end(), copy.begin(), copy.end());
      }
      break;
    case 8:
      if (!list.empty()) {
        sequence.removeFirst();
        list.pop_front();
      }
      break;
    case 9:
      if (!list.empty()) {
        sequence.removeLast();
        list.pop_back();
      }
      break;
    case 10:
      if (!list.empty()) {
        const unsigned long position = anyPosition();
        sequence.removeAtPosition(position);
        list.erase(std::next(list.begin(), static_cast<long>(position) - 1));
      }
      break;
    case 11:
      if (!list.empty()) {
        const unsigned long position = anyPosition();
        sequence.removeAt(nodeAt(position));
        list.erase(std::next(list.begin(), static_cast<long>(position) - 1));
      }
      break;
    case 12: {
      Predicate predicate = [](int candidate, void* argument) { return candidate % 7 == *static_cast<int*>(argument); };
      int remainder = number % 7;
      const std::size_t before = list.size();
      list.remove_if([remainder](int candidate) { return candidate % 7 == remainder; });
      EXPECT_EQ(before - list.size(), sequence.removeAll(&predicate, &remainder));
      break;
    }
    case 13:
    case 14: {
      Order order = operation == 13 ? byNumber : [](int left, int right) { return right / 4 - left / 4; };
      sequence.sort(&order);
      list.sort([order](int left, int right) { return order(left, right) < 0; });
      break;
    }
    default:
      if (random.onceIn(20)) {
        sequence.removeAll();
        list.clear();
      }
    }
  }

  void expectEqual() const { expectNumbers(sequence, std::vector<int>(list.begin(), list.end())); }
  std::size_t size() const { return list.size(); }

private:
  unsigned long anyPosition() { return 1 + random.below(static_cast<unsigned>(list.size())); }
  Node* nodeAt(unsigned long position) const
  {
    Node* node = nullptr;
    sequence.setToPosition(position, node);
    EXPECT_EQ(position, sequence.position(node));
    EXPECT_TRUE(sequence.checkNode(node));
    return node;
  }

  quelmcl_test::RandomTexts& random;
  Numbers sequence;
  std::list<int> list;
};

TEST(RandomOperations, OnTheEngineLeaveWhatTheyLeaveInAList)
{
  const long before = NumberNode::alive();
  quelmcl_test::RandomTexts random;
  for (int run = 0; run < 5; ++run) {
    EngineBesideList both(random);
    for (int i = 0; i < 4000; ++i) {
      both.step();
      both.expectEqual();
      ASSERT_EQ(before + static_cast<long>(both.size()), NumberNode::alive()) << "step " << i;
      if (testing::Test::HasFailure())
        FAIL() << "step " << i << " of run " << run;
    }
  }
  EXPECT_EQ(before, NumberNode::alive());
}

// ---------------------------------------------------------------------------------------------------------------------
// The typed sequence

/// A number that is counted, and whose copies and comparisons throw when their turn has come.
struct Fragile {
  Fragile(int of) : number(of) { ++alive(); }
  Fragile(const Fragile& source) : number(source.number)
  {
    turn();
    ++alive();
  }
  Fragile(Fragile&& source) noexcept : number(source.number) { ++alive(); }
  Fragile& operator=(const Fragile&) = default;
  ~Fragile() { --alive(); }
  friend bool operator<(const Fragile& left, const Fragile& right)
  {
    turn();
    return left.number < right.number;
  }
  friend bool operator==(const Fragile& left, const Fragile& right) { return left.number == right.number; }

  static void turn()
  {
    if (turnsLeft() == 0)
      throw Thrown();
    if (turnsLeft() > 0)
      --turnsLeft();
  }
  static long& alive()
  {
    static long count = 0;
    return count;
  }
  static long& turnsLeft()
  {
    static long count = -1;
    return count;
  }

  int number;
};

using Sequence = ILinkedSequence<Fragile>;

class TypedBesideList {
public:
  explicit TypedBesideList(quelmcl_test::RandomTexts& source) : random(source) {}

  /// One operation, which may throw; then the sequence is as it was, and the list, too.
  void step()
  {
    const unsigned operation = list.size() > 60 ? 6 + random.below(9) : random.below(15);
    const int number = static_cast<int>(random.below(50));
    const Fragile element(number);
    const unsigned long position = 1 + random.below(static_cast<unsigned>(list.size()) + 1);
    const long offset = static_cast<long>(position) - 1;
    const bool hasElement = position <= list.size();
    Fragile::turnsLeft() = random.onceIn(4) ? static_cast<long>(random.below(20)) : -1;
    switch (operation) {
    case 0:
      sequence.addAsFirst(element);
      list.push_front(number);
      break;
    case 1:
      sequence.add(element);
      list.push_back(number);
      break;
    case 2:
    case 3:
      sequence.addAtPosition(position, element);
      list.insert(std::next(list.begin(), offset), number);
      break;
    case 4:
      if (hasElement) {
        Sequence::Cursor cursor(sequence);
        cursor.setToPosition(position);
        sequence.addAsNext(cursor, element);
        list.insert(std::next(list.begin(), offset + 1), number);
      }
      break;
    case 5:
      if (list.size() < 30) {
        sequence.addAllFrom(sequence);
        const std::list<int> copy(list);
        list.insert(list.end(), copy.begin(), copy.end());
      }
      break;
    case 6:
    case 7:
      if (hasElement) {
        sequence.removeAtPosition(position);
        list.erase(std::next(list.begin(), offset));
      }
      break;
    case 8:
      if (hasElement) {
        Sequence::Cursor cursor(sequence);
        cursor.setToPosition(position);
        sequence.removeAt(cursor);
        EXPECT_FALSE(cursor.isValid());
        list.erase(std::next(list.begin(), offset));
      }
      break;
    case 9: {
      const auto isOne = [number](const Fragile& candidate) { return candidate.number % 7 == number % 7; };
      const std::size_t before = list.size();
      list.remove_if([number](int candidate) { return candidate % 7 == number % 7; });
      EXPECT_EQ(before - list.size(), sequence.removeAllThat(isOne));
      break;
    }
    case 10:
      Fragile::turnsLeft() = -1;  // sorting by halves is tested by itself
      sequence.sort();
      list.sort();
      break;
    case 11: {
      const Sequence copy(sequence);
      Fragile::turnsLeft() = -1;
      EXPECT_EQ(sequence, copy);
      break;
    }
    case 12: {
      Sequence other{Fragile(1), Fragile(2)};
      other = sequence;
      EXPECT_EQ(sequence, other);
      break;
    }
    case 13: {
      Sequence other(std::move(sequence));
      EXPECT_TRUE(sequence.isEmpty() && sequence.isConsistent());
      sequence = std::move(other);
      break;
    }
    default:
      if (random.onceIn(20)) {
        sequence.removeAll();
        list.clear();
      }
    }
  }

  void expectEqual() const
  {
    ASSERT_TRUE(sequence.isConsistent());
    ASSERT_EQ(list.size(), sequence.numberOfElements());
    ASSERT_TRUE(std::equal(list.begin(), list.end(), sequence.begin(),
                           [](int number, const Fragile& element) { return number == element.number; }));
    ASSERT_TRUE(std::equal(list.rbegin(), list.rend(), sequence.rbegin(),
                           [](int number, const Fragile& element) { return number == element.number; }));
  }
  std::size_t size() const { return list.size(); }

private:
  quelmcl_test::RandomTexts& random;
  Sequence sequence;
  std::list<int> list;
};

TEST(RandomOperations, OnTheTypedSequenceLeaveWhatTheyLeaveInAListAlsoWhenTheyThrow)
{
  const long before = Fragile::alive();
  quelmcl_test::RandomTexts random;
  int thrown = 0;
  for (int run = 0; run < 5; ++run) {
    TypedBesideList both(random);
    for (int i = 0; i < 6000; ++i) {
      try {
        both.step();
      } catch (const Thrown&) {
        ++thrown;
      }
      Fragile::turnsLeft() = -1;
      both.expectEqual();
      ASSERT_EQ(before + static_cast<long>(both.size()), Fragile::alive()) << "step " << i;
      if (testing::Test::HasFailure())
        FAIL() << "step " << i << " of run " << run;
    }
  }
  EXPECT_GT(thrown, 100);
  EXPECT_EQ(before, Fragile::alive());
}

TEST(RandomOperations, SortingThatThrowsLosesNoElement)
{
  const long before = Fragile::alive();
  quelmcl_test::RandomTexts random;
  for (long nth = 0; nth < 150; ++nth) {
    Sequence sequence;
    for (int i = 0; i < 40; ++i)
      sequence.emplaceAsLast(static_cast<int>(random.below(1000)));
    std::list<int> numbers;
    for (const Fragile& element : sequence)
      numbers.push_back(element.number);
    numbers.sort();

    Fragile::turnsLeft() = nth;
    EXPECT_THROW(sequence.sort(), Thrown);
    Fragile::turnsLeft() = -1;
    EXPECT_TRUE(sequence.isConsistent());
    EXPECT_EQ(before + 40, Fragile::alive());
    std::list<int> found;
    for (const Fragile& element : sequence)
      found.push_back(element.number);
    found.sort();
    EXPECT_EQ(numbers, found);
  }
  EXPECT_EQ(before, Fragile::alive());
}

}  // namespace
