// editing_contract_test.cpp - buffers: which buffer an editing operation returns, who holds what afterwards, and that
// the text is what the reference says: random texts, shared and not, arguments from within the text, no storage.
#include "buffer_probe.hpp"
#include "exceptions/hooks.hpp"
#include "support/expect_text.hpp"
#include "support/failing_allocations.hpp"
#include "support/random_texts.hpp"
#include "support/reference.hpp"

#include <gtest/gtest.h>

#include <ctype.h>

#include <functional>
#include <memory>
#include <new>
#include <string>

using namespace buffertests;
using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;
using quelmcl_test::RandomTexts;

namespace {

// ---------------------------------------------------------------------------------------------------------------------
// One call of an operation, and what it is to come to

/// What becomes of a text.
enum class Outcome {
  unchanged,  ///< the same buffer
  edited,     ///< the same buffer for a sole owner, a copy otherwise
  built,      ///< a new buffer, or the null buffer when there is no text
  refused     ///< no text can be that long
};

/// Bytes given to an operation: of their own, or a part of the text that is edited.
class Argument {
public:
  explicit Argument(const std::string& text) : value(text), own(new Exactly(text)), offset(0) {}

  static Argument within(const std::string& text, RandomTexts& random)
  {
    const unsigned first = random.below(static_cast<unsigned>(text.size()) + 1);
    const unsigned rest = static_cast<unsigned>(text.size()) - first;
    const unsigned length = random.below((random.onceIn(2) && rest > 3 ? 3 : rest) + 1);
    Argument argument(text.substr(first, length));
    argument.own.reset();
    argument.offset = first;
    return argument;
  }

