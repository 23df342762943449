// searching.cpp - benchmarks: finding a text, a byte of a set, a place that matches a pattern. All of them read the text once
// and copy nothing, so the limit is a pass over the bytes.
// Unpacked: libglib2.0-dev libglib2.0-0 libpcre2-8-0 libpcre3
// Links: :libglib-2.0.so.0
#include "frame.hpp"

#include <quelmcl/istrtest.hpp>

#include <fnmatch.h>
#include <string_view>

// Declared here rather than in its own headers, which lie in a folder of their own at each width.
extern "C" char* g_strrstr_len(const char* haystack, long haystackLength, const char* needle);

namespace {

using bench::Workload;

const std::vector<bench::Goal> sizes(double ratio)
{
  return {{32, ratio}, {1024, ratio}, {65536, ratio}, {16777216, ratio}};
}

/// Words of small letters.
std::string proseOf(std::size_t size)
{
  std::mt19937 random(static_cast<unsigned>(size));
  static const char letters[] = "etaoinshrdlucmfwypvbgkjqxz";
  std::string text(size, ' ');
  unsigned left = 5;
  for (char& byte : text) {
    if (left-- == 0) {
      left = 2 + random() % 8;
      continue;
    }
    byte = letters[std::min(random() % 26, random() % 26)];
  }
  return text;
}

IString stringOf(const std::string& bytes)
{
  return IString(bytes.data(), bytes.size());
}

unsigned positionOf(std::size_t offset)
{
  return static_cast<unsigned>(offset + 1);
}

std::string number(unsigned value)
{
  return std::to_string(value);
}

/// What is searched for comes last in the text, so that all of it is read.
template <const char* const& needle>
std::string endingWith(std::size_t size)
{
  std::string text = proseOf(size);
  text.replace(size - std::strlen(needle), std::string::npos, needle);
  return text;
}

// ---- a text ----

const char* const shortNeedle = "ezq";  // a letter that is everywhere comes first
const char* const longNeedle = "the quick brown fox!";

Workload shortText("find_short", endingWith<shortNeedle>, sizes(0.3));
Workload longText("find_long", endingWith<longNeedle>, sizes(0.8));

template <const char* const& needle>
bool textContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), sought = IString(needle)] { return number(text.indexOf(sought)); };
  });
  workload.contender("memmem", [](const std::string& data) {
    return [&data] {
      const void* const found = memmem(data.data(), data.size(), needle, std::strlen(needle));
      return number(positionOf(static_cast<std::size_t>(static_cast<const char*>(found) - data.data())));
    };
  });
  return workload.contender("std::string", [](const std::string& data) {
    return [&data, sought = std::string(needle)] { return number(positionOf(data.find(sought))); };
  });
}

// ---- texts made to mislead: runs of one letter. Goal: never more than twice the best ----

const std::vector<bench::Goal> adversarial = {{1024, 2}, {65536, 2}};

std::string allA(std::size_t size)
{
  return std::string(size, 'a');
}

std::string needleOfAs(std::size_t size, std::size_t placeOfB)
{
  std::string needle(size / 8, 'a');
  needle[std::min(placeOfB, needle.size() - 1)] = 'b';
  return needle;
}

Workload bAtEnd("find_run_b_at_end", allA, adversarial);
Workload bAtStart("find_run_b_at_start", allA, adversarial);
Workload bInTheMiddle("find_run_b_in_the_middle", allA, adversarial);

template <class Place>
bool runContenders(Workload& workload, Place placeOfB)
{
  workload.contender("quelmcl", [=](const std::string& data) {
    const std::string needle = needleOfAs(data.size(), placeOfB(data.size() / 8));
    return [text = stringOf(data), sought = stringOf(needle)] { return number(text.indexOf(sought)); };
  });
  workload.contender("memmem", [=](const std::string& data) {
    return [&data, needle = needleOfAs(data.size(), placeOfB(data.size() / 8))] {
      return number(memmem(data.data(), data.size(), needle.data(), needle.size()) == nullptr ? 0 : 1);
    };
  });
  return workload.contender("std::string", [=](const std::string& data) {
    return [&data, needle = needleOfAs(data.size(), placeOfB(data.size() / 8))] {
      return number(positionOf(data.find(needle)));
    };
  });
}

