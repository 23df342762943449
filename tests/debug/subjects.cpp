// subjects.cpp - an optimised program that holds an object of every kind that the debuggers' printers show, and stops.
#include <quelmcl/quelmcl.hpp>

#include <clocale>
#include <cstdint>
#include <cstdio>
#include <initializer_list>

/// Where the debugger stops.
extern "C" [[gnu::noinline]] void stopHere(const void* const* objects)
{
  asm volatile("" : : "r"(objects) : "memory");
}

// Buffers are seen by those only who follow a string's pointer.
const IBuffer* plainBuffer = nullptr;
const IBuffer* severalBuffer = nullptr;

namespace {

/// What is looked at has to be in memory, as in any program that goes on using it.
[[gnu::noinline]] void look(std::initializer_list<const void*> objects)
{
  stopHere(objects.begin());
  asm volatile("" : : "r"(objects.begin()) : "memory");
}

class Label : public IString {  // a string with something of its own
public:
  Label(const char* text, int aColour) : IString(text), colour(aColour) {}
  int colour;
};

class ParseFailure : public IInvalidRequest {  // an exception of a program's own
public:
  explicit ParseFailure(int aColumn) : IInvalidRequest("the parse failed", 7, IException::recoverable), column(aColumn)
  {
  }
  const char* name() const override { return "ParseFailure"; }
  int column;
};

struct Reading {  // with a member that has to be aligned behind the links of a node
  char sensor;
  double value;
};

class OwnSequence : public ILinkedSequenceImpl {  // a sequence of a program's own on the engine
public:
  ~OwnSequence() { removeAll(); }
  ILinkedSequenceImplNode* newNode(const void*) const override { return new ILinkedSequenceImplNode; }
  void deleteNode(void* node) const override { delete static_cast<ILinkedSequenceImplNode*>(node); }
  bool constantFunctionIteration(void*, void*, const void*) const override { return true; }
  bool functionIteration(void*, void*, void*) const override { return true; }
  bool constantIteratorIteration(void*, const void*) const override { return true; }
  bool iteratorIteration(void*, void*) const override { return true; }
  int functionComparison(void*, const void*, const void*) const override { return 0; }
};

[[gnu::noinline]] void showStrings()
{
  const IString empty;
  const IString plain("plain");
  const IString shared("shared");
  const IString secondOwner(shared);
  const IString thirdOwner(shared);
  const I0String fromZero("from zero");
  const I0String sharedFromZero(shared);
  const IString withNul("a\0b", 3u);
  const IString control("tab\there \"quoted\" \\ \x1b");
  const IString bytes("\xff\xfe\x80z");
  const Label label("label", 3);
  const IString* const pointer = &plain;
  plainBuffer = IBuffer::fromContents(plain);

  std::setlocale(LC_ALL, "C.UTF-8");
  const IString several("Z\xc3\xbcrich");
  const IString broken("half \xc3 of \xe2\x82 it");
  severalBuffer = IBuffer::fromContents(several);

  // Strings that are none: a pointer that is null, one that points nowhere, and one to what is no text.
  struct Noise {
    void* table;
    unsigned references, length;
    char text[8];
  } noise = {nullptr, 1, 4, "abcdefg"};
  alignas(IString) unsigned char memory[3][sizeof(IString)] = {};
  char* const unreadable = reinterpret_cast<char*>(64);
  char* const noText = noise.text;
  __builtin_memcpy(memory[1], &unreadable, sizeof unreadable);
  __builtin_memcpy(memory[2], &noText, sizeof noText);
  const IString& nullString = *reinterpret_cast<IString*>(memory[0]);
  const IString& nowhere = *reinterpret_cast<IString*>(memory[1]);
  const IString& overwritten = *reinterpret_cast<IString*>(memory[2]);

  look({&empty, &plain, &shared, &secondOwner, &thirdOwner, &fromZero, &sharedFromZero, &withNul, &control, &bytes,
        &label, &pointer, &several, &broken, &nullString, &nowhere, &overwritten, &noise});
}

[[gnu::noinline]] void showDates()
{
  const IDate first(0ul);
  const IDate leapDayBC(IDate::February, 29, -1);
  const IDate beforeGap(IDate::September, 2, 1752);
  const IDate afterGap(IDate::September, 14, 1752);
  const IDate leapDay(IDate::February, 29, 2000);
  const IDate newYearsEve(IDate::December, 31, 1999);
  const IDate last(4294967295ul);
  const ICnrDate packedDate = leapDay.asICnrDate();
  const ITime midnight(0L);
  const ITime afternoon(14, 30, 5);
  const ITime wholeDay(-86400L);
  const ICnrTime packedTime = afternoon.asICnrTime();
  look({&first, &leapDayBC, &beforeGap, &afterGap, &leapDay, &newYearsEve, &last, &packedDate, &midnight, &afternoon,
        &wholeDay, &packedTime});
}

/// Many dates, and what the library makes of each: around the changeover, and all over the numbers that there are.
[[gnu::noinline]] void showManyDates()
{
  constexpr unsigned count = 600;
  IDate dates[count];
  char texts[count][40];
  std::uint32_t random = 20;
  for (unsigned i = 0; i < count; ++i) {
    random = random * 1664525u + 1013904223u;
    const IDate date(i < 200 ? 2361121ul + i : static_cast<unsigned long>(i % 2 == 0 ? random : random >> 10));
    dates[i] = date;
    const int year = date.year();
    std::snprintf(texts[i], sizeof texts[i], "%04d-%02d-%02d%s %s", year < 0 ? -year : year,
                  static_cast<int>(date.monthOfYear()), date.dayOfMonth(), year < 0 ? " BC" : "",
                  static_cast<const char*>(date.dayName()));
  }
  look({&dates, &texts});
}

[[gnu::noinline]] void showSequences()
{
  const ILinkedSequence<int> none;
  const ILinkedSequence<int> numbers{3, 1, 4};
  const ILinkedSequence<IString> names{"Hopper", "Lovelace", "Turing"};
  const ILinkedSequence<Reading> readings{{'a', 1.5}, {'b', -2.0}};
  const ILinkedSequence<ILinkedSequence<int>> nested{{1}, {2, 3}};

  ILinkedSequence<IString>::Cursor cursor = names.newCursor();
  const ILinkedSequence<IString>::Cursor onNone(names);
  cursor.setToPosition(2);
  const ILinkedSequence<IString>::const_iterator begin = names.begin();
  const ILinkedSequence<IString>::const_iterator end = names.end();

  ILinkedSequence<int> shorter{1, 2};
  ILinkedSequence<int>::Cursor stale = shorter.newCursor();
  stale.setToLast();
  ILinkedSequence<int> taken(std::move(shorter));

  OwnSequence own;
  own.addAsLast(own.newNode(nullptr));
  own.addAsLast(own.newNode(nullptr));

  OwnSequence damaged;
  ILinkedSequenceImplNode* const first = damaged.addAsLast(damaged.newNode(nullptr));
  ILinkedSequenceImplNode* const second = damaged.addAsLast(damaged.newNode(nullptr));
  damaged.addAsLast(damaged.newNode(nullptr));
  OwnSequence cut;
  ILinkedSequenceImplNode* const last = cut.addAsLast(cut.newNode(nullptr));
  ILinkedSequenceImplNode* const lost = cut.addAsLast(cut.newNode(nullptr));
  first->ivNext = reinterpret_cast<ILinkedSequenceImplNode*>(64);
  last->ivNext = nullptr;
  look({&none, &numbers, &names, &readings, &nested, &cursor, &onNone, &begin, &end, &shorter, &stale, &taken, &own,
        &damaged, &cut});
  first->ivNext = second;
  last->ivNext = lost;
}

[[gnu::noinline]] void showExceptions()
{
  IOutOfMemory full("no room", 4, IException::unrecoverable);
  full.setText("while sorting").setText("while reporting");
  full.addLocation(IExceptionLocation("sort.cpp", "void sort()", 12))
    .addLocation(IExceptionLocation("report.cpp", nullptr, 5));
  const IException bare(nullptr);
  ParseFailure own(17);
  own.setErrorCodeGroup(nullptr);
  const IException& asBase = own;
  const IExceptionLocation location("main.cpp", "int main()", 3);
  const IExceptionLocation nowhere;
  const IExcText level("newer", new IExcText("older"));
  alignas(IException) static unsigned char memory[sizeof(IException)];
  __builtin_memset(memory, 0x5a, sizeof memory);
  const IException& overwritten = *reinterpret_cast<IException*>(memory);
  look({&full, &bare, &own, &asBase, &location, &nowhere, &level, &overwritten});
}

}  // namespace

int main()
{
  showStrings();
  showDates();
  showManyDates();
  showSequences();
  showExceptions();
}
