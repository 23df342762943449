// replay.cpp - runs a fuzz target on inputs that are there, without a fuzzer: those of a text file, one a line in hexadecimal digits
// ("fuzz/seeds/words.txt"), or the bytes of any other file, such as a finding ("build/fuzz/findings/...").
#include "agreement.hpp"

#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

[[noreturn]] void fail(const std::string& why)
{
  std::fprintf(stderr, "replay: %s\n", why.c_str());
  std::exit(EXIT_FAILURE);
}

bool endsIn(const std::string& text, const std::string& ending)
{
  return text.size() >= ending.size() && text.compare(text.size() - ending.size(), ending.size(), ending) == 0;
}

std::string decoded(const std::string& digits)
{
  if (digits.size() % 2 != 0)
    fail("half a byte in the line " + digits);
  std::string bytes;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    const std::string pair = digits.substr(i, 2);
    if (std::isxdigit(static_cast<unsigned char>(pair[0])) == 0 ||
        std::isxdigit(static_cast<unsigned char>(pair[1])) == 0)
      fail("no hexadecimal digits: " + pair);
    bytes += static_cast<char>(std::stoul(pair, nullptr, 16));
  }
  return bytes;
}

std::vector<std::string> inputsOf(const std::string& path)
{
  std::ifstream file(path, std::ios::binary);
  if (!file)
    fail("cannot read " + path);
  std::vector<std::string> inputs;
  if (!endsIn(path, ".txt")) {
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    return inputs;
  }
  for (std::string line; std::getline(file, line);)
    if (!line.empty() && line[0] != '#')
      inputs.push_back(decoded(line));
  return inputs;
}

}  // namespace

int main(int argc, char** argv)
{
  LLVMFuzzerInitialize(&argc, &argv);
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i)
    for (const std::string& input : inputsOf(argv[i])) {
      // Bytes with nothing behind them, so that sanitizers see who reads on.
      const std::vector<std::uint8_t> bytes(input.begin(), input.end());
      LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
      ++count;
    }
  if (count == 0)
    fail("there are no inputs");
  std::printf("%zu inputs\n", count);
}
