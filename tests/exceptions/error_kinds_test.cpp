// error_kinds_test.cpp - the four kinds of error information: texts, numbers, what they throw and with which group.
#include <quelmcl/ibase.hpp>
#include <quelmcl/ierrinfo.hpp>
#include <quelmcl/iexcept.hpp>
#include <quelmcl/imsgtext.hpp>
#include <quelmcl/istring.hpp>

#include "hooks.hpp"
#include "support/captured_stderr.hpp"
#include "support/failing_allocations.hpp"

#include <gtest/gtest.h>

#include <cerrno>
#include <clocale>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fstream>
#include <functional>
#include <libintl.h>
#include <memory>
#include <new>
#include <string>
#include <sys/stat.h>
#include <type_traits>
#include <typeinfo>
#include <unistd.h>
#include <vector>

// The C library has a text for every number. This one, which hides it from the library under test, can be told to have none.
static bool hasTexts = true;
static int textsAskedFor = 0;

extern "C" char* strerror(int number) noexcept
{
  static char none[] = "";
  static const auto real = reinterpret_cast<char* (*)(int)>(dlsym(RTLD_NEXT, "strerror"));
  ++textsAskedFor;
  errno = EXDEV;  // as any call of the C library may do
  return hasTexts ? real(number) : none;
}

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::CapturedStandardError;
using quelmcl_test::FailingAllocations;

template <class Kind>
constexpr bool isBuiltAskedAndGone()
{
  return std::is_base_of<IBaseErrorInfo, Kind>::value && !std::is_copy_constructible<Kind>::value &&
         !std::is_copy_assignable<Kind>::value && !std::is_convertible<const char*, Kind>::value;
}
static_assert(isBuiltAskedAndGone<ISystemErrorInfo>(), "");
static_assert(isBuiltAskedAndGone<ICLibErrorInfo>(), "");
static_assert(isBuiltAskedAndGone<IXLibErrorInfo>(), "");
static_assert(isBuiltAskedAndGone<IGUIErrorInfo>(), "");

const char unavailable[] = "Unable to load text from message file.";

std::string libraryMessage(unsigned long number)
{
  return IBase::messageText(number).text();
}

std::string realText(int number)
{
  const std::string text = strerror(number);
  textsAskedFor = 0;
  return text;
}

// ---- the C library ----

ICLibErrorInfo* infoFor(int number, const char* function)
{
  errno = number;
  return new ICLibErrorInfo(function);
}

TEST(CLibErrorInfo, HasTheNumberAndTextOfErrno)
{
  for (const int number : {0, 2, 13, 133, 9999, -1}) {
    const std::string text = realText(number);
    errno = number;
    const ICLibErrorInfo info(nullptr);
    EXPECT_EQ(info.text(), text);
    EXPECT_EQ(info.errorId(), static_cast<unsigned>(number));
    EXPECT_TRUE(info.isAvailable());
  }
}

TEST(CLibErrorInfo, BeginsWithTheFunctionAndAColon)
{
  const std::string text = realText(ENOENT);
  errno = ENOENT;
  const ICLibErrorInfo info("fopen");
  EXPECT_EQ(info.text(), "fopen:" + text);
}

TEST(CLibErrorInfo, MayHaveAnEmptyFunction)
{
  const std::string text = realText(ENOENT);
  errno = ENOENT;
  const ICLibErrorInfo info("");
  EXPECT_EQ(info.text(), ":" + text);
}

TEST(CLibErrorInfo, ReadsErrnoBeforeAnythingChangesIt)
{
  errno = EDOM;
  const ICLibErrorInfo info("work");
  const int afterwards = errno;
  EXPECT_EQ(info.errorId(), static_cast<unsigned>(EDOM));  // although asking for the text has set another
  EXPECT_EQ(afterwards, EDOM);
}

TEST(CLibErrorInfo, AsksForTheTextOnce)
{
  textsAskedFor = 0;
  const ICLibErrorInfo info("work");
  EXPECT_STRNE(info.text(), "");
  EXPECT_EQ(textsAskedFor, 1);
}

TEST(CLibErrorInfo, SaysSoWhenThereIsNoText)
{
  hasTexts = false;
  const std::unique_ptr<ICLibErrorInfo> bare(infoFor(ENOENT, nullptr));
  const std::unique_ptr<ICLibErrorInfo> ofFunction(infoFor(ENOENT, "fopen"));
  hasTexts = true;
  EXPECT_STREQ(bare->text(), "No Error text is available");
  EXPECT_STREQ(ofFunction->text(), "fopen:No Error text is available");
  EXPECT_EQ(bare->errorId(), static_cast<unsigned>(ENOENT));
  EXPECT_FALSE(bare->isAvailable());
}

