#pragma once
// Desktop entries (freedesktop.org Desktop Entry Specification): how installed programs are started.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

// What a program offers besides being started, such as "New Window".
struct DesktopAction {
  std::string id;
  std::string name;  // unlocalised
  std::string icon;
  std::string exec;
  bool operator==(const DesktopAction&) const = default;
};

struct DesktopEntry {
  std::string id;    // the file's name without ".desktop" ("org.kde.konsole")
  std::string name;  // unlocalised
  std::string icon;
  std::string exec;     // the command line as written in the entry
  std::string tryExec;  // what has to be there for the program to count as installed
  std::string workingFolder;
  std::string windowClass;  // StartupWMClass
  std::vector<DesktopAction> actions{};
  bool runsInTerminal = false;
  bool isHidden = false;  // the entry says that the program has been removed
  bool isInMenus = true;  // it is for the user to start
  bool isActivatedByBus = false;
  bool operator==(const DesktopEntry&) const = default;
};

// Absent when the text holds no application that can be started by a command or over D-Bus. A hidden entry is given
// back, since it hides entries of the same id in later folders.
std::optional<DesktopEntry> parseDesktopEntry(std::string_view id, std::string_view text);

// The id of an entry at this path below an "applications" folder ("kde/about.desktop" is "kde-about"); absent when
// the file is not a desktop entry.
std::optional<std::string> desktopEntryID(std::string_view relativePath);

// The arguments of the entry's command, opened with no file: quotes resolved, field codes replaced or left out. No
// shell takes part. `file` is where the entry was found. Absent when the command is badly quoted or empty.
std::optional<std::vector<std::string>> commandOf(const DesktopEntry& entry, std::string_view file);
// The same for one of its actions.
std::optional<std::vector<std::string>> commandOf(const DesktopEntry& entry, const DesktopAction& action,
                                                  std::string_view file);

}  // namespace ambrel
