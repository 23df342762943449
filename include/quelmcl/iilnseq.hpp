/// @file iilnseq.hpp
/// ILinkedSequenceImpl, the engine of a doubly linked sequence, and its node. Programs use ILinkedSequence<Element>
/// (ilnseq.hpp), which stands on it, owns its elements and checks its arguments; this header is for those who write
/// such a class themselves.
///
/// The engine keeps the links, the count and the order. It knows no element: a derived class makes and destroys nodes,
/// calls functions and compares elements. The functions that the engine passes on to it, as `void*`, mean nothing to
/// the engine.
///
/// **Who frees the nodes.** The engine's destructor frees none, since the derived class that could is gone by then: the
/// destructor of the derived class has to call removeAll(). Every node leaves through deleteNode, and through it alone.
/// The copy constructor makes an empty sequence for the same reason; the derived class appends with addAllFrom().
///
/// **Nothing is checked.** Positions and nodes have to be those of this sequence. The engine itself throws nothing;
/// what newNode, a predicate or a comparison throws passes through, and leaves the sequence consistent.
///
/// Positions count from 1. One thread at a time.
#ifndef QUELMCL_IILNSEQ_HPP
#define QUELMCL_IILNSEQ_HPP

#include <quelmcl/idefs.hpp>

/// The links of one element. A sequence derives its node from it and adds the element.
class QUELMCL_API ILinkedSequenceImplNode {
public:
  ILinkedSequenceImplNode() noexcept : ivNext(nullptr), ivPrevious(nullptr) {}

  // To be read by the sequence built on the engine; only the engine changes them.
  ILinkedSequenceImplNode* ivNext;      ///< null at the end
  ILinkedSequenceImplNode* ivPrevious;  ///< null at the start
};

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN

/// The engine: links, count and order, of nodes whose elements it does not know.
class QUELMCL_API ILinkedSequenceImpl {
public:
  /// An empty sequence.
  ILinkedSequenceImpl() noexcept;
  /// An empty sequence, too: nodes cannot be copied before the derived class is there.
  ILinkedSequenceImpl(const ILinkedSequenceImpl& source) noexcept;
  ILinkedSequenceImpl& operator=(const ILinkedSequenceImpl&) = delete;

  /// @name What a derived class supplies
  /// @{

  /// A new node with a copy of the element of the given node (an ILinkedSequenceImplNode*).
  virtual ILinkedSequenceImplNode* newNode(const void* node) const = 0;
  /// Destroys a node (an ILinkedSequenceImplNode*) that is no longer linked, with its element.
  virtual void deleteNode(void* node) const = 0;
  /// Calls a function for the element of a node, which it may not change; the result is the function's.
  virtual bool constantFunctionIteration(void* function, void* argument, const void* node) const = 0;
  /// The same, and the function may change the element.
  virtual bool functionIteration(void* function, void* argument, void* node) const = 0;
  /// Applies an iterator object to the element of a node, which it may not change; the result is the object's.
  virtual bool constantIteratorIteration(void* iterator, const void* node) const = 0;
  /// The same, and the object may change the element.
  virtual bool iteratorIteration(void* iterator, void* node) const = 0;
  /// Compares the elements of two nodes: negative, 0 or positive.
  virtual int functionComparison(void* comparison, const void* node1, const void* node2) const = 0;
  /// @}

  /// @name Adding
  /// They link a node that is linked nowhere, and return it.
  /// @{
  ILinkedSequenceImplNode* addAsFirst(ILinkedSequenceImplNode* node) noexcept;
  ILinkedSequenceImplNode* addAsLast(ILinkedSequenceImplNode* node) noexcept;
  /// Links `newNode` behind `node`; in front of all when `node` is null.
  ILinkedSequenceImplNode* addAsNext(ILinkedSequenceImplNode* node, ILinkedSequenceImplNode* newNode) noexcept;
  /// Links `newNode` before `node`; behind all when `node` is null.
  ILinkedSequenceImplNode* addAsPrevious(ILinkedSequenceImplNode* node, ILinkedSequenceImplNode* newNode) noexcept;
  /// Links the node so that it gets this position: from 1, and at most one more than there are. Linear.
  ILinkedSequenceImplNode* addAtPosition(unsigned long position, ILinkedSequenceImplNode* node) noexcept;
  /// Appends a copy (newNode) of each node that `other` holds at the call; it may be this sequence. When newNode
  /// throws, the copies made before stay.
  void addAllFrom(const ILinkedSequenceImpl& other);
  /// @}

  /// @name Removing
  /// They unlink nodes and destroy them with deleteNode.
  /// @{
  void removeAt(ILinkedSequenceImplNode* node);
  void removeFirst();
  void removeLast();
  void removeAtPosition(unsigned long position);
  void removeAll();
  /// Removes every node for which constantFunctionIteration(predicate, argument, node) is true; the number of them.
  /// When it throws, what was removed before is gone.
  unsigned long removeAll(void* predicate, void* argument);
  /// @}

  /// @name Questions and places
  /// @{
  unsigned long numberOfElements() const noexcept;
  bool isEmpty() const noexcept;
  bool isFull() const noexcept;  ///< never
  // They move `node`; the result is whether it is a node then, not null.
  bool setToFirst(ILinkedSequenceImplNode*& node) const noexcept;
  bool setToLast(ILinkedSequenceImplNode*& node) const noexcept;
  bool setToNext(ILinkedSequenceImplNode*& node) const noexcept;
  bool setToPrevious(ILinkedSequenceImplNode*& node) const noexcept;
  /// The positions 0 and 1 are the first node's. Linear.
  bool setToPosition(unsigned long position, ILinkedSequenceImplNode*& node) const noexcept;
  /// Linear.
  unsigned long position(const ILinkedSequenceImplNode* node) const noexcept;
  bool isFirst(const ILinkedSequenceImplNode* node) const noexcept;
  bool isLast(const ILinkedSequenceImplNode* node) const noexcept;
  /// Whether the node, of which nothing but the address is looked at, is linked in this sequence. Linear.
  bool checkNode(const ILinkedSequenceImplNode* node) const noexcept;
  /// Whether the first node has none before it, each node's next one points back to it, and there are as many as are
  /// counted. Linear.
  bool isConsistent() const noexcept;
  /// @}

  /// @name Order
  /// @{

  /// The first result of functionComparison that is not 0, element by element; when there is none, 1 if this sequence
  /// is longer, -1 if it is shorter, 0 if both end together.
  int compare(const ILinkedSequenceImpl& other, void* comparison) const;
  /// Sorts by functionComparison. Equal elements keep their order; nodes are linked anew, not copied. At most about
  /// n log2 n comparisons, about n for what is in order already; no storage. When a comparison throws, all nodes are
  /// there still, in an unspecified order.
  void sort(void* comparison);
  /// @}

protected:
  ~ILinkedSequenceImpl() = default;

  ILinkedSequenceImplNode* ivFirst;  ///< null when empty
  ILinkedSequenceImplNode* ivLast;   ///< null when empty
  unsigned long ivNumberOfElements;  ///< how many nodes there are

private:
  void unlink(ILinkedSequenceImplNode* node) noexcept;
  ILinkedSequenceImplNode* merge(void* comparison, ILinkedSequenceImplNode* left, ILinkedSequenceImplNode* right,
                                 const ILinkedSequenceImplNode* end);
};

QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

#endif
