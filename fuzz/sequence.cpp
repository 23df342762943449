// sequence.cpp - fuzz target: programs of operations on the linked sequence, the engine and the typed one, beside a std::vector.
#include "collections/numbers.hpp"
#include "input.hpp"

#include <quelmcl/ilnseq.hpp>

#include <algorithm>
#include <vector>

using fuzz::agree;
using sequencetests::byNumber;
using sequencetests::made;
using sequencetests::Node;
using sequencetests::Numbers;

namespace {

const std::vector<fuzz::Palette> palettes = {{}};

using Typed = ILinkedSequence<int>;

/// What a step needs: the sequence, the vector that has to be like it, and the step's numbers.
template <class Sequence>
struct Step {
  Sequence& sequence;
  std::vector<int>& expected;
  int number;
  unsigned long position;  // one that there is, or 1
  bool isPosition;         // whether there is one

  std::vector<int>::iterator place() const { return expected.begin() + static_cast<long>(position - 1); }
};

template <class Sequence>
struct StepKind {
  const char* name;
  void (*run)(const Step<Sequence>& step);
};

bool hasRemainder(int candidate, int number)
{
  return candidate % 4 == number % 4;
}

unsigned long removed(std::vector<int>& numbers, int number)
{
  const std::size_t before = numbers.size();
  numbers.erase(std::remove_if(numbers.begin(), numbers.end(), [&](int one) { return hasRemainder(one, number); }),
                numbers.end());
  return static_cast<unsigned long>(before - numbers.size());
}

void doubled(std::vector<int>& numbers)
{
  const std::vector<int> copy = numbers;
  numbers.insert(numbers.end(), copy.begin(), copy.end());
}

Node* nodeAt(const Step<Numbers>& on)
{
  Node* node = nullptr;
  on.sequence.setToPosition(on.position, node);
  agree(on.sequence.position(node), on.position);
  agree(on.sequence.checkNode(node), "checkNode knows its nodes");
  agree(on.sequence.isFirst(node) == (on.position == 1), "isFirst of the first node only");
  return node;
}

const StepKind<Numbers> engineSteps[] = {
  {"addAsFirst",
   [](const Step<Numbers>& on) {
     on.sequence.addAsFirst(made(on.number));
     on.expected.insert(on.expected.begin(), on.number);
   }},
  {"addAsLast",
   [](const Step<Numbers>& on) {
     on.sequence.addAsLast(made(on.number));
     on.expected.push_back(on.number);
   }},
  {"addAtPosition",
   [](const Step<Numbers>& on) {
     on.sequence.addAtPosition(on.position, made(on.number));
     on.expected.insert(on.place(), on.number);
   }},
  {"addAsNext",
   [](const Step<Numbers>& on) {
     on.sequence.addAsNext(on.isPosition ? nodeAt(on) : nullptr, made(on.number));
     on.expected.insert(on.isPosition ? on.place() + 1 : on.expected.begin(), on.number);
   }},
  {"addAsPrevious",
   [](const Step<Numbers>& on) {
     on.sequence.addAsPrevious(on.isPosition ? nodeAt(on) : nullptr, made(on.number));
     on.expected.insert(on.isPosition ? on.place() : on.expected.end(), on.number);
   }},
  {"addAllFrom itself",
   [](const Step<Numbers>& on) {
     if (on.expected.size() > 12)
       return;
     on.sequence.addAllFrom(on.sequence);
     doubled(on.expected);
   }},
  {"removeFirst",
   [](const Step<Numbers>& on) {
     if (!on.isPosition)
       return;
     on.sequence.removeFirst();
     on.expected.erase(on.expected.begin());
   }},
  {"removeLast",
   [](const Step<Numbers>& on) {
     if (!on.isPosition)
       return;
     on.sequence.removeLast();
     on.expected.pop_back();
   }},
  {"removeAtPosition",
   [](const Step<Numbers>& on) {
     if (!on.isPosition)
       return;
     on.sequence.removeAtPosition(on.position);
     on.expected.erase(on.place());
   }},
  {"removeAt",
   [](const Step<Numbers>& on) {
     if (!on.isPosition)
       return;
     on.sequence.removeAt(nodeAt(on));
     on.expected.erase(on.place());
   }},
  {"removeAll that pass",
   [](const Step<Numbers>& on) {
     sequencetests::Predicate predicate = [](int candidate, void* number) {
       return hasRemainder(candidate, *static_cast<int*>(number));
     };
     int number = on.number;
     agree(on.sequence.removeAll(&predicate, &number), removed(on.expected, number));
   }},
  {"sort",
   [](const Step<Numbers>& on) {
     sequencetests::Order order = byNumber;
     on.sequence.sort(&order);
     std::stable_sort(on.expected.begin(), on.expected.end());
   }},
  {"sort by less than all of it",
   [](const Step<Numbers>& on) {
     sequencetests::Order order = [](int left, int right) { return right / 8 - left / 8; };
     on.sequence.sort(&order);
     std::stable_sort(on.expected.begin(), on.expected.end(), [](int left, int right) { return left / 8 > right / 8; });
   }},
  {"compare",
   [](const Step<Numbers>& on) {
     sequencetests::Order order = byNumber;
     const Numbers other = {on.number, 1};
     const std::vector<int> others = {on.number, 1};
     const int sign = on.sequence.compare(other, &order);
     agree((sign < 0) == (on.expected < others) && (sign > 0) == (others < on.expected),
           "compare has the sign of the first difference");
   }},
};

const StepKind<Typed> typedSteps[] = {
  {"addAsFirst",
   [](const Step<Typed>& on) {
     on.sequence.addAsFirst(on.number);
     on.expected.insert(on.expected.begin(), on.number);
   }},
  {"add",
   [](const Step<Typed>& on) {
     on.sequence.add(on.number);
     on.expected.push_back(on.number);
   }},
  {"addAtPosition",
   [](const Step<Typed>& on) {
     on.sequence.addAtPosition(on.position, on.number);
     on.expected.insert(on.place(), on.number);
   }},
  {"addAsNext",
   [](const Step<Typed>& on) {
     if (!on.isPosition)
       return;
     Typed::Cursor cursor(on.sequence);
     cursor.setToPosition(on.position);
     on.sequence.addAsNext(cursor, on.number);
     on.expected.insert(on.place() + 1, on.number);
   }},
  {"addAllFrom itself",
   [](const Step<Typed>& on) {
     if (on.expected.size() > 12)
       return;
     on.sequence.addAllFrom(on.sequence);
     doubled(on.expected);
   }},
  {"removeAtPosition",
   [](const Step<Typed>& on) {
     if (!on.isPosition)
       return;
     on.sequence.removeAtPosition(on.position);
     on.expected.erase(on.place());
   }},
  {"removeAt",
   [](const Step<Typed>& on) {
     if (!on.isPosition)
       return;
     Typed::Cursor cursor(on.sequence);
     cursor.setToPosition(on.position);
     on.sequence.removeAt(cursor);
     agree(!cursor.isValid(), "a cursor on what was removed is not valid");
     on.expected.erase(on.place());
   }},
  {"removeAllThat",
   [](const Step<Typed>& on) {
     agree(on.sequence.removeAllThat([&](int candidate) { return hasRemainder(candidate, on.number); }),
           removed(on.expected, on.number));
   }},
  {"sort",
   [](const Step<Typed>& on) {
     on.sequence.sort();
     std::stable_sort(on.expected.begin(), on.expected.end());
   }},
  {"copies and moves",
   [](const Step<Typed>& on) {
     Typed copy(on.sequence);
     agree(copy == on.sequence, "a copy is equal");
     Typed other{1, 2};
     other = std::move(copy);
     agree(copy.isEmpty() && copy.isConsistent(), "moving leaves an empty sequence");
     on.sequence = other;
   }},
  {"elementAt",
   [](const Step<Typed>& on) {
     if (on.isPosition)
       agree(on.sequence.elementAt(on.position), *on.place());
   }},
};

std::vector<int> forwardOf(const Numbers& sequence)
{
  return sequence.forward();
}
std::vector<int> backwardOf(const Numbers& sequence)
{
  return sequence.backward();
}
std::vector<int> forwardOf(const Typed& sequence)
{
  return std::vector<int>(sequence.begin(), sequence.end());
}
std::vector<int> backwardOf(const Typed& sequence)
{
  return std::vector<int>(sequence.rbegin(), sequence.rend());
}

template <class Sequence, std::size_t Count>
void runProgram(const StepKind<Sequence> (&kinds)[Count], fuzz::Input& input)
{
  constexpr int mostSteps = 12;
  Sequence sequence;
  std::vector<int> expected;
  for (int i = 0; i < mostSteps && !input.isUsedUp(); ++i) {
    const StepKind<Sequence>& kind = kinds[input.below(Count)];
    const int number = static_cast<int>(input.below(64));
    const unsigned count = static_cast<unsigned>(expected.size());
    const unsigned long position = 1 + (count == 0 ? 0 : input.below(count));
    fuzz::inOperation(kind.name);
    kind.run({sequence, expected, number, position, count != 0});

    agree(static_cast<unsigned long>(sequence.numberOfElements()), static_cast<unsigned long>(expected.size()));
    agree(sequence.isConsistent(), "the links are consistent");
  }
  agree(forwardOf(sequence) == expected, "the numbers from the front");
  std::reverse(expected.begin(), expected.end());
  agree(backwardOf(sequence) == expected, "the numbers from the back");
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  const long aliveBefore = sequencetests::NumberNode::alive();
  if (input.flag())
    runProgram(engineSteps, input);
  else
    runProgram(typedSteps, input);
  agree(sequencetests::NumberNode::alive(), aliveBefore);
  return 0;
}
