#include "core/calendar/CalendarFolders.h"

#include <algorithm>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t largestSettings = 1 << 20;

bool isInside(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

// A folder of KDE or GNOME holds much else; of these only the files that are calendars.
void addCalendars(const fs::path& folder, std::string_view file, std::vector<fs::path>& found) {
  std::error_code error;
  for (fs::directory_iterator at(folder, error), end; !error && at != end; at.increment(error))
    if (fs::path candidate = file.empty() ? at->path() : at->path() / file; candidate.extension() == ".ics")
      found.push_back(std::move(candidate));
}

}  // namespace

fs::path expandedPath(std::string_view text, const fs::path& home) {
  if (text == "~") return home;
  if (text.starts_with("~/")) text.remove_prefix(2);
  fs::path path = (home / text).lexically_normal();
  return path.has_filename() ? path : path.parent_path();
}

std::vector<fs::path> pathsInSettings(std::string_view settings, const fs::path& home) {
  std::vector<fs::path> paths;
  for (const std::string_view line : split(settings, '\n')) {
    const auto equals = line.find('=');
    if (equals == line.npos || trimmed(line.substr(0, equals)) != "path") continue;
    std::string_view value = trimmed(line.substr(equals + 1));
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
      value = value.substr(1, value.size() - 2);
    value = value.substr(0, value.find('*'));
    if (!value.empty()) paths.push_back(expandedPath(value, home));
  }
  return paths;
}

std::vector<fs::path> calendarFolders(const UserHome& home) {
  std::vector<fs::path> folders;
  if (home.home.empty()) return folders;
  for (const fs::path& settings :
       {home.config / "khal/config", home.config / "vdirsyncer/config", home.home / ".vdirsyncer/config"})
    if (const auto text = readFile(settings, largestSettings))
      for (fs::path& path : pathsInSettings(*text, home.home))
        // The home folder itself, by a mistake in the settings, would be read from end to end.
        if (!isInside(home.home, path)) folders.push_back(std::move(path));
  for (const fs::path& usual :
       {home.home / ".calendars", home.home / ".calendar", home.data / "khal/calendars", home.data / "calendars",
        home.data / "vdirsyncer/calendars", home.data / "evolution/calendar", home.data / "evolution/tasks",
        home.data / "korganizer"})
    folders.push_back(usual);
  return folders;
}

std::vector<fs::path> foundCalendars(const UserHome& home) {
  std::vector<fs::path> candidates;
  for (const fs::path& folder : calendarFolders(home)) {
    if (folder == home.data / "evolution/calendar")
      addCalendars(folder, "calendar.ics", candidates);
    else if (folder == home.data / "evolution/tasks")
      addCalendars(folder, "tasks.ics", candidates);
    else if (folder == home.data / "korganizer")
      addCalendars(folder, {}, candidates);
    else
      candidates.push_back(folder);
  }
  std::vector<fs::path> found;
  for (const fs::path& candidate : candidates) {
    const auto status = fileStatus(candidate);
    if (!status || !(status->isFolder || status->isRegular)) continue;
    if (std::ranges::any_of(found, [&](const fs::path& known) { return isInside(candidate, known); })) continue;
    std::erase_if(found, [&](const fs::path& known) { return isInside(known, candidate); });
    found.push_back(candidate);
  }
  return found;
}

}  // namespace ambrel
