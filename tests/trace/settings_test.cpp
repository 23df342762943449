// settings_test.cpp - what the environment says about the trace: every variable, both forms of its name, every value; and what the
// program itself has set before and after.
#include "probe.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace {

struct SettingCase {
  const char* name;
  Words settings;
  const char* expected;
};

void PrintTo(const SettingCase& row, std::ostream* stream)
{
  *stream << row.name;
}

class TraceSettings : public testing::TestWithParam<SettingCase> {};

TEST_P(TraceSettings, AreReadFromTheEnvironment)
{
  const quelmcl_test::ChildProcess child = probe(GetParam().settings, {"read", "state"});
  EXPECT_EQ(child.err, std::string(GetParam().expected) + "\n");
  EXPECT_EQ(child.out, "");
  EXPECT_EQ(child.status, 0);
}

const char off[] = "off numbers=1 prefix=1 to=stdout stack=0";
const char on[] = "on numbers=1 prefix=1 to=stdout stack=0";
const char onWithoutPrefix[] = "on numbers=1 prefix=0 to=stdout stack=0";
const char toStandardError[] = "on numbers=1 prefix=1 to=stderr stack=0";
const char toQueue[] = "on numbers=1 prefix=1 to=queue stack=0";
const char toFile[] = "on numbers=1 prefix=1 to=file stack=0";
const char withStack[] = "off numbers=1 prefix=1 to=stdout stack=1";

const SettingCase traceCases[] = {
  {"nothing is set", {}, off},
  {"on", {"KOLTA TRACE=on"}, on},
  {"On", {"KOLTA TRACE=On"}, on},
  {"ON", {"KOLTA TRACE=ON"}, on},
  {"on between blanks", {"KOLTA TRACE=   on  "}, on},
  {"on behind a tab", {"KOLTA TRACE=\ton"}, off},
  {"on before a line feed", {"KOLTA TRACE=on\n"}, off},
  {"o n", {"KOLTA TRACE=o n"}, off},
  {"more than on", {"KOLTA TRACE=on."}, off},
  {"less than on", {"KOLTA TRACE=o"}, off},
  {"off", {"KOLTA TRACE=off"}, off},
  {"1", {"KOLTA TRACE=1"}, off},
  {"true", {"KOLTA TRACE=true"}, off},
  {"empty", {"KOLTA TRACE="}, off},
  {"blanks", {"KOLTA TRACE=   "}, off},
  {"noprefix", {"KOLTA TRACE=noprefix"}, onWithoutPrefix},
  {"NoPrefix between blanks", {"KOLTA TRACE= NoPrefix "}, onWithoutPrefix},
  {"no prefix", {"KOLTA TRACE=no prefix"}, off},
  {"underscore", {"KOLTA_TRACE=on"}, on},
  {"underscore noprefix", {"KOLTA_TRACE=noprefix"}, onWithoutPrefix},
  {"the blank form comes first", {"KOLTA TRACE=noprefix", "KOLTA_TRACE=on"}, onWithoutPrefix},
  {"an unusable blank form hides the other", {"KOLTA TRACE=maybe", "KOLTA_TRACE=on"}, off},
  {"an empty blank form hides the other", {"KOLTA TRACE=", "KOLTA_TRACE=on"}, off},
  {"names in lower case are others", {"kolta trace=on", "kolta_trace=on"}, off},
};
INSTANTIATE_TEST_SUITE_P(Trace, TraceSettings, testing::ValuesIn(traceCases));

const SettingCase destinationCases[] = {
  {"stdout", {"KOLTA TRACETO=stdout"}, on},
  {"out", {"KOLTA TRACETO=out"}, on},
  {"STDERR", {"KOLTA TRACETO=STDERR"}, toStandardError},
  {"err", {"KOLTA TRACETO=err"}, toStandardError},
  {"Err between blanks", {"KOLTA TRACETO=  Err "}, toStandardError},
  {"file", {"KOLTA TRACETO=file"}, toFile},
  {"queue", {"KOLTA TRACETO=queue"}, toQueue},
  {"qzprintf", {"KOLTA TRACETO=qzprintf"}, toQueue},
  {"xyz", {"KOLTA TRACETO=xyz"}, toQueue},
  {"a file name", {"KOLTA TRACETO=/tmp/trace"}, toQueue},
  {"err behind a tab", {"KOLTA TRACETO=\terr"}, toQueue},
  {"er", {"KOLTA TRACETO=er"}, off},
  {"er between blanks", {"KOLTA TRACETO= er "}, off},
  {"empty", {"KOLTA TRACETO="}, off},
  {"er leaves tracing on", {"KOLTA TRACE=on", "KOLTA TRACETO=er"}, on},
  {"overrides off", {"KOLTA TRACE=off", "KOLTA TRACETO=err"}, toStandardError},
  {"keeps the prefix away", {"KOLTA TRACE=noprefix", "KOLTA TRACETO=err"}, "on numbers=1 prefix=0 to=stderr stack=0"},
  {"underscore", {"KOLTA_TRACETO=err"}, toStandardError},
  {"the blank form comes first", {"KOLTA TRACETO=file", "KOLTA_TRACETO=err"}, toFile},
  {"a short blank form hides the other", {"KOLTA TRACETO=er", "KOLTA_TRACETO=err"}, off},
  {"an empty blank form hides the other", {"KOLTA TRACETO=", "KOLTA_TRACETO=err"}, off},
  {"each variable has its own form",
   {"KOLTA_TRACE=noprefix", "KOLTA TRACETO=err"},
   "on numbers=1 prefix=0 to=stderr stack=0"},
};
INSTANTIATE_TEST_SUITE_P(Destination, TraceSettings, testing::ValuesIn(destinationCases));

