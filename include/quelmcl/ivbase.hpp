/// @file ivbase.hpp
/// IVBase, the root of the classes that are handled through base pointers.
#ifndef QUELMCL_IVBASE_HPP
#define QUELMCL_IVBASE_HPP

#include <quelmcl/ibase.hpp>

/// Adds a virtual destructor and virtual text forms to IBase. These are the first three virtual operations of every
/// class derived from it, in this order.
class QUELMCL_API IVBase : public IBase {
public:
  IVBase() = default;
  IVBase(const IVBase&) = default;
  IVBase& operator=(const IVBase&) = default;
  /// Inline, since objects of derived classes may cost less than a call, as a trace that is off does; and exported all
  /// the same, for programs that were compiled when it was not.
  QUELMCL_API virtual ~IVBase() {}

  /// The object as text; "IVBase object" unless a class overrides it.
  virtual IString asString() const;
  /// The object as its programmer wants to see it; "IVBase(@", the address in hexadecimal digits, ")" unless
  /// overridden.
  virtual IString asDebugInfo() const;
};

/// Writes the object's own asString().
QUELMCL_API std::ostream& operator<<(std::ostream& stream, const IVBase& object);

#endif