TEST(CLibErrorInfo, OwnsItsText)
{
  char function[] = "fopen";
  const std::string text = realText(ENOENT);
  const std::unique_ptr<ICLibErrorInfo> info(infoFor(ENOENT, function));
  function[0] = 'p';
  static_cast<void>(realText(9998));  // a number without a name of its own, whose text the C library makes in one place
  EXPECT_EQ(info->text(), "fopen:" + text);
}

void put(std::ofstream& stream, std::uint32_t number)
{
  stream.write(reinterpret_cast<const char*>(&number), sizeof number);
}

/// A catalog of translations as the C library reads them, with one text in it.
void writeTranslation(const std::string& fileName, const std::string& from, const std::string& to)
{
  std::ofstream stream(fileName, std::ios::binary);
  const std::uint32_t table = 28;
  const std::uint32_t texts = table + 16;
  for (const std::uint32_t number : {0x950412DEu, 0u, 1u, table, table + 8, 0u, texts})
    put(stream, number);
  put(stream, static_cast<std::uint32_t>(from.size()));
  put(stream, texts);
  put(stream, static_cast<std::uint32_t>(to.size()));
  put(stream, static_cast<std::uint32_t>(texts + from.size() + 1));
  stream << from << '\0' << to << '\0';
}

TEST(CLibErrorInfo, SpeaksTheLanguageOfTheLocaleInForce)
{
  const std::string before = std::setlocale(LC_ALL, nullptr);
  const std::string english = realText(ENOENT);
  std::string folder = testing::TempDir() + "translationsXXXXXX";
  ASSERT_NE(mkdtemp(&folder[0]), nullptr);
  for (const char* const below : {"/de", "/de/LC_MESSAGES"})
    mkdir((folder + below).c_str(), 0700);
  writeTranslation(folder + "/de/LC_MESSAGES/libc.mo", english, "Die Datei fehlt");
  bindtextdomain("libc", folder.c_str());
  ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr);
  const std::unique_ptr<ICLibErrorInfo> german(infoFor(ENOENT, "fopen"));
  std::setlocale(LC_ALL, before.c_str());
  const std::unique_ptr<ICLibErrorInfo> again(infoFor(ENOENT, "fopen"));
  EXPECT_STREQ(german->text(), "fopen:Die Datei fehlt");
  EXPECT_EQ(again->text(), "fopen:" + english);
  unlink((folder + "/de/LC_MESSAGES/libc.mo").c_str());
  for (const char* const below : {"/de/LC_MESSAGES", "/de", ""})
    rmdir((folder + below).c_str());
}

// ---- the other three ----

TEST(SystemErrorInfo, HasTheCatalogsTextAndTheGivenNumber)
{
  const ISystemErrorInfo info(4711, "read");
  EXPECT_EQ(info.text(), "read:" + libraryMessage(186));
  EXPECT_EQ(info.errorId(), 4711u);
  EXPECT_TRUE(info.isAvailable());
  EXPECT_EQ(ISystemErrorInfo(0, nullptr).text(), libraryMessage(186));
  EXPECT_TRUE(ISystemErrorInfo(0, nullptr).isAvailable());
}

TEST(XLibErrorInfo, HasAFixedText)
{
  EXPECT_STREQ(IXLibErrorInfo(nullptr).text(), "No error text is available.");
  const IXLibErrorInfo info("XOpenDisplay");
  EXPECT_STREQ(info.text(), "XOpenDisplay:No error text is available.");
  EXPECT_EQ(info.errorId(), 0u);
  EXPECT_FALSE(info.isAvailable());
}

TEST(GUIErrorInfo, HasTheCatalogsTextAndNoNumber)
{
  const IGUIErrorInfo info("x");
  EXPECT_EQ(info.text(), "x:" + libraryMessage(185));
  EXPECT_EQ(info.errorId(), 0u);
  EXPECT_FALSE(info.isAvailable());
  EXPECT_EQ(IGUIErrorInfo(nullptr).text(), libraryMessage(185));
}

TEST(ErrorKinds, FallBackWithoutACatalog)
{
  const std::string catalog = IBase::messageFile();
  IBase::setMessageFile("/nowhere/none.cat");
  const ISystemErrorInfo ofSystem(5, "read");
  const IGUIErrorInfo ofWindows("x");
  IBase::setMessageFile(catalog.c_str());
  EXPECT_EQ(ofSystem.text(), std::string("read:") + unavailable);
  EXPECT_EQ(ofWindows.text(), std::string("x:") + unavailable);
}

