// catalogguard.hpp - keeps damaged message catalogs from the C library, which trusts what it finds in them.
// Tests: tests/exceptions/message_text_test.cpp
#ifndef QUELMCL_SRC_EXCEPTIONS_CATALOGGUARD_HPP
#define QUELMCL_SRC_EXCEPTIONS_CATALOGGUARD_HPP

namespace quelmcl::detail {

/// Whether the file that catopen would open for this name is no catalog, or one whose tables or texts reach beyond its
/// end: cut off, overwritten, something else. The C library's own check stops short of the tables, so that a catalog cut
/// off within them ends the process. No file at all is no damage. Asks for no storage; changes errno.
bool isDamagedCatalog(const char* name) noexcept;

}  // namespace quelmcl::detail

#endif
