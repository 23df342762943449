// istartup.cpp - KOLTA_Init: the object that connects exceptions, trace and heap before any code of the program runs.
// Tests: tests/startup/*
#include <quelmcl/ibase.hpp>
#include <quelmcl/imsgtext.hpp>
#include <quelmcl/istartup.hpp>
#include <quelmcl/itrace.hpp>

#include "exceptions/startup.hpp"
#include "exceptions/throwing.hpp"

#include <new>

namespace quelmcl::detail {

const char startUpIsHere = 1;

namespace {

/// Storage that is never taken away: the hook stays installed when static objects are gone.
alignas(KOLTA_Init) unsigned char place[sizeof(KOLTA_Init)];
static_assert(sizeof(IExceptTraceFn) <= sizeof place, "the object becomes its base class in the same storage");

}  // namespace

/// The life of the one KOLTA_Init object.
class StartUp {
public:
  StartUp() noexcept : object(new (place) KOLTA_Init) {}
  ~StartUp()
  {
    object->~KOLTA_Init();
    new (place) IExceptTraceFn;
  }
  StartUp(const StartUp&) = delete;
  StartUp& operator=(const StartUp&) = delete;

private:
  KOLTA_Init* object;
};

namespace {

// The first priority that is not the implementation's own: no static object of the program comes before it, neither in
// a static link, nor when the library is opened later. What it needs is initialised without code.
__attribute__((init_priority(101))) StartUp initializer;

}  // namespace
}  // namespace quelmcl::detail

KOLTA_Init::KOLTA_Init()
{
  IException::setTraceFunction(*this);
  std::set_new_handler(newHandler);
}

KOLTA_Init::~KOLTA_Init() = default;

void KOLTA_Init::write(const char* buffer)
{
  const ITrace trace;
  ITrace::write(buffer);
}

void KOLTA_Init::newHandler()
{
  enum : unsigned long { heapExhausted = 4 };
  const IMessageText text = IBase::messageText(heapExhausted);
  quelmcl::detail::throwLogged(IOutOfMemory(text, heapExhausted, IException::unrecoverable),
                               IExceptionLocation("ibase", nullptr, 147));
}
