/// @file itime.hpp
/// ITime, a time of day to the second, and ICnrTime, its packed form.
///
///     const ITime start(22, 30, 0);
///     (start + ITime(3, 0, 0)).asString("%H:%M");  // "01:30": times wrap around midnight
///     ITime(-1).asString("%T");                    // "23:59:59"
///     ITime::parse("7:05 pm", "%I:%M %p");         // throws what is no time
///
/// Nothing but parse() throws, except for an exhausted heap where a text is made. Times are plain values.
#ifndef QUELMCL_ITIME_HPP
#define QUELMCL_ITIME_HPP

#include <quelmcl/ibase.hpp>

#include <iosfwd>

class IString;

/// A time of day in four bytes, as containers keep it.
struct ICnrTime {
  unsigned char hours;       ///< as ITime::hours()
  unsigned char minutes;     ///< as ITime::minutes()
  unsigned char seconds;     ///< as ITime::seconds()
  unsigned char ucReserved;  ///< 0
};

/// A time of day: seconds since midnight.
class QUELMCL_API ITime : public IBase {
public:
  /// @name Construction
  /// What is outside of one day wraps around it. Deliberate: a negative number of seconds that is a whole number of
  /// days gives 24:00:00, which is greater than every other time.
  /// @{

  /// Now.
  ITime() : ticks(now().ticks) {}
  /// From seconds since midnight; negative ones count back from the next midnight.
  ITime(long seconds) { initialize(seconds); }
  /// From its parts.
  ITime(unsigned hours, unsigned minutes, unsigned seconds = 0)
  {
    // Each part by itself, so that the largest numbers give what they stand for.
    initialize(static_cast<long>(hours % 24 * 3600 + minutes % 1440 * 60 + seconds % 86400));
  }
  /// From the packed form: 25:00:00 becomes 01:00:00.
  ITime(const ICnrTime& cnrTime);
  ITime(const ITime&) = default;
  ITime& operator=(const ITime&) = default;

  /// The current time by the system's clock and the local time zone.
  static ITime now();
  /// @}

  /// @name Parts
  /// @{
  long asSeconds() const { return ticks; }  ///< since midnight: 0 to 86399, or the 86400 told of above
  unsigned hours() const { return static_cast<unsigned>(ticks / 3600); }
  unsigned minutes() const { return static_cast<unsigned>(ticks / 60 % 60); }
  unsigned seconds() const { return static_cast<unsigned>(ticks % 60); }
  ICnrTime asICnrTime() const;
  /// @}

  /// The time as strftime writes it in this format, empty where the format says so; a null format is "%X", the
  /// locale's. What a format asks of a date is that of 31 December 1899. No time zone moves the time; %Z and %z tell
  /// of the zone that was in effect then.
  IString asString(const char* fmt = "%X") const;

  /// @name Reading
  /// Additions to the classic interface. The text has to match the format as strptime sees it, from its first byte to
  /// its last, and to name a time of day: at least an hour, and no leap second. A date is read over.
  /// @{

  /// The time that the text names. Throws IInvalidParameter 1102, which tells the text and the format.
  static ITime parse(const IString& text, const char* format);
  /// Whether the text names a time, which is then in `result`; else `result` stays as it is.
  static bool tryParse(const IString& text, const char* format, ITime& result);
  /// @}

  /// @name Comparison
  /// @{
  bool operator==(const ITime& aTime) const { return ticks == aTime.ticks; }
  bool operator!=(const ITime& aTime) const { return ticks != aTime.ticks; }
  bool operator<(const ITime& aTime) const { return ticks < aTime.ticks; }
  bool operator<=(const ITime& aTime) const { return ticks <= aTime.ticks; }
  bool operator>(const ITime& aTime) const { return ticks > aTime.ticks; }
  bool operator>=(const ITime& aTime) const { return ticks >= aTime.ticks; }
  /// @}

  /// @name Arithmetic
  /// Wraps around midnight.
  /// @{
  ITime operator+(const ITime& aTime) const { return ITime(ticks + aTime.ticks); }
  ITime operator-(const ITime& aTime) const { return ITime(ticks - aTime.ticks); }
  ITime& operator+=(const ITime& aTime) { return *this = *this + aTime; }
  ITime& operator-=(const ITime& aTime) { return *this = *this - aTime; }
  /// @}

protected:
  /// Becomes the time that a constructor with these seconds makes.
  void initialize(long seconds);

private:
  long ticks;
};

/// Writes the time as the locale writes times.
QUELMCL_API std::ostream& operator<<(std::ostream& aStream, const ITime& aTime);

#endif
