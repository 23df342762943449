// failure_operations.cpp - exceptions, messages, error information, traces: what is used when something has failed already. Nothing of it
// throws for lack of storage, except that error information needs a text.
#include "operations.hpp"

#include <cerrno>

namespace faulttests {

namespace {

const IExceptionLocation here("file", "function", 7);

/// Switches tracing on for the length of a block, to standard error.
class TracingOn {
public:
  TracingOn()
  {
    ITraceSetup::initialize();
    ITrace::enableTrace();
    ITrace::writeToStandardError();
  }
  ~TracingOn() { ITrace::disableTrace(); }
  TracingOn(const TracingOn&) = delete;
  TracingOn& operator=(const TracingOn&) = delete;
};

}  // namespace

const std::vector<Operation> failureOperations = {
  // exceptions
  {"ExceptionFromText", quiet,
   [](World& w) {
     const IDeviceError made("text", 5, IException::recoverable);
     REQUIRE_OF(w, made.errorId() == 5 && made.isRecoverable() && made.textCount() <= 1);
   }},
  {"ExceptionWithoutText", needsNone, [](World& w) { REQUIRE_OF(w, IException(nullptr, 5).text() == nullptr); }},
  {"ExceptionCopy", quiet,
   [](World& w) {
     IException source("oldest", 5);
     source.setText("middle").setText("newest").addLocation(here);
     const IException copy(source);
     REQUIRE_OF(w, copy.errorId() == 5 && copy.locationCount() == 1 && copy.textCount() == source.textCount());
   }},
  {"ExceptionSetText", quiet,
   [](World& w) {
     IException made(nullptr, 5);
     made.setText("one").setText("two").setText("three");
     REQUIRE_OF(w, made.textCount() <= 3 && made.errorId() == 5);
   }},
  {"ExceptionAppendText", quiet,
   [](World& w) {
     IException made("one", 5);
     made.appendText(" and two").appendText(" and three");
     REQUIRE_OF(w, made.errorId() == 5);
   }},
  {"ExceptionTextLevel", quiet,
   [](World&) {
     IExcText level("text", new (std::nothrow) IExcText("older"));
     level.appendText(" appended");
     const IExcText copy(level);
   }},
  {"ExceptionLogged", quiet,
   [](World& w) {
     const TracingOn tracing;
     w.failure.logExceptionData();
   }},
  {"ExceptionThrown", quiet,
   [](World& w) { requireFailure<IDeviceError>(w, 5, [] { quelmcl::throwAt(here, IDeviceError("text", 5)); }); }},
  {"ExceptionThrownOn", quiet,
   [](World& w) {
     requireFailure<IException>(w, 31, [&w] {
       try {
         quelmcl::throwAt(here, IException("text", 31));
       } catch (IException& caught) {
         caught.setText("added");
         REQUIRE_OF(w, caught.locationCount() == 1);
         QUELMCL_RETHROW(caught);
       }
     });
   }},
  {"AssertParameter", quiet,
   [](World& w) { requireFailure<IAssertionFailure>(w, 0, [] { IException::assertParameter("a claim", here); }); }},
  {"ThrowFunctionForParameters", quiet,
   [](World& w) { requireFailure<IInvalidParameter>(w, 1, [] { IExcept__assertParameter("a claim", here); }); }},
  {"ThrowFunctionForStates", quiet,
   [](World& w) { requireFailure<IInvalidRequest>(w, 1, [] { IExcept__assertState("a claim", here); }); }},
  {"ThrowLibraryError", quiet,
   [](World& w) {
     requireFailure<IOutOfSystemResource>(w, 185, [] {
       IExcept__throwLibraryError(185, here, IBaseErrorInfo::outOfSystemResource, IException::recoverable, "text");
     });
   }},
  {"ThrowError", quiet,
   [](World& w) {
     requireFailure<IAccessError>(w, 4, [] {
       IExcept__throwError(4, here, nullptr, "group", IBaseErrorInfo::accessError, IException::recoverable,
                           "quelmcl.cat");
     });
   }},
  {"NewHandler", quiet, [](World& w) { requireFailure<IOutOfMemory>(w, 4, [] { KOLTA_Init::newHandler(); }); }},
  // messages
  {"MessageLoaded", quiet, [](World&) { const IMessageText made(4, "quelmcl.cat"); }},
  {"MessageWithInserts", quiet, [](World&) { const IMessageText made(1101, "quelmcl.cat", "one", "two", "three"); }},
  {"MessageOfNoCatalog", quiet, [](World&) { const IMessageText made(4, "/nowhere/none.cat"); }},
  {"MessageCopy", quiet, [](World& w) { const IMessageText copy(w.message); }},
  {"MessageAssignment", quiet,
   [](World& w) {
     IMessageText other(4, nullptr);
     other = w.message;
   }},
  {"MessageDefaultText", quiet, [](World&) { IMessageText(4, nullptr).setDefaultText("default"); }},
  {"MessageOfTheLibrary", quiet, [](World&) { IBase::messageText(1101, "one", "two"); }},
  {"MessageFileSet", quiet,
   [](World&) {
     IBase::setMessageFile("another.cat");
     IBase::setMessageFile("quelmcl.cat");
   }},
  // error information
  {"SystemErrorInfo", strongOrQuiet, [](World& w) { REQUIRE_OF(w, ISystemErrorInfo(5, "function").errorId() == 5); }},
  {"CLibErrorInfo", strongButForC,
   [](World& w) {
     errno = ENOENT;
     REQUIRE_OF(w, ICLibErrorInfo("function").errorId() == ENOENT);
   }},
  {"XLibErrorInfo", strong, [](World& w) { REQUIRE_OF(w, IXLibErrorInfo("function").errorId() == 0); }},
  {"GUIErrorInfo", strongOrQuiet, [](World& w) { REQUIRE_OF(w, IGUIErrorInfo("function").errorId() == 0); }},
  {"ThrowSystemError", strongOrQuiet,
   [](World& w) {
     requireFailure<IAccessError>(w, 5, [] { ISystemErrorInfo::throwSystemError(5, "function", here); });
   }},
  {"ThrowCLibError", strongOrQuiet,
   [](World& w) {
     errno = ENOENT;
     requireFailure<IAccessError>(w, ENOENT, [] { ICLibErrorInfo::throwCLibError("function", here); });
   }},
  {"ThrowXLibError", strongOrQuiet,
   [](World& w) { requireFailure<IAccessError>(w, 0, [] { IXLibErrorInfo::throwXLibError("function", here); }); }},
  {"ThrowGUIError", strongOrQuiet,
   [](World& w) { requireFailure<IAccessError>(w, 0, [] { IGUIErrorInfo::throwGUIError("function", here); }); }},
  // traces
  {"TraceWhileOff", needsNone,
   [](World& w) {
     const ITrace trace("function", 7);
     ITrace::write(w.words.text);
   }},
  {"TraceOfShortLines", needsNone,
   [](World& w) {
     const TracingOn tracing;
     const ITrace trace("function", 7);
     ITrace::write(w.words.text);
   }},
  {"TraceOfLongLines", quiet,
   [](World& w) {
     const TracingOn tracing;
     const ITrace trace("function", 7);
     ITrace::write(w.manyDigits.text);
   }},
};

std::vector<Operation> allOperations()
{
  std::vector<Operation> all;
  for (const auto* const table :
       {&stringOperations, &bufferOperations, &textOperations, &containerOperations, &failureOperations})
    all.insert(all.end(), table->begin(), table->end());
  return all;
}

}  // namespace faulttests
