// radix.cpp - fuzz target: conversions between number forms, beside tests/support/radix_reference.hpp.
#include "input.hpp"
#include "strings/string_probe.hpp"
#include "support/radix_reference.hpp"

using fuzz::agree;
using stringtests::made;

namespace {

const std::vector<fuzz::Palette> palettes = {
  {},
  fuzz::bytesOf("01"),
  fuzz::bytesOf("0123456789"),
  fuzz::bytesOf("0123456789abcdefABCDEF"),
  fuzz::bytesOf("\0\0\0\x01\x7F\x80\xFF"),
  fuzz::bytesOf("0019/:@AFGafg\0 "),
};

struct Operands {
  explicit Operands(fuzz::Input& input) : text(input.text(44)), string(made(text)) {}

  std::string text;
  IString string;
};

const fuzz::Operation<Operands> operations[] = {
  {"c2b", [](const Operands& on) { agree(IString::c2b(on.string), reference::c2b(on.text)); }},
  {"c2d", [](const Operands& on) { agree(IString::c2d(on.string), reference::c2d(on.text)); }},
  {"c2x", [](const Operands& on) { agree(IString::c2x(on.string), reference::c2x(on.text)); }},
  {"b2c", [](const Operands& on) { agree(IString::b2c(on.string), reference::b2c(on.text)); }},
  {"d2c", [](const Operands& on) { agree(IString::d2c(on.string), reference::d2c(on.text)); }},
  {"x2c", [](const Operands& on) { agree(IString::x2c(on.string), reference::x2c(on.text)); }},
  {"b2d", [](const Operands& on) { agree(IString::b2d(on.string), reference::c2d(reference::b2c(on.text))); }},
  {"b2x", [](const Operands& on) { agree(IString::b2x(on.string), reference::c2x(reference::b2c(on.text))); }},
  {"d2b", [](const Operands& on) { agree(IString::d2b(on.string), reference::c2b(reference::d2c(on.text))); }},
  {"d2x", [](const Operands& on) { agree(IString::d2x(on.string), reference::c2x(reference::d2c(on.text))); }},
  {"x2b", [](const Operands& on) { agree(IString::x2b(on.string), reference::c2b(reference::x2c(on.text))); }},
  {"x2d", [](const Operands& on) { agree(IString::x2d(on.string), reference::c2d(reference::x2c(on.text))); }},
  {"in place and shared",
   [](const Operands& on) {
     IString changed(on.string);
     agree(changed.x2d(), reference::c2d(reference::x2c(on.text)));
     agree(on.string, on.text);
   }},
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  fuzz::runOne(operations, input);
  return 0;
}
