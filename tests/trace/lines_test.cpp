// lines_test.cpp - trace lines byte for byte: entry, exit, text, indentation, prefix, continuation, counting.
#include "probe.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

/// What the commands write to standard output, without prefixes.
std::string lines(const Words& commands)
{
  const quelmcl_test::ChildProcess child = probe({"KOLTA TRACE=noprefix"}, commands);
  EXPECT_EQ(child.err, "");
  EXPECT_EQ(child.status, 0);
  return child.out;
}

TEST(TraceLines, AreNotWrittenWhileTracingIsOff)
{
  const quelmcl_test::ChildProcess child =
    probe({}, {"write", "a", "string", "b", "enter-3", "c", "leave", "empty-object", "write-null"});
  EXPECT_EQ(child.out, "");
  EXPECT_EQ(child.err, "");
}

TEST(TraceLines, OfTextHaveAMarker)
{
  EXPECT_EQ(lines({"write", "hello"}), ">hello\n");
  EXPECT_EQ(lines({"string", "hello"}), ">hello\n");
  EXPECT_EQ(lines({"write", ""}), ">\n");
  EXPECT_EQ(lines({"string", ""}), ">\n");
  EXPECT_EQ(lines({"write", "100%s %n"}), ">100%s %n\n");
}

TEST(TraceLines, OfANullTextAreEmpty)
{
  EXPECT_EQ(lines({"write-null"}), ">\n");
}

TEST(TraceLines, EndOpenAtANul)
{
  EXPECT_EQ(lines({"write-nul", "write", "next"}), ">ab>next\n");
}

TEST(TraceLines, OfNestedObjectsAreIndented)
{
  EXPECT_EQ(lines({"enter", "A", "enter", "B", "leave", "leave"}), "+A\n  +B\n  -B\n-A\n");
  EXPECT_EQ(lines({"enter", "A", "enter", "B", "write", "x", "leave", "write", "y", "leave", "write", "z"}),
            "+A\n  +B\n    >x\n  -B\n  >y\n-A\n>z\n");
}

TEST(TraceLines, OfEntriesHaveTheLineNumberFromOneOn)
{
  EXPECT_EQ(lines({"enter-3", "A", "leave"}), "+A(3)\n-A\n");
  EXPECT_EQ(lines({"enter-0", "A", "leave"}), "+A\n-A\n");
  EXPECT_EQ(lines({"enter-minus", "A", "leave"}), "+A\n-A\n");
}

TEST(TraceLines, OfEntriesHaveNoLineNumberWhenNumbersAreOff)
{
  EXPECT_EQ(lines({"read", "numbers-off", "enter-3", "A", "leave"}), "+A\n-A\n");
}

TEST(TraceLines, OfObjectsWithoutANameAreNotWritten)
{
  EXPECT_EQ(lines({"empty-object", "write", "x"}), ">x\n");
}

TEST(TraceLines, OfAnObjectWithAnEmptyNameAreWritten)
{
  EXPECT_EQ(lines({"enter-3", "", "write", "x", "leave"}), "+(3)\n  >x\n-\n");
}

TEST(TraceLines, ContinueAtLineFeedsWithTheSameLead)
{
  EXPECT_EQ(lines({"write", "x\ny"}), ">x\n>y\n");
  EXPECT_EQ(lines({"write", "x\n\ny\n"}), ">x\n>\n>y\n>\n");
  EXPECT_EQ(lines({"enter", "A", "write", "x\ny", "leave"}), "+A\n  >x\n  >y\n-A\n");
  EXPECT_EQ(lines({"enter-3", "A\nB", "leave"}), "+A\n+B(3)\n-A\n-B\n");
}

TEST(TraceLines, OfExitsAreLeftAwayWhenTracingWasSwitchedOffMeanwhile)
{
  EXPECT_EQ(lines({"enter", "A", "disable", "leave", "enable", "write", "x"}), "+A\n  >x\n");
}

TEST(TraceLines, OfExitsAreLeftAwayWhenTracingWasOffAtTheEntry)
{
  EXPECT_EQ(lines({"read", "disable", "enter", "A", "enable", "leave", "write", "x"}), ">x\n");
}

TEST(TraceIndentation, NeverFallsBelowWhatThereIs)
{
  EXPECT_EQ(lines({"marker", "-:x", "write", "y"}), "-x\n>y\n");
  EXPECT_EQ(lines({"indent", "1", "marker", "-:x", "write", "y"}), " -x\n >y\n");
  EXPECT_EQ(lines({"indent", "2", "marker", "-:x", "write", "y"}), "-x\n>y\n");
  EXPECT_EQ(lines({"indent", "3", "marker", "-:x", "write", "y"}), " -x\n >y\n");
}

TEST(TraceIndentation, FollowsTheFirstCharacterOfTheMarker)
{
  EXPECT_EQ(lines({"marker", "+++:x", "marker", ">+:y", "marker", "-->:z", "marker", ":w"}), "+++x\n  >+y\n-->z\nw\n");
}

TEST(TraceIndentation, HasNoLimit)
{
  EXPECT_EQ(lines({"indent", "100000", "write", "x\ny"}),
            std::string(100000, ' ') + ">x\n" + std::string(100000, ' ') + ">y\n");
}

