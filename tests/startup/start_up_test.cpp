// start_up_test.cpp - what is installed before the main function: the hook and the new-handler, and what each does.
#include <quelmcl/iexcept.hpp>
#include <quelmcl/istartup.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/itrace.hpp>

#include "exceptions/hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;

static_assert(std::is_base_of<IException::TraceFn, KOLTA_Init>::value, "it is a hook");
static_assert(!std::is_default_constructible<KOLTA_Init>::value, "there is one, and the library makes it");
static_assert(!std::is_copy_constructible<KOLTA_Init>::value, "and it stays the only one");

// Looked at before any test and any other static object of this program could have changed them.
const std::new_handler handlerBeforeMain = std::get_new_handler();
IException::TraceFn* const hookBeforeMain = IExceptStaticPtr::traceFunction();

TEST(StartUp, InstallsTheNewHandlerBeforeMain)
{
  EXPECT_EQ(handlerBeforeMain, KOLTA_Init::newHandler);
  EXPECT_EQ(std::get_new_handler(), KOLTA_Init::newHandler);
}

TEST(StartUp, InstallsTheHookBeforeMain)
{
  EXPECT_NE(dynamic_cast<KOLTA_Init*>(hookBeforeMain), nullptr);
  EXPECT_EQ(IExceptStaticPtr::traceFunction(), hookBeforeMain);
}

// Explicit instantiation may name private members.
template <IExceptStaticPtr* registry, IException::TraceFn* IExceptStaticPtr::*fallback>
struct Registry {
  friend IException::TraceFn* fallbackHook() { return registry->*fallback; }
};
IException::TraceFn* fallbackHook();
template struct Registry<&IExceptStaticPtr::registry, &IExceptStaticPtr::pTraceFn>;

TEST(StartUp, HasFoundTheFallbackHookMade)
{
  const IException::TraceFn* const fallback = fallbackHook();
  ASSERT_NE(fallback, nullptr);
  const IException::TraceFn& hook = *fallback;
  EXPECT_TRUE(typeid(hook) == typeid(IExceptTraceFn));
  EXPECT_NE(fallback, hookBeforeMain);
}

TEST(StartUpHook, WritesToTheTraceWithoutAnEntryLine)
{
  ITraceSetup::initialize();
  ITrace::writeToStandardError();
  ITrace::disableWritePrefix();
  ITrace::enableTrace();
  CapturedStandardError output;
  hookBeforeMain->write("one\ntwo");
  EXPECT_EQ(output.text(), ">one\n>two\n");
  ITrace::disableTrace();
  CapturedStandardError nothing;
  hookBeforeMain->write("three");
  EXPECT_EQ(nothing.text(), "");
  ITrace::writeToStandardOutput();
}

TEST(LibrarysNewHandler, LogsAndThrowsWhatIsExhausted)
{
  RecordingHook hook;
  InstalledHook installed(hook);
  try {
    KOLTA_Init::newHandler();
  } catch (const IException& caught) {
    EXPECT_TRUE(typeid(caught) == typeid(IOutOfMemory));
    EXPECT_EQ(caught.errorId(), 4u);
    EXPECT_FALSE(caught.isRecoverable());
    EXPECT_STREQ(caught.errorCodeGroup(), "Quelm Class Library");
    ASSERT_EQ(caught.textCount(), 1u);
    EXPECT_STREQ(caught.text(), "The memory is exhausted: there is no room for what was to be stored.");
    ASSERT_EQ(caught.locationCount(), 1u);
    EXPECT_STREQ(caught.locationAtIndex(0)->fileName(), "ibase");
    EXPECT_STREQ(caught.locationAtIndex(0)->functionName(), "Unknown");
    EXPECT_EQ(caught.locationAtIndex(0)->lineNumber(), 147u);
  }
  EXPECT_EQ(hook.lines, (std::vector<std::string>{
                          "IOutOfMemory exception thrown.\n   function: Unknown\n   file: ibase\n   line: 147",
                          "   Error Id is 4",
                          "   Error Code group is Quelm Class Library",
                          "   Exception text is:",
                          "      The memory is exhausted: there is no room for what was to be stored.",
                        }));
  EXPECT_EQ(hook.reports, 1);
}

/// What an operation whose allocations fail from the `nth` on has thrown, if anything.
struct Failed {
  bool hasThrown;
  bool isRight;
  unsigned long textCount;
};

template <class Operation>
Failed failFrom(unsigned long nth, Operation operation)
{
  Failed failed = {false, false, 0};
  try {
    const FailingAllocations scope(nth);
    operation();
  } catch (const IOutOfMemory& caught) {
    const IExceptionLocation* const location = caught.locationAtIndex(0);
    failed.hasThrown = true;
    failed.isRight = caught.errorId() == 4 && !caught.isRecoverable() && location != nullptr &&
                     std::string(location->fileName()) == "ibase" && location->lineNumber() == 147;
    failed.textCount = caught.textCount();
  }
  return failed;
}

