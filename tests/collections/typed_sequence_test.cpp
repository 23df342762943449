// typed_sequence_test.cpp - ILinkedSequence<Element> and its cursor.
#include "support/failing_allocations.hpp"

#include <quelmcl/ibuffer.hpp>
#include <quelmcl/ilnseq.hpp>
#include <quelmcl/istring.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <new>
#include <numeric>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

namespace {

using Ints = ILinkedSequence<int>;
using Names = ILinkedSequence<std::string>;

/// Reports go nowhere while a test waits for exceptions.
QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
struct QuietHook : IException::TraceFn {
  void logData(IException&) override {}
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

class TypedSequence : public testing::Test {
protected:
  void SetUp() override
  {
    static QuietHook quiet;
    IException::setTraceFunction(quiet);
  }
};

using SequenceValue = TypedSequence;
using SequencePositions = TypedSequence;
using SequenceCursor = TypedSequence;
using SequenceIterators = TypedSequence;
using SequenceWalks = TypedSequence;
using SequenceOrder = TypedSequence;
using SequenceFailures = TypedSequence;

template <class Element>
void expectElements(const ILinkedSequence<Element>& sequence, const std::vector<Element>& expected)
{
  EXPECT_EQ(expected, std::vector<Element>(sequence.begin(), sequence.end()));
  EXPECT_EQ(std::vector<Element>(expected.rbegin(), expected.rend()),
            std::vector<Element>(sequence.rbegin(), sequence.rend()));
  EXPECT_EQ(expected.size(), sequence.numberOfElements());
  EXPECT_EQ(expected.size(), sequence.size());
  EXPECT_EQ(expected.empty(), sequence.isEmpty());
  EXPECT_EQ(expected.empty(), sequence.empty());
  EXPECT_TRUE(sequence.isConsistent());
}

/// The text of the IInvalidRequest of that id which the statement throws.
template <class Statement>
std::string refusal(unsigned long errorId, Statement statement)
{
  try {
    statement();
  } catch (const IInvalidRequest& failure) {
    EXPECT_EQ(errorId, failure.errorId());
    EXPECT_TRUE(failure.isRecoverable());
    EXPECT_EQ(1u, failure.locationCount());
    return failure.text();
  }
  ADD_FAILURE() << "nothing was thrown";
  return "";
}

std::string noPosition(const std::string& which)
{
  return "There is no such position in the sequence: " + which + ".";
}

std::string noElement(const std::string& why)
{
  return "The cursor stands on no element of this sequence: " + why + ".";
}

// ---------------------------------------------------------------------------------------------------------------------
// Values

TEST_F(SequenceValue, IsMadeFromNothingFromAListAndFromARange)
{
  expectElements(Ints(), {});
  expectElements(Ints{}, {});
  expectElements(Ints{3, 1, 2}, {3, 1, 2});
  const std::vector<int> numbers = {4, 5};
  expectElements(Ints(numbers.begin(), numbers.end()), {4, 5});
  const Names names = {"a", "b"};
  expectElements(names, {"a", "b"});
}

TEST_F(SequenceValue, CopiesAreIndependent)
{
  Names names{"a", "b"};
  Names copy(names);
  copy.firstElement() = "x";
  copy.add("c");
  expectElements(names, {"a", "b"});
  expectElements(copy, {"x", "b", "c"});
  names = copy;
  expectElements(names, {"x", "b", "c"});
  names = *&names;
  expectElements(names, {"x", "b", "c"});
  names = {"new"};
  expectElements(names, {"new"});
  names = Names();
  expectElements(names, {});
}

TEST_F(SequenceValue, MovesMoveNoElement)
{
  Names names{"a", "b"};
  const std::string* const first = &names.firstElement();
  Names taken(std::move(names));
  EXPECT_EQ(first, &taken.firstElement());
  expectElements(taken, {"a", "b"});
  expectElements(names, {});
  names.add("again");
  expectElements(names, {"again"});

  names = std::move(taken);
  EXPECT_EQ(first, &names.firstElement());
  expectElements(names, {"a", "b"});
  expectElements(taken, {});
  Names& itself = names;
  names = std::move(itself);
  expectElements(names, {"a", "b"});
  EXPECT_TRUE(std::is_nothrow_move_constructible<Names>::value);
  EXPECT_TRUE(std::is_nothrow_move_assignable<Names>::value);
}

TEST_F(SequenceValue, Swaps)
{
  Ints left{1, 2}, right{3};
  left.swap(right);
  expectElements(left, {3});
  expectElements(right, {1, 2});
  using std::swap;
  swap(left, right);
  expectElements(left, {1, 2});
  expectElements(right, {3});
}

TEST_F(SequenceValue, HoldsElementsThatCannotBeCopied)
{
  ILinkedSequence<std::unique_ptr<int>> owners;
  owners.add(std::unique_ptr<int>(new int(2)));
  owners.addAsFirst(std::unique_ptr<int>(new int(1)));
  owners.addAtPosition(3, std::unique_ptr<int>(new int(3)));
  owners.emplaceAsLast(new int(4));
  owners.sort([](const std::unique_ptr<int>& left, const std::unique_ptr<int>& right) { return *right < *left; });
  EXPECT_EQ(4, *owners.firstElement());
  ILinkedSequence<std::unique_ptr<int>> taken(std::move(owners));
  EXPECT_EQ(1, *taken.lastElement());
  EXPECT_EQ(1u, taken.removeAllThat([](const std::unique_ptr<int>& owner) { return *owner == 3; }));
  EXPECT_EQ(3u, taken.size());

  ILinkedSequence<std::vector<std::unique_ptr<int>>> lists;  // says that it could be copied, and cannot
  lists.emplaceAsLast();
  EXPECT_TRUE(lists.firstElement().empty());
}

TEST_F(SequenceValue, HoldsElementsWithoutAnyOrderOrDefault)
{
  struct Plain {
    explicit Plain(int of) : number(of) {}
    Plain(const Plain&) = default;
    Plain& operator=(const Plain&) = delete;
    void operator&() const = delete;
    const int number;
  };
  ILinkedSequence<Plain> sequence;
  sequence.add(Plain(1));
  sequence.emplaceAsLast(2);
  EXPECT_EQ(2, sequence.lastElement().number);
  EXPECT_EQ(1, sequence.begin()->number);
  const ILinkedSequence<Plain> copy(sequence);
  EXPECT_EQ(2u, copy.size());
}

TEST_F(SequenceValue, HoldsStringsOfTheLibraryAndSequences)
{
  ILinkedSequence<IString> names{"Hopper", "Lovelace", "Turing"};
  names.addAsFirst("Babbage");
  names.addAtPosition(2, "Boole");
  names.sort();
  EXPECT_EQ((ILinkedSequence<IString>{"Babbage", "Boole", "Hopper", "Lovelace", "Turing"}), names);
  ILinkedSequence<Ints> nested{{1, 2}, {}, {3}};
  nested.sort();
  EXPECT_EQ((ILinkedSequence<Ints>{{}, {1, 2}, {3}}), nested);
}

// ---------------------------------------------------------------------------------------------------------------------
// Positions

TEST_F(SequencePositions, AddingGivesTheElement)
{
  Names names;
  EXPECT_EQ("b", names.add("b"));
  names.addAsFirst("a") += "1";
  std::string last = "d";
  names.addAsLast(last) += "1";
  names.addAtPosition(3, "c") += "1";
  EXPECT_EQ("xx", names.emplaceAsLast(2u, 'x'));
  names.push_back("y");
  expectElements(names, {"a1", "b", "c1", "d1", "xx", "y"});
  EXPECT_EQ("d", last);
}

TEST_F(SequencePositions, AreFoundFromEitherEnd)
{
  Ints numbers;
  for (int i = 1; i <= 9; ++i) {
    numbers.add(10 * i);
    for (int position = 1; position <= i; ++position)
      EXPECT_EQ(10 * position, numbers.elementAt(static_cast<unsigned long>(position)));
    EXPECT_EQ(10, numbers.firstElement());
    EXPECT_EQ(10 * i, numbers.lastElement());
  }
  const Ints& unchanged = numbers;
  EXPECT_EQ(20, unchanged.elementAt(2));
  EXPECT_EQ(10, unchanged.firstElement());
  EXPECT_EQ(90, unchanged.lastElement());
  numbers.elementAt(2) = 21;
  EXPECT_EQ(21, unchanged.elementAt(2));
}

TEST_F(SequencePositions, ThatDoNotExistAreRefused)
{
  Ints numbers{1, 2, 3};
  const Ints unchanged(numbers);
  EXPECT_EQ(noPosition("0 of 3"), refusal(1201, [&] { numbers.elementAt(0) = 7; }));
  EXPECT_EQ(noPosition("4 of 3"), refusal(1201, [&] { numbers.elementAt(4) = 7; }));
  EXPECT_EQ(noPosition("4294967295 of 3"), refusal(1201, [&] { unchanged.elementAt(4294967295ul); }));
  EXPECT_EQ(noPosition("0 of 3"), refusal(1201, [&] { numbers.addAtPosition(0, 7); }));
  EXPECT_EQ(noPosition("5 of 3"), refusal(1201, [&] { numbers.addAtPosition(5, 7); }));
  EXPECT_EQ(noPosition("0 of 3"), refusal(1201, [&] { numbers.removeAtPosition(0); }));
  EXPECT_EQ(noPosition("4 of 3"), refusal(1201, [&] { numbers.removeAtPosition(4); }));
  EXPECT_EQ(unchanged, numbers);
  numbers.addAtPosition(4, 4);
  expectElements(numbers, {1, 2, 3, 4});
}

TEST_F(SequencePositions, AnEmptySequenceHasNone)
{
  Ints none;
  const Ints& unchanged = none;
  EXPECT_EQ(noPosition("1 of 0"), refusal(1201, [&] { none.firstElement(); }));
  EXPECT_EQ(noPosition("1 of 0"), refusal(1201, [&] { none.lastElement(); }));
  EXPECT_EQ(noPosition("1 of 0"), refusal(1201, [&] { unchanged.firstElement(); }));
  EXPECT_EQ(noPosition("1 of 0"), refusal(1201, [&] { unchanged.lastElement(); }));
  EXPECT_EQ(noPosition("1 of 0"), refusal(1201, [&] { none.removeFirst(); }));
  EXPECT_EQ(noPosition("1 of 0"), refusal(1201, [&] { none.removeLast(); }));
  none.addAtPosition(1, 5);
  expectElements(none, {5});
}

TEST_F(SequencePositions, Removing)
{
  Ints numbers{1, 2, 3, 4, 5};
  numbers.removeFirst();
  numbers.removeLast();
  numbers.removeAtPosition(2);
  expectElements(numbers, {2, 4});
  numbers.removeAll();
  expectElements(numbers, {});
  numbers = {1, 2, 3, 4, 5};
  EXPECT_EQ(2u, numbers.removeAllThat([](int number) { return number % 2 == 0; }));
  expectElements(numbers, {1, 3, 5});
  EXPECT_EQ(3u, numbers.removeAllThat([](int) { return true; }));
  expectElements(numbers, {});
}

bool isSmall(const int& number)
{
  return number < 3;
}

TEST_F(SequencePositions, RemovingByAFunction)
{
  Ints numbers{1, 5, 2};
  EXPECT_EQ(2u, numbers.removeAllThat(isSmall));
  expectElements(numbers, {5});
}

TEST_F(SequencePositions, WhatIsAddedMayBeAnElementOfTheSequence)
{
  Names names{"first", "second"};
  names.add(names.firstElement());
  names.addAsFirst(names.elementAt(2));
  names.addAtPosition(2, names.lastElement());
  expectElements(names, {"second", "first", "first", "second", "first"});
  names.addAllFrom(names);
  EXPECT_EQ(10u, names.size());
  EXPECT_EQ("second", names.elementAt(6));
}

// ---------------------------------------------------------------------------------------------------------------------
// Cursors

TEST_F(SequenceCursor, WalksForwards)
{
  const Ints numbers{1, 2, 3};
  Ints::Cursor cursor(numbers);
  EXPECT_FALSE(cursor.isValid());
  std::vector<int> seen;
  for (bool isThere = cursor.setToFirst(); isThere; isThere = cursor.setToNext())
    seen.push_back(cursor.element());
  EXPECT_EQ((std::vector<int>{1, 2, 3}), seen);
  EXPECT_FALSE(cursor.isValid());
  EXPECT_FALSE(cursor.setToNext());
  EXPECT_FALSE(cursor.setToPrevious());
}

TEST_F(SequenceCursor, WalksThroughItsInterface)
{
  const Ints numbers{1, 2, 3};
  Ints::Cursor typed = numbers.newCursor();
  ICursor& cursor = typed;
  int count = 0;
  for (cursor.setToFirst(); cursor.isValid(); cursor.setToNext())
    ++count;
  EXPECT_EQ(3, count);
  const Ints none;
  Ints::Cursor onNothing(none);
  EXPECT_FALSE(onNothing.setToFirst());
  EXPECT_FALSE(onNothing.isValid());
}

TEST_F(SequenceCursor, WalksBackwardsAndToPositions)
{
  const Ints numbers{1, 2, 3};
  Ints::Cursor cursor(numbers);
  EXPECT_TRUE(cursor.setToLast());
  EXPECT_EQ(3, cursor.element());
  EXPECT_EQ(3u, numbers.position(cursor));
  EXPECT_TRUE(cursor.setToPrevious());
  EXPECT_EQ(2, cursor.element());
  EXPECT_TRUE(cursor.setToPosition(1));
  EXPECT_EQ(1, cursor.element());
  EXPECT_EQ(1u, numbers.position(cursor));
  EXPECT_FALSE(cursor.setToPrevious());
  EXPECT_EQ(noPosition("4 of 3"), refusal(1201, [&] { cursor.setToPosition(4); }));
}

TEST_F(SequenceCursor, ComparesPlaces)
{
  const Ints numbers{1, 1}, others{1};
  Ints::Cursor cursor(numbers), same(numbers), elsewhere(others);
  EXPECT_TRUE(cursor == same) << "both on none";
  EXPECT_FALSE(cursor == elsewhere);
  cursor.setToFirst();
  EXPECT_TRUE(cursor != same);
  same.setToFirst();
  EXPECT_TRUE(cursor == same);
  EXPECT_FALSE(cursor != same);
  same.setToNext();
  EXPECT_FALSE(cursor == same) << "equal elements in two places";
  elsewhere.setToFirst();
  EXPECT_FALSE(cursor == elsewhere);

  const ICursor& left = cursor;
  const ICursor& right = same;
  EXPECT_FALSE(left == right);
  EXPECT_TRUE(left != right);
  EXPECT_TRUE(left == left);
  const ILinkedSequence<long> longs{1};
  const ILinkedSequence<long>::Cursor foreign(longs);
  EXPECT_FALSE(left == foreign);
  EXPECT_TRUE(left != foreign);
}

TEST_F(SequenceCursor, ThatIsACopyStandsAtTheSamePlaceAndMovesAlone)
{
  const Ints numbers{1, 2};
  Ints::Cursor cursor(numbers);
  cursor.setToFirst();
  Ints::Cursor copy(cursor);
  EXPECT_TRUE(copy == cursor);
  EXPECT_TRUE(copy.setToNext());
  EXPECT_EQ(2, copy.element());
  EXPECT_EQ(1, cursor.element());
  EXPECT_TRUE(copy != cursor);
}

TEST_F(SequenceCursor, CopiesAPlace)
{
  const Ints numbers{1, 2};
  Ints::Cursor cursor(numbers);
  cursor.setToLast();
  Ints::Cursor other(numbers);
  ICursor& target = other;
  target.copy(cursor);
  EXPECT_TRUE(other == cursor);
  EXPECT_EQ(2, other.element());
  const ILinkedSequence<long> longs{1};
  const ILinkedSequence<long>::Cursor foreign(longs);
  EXPECT_EQ(noElement("a cursor of another type was to be copied"), refusal(1202, [&] { target.copy(foreign); }));
  EXPECT_EQ(2, other.element());
}

TEST_F(SequenceCursor, AddsAroundItsElement)
{
  Ints numbers{1, 3};
  Ints::Cursor cursor(numbers);
  cursor.setToFirst();
  numbers.addAsNext(cursor, 2);
  numbers.addAsPrevious(cursor, 0);
  cursor.setToLast();
  const int four = 4;
  numbers.addAsNext(cursor, four);
  const int half = 33;
  numbers.addAsPrevious(cursor, half);
  expectElements(numbers, {0, 1, 2, 33, 3, 4});
  EXPECT_EQ(3, cursor.element());
  numbers.elementAt(cursor) = 5;
  EXPECT_EQ(5, cursor.element());
}

TEST_F(SequenceCursor, RemovesItsElementAndIsInvalidThen)
{
  Ints numbers{1, 2, 3};
  Ints::Cursor cursor(numbers), other(numbers);
  cursor.setToPosition(2);
  other.setToPosition(2);
  EXPECT_TRUE(numbers.checkCursor(other));
  numbers.removeAt(cursor);
  EXPECT_FALSE(cursor.isValid());
  EXPECT_FALSE(numbers.checkCursor(cursor));
  EXPECT_FALSE(numbers.checkCursor(other)) << "its element is gone";
  expectElements(numbers, {1, 3});
}

TEST_F(SequenceCursor, OnNothingIsRefused)
{
  Ints numbers{1};
  const Ints& unchanged = numbers;
  Ints::Cursor cursor(numbers);
  const std::string text = noElement("it is not valid");
  EXPECT_EQ(text, refusal(1202, [&] { cursor.element(); }));
  EXPECT_EQ(text, refusal(1202, [&] { numbers.elementAt(cursor); }));
  EXPECT_EQ(text, refusal(1202, [&] { unchanged.elementAt(cursor); }));
  EXPECT_EQ(text, refusal(1202, [&] { unchanged.position(cursor); }));
  EXPECT_EQ(text, refusal(1202, [&] { numbers.removeAt(cursor); }));
  EXPECT_EQ(text, refusal(1202, [&] { numbers.addAsNext(cursor, 1); }));
  EXPECT_EQ(text, refusal(1202, [&] { numbers.addAsPrevious(cursor, 1); }));
  cursor.setToFirst();
  cursor.invalidate();
  EXPECT_EQ(text, refusal(1202, [&] { cursor.element(); }));
  expectElements(numbers, {1});
}

TEST_F(SequenceCursor, OfAnotherSequenceIsRefused)
{
  Ints numbers{1}, others{1};
  Ints::Cursor cursor(others);
  cursor.setToFirst();
  const std::string text = noElement("it belongs to another one");
  EXPECT_EQ(text, refusal(1202, [&] { numbers.elementAt(cursor); }));
  EXPECT_EQ(text, refusal(1202, [&] { numbers.removeAt(cursor); }));
  EXPECT_EQ(text, refusal(1202, [&] { numbers.addAsNext(cursor, 2); }));
  EXPECT_TRUE(cursor.isValid());
  expectElements(others, {1});
}

TEST_F(SequenceCursor, StaysGoodWhateverElseChanges)
{
  Ints numbers{5, 3, 4};
  Ints::Cursor cursor(numbers);
  cursor.setToFirst();
  const int* const element = &numbers.elementAt(cursor);
  numbers.sort();
  numbers.addAsFirst(1);
  numbers.removeAtPosition(2);
  EXPECT_EQ(5, cursor.element());
  EXPECT_EQ(element, &numbers.elementAt(cursor));
  EXPECT_EQ(3u, numbers.position(cursor));
}

// ---------------------------------------------------------------------------------------------------------------------
// Iterators

TEST_F(SequenceIterators, AreBidirectional)
{
  using Category = std::iterator_traits<Ints::iterator>::iterator_category;
  EXPECT_TRUE((std::is_same<std::bidirectional_iterator_tag, Category>::value));
#ifdef __cpp_lib_concepts
  static_assert(std::bidirectional_iterator<Ints::iterator> && std::bidirectional_iterator<Ints::const_iterator>);
  static_assert(std::regular<Ints>);
#endif
  EXPECT_TRUE((std::is_convertible<Ints::iterator, Ints::const_iterator>::value));
  EXPECT_FALSE((std::is_convertible<Ints::const_iterator, Ints::iterator>::value));

  Ints numbers{1, 2, 3};
  Ints::iterator iterator = numbers.begin();
  EXPECT_EQ(1, *iterator++);
  EXPECT_EQ(3, *++iterator);
  EXPECT_EQ(3, *iterator--);
  EXPECT_EQ(1, *--iterator);
  *iterator = 7;
  Ints::const_iterator reading = iterator;
  EXPECT_EQ(7, *reading);
  EXPECT_TRUE(reading == iterator);
  EXPECT_FALSE(reading != iterator);
  Ints::iterator end = numbers.end();
  EXPECT_EQ(3, *--end);
  EXPECT_TRUE(numbers.cbegin() != numbers.cend());
  EXPECT_EQ(3, *numbers.crbegin());
  EXPECT_EQ(3, std::distance(numbers.crbegin(), numbers.crend()));
}

TEST_F(SequenceIterators, WorkInRangeForAndAlgorithms)
{
  Ints numbers{3, 1, 2};
  int sum = 0;
  for (int& number : numbers)
    sum += number++;
  EXPECT_EQ(6, sum);
  expectElements(numbers, {4, 2, 3});
  EXPECT_EQ(9, std::accumulate(numbers.begin(), numbers.end(), 0));
  EXPECT_EQ(3, *std::find(numbers.cbegin(), numbers.cend(), 3));
  std::reverse(numbers.begin(), numbers.end());
  expectElements(numbers, {3, 2, 4});
  Ints copies;
  std::copy(numbers.rbegin(), numbers.rend(), std::back_inserter(copies));
  expectElements(copies, {4, 2, 3});
  Names names{"a", "bb"};
  EXPECT_EQ(2u, std::next(names.begin())->size());
}

TEST_F(SequenceIterators, Erase)
{
  Ints numbers{1, 2, 3};
  Ints::iterator next = numbers.erase(std::next(numbers.begin()));
  EXPECT_EQ(3, *next);
  next = numbers.erase(next);
  EXPECT_TRUE(next == numbers.end());
  EXPECT_EQ(1, *--next);
  expectElements(numbers, {1});
}

TEST_F(SequenceIterators, GoAlongWithTheirElements)
{
  Ints numbers{1, 2, 3};
  const Ints::iterator second = std::next(numbers.begin());
  Ints taken(std::move(numbers));
  EXPECT_EQ(2, *second);
  taken.erase(second);
  expectElements(taken, {1, 3});
}

// ---------------------------------------------------------------------------------------------------------------------
// Walks

bool addTo(const int& number, void* sum)
{
  *static_cast<int*>(sum) += number;
  return number < 3;
}

bool doubleIt(int& number, void*)
{
  number *= 2;
  return true;
}

struct Sum : Ints::ConstantApplicator {
  bool applyTo(const int& number) override
  {
    sum += number;
    return sum < limit;
  }
  int sum = 0, limit = 1000;
};

struct Negate : Ints::Applicator {
  bool applyTo(int& number) override
  {
    number = -number;
    return number != -3;
  }
};

TEST_F(SequenceWalks, CallAFunctionForEveryElement)
{
  Ints numbers{1, 2, 3, 4};
  const Ints& unchanged = numbers;
  int sum = 0;
  EXPECT_TRUE(unchanged.allElementsDo([&](int number) { sum += number; }));
  EXPECT_EQ(10, sum);
  EXPECT_TRUE(numbers.allElementsDo([](int& number) { number *= 10; }));
  expectElements(numbers, {10, 20, 30, 40});
  EXPECT_TRUE(Ints().allElementsDo([](int&) { return false; }));
}

TEST_F(SequenceWalks, EndWhereTheFunctionSaysSo)
{
  Ints numbers{1, 2, 3, 4};
  const Ints& unchanged = numbers;
  std::vector<int> seen;
  EXPECT_FALSE(unchanged.allElementsDo([&](int number) {
    seen.push_back(number);
    return number < 2;
  }));
  EXPECT_EQ((std::vector<int>{1, 2}), seen);
  EXPECT_FALSE(numbers.allElementsDo([](int& number) { return number++ < 3; }));
  expectElements(numbers, {2, 3, 4, 4});
}

TEST_F(SequenceWalks, HandAFunctionItsArgument)
{
  Ints numbers{1, 2, 3, 4};
  const Ints& unchanged = numbers;
  int sum = 0;
  EXPECT_FALSE(unchanged.allElementsDo(addTo, &sum));
  EXPECT_EQ(6, sum);
  EXPECT_TRUE(numbers.allElementsDo(doubleIt, nullptr));
  expectElements(numbers, {2, 4, 6, 8});
}

TEST_F(SequenceWalks, ApplyAnObject)
{
  Ints numbers{1, 2, 3, 4};
  const Ints& unchanged = numbers;
  Sum sum;
  EXPECT_TRUE(unchanged.allElementsDo(sum));
  EXPECT_EQ(10, sum.sum);
  Sum limited;
  limited.limit = 3;
  EXPECT_FALSE(unchanged.allElementsDo(limited));
  EXPECT_EQ(3, limited.sum);
  Negate negate;
  EXPECT_FALSE(numbers.allElementsDo(negate));
  expectElements(numbers, {-1, -2, -3, 4});
}

TEST_F(SequenceWalks, MayRemoveTheElementAtHand)
{
  Ints numbers{1, 2, 3, 4};
  EXPECT_FALSE(numbers.allElementsDo([&](int& number) {
    const bool isSecond = number == 2;
    if (!isSecond)
      numbers.removeFirst();
    return !isSecond;
  }));
  expectElements(numbers, {2, 3, 4});
}

// ---------------------------------------------------------------------------------------------------------------------
// Order

int byLastDigit(const int& left, const int& right)
{
  return left % 10 - right % 10;
}

TEST_F(SequenceOrder, SortsByAnything)
{
  Ints numbers{3, 1, 2};
  numbers.sort();
  expectElements(numbers, {1, 2, 3});
  numbers.sort([](int left, int right) { return left > right; });
  expectElements(numbers, {3, 2, 1});
  numbers.sort(std::less<int>());
  expectElements(numbers, {1, 2, 3});
  numbers = {31, 12, 22, 11, 30};
  numbers.sort(byLastDigit);
  expectElements(numbers, {30, 31, 11, 12, 22});
  int calls = 0;
  numbers.sort([&calls](int left, int right) {
    ++calls;
    return static_cast<long long>(right) - left;
  });
  expectElements(numbers, {31, 30, 22, 12, 11});
  EXPECT_GT(calls, 3);
#ifdef __cpp_impl_three_way_comparison
  numbers.sort([](int left, int right) { return left <=> right; });
  expectElements(numbers, {11, 12, 22, 30, 31});
#endif
}

TEST_F(SequenceOrder, SortsByAFunctionThatTellsLessWithOneCallAComparison)
{
  Ints numbers{1, 2, 3, 4, 5, 6, 7, 8};
  int calls = 0;
  numbers.sort([&calls](int left, int right) {
    ++calls;
    return left < right;
  });
  EXPECT_EQ(7, calls) << "in order already";
}

TEST_F(SequenceOrder, KeepsEqualElementsInTheirOrder)
{
  Names names{"bb", "a", "cc", "d", "aa"};
  names.sort([](const std::string& left, const std::string& right) { return left.size() < right.size(); });
  expectElements(names, {"a", "d", "bb", "cc", "aa"});
}

TEST_F(SequenceOrder, Compares)
{
  EXPECT_EQ(-1, Ints({1, 2}).compare({1, 2, 3}));
  EXPECT_EQ(1, Ints({1, 2, 3}).compare({1, 2}));
  EXPECT_EQ(0, Ints().compare({}));
  EXPECT_EQ(-1, Ints({1, 2}).compare({1, 3}));
  EXPECT_EQ(1, Ints({2}).compare({1, 3}));
  EXPECT_EQ(1, Ints({1, 2}).compare({1, 3}, [](int left, int right) { return left > right; }));
  EXPECT_EQ(0, Ints({11, 2}).compare({1, 22}, byLastDigit));
  EXPECT_EQ(-1, Ints({11, 2}).compare({1, 23}, byLastDigit));
}

TEST_F(SequenceOrder, HasTheSixOperators)
{
  const Ints small{1, 2}, large{1, 3}, same{1, 2}, longer{1, 2, 0};
  EXPECT_TRUE(small == same);
  EXPECT_FALSE(small == large);
  EXPECT_FALSE(small == longer);
  EXPECT_TRUE(small != large);
  EXPECT_FALSE(small != same);
  EXPECT_TRUE(small < large);
  EXPECT_TRUE(small < longer);
  EXPECT_FALSE(small < same);
  EXPECT_TRUE(small <= same);
  EXPECT_FALSE(large <= small);
  EXPECT_TRUE(large > small);
  EXPECT_FALSE(small > same);
  EXPECT_TRUE(large >= longer);
  EXPECT_TRUE(small >= same);
  EXPECT_FALSE(small >= large);
}

TEST_F(SequenceOrder, ManyElements)
{
  ILinkedSequence<unsigned> numbers;
  unsigned number = 1;
  for (int i = 0; i < 200000; ++i) {
    number = number * 1664525u + 1013904223u;
    numbers.add(number >> 8);
  }
  ILinkedSequence<unsigned> copy(numbers);
  numbers.sort();
  EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.end()));
  EXPECT_EQ(std::accumulate(copy.begin(), copy.end(), 0ull), std::accumulate(numbers.begin(), numbers.end(), 0ull));
  EXPECT_EQ(200000u, numbers.size());
}

