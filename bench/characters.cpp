// characters.cpp - benchmarks: texts in UTF-8, where characters have one to four bytes: plain letters, letters with one
// accent in six, and characters of three bytes each.
// Unpacked: libicu-dev libicu72 libabsl-dev libabsl20220623
// Links: icuuc icudata absl_strings absl_strings_internal absl_throw_delegate absl_raw_logging_internal absl_int128
#include "frame.hpp"

#include <absl/strings/ascii.h>
#include <unicode/unistr.h>
#include <unicode/utf8.h>

#include <clocale>

namespace {

using bench::Limit;
using bench::stringOf;
using bench::Workload;

/// Before the first string is made: it settles of which kind strings are.
const bool isUtf8 = [] {
  if (std::setlocale(LC_ALL, "C.UTF-8") != nullptr)
    return true;
  std::fprintf(stderr, "bench: there is no locale C.UTF-8\n");
  std::exit(1);
}();

/// Short texts must not lose, whatever long ones gain.
std::vector<bench::Goal> sizes(double ratio)
{
  return {{32, 1}, {1024, ratio}, {65536, ratio}};
}

std::string latin(std::size_t size)
{
  std::string text = bench::proseOf(size);
  for (std::size_t i = 3; i + 2 < size; i += 7)
    text.replace(i, 2, "\xC3\xA9");
  return text;
}

/// Characters of three bytes, and blanks where none fits any more.
std::string cjk(std::size_t size)
{
  std::mt19937 random(static_cast<unsigned>(size));
  std::string text;
  for (; text.size() + 3 <= size;)
    text += {static_cast<char>(0xE4 + random() % 5), static_cast<char>(0x80 + random() % 64),
             static_cast<char>(0x80 + random() % 64)};
  return text.append(size - text.size(), ' ');
}

std::int32_t lengthOf(const std::string& text)
{
  return static_cast<std::int32_t>(text.size());
}

const std::uint8_t* bytesOf(const std::string& text)
{
  return reinterpret_cast<const std::uint8_t*>(text.data());
}

std::string byIcu(const std::string& text, icu::UnicodeString& (*change)(icu::UnicodeString&))
{
  icu::UnicodeString characters = icu::UnicodeString::fromUTF8(text);
  std::string result;
  return change(characters).toUTF8String(result);
}

// ---- count ----

Workload countAscii("utf8_count_ascii", bench::proseOf, sizes(0.2), Limit::scan);
Workload countLatin("utf8_count_latin", latin, sizes(0.2), Limit::scan);
Workload countCjk("utf8_count_cjk", cjk, sizes(0.2), Limit::scan);

bool countContenders(Workload& workload)
{
  workload.contender("quelmcl",
                     [](const std::string& data) { return [text = stringOf(data)] { return text.numCharacters(); }; });
  return workload.contender("ICU", [](const std::string& data) {
    return [&data] {
      unsigned count = 0;
      const std::uint8_t* const bytes = bytesOf(data);
      for (std::int32_t offset = 0, length = lengthOf(data); offset < length; ++count)
        U8_FWD_1(bytes, offset, length);
      return count;
    };
  });
}

// ---- upper case: letters of one byte only, so that bytes will do for the peer ----

std::vector<bench::Goal> upperGoals = {{32, 1}, {1024, 1}, {65536, 1}};

Workload upperAscii("utf8_upper_ascii", bench::proseOf, upperGoals);
Workload upperCjk("utf8_upper_cjk", cjk, upperGoals);

bool upperContenders(Workload& workload)
{
  workload.contender(
    "quelmcl", [](const std::string& data) { return [text = stringOf(data)] { return IString::upperCase(text); }; });
  workload.contender("absl", [](const std::string& data) { return [&data] { return absl::AsciiStrToUpper(data); }; });
  return workload.contender("ICU", [](const std::string& data) {
    return
      [&data] { return byIcu(data, [](icu::UnicodeString& text) -> icu::UnicodeString& { return text.toUpper(); }); };
  });
}

// ---- reverse by characters ----

Workload reverseAscii("utf8_reverse_ascii", bench::proseOf, sizes(1));
Workload reverseLatin("utf8_reverse_latin", latin, sizes(1));
Workload reverseCjk("utf8_reverse_cjk", cjk, sizes(1));

bool reverseContenders(Workload& workload)
{
  workload.contender(
    "quelmcl", [](const std::string& data) { return [text = stringOf(data)] { return IString::reverse(text); }; });
  return workload.contender("ICU", [](const std::string& data) {
    return
      [&data] { return byIcu(data, [](icu::UnicodeString& text) -> icu::UnicodeString& { return text.reverse(); }); };
  });
}

// ---- walk backwards: over characters of a set, from the end to the one at the beginning that is not of it ----

const char* const accented = "\xC3\xA9\xC3\xBC";  // two characters of two bytes

std::string accentedOnly(std::size_t size)
{
  std::mt19937 random(static_cast<unsigned>(size));
  std::string text(size, 'x');
  for (std::size_t i = size % 2 == 0 ? 2 : 1; i < size; i += 2)
    text.replace(i, 2, accented + 2 * (random() % 2), 2);
  return text;
}

Workload walkBack("utf8_walk_back", accentedOnly, sizes(2), Limit::scan);

// ---- find a text of several characters ----

const char* const sought =
  "\xC3\xBC"
  "ber";

std::string endingWithSought(std::size_t size)
{
  std::string text = latin(size - std::strlen(sought));
  return text + sought;
}

Workload find("utf8_find", endingWithSought, {{32, 2.5}, {1024, 2.5}, {65536, 2.5}}, Limit::scan);

const bool all[] = {
  countContenders(countAscii),
  countContenders(countLatin),
  countContenders(countCjk),
  upperContenders(upperAscii),
  upperContenders(upperCjk),
  reverseContenders(reverseAscii),
  reverseContenders(reverseLatin),
  reverseContenders(reverseCjk),

  walkBack.contender("quelmcl",
                     [](const std::string& data) {
                       return [text = stringOf(data), set = IString(accented)] { return text.lastIndexOfAnyBut(set); };
                     }),
  walkBack.contender("ICU",
                     [](const std::string& data) {
                       return [&data] {
                         const std::uint8_t* const bytes = bytesOf(data);
                         for (std::int32_t offset = lengthOf(data); offset > 0;) {
                           U8_BACK_1(bytes, 0, offset);
                           if (bytes[offset] != 0xC3 || (bytes[offset + 1] != 0xA9 && bytes[offset + 1] != 0xBC))
                             return offset + 1;
                         }
                         return 0;
                       };
                     }),

  find.contender("quelmcl",
                 [](const std::string& data) {
                   return [text = stringOf(data), needle = IString(sought)] { return text.indexOf(needle); };
                 }),
  find.contender("memmem",
                 [](const std::string& data) {
                   return [&data] {
                     const void* const found = memmem(data.data(), data.size(), sought, std::strlen(sought));
                     return static_cast<const char*>(found) - data.data() + 1;
                   };
                 }),
};

}  // namespace
