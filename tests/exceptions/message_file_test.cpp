// message_file_test.cpp - the catalog in use: where its name comes from, how it is switched, IBase::messageText.
#include <quelmcl/ibase.hpp>
#include <quelmcl/imsgtext.hpp>

#include "hooks.hpp"
#include "support/failing_allocations.hpp"
#include "support/fresh_process.hpp"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

using quelmcl_test::AllocationWatch;
using quelmcl_test::FailingAllocations;

const char alpha[] = QUELMCL_TEST_CATALOGS "/alpha.cat";
const char beta[] = QUELMCL_TEST_CATALOGS "/beta.cat";
const char unavailable[] = "Unable to load text from message file.";

class MessageFile : public testing::Test {
protected:
  MessageFile() : previous(IBase::messageFile()) { IBase::setMessageFile(alpha); }
  ~MessageFile() override { IBase::setMessageFile(previous.c_str()); }

private:
  const std::string previous;
};

TEST_F(MessageFile, IsTheOneThatWasSet)
{
  EXPECT_STREQ(IBase::messageFile(), alpha);
}

TEST_F(MessageFile, IsCopied)
{
  char name[] = "some.cat";
  IBase::setMessageFile(name);
  name[0] = 'x';
  EXPECT_STREQ(IBase::messageFile(), "some.cat");
}

TEST_F(MessageFile, SwitchesAllLaterMessages)
{
  const IMessageText before = IBase::messageText(1, "x");
  IBase::setMessageFile(beta);
  const IMessageText after = IBase::messageText(1, "x");
  EXPECT_STREQ(before.text(), "alpha 1: x");
  EXPECT_STREQ(after.text(), "beta 1: x");
}

TEST_F(MessageFile, SetToNullStaysAsItWas)
{
  IBase::setMessageFile(nullptr);
  EXPECT_STREQ(IBase::messageFile(), alpha);
  EXPECT_STREQ(IBase::messageText(1, "x").text(), "alpha 1: x");
}

TEST_F(MessageFile, CanBeSetToItself)
{
  IBase::setMessageFile(IBase::messageFile());
  EXPECT_STREQ(IBase::messageFile(), alpha);
  EXPECT_STREQ(IBase::messageText(1, "x").text(), "alpha 1: x");
}

TEST_F(MessageFile, CanBeSetToAnEqualName)
{
  const std::string equal(alpha);
  IBase::setMessageFile(equal.c_str());
  EXPECT_STREQ(IBase::messageFile(), alpha);
  EXPECT_NE(IBase::messageFile(), equal.c_str());
}

TEST_F(MessageFile, CanBeSetToAPartOfItself)
{
  IBase::setMessageFile(std::strrchr(IBase::messageFile(), '/'));
  EXPECT_STREQ(IBase::messageFile(), "/alpha.cat");
}

TEST_F(MessageFile, MayBeEmpty)
{
  IBase::setMessageFile("");
  EXPECT_STREQ(IBase::messageFile(), "");
  EXPECT_STREQ(IBase::messageText(1).text(), unavailable);
}

TEST_F(MessageFile, MayBeMissing)
{
  IBase::setMessageFile("/nowhere/none.cat");
  EXPECT_STREQ(IBase::messageText(1, "x").text(), unavailable);
}

TEST_F(MessageFile, GivesTheNameBackThatIsReplaced)
{
  AllocationWatch watch;
  IBase::setMessageFile(beta);
  IBase::setMessageFile(alpha);
  IBase::setMessageFile(beta);
  const long live = watch.liveBlocks();
  EXPECT_EQ(live, 0);
}

TEST_F(MessageFile, IsFoundAlongThePathForCatalogs)
{
  const char* const pathBefore = std::getenv("NLSPATH");
  const std::string saved = pathBefore == nullptr ? "" : pathBefore;
  setenv("NLSPATH", QUELMCL_TEST_CATALOGS "/%N", 1);
  IBase::setMessageFile("beta.cat");
  const IMessageText message = IBase::messageText(1, "x");
  if (pathBefore == nullptr)
    unsetenv("NLSPATH");
  else
    setenv("NLSPATH", saved.c_str(), 1);
  EXPECT_STREQ(message.text(), "beta 1: x");
}

TEST_F(MessageFile, MessagesFillTheirVariablesIn)
{
  IBase::setMessageFile(QUELMCL_TEST_CATALOGS "/variables.cat");
  const IMessageText message = IBase::messageText(9, "a", "b", "c", "d", "e", "f", "g", "h", "i");
  EXPECT_STREQ(message.text(), "abcdefghi");
}

TEST_F(MessageFile, MessagesOfTheCatalogKeepTheirTextAgainstADefault)
{
  EXPECT_STREQ(IBase::messageText(1, "x").setDefaultText("default").text(), "alpha 1: x");
  EXPECT_STREQ(IBase::messageText(777).setDefaultText("default").text(), "default");
}

TEST_F(MessageFile, StaysAsItWasWhenTheNewNameGetsNoStorage)
{
  const std::string longName(1000, 'x');
  try {
    FailingAllocations scope(1);
    IBase::setMessageFile(longName.c_str());
  } catch (const std::bad_alloc&) {
  }
  EXPECT_STREQ(IBase::messageFile(), alpha);
}

