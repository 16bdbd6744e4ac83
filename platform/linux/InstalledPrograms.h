#pragma once
// The desktop entries of this machine, and starting programs without a shell.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/workspace/DesktopEntry.h"

namespace ambrel {

struct InstalledProgram {
  DesktopEntry entry;
  std::filesystem::path file;
};

// Where entries and commands are looked for, best place first.
struct ProgramFolders {
  std::vector<std::filesystem::path> data;      // each may have an "applications" folder
  std::vector<std::filesystem::path> commands;  // the folders of PATH

  // From XDG_DATA_HOME, XDG_DATA_DIRS, PATH and HOME.
  static ProgramFolders ofThisSession();
};

class InstalledPrograms {
 public:
  explicit InstalledPrograms(ProgramFolders folders) : folders_(std::move(folders)) {}

  // Read at the first call, and again when one of the folders has changed.
  const std::vector<DesktopEntry>& entries();
  // An entry of this id that has not been removed and whose program is there.
  std::optional<InstalledProgram> find(std::string_view id);
  // The first executable file of this name; a name with a slash is itself a path.
  std::optional<std::filesystem::path> command(std::string_view name) const;
  // The command that runs another one in a new terminal window; empty when there is no terminal.
  std::vector<std::string> inTerminal(const std::vector<std::string>& command) const;

 private:
  void read();

  ProgramFolders folders_;
  std::vector<InstalledProgram> programs_;
  std::vector<DesktopEntry> entries_;
  struct SeenFolder {
    std::filesystem::path path;
    std::optional<std::int64_t> changed;  // absent while there is no such folder
  };
  std::vector<SeenFolder> seenFolders_;
  bool isRead_ = false;
};

// Starts a program that outlives us, with these arguments, in this folder (empty: the home folder).
bool startDetached(const std::vector<std::string>& command, const std::string& folder);

}  // namespace ambrel
