/// @file zone.hpp
/// Puts a time zone into effect for the length of a block.
#ifndef QUELMCL_TESTS_DATETIME_ZONE_HPP
#define QUELMCL_TESTS_DATETIME_ZONE_HPP

#include <cstdlib>
#include <ctime>
#include <string>
#include <unistd.h>

namespace datetests {

class Zone {
public:
  explicit Zone(const char* name) : hadOne(std::getenv("TZ") != nullptr), before(hadOne ? std::getenv("TZ") : "")
  {
    setenv("TZ", name, 1);
    tzset();
  }
  ~Zone()
  {
    if (hadOne)
      setenv("TZ", before.c_str(), 1);
    else
      unsetenv("TZ");
    tzset();
  }
  Zone(const Zone&) = delete;
  Zone& operator=(const Zone&) = delete;

  /// Whether this machine knows the zone of that name.
  static bool isKnown(const std::string& name) { return access(("/usr/share/zoneinfo/" + name).c_str(), R_OK) == 0; }

private:
  const bool hadOne;
  const std::string before;
};

}  // namespace datetests

#endif