TEST(TraceLines, MayBeLong)
{
  for (const int length : {990, 996, 997, 998, 999, 1000, 1001, 5000, 1000000})
    EXPECT_EQ(lines({"long", std::to_string(length)}), ">" + std::string(static_cast<std::size_t>(length), 'x') + "\n")
      << length;
}

TEST(TraceLines, OfTheRawKindAreWrittenAsTheyAre)
{
  EXPECT_EQ(lines({"read", "raw", "x\ny%s"}), "x\ny%s");
}

TEST(TracePrefix, HasNumberProcessAndThread)
{
  const quelmcl_test::ChildProcess child = probe({"KOLTA TRACE=on"}, {"enter-3", "A", "write", "x", "leave"});
  EXPECT_EQ(child.out, prefixOf(child, 0) + "+A(3)\n" + prefixOf(child, 1) + "  >x\n" + prefixOf(child, 2) + "-A\n");
}

TEST(TracePrefix, IsRepeatedOnContinuationLinesWithTheSameNumber)
{
  const quelmcl_test::ChildProcess child = probe({"KOLTA TRACE=on"}, {"enter", "A", "write", "x\ny", "write", "z"});
  EXPECT_EQ(child.out, prefixOf(child, 0) + "+A\n" + prefixOf(child, 1) + "  >x\n" + prefixOf(child, 1) + "  >y\n" +
                         prefixOf(child, 2) + "  >z\n" + prefixOf(child, 3) + "-A\n");
}

TEST(TracePrefix, HasAColumnForTheStackWhenWanted)
{
  const quelmcl_test::ChildProcess child =
    probe({"KOLTA TRACE=on", "KOLTA CHECKSTACK=on"}, {"enter-3", "A", "write", "x\ny"});
  EXPECT_EQ(child.out, prefixOf(child, 0) + "0000000  +A(3)\n" + prefixOf(child, 1) + "0000000    >x\n" +
                         prefixOf(child, 1) + "0000000    >y\n" + prefixOf(child, 2) + "0000000  -A\n");
}

TEST(TracePrefix, TakesTheStackColumnAlongWhenItIsOff)
{
  EXPECT_EQ(probe({"KOLTA TRACE=noprefix", "KOLTA CHECKSTACK=on"}, {"write", "x"}).out, ">x\n");
}

TEST(TracePrefix, CanBeSwitchedBetweenLines)
{
  const quelmcl_test::ChildProcess child =
    probe({"KOLTA TRACE=on"}, {"write", "a", "prefix-off", "write", "b", "prefix-on", "write", "c"});
  EXPECT_EQ(child.out, prefixOf(child, 0) + ">a\n>b\n" + prefixOf(child, 2) + ">c\n");
}

TEST(TraceNumbers, CountLinesThatTheDestinationDropsAndNoOthers)
{
  const quelmcl_test::ChildProcess child =
    probe({"KOLTA TRACE=on"}, {"read", "to-file", "write", "dropped", "to-stdout", "write", "a", "disable", "write",
                               "not traced", "enable", "raw", "uncounted\n", "write", "b"});
  EXPECT_EQ(child.out, prefixOf(child, 1) + ">a\nuncounted\n" + prefixOf(child, 2) + ">b\n");
}

TEST(TraceNumbers, BeginWithTheFirstLineWritten)
{
  const quelmcl_test::ChildProcess child = probe({}, {"write", "not traced", "enable", "write", "a"});
  EXPECT_EQ(child.out, prefixOf(child, 0) + ">a\n");
}

TEST(TracedReport, HasTheMarkerAndIndentationOnEveryLine)
{
  EXPECT_EQ(lines({"enter", "A", "throw", "leave"}),
            "+A\n"
            "  >IAssertionFailure exception thrown.\n"
            "  >   function: work\n"
            "  >   file: file.cpp\n"
            "  >   line: 7\n"
            "  >   Error Id is unavailable.\n"
            "  >   Error Code group is Other Error Group\n"
            "  >   Exception text is:\n"
            "  >      count > 0\n"
            "-A\n");
}

TEST(TracedReport, NumbersItsLinesByCallsOfTheHook)
{
  const quelmcl_test::ChildProcess child = probe({"KOLTA TRACE=on"}, {"throw"});
  EXPECT_EQ(child.out, prefixOf(child, 0) + ">IAssertionFailure exception thrown.\n" + prefixOf(child, 0) +
                         ">   function: work\n" + prefixOf(child, 0) + ">   file: file.cpp\n" + prefixOf(child, 0) +
                         ">   line: 7\n" + prefixOf(child, 1) + ">   Error Id is unavailable.\n" + prefixOf(child, 2) +
                         ">   Error Code group is Other Error Group\n" + prefixOf(child, 3) +
                         ">   Exception text is:\n" + prefixOf(child, 4) + ">      count > 0\n");
}

TEST(TracedReport, IsWrittenByNobodyWhileTracingIsOff)
{
  const quelmcl_test::ChildProcess child = probe({}, {"throw"});
  EXPECT_EQ(child.out, "");
  EXPECT_EQ(child.err, "");
  EXPECT_EQ(child.status, 0);
}

}  // namespace
