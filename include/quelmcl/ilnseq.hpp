/// @file ilnseq.hpp
/// ILinkedSequence<Element>, a doubly linked sequence of values, and its cursor.
///
///     ILinkedSequence<IString> names{"Hopper", "Lovelace", "Turing"};
///     names.addAsFirst("Babbage");
///     names.addAtPosition(2, "Boole");              // positions count from 1
///     names.sort();                                 // by <, or by anything given: stable, without copying an element
///     for (const IString& name : names)
///       std::cout << name << '\n';
///     names.elementAt(9);                           // throws IInvalidRequest 1201
///
/// **Ownership.** A sequence owns its elements: they live in its nodes, are copied with it, and are destroyed when they
/// are removed, replaced by assignment, or when the sequence ends. Nothing is ever handed out to be freed. Moving a
/// sequence moves no element, and leaves the source empty.
///
/// **References, pointers, iterators and cursors** to an element stay good until that element is removed, whatever
/// else is added, removed or sorted. Iterators go along with their elements when a sequence is moved or swapped, except
/// for the one past the end; a cursor belongs to the sequence object that it was made for.
///
/// **Positions** count from 1. Those that do not exist throw IInvalidRequest 1201, and cursors that stand on no element
/// of the sequence 1202. Finding a position takes time in proportion to its distance from the nearer end; all else that
/// does not say so takes constant time.
///
/// **Failures.** What throws, a copy of an element or an exhausted heap included, leaves the sequence as it was. Only
/// sort() may leave it in another order, with no element lost, and removeAllThat() with some removed already.
///
/// Elements need what is used: to be copied for copies of a sequence only, == and < for comparisons only. One thread at
/// a time.
#ifndef QUELMCL_ILNSEQ_HPP
#define QUELMCL_ILNSEQ_HPP

#include <quelmcl/icursor.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/iilnseq.hpp>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <iterator>
#include <type_traits>
#include <utility>

namespace quelmcl {
namespace detail {

[[noreturn]] inline void throwFromSequence(unsigned long messageId, const char* what, int line)
{
  IExcept__throwLibraryError(messageId, IExceptionLocation("ilnseq", nullptr, static_cast<unsigned long>(line)),
                             IBaseErrorInfo::invalidRequest, IException::recoverable, what);
  std::abort();  // not reached: the class to throw is one of the enumeration
}

[[noreturn]] inline void throwNoPosition(unsigned long position, unsigned long numberOfElements)
{
  char what[64];
  std::snprintf(what, sizeof what, "%lu of %lu", position, numberOfElements);
  throwFromSequence(1201, what, __LINE__);
}

[[noreturn]] inline void throwNoElement(const char* what)
{
  throwFromSequence(1202, what, __LINE__);
}

/// What a function gives when it is called with arguments of these types.
template <class Function, class... Arguments>
using ResultOf = decltype(std::declval<Function&>()(std::declval<Arguments>()...));

/// The order of two elements as a sign, from a function that tells whether one is less, or that gives a sign itself.
template <class Function, class Element>
int orderSign(Function& function, const Element& left, const Element& right, std::true_type /*tellsLess*/)
{
  return function(left, right) ? -1 : function(right, left) ? 1 : 0;
}
template <class Function, class Element>
int orderSign(Function& function, const Element& left, const Element& right, std::false_type /*tellsLess*/)
{
  const auto order = function(left, right);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

/// Whether two neighbours have to change places, which takes one call only.
template <class Function, class Element>
int disorder(Function& function, const Element& left, const Element& right, std::true_type /*tellsLess*/)
{
  return function(right, left) ? 1 : 0;
}
template <class Function, class Element>
int disorder(Function& function, const Element& left, const Element& right, std::false_type /*tellsLess*/)
{
  return function(left, right) > 0 ? 1 : 0;
}

/// Calls a function that may give nothing as one that gives true.
template <class Function, class Element>
bool goesOn(Function& function, Element& element, std::true_type /*givesNothing*/)
{
  function(element);
  return true;
}
template <class Function, class Element>
bool goesOn(Function& function, Element& element, std::false_type /*givesNothing*/)
{
  return static_cast<bool>(function(element));
}

struct Less {
  template <class Element>
  bool operator()(const Element& left, const Element& right) const
  {
    return static_cast<bool>(left < right);
  }
};

}  // namespace detail
}  // namespace quelmcl

/// A doubly linked sequence that owns its elements.
template <class Element>
class ILinkedSequence {
  using Link = ILinkedSequenceImplNode;