  const std::string& text() const { return value; }
  unsigned size() const { return static_cast<unsigned>(value.size()); }
  const char* in(const IBuffer& edited) const { return own ? own->data() : edited.contents() + offset; }

private:
  std::string value;
  std::shared_ptr<Exactly> own;
  unsigned offset;
};

struct Edit {
  Outcome outcome;
  std::string expected;  // the text afterwards; of no meaning when refused
  std::function<IBuffer*(IBuffer&)> run;
  std::string call;  // for messages
};

Edit refusedEdit(const std::function<IBuffer*(IBuffer&)>& run, const std::string& call)
{
  return {Outcome::refused, "", run, call};
}

/// Whether no text can have this length, of which all parts are positive.
bool isTooLong(unsigned long long length)
{
  return length > longestText;
}

Argument argument(const std::string& text, RandomTexts& random, const std::string& own)
{
  return random.onceIn(3) ? Argument::within(text, random) : Argument(own);
}

unsigned anyLength(const std::string& text, RandomTexts& random)
{
  return random.onceIn(20) ? random.below(21) + longestText + 1 : random.newLength(text.size());
}

std::string shown(const Argument& argument)
{
  return quelmcl_test::quoted(argument.text());
}

std::string shown(unsigned number)
{
  return std::to_string(number);
}

template <class... Values>
std::string callOf(const std::string& operation, const Values&... values)
{
  std::string result = operation + "(";
  ((result += shown(values) + ", "), ...);
  return result + ")";
}

// Each of these makes up a call for a text.

using Justify = IBuffer* (IBuffer::*)(unsigned, char);
using ReferenceJustify = std::string (*)(const std::string&, unsigned, char);

Edit justifying(const std::string& text, RandomTexts& random, const char* name, Justify justify,
                ReferenceJustify reference)
{
  const unsigned length = anyLength(text, random);
  const char pad = random.byte();
  const auto run = [=](IBuffer& b) { return (b.*justify)(length, pad); };
  if (isTooLong(length))
    return refusedEdit(run, callOf(name, length));
  return {length == text.size() ? Outcome::unchanged : Outcome::built, reference(text, length, pad), run,
          callOf(name, length)};
}

Edit center(const std::string& text, RandomTexts& random)
{
  return justifying(text, random, "center", &IBuffer::center, reference::center);
}

Edit leftJustify(const std::string& text, RandomTexts& random)
{
  return justifying(text, random, "leftJustify", &IBuffer::leftJustify, reference::leftJustify);
}

Edit rightJustify(const std::string& text, RandomTexts& random)
{
  return justifying(text, random, "rightJustify", &IBuffer::rightJustify, reference::rightJustify);
}

Edit insert(const std::string& text, RandomTexts& random)
{
  const Argument inserted = argument(text, random, random.textLike(text, 6));
  const unsigned index = random.position(text.size());
  const char pad = random.byte();
  const auto run = [=](IBuffer& b) { return b.insert(inserted.in(b), inserted.size(), index, pad); };
  const std::string call = callOf("insert", inserted, index);
  if (index > text.size() && isTooLong(index + 0ull + inserted.size()))
    return refusedEdit(run, call);
  const bool isNothing = inserted.size() == 0 && index <= text.size();
  return {isNothing ? Outcome::unchanged : Outcome::built, reference::insert(text, inserted.text(), index, pad), run,
          call};
}

Edit overlayWith(const std::string& text, RandomTexts& random)
{
  const Argument overlay = argument(text, random, random.textLike(text, 6));
  const unsigned index = random.position(text.size());
  const char pad = random.byte();
  const auto run = [=](IBuffer& b) { return b.overlayWith(overlay.in(b), overlay.size(), index, pad); };
  const std::string call = callOf("overlayWith", overlay, index);
  if (index > text.size() && isTooLong(index - 1ull + overlay.size()))
    return refusedEdit(run, call);
  const bool isNothing = overlay.size() == 0 && index <= text.size();
  return {isNothing ? Outcome::unchanged : Outcome::built, reference::overlayWith(text, overlay.text(), index, pad),
          run, call};
}

Edit remove(const std::string& text, RandomTexts& random)
{
  const unsigned start = random.position(text.size());
  const unsigned count = random.position(text.size());
  const auto run = [=](IBuffer& b) { return b.remove(start, count); };
  const bool isNothing = start > text.size() || text.empty();
  return {isNothing ? Outcome::unchanged : Outcome::built, reference::remove(text, start, count), run,
          callOf("remove", start, count)};
}

Edit copy(const std::string& text, RandomTexts& random)
{
  const unsigned count = random.onceIn(20) ? largest - random.below(3) : random.below(10);
  const auto run = [=](IBuffer& b) { return b.copy(count); };
  const std::string call = callOf("copy", count);
  if (text.empty() || count == 1)
    return {Outcome::unchanged, text, run, call};
  if (isTooLong(static_cast<unsigned long long>(count) * text.size()))
    return refusedEdit(run, call);
  return {Outcome::built, reference::copy(text, count), run, call};
}

Edit reverse(const std::string& text, RandomTexts&)
{
  return {text.size() < 2 ? Outcome::unchanged : Outcome::edited, reference::reverse(text),
          [](IBuffer& b) { return b.reverse(); }, "reverse()"};
}

// No letter stays the same in the other case, so an equal text means that nothing was found.
Edit lowerCase(const std::string& text, RandomTexts&)
{
  const std::string expected = reference::lowerCase(text);
  return {expected == text ? Outcome::unchanged : Outcome::edited, expected, [](IBuffer& b) { return b.lowerCase(); },
          "lowerCase()"};
}

Edit upperCase(const std::string& text, RandomTexts&)
{
  const std::string expected = reference::upperCase(text);
  return {expected == text ? Outcome::unchanged : Outcome::edited, expected, [](IBuffer& b) { return b.upperCase(); },
          "upperCase()"};
}

Outcome outcomeOfStrip(const std::string& text, const std::string& expected)
{
  return expected == text ? Outcome::unchanged : Outcome::built;
}

Edit stripSet(const std::string& text, RandomTexts& random)
{
  const Argument set = argument(text, random, random.textLike(text, 2));
  const unsigned mode = random.below(4);
  const std::string expected = reference::strip(text, set.text(), static_cast<int>(mode));
  return {outcomeOfStrip(text, expected), expected,
          [=](IBuffer& b) { return b.strip(set.in(b), set.size(), static_cast<IStringEnum::StripMode>(mode)); },
          callOf("strip", set, mode)};
}

int isNegativeOrA(int character)
{
  return character < 0 || character == 'a';
}

Edit stripTest(const std::string& text, RandomTexts& random)
{
  int (*const tests[])(int) = {isspace, isalpha, isdigit, isNegativeOrA};
  int (*const test)(int) = tests[random.below(4)];
  const unsigned mode = random.below(4);
  const std::string expected = reference::strip(text, test, static_cast<int>(mode));
  return {outcomeOfStrip(text, expected), expected,
          [=](IBuffer& b) { return b.strip(test, static_cast<IStringEnum::StripMode>(mode)); },
          callOf("strip by test", mode)};
}

Edit translate(const std::string& text, RandomTexts& random)
{
  const Argument input = argument(text, random, random.textLike(text, 5));
  const Argument output = argument(text, random, random.textLike("xyz", 5));
  const char pad = random.byte();
  const bool isFound = reference::indexOfAnyOf(text, input.text()) != 0;
  return {isFound ? Outcome::edited : Outcome::unchanged, reference::translate(text, input.text(), output.text(), pad),
          [=](IBuffer& b) { return b.translate(input.in(b), input.size(), output.in(b), output.size(), pad); },
          callOf("translate", input, output)};
}

Edit change(const std::string& text, RandomTexts& random)
{
  const Argument pattern = argument(text, random, random.needleFor(text));
  const bool isEqualLength = random.onceIn(2);
  std::string own = random.text("ab", 6);
  if (isEqualLength)
    own.resize(pattern.size(), 'x');
  const Argument replacement = isEqualLength ? Argument(own) : argument(text, random, own);
  const unsigned start = random.onceIn(2) ? 1 : random.position(text.size());
  const unsigned limit = random.limit();
  const bool isFound = limit > 0 && reference::indexOf(text, pattern.text(), start) != 0;
  const Outcome whenFound = pattern.size() == replacement.size() ? Outcome::edited : Outcome::built;
  return {isFound ? whenFound : Outcome::unchanged,
          reference::change(text, pattern.text(), replacement.text(), start, limit),
          [=](IBuffer& b) {
            return b.change(pattern.in(b), pattern.size(), replacement.in(b), replacement.size(), start, limit);
          },
          callOf("change", pattern, replacement, start, limit)};
}

// Pattern and replacement from within the text, of one length: while the text is edited in place, both are edited with
// it.
Edit changeByOwnParts(const std::string& text, RandomTexts& random)
{
  const unsigned size = static_cast<unsigned>(text.size());
  const unsigned length = size == 0 ? 0 : 1 + random.below(size > 3 ? 3 : size);
  const unsigned patternAt = random.below(size - length + 1);
  const unsigned replacementAt = random.below(size - length + 1);
  const std::string pattern = text.substr(patternAt, length);
  return {length > 0 ? Outcome::edited : Outcome::unchanged,
          reference::change(text, pattern, text.substr(replacementAt, length)),
          [=](IBuffer& b) {
            return b.change(b.contents() + patternAt, length, b.contents() + replacementAt, length, 1, largest);
          },
          callOf("change by own parts", patternAt, replacementAt, length)};
}

struct OperationRow {
  const char* name;
  Edit (*make)(const std::string&, RandomTexts&);
};

const OperationRow operations[] = {
  {"center", center},       {"leftJustify", leftJustify}, {"rightJustify", rightJustify},
  {"insert", insert},       {"overlayWith", overlayWith}, {"remove", remove},
  {"copy", copy},           {"reverse", reverse},         {"lowerCase", lowerCase},
  {"upperCase", upperCase}, {"stripSet", stripSet},       {"stripTest", stripTest},
  {"translate", translate}, {"change", change},           {"changeByOwnParts", changeByOwnParts},
};

// ---------------------------------------------------------------------------------------------------------------------
// Checks

class EditingContract : public testing::TestWithParam<OperationRow> {
protected:
  static constexpr int rounds = 2000;

