// agreement.cpp - what all fuzz targets have in common: the locale of the run, and what is told when an answer is wrong.
#include "agreement.hpp"

#include <quelmcl/ibuffer.hpp>
#include <quelmcl/istring.hpp>

#include <clocale>
#include <cstdio>
#include <cstdlib>

namespace {

const std::uint8_t* currentBytes = nullptr;
std::size_t currentCount = 0;
bool telling = false;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
  const char* const wanted = std::getenv("QUELMCL_TEST_LOCALE");
  if (wanted != nullptr && std::setlocale(LC_ALL, wanted) == nullptr) {
    std::fprintf(stderr, "This is to run in the locale %s, which this machine does not have.\n", wanted);
    std::exit(EXIT_FAILURE);
  }
  return 0;
}

namespace fuzz {

void remember(const std::uint8_t* bytes, std::size_t count)
{
  currentBytes = bytes;
  currentCount = count;
}

bool isTelling()
{
  return telling;
}

void tell(const char* what, const std::string& value)
{
  std::fprintf(stderr, "  %s: %s\n", what, value.c_str());
}

void inOperation(const char* name)
{
  if (telling)
    std::fprintf(stderr, "operation: %s\n", name);
}

std::string quoted(const std::string& bytes)
{
  std::string result = "\"";
  for (const char byte : bytes) {
    char shown[8];
    const bool isPlain = byte >= ' ' && byte < 0x7F && byte != '"' && byte != '\\';
    std::snprintf(shown, sizeof shown, isPlain ? "%c" : "\\x%02X", isPlain ? byte : static_cast<unsigned char>(byte));
    result += shown;
  }
  return result + "\" (" + std::to_string(bytes.size()) + " bytes)";
}

void disagree(const std::string& given, const std::string& expected)
{
  if (!telling) {
    telling = true;
    LLVMFuzzerTestOneInput(currentBytes, currentCount);  // comes back here, unless it was something else than the bytes
  }
  std::fprintf(stderr, "  the library answers  %s\n  the reference        %s\n", given.c_str(), expected.c_str());
  std::abort();
}

void agree(const std::string& given, const std::string& expected)
{
  if (given != expected)
    disagree(quoted(given), quoted(expected));
}

void agree(const IBuffer* given, const std::string& expected)
{
  agree(std::string(given->contents(), given->length()), expected);
  if (given->contents()[given->length()] != '\0')
    disagree("a text that no NUL follows", quoted(expected));
}

void agree(const IString& given, const std::string& expected)
{
  const char* const bytes = given;
  agree(IBuffer::fromContents(bytes), expected);
}

void agree(bool holds, const char* claim)
{
  if (!holds)
    disagree("something else", claim);
}

}  // namespace fuzz