TEST(ErrorKinds, KeepErrnoForThoseWhoAskLater)
{
  errno = EDOM;
  const ISystemErrorInfo ofSystem(5, "read");
  const IGUIErrorInfo ofWindows("x");
  const IXLibErrorInfo ofX("x");
  EXPECT_EQ(errno, EDOM);
}

// Through derived classes: the conversion asks text(), but for the one that answers by itself.
struct LoudSystem : ISystemErrorInfo {
  LoudSystem() : ISystemErrorInfo(1, "f") {}
  const char* text() const override { return "loud"; }
};
struct LoudCLib : ICLibErrorInfo {
  LoudCLib() : ICLibErrorInfo("f") {}
  const char* text() const override { return "loud"; }
};
struct LoudXLib : IXLibErrorInfo {
  LoudXLib() : IXLibErrorInfo("f") {}
  const char* text() const override { return "loud"; }
};
struct LoudGUI : IGUIErrorInfo {
  LoudGUI() : IGUIErrorInfo("f") {}
  const char* text() const override { return "loud"; }
};

TEST(ErrorKinds, ConvertToTheirText)
{
  EXPECT_STREQ(LoudSystem(), "loud");
  EXPECT_STREQ(LoudCLib(), "loud");
  EXPECT_STREQ(LoudXLib(), "loud");
  EXPECT_EQ(std::string(LoudGUI()), "f:" + libraryMessage(185));
  const ISystemErrorInfo info(1, "f");
  const char* const text = info;
  EXPECT_EQ(text, info.text());
}

TEST(ErrorKinds, ThrowTheirTextThroughTheVirtualOperations)
{
  CountingHook hook;
  InstalledHook installed(hook);
  try {
    LoudGUI().throwError(IExceptionLocation("file.cpp"));
    FAIL() << "nothing was thrown";
  } catch (const IAccessError& caught) {
    EXPECT_STREQ(caught.text(), "loud");
  }
}

TEST(ErrorKinds, InheritTheTextsOfTheVirtualRoot)
{
  const IXLibErrorInfo info;
  const IVBase& base = info;
  EXPECT_STREQ(base.asString(), "IVBase object");
}

// ---- throwing ----

struct ThrowCase {
  const char* name;
  std::function<void(IBaseErrorInfo::ExceptionType, IException::Severity)> run;
  unsigned long errorId;
  std::string (*text)();
  const char** group;
};

const IExceptionLocation here("file.cpp", "work", 12);

const ThrowCase throwCases[] = {
  {"System",
   [](IBaseErrorInfo::ExceptionType type, IException::Severity severity) {
     ISystemErrorInfo::throwSystemError(4711, "f", here, type, severity);
   },
   4711, [] { return "f:" + libraryMessage(186); }, &IException::operatingSystem},
  {"CLib",
   [](IBaseErrorInfo::ExceptionType type, IException::Severity severity) {
     errno = EDOM;
     ICLibErrorInfo::throwCLibError("f", here, type, severity);
   },
   EDOM, [] { return "f:" + realText(EDOM); }, &IException::CLibrary},
  {"GUI",
   [](IBaseErrorInfo::ExceptionType type, IException::Severity severity) {
     IGUIErrorInfo::throwGUIError("f", here, type, severity);
   },
   0, [] { return "f:" + libraryMessage(185); }, &IException::presentationSystem},
  {"XLib",
   [](IBaseErrorInfo::ExceptionType type, IException::Severity severity) {
     IXLibErrorInfo::throwXLibError("f", here, type, severity);
   },
   0, [] { return std::string("f:No error text is available."); }, &IException::baseLibrary},
};

class ThrowErrorKind : public testing::TestWithParam<ThrowCase> {
protected:
  ThrowErrorKind() : installed(hook) { IBase::messageFile(); }  // whose name is stored at the first need
  RecordingHook hook;
  InstalledHook installed;
};

