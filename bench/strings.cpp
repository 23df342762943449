// strings.cpp - benchmarks: what every program does with strings all day: make, copy, join, compare, cut and fit them.
// Unpacked: libglib2.0-dev libglib2.0-0 libpcre2-8-0 libpcre3
// Links: :libglib-2.0.so.0
#include "frame.hpp"

#include <memory>

// Declared here rather than in its own headers, which lie in a folder of their own at each width.
extern "C" char* g_strconcat(const char* first, ...);
extern "C" void g_free(void* block);

namespace {

using bench::stringOf;
using bench::Workload;

// ---- make and destroy: one allocation. Goal: no worse than a bare copy ----

Workload make("make", bench::randomDigits, {{8, 0.9}, {32, 0.9}, {1024, 0.9}});

// ---- copy: shares the text, whatever its length. Peer: a shared pointer ----

Workload duplicate("copy", bench::randomDigits, {{32, 1.5}, {1048576, 1.5}});

// ---- copy and change one byte: the copy is made then ----

Workload copyAndChange("copy_and_change", bench::randomDigits, {{32, 0.9}, {65536, 1.05}});

template <class Text>
Text changed(const Text& text)
{
  Text copy(text);
  copy[3] = 'x';
  return copy;
}

// ---- join two texts ----

Workload join("join", bench::randomDigits, {{32, 0.9}, {1024, 0.9}});

// ---- compare: equal texts, so that all is read ----

Workload compare("compare", bench::randomDigits, {{32, 1.1}, {1024, 1.1}, {65536, 1.1}});

template <class Text>
auto comparison(const std::string& data)
{
  return [a = Text(data.c_str()), b = Text(data.c_str())] { return a == b; };
}

// ---- fit, put in, take out: one allocation and one copy each ----

const std::vector<bench::Goal> editing = {{32, 1.2}, {1024, 1.2}};

Workload subString("substring", bench::randomDigits, editing);
Workload leftJustify("left_justify", bench::randomDigits, editing);
Workload center("center", bench::randomDigits, editing);
Workload insert("insert", bench::randomDigits, editing);
Workload remove("remove", bench::randomDigits, editing);

unsigned half(const std::string& data)
{
  return static_cast<unsigned>(data.size() / 2);
}

const bool all[] = {
  make.contender("quelmcl", [](const std::string& data) { return [text = data.c_str()] { return IString(text); }; }),
  make.contender("std::string",
                 [](const std::string& data) { return [text = data.c_str()] { return std::string(text); }; }),
  make.contender("strdup",
                 [](const std::string& data) {
                   return [text = data.c_str()] {
                     struct Freed {
                       void operator()(char* block) const { std::free(block); }
                     };
                     return std::unique_ptr<char, Freed>(strdup(text));
                   };
                 }),

  duplicate.contender("quelmcl",
                      [](const std::string& data) { return [text = stringOf(data)] { return IString(text); }; }),
  duplicate.contender("shared_ptr",
                      [](const std::string& data) {
                        return [text = std::make_shared<const std::string>(data)] {
                          return std::shared_ptr<const std::string>(text);
                        };
                      }),

  copyAndChange.contender(
    "quelmcl", [](const std::string& data) { return [text = stringOf(data)] { return changed(text); }; },
    [](const std::string& text) { return text.substr(0, 2); }),
  copyAndChange.contender(
    "std::string", [](const std::string& data) { return [text = data] { return changed(text); }; },
    [](const std::string& text) { return text.substr(0, 2); }),

  join.contender("quelmcl",
                 [](const std::string& data) { return [a = stringOf(data), b = stringOf(data)] { return a + b; }; }),
  join.contender("std::string", [](const std::string& data) { return [a = data, b = data] { return a + b; }; }),
  join.contender("glib",
                 [](const std::string& data) {
                   return [&data] {
                     struct Freed {
                       void operator()(char* block) const { g_free(block); }
                     };
                     return std::unique_ptr<char, Freed>(
                       g_strconcat(data.c_str(), data.c_str(), static_cast<char*>(nullptr)));
                   };
                 }),

  compare.contender("quelmcl", comparison<IString>),
  compare.contender("std::string", comparison<std::string>),

  subString.contender(
    "quelmcl",
    [](const std::string& data) { return [text = stringOf(data), n = half(data)] { return text.subString(5, n); }; }),
  subString.contender("std::string",
                      [](const std::string& data) { return [&data, n = half(data)] { return data.substr(4, n); }; }),

  leftJustify.contender("quelmcl",
                        [](const std::string& data) {
                          return [text = stringOf(data), n = half(data)] {
                            return IString::leftJustify(text, text.length() + n);
                          };
                        }),
  leftJustify.contender("std::string",
                        [](const std::string& data) {
                          return [&data, n = half(data)] {
                            std::string text;
                            text.reserve(data.size() + n);
                            text.append(data).append(n, ' ');
                            return text;
                          };
                        }),

  center.contender("quelmcl",
                   [](const std::string& data) {
                     return
                       [text = stringOf(data), n = half(data)] { return IString::center(text, text.length() + 2 * n); };
                   }),
  center.contender("std::string",
                   [](const std::string& data) {
                     return [&data, n = half(data)] {
                       std::string text;
                       text.reserve(data.size() + 2 * n);
                       text.append(n, ' ').append(data).append(n, ' ');
                       return text;
                     };
                   }),

  insert.contender("quelmcl",
                   [](const std::string& data) {
                     return [text = stringOf(data), n = half(data)] { return IString(text).insert("inserted", n); };
                   }),
  insert.contender("std::string",
                   [](const std::string& data) {
                     return [&data, n = half(data)] {
                       std::string text;
                       text.reserve(data.size() + 8);
                       text.append(data, 0, n).append("inserted").append(data, n, std::string::npos);
                       return text;
                     };
                   }),

  remove.contender("quelmcl",
                   [](const std::string& data) {
                     return [text = stringOf(data), n = half(data)] { return IString::remove(text, n, 8); };
                   }),
  remove.contender("std::string",
                   [](const std::string& data) {
                     return [&data, n = half(data)] {
                       std::string text;
                       text.reserve(data.size() - 8);
                       text.append(data, 0, n - 1).append(data, n + 7, std::string::npos);
                       return text;
                     };
                   }),
};

}  // namespace
