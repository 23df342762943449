// new_handler_test.cpp - while exceptions and message texts allocate, the process's new-handler is out of force; afterwards it
// is back, whatever happened.
#include <quelmcl/ibase.hpp>
#include <quelmcl/iexcbase.hpp>
#include <quelmcl/imsgtext.hpp>

#include "hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;

const char catalog[] = QUELMCL_TEST_CATALOGS "/variables.cat";

struct Given {
  Given() : exception("a", 5, IException::recoverable), empty(nullptr), loaded(1, catalog), fallback(1, nullptr)
  {
    exception.setText("b").setText("c");
  }
  IException exception;
  IException empty;
  IMessageText loaded;
  IMessageText fallback;
};

struct OperationCase {
  const char* name;
  void (*run)(Given& given);
};

const OperationCase operationCases[] = {
  {"BuildingWithAText", [](Given&) { IException("text"); }},
  {"BuildingWithoutAText", [](Given&) { IException(nullptr); }},
  {"BuildingADerivedClass", [](Given&) { IOutOfMemory("text", 4); }},
  {"BuildingATextLevel", [](Given&) { IExcText("text"); }},
  {"CopyingATextLevel",
   [](Given&) {
     const IExcText level("text");
     IExcText copy(level);
   }},
  {"SettingAText", [](Given& given) { given.exception.setText("text"); }},
  {"SettingNull", [](Given& given) { given.exception.setText(nullptr); }},
  {"AppendingAText", [](Given& given) { given.exception.appendText("text"); }},
  {"AppendingNull", [](Given& given) { given.exception.appendText(nullptr); }},
  {"AppendingToNoText", [](Given& given) { given.empty.appendText("text"); }},
  {"Copying", [](Given& given) { IException copy(given.exception); }},
  {"CopyingAnExceptionWithoutText", [](Given& given) { IException copy(given.empty); }},
  {"Logging", [](Given& given) { given.exception.logExceptionData(); }},
  {"LoggingAnExceptionWithoutText", [](Given& given) { given.empty.logExceptionData(); }},
  {"LoadingAMessage", [](Given&) { IMessageText(2, catalog, "x", "y"); }},
  {"LoadingAMessageThatIsMissing", [](Given&) { IMessageText(9999, catalog); }},
  {"LoadingFromACatalogThatIsMissing", [](Given&) { IMessageText(1, "/nowhere/none.cat"); }},
  {"LoadingFromNoCatalog", [](Given&) { IMessageText(1, nullptr); }},
  {"CopyingAMessage", [](Given& given) { IMessageText copy(given.loaded); }},
  {"AssigningAMessage", [](Given& given) { given.fallback = given.loaded; }},
  {"SettingADefaultText", [](Given& given) { given.fallback.setDefaultText("text"); }},
  {"SettingADefaultTextInVain", [](Given& given) { given.loaded.setDefaultText("text"); }},
  {"SettingANullDefaultText", [](Given& given) { given.fallback.setDefaultText(nullptr); }},
  {"LoadingAMessageOfTheLibrary", [](Given&) { IBase::messageText(1, "x"); }},
};

class NewHandlerDuring : public testing::TestWithParam<OperationCase> {
protected:
  NewHandlerDuring() : installed(hook) {}

  static void SetUpTestSuite() { IBase::messageFile(); }  // read once in a process, which is another test's business

  CountingHook hook;
  InstalledHook installed;
};

TEST_P(NewHandlerDuring, IsInForceAgainAfterwards)
{
  Given given;
  CountingNewHandler handler;
  GetParam().run(given);
  EXPECT_TRUE(handler.isInForce());
}

TEST_P(NewHandlerDuring, IsNotCalledAndIsInForceAgainWhenStorageRunsOut)
{
  CapturedStandardError quiet;  // reports without storage for a line end up there
  for (unsigned long nth = 1; nth <= 8; ++nth) {
    for (const FailingAllocations::Extent extent : {FailingAllocations::andAllLater, FailingAllocations::andNoOther}) {
      Given given;
      CountingNewHandler handler;
      bool hasThrown = false;
      try {
        FailingAllocations scope(nth, extent);
        GetParam().run(given);
      } catch (const std::bad_alloc&) {
        hasThrown = true;
      }
      EXPECT_EQ(handler.calls(), 0) << "allocation " << nth;
      EXPECT_TRUE(handler.isInForce()) << "allocation " << nth;
      EXPECT_FALSE(hasThrown) << "allocation " << nth;
    }
  }
}