TEST(ExhaustedHeap, IsReportedWithoutItsTextWhenThereIsNoStorageForThatEither)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IBase::messageFile();
  CapturedStandardError quiet;
  const Failed failed = failFrom(1, [] { ::operator delete(::operator new(100)); });
  EXPECT_TRUE(failed.hasThrown);
  EXPECT_TRUE(failed.isRight);
  EXPECT_EQ(failed.textCount, 0u);
  EXPECT_EQ(quiet.text(),
            "IOutOfMemory exception thrown.\n"
            "   function: Unknown\n"
            "   file: ibase\n"
            "   line: 147.\n"
            "   Error ID is 4\n"
            " Error Code group is Quelm Class Library\n"
            "   Exception text is unavailable.\n");
}

TEST(ExhaustedHeap, IsTheSameExceptionAtEveryAllocation)
{
  CountingHook hook;
  InstalledHook installed(hook);
  IBase::messageFile();
  const IString text("a text that needs a buffer of its own");
  unsigned long nth = 1;
  for (;; ++nth) {
    CapturedStandardError quiet;
    const AllocationWatch watch;
    const Failed failed = failFrom(nth, [&] {
      const IString longer = text + text;
      const IString changed = IString::change(longer, "a", "bcd");
      const IString spaced = IString::space(changed);
    });
    const long live = watch.liveBlocks();
    EXPECT_EQ(live, 0) << "allocation " << nth;
    if (!failed.hasThrown)
      break;
    EXPECT_TRUE(failed.isRight) << "allocation " << nth;
    EXPECT_EQ(std::get_new_handler(), KOLTA_Init::newHandler) << "allocation " << nth;
  }
  EXPECT_GE(nth, 4u);
}

TEST(ExhaustedHeap, IsAMissingBlockForThoseWhoAskForThat)
{
  CountingHook hook;
  InstalledHook installed(hook);
  CapturedStandardError quiet;
  const FailingAllocations scope(1);
  EXPECT_EQ(::operator new(100, std::nothrow), nullptr);
}

// ---- living beside std::exception and std::bad_alloc, as the documentation tells ----

std::string handledByBoth(void (*work)())
{
  try {
    work();
  } catch (const IException& failure) {
    return std::string("library: ") + failure.name();
  } catch (const std::exception& failure) {
    return std::string("standard: ") + failure.what();
  }
  return "nothing";
}

void throwOfTheLibrary()
{
  IExcept__assertParameter("x", IExceptionLocation("file.cpp", "work", 1));
}

void throwOfTheStandard()
{
  throw std::bad_alloc();
}

void exhaust()
{
  const FailingAllocations scope(1);
  ::operator delete(::operator new(100));
}

TEST(TwoHandlers, SeeBothFamilies)
{
  CountingHook hook;
  InstalledHook installed(hook);
  CapturedStandardError quiet;
  EXPECT_EQ(handledByBoth(throwOfTheLibrary), "library: IInvalidParameter");
  EXPECT_EQ(handledByBoth(throwOfTheStandard), "standard: std::bad_alloc");
  EXPECT_EQ(handledByBoth(exhaust), "library: IOutOfMemory");
}

template <class Work>
void withStandardExceptions(Work work)
{
  try {
    work();
  } catch (const IOutOfMemory&) {
    throw std::bad_alloc();
  }
}

TEST(TwoHandlers, CanTranslateForCodeThatKnowsOnlyOne)
{
  CountingHook hook;
  InstalledHook installed(hook);
  CapturedStandardError quiet;
  EXPECT_EQ(handledByBoth([] { withStandardExceptions(exhaust); }), "standard: std::bad_alloc");
}

TEST(TwoHandlers, AreNotNeededForTheHeapOnceTheProgramHasTakenTheNewHandlerAway)
{
  CountingHook hook;
  InstalledHook installed(hook);
  const std::new_handler librarys = std::set_new_handler(nullptr);
  EXPECT_EQ(handledByBoth(exhaust), "standard: std::bad_alloc");
  EXPECT_EQ(handledByBoth([] {
              const FailingAllocations scope(1);
              IString("a text that needs a buffer of its own");
            }),
            "standard: std::bad_alloc");
  std::set_new_handler(librarys);
  EXPECT_EQ(handledByBoth([] {
              const CapturedStandardError quiet;
              exhaust();
            }),
            "library: IOutOfMemory");
}

}  // namespace