  struct Node : Link {
    struct InPlace {};

    template <class... Arguments>
    explicit Node(InPlace, Arguments&&... arguments) : element(std::forward<Arguments>(arguments)...)
    {
    }

    Element element;
  };

  // What stands behind the engine's void*: a function of one's own, hidden in an object, since a pointer to a function
  // is no void*.
  struct Function {
    bool (*call)(Element& element, void* argument);
  };
  struct ConstFunction {
    bool (*call)(const Element& element, void* argument);
  };
  struct Comparison {
    int (*call)(void* argument, const Element& left, const Element& right);
    void* argument;
  };
  template <class Callable>
  struct Holder {
    Callable& callable;
  };

public:
  /// @name Types
  /// @{
  using value_type = Element;
  using reference = Element&;
  using const_reference = const Element&;
  using size_type = unsigned long;
  using difference_type = std::ptrdiff_t;

  /// An object that allElementsDo() applies to every element.
  class Applicator {
  public:
    virtual ~Applicator() = default;
    /// Does something to the element. False ends the walk.
    virtual bool applyTo(Element& element) = 0;
  };
  /// The same for elements that are only looked at.
  class ConstantApplicator {
  public:
    virtual ~ConstantApplicator() = default;
    virtual bool applyTo(const Element& element) = 0;
  };
  /// @}

private:
  QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN

  /// The engine with what it has to know of elements. Owns the nodes.
  class Engine : public ILinkedSequenceImpl {
  public:
    Engine() noexcept {}
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;
    ~Engine() { this->removeAll(); }

    /// Not asked for: CopyingEngine makes the copies, so that elements need not be copyable.
    Link* newNode(const void*) const override { return nullptr; }  // not reached
    void deleteNode(void* node) const override { delete static_cast<Node*>(static_cast<Link*>(node)); }
    bool constantFunctionIteration(void* function, void* argument, const void* node) const override
    {
      return static_cast<ConstFunction*>(function)->call(elementOf(node), argument);
    }
    bool functionIteration(void* function, void* argument, void* node) const override
    {
      return static_cast<Function*>(function)->call(elementOf(node), argument);
    }
    bool constantIteratorIteration(void* iterator, const void* node) const override
    {
      return static_cast<ConstantApplicator*>(iterator)->applyTo(elementOf(node));
    }
    bool iteratorIteration(void* iterator, void* node) const override
    {
      return static_cast<Applicator*>(iterator)->applyTo(elementOf(node));
    }
    int functionComparison(void* comparison, const void* node1, const void* node2) const override
    {
      const Comparison& order = *static_cast<Comparison*>(comparison);
      return order.call(order.argument, elementOf(node1), elementOf(node2));
    }

    Link* first() const noexcept { return this->ivFirst; }
    Link* last() const noexcept { return this->ivLast; }
    unsigned long count() const noexcept { return this->ivNumberOfElements; }

    void swap(Engine& other) noexcept
    {
      std::swap(this->ivFirst, other.ivFirst);
      std::swap(this->ivLast, other.ivLast);
      std::swap(this->ivNumberOfElements, other.ivNumberOfElements);
    }

    /// Links the nodes of the other one, which is empty afterwards, behind all nodes of this one.
    void takeFrom(Engine& other) noexcept
    {
      if (other.ivFirst == nullptr)
        return;
      other.ivFirst->ivPrevious = this->ivLast;
      (this->ivLast == nullptr ? this->ivFirst : this->ivLast->ivNext) = other.ivFirst;
      this->ivLast = other.ivLast;
      this->ivNumberOfElements += other.ivNumberOfElements;
      other.ivFirst = other.ivLast = nullptr;
      other.ivNumberOfElements = 0;
    }

