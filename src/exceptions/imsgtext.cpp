// imsgtext.cpp - IMessageText, one message of a catalog, and the catalog that IBase keeps for the library.
// Tests: tests/exceptions/message_text_test.cpp, message_file_test.cpp, shipped_catalog_test.cpp
#include <quelmcl/ibase.hpp>
#include <quelmcl/imsgtext.hpp>

#include "exceptions/catalogguard.hpp"
#include "exceptions/quietstorage.hpp"
#include "exceptions/startup.hpp"
#include "foundation/errnoguard.hpp"

#include <climits>
#include <cstdlib>
#include <iterator>
#include <nl_types.h>

QUELMCL_KEEP_START_UP

using quelmcl::detail::copyText;
using quelmcl::detail::ErrnoGuard;
using quelmcl::detail::isDamagedCatalog;
using quelmcl::detail::NewHandlerPause;
using quelmcl::detail::releaseText;

namespace {

const char fallbackText[] = "Unable to load text from message file.";
const char catalogVariable[] = "KOLTA MSGFILE";
const char defaultCatalog[] = "quelmcl.cat";

/// A message catalog of the C library, open for the length of a block; without messages when it is damaged.
class Catalog {
public:
  explicit Catalog(const char* fileName) noexcept : isSound(!isDamagedCatalog(fileName)), descriptor()
  {
    if (isSound)
      descriptor = catopen(fileName, 0);
  }
  ~Catalog()
  {
    if (isSound)
      catclose(descriptor);
  }
  Catalog(const Catalog&) = delete;
  Catalog& operator=(const Catalog&) = delete;

  /// The message, or null. It lives as long as the catalog is open.
  const char* message(unsigned long messageId) const noexcept
  {
    constexpr int messageSet = 1;
    if (!isSound || messageId > INT_MAX)
      return nullptr;
    return catgets(descriptor, messageSet, static_cast<int>(messageId), nullptr);
  }

private:
  const bool isSound;
  nl_catd descriptor;
};

void dropCarriageReturnAndLineFeed(char* text)
{
  const std::size_t length = std::strlen(text);
  if (length >= 2 && text[length - 2] == '\r' && text[length - 1] == '\n')
    text[length - 2] = '\0';
}

/// The number of a variable such as "%3" at `p`, or 0 when there is none that `known` substitution texts answer for.
unsigned long variableAt(const char* p, unsigned long known)
{
  if (p[0] != '%' || p[1] < '1' || p[1] > '9')
    return 0;
  const unsigned long number = static_cast<unsigned long>(p[1] - '0');
  return number <= known ? number : 0;
}

/// Calls `literal(p, length)` for what stays of a message and `variable(number)` for what is replaced, from left to
/// right.
template <class Literal, class Variable>
void scanMessage(const char* text, unsigned long known, Literal literal, Variable variable)
{
  const char* p = text;
  while (*p != '\0') {
    const unsigned long number = variableAt(p, known);
    if (number != 0) {
      variable(number);
      p += 2;
      continue;
    }
    // Deliberate: a doubled percent sign stays doubled, it only keeps its second half from beginning a variable; and
    // whatever else follows a percent sign stays with it.  Test: MessageText.ADoubledPercentSignStaysDoubled
    const std::size_t length = p[0] == '%' && p[1] != '\0' ? 2 : 1;
    literal(p, length);
    p += length;
  }
}

}  // namespace

