/// @file zone.hpp
/// Puts a time zone into effect for the length of a block.
#ifndef QUELMCL_TESTS_DATETIME_ZONE_HPP
#define QUELMCL_TESTS_DATETIME_ZONE_HPP

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <unistd.h>
#include <vector>

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

  /// The names of all zones that this machine knows, of each kind: "Europe/Paris", "right/Europe/Paris".
  static std::vector<std::string> allKnown()
  {
    const std::string folder = "/usr/share/zoneinfo/";
    std::vector<std::string> names;
    std::error_code failure;
    for (const std::filesystem::directory_entry& entry :
         std::filesystem::recursive_directory_iterator(folder, failure)) {
      char magic[4] = {};
      std::ifstream(entry.path(), std::ios::binary).read(magic, sizeof magic);
      if (std::string(magic, sizeof magic) == "TZif")
        names.push_back(entry.path().string().substr(folder.size()));
    }
    return names;
  }

private:
  const bool hadOne;
  const std::string before;
};

}  // namespace datetests

#endif