// ---------------------------------------------------------------------------------------------------------------------
// Failures

/// Makes each allocation of the operation fail in turn. The sequence has to be as it was then, and nothing may leak.
template <class Operation>
void expectUnchangedWhenStorageFails(Operation operation)
{
  IBuffer::defaultBuffer();
  const std::string someText(40, 'x');
  int failures = 0;
  for (unsigned long nth = 1;; ++nth) {
    AllocationWatch watch;
    bool failed = false;
    {
      Names names{someText, someText + "2", someText + "3"};
      const Names before(names);
      {
        FailingAllocations scope(nth);
        try {
          operation(names);
        } catch (const IOutOfMemory&) {
          failed = true;
        }
      }
      const bool isUnchanged = names == before && names.isConsistent();
      EXPECT_TRUE(isUnchanged || !failed) << nth;
    }
    EXPECT_EQ(0, watch.liveBlocks()) << nth;
    if (!failed)
      break;
    ++failures;
  }
  EXPECT_GT(failures, 0);
}

TEST_F(SequenceFailures, ChangeNothing)
{
  const std::string text(50, 'y');
  const Names others{text, text};
  expectUnchangedWhenStorageFails([&](Names& names) { names.add(text); });
  expectUnchangedWhenStorageFails([&](Names& names) { names.addAsFirst(text); });
  expectUnchangedWhenStorageFails([&](Names& names) { names.addAtPosition(2, text); });
  expectUnchangedWhenStorageFails([&](Names& names) { names.emplaceAsLast(50u, 'z'); });
  expectUnchangedWhenStorageFails([&](Names& names) { names.addAllFrom(others); });
  expectUnchangedWhenStorageFails([&](Names& names) { names.addAllFrom(names); });
  expectUnchangedWhenStorageFails([&](Names& names) { names = others; });
  expectUnchangedWhenStorageFails([&](Names& names) { names = {text, text, text}; });
  expectUnchangedWhenStorageFails([&](Names& names) { const Names copy(names); });
}

TEST_F(SequenceFailures, OfSortingAndMovingThereAreNone)
{
  Names names{"c", "a", "b"};
  Names taken;
  {
    FailingAllocations scope(1);
    names.sort();
    taken = std::move(names);
    taken.removeFirst();
    names.swap(taken);
    EXPECT_EQ(0u, scope.attempts());
  }
  expectElements(names, {"b", "c"});
}

struct Throwing {};

TEST_F(SequenceFailures, OfThePredicateLeaveTheRest)
{
  Ints numbers{1, 2, 3, 4};
  const auto predicate = [](int number) {
    if (number == 3)
      throw Throwing();
    return true;
  };
  EXPECT_THROW(numbers.removeAllThat(predicate), Throwing);
  expectElements(numbers, {3, 4});
}

}  // namespace
