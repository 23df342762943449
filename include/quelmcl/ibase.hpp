/// @file ibase.hpp
/// IBase, the root of the classes without virtual operations: severities, the library's version, message texts.
#ifndef QUELMCL_IBASE_HPP
#define QUELMCL_IBASE_HPP

#include <quelmcl/idefs.hpp>
#include <quelmcl/iexcbase.hpp>

#include <iosfwd>

class IString;
class IMessageText;

/// The empty root that every class of the library derives from, directly or through IVBase. It adds no bytes to an
/// object.
class QUELMCL_API IBase {
public:
  /// A version number. In memory it is one 32-bit word with `major` in its low half.
  struct Version {
    unsigned short major;  ///< 310 of 310.2
    unsigned short minor;  ///< 2 of 310.2
  };

  static const IException::Severity unrecoverable = IException::unrecoverable;  ///< the severity, for short
  static const IException::Severity recoverable = IException::recoverable;      ///< the severity, for short

  /// The text "IBase object". Derived classes hide it with a text of their own.
  IString asString() const;
  /// "IBase(@", the object's address in hexadecimal digits, ")". At 32 bits an address above 0x7FFFFFFF shows as
  /// 7FFFFFFF.
  IString asDebugInfo() const;

  /// The version of the library that the program runs with. The macros of idefs.hpp are that of the headers with which
  /// it was compiled.
  static Version version() noexcept;

  /// A message of the library's catalog (set 1), its variables %1 to %9 replaced by the texts given, up to the first
  /// null one. Never throws; without the catalog or the message the text is "Unable to load text from message file.".
  /// Opens and closes the catalog at every call (some microseconds). Include imsgtext.hpp to use the result.
  static IMessageText messageText(unsigned long messageId, const char* textInsert1 = nullptr,
                                  const char* textInsert2 = nullptr, const char* textInsert3 = nullptr,
                                  const char* textInsert4 = nullptr, const char* textInsert5 = nullptr,
                                  const char* textInsert6 = nullptr, const char* textInsert7 = nullptr,
                                  const char* textInsert8 = nullptr, const char* textInsert9 = nullptr);
  /// The name of the catalog in use: what setMessageFile was given, else the value that the environment variable
  /// "KOLTA MSGFILE" (with a blank) had at the first need, else "quelmcl.cat". The pointer is lost with the next
  /// setMessageFile.
  static const char* messageFile();
  /// Makes `name` the catalog for all later messages, as catopen takes it: a path, or a name to be found along
  /// NLSPATH. The text is copied; null is ignored. Not to be called while another thread may load a message.
  static void setMessageFile(const char* name);

private:
  static char* msgFile;
};

/// Writes "IBase object", whatever the object is.
QUELMCL_API std::ostream& operator<<(std::ostream& stream, const IBase& object);

#endif
