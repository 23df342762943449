// sequences.cpp - benchmarks: sorting linked lists. The size is how many elements there are. Before each round the nodes are
// linked anew in the order that they had at first, so that all have the same to do and nothing is taken from the heap.
// Unpacked: libglib2.0-0 libpcre2-8-0 libpcre3
// Links: :libglib-2.0.so.0
#include "frame.hpp"

#include <quelmcl/iilnseq.hpp>

#include <list>

// Declared here rather than in its own headers, which lie in a folder of their own at each width.
extern "C" {
struct GListNode {
  void* data;
  GListNode* next;
  GListNode* prev;
};
GListNode* g_list_sort(GListNode* list, int (*compare)(const void*, const void*));
}

namespace {

using bench::Limit;
using bench::Workload;

std::string oneByteForEach(std::size_t size)
{
  return std::string(size, '.');
}

std::vector<int> numbersOf(const std::string& data)
{
  std::mt19937 random(1);
  std::vector<int> numbers(data.size());
  for (int& number : numbers)
    number = static_cast<int>(random() >> 1);
  return numbers;
}

// ---- the library: a sequence of numbers on its engine ----

struct Node : ILinkedSequenceImplNode {
  explicit Node(int itsNumber) : number(itsNumber) {}
  int number;
};

int numberIn(const void* node)
{
  return static_cast<const Node*>(static_cast<const ILinkedSequenceImplNode*>(node))->number;
}

class Numbers : public ILinkedSequenceImpl {
public:
  ILinkedSequenceImplNode* newNode(const void*) const override { return nullptr; }
  void deleteNode(void*) const override {}
  bool constantFunctionIteration(void*, void*, const void*) const override { return true; }
  bool functionIteration(void*, void*, void*) const override { return true; }
  bool constantIteratorIteration(void*, const void*) const override { return true; }
  bool iteratorIteration(void*, void*) const override { return true; }
  int functionComparison(void*, const void* node1, const void* node2) const override
  {
    const int left = numberIn(node1);
    const int right = numberIn(node2);
    return (left > right) - (left < right);
  }

  void forget()
  {
    ivFirst = ivLast = nullptr;
    ivNumberOfElements = 0;
  }
  int first() const { return numberIn(ivFirst); }
};

auto sortingOurs(const std::string& data)
{
  const std::vector<int> numbers = numbersOf(data);
  return [nodes = std::vector<Node>(numbers.begin(), numbers.end()), list = Numbers()]() mutable {
    list.forget();
    for (Node& node : nodes)
      list.addAsLast(&node);
    list.sort(nullptr);
    return list.first();
  };
}

// ---- GLib ----

int compareNumbers(const void* left, const void* right)
{
  const int l = *static_cast<const int*>(left);
  const int r = *static_cast<const int*>(right);
  return (l > r) - (l < r);
}

auto sortingGlib(const std::string& data)
{
  return [numbers = numbersOf(data), nodes = std::vector<GListNode>(data.size())]() mutable {
    for (std::size_t i = 0; i < nodes.size(); ++i)
      nodes[i] = {&numbers[i], i + 1 < nodes.size() ? &nodes[i + 1] : nullptr, i > 0 ? &nodes[i - 1] : nullptr};
    return *static_cast<const int*>(g_list_sort(nodes.data(), compareNumbers)->data);
  };
}

// ---- std::list ----

class StandardList {
public:
  explicit StandardList(const std::vector<int>& from) : numbers(from), list(from.begin(), from.end()) { noteNodes(); }
  StandardList(const StandardList& other) : StandardList(other.numbers) {}

  int firstOfSorted()
  {
    for (const auto node : nodes)
      list.splice(list.end(), list, node);
    list.sort();
    return list.front();
  }

private:
  void noteNodes()
  {
    for (auto node = list.begin(); node != list.end(); ++node)
      nodes.push_back(node);
  }

  const std::vector<int> numbers;
  std::list<int> list;
  std::vector<std::list<int>::iterator> nodes;
};

Workload sorting("sort_list", oneByteForEach, {{1000, 1}, {1000000, 1}}, Limit::none);

const bool all[] = {
  sorting.contender("quelmcl", sortingOurs),
  sorting.contender("glib", sortingGlib),
  sorting.contender("std::list",
                    [](const std::string& data) {
                      return [list = StandardList(numbersOf(data))]() mutable { return list.firstOfSorted(); };
                    }),
};

}  // namespace
