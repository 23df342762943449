// ibase.cpp - IBase: version, texts of the root object. The message entry points stand in exceptions/imsgtext.cpp.
// Tests: tests/foundation/base_objects_test.cpp
#include <quelmcl/ibase.hpp>
#include <quelmcl/istring.hpp>

#include "foundation/address.hpp"

#include <ostream>

const IException::Severity IBase::unrecoverable;
const IException::Severity IBase::recoverable;

IString IBase::asString() const
{
  return "IBase object";
}

IString IBase::asDebugInfo() const
{
  return "IBase(@" + quelmcl::detail::hexAddress(this) + ")";
}

IBase::Version IBase::version() noexcept
{
  return {QUELMCL_VERSION_MAJOR, QUELMCL_VERSION_MINOR};
}

std::ostream& operator<<(std::ostream& stream, const IBase& object)
{
  return stream << object.asString();
}
