/// @file probe.hpp
/// Starting the probe, a program that traces as its arguments say.
#ifndef QUELMCL_TESTS_TRACE_PROBE_HPP
#define QUELMCL_TESTS_TRACE_PROBE_HPP

#include "support/child_process.hpp"

#include <cstdio>
#include <string>
#include <vector>

typedef std::vector<std::string> Words;

/// Runs the probe's commands with the settings ("KOLTA TRACE=on"), in `folder` if one is named.
inline quelmcl_test::ChildProcess probe(const Words& settings, const Words& commands, const std::string& folder = "")
{
  Words words(1, QUELMCL_TRACE_PROBE);
  words.insert(words.end(), commands.begin(), commands.end());
  return quelmcl_test::runChild(words, settings, folder);
}

/// The prefix of line `number` of a child's trace, as it must look.
inline std::string prefixOf(const quelmcl_test::ChildProcess& child, int number)
{
  char prefix[64];
  std::snprintf(prefix, sizeof prefix, "%08d %06ld:01 ", number, child.processId);
  return prefix;
}

#endif
