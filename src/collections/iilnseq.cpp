// iilnseq.cpp - ILinkedSequenceImpl, the engine of a doubly linked sequence: links, positions, order.
// Tests: tests/collections/engine_test.cpp, engine_sort_test.cpp, random_operations_test.cpp
#include <quelmcl/iilnseq.hpp>

#include "exceptions/startup.hpp"

QUELMCL_KEEP_START_UP

namespace {

using Node = ILinkedSequenceImplNode;

}  // namespace

ILinkedSequenceImpl::ILinkedSequenceImpl() noexcept : ivFirst(nullptr), ivLast(nullptr), ivNumberOfElements(0) {}

ILinkedSequenceImpl::ILinkedSequenceImpl(const ILinkedSequenceImpl& /*source*/) noexcept : ILinkedSequenceImpl() {}

// ---- adding ----

ILinkedSequenceImplNode* ILinkedSequenceImpl::addAsNext(Node* node, Node* newNode) noexcept
{
  Node* const successor = node == nullptr ? ivFirst : node->ivNext;
  newNode->ivPrevious = node;
  newNode->ivNext = successor;
  (node == nullptr ? ivFirst : node->ivNext) = newNode;
  (successor == nullptr ? ivLast : successor->ivPrevious) = newNode;
  ++ivNumberOfElements;
  return newNode;
}

ILinkedSequenceImplNode* ILinkedSequenceImpl::addAsFirst(Node* node) noexcept
{
  return addAsNext(nullptr, node);
}

ILinkedSequenceImplNode* ILinkedSequenceImpl::addAsLast(Node* node) noexcept
{
  return addAsNext(ivLast, node);
}

ILinkedSequenceImplNode* ILinkedSequenceImpl::addAsPrevious(Node* node, Node* newNode) noexcept
{
  return addAsNext(node == nullptr ? ivLast : node->ivPrevious, newNode);
}

ILinkedSequenceImplNode* ILinkedSequenceImpl::addAtPosition(unsigned long position, Node* node) noexcept
{
  if (position <= 1)
    return addAsFirst(node);
  Node* predecessor = nullptr;
  setToPosition(position - 1, predecessor);
  return addAsNext(predecessor, node);
}

void ILinkedSequenceImpl::addAllFrom(const ILinkedSequenceImpl& other)
{
  const Node* source = other.ivFirst;
  for (unsigned long left = other.ivNumberOfElements; left > 0; --left) {  // counted: `other` may be growing with us
    addAsLast(newNode(source));
    source = source->ivNext;
  }
}

// ---- removing ----

void ILinkedSequenceImpl::unlink(Node* node) noexcept
{
  (node->ivPrevious == nullptr ? ivFirst : node->ivPrevious->ivNext) = node->ivNext;
  (node->ivNext == nullptr ? ivLast : node->ivNext->ivPrevious) = node->ivPrevious;
}

void ILinkedSequenceImpl::removeAt(Node* node)
{
  unlink(node);
  deleteNode(node);
  --ivNumberOfElements;
}

void ILinkedSequenceImpl::removeFirst()
{
  removeAt(ivFirst);
}

void ILinkedSequenceImpl::removeLast()
{
  removeAt(ivLast);
}

void ILinkedSequenceImpl::removeAtPosition(unsigned long position)
{
  Node* node = nullptr;
  setToPosition(position, node);
  removeAt(node);
}

void ILinkedSequenceImpl::removeAll()
{
  Node* node = ivFirst;
  ivFirst = ivLast = nullptr;  // first, so that an element's destructor that looks at the sequence finds a sound one
  ivNumberOfElements = 0;
  while (node != nullptr) {
    Node* const next = node->ivNext;
    deleteNode(node);
    node = next;
  }
}

unsigned long ILinkedSequenceImpl::removeAll(void* predicate, void* argument)
{
  unsigned long removed = 0;
  Node* next = nullptr;
  for (Node* node = ivFirst; node != nullptr; node = next) {
    next = node->ivNext;
    if (!constantFunctionIteration(predicate, argument, node))
      continue;
    removeAt(node);
    ++removed;
  }
  return removed;
}

// ---- questions and places ----

unsigned long ILinkedSequenceImpl::numberOfElements() const noexcept
{
  return ivNumberOfElements;
}

bool ILinkedSequenceImpl::isEmpty() const noexcept
{
  return ivNumberOfElements == 0;
}

bool ILinkedSequenceImpl::isFull() const noexcept
{
  return false;
}

