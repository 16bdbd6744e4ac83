#pragma once
// Which panes of a terminal multiplexer a window shows. /proc does not tell; the multiplexer does, through its own
// command, which the caller runs. tmux tells every pane on the screen; screen and zellij the one that is typed into.

#include <string>
#include <string_view>
#include <vector>

#include "core/workspace/Applications.h"

namespace ambrel {

struct PaneQuestion {
  enum class Kind { tmux, screen, zellij } kind = Kind::tmux;
  int server = 0;                    // the process that is asked
  int client = 0;                    // the one in the window that is attached to it
  std::string session;               // of screen and zellij
  std::vector<std::string> command;  // a program by its name, and its arguments
  friend bool operator==(const PaneQuestion&, const PaneQuestion&) = default;
};

// One for each client in the window. A client whose server cannot be told asks nothing.
std::vector<PaneQuestion> paneQuestions(const WindowRecord& window, const std::vector<WindowRecord>& windows,
                                        const std::vector<ProcessRecord>& processes);

// The processes in the panes that the window shows, by what the command printed; those they started included.
std::vector<const ProcessRecord*> shownInPanes(const PaneQuestion& question, std::string_view answer,
                                               const std::vector<ProcessRecord>& processes);

// The pane in which a process runs, and the command that brings it to the front of its session: tmux's prints the
// clients that are attached there. zellij has no such command.
struct PaneOfProcess {
  PaneQuestion::Kind kind = PaneQuestion::Kind::tmux;
  int server = 0;
  std::vector<std::string> command = {};  // empty: none
  friend bool operator==(const PaneOfProcess&, const PaneOfProcess&) = default;
};
// Absent for a process in no pane.
std::optional<PaneOfProcess> paneOf(int pid, const std::vector<ProcessRecord>& processes);

// The topmost window that shows the process. `answer` is what the pane's command printed; without a pane it is not
// looked at. `windows` go from the bottom to the top of the stack.
std::optional<std::uint32_t> windowOfProcess(int pid, const std::optional<PaneOfProcess>& pane, std::string_view answer,
                                             const std::vector<WindowRecord>& windows,
                                             const std::vector<ProcessRecord>& processes);

}  // namespace ambrel
