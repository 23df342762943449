// lastbyte.cpp - a program that lives through an exhausted heap: there is not a single byte left when failures are built, reported
// and thrown.
// usage: lastbyte CASE
#include <quelmcl/quelmcl.hpp>

#include "exhaustion.hpp"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>

namespace {

/// What is known of an exception after it was caught; written down without storage.
struct Caught {
  char name[40];
  unsigned long errorId;
  bool isRecoverable;
  char file[40];
  unsigned long line;
  bool hasText;

  void note(const IException& failure)
  {
    const IExceptionLocation* const location = failure.locationAtIndex(0);
    std::snprintf(name, sizeof name, "%s", failure.name());
    errorId = failure.errorId();
    isRecoverable = failure.isRecoverable();
    std::snprintf(file, sizeof file, "%s", location == nullptr ? "nowhere" : location->fileName());
    line = location == nullptr ? 0 : location->lineNumber();
    hasText = failure.textCount() != 0 && failure.text() != nullptr && *failure.text() != '\0';
  }

  void print() const
  {
    std::printf("%s %lu %s %s:%lu\n", name, errorId, isRecoverable ? "recoverable" : "unrecoverable", file, line);
  }
};

/// A byte that no compiler can do without.
void takeAByte()
{
  ::operator delete(::operator new(1));
}

/// Runs the action without a byte left and prints what it throws.
template <class Action>
bool tellWithoutAByte(Action action)
{
  Caught caught = {};
  {
    const WholeHeap heap;
    try {
      action();
    } catch (const IException& failure) {
      caught.note(failure);
    } catch (const std::exception& failure) {
      std::snprintf(caught.name, sizeof caught.name, "%s", failure.what());
    }
  }
  caught.print();
  return caught.hasText;
}

void growAString()
{
  Caught caught = {};
  {
    const LimitedAddressSpace limit(32u << 20);
    IString text("0123456789");
    try {
      for (;;)
        text += text;
    } catch (const IException& failure) {
      caught.note(failure);
      std::printf("%d\n", text.length() >= 10 && text.subString(text.length() - 9) == "0123456789");
    }
  }
  caught.print();
  std::printf("text: %d\n", caught.hasText);
}

void everyOperation()
{
  const IString text("a text that is long enough to need a buffer");
  IString edited(text);
  tellWithoutAByte(takeAByte);
  tellWithoutAByte([] { delete new IString("abc"); });
  tellWithoutAByte([&] { edited.insert("more", 3); });
  tellWithoutAByte([&] { const IString joined = text + "x"; });
  tellWithoutAByte([&] { edited.upperCase(); });
  std::printf("%s\n", edited == text ? "untouched" : "changed");
}

void otherFailures()
{
  const IString text("abc");
  tellWithoutAByte([] { IExcept__assertState("isOpen", IExceptionLocation("file.cpp", "work", 12)); });
  tellWithoutAByte([&] { static_cast<void>(text[7]); });
  tellWithoutAByte([] {
    ICLibErrorInfo::throwCLibError("open", IExceptionLocation("file.cpp", "work", 12), IBaseErrorInfo::deviceError);
  });
}

void again()
{
  for (int i = 0; i < 3; ++i)
    tellWithoutAByte(takeAByte);
  const IString text = IString("there is storage").copy(1000);
  std::printf("%u\n", text.length());
}

void nothrow()
{
  bool isNull = false;
  {
    const WholeHeap heap;
    void* const block = ::operator new(1, std::nothrow);
    isNull = block == nullptr;
    ::operator delete(block);
  }
  std::printf("%d\n", isNull);
}

/// A hook that writes to the trace what it was told to, without a byte left.
void traced()
{
  const WholeHeap heap;
  const ITrace trace("work", 5);
  ITrace::write("no storage is needed for this");
}

struct Case {
  const char* name;
  void (*run)();
};

const Case cases[] = {{"growAString", growAString},
                      {"everyOperation", everyOperation},
                      {"otherFailures", otherFailures},
                      {"again", again},
                      {"nothrow", nothrow},
                      {"traced", traced}};

}  // namespace

int main(int, char** argv)
{
  for (const Case& each : cases)
    if (std::strcmp(each.name, argv[1]) == 0)
      each.run();
}