  private:
    static Element& elementOf(void* node) { return static_cast<Node*>(static_cast<Link*>(node))->element; }
    static const Element& elementOf(const void* node)
    {
      return static_cast<const Node*>(static_cast<const Link*>(node))->element;
    }
  };

  class CopyingEngine : public Engine {
  public:
    Link* newNode(const void* node) const override
    {
      return new Node(typename Node::InPlace(), static_cast<const Node*>(static_cast<const Link*>(node))->element);
    }
  };

  QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

  template <class Value>
  class BasicIterator {
  public:
    using iterator_category = std::bidirectional_iterator_tag;
    using value_type = Element;
    using difference_type = std::ptrdiff_t;
    using pointer = Value*;
    using reference = Value&;

    BasicIterator() noexcept : link(nullptr), engine(nullptr) {}
    /// An iterator for reading from one for writing.
    template <class Other, class = typename std::enable_if<std::is_same<const Other, Value>::value &&
                                                           !std::is_same<Other, Value>::value>::type>
    BasicIterator(const BasicIterator<Other>& other) noexcept : link(other.link), engine(other.engine)
    {
    }

    reference operator*() const { return static_cast<Node*>(link)->element; }
    pointer operator->() const { return __builtin_addressof(**this); }  // <memory>, which has it too, is large
    BasicIterator& operator++() noexcept
    {
      link = link->ivNext;
      return *this;
    }
    BasicIterator operator++(int) noexcept
    {
      const BasicIterator before(*this);
      ++*this;
      return before;
    }
    BasicIterator& operator--() noexcept
    {
      link = link == nullptr ? engine->last() : link->ivPrevious;
      return *this;
    }
    BasicIterator operator--(int) noexcept
    {
      const BasicIterator before(*this);
      --*this;
      return before;
    }
    friend bool operator==(const BasicIterator& left, const BasicIterator& right) noexcept
    {
      return left.link == right.link;
    }
    friend bool operator!=(const BasicIterator& left, const BasicIterator& right) noexcept
    {
      return left.link != right.link;
    }

  private:
    friend class ILinkedSequence;
    template <class>
    friend class BasicIterator;

    BasicIterator(Link* where, const Engine* owner) noexcept : link(where), engine(owner) {}

    Link* link;            // null past the end
    const Engine* engine;  // which knows the last element, for the step back from the end
  };

public:
  /// @name Iterators of the standard kind
  /// Bidirectional. Nothing about them is checked.
  /// @{
  using iterator = BasicIterator<Element>;
  using const_iterator = BasicIterator<const Element>;
  using reverse_iterator = std::reverse_iterator<iterator>;
  using const_reverse_iterator = std::reverse_iterator<const_iterator>;

  iterator begin() noexcept { return iterator(engine.first(), &engine); }
  iterator end() noexcept { return iterator(nullptr, &engine); }
  const_iterator begin() const noexcept { return const_iterator(engine.first(), &engine); }
  const_iterator end() const noexcept { return const_iterator(nullptr, &engine); }
  const_iterator cbegin() const noexcept { return begin(); }
  const_iterator cend() const noexcept { return end(); }
  reverse_iterator rbegin() noexcept { return reverse_iterator(end()); }
  reverse_iterator rend() noexcept { return reverse_iterator(begin()); }
  const_reverse_iterator rbegin() const noexcept { return const_reverse_iterator(end()); }
  const_reverse_iterator rend() const noexcept { return const_reverse_iterator(begin()); }
  const_reverse_iterator crbegin() const noexcept { return rbegin(); }
  const_reverse_iterator crend() const noexcept { return rend(); }
  /// @}

  /// A place in a sequence, or none. A new cursor stands on none. It only reads its sequence; to change an element, ask
  /// the sequence for elementAt(cursor). The sequence has to live as long as the cursor is used.
  class Cursor : public ICursor {
  public:
    /// On no element of that sequence.
    explicit Cursor(const ILinkedSequence& of) noexcept : sequence(&of), link(nullptr) {}