IMessageText::IMessageText(unsigned long messageId, const char* messageFileName, const char* textInsert1,
                           const char* textInsert2, const char* textInsert3, const char* textInsert4,
                           const char* textInsert5, const char* textInsert6, const char* textInsert7,
                           const char* textInsert8, const char* textInsert9)
  : pClText(nullptr), bClSuccess(0)
{
  const NewHandlerPause pause;
  const ErrnoGuard keepErrno;
  if (messageFileName != nullptr) {
    const char* inserts[] = {textInsert1, textInsert2, textInsert3, textInsert4, textInsert5,
                             textInsert6, textInsert7, textInsert8, textInsert9};
    unsigned long insertCount = 0;
    while (insertCount < std::size(inserts) && inserts[insertCount] != nullptr)
      ++insertCount;

    const Catalog catalog(messageFileName);
    if (const char* const message = catalog.message(messageId)) {
      bClSuccess = 1;
      pClText = replaceVars(message, const_cast<char**>(inserts), insertCount);
      if (pClText != nullptr)
        dropCarriageReturnAndLineFeed(pClText);
    }
  }
  if (pClText == nullptr) {
    bClSuccess = 0;
    pClText = copyText(fallbackText);
  }
}

IMessageText::IMessageText(const IMessageText& source) : pClText(nullptr), bClSuccess(source.bClSuccess)
{
  const NewHandlerPause pause;
  pClText = copyText(source.pClText);
}

IMessageText& IMessageText::operator=(const IMessageText& source)
{
  const NewHandlerPause pause;
  char* const copy = copyText(source.pClText);
  if (copy == nullptr && source.pClText != nullptr)
    return *this;
  releaseText(pClText);
  pClText = copy;
  bClSuccess = source.bClSuccess;
  return *this;
}

IMessageText::~IMessageText()
{
  releaseText(pClText);
}

IMessageText& IMessageText::setDefaultText(const char* defaultText)
{
  if (defaultText == nullptr || bClSuccess)
    return *this;
  const NewHandlerPause pause;
  if (char* const copy = copyText(defaultText)) {
    releaseText(pClText);
    pClText = copy;
  }
  return *this;
}

// Two passes over the message: one to measure the result, one to write it. Null when there is no storage.
char* IMessageText::replaceVars(const char* varText, char** insertTable, unsigned long tableEntries)
{
  std::size_t length = 0;
  scanMessage(
    varText, tableEntries, [&](const char*, std::size_t literalLength) { length += literalLength; },
    [&](unsigned long number) { length += std::strlen(insertTable[number - 1]); });

  char* const result = quelmcl::detail::obtainText(length + 1);
  if (result == nullptr)
    return nullptr;
  char* end = result;
  const auto append = [&](const char* text, std::size_t textLength) {
    std::memcpy(end, text, textLength);
    end += textLength;
  };
  scanMessage(varText, tableEntries, append,
              [&](unsigned long number) { append(insertTable[number - 1], std::strlen(insertTable[number - 1])); });
  *end = '\0';
  return result;
}

// ---- the library's catalog ----

char* IBase::msgFile = nullptr;

IMessageText IBase::messageText(unsigned long messageId, const char* textInsert1, const char* textInsert2,
                                const char* textInsert3, const char* textInsert4, const char* textInsert5,
                                const char* textInsert6, const char* textInsert7, const char* textInsert8,
                                const char* textInsert9)
{
  return IMessageText(messageId, messageFile(), textInsert1, textInsert2, textInsert3, textInsert4, textInsert5,
                      textInsert6, textInsert7, textInsert8, textInsert9);
}

// The name is stored at the first need, by whichever thread comes first; without storage for it the answer is still
// right.
const char* IBase::messageFile()
{
  if (char* const known = __atomic_load_n(&msgFile, __ATOMIC_ACQUIRE))
    return known;
  const char* const configured = secure_getenv(catalogVariable);
  const char* const name = configured == nullptr ? defaultCatalog : configured;
  const NewHandlerPause pause;
  char* const copy = copyText(name);
  if (copy == nullptr)
    return name;
  char* first = nullptr;
  if (__atomic_compare_exchange_n(&msgFile, &first, copy, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE))
    return copy;
  releaseText(copy);
  return first;
}

void IBase::setMessageFile(const char* name)
{
  if (name == nullptr)
    return;
  const NewHandlerPause pause;
  char* const copy = copyText(name);  // before the old name goes: `name` may be that very text
  if (copy == nullptr)
    return;
  releaseText(msgFile);
  __atomic_store_n(&msgFile, copy, __ATOMIC_RELEASE);
}
