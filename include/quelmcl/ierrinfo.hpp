/// @file ierrinfo.hpp
/// IBaseErrorInfo, the common face of errors reported by outside services, and its four kinds: the C library, the
/// operating system, the presentation system, the X library.
///
///     std::FILE* const stream = std::fopen(name, "r");
///     if (stream == nullptr)  // throws IAccessError, text "fopen:No such file or directory", id ENOENT
///       ICLibErrorInfo::throwCLibError("fopen", IExceptionLocation(__FILE__, __func__, __LINE__));
///
/// An object of one of the kinds is built right after the failure, asked, and gone: it owns its text and cannot be
/// copied. Its text is FUNCTION:TEXT, without a blank between them, or TEXT alone when no function is named. Building
/// one costs an allocation and throws IOutOfMemory (4) where there is no storage. The macros in iexcept.hpp fill the
/// location in.
#ifndef QUELMCL_IERRINFO_HPP
#define QUELMCL_IERRINFO_HPP

#include <quelmcl/ivbase.hpp>

/// Text and number of a failed call into an outside service, caught at the moment of the failure. Derived classes say
/// which service; `throwError` turns the information into an exception of the library.
class QUELMCL_API IBaseErrorInfo : public IVBase {
public:
  /// Chooses the class of exception to throw.
  enum ExceptionType : int {
    accessError = 0,          ///< IAccessError
    deviceError = 1,          ///< IDeviceError
    invalidParameter = 2,     ///< IInvalidParameter
    invalidRequest = 3,       ///< IInvalidRequest
    outOfSystemResource = 4,  ///< IOutOfSystemResource
    outOfWindowResource = 5,  ///< IOutOfWindowResource
    outOfMemory = 6,          ///< IOutOfMemory
    resourceExhausted = 7     ///< IResourceExhausted
  };

  IBaseErrorInfo() = default;
  IBaseErrorInfo(const IBaseErrorInfo&) = default;
  ~IBaseErrorInfo() override;

  /// The error text, owned by this object.
  virtual operator const char*() const = 0;
  /// The error text, owned by this object.
  virtual const char* text() const = 0;
  /// The service's number for the error; 0 when it has none.
  virtual unsigned long errorId() const = 0;
  /// Non-zero when the service gave information about the error.
  virtual int isAvailable() const = 0;

  /// Logs and throws the exception that `name` selects, with this object's text and error id, the group `errorGroup`
  /// (not copied, may be null) and the location. A `name` outside of the enumeration throws nothing: the function
  /// returns.
  void throwError(const IExceptionLocation& location, ExceptionType name = accessError,
                  IException::Severity severity = IException::recoverable,
                  const char* errorGroup = IException::baseLibrary);

private:
  IBaseErrorInfo& operator=(const IBaseErrorInfo&) = delete;
};

/// A failed call of the operating system.
class QUELMCL_API ISystemErrorInfo : public IBaseErrorInfo {
public:
  /// The number is kept, but not shown in the text, which is message 186 of the library's catalog.
  explicit ISystemErrorInfo(unsigned long systemErrorId, const char* systemFunctionName = nullptr);
  ~ISystemErrorInfo() override;

  /// The same as text().
  operator const char*() const override;
  const char* text() const override;
  /// The number that the constructor was given.
  unsigned long errorId() const override;
  /// Always non-zero.
  int isAvailable() const override;

  /// Logs and throws the exception that `name` selects, with text and number as above and the group
  /// IException::operatingSystem. A `name` outside of the enumeration throws nothing: the function returns.
  static void throwSystemError(unsigned long ulSystemErrorId, const char* pFunctionName,
                               const IExceptionLocation& location, ExceptionType name = accessError,
                               IException::Severity severity = IException::recoverable);

private:
  ISystemErrorInfo(const ISystemErrorInfo&) = delete;
  ISystemErrorInfo& operator=(const ISystemErrorInfo&) = delete;

  int bClError;
  unsigned long ulClErrorId;
  char* pClErrorText;
};

/// A failed call of the C library, as errno tells it.
class QUELMCL_API ICLibErrorInfo : public IBaseErrorInfo {
public:
  /// Reads errno, before anything else happens, and leaves it as it is. The text is the C library's own, in the
  /// language of the locale in force; where it has none, "No Error text is available".
  explicit ICLibErrorInfo(const char* pCLibFunctionName = nullptr);
  ~ICLibErrorInfo() override;

  /// The same as text().
  operator const char*() const override;
  const char* text() const override;
  /// What errno was.
  unsigned long errorId() const override;
  /// Non-zero when the C library has a text for the error.
  int isAvailable() const override;

  /// Logs and throws the exception that `name` selects, with text and number as above and the group
  /// IException::CLibrary. A `name` outside of the enumeration throws nothing: the function returns.
  static void throwCLibError(const char* pFunctionName, const IExceptionLocation& location,
                             ExceptionType name = accessError, IException::Severity severity = IException::recoverable);

private:
  ICLibErrorInfo(const ICLibErrorInfo&) = delete;
  ICLibErrorInfo& operator=(const ICLibErrorInfo&) = delete;

  int bClError;
  unsigned long ulClErrno;
  char* pClErrorText;
};

/// A failed call of the X library. That library is not asked: there is neither a number nor a text of its own.
class QUELMCL_API IXLibErrorInfo : public IBaseErrorInfo {
public:
  /// The text is "No error text is available.".
  explicit IXLibErrorInfo(const char* XLibFunctionName = nullptr);
  ~IXLibErrorInfo() override;

  /// The same as text().
  operator const char*() const override;
  const char* text() const override;
  /// Always 0.
  unsigned long errorId() const override;
  /// Always 0.
  int isAvailable() const override;

  /// Logs and throws the exception that `name` selects, with text and number as above and the group
  /// IException::baseLibrary. A `name` outside of the enumeration throws nothing: the function returns.
  static void throwXLibError(const char* functionName, const IExceptionLocation& location,
                             ExceptionType name = accessError, IException::Severity severity = IException::recoverable);

private:
  IXLibErrorInfo(const IXLibErrorInfo&) = delete;
  IXLibErrorInfo& operator=(const IXLibErrorInfo&) = delete;

  int bClInfoAvail;
  unsigned long ulClErrorCode;
  char* pClErrorText;
};

/// A failed call of the presentation system. It has no numbers.
class QUELMCL_API IGUIErrorInfo : public IBaseErrorInfo {
public:
  /// The text is message 185 of the library's catalog.
  explicit IGUIErrorInfo(const char* GUIFunctionName = nullptr);
  ~IGUIErrorInfo() override;

  /// The text, without a call of text().
  operator const char*() const override;
  const char* text() const override;
  /// Always 0.
  unsigned long errorId() const override;
  /// Always 0.
  int isAvailable() const override;

  /// Logs and throws the exception that `name` selects, with text and number as above and the group
  /// IException::presentationSystem. A `name` outside of the enumeration throws nothing: the function returns.
  static void throwGUIError(const char* pFunctionName, const IExceptionLocation& location,
                            ExceptionType name = accessError, IException::Severity severity = IException::recoverable);

private:
  IGUIErrorInfo(const IGUIErrorInfo&) = delete;
  IGUIErrorInfo& operator=(const IGUIErrorInfo&) = delete;

  char* pClFuncNameText;
};

#endif