  /// Calls `check` with many texts, each with a call of the operation.
  template <class Check>
  void forManyEdits(Check check)
  {
    RandomTexts random;
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
      const std::string text = random.text();
      const Edit edit = GetParam().make(text, random);
      SCOPED_TRACE(edit.call + " of " + quelmcl_test::quoted(text));
      check(text, edit);
    }
  }

  CountingHook hook;

private:
  InstalledHook installed{hook};  // keeps the reports of refused lengths off the screen
};

INSTANTIATE_TEST_SUITE_P(Operations, EditingContract, testing::ValuesIn(operations),
                         [](const testing::TestParamInfo<OperationRow>& row) { return std::string(row.param.name); });

/// Checks a result that is not the receiver.
void expectNew(IBuffer* result, const IBuffer& receiver, const std::string& expected)
{
  EXPECT_NE(result, &receiver);
  if (expected.empty())
    EXPECT_EQ(result, receiver.null());
  else
    EXPECT_TEXT(result, expected, 1);
}

TEST_P(EditingContract, HoldsForASoleOwner)
{
  forManyEdits([](const std::string& text, const Edit& edit) {
    const Owned receiver(SingleByteBuffer::holding(text));
    const unsigned nullCount = receiver->null()->useCount();
    if (edit.outcome == Outcome::refused) {
      EXPECT_EQ(errorIdOf([&] { edit.run(*receiver)->removeRef(); }), tooLong);
      EXPECT_TEXT(*receiver, text, 1);
      return;
    }
    const Owned result(edit.run(*receiver));
    EXPECT_TEXT(*result, edit.expected);
    if (edit.outcome == Outcome::built) {
      expectNew(result.get(), *receiver, edit.expected);
      EXPECT_TEXT(*receiver, text, 1);
      EXPECT_EQ(receiver->null()->useCount(), nullCount + (edit.expected.empty() ? 1 : 0));
      return;
    }
    EXPECT_EQ(result.get(), receiver.get());
    EXPECT_EQ(receiver->useCount(), 2u);
  });
}

