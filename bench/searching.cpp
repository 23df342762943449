// searching.cpp - benchmarks: finding a text, a byte of a set, a place that matches a pattern. All of them read the text once
// and copy nothing, so the limit is a pass over the bytes.
// Unpacked: libglib2.0-dev libglib2.0-0 libpcre2-8-0 libpcre3 libre2-9 libre2-dev
// Links: :libglib-2.0.so.0 re2
#include "frame.hpp"

#include <quelmcl/istrtest.hpp>

#include <fnmatch.h>
#include <re2/re2.h>

#include <functional>
#include <string_view>

// Declared here rather than in its own headers, which lie in a folder of their own at each width.
extern "C" char* g_strrstr_len(const char* haystack, long haystackLength, const char* needle);

namespace {

using bench::Limit;
using bench::proseOf;
using bench::stringOf;
using bench::Workload;

/// Short texts must not lose, whatever long ones gain.
const std::vector<bench::Goal> sizes(double ratio)
{
  return {{32, 1}, {1024, ratio}, {65536, ratio}, {16777216, ratio}};
}

unsigned positionOf(std::size_t offset)
{
  return static_cast<unsigned>(offset + 1);
}

/// Prose that does not hold this.
std::string proseWithout(const char* needle, std::size_t size)
{
  std::string text = proseOf(size);
  for (std::size_t at = text.find(needle); at != std::string::npos; at = text.find(needle, at))
    text[at] = ' ';
  return text;
}

/// What is searched for comes last in the text, so that all of it is read.
template <const char* const& needle>
std::string endingWith(std::size_t size)
{
  std::string text = proseWithout(needle, size);
  text.replace(size - std::strlen(needle), std::string::npos, needle);
  return text;
}

// ---- a text ----

const char* const shortNeedle = "ezq";  // a letter that is everywhere comes first
const char* const longNeedle = "the quick brown fox!";

Workload shortText("find_short", endingWith<shortNeedle>, sizes(0.3), Limit::scan);
Workload longText("find_long", endingWith<longNeedle>, sizes(0.8), Limit::scan);

template <const char* const& needle>
bool textContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), sought = IString(needle)] { return text.indexOf(sought); };
  });
  workload.contender("memmem", [](const std::string& data) {
    return [&data] {
      const void* const found = memmem(data.data(), data.size(), needle, std::strlen(needle));
      return positionOf(static_cast<std::size_t>(static_cast<const char*>(found) - data.data()));
    };
  });
  return workload.contender("std::string", [](const std::string& data) {
    return [&data, sought = std::string(needle)] { return positionOf(data.find(sought)); };
  });
}

// ---- texts made to mislead: runs of one letter. Goal: never more than twice the best ----

const std::vector<bench::Goal> adversarial = {{1024, 2}, {65536, 2}};

std::string allA(std::size_t size)
{
  return std::string(size, 'a');
}

std::string needleOfAs(std::size_t length, std::size_t placeOfB)
{
  std::string needle(length, 'a');
  needle[std::min(placeOfB, needle.size() - 1)] = 'b';
  return needle;
}

Workload bAtEnd("find_run_b_at_end", allA, adversarial, Limit::scan);
Workload bAtStart("find_run_b_at_start", allA, adversarial, Limit::scan);
Workload bInTheMiddle("find_run_b_in_the_middle", allA, adversarial, Limit::scan);
Workload halfTheText("find_run_half_the_text", allA, adversarial, Limit::scan);

/// The textbook's linear search: Knuth, Morris and Pratt.
class PrefixSearch {
public:
  explicit PrefixSearch(const std::string& sought) : needle(sought), borders(sought.size() + 1, 0)
  {
    for (std::size_t end = 1, border = 0; end < needle.size(); ++end) {
      border = longerBorder(border, needle[end]);
      borders[end + 1] = border;
    }
  }

  std::size_t in(const std::string& text) const
  {
    std::size_t matched = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
      matched = longerBorder(matched, text[i]);
      if (matched == needle.size())
        return i + 1 - matched;
    }
    return std::string::npos;
  }

private:
  std::size_t longerBorder(std::size_t border, char next) const
  {
    while (border > 0 && needle[border] != next)
      border = borders[border];
    return border + (needle[border] == next);
  }

  const std::string& needle;
  std::vector<std::size_t> borders;
};

/// `makeNeedle` takes the length of the text. No needle is found.
template <class MakeNeedle>
bool runContenders(Workload& workload, MakeNeedle makeNeedle)
{
  workload.contender("quelmcl", [=](const std::string& data) {
    return [text = stringOf(data), sought = stringOf(makeNeedle(data.size()))] { return text.indexOf(sought); };
  });
  workload.contender("memmem", [=](const std::string& data) {
    return [&data, needle = makeNeedle(data.size())] {
      return memmem(data.data(), data.size(), needle.data(), needle.size()) == nullptr ? 0u : 1u;
    };
  });
  workload.contender("std::string", [=](const std::string& data) {
    return [&data, needle = makeNeedle(data.size())] { return positionOf(data.find(needle)); };
  });
  workload.contender("Boyer-Moore", [=](const std::string& data) {
    return [&data, needle = makeNeedle(data.size())] {
      const std::boyer_moore_searcher search(needle.begin(), needle.end());
      return std::search(data.begin(), data.end(), search) == data.end() ? 0u : 1u;
    };
  });
  return workload.contender("Knuth-Morris-Pratt", [=](const std::string& data) {
    return [&data, needle = makeNeedle(data.size())] { return positionOf(PrefixSearch(needle).in(data)); };
  });
}