    /// Whether there is such an element; if not, the cursor stands on none.
    bool setToFirst() override { return setTo(sequence->engine.first()); }
    /// Whether there is such an element.
    bool setToLast() { return setTo(sequence->engine.last()); }
    /// From no element there is no next one.
    bool setToNext() override { return setTo(link == nullptr ? nullptr : link->ivNext); }
    /// From no element there is no previous one either.
    bool setToPrevious() { return setTo(link == nullptr ? nullptr : link->ivPrevious); }
    /// Throws IInvalidRequest 1201 for a position that does not exist.
    bool setToPosition(unsigned long position) { return setTo(sequence->linkAt(position)); }
    bool isValid() const override { return link != nullptr; }
    void invalidate() override { link = nullptr; }
    /// Throws IInvalidRequest 1202 when the other one is no cursor of such a sequence.
    void copy(const ICursor& cursor) override
    {
      const Cursor* const other = dynamic_cast<const Cursor*>(&cursor);
      if (other == nullptr)
        quelmcl::detail::throwNoElement("a cursor of another type was to be copied");
      *this = *other;
    }
    bool operator==(const ICursor& cursor) const override
    {
      const Cursor* const other = dynamic_cast<const Cursor*>(&cursor);
      return other != nullptr && *this == *other;
    }
    /// Whether both stand on the same element of the same sequence, or both on none of it.
    bool operator==(const Cursor& other) const { return sequence == other.sequence && link == other.link; }
    bool operator!=(const Cursor& other) const { return !(*this == other); }
    using ICursor::operator!=;

    /// Throws IInvalidRequest 1202 when the cursor stands on no element.
    const Element& element() const { return sequence->elementAt(*this); }

  private:
    friend class ILinkedSequence;

    bool setTo(Link* where)
    {
      link = where;
      return link != nullptr;
    }

    const ILinkedSequence* sequence;
    Link* link;
  };

  /// @name Construction and assignment
  /// A copy holds copies of all elements, in order.
  /// @{
  ILinkedSequence() noexcept {}
  ILinkedSequence(std::initializer_list<Element> elements) : ILinkedSequence(elements.begin(), elements.end()) {}
  template <class Iterator, class = typename std::iterator_traits<Iterator>::iterator_category>
  ILinkedSequence(Iterator from, Iterator to)
  {
    for (; from != to; ++from)
      emplaceAsLast(*from);
  }
  ILinkedSequence(const ILinkedSequence& source) { addAllFrom(source); }
  ILinkedSequence(ILinkedSequence&& source) noexcept { engine.swap(source.engine); }
  ILinkedSequence& operator=(const ILinkedSequence& source)
  {
    ILinkedSequence copy(source);
    swap(copy);
    return *this;
  }
  ILinkedSequence& operator=(ILinkedSequence&& source) noexcept
  {
    ILinkedSequence taken(std::move(source));
    swap(taken);
    return *this;
  }
  ILinkedSequence& operator=(std::initializer_list<Element> elements)
  {
    ILinkedSequence taken(elements);
    swap(taken);
    return *this;
  }
  ~ILinkedSequence() = default;

  void swap(ILinkedSequence& other) noexcept { engine.swap(other.engine); }
  friend void swap(ILinkedSequence& left, ILinkedSequence& right) noexcept { left.swap(right); }
  /// @}

