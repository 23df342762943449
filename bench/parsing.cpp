// parsing.cpp - benchmarks: a record taken apart by a template, beside find and substr by hand. Each part becomes a text.
#include "frame.hpp"

#include <quelmcl/istparse.hpp>

namespace {

using bench::stringOf;
using bench::Workload;

/// A line of a package log; the size decides how long its last part is.
std::string record(std::size_t size)
{
  const std::string beginning = "2026-01-05 12.30.45 install libexample:i386 = ";
  return beginning + bench::randomDigits(size - beginning.size());
}

Workload takeApart("template_parse", record, {{64, 2}, {1024, 2}, {65536, 2}});

template <class Text>
struct Parts {
  Text day, time, action, package, architecture, version;
};

template <class Text>
std::string asText(const Parts<Text>& parts)
{
  using bench::asText;
  return asText(parts.day) + "|" + asText(parts.time) + "|" + asText(parts.action) + "|" + asText(parts.package) + "|" +
         asText(parts.architecture) + "|" + asText(parts.version);
}

Parts<IString> byTemplate(const IString& line)
{
  Parts<IString> parts;
  line >> parts.day >> parts.time >> parts.action >> parts.package >> ':' >> parts.architecture >> " = " >>
    parts.version;
  return parts;
}

/// What stands before `separator` from `from` on; goes on behind it.
std::string upTo(const char* separator, const std::string& line, std::size_t& from)
{
  const std::size_t end = line.find(separator, from);
  std::string part = line.substr(from, end - from);
  from = end + std::strlen(separator);
  return part;
}

Parts<std::string> byHand(const std::string& line)
{
  Parts<std::string> parts;
  std::size_t from = 0;
  parts.day = upTo(" ", line, from);
  parts.time = upTo(" ", line, from);
  parts.action = upTo(" ", line, from);
  parts.package = upTo(":", line, from);
  parts.architecture = upTo(" = ", line, from);
  parts.version = line.substr(from);
  return parts;
}

const bool all[] = {
  takeApart.contender("quelmcl",
                      [](const std::string& data) { return [line = stringOf(data)] { return byTemplate(line); }; }),
  takeApart.contender("find and substr", [](const std::string& data) { return [&data] { return byHand(data); }; }),
};

}  // namespace
