#pragma once
// What the window manager does with windows like ours. Found out by trying: an invisible window of each type is shown
// for a moment, and whether it was moved, resized or framed decides whether ours are left to the window manager.

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <array>
#include <functional>
#include <vector>

#include "platform/WindowStyle.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class X11WindowManager : public QObject {
 public:
  // Without a connection it counts as one that leaves everything as it is.
  explicit X11WindowManager(X11Connection* connection);
  ~X11WindowManager() override;

  // Whether windows of this role stay where they are put. Bubbles never get to the window manager, and ordinary
  // windows are its own.
  bool leavesAlone(WindowRole role) const;
  // Before a window of ours is shown: what the trials have brought by now counts. No timer runs while the program
  // starts, and what is shown wrongly then has to be hidden again.
  void judgeEarly();
  // A window of ours was moved or framed all the same.
  void meddled(WindowRole role);
  // Of _NET_SUPPORTED.
  bool supports(const char* atom) const;
  // `handler` is called on the main thread when `leavesAlone` says something else than before.
  void setChangeHandler(std::function<void()> handler) { handler_ = std::move(handler); }

 private:
  struct Probe {
    WindowRole role;
    xcb_window_t window = XCB_WINDOW_NONE;
    bool isMisplaced = false;
  };

  void refresh();
  void startProbes();
  void endProbes();
  bool areProbesShown() const;
  void lookAgain();
  void judge();
  void handle(const xcb_generic_event_t& event);
  void set(WindowRole role, bool leavesAlone);

  X11Connection* connection_;
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  std::vector<std::uint32_t> supported_;
  std::array<Probe, 2> probes_{Probe{WindowRole::panel}, Probe{WindowRole::dock}};
  bool leavesDocks_ = true, leavesPanels_ = true;
  QTimer timer_;
  QElapsedTimer sinceProbes_;
  int turns_ = 0;
  std::function<void()> handler_;
  X11Watch watch_;
};

}  // namespace ambrel