  /// @name Adding
  /// The result is the element that was added. What is added may be an element of this sequence.
  /// @{
  Element& add(const Element& element) { return emplaceAsLast(element); }  ///< at the end
  Element& add(Element&& element) { return emplaceAsLast(std::move(element)); }
  Element& addAsFirst(const Element& element) { return addBehind(nullptr, element); }
  Element& addAsFirst(Element&& element) { return addBehind(nullptr, std::move(element)); }
  Element& addAsLast(const Element& element) { return emplaceAsLast(element); }
  Element& addAsLast(Element&& element) { return emplaceAsLast(std::move(element)); }
  /// At this position: from 1 to one more than there are, else IInvalidRequest 1201 is thrown.
  Element& addAtPosition(unsigned long position, const Element& element)
  {
    return addBehind(linkBefore(position), element);
  }
  Element& addAtPosition(unsigned long position, Element&& element)
  {
    return addBehind(linkBefore(position), std::move(element));
  }
  /// Behind the element of the cursor.
  Element& addAsNext(const Cursor& cursor, const Element& element) { return addBehind(linkAt(cursor), element); }
  Element& addAsNext(const Cursor& cursor, Element&& element) { return addBehind(linkAt(cursor), std::move(element)); }
  /// Before the element of the cursor.
  Element& addAsPrevious(const Cursor& cursor, const Element& element)
  {
    return addBehind(linkAt(cursor)->ivPrevious, element);
  }
  Element& addAsPrevious(const Cursor& cursor, Element&& element)
  {
    return addBehind(linkAt(cursor)->ivPrevious, std::move(element));
  }
  /// Makes the element in its place, at the end, from what its constructor takes.
  template <class... Arguments>
  Element& emplaceAsLast(Arguments&&... arguments)
  {
    return addBehind(engine.last(), std::forward<Arguments>(arguments)...);
  }
  /// Appends copies of all elements of the other sequence, which may be this one.
  void addAllFrom(const ILinkedSequence& other)
  {
    CopyingEngine copies;
    copies.addAllFrom(other.engine);
    engine.takeFrom(copies);
  }
  /// For std::back_inserter.
  void push_back(const Element& element) { emplaceAsLast(element); }
  void push_back(Element&& element) { emplaceAsLast(std::move(element)); }
  /// @}

  /// @name Removing
  /// @{

  /// Throws IInvalidRequest 1201 when the sequence is empty.
  void removeFirst() { engine.removeAt(linkAt(1)); }
  /// \copydoc removeFirst
  void removeLast() { engine.removeAt(linkAt(lastPosition())); }
  /// Throws IInvalidRequest 1201 for a position that does not exist.
  void removeAtPosition(unsigned long position) { engine.removeAt(linkAt(position)); }
  /// Removes the element of the cursor, which stands on none afterwards.
  void removeAt(Cursor& cursor)
  {
    Link* const link = linkAt(cursor);
    cursor.invalidate();
    engine.removeAt(link);
  }
  /// Removes an element; the result is the place of the one behind it.
  iterator erase(const_iterator position)
  {
    Link* const next = position.link->ivNext;
    engine.removeAt(position.link);
    return iterator(next, &engine);
  }
  void removeAll() { engine.removeAll(); }
  /// Removes every element for which the predicate gives true; the number of them. Linear.
  template <class Predicate>
  unsigned long removeAllThat(Predicate&& predicate)
  {
    Holder<typename std::remove_reference<Predicate>::type> holder = {predicate};
    ConstFunction function = {&callPredicate<decltype(holder)>};
    return engine.removeAll(&function, &holder);
  }
  /// @}

  /// @name Access
  /// @{
  unsigned long numberOfElements() const noexcept { return engine.count(); }
  unsigned long size() const noexcept { return engine.count(); }
  bool isEmpty() const noexcept { return engine.count() == 0; }
  bool empty() const noexcept { return engine.count() == 0; }

  /// Throws IInvalidRequest 1201 for a position that does not exist.
  Element& elementAt(unsigned long position) { return elementOf(linkAt(position)); }
  const Element& elementAt(unsigned long position) const { return elementOf(linkAt(position)); }
  /// Throws IInvalidRequest 1202 when the cursor stands on no element, or belongs to another sequence. What it stood on
  /// must not have been removed: checkCursor() finds that out.
  Element& elementAt(const Cursor& cursor) { return elementOf(linkAt(cursor)); }
  const Element& elementAt(const Cursor& cursor) const { return elementOf(linkAt(cursor)); }
  /// Throws IInvalidRequest 1201 when the sequence is empty.
  Element& firstElement() { return elementAt(1); }
  const Element& firstElement() const { return elementAt(1); }
  /// \copydoc firstElement
  Element& lastElement() { return elementAt(lastPosition()); }
  const Element& lastElement() const { return elementAt(lastPosition()); }

