// layout_test.cpp - what objects look like in memory: sizes, fields and their places. Programs that were compiled against an older
// release go on working only while these stay. The 32-bit numbers are the contract; the 64-bit ones follow from the same fields.
// Which virtual operation has which slot is checked from the compiler's own output, by check_slots.sh and check_classes.sh.
#include <quelmcl/quelmcl.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

namespace {

constexpr bool is32Bit = sizeof(void*) == 4;
static_assert(is32Bit || sizeof(void*) == 8, "only these two widths are planned");
static_assert(sizeof(int) == 4 && sizeof(long) == sizeof(void*), "the data models of Linux");

// The place that a field has on either width.
constexpr std::size_t place(std::size_t at32Bits, std::size_t at64Bits)
{
  return is32Bit ? at32Bits : at64Bits;
}

// Explicit instantiation may name private members, and hands their addresses out through a function found by its argument.
template <class Field, typename Field::Pointer member>
struct Reveal {
  friend typename Field::Pointer pointerTo(Field) { return member; }
};

#define REVEAL(Name, Type, Class, field) \
  struct Name {                          \
    using Pointer = Type Class::*;       \
    friend Pointer pointerTo(Name);      \
  };                                     \
  template struct Reveal<Name, &Class::field>

using FiveLocations = IExceptionLocation[5];
REVEAL(LocationFile, const char*, IExceptionLocation, pClFile);
REVEAL(LocationFunction, const char*, IExceptionLocation, pClFunction);
REVEAL(LocationLine, unsigned long, IExceptionLocation, ulClLineNo);
REVEAL(LevelText, char*, IExcText, pszClMsg);
REVEAL(LevelNext, IExcText*, IExcText, msgtxtClNext);
REVEAL(ExceptionSeverity, IException::Severity, IException, exsevCl);
REVEAL(ExceptionErrorId, unsigned long, IException, ulClErrorId);
REVEAL(ExceptionLocations, FiveLocations, IException, exlocClArray);
REVEAL(ExceptionLocationCount, unsigned long, IException, ulexlocClCount);
REVEAL(ExceptionTextCount, unsigned long, IException, ulClTxtLvlCount);
REVEAL(ExceptionTop, IExcText*, IException, msgtxtClTop);
REVEAL(ExceptionGroup, const char*, IException, fErrorGroup);
REVEAL(RegistryFallback, IException::TraceFn*, IExceptStaticPtr, pTraceFn);
REVEAL(RegistryUser, IException::TraceFn*, IExceptStaticPtr, pUserTraceFn);
REVEAL(MessageText, char*, IMessageText, pClText);
REVEAL(MessageSuccess, int, IMessageText, bClSuccess);
REVEAL(StringText, char*, IString, pBuffer);
REVEAL(BuilderBegin, char*, IStringBuilder, textBegin);
REVEAL(BuilderEnd, char*, IStringBuilder, textEnd);
REVEAL(BuilderBlockEnd, char*, IStringBuilder, blockEnd);
REVEAL(WordListText, IString, IWordList, held);
REVEAL(WordListPlaces, IString, IWordList, places);
REVEAL(DateNumber, unsigned long, IDate, julian);
REVEAL(TimeSeconds, long, ITime, ticks);
REVEAL(SystemErrorTruth, int, ISystemErrorInfo, bClError);
REVEAL(SystemErrorId, unsigned long, ISystemErrorInfo, ulClErrorId);
REVEAL(SystemErrorText, char*, ISystemErrorInfo, pClErrorText);
REVEAL(CLibErrorTruth, int, ICLibErrorInfo, bClError);
REVEAL(CLibErrorNumber, unsigned long, ICLibErrorInfo, ulClErrno);
REVEAL(CLibErrorText, char*, ICLibErrorInfo, pClErrorText);
REVEAL(XLibErrorTruth, int, IXLibErrorInfo, bClInfoAvail);
REVEAL(XLibErrorCode, unsigned long, IXLibErrorInfo, ulClErrorCode);
REVEAL(XLibErrorText, char*, IXLibErrorInfo, pClErrorText);
REVEAL(GUIErrorText, char*, IGUIErrorInfo, pClFuncNameText);
REVEAL(TraceName, char*, ITrace, pszClTraceName);

template <class Whole, class Member>
std::size_t distance(const Whole& whole, const Member& part)
{
  return static_cast<std::size_t>(reinterpret_cast<const char*>(&part) - reinterpret_cast<const char*>(&whole));
}

template <class Field, class Whole>
std::size_t offsetIn(const Whole& whole)
{
  return distance(whole, whole.*pointerTo(Field()));
}

template <class Word>
Word wordAt(const void* address)
{
  Word word;
  std::memcpy(&word, address, sizeof word);
  return word;
}

// Fields that derived classes may see are reached through one.
struct BufferProbe : IBuffer {
  BufferProbe() : IBuffer(0) {}
  std::size_t refsOffset() const { return distance(*this, refs); }
  std::size_t lenOffset() const { return distance(*this, len); }
  std::size_t dataOffset() const { return distance(*this, data); }
};

struct TestProbe : IStringTest {
  TestProbe() : IStringTest(memFn, nullptr) {}
  std::size_t typeOffset() const { return distance(*this, type); }
  std::size_t dataOffset() const { return distance(*this, data); }
  std::size_t userOffset() const { return distance(*this, data.user); }
  std::size_t functionOffset() const { return distance(*this, data.cFn); }
};

TEST(RootLayout, TheFirstRootAddsNothingAndTheSecondItsVirtualTable)
{
  struct Derived : IBase {
    void* field;
  };
  EXPECT_TRUE(std::is_empty<IBase>::value);
  EXPECT_FALSE(std::is_polymorphic<IBase>::value);
  EXPECT_EQ(sizeof(void*), sizeof(Derived));
  EXPECT_EQ(sizeof(void*), sizeof(IVBase));
  EXPECT_TRUE(std::has_virtual_destructor<IVBase>::value);
  EXPECT_TRUE(std::is_empty<IPlatform>::value);
}

TEST(RootLayout, TheVersionIsOneWordWithMajorInItsLowHalf)
{
  const IBase::Version version = IBase::version();
  EXPECT_EQ(4u, sizeof version);
  EXPECT_EQ(0u, offsetof(IBase::Version, major));
  EXPECT_EQ(2u, offsetof(IBase::Version, minor));
  EXPECT_EQ(0x00020136u, wordAt<std::uint32_t>(&version));
}

TEST(StringLayout, AStringIsOnePointerToItsText)
{
  const IString text("hello");
  EXPECT_EQ(sizeof(void*), sizeof(IString));
  EXPECT_FALSE(std::is_polymorphic<IString>::value);
  EXPECT_EQ(0u, offsetIn<StringText>(text));
  EXPECT_EQ(static_cast<const char*>(text), wordAt<const char*>(&text));
}

TEST(StringLayout, AListOfWordsIsTwoStringsThatProgramsReadThrough)
{
  const IWordList list("a bcd");
  EXPECT_EQ(2 * sizeof(IString), sizeof(IWordList));
  EXPECT_FALSE(std::is_polymorphic<IWordList>::value);
  EXPECT_EQ(0u, offsetIn<WordListText>(list));
  EXPECT_EQ(sizeof(void*), offsetIn<WordListPlaces>(list));
  const char* const places = wordAt<const char*>(reinterpret_cast<const char*>(&list) + sizeof(void*));
  const unsigned expected[] = {0, 1, 2, 5};
  EXPECT_EQ(0, std::memcmp(places, expected, sizeof expected));
}

TEST(StringLayout, ABuilderIsThreePointersThatProgramsAppendThrough)
{
  IStringBuilder builder;
  builder.reserve(20).append("hello");
  EXPECT_EQ(3 * sizeof(void*), sizeof(IStringBuilder));
  EXPECT_FALSE(std::is_polymorphic<IStringBuilder>::value);
  EXPECT_EQ(0u, offsetIn<BuilderBegin>(builder));
  EXPECT_EQ(sizeof(void*), offsetIn<BuilderEnd>(builder));
  EXPECT_EQ(2 * sizeof(void*), offsetIn<BuilderBlockEnd>(builder));
  EXPECT_EQ(builder.text() + 5, wordAt<const char*>(reinterpret_cast<const char*>(&builder) + sizeof(void*)));
  EXPECT_EQ(builder.text() + 21, wordAt<const char*>(reinterpret_cast<const char*>(&builder) + 2 * sizeof(void*)));
}

TEST(StringLayout, TheZeroBasedStringPutsItsVirtualTableInFront)
{
  const I0String text("hello");
  EXPECT_EQ(2 * sizeof(void*), sizeof(I0String));
  EXPECT_EQ(sizeof(void*), distance(text, static_cast<const IString&>(text)));
  EXPECT_EQ(static_cast<const char*>(text), wordAt<const char*>(reinterpret_cast<const char*>(&text) + sizeof(void*)));
  EXPECT_TRUE(std::has_virtual_destructor<I0String>::value);
}

TEST(BufferLayout, TheRecordIsVirtualTableCountLengthText)
{
  const BufferProbe probe;
  EXPECT_EQ(place(4, 8), probe.refsOffset());
  EXPECT_EQ(place(8, 12), probe.lenOffset());
  EXPECT_EQ(place(12, 16), probe.dataOffset());
  EXPECT_EQ(place(16, 24), sizeof(IBuffer));
  EXPECT_EQ(sizeof(IBuffer), sizeof(IDBCSBuffer));
  EXPECT_EQ(place(12, 16), static_cast<std::size_t>(probe.contents() - reinterpret_cast<const char*>(&probe)));
}

TEST(BufferLayout, ATextStandsRightBehindItsCountAndLength)
{
  const IString text("hello");
  const IString shared(text);
  const char* const bytes = text;
  EXPECT_EQ(2u, wordAt<std::uint32_t>(bytes - 8));
  EXPECT_EQ(5u, wordAt<std::uint32_t>(bytes - 4));
  EXPECT_STREQ("hello", bytes);
  EXPECT_EQ(bytes - place(12, 16), reinterpret_cast<const char*>(IBuffer::fromContents(bytes)));
  EXPECT_EQ(2u, IBuffer::fromContents(bytes)->useCount());
}

TEST(CharacterTestLayout, HoldsItsKindAndOnePointer)
{
  const TestProbe probe;
  EXPECT_EQ(place(4, 8), probe.typeOffset());
  EXPECT_EQ(place(8, 16), probe.dataOffset());
  EXPECT_EQ(place(8, 16), probe.userOffset());
  EXPECT_EQ(place(8, 16), probe.functionOffset());
  EXPECT_EQ(place(12, 24), sizeof(IStringTest));
}

TEST(ExceptionLayout, ALocationIsThreeWords)
{
  const IExceptionLocation location("file", "function", 7);
  EXPECT_EQ(3 * sizeof(void*), sizeof location);
  EXPECT_EQ(0u, offsetIn<LocationFile>(location));
  EXPECT_EQ(sizeof(void*), offsetIn<LocationFunction>(location));
  EXPECT_EQ(2 * sizeof(void*), offsetIn<LocationLine>(location));
  EXPECT_TRUE(std::is_trivially_copyable<IExceptionLocation>::value);
  EXPECT_EQ(7u, wordAt<unsigned long>(reinterpret_cast<const char*>(&location) + 2 * sizeof(void*)));
}

TEST(ExceptionLayout, ATextLevelIsItsTextAndTheNextLevel)
{
  const IExcText level("text");
  EXPECT_EQ(2 * sizeof(void*), sizeof level);
  EXPECT_EQ(0u, offsetIn<LevelText>(level));
  EXPECT_EQ(sizeof(void*), offsetIn<LevelNext>(level));
  EXPECT_FALSE(std::is_polymorphic<IExcText>::value);
}

TEST(ExceptionLayout, AnExceptionsFieldsStandInOrder)
{
  const IException failure("text", 9, IException::recoverable);
  EXPECT_EQ(place(4, 8), offsetIn<ExceptionSeverity>(failure));
  EXPECT_EQ(place(8, 16), offsetIn<ExceptionErrorId>(failure));
  EXPECT_EQ(place(12, 24), offsetIn<ExceptionLocations>(failure));
  EXPECT_EQ(place(72, 144), offsetIn<ExceptionLocationCount>(failure));
  EXPECT_EQ(place(76, 152), offsetIn<ExceptionTextCount>(failure));
  EXPECT_EQ(place(80, 160), offsetIn<ExceptionTop>(failure));
  EXPECT_EQ(place(84, 168), offsetIn<ExceptionGroup>(failure));
  EXPECT_EQ(place(88, 176), sizeof(IException));
}

TEST(ExceptionLayout, AnExceptionReadAsPlainMemoryShowsItsValues)
{
  IException failure("text", 9, IException::recoverable);
  failure.addLocation(IExceptionLocation("file", "function", 7));
  const char* const memory = reinterpret_cast<const char*>(&failure);
  EXPECT_EQ(1u, wordAt<std::uint32_t>(memory + place(4, 8)));
  EXPECT_EQ(9u, wordAt<unsigned long>(memory + place(8, 16)));
  EXPECT_STREQ("file", wordAt<const char*>(memory + place(12, 24)));
  EXPECT_EQ(7u, wordAt<unsigned long>(memory + place(20, 40)));
  EXPECT_EQ(nullptr, wordAt<const char*>(memory + place(24, 48)));
  EXPECT_EQ(1u, wordAt<unsigned long>(memory + place(72, 144)));
  EXPECT_EQ(1u, wordAt<unsigned long>(memory + place(76, 152)));
  EXPECT_EQ(failure.text(0), wordAt<const char*>(wordAt<const char*>(memory + place(80, 160))));
  EXPECT_STREQ("Quelm Class Library", wordAt<const char*>(memory + place(84, 168)));
}

TEST(ExceptionLayout, NoSubclassAddsAField)
{
  EXPECT_EQ(sizeof(IException), sizeof(IAccessError));
  EXPECT_EQ(sizeof(IException), sizeof(IAssertionFailure));
  EXPECT_EQ(sizeof(IException), sizeof(IDeviceError));
  EXPECT_EQ(sizeof(IException), sizeof(IInvalidParameter));
  EXPECT_EQ(sizeof(IException), sizeof(IInvalidRequest));
  EXPECT_EQ(sizeof(IException), sizeof(IResourceExhausted));
  EXPECT_EQ(sizeof(IException), sizeof(IOutOfMemory));
  EXPECT_EQ(sizeof(IException), sizeof(IOutOfSystemResource));
  EXPECT_EQ(sizeof(IException), sizeof(IOutOfWindowResource));
}

TEST(ExceptionLayout, EverySubclassHasItsStatedBase)
{
  EXPECT_TRUE((std::is_base_of<IException, IAccessError>::value));
  EXPECT_TRUE((std::is_base_of<IException, IAssertionFailure>::value));
  EXPECT_TRUE((std::is_base_of<IException, IDeviceError>::value));
  EXPECT_TRUE((std::is_base_of<IException, IInvalidParameter>::value));
  EXPECT_TRUE((std::is_base_of<IException, IInvalidRequest>::value));
  EXPECT_TRUE((std::is_base_of<IException, IResourceExhausted>::value));
  EXPECT_TRUE((std::is_base_of<IResourceExhausted, IOutOfMemory>::value));
  EXPECT_TRUE((std::is_base_of<IResourceExhausted, IOutOfSystemResource>::value));
  EXPECT_TRUE((std::is_base_of<IResourceExhausted, IOutOfWindowResource>::value));
}

TEST(ExceptionLayout, TheHookHasAVirtualTableAndNoVirtualDestructor)
{
  EXPECT_EQ(sizeof(void*), sizeof(IException::TraceFn));
  EXPECT_EQ(sizeof(void*), sizeof(IExceptTraceFn));
  EXPECT_TRUE(std::is_polymorphic<IException::TraceFn>::value);
  EXPECT_FALSE(std::has_virtual_destructor<IException::TraceFn>::value);
}

TEST(ExceptionLayout, TheHookRegistryHoldsTheFallbackBeforeTheUsersHook)
{
  const IExceptStaticPtr registry = IExceptStaticPtr();
  EXPECT_EQ(0u, offsetIn<RegistryFallback>(registry));
  EXPECT_EQ(sizeof(void*), offsetIn<RegistryUser>(registry));
  EXPECT_EQ(2 * sizeof(void*), sizeof registry);
}

TEST(MessageLayout, AMessageIsItsTextAndWhereItCameFrom)
{
  const IMessageText message(1, nullptr);
  EXPECT_EQ(0u, offsetIn<MessageText>(message));
  EXPECT_EQ(sizeof(void*), offsetIn<MessageSuccess>(message));
  EXPECT_EQ(2 * sizeof(void*), sizeof message);
  EXPECT_FALSE(std::is_polymorphic<IMessageText>::value);
}

TEST(ErrorInformationLayout, TheCommonBaseHasNoFields)
{
  EXPECT_EQ(sizeof(void*), sizeof(IBaseErrorInfo));
  EXPECT_TRUE(std::is_abstract<IBaseErrorInfo>::value);
}

TEST(DateLayout, ADateIsItsDayNumber)
{
  const IDate date(2451545ul);
  EXPECT_EQ(sizeof(long), sizeof(IDate));
  EXPECT_EQ(0u, offsetIn<DateNumber>(date));
  EXPECT_EQ(2451545ul, wordAt<unsigned long>(&date));
  EXPECT_FALSE(std::is_polymorphic<IDate>::value);
}

TEST(DateLayout, ThePackedDateIsDayMonthAndYear)
{
  EXPECT_EQ(4u, sizeof(ICnrDate));
  EXPECT_EQ(0u, offsetof(ICnrDate, day));
  EXPECT_EQ(1u, offsetof(ICnrDate, month));
  EXPECT_EQ(2u, offsetof(ICnrDate, year));
  const ICnrDate packed = IDate(IDate::July, 20, 1969).asICnrDate();
  EXPECT_EQ(0x07B10714u, wordAt<std::uint32_t>(&packed));
}

TEST(TimeLayout, ATimeIsItsSeconds)
{
  const ITime time(1, 2, 3);
  EXPECT_EQ(sizeof(long), sizeof(ITime));
  EXPECT_EQ(0u, offsetIn<TimeSeconds>(time));
  EXPECT_EQ(3723, wordAt<long>(&time));
  EXPECT_FALSE(std::is_polymorphic<ITime>::value);
}

TEST(TimeLayout, ThePackedTimeIsHoursMinutesSecondsAndAReservedByte)
{
  EXPECT_EQ(4u, sizeof(ICnrTime));
  const ICnrTime packed = ITime(1, 2, 3).asICnrTime();
  EXPECT_EQ(0x00030201u, wordAt<std::uint32_t>(&packed));
}

// Fields that derived classes may see are reached through one; it is never asked for what it does not have.
QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
struct SequenceProbe : ILinkedSequenceImpl {
  ILinkedSequenceImplNode* newNode(const void*) const override { return nullptr; }
  void deleteNode(void*) const override {}
  bool constantFunctionIteration(void*, void*, const void*) const override { return false; }
  bool functionIteration(void*, void*, void*) const override { return false; }
  bool constantIteratorIteration(void*, const void*) const override { return false; }
  bool iteratorIteration(void*, void*) const override { return false; }
  int functionComparison(void*, const void*, const void*) const override { return 0; }
  std::size_t firstOffset() const { return distance(*this, ivFirst); }
  std::size_t lastOffset() const { return distance(*this, ivLast); }
  std::size_t countOffset() const { return distance(*this, ivNumberOfElements); }
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

TEST(SequenceLayout, TheEngineIsVirtualTableFirstLastAndCount)
{
  const SequenceProbe probe;
  EXPECT_EQ(sizeof(void*), probe.firstOffset());
  EXPECT_EQ(2 * sizeof(void*), probe.lastOffset());
  EXPECT_EQ(3 * sizeof(void*), probe.countOffset());
  EXPECT_EQ(4 * sizeof(void*), sizeof(ILinkedSequenceImpl));
  EXPECT_FALSE(std::has_virtual_destructor<ILinkedSequenceImpl>::value);
}

TEST(SequenceLayout, ANodeIsNextAndPrevious)
{
  EXPECT_EQ(0u, offsetof(ILinkedSequenceImplNode, ivNext));
  EXPECT_EQ(sizeof(void*), offsetof(ILinkedSequenceImplNode, ivPrevious));
  EXPECT_EQ(2 * sizeof(void*), sizeof(ILinkedSequenceImplNode));
  EXPECT_FALSE(std::is_polymorphic<ILinkedSequenceImplNode>::value);
}

TEST(SequenceLayout, ACursorHasAVirtualTableAndAVirtualDestructor)
{
  EXPECT_EQ(sizeof(void*), sizeof(ICursor));
  EXPECT_TRUE(std::has_virtual_destructor<ICursor>::value);
}

template <class Truth, class Number, class Text, class Kind>
void expectTruthNumberText(const Kind& info)
{
  EXPECT_EQ(place(4, 8), offsetIn<Truth>(info));
  EXPECT_EQ(place(8, 16), offsetIn<Number>(info));
  EXPECT_EQ(place(12, 24), offsetIn<Text>(info));
  EXPECT_EQ(place(16, 32), sizeof info);
}

TEST(ErrorInformationLayout, ThreeKindsHoldATruthANumberAndAText)
{
  expectTruthNumberText<SystemErrorTruth, SystemErrorId, SystemErrorText>(ISystemErrorInfo(1));
  expectTruthNumberText<CLibErrorTruth, CLibErrorNumber, CLibErrorText>(ICLibErrorInfo());
  expectTruthNumberText<XLibErrorTruth, XLibErrorCode, XLibErrorText>(IXLibErrorInfo());
}

TEST(ErrorInformationLayout, OneKindHoldsATextOnly)
{
  const IGUIErrorInfo info;
  EXPECT_EQ(place(4, 8), offsetIn<GUIErrorText>(info));
  EXPECT_EQ(place(8, 16), sizeof info);
}

TEST(TraceLayout, ATraceHoldsItsName)
{
  const ITrace trace;
  EXPECT_EQ(place(4, 8), offsetIn<TraceName>(trace));
  EXPECT_EQ(place(8, 16), sizeof trace);
  EXPECT_TRUE(std::has_virtual_destructor<ITrace>::value);
  EXPECT_TRUE(std::is_empty<ITraceSetup>::value);
}

TEST(TraceLayout, TheStartUpObjectHasNoFieldsAndAVirtualDestructorInItsLastSlot)
{
  EXPECT_EQ(sizeof(IException::TraceFn), sizeof(KOLTA_Init));
  EXPECT_TRUE(std::has_virtual_destructor<KOLTA_Init>::value);
}

TEST(ResultLayout, TruthValuesAndPositionsAre32BitsWide)
{
  EXPECT_EQ(4u, sizeof(std::declval<const IException&>().isRecoverable()));
  EXPECT_EQ(4u, sizeof(std::declval<const IBuffer&>().isDigits()));
  EXPECT_EQ(4u, sizeof(std::declval<const IBuffer&>().length()));
  EXPECT_EQ(4u, sizeof(std::declval<const IBuffer&>().compare(nullptr, 0)));
  EXPECT_EQ(4u, sizeof(std::declval<const IString&>().indexOf('a')));
  EXPECT_EQ(4u, sizeof(std::declval<const IString&>().isDigits()));
  EXPECT_EQ(4u, sizeof(I0String::notFound));
  EXPECT_EQ(4u, sizeof(std::declval<const IBaseErrorInfo&>().isAvailable()));
}

}  // namespace
