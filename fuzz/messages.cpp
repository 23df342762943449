// messages.cpp - fuzz target: variables and line ends of messages, beside tests/support/message_reference.hpp. The catalog functions of
// the C library are replaced: any message can be in the catalog, and none has to be compiled into a file for it.
#include "input.hpp"
#include "support/message_reference.hpp"

#include <quelmcl/imsgtext.hpp>

#include <nl_types.h>

using fuzz::agree;

namespace {

const std::vector<fuzz::Palette> palettes = {
  {"%", "%", "1", "2", "9", "a"}, {"%", "%1", "%2", "%9", "%%", "\r", "\n", "\r\n", "x"}, {}};

/// The catalog: one message, which may be missing, and how often it is open.
const char* messageInCatalog = nullptr;
int openings = 0;

/// A C text: what stands before the first NUL.
std::string untilNul(const std::string& text)
{
  return text.c_str();
}

}  // namespace

extern "C" {

nl_catd catopen(const char*, int)
{
  ++openings;
  return &messageInCatalog;
}

char* catgets(nl_catd, int set, int number, const char* otherwise) noexcept
{
  const bool isThere = set == 1 && number == 1 && messageInCatalog != nullptr;
  return const_cast<char*>(isThere ? messageInCatalog : otherwise);
}

int catclose(nl_catd) noexcept
{
  --openings;
  return 0;
}

}  // extern "C"

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
  fuzz::Input input(bytes, count, palettes);
  const bool isThere = input.below(16) != 0;
  const std::string message = untilNul(input.text(16));
  std::vector<std::string> inserts(input.below(10));
  for (std::string& insert : inserts)
    insert = untilNul(input.text(5));
  const std::string otherText = untilNul(input.text(5));

  const char* given[9] = {};
  for (std::size_t i = 0; i < inserts.size(); ++i)
    given[i] = inserts[i].c_str();
  if (inserts.size() < 8 && input.flag())
    given[inserts.size() + 1] = "behind a null one";  // which counts for nothing

  messageInCatalog = isThere ? message.c_str() : nullptr;
  IMessageText text(1, "any", given[0], given[1], given[2], given[3], given[4], given[5], given[6], given[7], given[8]);
  messageInCatalog = nullptr;

  const std::string unavailable = "Unable to load text from message file.";
  agree(openings == 0, "closes every catalog that it opens");
  const std::string expected = isThere ? reference::filledIn(message, inserts) : unavailable;
  agree(std::string(text.text()), expected);

  const IMessageText copy(text);
  text.setDefaultText(otherText.c_str());
  agree(std::string(text.text()), isThere ? expected : otherText);
  agree(std::string(copy.text()), expected);
  text = copy;
  agree(std::string(text.text()), expected);
  text.setDefaultText(nullptr);
  agree(std::string(text.text()), expected);
  return 0;
}