  /// A cursor for this sequence, on no element yet.
  Cursor newCursor() const { return Cursor(*this); }
  /// Whether the cursor stands on an element that this sequence still has. Linear.
  bool checkCursor(const Cursor& cursor) const
  {
    return cursor.sequence == this && cursor.link != nullptr && engine.checkNode(cursor.link);
  }
  /// The position of the cursor's element. Linear.
  unsigned long position(const Cursor& cursor) const { return engine.position(linkAt(cursor)); }
  /// Whether the links and the count agree, which they always should. Linear.
  bool isConsistent() const noexcept { return engine.isConsistent(); }
  /// @}

  /// @name Walks
  /// From the first element to the last, until what is called gives false. The result is whether it never did. The
  /// element at hand may be removed meanwhile, the one behind it may not.
  /// @{

  /// Calls a function for every element. It gives a truth value, whether to go on, or nothing.
  template <class Callable, class Result = quelmcl::detail::ResultOf<Callable, Element&>>
  bool allElementsDo(Callable&& callable)
  {
    Holder<typename std::remove_reference<Callable>::type> holder = {callable};
    return allElementsDo(&callForElement<decltype(holder), Element, Result>, &holder);
  }
  template <class Callable, class Result = quelmcl::detail::ResultOf<Callable, const Element&>>
  bool allElementsDo(Callable&& callable) const
  {
    Holder<typename std::remove_reference<Callable>::type> holder = {callable};
    return allElementsDo(&callForElement<decltype(holder), const Element, Result>, &holder);
  }
  /// Calls a function for every element, with an argument of the caller's.
  bool allElementsDo(bool (*function)(Element& element, void* argument), void* argument)
  {
    Function hook = {function};
    return walk([&](Link* link) { return engine.functionIteration(&hook, argument, link); });
  }
  bool allElementsDo(bool (*function)(const Element& element, void* argument), void* argument) const
  {
    ConstFunction hook = {function};
    return walk([&](Link* link) { return engine.constantFunctionIteration(&hook, argument, link); });
  }
  /// Applies an object to every element.
  bool allElementsDo(Applicator& applicator)
  {
    return walk([&](Link* link) { return engine.iteratorIteration(&applicator, link); });
  }
  bool allElementsDo(ConstantApplicator& applicator) const
  {
    return walk([&](Link* link) { return engine.constantIteratorIteration(&applicator, link); });
  }
  /// @}

  /// @name Order
  /// What compares two elements tells whether the first is less, as a bool, or gives their order: a number or a
  /// std::strong_ordering that is negative, 0 or positive.
  /// @{

  /// Sorts by <. Equal elements keep their order; no element is copied or moved. n log2 n comparisons, about n for
  /// what is in order already; no storage.
  void sort() { sort(quelmcl::detail::Less()); }
  template <class Callable>
  void sort(Callable&& callable)
  {
    Holder<typename std::remove_reference<Callable>::type> holder = {callable};
    Comparison comparison = {&callDisorder<decltype(holder)>, &holder};
    engine.sort(&comparison);
  }
  /// The order of the first two elements that differ; when there are none, 1 if this sequence is longer, -1 if it is
  /// shorter, 0 if both end together.
  int compare(const ILinkedSequence& other) const { return compare(other, quelmcl::detail::Less()); }
  template <class Callable>
  int compare(const ILinkedSequence& other, Callable&& callable) const
  {
    Holder<typename std::remove_reference<Callable>::type> holder = {callable};
    Comparison comparison = {&callOrderSign<decltype(holder)>, &holder};
    return engine.compare(other.engine, &comparison);
  }

