/// @file icursor.hpp
/// ICursor, what a place in a collection can be asked and told without knowing the collection.
///
///     for (cursor.setToFirst(); cursor.isValid(); cursor.setToNext())
///       ...
#ifndef QUELMCL_ICURSOR_HPP
#define QUELMCL_ICURSOR_HPP

#include <quelmcl/idefs.hpp>

/// A cursor stands on an element of its collection, or on none: then it is not valid. The collections make cursors of
/// their own types, such as ILinkedSequence<Element>::Cursor, which also reach the element.
class QUELMCL_API ICursor {
public:
  ICursor() = default;
  ICursor(const ICursor&) = default;
  ICursor& operator=(const ICursor&) = default;
  virtual ~ICursor();

  /// Goes to the first element. The result is whether there is one.
  virtual bool setToFirst() = 0;
  /// Goes to the next element. The result is whether there is one; if not, the cursor stands on none.
  virtual bool setToNext() = 0;
  /// Whether the cursor stands on an element.
  virtual bool isValid() const = 0;
  /// Makes the cursor stand on no element.
  virtual void invalidate() = 0;
  /// Makes this cursor stand where the other one stands; both have to be of the same type.
  virtual void copy(const ICursor& cursor) = 0;
  /// Whether both stand at the same place of the same collection.
  virtual bool operator==(const ICursor& cursor) const = 0;
  /// The negation of ==.
  bool operator!=(const ICursor& cursor) const { return !operator==(cursor); }
};

#endif
