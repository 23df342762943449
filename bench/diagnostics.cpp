// diagnostics.cpp - benchmarks: exceptions that are thrown and caught, and trace statements while traces are off. Here the size
// is how often that is done.
// Unpacked: libspdlog-dev libfmt-dev
// Links: pthread
#define FMT_HEADER_ONLY 1

#include "frame.hpp"

#include <quelmcl/iexcept.hpp>
#include <quelmcl/itrace.hpp>

#include <spdlog/spdlog.h>

#include <stdexcept>

namespace {

using bench::Limit;
using bench::Workload;

std::string oneByteForEach(std::size_t size)
{
  return std::string(size, '.');
}

/// A loop of which the compiler cannot take anything out.
template <class Statement>
auto repeating(const std::string& data, Statement statement)
{
  return [count = data.size(), statement] {
    std::size_t sum = 0;
    for (std::size_t i = 0; i < count; ++i) {
      sum += statement();
      bench::keep(sum);
    }
    return sum;
  };
}

// ---- throw and catch, with a text and an id that are read. Peer: a second text beside the one of a runtime_error ----

const char* const text = "the request cannot be carried out while the file is open";

class Failure : public std::runtime_error {
public:
  Failure(const char* what, const char* itsId) : std::runtime_error(what), id(itsId) {}
  const std::string id;
};

Workload throwing("throw_and_catch", oneByteForEach, {{1, 3}, {100, 3}}, Limit::none);

std::size_t throwOurs()
{
  try {
    throw IInvalidRequest(text, 1234);
  } catch (const IException& failure) {
    return std::strlen(failure.text()) + (failure.errorId() == 1234);
  }
}

std::size_t throwStandard()
{
  try {
    throw Failure(text, "1234");
  } catch (const Failure& failure) {
    return std::strlen(failure.what()) + (failure.id == "1234");
  }
}

// ---- trace statements that write nothing ----

Workload traceLine("trace_line_off", oneByteForEach, {{1000, 1}}, Limit::none);
Workload traceFunction("trace_function_off", oneByteForEach, {{1000, 1}}, Limit::none);

std::size_t tracedByOurs()
{
  QUELMCL_TRACE_FUNCTION();
  return 1;
}

std::size_t tracedBySpdlog()
{
  spdlog::trace("> tracedBySpdlog");
  spdlog::trace("< tracedBySpdlog");
  return 1;
}

const bool all[] = {
  throwing.contender("quelmcl", [](const std::string& data) { return repeating(data, [] { return throwOurs(); }); }),
  throwing.contender("std::runtime_error",
                     [](const std::string& data) { return repeating(data, [] { return throwStandard(); }); }),

  traceLine.contender("quelmcl",
                      [](const std::string& data) {
                        return repeating(data, [] {
                          ITrace::write("a line");
                          return std::size_t{1};
                        });
                      }),
  traceLine.contender("spdlog",
                      [](const std::string& data) {
                        return repeating(data, [] {
                          spdlog::trace("a line");
                          return std::size_t{1};
                        });
                      }),

  traceFunction.contender("quelmcl",
                          [](const std::string& data) { return repeating(data, [] { return tracedByOurs(); }); }),
  traceFunction.contender("spdlog",
                          [](const std::string& data) { return repeating(data, [] { return tracedBySpdlog(); }); }),
};

}  // namespace
