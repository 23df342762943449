// container_operations.cpp - sequences.
#include "operations.hpp"

namespace faulttests {

namespace {

using Names = ILinkedSequence<IString>;

/// An order that needs storage for every comparison.
bool comesBefore(const IString& left, const IString& right)
{
  return IString::upperCase(left) + "." < IString::upperCase(right) + ".";
}

}  // namespace

const std::vector<Operation> containerOperations = {
  {"SequenceAdd", strong, [](World& w) { w.names.add(w.argument); }},
  {"SequenceAddOfText", strong, [](World& w) { w.names.add("a text"); }},
  {"SequenceAddAsFirst", strong, [](World& w) { w.names.addAsFirst(w.argument); }},
  {"SequenceAddAsLast", strong, [](World& w) { w.names.addAsLast(w.argument); }},
  {"SequenceAddAtPosition", strong, [](World& w) { w.names.addAtPosition(3, w.argument); }},
  {"SequenceAddAtNoPosition", quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1201, [&w] { w.names.addAtPosition(99, w.argument); }); }},
  {"SequenceAddBesideACursor", strong,
   [](World& w) {
     Names::Cursor cursor = w.names.newCursor();
     cursor.setToPosition(2);
     w.names.addAsNext(cursor, w.argument);
   }},
  {"SequenceAddBeforeACursor", strong,
   [](World& w) {
     Names::Cursor cursor = w.names.newCursor();
     cursor.setToLast();
     w.names.addAsPrevious(cursor, w.argument);
   }},
  {"SequenceAddOfItsOwnElement", strong, [](World& w) { w.names.add(w.names.firstElement()); }},
  {"SequenceEmplaceAsLast", strong, [](World& w) { w.names.emplaceAsLast("ab", 2u, nullptr, 3u, '*'); }},
  {"SequenceAddAllFrom", strong, [](World& w) { w.names.addAllFrom(w.otherNames); }},
  {"SequenceAddAllFromItself", strong, [](World& w) { w.names.addAllFrom(w.names); }},
  {"SequenceCopy", strong, [](World& w) { const Names copy(w.names); }},
  {"SequenceOfManyTexts", strong, [](World&) { const Names made{"a", "b", "c", "d", "e", "f", "g", "h"}; }},
  {"SequenceAssignment", strong, [](World& w) { w.names = w.otherNames; }},
  {"SequenceAssignmentOfTexts", strong,
   [](World& w) {
     w.names = {"a", "b", "c"};
   }},
  {"SequenceMove", needsNone, [](World& w) { w.names = std::move(w.otherNames); }},
  {"SequenceSwap", needsNone, [](World& w) { w.names.swap(w.otherNames); }},
  {"SequenceRemoving", needsNone,
   [](World& w) {
     w.names.removeFirst();
     w.names.removeLast();
     w.names.removeAtPosition(2);
   }},
  {"SequenceRemoveAll", needsNone, [](World& w) { w.names.removeAll(); }},
  {"SequenceRemoveFirstOfNone", quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1201, [] { Names().removeFirst(); }); }},
  {"SequenceRemoveAllThat", basic,
   [](World& w) { w.names.removeAllThat([](const IString& name) { return IString::upperCase(name) == "ALPHA"; }); }},
  {"SequenceElementAtNoPosition", quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1201, [&w] { w.names.elementAt(99); }); }},
  {"SequenceElementOfNoCursor", quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1202, [&w] { w.names.elementAt(w.names.newCursor()); }); }},
  {"SequenceSort", needsNone, [](World& w) { w.names.sort(); }},
  {"SequenceSortWithStorage", basic, [](World& w) { w.names.sort(comesBefore); }},
  {"SequenceCompare", needsNone, [](World& w) { REQUIRE_OF(w, w.names.compare(w.otherNames) != 0); }},
  {"SequenceAllElementsDo", basic, [](World& w) { w.names.allElementsDo([](IString& name) { name.upperCase(); }); }},
};

}  // namespace faulttests
