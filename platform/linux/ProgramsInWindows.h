#pragma once
// What runs in the windows of other programs, whichever window system lists them: by the processes below them, and by
// what terminal multiplexers tell of their panes.

#include <chrono>
#include <filesystem>
#include <map>

#include "core/workspace/Applications.h"
#include "core/workspace/Multiplexers.h"
#include "platform/linux/InstalledPrograms.h"

namespace ambrel {

// `all` goes from the bottom to the top of the stack. A window without a process has nothing but its class.
class ProgramsInWindows {
 public:
  ProgramsInWindows(std::filesystem::path proc, ProgramFolders folders)
      : installed(std::move(folders)), proc_(std::move(proc)) {}

  // The window's own program, and the agents whose commands run in it.
  std::vector<std::string> programsOf(const WindowRecord& window, const std::vector<WindowRecord>& all);
  // The agents that can be seen in it: of several panes those that are shown.
  std::vector<std::string> agentsSeenIn(const WindowRecord& window, const std::vector<WindowRecord>& all);
  std::optional<std::uint32_t> windowOf(std::string_view bundleID, const std::vector<WindowRecord>& all);
  // Brings its pane to the front of the session.
  std::optional<std::uint32_t> windowOfProcess(int pid, const std::vector<WindowRecord>& all);

  InstalledPrograms installed;

 private:
  // What the multiplexer prints; empty when it does not answer in time, and for a while after that.
  std::string answer(int server, std::vector<std::string> command);

  std::filesystem::path proc_;
  std::map<int, std::chrono::steady_clock::time_point> silentUntil_;  // by a multiplexer's process
};

}  // namespace ambrel