bool ILinkedSequenceImpl::setToFirst(Node*& node) const noexcept
{
  node = ivFirst;
  return node != nullptr;
}

bool ILinkedSequenceImpl::setToLast(Node*& node) const noexcept
{
  node = ivLast;
  return node != nullptr;
}

bool ILinkedSequenceImpl::setToNext(Node*& node) const noexcept
{
  node = node->ivNext;
  return node != nullptr;
}

bool ILinkedSequenceImpl::setToPrevious(Node*& node) const noexcept
{
  node = node->ivPrevious;
  return node != nullptr;
}

bool ILinkedSequenceImpl::setToPosition(unsigned long position, Node*& node) const noexcept
{
  node = ivFirst;
  for (unsigned long i = 1; i < position && node != nullptr; ++i)
    node = node->ivNext;
  return node != nullptr;
}

unsigned long ILinkedSequenceImpl::position(const Node* node) const noexcept
{
  unsigned long position = 1;
  for (const Node* current = ivFirst; current != node && current != nullptr; current = current->ivNext)
    ++position;
  return position;
}

bool ILinkedSequenceImpl::isFirst(const Node* node) const noexcept
{
  return node == ivFirst;
}

bool ILinkedSequenceImpl::isLast(const Node* node) const noexcept
{
  return node == ivLast;
}

bool ILinkedSequenceImpl::checkNode(const Node* node) const noexcept
{
  const Node* current = ivFirst;
  while (current != nullptr && current != node)
    current = current->ivNext;
  return current != nullptr;
}

bool ILinkedSequenceImpl::isConsistent() const noexcept
{
  if (ivFirst != nullptr && ivFirst->ivPrevious != nullptr)
    return false;
  unsigned long count = 0;
  for (const Node* node = ivFirst; node != nullptr; node = node->ivNext) {
    if (node->ivNext != nullptr && node->ivNext->ivPrevious != node)
      return false;  // which also ends the walk in a chain that runs back into itself
    ++count;
  }
  return count == ivNumberOfElements;
}

// ---- order ----

int ILinkedSequenceImpl::compare(const ILinkedSequenceImpl& other, void* comparison) const
{
  const Node* left = ivFirst;
  const Node* right = other.ivFirst;
  for (; left != nullptr && right != nullptr; left = left->ivNext, right = right->ivNext) {
    const int result = functionComparison(comparison, left, right);
    if (result != 0)
      return result;
  }
  return (left != nullptr) - (right != nullptr);
}

// Merges two sorted runs that are neighbours, left to right and right to `end`, by moving nodes of the right run in front
// of nodes of the left one. At each comparison the whole sequence is linked, so that one that throws loses nothing.
// The result is the first node of the merged run.
ILinkedSequenceImplNode* ILinkedSequenceImpl::merge(void* comparison, Node* left, Node* right, const Node* end)
{
  if (functionComparison(comparison, right->ivPrevious, right) <= 0)
    return left;  // in order already

  Node* first = nullptr;
  while (left != right && right != end) {
    Node* moved = nullptr;
    if (functionComparison(comparison, left, right) > 0) {
      moved = right;
      right = right->ivNext;
      unlink(moved);
      moved->ivPrevious = left->ivPrevious;
      moved->ivNext = left;
      (left->ivPrevious == nullptr ? ivFirst : left->ivPrevious->ivNext) = moved;
      left->ivPrevious = moved;
    } else {
      moved = left;
      left = left->ivNext;
    }
    if (first == nullptr)
      first = moved;
  }
  return first;
}

// A merge sort from the left to the right. The runs stand side by side in the sequence; each is twice as long as the
// next, or longer, so that a counter of the nodes taken in says by its bits which runs there are, and there are never
// more than it has bits. Two of a length are merged at once, while their nodes are still in the processor's cache.
void ILinkedSequenceImpl::sort(void* comparison)
{
  Node* runs[8 * sizeof(unsigned long)];
  unsigned runCount = 0;
  unsigned long taken = 0;
  for (Node* next = ivFirst; next != nullptr;) {
    runs[runCount++] = next;
    next = next->ivNext;
    ++taken;
    for (unsigned long bits = taken; (bits & 1) == 0; bits >>= 1) {
      --runCount;
      runs[runCount - 1] = merge(comparison, runs[runCount - 1], runs[runCount], next);
    }
  }
  for (; runCount > 1; --runCount)
    runs[runCount - 2] = merge(comparison, runs[runCount - 2], runs[runCount - 1], nullptr);
}
