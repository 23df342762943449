// slots_probe.cpp - makes the compiler write out the virtual table of every class of the library: each is derived from here, and a
// class with a virtual operation that is defined here has its table here. Only compiled to assembler text, never linked;
// check_slots.sh reads the tables in it.
#include <quelmcl/quelmcl.hpp>

namespace probe {

#define PROBE_BY_DESTRUCTOR(Class) \
  struct Class : ::Class {         \
    ~Class() override;             \
  };                               \
  Class::~Class() {}

PROBE_BY_DESTRUCTOR(IVBase)
PROBE_BY_DESTRUCTOR(IStringTest)
PROBE_BY_DESTRUCTOR(IBuffer)
PROBE_BY_DESTRUCTOR(IDBCSBuffer)
PROBE_BY_DESTRUCTOR(I0String)
PROBE_BY_DESTRUCTOR(IException)
PROBE_BY_DESTRUCTOR(IAccessError)
PROBE_BY_DESTRUCTOR(IAssertionFailure)
PROBE_BY_DESTRUCTOR(IDeviceError)
PROBE_BY_DESTRUCTOR(IInvalidParameter)
PROBE_BY_DESTRUCTOR(IInvalidRequest)
PROBE_BY_DESTRUCTOR(IResourceExhausted)
PROBE_BY_DESTRUCTOR(IOutOfMemory)
PROBE_BY_DESTRUCTOR(IOutOfSystemResource)
PROBE_BY_DESTRUCTOR(IOutOfWindowResource)
PROBE_BY_DESTRUCTOR(ISystemErrorInfo)
PROBE_BY_DESTRUCTOR(ICLibErrorInfo)
PROBE_BY_DESTRUCTOR(IXLibErrorInfo)
PROBE_BY_DESTRUCTOR(IGUIErrorInfo)
PROBE_BY_DESTRUCTOR(ITrace)
PROBE_BY_DESTRUCTOR(KOLTA_Init)

// The hooks have no virtual destructor; any operation that they let others override serves as well.
QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
struct TraceFn : ::IException::TraceFn {
  void write(const char* buffer) override;
};
void TraceFn::write(const char*) {}

struct IExceptTraceFn : ::IExceptTraceFn {
  void write(const char* buffer) override;
};
void IExceptTraceFn::write(const char*) {}

struct ILinkedSequenceImpl : ::ILinkedSequenceImpl {
  ILinkedSequenceImplNode* newNode(const void* node) const override;
  void deleteNode(void* node) const override {}
  bool constantFunctionIteration(void* function, void* argument, const void* node) const override { return false; }
  bool functionIteration(void* function, void* argument, void* node) const override { return false; }
  bool constantIteratorIteration(void* iterator, const void* node) const override { return false; }
  bool iteratorIteration(void* iterator, void* node) const override { return false; }
  int functionComparison(void* comparison, const void* node1, const void* node2) const override { return 0; }
};
ILinkedSequenceImplNode* ILinkedSequenceImpl::newNode(const void*) const
{
  return nullptr;
}
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

struct ICursor : ::ICursor {
  ~ICursor() override;
  bool setToFirst() override { return false; }
  bool setToNext() override { return false; }
  bool isValid() const override { return false; }
  void invalidate() override {}
  void copy(const ::ICursor& cursor) override {}
  bool operator==(const ::ICursor& cursor) const override { return false; }
};
ICursor::~ICursor() {}

// Abstract: what is pure has to be overridden, or the table would not tell the names.
struct IBaseErrorInfo : ::IBaseErrorInfo {
  operator const char*() const override;
  const char* text() const override;
  unsigned long errorId() const override;
  int isAvailable() const override;
};
IBaseErrorInfo::operator const char*() const
{
  return "";
}
const char* IBaseErrorInfo::text() const
{
  return "";
}
unsigned long IBaseErrorInfo::errorId() const
{
  return 0;
}
int IBaseErrorInfo::isAvailable() const
{
  return 0;
}

}  // namespace probe
