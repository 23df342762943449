// ivbase.cpp - IVBase: the virtual texts of the root of the polymorphic classes.
// Tests: tests/foundation/virtual_base_test.cpp
#include <quelmcl/istring.hpp>
#include <quelmcl/ivbase.hpp>

#include "foundation/address.hpp"

#include <ostream>

IString IVBase::asString() const
{
  return "IVBase object";
}

IString IVBase::asDebugInfo() const
{
  return "IVBase(@" + quelmcl::detail::hexAddress(this) + ")";
}

std::ostream& operator<<(std::ostream& stream, const IVBase& object)
{
  return stream << object.asString();
}
