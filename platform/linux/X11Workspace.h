#pragma once
// Other programs under X11: the window manager's properties (EWMH), /proc and desktop entries.

#include <filesystem>
#include <unistd.h>

#include "platform/Workspace.h"
#include "platform/linux/ProgramsInWindows.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class X11Workspace : public Workspace {
 public:
  // Without a connection nothing is in front and nothing runs; programs can still be opened.
  // `ownProcess` is whose windows are our own.
  X11Workspace(X11Connection* connection, std::filesystem::path proc, ProgramFolders folders,
               int ownProcess = getpid());

  std::vector<std::string> frontmost() const override;
  std::vector<std::string> agentsInFront() const override;
  void setFrontmostHandler(std::function<void()> handler) override { handler_ = std::move(handler); }
  bool isRunning(std::string_view bundleID) const override;
  bool activate(std::string_view bundleID) override;
  bool activateProcess(int pid) override;
  void activateLast() override;
  std::string nameOf(std::string_view bundleID) const override;
  std::string iconOf(std::string_view bundleID) const override;
  bool open(std::string_view bundleID) override;

 private:
  bool isConnected() const { return connection_ && !connection_->isBroken(); }
  xcb_window_t activeWindow() const;
  struct Front {
    WindowRecord window;
    std::vector<WindowRecord> all;
  };
  enum class Ours { counted, passedOver };
  std::optional<Front> front(Ours ours) const;
  bool isOwn(xcb_window_t window) const;
  void bringForward(xcb_window_t window);
  // From the bottom to the top.
  std::vector<WindowRecord> windows() const;
  std::optional<std::uint32_t> findWindow(std::string_view bundleID) const;
  bool openEntry(const InstalledProgram& program);

  X11Connection* connection_;
  mutable ProgramsInWindows programs_;
  int ownProcess_;
  xcb_window_t lastActive_ = XCB_WINDOW_NONE;
  xcb_window_t lastForeign_ = XCB_WINDOW_NONE;
  std::function<void()> handler_;
  X11Watch watch_;
};

}  // namespace ambrel
