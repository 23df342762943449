/// @file numbers.hpp
/// A sequence of numbers built directly on the engine, as somebody else's typed layer would be: it counts the nodes that
/// live and can be told to throw.
#ifndef QUELMCL_TESTS_COLLECTIONS_NUMBERS_HPP
#define QUELMCL_TESTS_COLLECTIONS_NUMBERS_HPP

#include <quelmcl/iilnseq.hpp>

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

namespace sequencetests {

using Node = ILinkedSequenceImplNode;

struct NumberNode : Node {
  explicit NumberNode(int of, int tagged = 0) : number(of), tag(tagged) { ++alive(); }
  NumberNode(const NumberNode&) = delete;
  NumberNode& operator=(const NumberNode&) = delete;
  ~NumberNode() { --alive(); }

  static long& alive()
  {
    static long count = 0;
    return count;
  }

  int number;
  int tag;  // tells equal numbers apart
};

struct Thrown {};

inline NumberNode* made(int number, int tag = 0)
{
  return new NumberNode(number, tag);
}

inline int numberOf(const Node* node)
{
  return static_cast<const NumberNode*>(node)->number;
}

using Predicate = bool (*)(int number, void* argument);
using Order = int (*)(int left, int right);

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
class Numbers : public ILinkedSequenceImpl {
public:
  Numbers() = default;
  Numbers(std::initializer_list<int> numbers)
  {
    int tag = 0;
    for (const int number : numbers)
      addAsLast(made(number, tag++));
  }
  Numbers(const Numbers& source) : ILinkedSequenceImpl(source) { addAllFrom(source); }
  explicit Numbers(const ILinkedSequenceImpl& source) : ILinkedSequenceImpl(source) {}  // only what the engine copies
  Numbers& operator=(const Numbers&) = delete;
  ~Numbers() { removeAll(); }

  Node* newNode(const void* node) const override
  {
    if (copiesLeft == 0)
      throw Thrown();
    --copiesLeft;
    const NumberNode* const source = static_cast<const NumberNode*>(static_cast<const Node*>(node));
    return made(source->number, source->tag);
  }
  void deleteNode(void* node) const override { delete static_cast<NumberNode*>(static_cast<Node*>(node)); }
  bool constantFunctionIteration(void* function, void* argument, const void* node) const override
  {
    return (*static_cast<Predicate*>(function))(numberOf(static_cast<const Node*>(node)), argument);
  }
  bool functionIteration(void*, void*, void*) const override { return false; }
  bool constantIteratorIteration(void*, const void*) const override { return false; }
  bool iteratorIteration(void*, void*) const override { return false; }
  int functionComparison(void* comparison, const void* node1, const void* node2) const override
  {
    ++comparisons;
    if (comparisonsLeft == 0)
      throw Thrown();
    --comparisonsLeft;
    return (*static_cast<Order*>(comparison))(numberOf(static_cast<const Node*>(node1)),
                                              numberOf(static_cast<const Node*>(node2)));
  }

  Node* first() const { return ivFirst; }
  Node* last() const { return ivLast; }

  std::vector<int> forward() const
  {
    std::vector<int> numbers;
    for (const Node* node = ivFirst; node != nullptr; node = node->ivNext)
      numbers.push_back(numberOf(node));
    return numbers;
  }
  std::vector<int> backward() const
  {
    std::vector<int> numbers;
    for (const Node* node = ivLast; node != nullptr; node = node->ivPrevious)
      numbers.push_back(numberOf(node));
    return numbers;
  }
  std::vector<int> tags() const
  {
    std::vector<int> result;
    for (const Node* node = ivFirst; node != nullptr; node = node->ivNext)
      result.push_back(static_cast<const NumberNode*>(node)->tag);
    return result;
  }

  mutable long copiesLeft = -1;  // negative: any number
  mutable long comparisonsLeft = -1;
  mutable unsigned long comparisons = 0;
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

/// Every link in both directions, the ends and the count.
inline void expectNumbers(const Numbers& sequence, const std::vector<int>& expected)
{
  EXPECT_EQ(expected, sequence.forward());
  EXPECT_EQ(std::vector<int>(expected.rbegin(), expected.rend()), sequence.backward());
  EXPECT_EQ(expected.size(), sequence.numberOfElements());
  EXPECT_EQ(expected.empty(), sequence.isEmpty());
  EXPECT_TRUE(sequence.isConsistent());
}

inline int byNumber(int left, int right)
{
  return left < right ? -1 : left > right;
}

}  // namespace sequencetests

#endif