// ---- the last occurrence ----

std::string beginningWithNeedle(std::size_t size)
{
  std::string text = proseWithout(shortNeedle, size);
  text.replace(0, std::strlen(shortNeedle), shortNeedle);
  return text;
}

Workload lastText("find_last", beginningWithNeedle, sizes(0.1), Limit::scan);

// ---- one of a set ----

const char* const oneByte = "#";
const char* const fourBytes = "#!&%";
const char* const capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
const char* const smallLetters = " abcdefghijklmnopqrstuvwxyz";

template <const char* const& set>
std::string endingWithMember(std::size_t size)
{
  std::string text = proseOf(size);
  text.back() = set[0];
  return text;
}

Workload firstOf1("first_of_1", endingWithMember<oneByte>, sizes(1), Limit::scan);
Workload firstOf4("first_of_4", endingWithMember<fourBytes>, sizes(1), Limit::scan);
Workload firstOf26("first_of_26", endingWithMember<capitals>, sizes(1), Limit::scan);
Workload firstNotOf27("first_not_of_27", endingWithMember<oneByte>, sizes(1), Limit::scan);

template <const char* const& set>
bool setContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), members = IString(set)] { return text.indexOfAnyOf(members); };
  });
  workload.contender(
    "strcspn", [](const std::string& data) { return [&data] { return positionOf(std::strcspn(data.c_str(), set)); }; });
  return workload.contender(
    "std::string", [](const std::string& data) { return [&data] { return positionOf(data.find_first_of(set)); }; });
}

// ---- wildcards ----

const char* const benign = "*zq*j*!";
const char* const manyStars = "*a*e*i*o*u*a*e*i*o*u*zq*j*!";

Workload wildcards("wildcard", endingWith<longNeedle>, {{32, 1}, {1024, 0.5}, {65536, 0.5}}, Limit::scan);
Workload stars("wildcard_many_stars", endingWith<longNeedle>, {{1024, 0.1}, {65536, 0.1}}, Limit::scan);

/// A pattern of only these wildcards, as a regular expression for the whole text.
std::string expressionOf(const char* pattern)
{
  std::string expression;
  for (; *pattern != '\0'; ++pattern)
    expression += *pattern == '*' ? std::string(".*") : RE2::QuoteMeta(std::string(1, *pattern));
  return expression;
}

template <const char* const& pattern>
bool wildcardContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), like = IString(pattern)] { return text.isLike(like); };
  });
  workload.contender("RE2", [](const std::string& data) {
    return
      [&data, expression = std::make_shared<RE2>(expressionOf(pattern))] { return RE2::FullMatch(data, *expression); };
  });
  return workload.contender(
    "fnmatch", [](const std::string& data) { return [&data] { return fnmatch(pattern, data.c_str(), 0) == 0; }; });
}

const bool all[] = {
  textContenders<shortNeedle>(shortText),
  textContenders<longNeedle>(longText),
  runContenders(bAtEnd, [](std::size_t size) { return needleOfAs(size / 8, size); }),
  runContenders(bAtStart, [](std::size_t size) { return needleOfAs(size / 8, 0); }),
  runContenders(bInTheMiddle, [](std::size_t size) { return needleOfAs(size / 8, size / 16); }),
  runContenders(halfTheText, [](std::size_t size) { return needleOfAs(size / 2, size / 4); }),

  lastText.contender("quelmcl",
                     [](const std::string& data) {
                       return
                         [text = stringOf(data), sought = IString(shortNeedle)] { return text.lastIndexOf(sought); };
                     }),
  lastText.contender("glib",
                     [](const std::string& data) {
                       return [&data] {
                         const char* const found =
                           g_strrstr_len(data.data(), static_cast<long>(data.size()), shortNeedle);
                         return positionOf(static_cast<std::size_t>(found - data.data()));
                       };
                     }),
  lastText.contender("std::string",
                     [](const std::string& data) { return [&data] { return positionOf(data.rfind(shortNeedle)); }; }),

  setContenders<oneByte>(firstOf1),
  setContenders<fourBytes>(firstOf4),
  setContenders<capitals>(firstOf26),
  firstNotOf27.contender("quelmcl",
                         [](const std::string& data) {
                           return [text = stringOf(data), members = IString(smallLetters)] {
                             return text.indexOfAnyBut(members);
                           };
                         }),
  firstNotOf27.contender(
    "strspn",
    [](const std::string& data) { return [&data] { return positionOf(std::strspn(data.c_str(), smallLetters)); }; }),
  wildcardContenders<benign>(wildcards),
  wildcardContenders<manyStars>(stars),
};

}  // namespace
