#pragma once
// Where programs keep their calendars.

#include <filesystem>
#include <string>
#include <vector>

namespace ambrel {

struct UserHome {
  // $HOME, $XDG_DATA_HOME, $XDG_CONFIG_HOME, $XDG_CACHE_HOME
  std::filesystem::path home, data, config, cache;
  std::filesystem::path ownCache() const { return cache / "Ambrel"; }
};

// Folders and files that are there: those that the settings of khal and vdirsyncer name, and the usual ones of these,
// of GNOME and of KDE. Each once, and none inside of another.
std::vector<std::filesystem::path> foundCalendars(const UserHome& home);
// The folders to watch for these: each may appear or change there. They need not exist.
std::vector<std::filesystem::path> calendarFolders(const UserHome& home);

// The folders that settings in the manner of khal or vdirsyncer name with "path =", without what follows a '*'.
std::vector<std::filesystem::path> pathsInSettings(std::string_view settings, const std::filesystem::path& home);

// "~/x" is below the home folder, and so is what is not absolute.
std::filesystem::path expandedPath(std::string_view path, const std::filesystem::path& home);

}  // namespace ambrel