const SettingCase checkStackCases[] = {
  {"on", {"KOLTA CHECKSTACK=on"}, withStack},
  {"True between blanks", {"KOLTA CHECKSTACK= True "}, withStack},
  {"yes", {"KOLTA CHECKSTACK=yes"}, off},
  {"1", {"KOLTA CHECKSTACK=1"}, off},
  {"off", {"KOLTA CHECKSTACK=off"}, off},
  {"empty", {"KOLTA CHECKSTACK="}, off},
  {"underscore", {"KOLTA_CHECKSTACK=true"}, withStack},
  {"the blank form comes first", {"KOLTA CHECKSTACK=on", "KOLTA_CHECKSTACK=off"}, withStack},
  {"an empty blank form hides the other", {"KOLTA CHECKSTACK=", "KOLTA_CHECKSTACK=on"}, off},
};
INSTANTIATE_TEST_SUITE_P(CheckStack, TraceSettings, testing::ValuesIn(checkStackCases));

std::string stateAfter(const Words& settings, const Words& commands)
{
  Words all(commands);
  all.push_back("state");
  return probe(settings, all).err;
}

TEST(TraceBeforeItsFirstUse, IsOffAndGoesToStandardOutputWithoutNumbersAndPrefix)
{
  EXPECT_EQ(stateAfter({"KOLTA TRACE=on", "KOLTA TRACETO=err", "KOLTA CHECKSTACK=on"}, {}),
            "off numbers=0 prefix=0 to=stdout stack=0\n");
}

TEST(TraceBeforeItsFirstUse, CanBeSetButTheEnvironmentOverridesIt)
{
  EXPECT_EQ(stateAfter({}, {"enable"}), "on numbers=0 prefix=0 to=stdout stack=0\n");
  EXPECT_EQ(stateAfter({}, {"enable", "read"}), "off numbers=1 prefix=1 to=stdout stack=0\n");
  EXPECT_EQ(stateAfter({"KOLTA TRACE=on"}, {"disable", "numbers-off", "prefix-off", "read"}),
            "on numbers=1 prefix=1 to=stdout stack=0\n");
  EXPECT_EQ(stateAfter({"KOLTA TRACE=noprefix"}, {"prefix-on", "read"}), "on numbers=1 prefix=0 to=stdout stack=0\n");
}

TEST(TraceBeforeItsFirstUse, KeepsADestinationThatTheEnvironmentDoesNotName)
{
  EXPECT_EQ(stateAfter({}, {"to-stderr", "read"}), "off numbers=1 prefix=1 to=stderr stack=0\n");
  EXPECT_EQ(stateAfter({"KOLTA TRACETO=er"}, {"to-file", "read"}), "off numbers=1 prefix=1 to=file stack=0\n");
  EXPECT_EQ(stateAfter({"KOLTA TRACETO=out"}, {"to-file", "read"}), "on numbers=1 prefix=1 to=stdout stack=0\n");
}

TEST(TraceSettingsAreRead, ByEveryTraceOperation)
{
  const Words operations[] = {{"write", "x"}, {"string", "x"}, {"enter", "x"}, {"empty-object"},
                              {"throw"},      {"read"},        {"initialize"}};
  for (const Words& operation : operations)
    EXPECT_EQ(stateAfter({}, operation), "off numbers=1 prefix=1 to=stdout stack=0\n") << operation[0];
}

TEST(TraceSettingsAreRead, ByNoAccessor)
{
  EXPECT_EQ(stateAfter({"KOLTA TRACE=on"}, {"state", "to-stderr", "numbers-off", "prefix-off"}),
            "off numbers=0 prefix=0 to=stdout stack=0\noff numbers=0 prefix=0 to=stderr stack=0\n");
}

TEST(TraceSettingsAreRead, OnceUnlessTheProgramWantsThemAgain)
{
  EXPECT_EQ(stateAfter({}, {"read", "set", "KOLTA TRACE=on", "read"}), "off numbers=1 prefix=1 to=stdout stack=0\n");
  EXPECT_EQ(stateAfter({}, {"read", "set", "KOLTA TRACE=on", "initialize"}),
            "on numbers=1 prefix=1 to=stdout stack=0\n");
}

TEST(TraceSettingsReadAgain, NeverTakeTheStackColumnAway)
{
  EXPECT_EQ(stateAfter({"KOLTA CHECKSTACK=on"}, {"read", "set", "KOLTA CHECKSTACK=off", "initialize"}),
            "off numbers=1 prefix=1 to=stdout stack=1\n");
}

TEST(TraceAfterItsFirstUse, IsWhatTheProgramSays)
{
  EXPECT_EQ(stateAfter({"KOLTA TRACE=on"}, {"read", "disable", "numbers-off", "to-stderr"}),
            "off numbers=0 prefix=1 to=stderr stack=0\n");
  EXPECT_EQ(stateAfter({}, {"read", "enable", "prefix-off", "to-file"}), "on numbers=1 prefix=0 to=file stack=0\n");
  EXPECT_EQ(stateAfter({}, {"read", "to-queue", "prefix-off", "prefix-on", "numbers-off", "numbers-on"}),
            "off numbers=1 prefix=1 to=queue stack=0\n");
}

}  // namespace
