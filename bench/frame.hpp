// frame.hpp - what every topic of the benchmarks stands in: the same data and the same loop for the library and for its peers.
//
// A topic is one file, bench/<topic>.cpp, and nothing else. Its first lines say what it needs; `./dev bench` and CMake read
// them:
//
//     // Packages: libgmp-dev            Debian packages of the width that is measured, installed
//     // Unpacked: libabsl-dev           the same, only unpacked below build/peers, where they refuse to be installed
//     // Links: gmp absl_strings
//     // Options: -fPIC                  for the compiler, where a peer's headers ask for them
//
// A workload has a name, data of several sizes, a goal for each size, and contenders. A contender makes of the data whatever
// it works on, and of that the piece of work that is timed:
//
//     const bench::Workload hex("hex_encode", bench::randomBytes, {{1024, 0.3}});
//     const auto ours = hex.contender("quelmcl", [](const std::string& data) {
//       return [bytes = IString(data.data(), unsigned(data.size()))] { return IString::c2x(bytes); };
//     });
//
// What the pieces of work return is compared before anything is timed: a contender with another result than the first one
// ends the program. One that has the same result in another form brings a function that makes it equal for that comparison.
// Benchmarks are called BM_<workload>/<who>/<size>; the contender "quelmcl" is the library. For every size a limit is timed
// as well: a copy of the data by memcpy, or one pass over it by memchr where nothing is written.
//
// With the counting library in front of it (LD_PRELOAD) and QUELMCL_BENCH_COUNTS naming a file, the program notes there
// what each contender takes from the heap. `./dev bench` runs it once in this way, without timing.
#ifndef QUELMCL_BENCH_FRAME_HPP
#define QUELMCL_BENCH_FRAME_HPP

#include "support/allocations.hpp"

#include <quelmcl/istring.hpp>

#include <benchmark/benchmark.h>

#include <dlfcn.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace bench {

/// The compiler must have this value in storage. The packaged function of this kind goes wrong with g++ 12 at 32 bits.
template <class Value>
void keep(const Value& value)
{
  asm volatile("" : : "r"(&value) : "memory");
}

inline std::string asText(const std::string& text)
{
  return text;
}

inline std::string asText(const IString& text)
{
  return std::string(static_cast<const char*>(text), text.length());
}

/// Results that are numbers: positions, counts, answers.
template <class Number>
std::enable_if_t<std::is_integral<Number>::value, std::string> asText(Number number)
{
  return std::to_string(number);
}

template <class Release>
std::string asText(const std::unique_ptr<char, Release>& text)
{
  return text.get();
}

inline std::string asText(const std::shared_ptr<const std::string>& text)
{
  return *text;
}

/// The same bytes in every run.
inline std::string randomBytes(std::size_t size)
{
  std::mt19937 random(static_cast<unsigned>(size));
  std::string bytes(size, '\0');
  for (char& byte : bytes)
    byte = static_cast<char>(random() >> 24);
  return bytes;
}

/// The same digits in every run, without a zero in front.
inline std::string randomDigits(std::size_t size)
{
  std::mt19937 random(static_cast<unsigned>(size));
  std::string digits(size, '\0');
  for (char& digit : digits)
    digit = static_cast<char>('0' + random() % 10);
  digits[0] = '1';
  return digits;
}

inline IString stringOf(const std::string& bytes)
{
  return IString(bytes.data(), bytes.size());
}

/// Words of small letters.
inline std::string proseOf(std::size_t size)
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

/// What one round of a piece of work takes from the heap, in a file for the table; peers that cannot be had stand there,
/// too. Does nothing without the library that counts.
class HeapNotes {
public:
  template <class Work>
  static void note(const std::string& benchmarkName, Work& work)
  {
    const HeapNotes& notes = only();
    if (notes.file == nullptr)
      return;
    notes.start();
    keep(work());
    const Allocations counted = notes.stop();
    std::fprintf(notes.file, "%s %lu %zu\n", benchmarkName.c_str(), counted.blocks, counted.peakBytes);
  }

  static void noteMissing(const std::string& benchmarkName, const std::string& why)
  {
    if (only().file != nullptr)
      std::fprintf(only().file, "missing %s %s\n", benchmarkName.c_str(), why.c_str());
  }

private:
  static const HeapNotes& only()
  {
    static const HeapNotes notes;
    return notes;
  }