TEST_P(NewHandlerDuring, StaysAbsentWhenThereWasNone)
{
  Given given;
  const std::new_handler before = std::set_new_handler(nullptr);
  GetParam().run(given);
  EXPECT_EQ(std::get_new_handler(), nullptr);
  std::set_new_handler(before);
}

INSTANTIATE_TEST_SUITE_P(Operations, NewHandlerDuring, testing::ValuesIn(operationCases),
                         [](const testing::TestParamInfo<OperationCase>& row) { return std::string(row.param.name); });

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
class HookThatLooks : public IException::TraceFn {
public:
  HookThatLooks() : writes(0), handlersDuringWrite(0) {}
  void write(const char*) override
  {
    ++writes;
    if (std::get_new_handler() != nullptr)
      ++handlersDuringWrite;
  }
  int writes;
  int handlersDuringWrite;
};

class HookThatThrows : public IException::TraceFn {
public:
  void write(const char*) override { throw std::runtime_error("cannot write"); }
};

class HookThatThrowsLater : public CountingHook {
protected:
  void exceptionLogged() override { throw std::runtime_error("cannot finish"); }
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

TEST(NewHandlerDuringAReport, IsOutOfForce)
{
  HookThatLooks hook;
  InstalledHook installed(hook);
  IException exception("a");
  CountingNewHandler handler;
  exception.logExceptionData();
  EXPECT_EQ(hook.writes, 5);
  EXPECT_EQ(hook.handlersDuringWrite, 0);
  EXPECT_TRUE(handler.isInForce());
}

TEST(NewHandlerDuringAReport, IsInForceAgainWhenTheHookThrows)
{
  HookThatThrows hook;
  InstalledHook installed(hook);
  IException exception("a");
  CountingNewHandler handler;
  EXPECT_THROW(exception.logExceptionData(), std::runtime_error);
  EXPECT_TRUE(handler.isInForce());
}

TEST(NewHandlerDuringAReport, IsInForceAgainWhenTheHookThrowsAfterTheReport)
{
  HookThatThrowsLater hook;
  InstalledHook installed(hook);
  IException exception("a");
  CountingNewHandler handler;
  EXPECT_THROW(exception.logExceptionData(), std::runtime_error);
  EXPECT_TRUE(handler.isInForce());
}

/// A hook in which two threads meet: the first waits for the second to come in, and the second for the first to leave.
QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
class MeetingHook : public IException::TraceFn {
public:
  void write(const char*) override
  {
    if (isFirst()) {
      firstIsInside = true;
      waitFor(secondIsInside);
    } else {
      secondIsInside = true;
      waitFor(firstIsGone);
    }
  }

  static bool& isFirst()
  {
    thread_local bool answer = false;
    return answer;
  }
  static void waitFor(const std::atomic<bool>& condition)
  {
    while (!condition)
      std::this_thread::yield();
  }

  std::atomic<bool> firstIsInside{false};
  std::atomic<bool> secondIsInside{false};
  std::atomic<bool> firstIsGone{false};
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

TEST(NewHandlerDuringAReport, IsInForceAgainAfterTwoThreadsHaveReportedAtOnce)
{
  MeetingHook hook;
  InstalledHook installed(hook);
  CountingNewHandler handler;
  std::thread first([&hook] {
    MeetingHook::isFirst() = true;
    IException("a").logExceptionData();
    hook.firstIsGone = true;
  });
  std::thread second([&hook] {
    MeetingHook::waitFor(hook.firstIsInside);
    IException("b").logExceptionData();
  });
  first.join();
  second.join();
  EXPECT_TRUE(handler.isInForce());
}

TEST(NewHandlerDuringAReport, IsInForceWhenTheExceptionArrives)
{
  CountingHook hook;
  InstalledHook installed(hook);
  CountingNewHandler handler;
  try {
    IException::assertParameter("a", IExceptionLocation("file.cpp", "work", 1));
  } catch (const IAssertionFailure&) {
    EXPECT_TRUE(handler.isInForce());
    EXPECT_EQ(handler.calls(), 0);
  }
}

}  // namespace
