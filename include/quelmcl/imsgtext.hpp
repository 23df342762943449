/// @file imsgtext.hpp
/// IMessageText, one message of a catalog with its variables filled in.
///
///     IMessageText welcome(12, "shop.cat", "Ada");   // "Welcome, %1!" becomes "Welcome, Ada!"
///     welcome.setDefaultText("Welcome!");            // used only if the catalog could not be read
///     std::puts(welcome);
#ifndef QUELMCL_IMSGTEXT_HPP
#define QUELMCL_IMSGTEXT_HPP

#include <quelmcl/idefs.hpp>

/// Loads one message by number and owns its text. Loading never throws, so that it can be used while an exception is
/// built; a message that cannot be loaded reads "Unable to load text from message file.".
class QUELMCL_API IMessageText {
public:
  /// Message `messageId` of set 1 of the catalog `messageFileName` (as catopen takes it; null: no catalog). In the
  /// message, %1 to %9 stand for the texts given, up to the first null one; any other percent sign stays as it is,
  /// and %% stays %%. One pair of carriage return and line feed at the end is left out. Cost: the catalog is opened,
  /// read and closed.
  IMessageText(unsigned long messageId, const char* messageFileName, const char* textInsert1 = nullptr,
               const char* textInsert2 = nullptr, const char* textInsert3 = nullptr, const char* textInsert4 = nullptr,
               const char* textInsert5 = nullptr, const char* textInsert6 = nullptr, const char* textInsert7 = nullptr,
               const char* textInsert8 = nullptr, const char* textInsert9 = nullptr);
  /// What the source holds, with a text of its own.
  IMessageText(const IMessageText& source);
  /// Copies text and origin; keeps the old text when there is no storage for the new one.
  IMessageText& operator=(const IMessageText& source);
  ~IMessageText();

  /// The text, owned by this object; null only when not even the fallback sentence could be stored.
  const char* text() const noexcept { return pClText; }
  /// The same as text().
  operator const char*() const noexcept { return pClText; }

  /// Replaces the fallback sentence by a copy of `defaultText`. A text that came from the catalog stays, and so does
  /// the old one when `defaultText` is null or there is no storage. Returns this.
  IMessageText& setDefaultText(const char* defaultText);

private:
  char* replaceVars(const char* varText, char** insertTable, unsigned long tableEntries);

  char* pClText;
  int bClSuccess;
};

#endif
