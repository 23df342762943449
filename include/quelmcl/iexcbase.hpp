/// @file iexcbase.hpp
/// The exception family: what every failure of the library looks like to those who catch it.
///
///     try {
///       const IString name("abc");
///       std::cout << name[7];
///     } catch (const IInvalidRequest& failure) {
///       std::cerr << failure.name() << ' ' << failure.errorId() << ": " << failure.text() << '\n';
///     }
///
/// Exceptions are thrown by value and own copies of their texts; file names, function names and error groups are only
/// pointed at and must outlive the exception, as string literals do. IException is not derived from std::exception.
/// An exception object is used by one thread at a time.
#ifndef QUELMCL_IEXCBASE_HPP
#define QUELMCL_IEXCBASE_HPP

#include <quelmcl/idefs.hpp>

/// Where an exception was thrown: file, function and line. A plain value; the names are not copied and must outlive it.
class QUELMCL_API IExceptionLocation {
public:
  /// An empty location: no names, line 0.
  IExceptionLocation() noexcept : pClFile(nullptr), pClFunction(nullptr), ulClLineNo(0) {}

  /// Stores the three values unchanged. `function` may be null when the caller does not know it.
  IExceptionLocation(const char* file, const char* function = nullptr, unsigned long line = 0) noexcept
    : pClFile(file), pClFunction(function), ulClLineNo(line)
  {
  }

  /// The file name as given, possibly null.
  const char* fileName() const noexcept { return pClFile; }
  /// The function name, or "Unknown" when none was given.
  const char* functionName() const noexcept;
  /// The line number as given.
  unsigned long lineNumber() const noexcept { return ulClLineNo; }

private:
  const char* pClFile;
  const char* pClFunction;
  unsigned long ulClLineNo;
};

/// One level of an exception's stack of texts, linked from the newest level to the oldest. Owns its text and all
/// older levels.
class QUELMCL_API IExcText {
public:
  /// Copies `text` and adopts `next`, the chain of older levels. A null text, or one whose copy gets no storage,
  /// gives a level without text.
  explicit IExcText(const char* text, const IExcText* next = nullptr);
  /// Copies this level and all older ones. Where storage runs out, the rest of `source` is taken over instead of
  /// copied (its texts then live here and are gone there), so that copying never fails.
  IExcText(const IExcText& source);
  /// Frees this level's text and all older levels, however many, without recursion.
  ~IExcText();
  IExcText& operator=(const IExcText&) = delete;

  /// The text of this level; null when there is none.
  const char* text() const noexcept { return pszClMsg; }
  /// The next older level; null at the oldest.
  const IExcText* next() const noexcept { return msgtxtClNext; }
  /// Appends `text` to this level's own text, with nothing between them. A null text changes nothing, and neither
  /// does one for which there is no storage.
  void appendText(const char* text);

private:
  void copyOrTakeOver(IExcText& source);

  char* pszClMsg;
  IExcText* msgtxtClNext;
};

/// The root of the family: a severity, an error id with the group it belongs to, a stack of texts and up to five
/// locations.
///
/// Whoever catches an exception may add a text and a location of his own and throw it on with `throw;`. While an
/// exception allocates, the process's new-handler is suspended; where storage runs out, texts are left away rather
/// than anything thrown.
class QUELMCL_API IException {
public:
  /// Whether the program can be expected to go on after the failure.
  enum Severity : int { unrecoverable = 0, recoverable = 1 };

  class TraceFn;

  /// Copies the text (null: an exception without text). An `errorId` of 0 means "no id". The error group starts as
  /// "Quelm Class Library". Never throws; costs two allocations when there is a text.
  explicit IException(const char* exceptionText, unsigned long errorId = 0,
                      Severity severity = IException::unrecoverable);
  /// An equal exception with texts of its own. Never fails: where storage runs out it takes the source's remaining
  /// texts over.
  IException(const IException& source);
  virtual ~IException();
  // The table of virtual operations continues below, in this order: isRecoverable, addLocation, name, logExceptionData,
  // terminate. It is part of the binary interface.

  /// Non-zero exactly when the severity is not `unrecoverable`.
  virtual int isRecoverable() const;
  /// Records one more throw location. Five are kept: the first four, and in the fifth place always the latest.
  /// Returns this.
  virtual IException& addLocation(const IExceptionLocation& location);
  /// The name of the class.
  virtual const char* name() const;
  /// Reports this exception through the trace function in effect. Returns this.
  virtual IException& logExceptionData();
  /// Ends the program through std::terminate.
  virtual void terminate();

  /// Puts a new text on top of the stack; the earlier ones stay below it. A null text changes nothing. Returns this.
  IException& setText(const char* text);
  /// Extends the newest text by `text`, with nothing between them; without any text yet it acts as setText. A null
  /// text changes nothing. Returns this.
  IException& appendText(const char* text);
  /// A text of the stack, 0 being the newest and textCount() - 1 the oldest; null past the end. The pointer lives as
  /// long as the exception and is lost when that text is appended to. Cost: `indexFromTop` steps.
  const char* text(unsigned long indexFromTop = 0) const;
  /// How many texts the stack holds.
  unsigned long textCount() const noexcept { return ulClTxtLvlCount; }