TEST_P(ThrowErrorKind, GivesTextNumberGroupLocationAndSeverity)
{
  const std::string text = GetParam().text();
  for (const IException::Severity severity : {IException::recoverable, IException::unrecoverable}) {
    try {
      GetParam().run(IBaseErrorInfo::invalidRequest, severity);
      FAIL() << "nothing was thrown";
    } catch (const IException& caught) {
      EXPECT_TRUE(typeid(caught) == typeid(IInvalidRequest));
      EXPECT_EQ(caught.errorId(), GetParam().errorId);
      ASSERT_EQ(caught.textCount(), 1u);
      EXPECT_EQ(caught.text(), text);
      EXPECT_EQ(caught.errorCodeGroup(), *GetParam().group);
      EXPECT_EQ(caught.isRecoverable(), severity == IException::recoverable);
      ASSERT_EQ(caught.locationCount(), 1u);
      EXPECT_STREQ(caught.locationAtIndex(0)->fileName(), "file.cpp");
      EXPECT_EQ(caught.locationAtIndex(0)->lineNumber(), 12u);
    }
  }
}

TEST_P(ThrowErrorKind, ThrowsTheClassThatIsSelected)
{
  const char* const names[] = {"IAccessError",    "IDeviceError",         "IInvalidParameter",
                               "IInvalidRequest", "IOutOfSystemResource", "IOutOfWindowResource",
                               "IOutOfMemory",    "IResourceExhausted"};
  for (int type = 0; type < 8; ++type) {
    try {
      GetParam().run(static_cast<IBaseErrorInfo::ExceptionType>(type), IException::recoverable);
      FAIL() << "nothing was thrown";
    } catch (const IException& caught) {
      EXPECT_STREQ(caught.name(), names[type]);
    }
  }
}

TEST_P(ThrowErrorKind, ReturnsWhenNoClassIsSelected)
{
  AllocationWatch watch;
  for (const int type : {8, 9, 1000, -1})
    GetParam().run(static_cast<IBaseErrorInfo::ExceptionType>(type), IException::recoverable);
  EXPECT_EQ(watch.liveBlocks(), 0);
  EXPECT_TRUE(hook.lines.empty());
}

TEST_P(ThrowErrorKind, LogsBeforeItThrows)
{
  EXPECT_THROW(GetParam().run(IBaseErrorInfo::deviceError, IException::recoverable), IDeviceError);
  const std::string id =
    GetParam().errorId == 0 ? "   Error Id is unavailable." : "   Error Id is " + std::to_string(GetParam().errorId);
  EXPECT_EQ(hook.lines, (std::vector<std::string>{
                          "IDeviceError exception thrown.\n   function: work\n   file: file.cpp\n   line: 12",
                          id,
                          std::string("   Error Code group is ") + *GetParam().group,
                          "   Exception text is:",
                          "      " + GetParam().text(),
                        }));
}

TEST_P(ThrowErrorKind, TakesTheGroupAsItIsNow)
{
  const char** const variable = GetParam().group;
  const char* const before = *variable;
  const char* seen = nullptr;
  *variable = "renamed";
  try {
    GetParam().run(IBaseErrorInfo::deviceError, IException::recoverable);
  } catch (const IException& caught) {
    seen = caught.errorCodeGroup();
  }
  *variable = before;
  EXPECT_STREQ(seen, "renamed");
}

TEST_P(ThrowErrorKind, IsAnExhaustedHeapWhenThereIsNoStorageForTheText)
{
  CountingHook counting;
  InstalledHook installedToo(counting);
  IBase::messageFile();
  CapturedStandardError quiet;
  unsigned long errorId = 0;
  const AllocationWatch watch;
  try {
    const FailingAllocations scope(1);
    GetParam().run(IBaseErrorInfo::deviceError, IException::recoverable);
  } catch (const IOutOfMemory& caught) {
    errorId = caught.errorId();
  }
  const long live = watch.liveBlocks();
  EXPECT_EQ(errorId, 4u);
  EXPECT_EQ(live, 0);
}

TEST_P(ThrowErrorKind, LeaksNothing)
{
  CountingHook counting;
  InstalledHook installedToo(counting);
  const AllocationWatch watch;
  try {
    GetParam().run(IBaseErrorInfo::deviceError, IException::recoverable);
  } catch (const IDeviceError&) {
  }
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
  EXPECT_GT(watch.allocations(), 0u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ThrowErrorKind, testing::ValuesIn(throwCases),
                         [](const testing::TestParamInfo<ThrowCase>& row) { return std::string(row.param.name); });

TEST(ThrowXLibError, BelongsToTheLibrarysGroup)
{
  CountingHook hook;
  InstalledHook installed(hook);
  try {
    IXLibErrorInfo::throwXLibError("f", here);
    FAIL() << "nothing was thrown";
  } catch (const IAccessError& caught) {
    EXPECT_STREQ(caught.errorCodeGroup(), "Quelm Class Library");
    EXPECT_TRUE(caught.isRecoverable());
  }
}

}  // namespace