  friend bool operator==(const ILinkedSequence& left, const ILinkedSequence& right)
  {
    if (left.size() != right.size())
      return false;
    const_iterator other = right.begin();
    for (const Element& element : left)
      if (!(element == *other++))
        return false;
    return true;
  }
  friend bool operator!=(const ILinkedSequence& left, const ILinkedSequence& right) { return !(left == right); }
  friend bool operator<(const ILinkedSequence& left, const ILinkedSequence& right) { return left.compare(right) < 0; }
  friend bool operator<=(const ILinkedSequence& left, const ILinkedSequence& right) { return left.compare(right) <= 0; }
  friend bool operator>(const ILinkedSequence& left, const ILinkedSequence& right) { return left.compare(right) > 0; }
  friend bool operator>=(const ILinkedSequence& left, const ILinkedSequence& right) { return left.compare(right) >= 0; }
  /// @}

private:
  static Element& elementOf(Link* link) { return static_cast<Node*>(link)->element; }

  /// In an empty sequence the position that is missing.
  unsigned long lastPosition() const noexcept { return isEmpty() ? 1 : engine.count(); }

  /// The node at a position, from the nearer end.
  Link* linkAt(unsigned long position) const
  {
    const unsigned long count = engine.count();
    if (position == 0 || position > count)
      quelmcl::detail::throwNoPosition(position, count);
    if (position <= count / 2 + 1) {
      Link* link = engine.first();
      for (; position > 1; --position)
        link = link->ivNext;
      return link;
    }
    Link* link = engine.last();
    for (; position < count; ++position)
      link = link->ivPrevious;
    return link;
  }

  Link* linkAt(const Cursor& cursor) const
  {
    if (cursor.sequence != this)
      quelmcl::detail::throwNoElement("it belongs to another one");
    if (cursor.link == nullptr)
      quelmcl::detail::throwNoElement("it is not valid");
    return cursor.link;
  }

  /// The node in front of a position that may be one past the last, or null in front of all.
  Link* linkBefore(unsigned long position) const
  {
    if (position == 0 || position - 1 > engine.count())
      quelmcl::detail::throwNoPosition(position, engine.count());
    return position == 1 ? nullptr : linkAt(position - 1);
  }

  template <class... Arguments>
  Element& addBehind(Link* link, Arguments&&... arguments)
  {
    Node* const node = new Node(typename Node::InPlace(), std::forward<Arguments>(arguments)...);
    engine.addAsNext(link, node);  // cannot throw, so the node has an owner from here on
    return node->element;
  }

  template <class Step>
  bool walk(Step step) const
  {
    Link* next = nullptr;
    for (Link* link = engine.first(); link != nullptr; link = next) {
      next = link->ivNext;
      if (!step(link))
        return false;
    }
    return true;
  }

  // What the engine's functions are made of: the callable of a Holder, called for elements.
  template <class HolderOfCallable, class Value, class Result>
  static bool callForElement(Value& element, void* holder)
  {
    return quelmcl::detail::goesOn(static_cast<HolderOfCallable*>(holder)->callable, element, std::is_void<Result>());
  }
  template <class HolderOfCallable>
  static bool callPredicate(const Element& element, void* holder)
  {
    return static_cast<bool>(static_cast<HolderOfCallable*>(holder)->callable(element));
  }
  template <class HolderOfCallable>
  static int callDisorder(void* holder, const Element& left, const Element& right)
  {
    auto& callable = static_cast<HolderOfCallable*>(holder)->callable;
    using Result = quelmcl::detail::ResultOf<decltype(callable), const Element&, const Element&>;
    return quelmcl::detail::disorder(callable, left, right, std::is_same<typename std::decay<Result>::type, bool>());
  }
  template <class HolderOfCallable>
  static int callOrderSign(void* holder, const Element& left, const Element& right)
  {
    auto& callable = static_cast<HolderOfCallable*>(holder)->callable;
    using Result = quelmcl::detail::ResultOf<decltype(callable), const Element&, const Element&>;
    return quelmcl::detail::orderSign(callable, left, right, std::is_same<typename std::decay<Result>::type, bool>());
  }

  Engine engine;
};

#endif
