// words.cpp - benchmarks: words, which white space separates: count them, take them, close them up, find some in a row.
// Unpacked: libabsl-dev libabsl20220623 libqt5core5a qtbase5-dev libicu72 libdouble-conversion3 libpcre2-16-0 libzstd1 zlib1g
// Unpacked: libglib2.0-0 libpcre3
// Links: absl_strings absl_strings_internal absl_throw_delegate absl_raw_logging_internal absl_int128 Qt5Core
// Options: -fPIC
#include <QtCore/QByteArray>

#include <string>

static std::string asText(const QByteArray& text)
{
  return text.toStdString();
}

#include "frame.hpp"

#include <quelmcl/istrword.hpp>

#include <absl/strings/ascii.h>
#include <absl/strings/str_split.h>

namespace {

using bench::Limit;
using bench::stringOf;
using bench::Workload;

const char* const whiteSpace = "\t\n\v\f\r ";

/// Short texts must not lose, whatever long ones gain.
std::vector<bench::Goal> sizes(double ratio, double ratioOfLong)
{
  return {{32, 1}, {1024, ratio}, {65536, ratioOfLong}, {16777216, ratioOfLong}};
}

QByteArray byteArrayOf(const std::string& text)
{
  return QByteArray(text.data(), static_cast<int>(text.size()));
}

auto splitByAbsl(const std::string& text)
{
  return absl::StrSplit(text, absl::ByAnyChar(whiteSpace), absl::SkipEmpty());
}

// ---- count, split, take one ----

Workload count("count_words", bench::proseOf, sizes(0.2, 0.2), Limit::scan);
Workload split("split_words", bench::proseOf, sizes(0.2, 0.2), Limit::scan);
Workload middle("middle_word", bench::proseOf, {{32, 1}, {1024, 0.2}, {65536, 0.2}}, Limit::scan);

unsigned long numberOfMiddleWord(const std::string& text)
{
  return stringOf(text).numWords() / 2 + 1;
}

// ---- close up ----

/// Words with one to three blanks between them.
std::string looseProse(std::size_t size)
{
  std::mt19937 random(static_cast<unsigned>(size));
  std::string text;
  text.reserve(size + 3);
  for (const char byte : bench::proseOf(size))
    if (byte == ' ')
      text.append(random() % 3 + 1, ' ');
    else
      text += byte;
  text.resize(size, '.');
  return text;
}

Workload space("normalise_spaces", looseProse, sizes(0.3, 0.3));

// ---- a phrase: words in a row, the last ones of the text ----

const char* const phrase = "kept by zqzq";

std::string endingWithPhrase(std::size_t size)
{
  std::string text = bench::proseOf(size);
  text.replace(size - std::strlen(phrase) - 1, std::string::npos, std::string(" ") + phrase);
  return text;
}

Workload findPhrase("find_phrase", endingWithPhrase, sizes(0.2, 0.1), Limit::scan);

const bool all[] = {
  count.contender("quelmcl",
                  [](const std::string& data) { return [text = stringOf(data)] { return text.numWords(); }; }),
  count.contender("absl",
                  [](const std::string& data) {
                    return [&data] {
                      const auto words = splitByAbsl(data);
                      return std::distance(words.begin(), words.end());
                    };
                  }),

  split.contender("quelmcl",
                  [](const std::string& data) { return [text = stringOf(data)] { return IWordList(text).size(); }; }),
  split.contender("absl",
                  [](const std::string& data) {
                    return [&data] {
                      const std::vector<absl::string_view> words = splitByAbsl(data);
                      return words.size();
                    };
                  }),

  middle.contender("quelmcl",
                   [](const std::string& data) {
                     return [text = stringOf(data), number = numberOfMiddleWord(data)] { return text.word(number); };
                   }),
  middle.contender("absl",
                   [](const std::string& data) {
                     return [&data, number = numberOfMiddleWord(data)] {
                       const auto words = splitByAbsl(data);
                       return std::string(*std::next(words.begin(), static_cast<std::ptrdiff_t>(number - 1)));
                     };
                   }),

  space.contender("quelmcl",
                  [](const std::string& data) { return [text = stringOf(data)] { return IString::space(text); }; }),
  space.contender("QByteArray",
                  [](const std::string& data) { return [text = byteArrayOf(data)] { return text.simplified(); }; }),
  space.contender("absl",
                  [](const std::string& data) {
                    return [&data] {
                      std::string text(data);
                      absl::RemoveExtraAsciiWhitespace(&text);
                      return text;
                    };
                  }),

  findPhrase.contender("quelmcl",
                       [](const std::string& data) {
                         return
                           [text = stringOf(data), sought = IString(phrase)] { return text.indexOfPhrase(sought); };
                       }),
  findPhrase.contender("QByteArray",
                       [](const std::string& data) {
                         return [text = byteArrayOf(data), sought = QByteArray(phrase)] {
                           return text.simplified().indexOf(sought.simplified()) + 1;
                         };
                       }),
};

}  // namespace
