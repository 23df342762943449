// catalogguard.cpp - keeps damaged message catalogs from the C library, which trusts what it finds in them.
// Tests: tests/exceptions/message_text_test.cpp
//
// A catalog is a header of three numbers, a table of (set, message, offset of the text) whose size the header tells, the
// same table in the other order of bytes, and the texts, a NUL behind each. It is damaged when a table is larger than the
// file or empty, when an offset lies beyond the texts, or when the last text has no end.
#include "exceptions/catalogguard.hpp"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

enum class Finding { missing, sound, damaged };

class OpenFile {
public:
  explicit OpenFile(const char* path) noexcept : descriptor(open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  ~OpenFile()
  {
    if (isOpen())
      close(descriptor);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool isOpen() const noexcept { return descriptor >= 0; }

  /// How many bytes a regular file has; 0 for what is none.
  std::uint64_t size() const noexcept
  {
    struct stat status;
    return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) ? static_cast<std::uint64_t>(status.st_size) : 0;
  }

  bool read(void* into, std::size_t count, std::uint64_t offset) const noexcept
  {
    return pread(descriptor, into, count, static_cast<off_t>(offset)) == static_cast<ssize_t>(count);
  }

private:
  int descriptor;
};

std::uint32_t swapped(std::uint32_t number) noexcept
{
  return __builtin_bswap32(number);
}

struct Header {
  std::uint32_t magic;
  std::uint32_t planeSize;
  std::uint32_t planeDepth;
};

struct Entry {
  std::uint32_t set;
  std::uint32_t message;
  std::uint32_t offset;
};

/// Whether all texts of a table that begins at `begin` start within the `texts` bytes of texts.
bool hasOffsetsWithin(const OpenFile& file, std::uint64_t begin, std::uint64_t entries, std::uint64_t texts,
                      bool isSwapped) noexcept
{
  constexpr std::uint64_t atOnce = 128;
  Entry read[atOnce];
  for (std::uint64_t at = 0; at < entries; at += atOnce) {
    const std::size_t count = static_cast<std::size_t>(std::min(atOnce, entries - at));
    if (!file.read(read, count * sizeof(Entry), begin + at * sizeof(Entry)))
      return false;
    for (std::size_t i = 0; i < count; ++i)
      if ((isSwapped ? swapped(read[i].offset) : read[i].offset) >= texts)
        return false;
  }
  return true;
}

bool isSound(const OpenFile& file) noexcept
{
  constexpr std::uint32_t magicNumber = 0x960408DE;
  Header header;
  const std::uint64_t size = file.size();
  if (size <= sizeof header || !file.read(&header, sizeof header, 0))
    return false;

  const bool isSwapped = header.magic == swapped(magicNumber);
  if (!isSwapped && header.magic != magicNumber)
    return false;
  const std::uint64_t planeSize = isSwapped ? swapped(header.planeSize) : header.planeSize;
  const std::uint64_t planeDepth = isSwapped ? swapped(header.planeDepth) : header.planeDepth;
  constexpr std::size_t pair = 2 * sizeof(Entry);  // one entry in each of the two tables
  const std::uint64_t room = (size - sizeof header) / pair;
  if (planeSize == 0 || planeDepth == 0 || planeSize > room / planeDepth)
    return false;

  const std::uint64_t entries = planeSize * planeDepth;
  const std::uint64_t table = entries * sizeof(Entry);
  const std::uint64_t texts = size - sizeof header - entries * pair;
  char last = 'x';
  return texts != 0 && file.read(&last, 1, size - 1) && last == '\0' &&
         hasOffsetsWithin(file, sizeof header, entries, texts, false) &&
         hasOffsetsWithin(file, sizeof header + table, entries, texts, true);
}

Finding examine(const char* path) noexcept
{
  const OpenFile file(path);
  if (!file.isOpen())
    return Finding::missing;
  return isSound(file) ? Finding::sound : Finding::damaged;
}

/// A path that is put together piece by piece; one that is too long becomes none.
class Path {
public:
  void append(const char* piece, std::size_t count) noexcept
  {
    fits = fits && count < sizeof text - length;
    if (!fits)
      return;
    std::memcpy(text + length, piece, count);
    length += count;
    text[length] = '\0';
  }
  void append(const char* piece) noexcept { append(piece, std::strlen(piece)); }
  void forget() noexcept { fits = false; }

  Finding examined() const noexcept { return fits && length != 0 ? examine(text) : Finding::missing; }

private:
  char text[PATH_MAX] = {};
  std::size_t length = 0;
  bool fits = true;
};

/// Appends what stands for "%letter" in a template of NLSPATH; `language` is the value of LANG.
void appendVariable(Path& path, char letter, const char* name, const char* language) noexcept
{
  const std::size_t beforeTerritory = std::strcspn(language, "_.");
  const std::size_t beforeCodeset = std::strcspn(language, ".");
  switch (letter) {
  case 'N':
    path.append(name);
    break;
  case 'L':
    path.append(language);
    break;
  case 'l':
    path.append(language, beforeTerritory);
    break;
  case 't':
    if (language[beforeTerritory] == '_')
      path.append(language + beforeTerritory + 1, beforeCodeset - beforeTerritory - 1);
    break;
  case 'c':
    if (language[beforeCodeset] == '.')
      path.append(language + beforeCodeset + 1);
    break;
  case '%':
    path.append("%");
    break;
  default:
    path.forget();
    break;
  }
}

/// What there is at the first place of a list of templates where there is a file.
Finding firstFound(const char* templates, const char* name, const char* language) noexcept
{
  for (const char* p = templates;; ++p) {
    Path path;
    if (*p == ':' || *p == '\0')
      path.append(name);  // nothing between colons is the name itself
    for (; *p != ':' && *p != '\0'; ++p) {
      if (*p != '%')
        path.append(p, 1);
      else if (p[1] != '\0')
        appendVariable(path, *++p, name, language);
    }
    const Finding found = path.examined();
    if (found != Finding::missing || *p == '\0')
      return found;
  }
}

}  // namespace

bool quelmcl::detail::isDamagedCatalog(const char* name) noexcept
{
  if (std::strchr(name, '/') != nullptr)
    return examine(name) == Finding::damaged;

  const char* language = secure_getenv("LANG");
  if (language == nullptr || *language == '\0')
    language = "C";
  if (const char* const templates = secure_getenv("NLSPATH"); templates != nullptr && *templates != '\0') {
    const Finding found = firstFound(templates, name, language);
    if (found != Finding::missing)
      return found == Finding::damaged;
  }
  constexpr char ofTheSystem[] =
    "/usr/share/locale/%L/%N:/usr/share/locale/%L/LC_MESSAGES/%N:/usr/share/locale/%l/%N:/usr/share/locale/%l/"
    "LC_MESSAGES/%N";
  return firstFound(ofTheSystem, name, language) == Finding::damaged;
}
