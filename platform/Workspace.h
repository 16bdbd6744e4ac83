#pragma once
// Other programs: which one is in front, whether one runs, bringing it forward, opening it.
//
// Programs are named by the identifiers that the program stores ("com.openai.codex"). An agent that lives in a
// terminal counts as that agent's application: the terminal window whose process tree runs it is the window that
// is in front and that comes forward. Other programs go by the id of their desktop entry ("org.kde.konsole"), or
// else by their window class in lower case ("xterm").

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

class Workspace {
 public:
  virtual ~Workspace() = default;

  // The identifiers of the frontmost window: the program itself first, then the agents that run in it. A window of our
  // own is passed over for the one that was in front before it. Empty when nothing is in front or it cannot be told.
  // Reads the process table, so it is asked when needed, not at 30 Hz.
  virtual std::vector<std::string> frontmost() const = 0;
  // The agents whose work the frontmost window shows: the program itself if it is one, those that run in its terminal,
  // and those in the panes of a terminal multiplexer that it shows. It may ask the multiplexer, which takes a few
  // milliseconds, and a fraction of a second when that does not answer.
  virtual std::vector<std::string> agentsInFront() const = 0;
  // `handler` is called on the main thread when another window has come to the front.
  virtual void setFrontmostHandler(std::function<void()> handler) = 0;

  // Whether a window of the program is open.
  virtual bool isRunning(std::string_view bundleID) const = 0;
  // Brings the topmost window of the program forward; false when it has none.
  virtual bool activate(std::string_view bundleID) = 0;
  // Brings the window forward in which the process works, and its pane in tmux and screen; false when no window shows
  // it, as where it runs on another computer or nobody is attached to its session. Bounded as agentsInFront() is.
  virtual bool activateProcess(int pid) = 0;
  // The program's name as people know it: its desktop entry's, or one made of the identifier.
  virtual std::string nameOf(std::string_view bundleID) const = 0;
  // The icon of its desktop entry, a name or an absolute path; empty when it has none.
  virtual std::string iconOf(std::string_view bundleID) const = 0;
  // Gives the front back to the window that had it before one of our own; nothing when that is closed.
  virtual void activateLast() = 0;
  // Starts the program through its desktop entry; false when it is not installed or cannot be started.
  virtual bool open(std::string_view bundleID) = 0;
};

}  // namespace ambrel
