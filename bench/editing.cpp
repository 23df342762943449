// editing.cpp - benchmarks: a text in, a changed text out. Whoever does it well takes one block from the heap and goes over
// the bytes once, or twice where the length of the result has to be found first.
// Unpacked: libabsl-dev libabsl20220623 libqt5core5a qtbase5-dev libicu72 libdouble-conversion3 libpcre2-16-0 libzstd1 zlib1g
// Unpacked: libglib2.0-0 libpcre3 nettle-dev libnettle8
// Links: absl_strings absl_strings_internal absl_throw_delegate absl_raw_logging_internal absl_int128 Qt5Core nettle
// Options: -fPIC
#include <QtCore/QByteArray>

#include <string>

static std::string asText(const QByteArray& text)
{
  return text.toStdString();
}

#include "frame.hpp"

#include <absl/strings/ascii.h>
#include <absl/strings/str_replace.h>
#include <nettle/memxor.h>

#include <array>

namespace {

using bench::stringOf;
using bench::Workload;

/// Short texts must not lose, whatever long ones gain.
std::vector<bench::Goal> sizes(double ratio)
{
  return {{8, 1}, {32, 1}, {1024, ratio}, {65536, ratio}, {16777216, ratio}};
}

QByteArray byteArrayOf(const std::string& text)
{
  return QByteArray(text.data(), static_cast<int>(text.size()));
}

// ---- replace all. The peer that one writes by hand: find, append what stands between, append the replacement ----

struct Replacement {
  const char* pattern;
  const char* with;
};

/// Prose with the pattern at every `distance` bytes.
template <const Replacement& change, unsigned distance>
std::string withPatterns(std::size_t size)
{
  std::string text = bench::proseOf(size);
  for (std::size_t at = distance / 2; at + distance / 2 <= size; at += distance)
    text.replace(at, std::strlen(change.pattern), change.pattern);
  return text;
}

std::string findAndAppend(const std::string& text, const Replacement& change)
{
  std::string result;
  const std::size_t patternLength = std::strlen(change.pattern);
  std::size_t done = 0;
  for (std::size_t at; (at = text.find(change.pattern, done)) != std::string::npos; done = at + patternLength)
    result.append(text, done, at - done).append(change.with);
  return result.append(text, done, std::string::npos);
}

const Replacement sameLength = {"needle", "thread"};
const Replacement longer = {"needle", "haystacks"};
const Replacement shorter = {"needle", "pin"};
const Replacement dense = {"ab", "xyz"};

const std::vector<bench::Goal> replacing = {{32, 1}, {1024, 0.6}, {65536, 0.6}, {16777216, 0.6}};

Workload replaceSame("replace_same", withPatterns<sameLength, 32>, replacing);
Workload replaceLonger("replace_longer", withPatterns<longer, 32>, replacing);
Workload replaceShorter("replace_shorter", withPatterns<shorter, 32>, replacing);
Workload replaceDense("replace_dense", withPatterns<dense, 4>, replacing);

template <const Replacement& change>
bool replaceContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), pattern = IString(change.pattern), with = IString(change.with)] {
      return IString::change(text, pattern, with);
    };
  });
  workload.contender("find and append",
                     [](const std::string& data) { return [&data] { return findAndAppend(data, change); }; });
  workload.contender("absl", [](const std::string& data) {
    return [&data] { return absl::StrReplaceAll(data, {{change.pattern, change.with}}); };
  });
  return workload.contender("QByteArray", [](const std::string& data) {
    return [text = byteArrayOf(data)] {
      QByteArray changed(text);
      changed.replace(change.pattern, change.with);
      return changed;
    };
  });
}

// ---- case ----

std::string mixedCase(std::size_t size)
{
  std::string text = bench::proseOf(size);
  for (std::size_t i = 0; i < size; i += 3)
    text[i] = absl::ascii_toupper(static_cast<unsigned char>(text[i]));
  return text;
}

Workload upper("upper", mixedCase, sizes(0.2));
Workload lower("lower", mixedCase, sizes(0.2));

// ---- reverse ----

Workload reverse("reverse", bench::randomBytes, sizes(0.2));

// ---- translate. Peer: a table of 256 bytes, made for the occasion ----

const char* const fourFrom = "aeio";
const char* const fourTo = "1234";
const char* const lettersFrom = "abcdefghijklmnopqrstuvwxyz";
const char* const lettersTo = "nopqrstuvwxyzabcdefghijklm";

Workload translate4("translate_4", bench::proseOf, sizes(1));
Workload translate26("translate_26", bench::proseOf, sizes(1));

