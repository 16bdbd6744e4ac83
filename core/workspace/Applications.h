#pragma once
// Which program a window belongs to, and which window a program has.
//
// A few programs are known by the identifier that the program stores; for these a table gives the names under which
// Linux knows them. An agent's command that runs in a terminal makes the terminal's window count as that agent's
// application too.

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/workspace/DesktopEntry.h"
#include "core/workspace/Processes.h"

namespace ambrel {

struct KnownApplication {
  std::string_view bundleID;
  std::span<const std::string_view> entries;   // ids of desktop entries, best first
  std::span<const std::string_view> classes;   // window classes, in lower case
  std::span<const std::string_view> commands;  // names of the agent's command in a terminal
  std::span<const std::string_view> scripts;   // ends of the script's path when an interpreter runs the command
};

const KnownApplication* findApplication(std::string_view bundleID);

// The agent whose command this process is: by its name or the name of its program ("claude"), or, when an
// interpreter runs it, by the name of the script ("node /usr/bin/claude"). Zombies do not count.
const KnownApplication* agentOf(const ProcessRecord& process);

// A window that a window manager manages.
struct WindowRecord {
  std::uint32_t id = 0;
  std::optional<int> pid;  // absent when it does not say, or when it is shown from another machine
  std::string instance;    // of WM_CLASS
  std::string className;
  bool operator==(const WindowRecord&) const = default;
};

// The identifier of the program that owns the window: from the table, else the id of its desktop entry, else its
// class in lower case; empty when it has none.
std::string applicationOf(const WindowRecord& window, const std::vector<DesktopEntry>& entries);

// The name of a program as people know it: that of its desktop entry, else the last part of its identifier.
std::string applicationName(std::string_view bundleID, const std::vector<DesktopEntry>& entries);
// Its icon, as the desktop entry has it: a name in the icon theme or an absolute path; empty when it has none.
std::string applicationIcon(std::string_view bundleID, const std::vector<DesktopEntry>& entries);

// What runs in the window. Several windows may belong to one process (a terminal server): a command that knows its
// window by WINDOWID counts for that one alone. What a terminal multiplexer's server runs is in its panes, and not
// here, even if the server was started from this window.
std::vector<const ProcessRecord*> processesIn(const WindowRecord& window, const std::vector<WindowRecord>& windows,
                                              const std::vector<ProcessRecord>& processes);

// The identifiers of the agents whose commands these are, in the order of the table.
std::vector<std::string> agentsAmong(const std::vector<const ProcessRecord*>& processes);
// Of those that run in the window.
std::vector<std::string> agentsIn(const WindowRecord& window, const std::vector<WindowRecord>& windows,
                                  const std::vector<ProcessRecord>& processes);

// The window to bring forward for a program; `windows` go from the bottom to the top of the stack. The topmost of
// those that are the program's or run its command; failing that, the topmost terminal with a terminal multiplexer
// in it, when the command runs inside one. Absent when there is none.
std::optional<std::uint32_t> windowOf(std::string_view bundleID, const std::vector<WindowRecord>& windows,
                                      const std::vector<ProcessRecord>& processes,
                                      const std::vector<DesktopEntry>& entries);

}  // namespace ambrel