TEST_P(EditingContract, HoldsForASharedText)
{
  forManyEdits([](const std::string& text, const Edit& edit) {
    const Owned receiver(SingleByteBuffer::holding(text));
    const Owned sharer(receiver->addRef());
    if (edit.outcome == Outcome::refused) {
      EXPECT_EQ(errorIdOf([&] { edit.run(*receiver)->removeRef(); }), tooLong);
      EXPECT_TEXT(*receiver, text, 2);
      return;
    }
    const Owned result(edit.run(*receiver));
    EXPECT_TEXT(*result, edit.expected);
    if (edit.outcome == Outcome::unchanged) {
      EXPECT_EQ(result.get(), receiver.get());
      EXPECT_TEXT(*receiver, text, 3);
      return;
    }
    expectNew(result.get(), *receiver, edit.expected);
    EXPECT_TEXT(*receiver, text, 2);
  });
}

TEST_P(EditingContract, AllocatesATextOnlyForANewOne)
{
  forManyEdits([](const std::string& text, const Edit& edit) {
    if (edit.outcome == Outcome::refused)
      return;
    const Owned receiver(SingleByteBuffer::holding(text));
    const int before = SingleByteBuffer::allocations;
    const Owned result(edit.run(*receiver));
    const int expected = edit.outcome == Outcome::built && !edit.expected.empty() ? 1 : 0;
    EXPECT_EQ(SingleByteBuffer::allocations - before, expected);
  });
}

TEST_P(EditingContract, GivesTheSameTextsInTheKindOfThisProcess)
{
  forManyEdits([](const std::string& text, const Edit& edit) {
    // A kind that steps from character to character may end a translated text at its first NUL.
    const bool hasNul = text.find('\0') != std::string::npos;
    if (hasNul && GetParam().make == translate)
      return;
    const Owned receiver(ofThisProcess(text));
    const Owned sharer(receiver->addRef());
    if (edit.outcome == Outcome::refused)
      EXPECT_EQ(errorIdOf([&] { edit.run(*receiver)->removeRef(); }), tooLong);
    else
      EXPECT_TEXT(*Owned(edit.run(*receiver)), edit.expected);
    EXPECT_TEXT(*sharer, text);
  });
}

/// Runs the edit again and again, its first allocation failing, then its second, and so on until it needs no more. Each
/// failure must leave the text and its `count` references as they were. Returns how many times the edit failed.
int failEveryAllocation(const std::string& text, const Edit& edit, IBuffer& receiver, unsigned count)
{
  for (int failedSoFar = 0;; ++failedSoFar) {
    IBuffer* result = nullptr;
    unsigned long failures = 0;
    const AllocationWatch watch;
    {
      FailingAllocations scope(static_cast<unsigned long>(failedSoFar) + 1);
      try {
        result = edit.run(receiver);
      } catch (const IOutOfMemory&) {
      }
      failures = scope.failures();
    }
    if (result != nullptr) {
      EXPECT_EQ(failures, 0u);
      EXPECT_TEXT(*Owned(result), edit.expected);
      return failedSoFar;
    }
    EXPECT_GT(failures, 0u);
    EXPECT_EQ(watch.liveBlocks(), 0);
    EXPECT_TEXT(receiver, text, count);
    if (testing::Test::HasFailure())
      return failedSoFar;
  }
}

TEST_P(EditingContract, LeavesAllAsItWasWithoutStorage)
{
  IBuffer::defaultBuffer();  // the null buffers are made once in a process; that is no leak
  int failedEdits = 0;
  forManyEdits([&failedEdits](const std::string& text, const Edit& edit) {
    if (edit.outcome == Outcome::refused)
      return;
    const Owned shared(SingleByteBuffer::holding(text));
    const Owned sharer(shared->addRef());
    failedEdits += failEveryAllocation(text, edit, *shared, 2);
    const Owned soleOwners(SingleByteBuffer::holding(text));
    failEveryAllocation(text, edit, *soleOwners, 1);
  });
  EXPECT_GT(failedEdits, 0);
}

