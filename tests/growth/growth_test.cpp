// growth_test.cpp - what operations cost at 1 KB, 64 KB and 1 MB, in steps: none grows faster than its documentation says. Texts and
// arguments are such as make simple ways of doing it slow.
#include "support/steps.hpp"

#include <quelmcl/ilnseq.hpp>
#include <quelmcl/istparse.hpp>
#include <quelmcl/istrbld.hpp>
#include <quelmcl/istring.hpp>
#include <quelmcl/istrword.hpp>

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <functional>
#include <sstream>
#include <string>

namespace {

constexpr unsigned sizes[] = {1u << 10, 1u << 16, 1u << 20};

/// How the steps for each byte may grow from one of the sizes to a larger one.
enum Growth {
  linear,           // not at all
  timesALogarithm,  // as the logarithm of the size does
  aLittleMore  // as the size to the power of 0.4, from 64 KB on: at 1 KB the ways of school cost too little to be a measure
};

double mostOf(Growth growth, double larger)
{
  switch (growth) {
  case linear:
    return 1.25;  // the one step more or less that blocks and their ends make
  case timesALogarithm:
    return 2;  // from 10 to 16, to 20
  default:
    return std::pow(larger, 0.4);  // Multiplication in parts would take 0.58, that of school 1.
  }
}

/// A text and what is done with it. The text is made before steps are counted, what is done gets all else from it.
struct Operation {
  const char* name;
  Growth growth;
  std::string (*text)(unsigned size);
  std::function<std::function<void()>(const IString& text)> prepare;
};

template <const char* Pattern>
std::string repeated(unsigned size)
{
  std::string text;
  text.reserve(size + 16);
  while (text.size() < size)
    text += Pattern;
  return text;
}

constexpr char runOfAs[] = "a";
constexpr char blanks[] = " ";
constexpr char zeros[] = "0";
constexpr char ones[] = "1";
constexpr char nines[] = "9";
constexpr char shortWords[] = "a ";
constexpr char someWords[] = "some words, and  more ";
constexpr char accents[] = "a\xC3\xA9o \xE2\x82\xAC ";
constexpr char trails[] = "\xA9";
constexpr char almostHex[] = "0f";
constexpr char highBytes[] = "\xFF";

using Prepared = std::function<void()>;

/// A text of half the size that is found nowhere, but nearly everywhere.
IString almost(const IString& text, const char* end)
{
  return text.subString(1, text.length() / 2) + end;
}

// What an operation gives, or what statements do; `with` is an argument that is made before steps are counted.
#define GIVES(...) \
  [](const IString& text) -> Prepared { return [=] { [[maybe_unused]] const auto result = __VA_ARGS__; }; }
#define GIVES_WITH(argument, ...)                                     \
  [](const IString& text) -> Prepared {                               \
    const IString with = argument;                                    \
    return [=] { [[maybe_unused]] const auto result = __VA_ARGS__; }; \
  }
#define DOES(...) [](const IString& text) -> Prepared { return [=] { __VA_ARGS__; }; }
#define DOES_WITH(argument, ...)        \
  [](const IString& text) -> Prepared { \
    const IString with = argument;      \
    return [=] { __VA_ARGS__; };        \
  }

const Operation operations[] = {
  // ---- whole texts ----
  {"make_and_destroy", linear, repeated<someWords>, GIVES(IString(static_cast<const char*>(text)))},
  {"compare_with_an_equal_text", linear, repeated<runOfAs>, GIVES_WITH(IString::reverse(text), with == text)},
  {"compare_with_a_longer_text", linear, repeated<runOfAs>, GIVES_WITH(text + "b", with < text)},
  {"hash", linear, repeated<someWords>, GIVES(text.hash())},
  {"join", linear, repeated<someWords>, GIVES(text + text)},
  {"exclusive_or", linear, repeated<someWords>, GIVES(text ^ text)},
  {"debug_text", linear, repeated<someWords>, GIVES(text.asDebugInfo())},

  // ---- what a text consists of ----
  {"isDigits", linear, repeated<nines>, GIVES(text.isDigits())},
  {"isASCII", linear, repeated<someWords>, GIVES(text.isASCII())},
  {"isPrintable", linear, repeated<someWords>, GIVES(text.isPrintable())},
  {"numCharacters", linear, repeated<accents>, GIVES(text.numCharacters())},
  {"numCharacters_of_trail_bytes", linear, repeated<trails>, GIVES(text.numCharacters())},
  {"numCharacters_of_what_none_begins_with", linear, repeated<highBytes>, GIVES(text.numCharacters())},
  {"includesMBCS", linear, repeated<accents>, GIVES(text.includesMBCS())},
  {"charType_of_the_last_byte", linear, repeated<accents>, GIVES(text.charType(text.length()))},
  {"isAbbreviationFor", linear, repeated<runOfAs>, GIVES_WITH(text + "b", text.isAbbreviationFor(with))},
  {"isLike_with_many_stars", linear, repeated<runOfAs>, GIVES(text.isLike("*a*a*a*a*b"))},
  {"isLike_with_stars_and_marks", linear, repeated<runOfAs>, GIVES(text.isLike("*a?a*?a??*b*c"))},
  {"isLike_itself_with_a_star_in_front", linear, repeated<someWords>, GIVES_WITH("*" + text, text.isLike(with))},

  // ---- searching ----
  {"indexOf_nowhere", linear, repeated<someWords>, GIVES(text.indexOf("wordless"))},
  {"indexOf_almost_everywhere", linear, repeated<runOfAs>, GIVES_WITH(almost(text, "b"), text.indexOf(with))},
  {"indexOf_with_a_wrong_beginning", linear, repeated<runOfAs>, GIVES_WITH("b" + almost(text, ""), text.indexOf(with))},
  {"indexOf_periodic", linear, repeated<shortWords>, GIVES_WITH(almost(text, "b"), text.indexOf(with))},
  {"indexOf_inside_of_characters", linear, repeated<accents>, GIVES(text.indexOf("\xA9o"))},
  {"indexOf_trail_bytes", linear, repeated<trails>, GIVES(text.indexOf("\xC3\xA9"))},
  {"lastIndexOf_almost_everywhere", linear, repeated<runOfAs>, GIVES_WITH("b" + almost(text, ""), text.lastIndexOf(with))},
  {"lastIndexOf_with_a_wrong_end", linear, repeated<runOfAs>, GIVES_WITH(almost(text, "b"), text.lastIndexOf(with))},
  {"lastIndexOf_trail_bytes", linear, repeated<trails>, GIVES(text.lastIndexOf("\xC3\xA9"))},
  {"indexOfAnyOf", linear, repeated<someWords>, GIVES(text.indexOfAnyOf("XYZ"))},
  {"indexOfAnyBut", linear, repeated<someWords>, GIVES(text.indexOfAnyBut("some words,and r"))},
  {"indexOfAnyBut_a_test", linear, repeated<nines>, GIVES(text.indexOfAnyBut(IStringTest(isdigit)))},
  {"lastIndexOfAnyOf", linear, repeated<accents>, GIVES(text.lastIndexOfAnyOf("XYZ"))},
  {"lastIndexOfAnyBut", linear, repeated<accents>, GIVES(text.lastIndexOfAnyBut("ao \xC3\xA9\xE2\x82\xAC"))},
  {"occurrencesOf", linear, repeated<runOfAs>, GIVES(text.occurrencesOf("a"))},
  {"occurrencesOf_almost_everywhere", linear, repeated<runOfAs>, GIVES_WITH(almost(text, "b"), text.occurrencesOf(with))},
  {"occurrencesOf_inside_of_characters", linear, repeated<accents>, GIVES(text.occurrencesOf("\xA9"))},

  // ---- editing ----
  {"subString", linear, repeated<accents>, GIVES(text.subString(text.length() / 3, text.length() / 2))},
  {"center", linear, repeated<accents>, GIVES(IString::center(text, text.length() / 2))},
  {"leftJustify", linear, repeated<accents>, GIVES(IString::leftJustify(text, 2 * text.length()))},
  {"rightJustify", linear, repeated<accents>, GIVES(IString::rightJustify(text, text.length() - 1))},
  {"copy", linear, repeated<someWords>, GIVES(IString::copy(text, 2))},
  {"copy_of_one_byte", linear, repeated<someWords>, GIVES(IString::copy("a", text.length()))},
  {"insert", linear, repeated<accents>, GIVES(IString::insert(text, "x", text.length() / 2))},
  {"overlayWith", linear, repeated<accents>, GIVES(IString::overlayWith(text, "x", text.length() / 2))},
  {"remove", linear, repeated<accents>, GIVES(IString::remove(text, text.length() / 3, text.length() / 2))},
  {"lowerCase", linear, repeated<accents>, GIVES(IString::lowerCase(text))},
  {"upperCase", linear, repeated<accents>, GIVES(IString::upperCase(text))},
  {"reverse", linear, repeated<accents>, GIVES(IString::reverse(text))},
  {"strip", linear, repeated<blanks>, GIVES(IString::strip(text))},
  {"stripTrailing_a_set", linear, repeated<accents>, GIVES(IString::stripTrailing(text, "ao \xC3\xA9\xE2\x82\xAC"))},
  {"strip_by_a_test", linear, repeated<nines>, GIVES(IString::strip(text, IStringTest(isdigit)))},
  {"translate", linear, repeated<someWords>, GIVES(IString::translate(text, "aeo ", "AEO-"))},
  {"translate_long_characters", linear, repeated<accents>, GIVES(IString::translate(text, "\xC3\xA9", "\xE2\x82\xAC"))},
  {"change_to_shorter", linear, repeated<runOfAs>, GIVES(IString::change(text, "aa", "b"))},
  {"change_to_equal", linear, repeated<runOfAs>, GIVES(IString::change(text, "a", "b"))},
  {"change_to_longer", linear, repeated<runOfAs>, GIVES(IString::change(text, "a", "bcd"))},
  {"change_inside_of_characters", linear, repeated<accents>, GIVES(IString::change(text, "\xA9", "bcd"))},
  {"change_almost_everywhere", linear, repeated<runOfAs>, GIVES_WITH(almost(text, "b"), IString::change(text, with, "x"))},

  // ---- words ----
  {"numWords", linear, repeated<shortWords>, GIVES(text.numWords())},
  {"indexOfWord_the_last", linear, repeated<shortWords>, GIVES(text.indexOfWord(text.length() / 2))},
  {"word_the_last", linear, repeated<shortWords>, GIVES(text.word(text.length() / 2))},
  {"words", linear, repeated<shortWords>, GIVES(text.words(2, text.length() / 2))},
  {"removeWords", linear, repeated<shortWords>, GIVES(IString::removeWords(text, 2, text.length() / 4))},
  {"space", linear, repeated<shortWords>, GIVES(IString::space(text, 3))},
  {"space_of_blanks", linear, repeated<blanks>, GIVES(IString::space(text, 3))},
  {"space_with_one_between", linear, repeated<shortWords>, GIVES(IString::space(text))},
  {"list_of_words", linear, repeated<shortWords>, GIVES(IWordList(text).count())},
  {"indexOfPhrase", linear, repeated<someWords>, GIVES(text.indexOfPhrase("and words"))},
  {"wordIndexOfPhrase_of_itself", linear, repeated<someWords>, GIVES(text.wordIndexOfPhrase(text))},
  {"wordIndexOfPhrase_almost_everywhere", linear, repeated<shortWords>,
   GIVES_WITH(almost(text, "b"), text.wordIndexOfPhrase(with))},

  // ---- forms of numbers ----
  {"c2x", linear, repeated<highBytes>, GIVES(IString::c2x(text))},
  {"x2c", linear, repeated<almostHex>, GIVES(IString::x2c(text))},
  {"c2b", linear, repeated<highBytes>, GIVES(IString::c2b(text))},
  {"b2c", linear, repeated<ones>, GIVES(IString::b2c(text))},
  {"x2b", linear, repeated<almostHex>, GIVES(IString::x2b(text))},
  {"b2x", linear, repeated<ones>, GIVES(IString::b2x(text))},
  {"d2c", aLittleMore, repeated<nines>, GIVES(IString::d2c(text))},
  {"d2c_of_zeros", aLittleMore, repeated<zeros>, GIVES(IString::d2c(text))},
  {"c2d", aLittleMore, repeated<highBytes>, GIVES(IString::c2d(text))},
  {"d2x", aLittleMore, repeated<nines>, GIVES(IString::d2x(text))},
  {"x2d", aLittleMore, repeated<almostHex>, GIVES(IString::x2d(text))},

  // ---- parser ----
  {"parse_a_separator_that_is_not_there", linear, repeated<someWords>, DOES(IString a, b; text >> a >> ';' >> b)},
  {"parse_almost_everywhere", linear, repeated<runOfAs>, DOES_WITH(almost(text, "b"), IString a, b; text >> a >> with >> b)},
  {"parse_words", linear, repeated<shortWords>, DOES(IString a, b, c; text >> a >> b >> c)},
  {"parse_behind_many_words", linear, repeated<shortWords>,
   DOES(IString a; text >> IStringParser::SkipWords(text.length() / 2) >> a)},
  {"parse_by_a_test", linear, repeated<someWords>, DOES(IString a, b; text >> a >> isdigit >> b)},
  {"parse_backwards_by_position", linear, repeated<accents>,
   DOES(IString a, b; text >> a << text.length() >> b >> -10 >> a)},

  // ---- growing texts, streams ----
  {"append_to_a_builder", linear, repeated<someWords>, [](const IString& text) -> Prepared {
     return [=] {
       IStringBuilder builder;
       for (unsigned pos = 0; pos + 8 <= text.length(); pos += 8)
         builder.append(static_cast<const char*>(text) + pos, 8);
       [[maybe_unused]] const IString result = builder.handOver();
     };
   }},
  {"read_a_line", linear, repeated<someWords>, [](const IString& text) -> Prepared {
     return [=] {
       std::istringstream stream(static_cast<const char*>(text));
       [[maybe_unused]] const IString line = IString::lineFrom(stream);
     };
   }},
  {"read_many_lines", linear, repeated<someWords>, [](const IString& text) -> Prepared {
     return [=] {
       std::istringstream stream(static_cast<const char*>(text));
       while (IString::lineFrom(stream, ' ').length() > 0 || stream.good())
         ;
     };
   }},
  {"write", linear, repeated<someWords>, DOES(std::ostringstream stream; stream << text)},
};

class GrowthOf : public testing::TestWithParam<unsigned> {};

TEST_P(GrowthOf, StepsIsNoneThatIsNotDocumented)
{
  const Operation& operation = operations[GetParam()];
  double before = 0;
  double sizeBefore = 0;
  for (const unsigned size : sizes) {
    const std::string content = operation.text(size);
    const IString text(content.data(), static_cast<unsigned>(content.size()));
    const Prepared run = operation.prepare(text);
    if (sizeBefore == 0)
      run();  // what is done once in a process
    const unsigned long long start = quelmcl_test::steps();
    run();
    const double perByte = static_cast<double>(quelmcl_test::steps() - start) / text.length();
    EXPECT_GT(perByte, 0);
    const bool isMeasure = sizeBefore > (operation.growth == aLittleMore ? 2048 : 0);
    if (isMeasure) {
      const double larger = text.length() / sizeBefore;
      // The steps of each call, whatever the size, weigh little in the larger text.
      EXPECT_LE(perByte, before * mostOf(operation.growth, larger) + 0.01)
        << operation.name << ": steps for each byte of " << text.length() << ", after " << before << " of "
        << sizeBefore;
    }
    before = perByte;
    sizeBefore = text.length();
  }
}

INSTANTIATE_TEST_SUITE_P(All, GrowthOf, testing::Range(0u, static_cast<unsigned>(std::size(operations))),
                         [](const testing::TestParamInfo<unsigned>& row) {
                           return std::string(operations[row.param].name);
                         });

// ---- sequences ----

struct SequenceOperation {
  const char* name;
  Growth growth;
  std::function<int(unsigned index)> value;
  std::function<void(ILinkedSequence<int>&)> run;
};

const SequenceOperation sequenceOperations[] = {
  {"sort_what_is_in_order", linear, [](unsigned index) { return static_cast<int>(index); },
   [](ILinkedSequence<int>& numbers) { numbers.sort(); }},
  {"sort_what_is_in_reverse_order", timesALogarithm, [](unsigned index) { return -static_cast<int>(index); },
   [](ILinkedSequence<int>& numbers) { numbers.sort(); }},
  {"sort_equal_elements", linear, [](unsigned) { return 7; }, [](ILinkedSequence<int>& numbers) { numbers.sort(); }},
  {"sort_a_saw", timesALogarithm, [](unsigned index) { return static_cast<int>(index % 37); },
   [](ILinkedSequence<int>& numbers) { numbers.sort(); }},
  {"sort_what_is_scattered", timesALogarithm, [](unsigned index) { return static_cast<int>(index * 2654435761u >> 4); },
   [](ILinkedSequence<int>& numbers) { numbers.sort(); }},
  {"removeAllThat", linear, [](unsigned index) { return static_cast<int>(index); },
   [](ILinkedSequence<int>& numbers) { numbers.removeAllThat([](int number) { return number % 2 != 0; }); }},
  {"addAllFrom_itself", linear, [](unsigned index) { return static_cast<int>(index); },
   [](ILinkedSequence<int>& numbers) { numbers.addAllFrom(numbers); }},
  {"removeAll", linear, [](unsigned index) { return static_cast<int>(index); },
   [](ILinkedSequence<int>& numbers) { numbers.removeAll(); }},
  {"isConsistent", linear, [](unsigned index) { return static_cast<int>(index); },
   [](ILinkedSequence<int>& numbers) { static_cast<void>(numbers.isConsistent()); }},
};

class GrowthOfSequence : public testing::TestWithParam<unsigned> {};

TEST_P(GrowthOfSequence, StepsIsNoneThatIsNotDocumented)
{
  const SequenceOperation& operation = sequenceOperations[GetParam()];
  double before = 0;
  unsigned sizeBefore = 0;
  for (const unsigned size : {1u << 10, 1u << 14, 1u << 18}) {
    ILinkedSequence<int> numbers;
    for (unsigned index = 0; index < size; ++index)
      numbers.add(operation.value(index));
    const unsigned long long start = quelmcl_test::steps();
    operation.run(numbers);
    const double perElement = static_cast<double>(quelmcl_test::steps() - start) / size;
    EXPECT_GT(perElement, 0);
    if (sizeBefore > 0) {
      EXPECT_LE(perElement, before * mostOf(operation.growth, size / sizeBefore) + 0.01)
        << operation.name << ": steps for each of " << size << " elements, after " << before << " of " << sizeBefore;
    }
    before = perElement;
    sizeBefore = size;
  }
}

INSTANTIATE_TEST_SUITE_P(All, GrowthOfSequence,
                         testing::Range(0u, static_cast<unsigned>(std::size(sequenceOperations))),
                         [](const testing::TestParamInfo<unsigned>& row) {
                           return std::string(sequenceOperations[row.param].name);
                         });

// Nothing above means anything unless steps are counted, those of the C library too.
TEST(Steps, AreMoreForAQuadraticWay)
{
  const auto stepsOfAppending = [](unsigned pieces) {
    const unsigned long long start = quelmcl_test::steps();
    IString text;
    for (unsigned i = 0; i < pieces; ++i)
      text += "some text";
    return static_cast<double>(quelmcl_test::steps() - start) / pieces;
  };
  EXPECT_GT(stepsOfAppending(4096), 10 * stepsOfAppending(64));
}

}  // namespace