std::string throughTable(const std::string& text, const char* from, const char* to)
{
  std::array<char, 256> table;
  for (unsigned i = 0; i < 256; ++i)
    table[i] = static_cast<char>(i);
  for (; *from != '\0'; ++from, ++to)
    table[static_cast<unsigned char>(*from)] = *to;
  std::string result(text);
  for (char& byte : result)
    byte = table[static_cast<unsigned char>(byte)];
  return result;
}

template <const char* const& from, const char* const& to>
bool translateContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), in = IString(from), out = IString(to)] { return IString::translate(text, in, out); };
  });
  return workload.contender("table",
                            [](const std::string& data) { return [&data] { return throughTable(data, from, to); }; });
}

// ---- strip: a third of the text is white space at its ends ----

std::string padded(std::size_t size)
{
  std::string text = bench::randomDigits(size);
  for (std::size_t i = 0; i < size / 6; ++i)
    text[i] = text[size - 1 - i] = ' ';
  return text;
}

Workload strip("strip", padded, sizes(0.3));

// ---- combine with a key that repeats. Peers: memxor for each repetition, and a loop over the bytes ----

const char* const key1 = "\x5A";
const char* const key5 = "\x5A\x13\x77\x01\x6E";
const char* const key16 = "0123456789abcdef";

Workload withKey1("xor_key_1", bench::randomBytes, sizes(0.6));
Workload withKey5("xor_key_5", bench::randomBytes, sizes(0.6));
Workload withKey16("xor_key_16", bench::randomBytes, sizes(0.6));

template <const char* const& key>
bool keyContenders(Workload& workload)
{
  workload.contender("quelmcl", [](const std::string& data) {
    return [text = stringOf(data), bits = IString(key)] { return text ^ bits; };
  });
  workload.contender("memxor", [](const std::string& data) {
    return [&data, bits = std::string(key)] {
      std::string result(data);
      for (std::size_t done = 0; done < result.size(); done += bits.size())
        nettle_memxor(&result[done], bits.data(), std::min(bits.size(), result.size() - done));
      return result;
    };
  });
  return workload.contender("loop", [](const std::string& data) {
    return [&data, bits = std::string(key)] {
      std::string result(data);
      std::size_t at = 0;
      for (char& byte : result) {
        byte = static_cast<char>(byte ^ bits[at]);
        at = at + 1 == bits.size() ? 0 : at + 1;
      }
      return result;
    };
  });
}

const bool all[] = {
  replaceContenders<sameLength>(replaceSame),
  replaceContenders<longer>(replaceLonger),
  replaceContenders<shorter>(replaceShorter),
  replaceContenders<dense>(replaceDense),

  upper.contender("quelmcl",
                  [](const std::string& data) { return [text = stringOf(data)] { return IString::upperCase(text); }; }),
  upper.contender("absl", [](const std::string& data) { return [&data] { return absl::AsciiStrToUpper(data); }; }),
  upper.contender("QByteArray",
                  [](const std::string& data) { return [text = byteArrayOf(data)] { return text.toUpper(); }; }),
  lower.contender("quelmcl",
                  [](const std::string& data) { return [text = stringOf(data)] { return IString::lowerCase(text); }; }),
  lower.contender("absl", [](const std::string& data) { return [&data] { return absl::AsciiStrToLower(data); }; }),
  lower.contender("QByteArray",
                  [](const std::string& data) { return [text = byteArrayOf(data)] { return text.toLower(); }; }),

  reverse.contender("quelmcl",
                    [](const std::string& data) { return [text = stringOf(data)] { return IString::reverse(text); }; }),
  reverse.contender("std::reverse",
                    [](const std::string& data) {
                      return [&data] {
                        std::string result(data);
                        std::reverse(result.begin(), result.end());
                        return result;
                      };
                    }),

  translateContenders<fourFrom, fourTo>(translate4),
  translateContenders<lettersFrom, lettersTo>(translate26),

  strip.contender("quelmcl",
                  [](const std::string& data) { return [text = stringOf(data)] { return IString::strip(text); }; }),
  strip.contender("QByteArray",
                  [](const std::string& data) { return [text = byteArrayOf(data)] { return text.trimmed(); }; }),
  strip.contender(
    "absl", [](const std::string& data) { return [&data] { return std::string(absl::StripAsciiWhitespace(data)); }; }),

  keyContenders<key1>(withKey1),
  keyContenders<key5>(withKey5),
  keyContenders<key16>(withKey16),
};

}  // namespace