// ---- the last occurrence ----

std::string beginningWithNeedle(std::size_t size)
{
  std::string text = proseOf(size);
  text.replace(0, std::strlen(shortNeedle), shortNeedle);
  return text;
}

Workload lastText("find_last", beginningWithNeedle, sizes(0.1));

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

Workload firstOf1("first_of_1", endingWithMember<oneByte>, sizes(1));
Workload firstOf4("first_of_4", endingWithMember<fourBytes>, sizes(1));
Workload firstOf26("first_of_26", endingWithMember<capitals>, sizes(1));
Workload firstNotOf27("first_not_of_27", endingWithMember<oneByte>, sizes(1));

template <const char* const& set>
bool setContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), members = IString(set)] { return number(text.indexOfAnyOf(members)); };
  });
  workload.contender("strcspn", [](const std::string& data) {
    return [&data] { return number(positionOf(std::strcspn(data.c_str(), set))); };
  });
  return workload.contender("std::string", [](const std::string& data) {
    return [&data] { return number(positionOf(data.find_first_of(set))); };
  });
}

// ---- wildcards ----

const char* const benign = "*zq*j*!";
const char* const manyStars = "*a*e*i*o*u*a*e*i*o*u*zq*j*!";

Workload wildcards("wildcard", endingWith<longNeedle>, {{32, 0.5}, {1024, 0.5}, {65536, 0.5}});
Workload stars("wildcard_many_stars", endingWith<longNeedle>, {{1024, 0.1}});

template <const char* const& pattern>
bool wildcardContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return
      [text = stringOf(data), like = IString(pattern)] { return number(static_cast<unsigned>(text.isLike(like))); };
  });
  return workload.contender("fnmatch", [](const std::string& data) {
    return [&data] { return number(fnmatch(pattern, data.c_str(), 0) == 0); };
  });
}

const bool all[] = {
  textContenders<shortNeedle>(shortText),
  textContenders<longNeedle>(longText),
  runContenders(bAtEnd, [](std::size_t size) { return size; }),
  runContenders(bAtStart, [](std::size_t) { return std::size_t{0}; }),
  runContenders(bInTheMiddle, [](std::size_t size) { return size / 2; }),

  lastText.contender("quelmcl",
                     [](const std::string& data) {
                       return [text = stringOf(data), sought = IString(shortNeedle)] {
                         return number(text.lastIndexOf(sought));
                       };
                     }),
  lastText.contender("glib",
                     [](const std::string& data) {
                       return [&data] {
                         const char* const found =
                           g_strrstr_len(data.data(), static_cast<long>(data.size()), shortNeedle);
                         return number(positionOf(static_cast<std::size_t>(found - data.data())));
                       };
                     }),
  lastText.contender(
    "std::string",
    [](const std::string& data) { return [&data] { return number(positionOf(data.rfind(shortNeedle))); }; }),

  setContenders<oneByte>(firstOf1),
  setContenders<fourBytes>(firstOf4),
  setContenders<capitals>(firstOf26),
  firstNotOf27.contender("quelmcl",
                         [](const std::string& data) {
                           return [text = stringOf(data), members = IString(smallLetters)] {
                             return number(text.indexOfAnyBut(members));
                           };
                         }),
  firstNotOf27.contender("strspn",
                         [](const std::string& data) {
                           return [&data] { return number(positionOf(std::strspn(data.c_str(), smallLetters))); };
                         }),
  wildcardContenders<benign>(wildcards),
  wildcardContenders<manyStars>(stars),
};

}  // namespace
