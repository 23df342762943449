/// @file idbcsb.hpp
/// IDBCSBuffer, the buffer for texts whose characters may have several bytes.
#ifndef QUELMCL_IDBCSB_HPP
#define QUELMCL_IDBCSB_HPP

#include <quelmcl/ibuffer.hpp>

/// The buffer of the multi-byte kind. It is chosen for the process when the locale in force at the first string has
/// multi-byte characters, and allocates buffers of its own kind only.
class QUELMCL_API IDBCSBuffer : public IBuffer {
public:
  /// A new multi-byte buffer of `newLen` bytes, holding one reference, its text not filled in.
  IBuffer* allocate(unsigned newLen) const override;
  /// "IDBCSBuffer".
  const char* className() const override;

protected:
  explicit IDBCSBuffer(unsigned newLen) noexcept;
  ~IDBCSBuffer() override;

private:
  friend class IBuffer;
};

#endif