TEST_F(MessageFile, MessagesNeverFailForLackOfStorage)
{
  for (unsigned long nth = 1; nth <= 8; ++nth) {
    for (const FailingAllocations::Extent extent : {FailingAllocations::andAllLater, FailingAllocations::andNoOther}) {
      AllocationWatch watch;
      bool hasThrown = false;
      bool isOneOfThree = false;
      try {
        FailingAllocations scope(nth, extent);
        const IMessageText message = IBase::messageText(1, "x");
        const char* const text = message.text();
        isOneOfThree = text == nullptr || std::strcmp(text, "alpha 1: x") == 0 || std::strcmp(text, unavailable) == 0;
      } catch (const std::bad_alloc&) {
        hasThrown = true;
      }
      const long live = watch.liveBlocks();
      EXPECT_FALSE(hasThrown) << "allocation " << nth;
      EXPECT_TRUE(isOneOfThree) << "allocation " << nth;
      EXPECT_EQ(live, 0) << "allocation " << nth;
    }
  }
}

void setInEnvironment(const char* name, const char* value)
{
  if (value == nullptr)
    unsetenv(name);
  else
    setenv(name, value, 1);
}

/// The environment that the process started anew inherits, for the length of a block.
class Environment {
public:
  explicit Environment(const char* withBlank, const char* withUnderscore = nullptr)
  {
    setInEnvironment("KOLTA MSGFILE", withBlank);
    setInEnvironment("KOLTA_MSGFILE", withUnderscore);
  }
  ~Environment()
  {
    unsetenv("KOLTA MSGFILE");
    unsetenv("KOLTA_MSGFILE");
  }
};

TEST(MessageFileDeathTest, IsTheDefaultWhenNothingNamesAnother)
{
  const Environment environment(nullptr);
  EXPECT_FRESH_PROCESS_WRITES("quelmcl.cat", std::fputs(IBase::messageFile(), stderr));
}

TEST(MessageFileDeathTest, IsTakenFromTheEnvironment)
{
  const Environment environment(beta);
  EXPECT_FRESH_PROCESS_WRITES(beta, std::fputs(IBase::messageFile(), stderr));
}

TEST(MessageFileDeathTest, IsTakenFromTheEnvironmentByTheFirstMessage)
{
  const Environment environment(beta);
  EXPECT_FRESH_PROCESS_WRITES("beta 1: x", std::fputs(IBase::messageText(1, "x"), stderr));
}

TEST(MessageFileDeathTest, IgnoresTheNameWithAnUnderscore)
{
  const Environment environment(nullptr, beta);
  EXPECT_FRESH_PROCESS_WRITES("quelmcl.cat", std::fputs(IBase::messageFile(), stderr));
}

TEST(MessageFileDeathTest, IsEmptyWhenTheEnvironmentSaysSo)
{
  const Environment environment("");
  EXPECT_FRESH_PROCESS_WRITES("[]", std::fprintf(stderr, "[%s]", IBase::messageFile()));
}

void changeTheEnvironmentAfterTheFirstUse()
{
  IBase::messageFile();
  setenv("KOLTA MSGFILE", alpha, 1);
  std::fputs(IBase::messageFile(), stderr);
}

TEST(MessageFileDeathTest, IsReadFromTheEnvironmentOnce)
{
  const Environment environment(beta);
  EXPECT_FRESH_PROCESS_WRITES(beta, changeTheEnvironmentAfterTheFirstUse());
}

void overwriteTheEnvironmentAfterTheFirstUse()
{
  static char entry[] = "KOLTA MSGFILE=kept.cat";
  putenv(entry);
  IBase::messageFile();
  std::strcpy(entry, "KOLTA MSGFILE=lost");
  std::fputs(IBase::messageFile(), stderr);
}

TEST(MessageFileDeathTest, OfTheEnvironmentIsCopied)
{
  const Environment environment(nullptr);
  EXPECT_FRESH_PROCESS_WRITES("kept.cat", overwriteTheEnvironmentAfterTheFirstUse());
}

TEST(MessageFileDeathTest, ThatWasSetBeforeTheFirstUseHidesTheEnvironment)
{
  const Environment environment(beta);
  EXPECT_FRESH_PROCESS_WRITES(alpha, IBase::setMessageFile(alpha); std::fputs(IBase::messageFile(), stderr));
}

TEST(MessageFileDeathTest, SetToNullBeforeTheFirstUseLeavesTheEnvironmentInForce)
{
  const Environment environment(beta);
  EXPECT_FRESH_PROCESS_WRITES(beta, IBase::setMessageFile(nullptr); std::fputs(IBase::messageFile(), stderr));
}

void loadFirstMessageWithoutStorage()
{
  CountingNewHandler handler;
  bool isSafe = true;
  try {
    FailingAllocations scope(1);
    IBase::messageText(1, "x");
  } catch (const std::bad_alloc&) {
    isSafe = false;
  }
  if (!isSafe || handler.calls() != 0 || !handler.isInForce())
    std::fputs("failed; ", stderr);
  std::fputs(IBase::messageText(1, "x"), stderr);
}

TEST(MessageFileDeathTest, FirstNeededWithoutStorageIsThereLater)
{
  const Environment environment(beta);
  EXPECT_FRESH_PROCESS_WRITES("beta 1: x", loadFirstMessageWithoutStorage());
}

}  // namespace