  /// Sets the error id (0: none). Returns this.
  IException& setErrorId(unsigned long errorId) noexcept;
  /// The error id; for the library's own failures it is the number of the catalog message. 0 when there is none.
  unsigned long errorId() const noexcept { return ulClErrorId; }
  /// Sets the severity. Returns this.
  IException& setSeverity(Severity severity) noexcept;
  /// Names the group that the error id belongs to: one of the constants below or a text of the caller's that outlives
  /// the exception; null for none. The text is not copied. Returns this.
  IException& setErrorCodeGroup(const char* errorGroup) noexcept;
  /// The group as set, possibly null.
  const char* errorCodeGroup() const noexcept { return fErrorGroup; }

  /// How many locations are recorded, 0 to 5.
  unsigned long locationCount() const noexcept { return ulexlocClCount; }
  /// A recorded location, 0 being the first that was added; null past the end. The pointer lives as long as the
  /// exception.
  const IExceptionLocation* locationAtIndex(unsigned long index) const noexcept;

  /// Makes `traceFunction` the hook that every logged exception is reported to, and returns the one that was in
  /// effect before. The hook must stay alive while it is in effect; it can be replaced but not removed. Not to be
  /// called while other threads log exceptions.
  static TraceFn* setTraceFunction(TraceFn& traceFunction);

  /// Logs and throws an IAssertionFailure with that text, error id 0, unrecoverable, group "Other Error Group".
  [[noreturn]] static void assertParameter(const char* exceptionText, IExceptionLocation location);

  // Names of error groups. They are ordinary variables; exceptions keep the pointer that they held when the group was
  // set.
  static const char* baseLibrary;         ///< "Quelm Class Library"
  static const char* CLibrary;            ///< "Standard C Library"
  static const char* operatingSystem;     ///< "Operating System"
  static const char* presentationSystem;  ///< "Presentation System"
  static const char* other;               ///< "Other Error Group"

private:
  IException& operator=(const IException&) = delete;

  Severity exsevCl;
  unsigned long ulClErrorId;
  IExceptionLocation exlocClArray[5];
  unsigned long ulexlocClCount;
  unsigned long ulClTxtLvlCount;
  IExcText* msgtxtClTop;
  const char* fErrorGroup;
};

QUELMCL_NO_VIRTUAL_DESTRUCTOR_BEGIN
/// The hook through which exceptions are reported before they are thrown. Derive from it and override `write` to send
/// the reports elsewhere; install it with IException::setTraceFunction. The hook is never destroyed through this
/// class.
class QUELMCL_API IException::TraceFn {
public:
  /// Receives one finished line of a report, without a newline at its end. The default writes it and a newline to
  /// standard error. `buffer` is valid during the call only.
  virtual void write(const char* buffer);
  /// Builds the report of one exception and passes it line by line to `write` of the hook in effect. When there is no
  /// storage for a line, the whole report goes to standard error instead. Cost: one allocation, one call of `write` a
  /// line.
  virtual void logData(IException& exception);

protected:
  TraceFn() noexcept {}
  /// Called after a report has been written through `write`. The default does nothing.
  virtual void exceptionLogged();
};

/// The plain hook: reports go to standard error. It is what the registry falls back to while no other was installed,
/// but the library installs one that traces when it is loaded (istartup.hpp).
class QUELMCL_API IExceptTraceFn : public IException::TraceFn {
public:
  IExceptTraceFn() noexcept {}
};
QUELMCL_NO_VIRTUAL_DESTRUCTOR_END

/// The registry of the exception-trace hook, one for the process.
class QUELMCL_API IExceptStaticPtr {
public:
  /// The hook in effect: the one installed by IException::setTraceFunction, else the library's own. Never null.
  static IException::TraceFn* traceFunction();

private:
  friend class IException;
  static IExceptStaticPtr registry;

  IException::TraceFn* pTraceFn;
  IException::TraceFn* pUserTraceFn;
};

/// A member of the family: as its base but for the class and its name().
#define QUELMCL_EXCEPTION_CLASS(Class, Base)                                   \
  class QUELMCL_API Class : public Base {                                      \
  public:                                                                      \
    explicit Class(const char* exceptionText, unsigned long errorId = 0,       \
                   IException::Severity severity = IException::unrecoverable); \
    Class(const Class& source);                                                \
    ~Class() override;                                                         \
    const char* name() const override;                                         \
                                                                               \
  private:                                                                     \
    Class& operator=(const Class&) = delete;                                   \
  }

/// Access to a resource was refused.
QUELMCL_EXCEPTION_CLASS(IAccessError, IException);
/// A check of the program's own assumptions failed; thrown by IException::assertParameter only.
QUELMCL_EXCEPTION_CLASS(IAssertionFailure, IException);
/// A device failed.
QUELMCL_EXCEPTION_CLASS(IDeviceError, IException);
/// An argument is outside of what the operation accepts: a text that is no date or time (1101, 1102).
QUELMCL_EXCEPTION_CLASS(IInvalidParameter, IException);
/// The object cannot do this, or not in its present state: a length that no string can hold (1010), reading past the
/// end (1011), a place that a sequence does not have (1201, 1202).
QUELMCL_EXCEPTION_CLASS(IInvalidRequest, IException);
/// Something that there is only so much of has run out; the derived classes say what.
QUELMCL_EXCEPTION_CLASS(IResourceExhausted, IException);
/// The heap is exhausted.
QUELMCL_EXCEPTION_CLASS(IOutOfMemory, IResourceExhausted);
/// A resource of the operating system is exhausted.
QUELMCL_EXCEPTION_CLASS(IOutOfSystemResource, IResourceExhausted);
/// A resource of the presentation system is exhausted.
QUELMCL_EXCEPTION_CLASS(IOutOfWindowResource, IResourceExhausted);

#endif