  HeapNotes()
    : start(reinterpret_cast<BenchStartCounting*>(dlsym(RTLD_DEFAULT, "benchStartCounting"))),
      stop(reinterpret_cast<BenchStopCounting*>(dlsym(RTLD_DEFAULT, "benchStopCounting")))
  {
    const char* const path = std::getenv("QUELMCL_BENCH_COUNTS");
    if (path != nullptr && start != nullptr && stop != nullptr)
      file = std::fopen(path, "w");
  }
  HeapNotes(const HeapNotes&) = delete;
  HeapNotes& operator=(const HeapNotes&) = delete;
  ~HeapNotes()
  {
    if (file != nullptr)
      std::fclose(file);
  }

  BenchStartCounting* start;
  BenchStopCounting* stop;
  std::FILE* file = nullptr;
};

/// What no contender can pass: to copy the data, or to read it once. Work that is no pass over data has none.
enum class Limit { copy, scan, none };

/// A size, and how many times as long as the best peer the library may take there.
struct Goal {
  std::size_t size;
  double ratio;
};

inline auto copyingOf(const std::string& data)
{
  return [&data, copy = std::vector<char>(data.size())]() mutable {
    std::memcpy(copy.data(), data.data(), data.size());
    keep(copy[0]);
    return 0;
  };
}

inline auto scanOf(const std::string& data)
{
  return [zeros = std::vector<char>(data.size())] { return std::memchr(zeros.data(), 1, zeros.size()); };
}

class Workload {
public:
  Workload(std::string workload, std::string (*dataOfSize)(std::size_t), std::vector<Goal> goalsOfSizes,
           Limit limit = Limit::copy)
    : name(std::move(workload)), makeData(dataOfSize), goals(std::move(goalsOfSizes))
  {
    if (limit == Limit::copy)
      add("memcpy", copyingOf);
    if (limit == Limit::scan)
      add("memchr", scanOf);
  }

  /// `prepare` takes the data, which outlives the benchmark, and returns the piece of work. `asExpected` makes its result what the
  /// others have. Returns true, so that it can be an initialiser.
  template <class Prepare>
  bool contender(const std::string& who, Prepare prepare, std::string (*asExpected)(const std::string&) = nullptr)
  {
    for (const Goal& goal : goals) {
      auto work = prepare(dataOf(goal.size));
      const std::string result = asText(work());
      compare(who, asExpected == nullptr ? result : asExpected(result), goal.size);
      HeapNotes::note(nameOf(who, goal.size), work);
    }
    add(who, prepare);
    return true;
  }

  /// A peer that one would compare with, and why it cannot be had. The table names it.
  bool missing(const std::string& who, const std::string& why)
  {
    for (const Goal& goal : goals)
      HeapNotes::noteMissing(nameOf(who, goal.size), why);
    return true;
  }

private:
  std::string nameOf(const std::string& who, std::size_t size) const
  {
    return "BM_" + name + "/" + who + "/" + std::to_string(size);
  }

  template <class Prepare>
  void add(const std::string& who, Prepare prepare)
  {
    for (const Goal& goal : goals) {
      const std::string& data = dataOf(goal.size);
      benchmark::RegisterBenchmark(nameOf(who, goal.size).c_str(), [goal, prepare, &data](benchmark::State& state) {
        auto work = prepare(data);
        for (auto iteration : state) {
          (void)iteration;
          keep(work());
        }
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(goal.size));
        state.counters["goal"] = goal.ratio;
      });
    }
  }

  const std::string& dataOf(std::size_t size)
  {
    std::string& data = dataOfSizes[size];
    if (data.empty())
      data = makeData(size);
    return data;
  }

  void compare(const std::string& who, const std::string& result, std::size_t size)
  {
    const auto known = results.emplace(size, result);
    if (known.first->second == result)
      return;
    std::fprintf(stderr, "bench: %s of %zu: %s has another result\n", name.c_str(), size, who.c_str());
    std::exit(1);
  }

  const std::string name;
  std::string (*const makeData)(std::size_t);
  const std::vector<Goal> goals;
  std::map<std::size_t, std::string> dataOfSizes;
  std::map<std::size_t, std::string> results;
};

/// Said in the results, for the table.
inline const bool contextIsSaid = [] {
  benchmark::AddCustomContext("compiler", "g++ " __VERSION__);
  benchmark::AddCustomContext("bits", std::to_string(8 * sizeof(void*)));
  return true;
}();

}  // namespace bench

#endif
