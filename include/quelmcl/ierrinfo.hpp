/// @file ierrinfo.hpp
/// IBaseErrorInfo, the common face of errors reported by outside services.
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

#endif
