#pragma once
// What the tools of a developer say about themselves: Git, local servers, containers, Homebrew, simulators.

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/developer/Containers.h"
#include "core/developer/GitState.h"
#include "core/developer/LocalServers.h"
#include "core/developer/Simulators.h"
#include "platform/FolderWatch.h"

namespace ambrel {

struct ToolFailure {
  enum class Reason {
    missing,    // it is not installed, does not run, or there is nothing at that place
    noAccess,   // this user may not use it
    elsewhere,  // it is set up on another computer
    failed,     // it answered with an error or too late
  };
  Reason reason = Reason::missing;
  std::string words = {};  // the tool's own, if it has any
  bool operator==(const ToolFailure&) const = default;
};
template <typename Answer>
using ToolAnswer = std::variant<Answer, ToolFailure>;

struct GitReading {
  GitState state;
  // Where a change of the state shows, but for what nobody can watch: see `isPartlyWatched`.
  std::vector<WatchedFolder> folders;
  bool isPartlyWatched = false;  // the working tree has too many folders
};

struct ContainerReading {
  std::string engine;  // "Docker", "Podman"
  std::vector<Container> containers;
};

// Every call may wait for a disk or another process: not for the main thread. Different calls may come at the same time
// from several threads. Nothing that a repository or a container says is ever run.
class DeveloperTools {
 public:
  virtual ~DeveloperTools() = default;

  // Of the repository that holds the folder. Changes are not counted any further when the limit is over.
  virtual ToolAnswer<GitReading> git(const std::filesystem::path& folder, std::chrono::milliseconds limit) = 0;

  virtual std::vector<LocalServer> servers() = 0;
  // Asks the process to end, if it is still the same one and listens there; otherwise false.
  virtual bool stop(const LocalServer& server) = 0;

  virtual ToolAnswer<ContainerReading> containers() = 0;
  virtual std::optional<ToolFailure> setRunning(const std::string& container, bool isRunning) = 0;
  // The last lines, oldest first.
  virtual ToolAnswer<std::string> log(const std::string& container) = 0;

  virtual ToolAnswer<std::vector<std::string>> outdatedPackages() = 0;  // lines of parseOutdated

  virtual ToolAnswer<std::vector<Simulator>> simulators() = 0;
  virtual bool start(const Simulator& simulator) = 0;
};

}  // namespace ambrel