// ---------------------------------------------------------------------------------------------------------------------
// Single rules of the contract

TEST(EditingResult, OfNothingToDoIsTheReceiverWithOneReferenceMore)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  for (const int more : {1, 2}) {
    IBuffer* const result = text->center(3, ' ');
    EXPECT_EQ(result, text.get());
    EXPECT_EQ(text->useCount(), 2u) << more;
    result->removeRef();
  }
}

TEST(EditingResult, OfRemovingNothingIsStillANewBuffer)
{
  const Owned text(SingleByteBuffer::holding("abc"));
  const Owned result(text->remove(2, 0));
  EXPECT_NE(result.get(), text.get());
  EXPECT_TEXT(*result, "abc", 1);
}

TEST(EditingResult, OfNoCopiesIsTheNullBuffer)
{
  const Owned text(SingleByteBuffer::holding("ab"));
  const unsigned count = text->null()->useCount();
  const Owned result(text->copy(0));
  EXPECT_EQ(result.get(), text->null());
  EXPECT_EQ(text->null()->useCount(), count + 1);
}

TEST(EditingResult, OfStrippingAllIsTheNullBufferInEveryMode)
{
  for (const IStringEnum::StripMode mode : {IStringEnum::leading, IStringEnum::trailing, IStringEnum::both}) {
    const Owned text(SingleByteBuffer::holding("   "));
    const unsigned count = text->null()->useCount();
    const Owned result(text->strip(" ", 1, mode));
    EXPECT_EQ(result.get(), text->null()) << mode;
    EXPECT_EQ(text->null()->useCount(), count + 1) << mode;
  }
}

TEST(EditingResult, OfChangingATextToItselfIsStillEdited)
{
  const Owned text(SingleByteBuffer::holding("aba"));
  const Owned sharer(text->addRef());
  const Owned result(text->change("a", 1, "a", 1, 1, largest));
  EXPECT_NE(result.get(), text.get());
  EXPECT_TEXT(*result, "aba", 1);
}

TEST(EditingResult, OfEditingASoleOwnerIsTheSameBlock)
{
  const Owned text(SingleByteBuffer::holding("Abc"));
  const char* const before = text->contents();
  text->lowerCase()->removeRef();
  EXPECT_TEXT(*text, "abc", 1);
  text->upperCase()->removeRef();
  EXPECT_TEXT(*text, "ABC", 1);
  text->reverse()->removeRef();
  EXPECT_TEXT(*text, "CBA", 1);
  text->translate("AB", 2, "xy", 2, ' ')->removeRef();
  EXPECT_TEXT(*text, "Cyx", 1);
  text->change("yx", 2, "12", 2, 1, largest)->removeRef();
  EXPECT_TEXT(*text, "C12", 1);
  EXPECT_EQ(text->contents(), before);
}

TEST(EditingResult, OfCaseMappingAndReversalInPlaceNeedsNoStorageAtAll)
{
  const Owned text(SingleByteBuffer::holding("Abc"));
  unsigned long attempts = 0;
  {
    FailingAllocations scope(1);
    text->lowerCase()->removeRef();
    text->upperCase()->removeRef();
    text->reverse()->removeRef();
    attempts = scope.attempts();
  }
  EXPECT_EQ(attempts, 0u);
  EXPECT_TEXT(*text, "CBA", 1);
}

// The null buffer is every empty text: an operation that wrote into it would be seen by all of them.
TEST(EditingResult, OfTheNullBufferIsTheNullBufferOrANewText)
{
  IBuffer* const null = IBuffer::defaultBuffer();
  EXPECT_EQ(Owned(null->reverse()).get(), null);
  EXPECT_EQ(Owned(null->lowerCase()).get(), null);
  EXPECT_EQ(Owned(null->copy(5)).get(), null);
  EXPECT_EQ(Owned(null->strip(" ", 1, IStringEnum::both)).get(), null);
  EXPECT_EQ(Owned(null->change("a", 1, "b", 1, 1, largest)).get(), null);
  EXPECT_TEXT(*Owned(null->insert("abc", 3, 0, ' ')), "abc", 1);
  EXPECT_TEXT(*Owned(null->leftJustify(2, '*')), "**", 1);
  EXPECT_TEXT(*null, "");
}

}  // namespace
