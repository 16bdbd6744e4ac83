#pragma once
// By KWin's own interface, which it gives only to programs whose desktop entry asks for it:
// https://wayland.app/protocols/kde-plasma-window-management

#include "platform/wayland/WindowList.h"

struct org_kde_plasma_window;
struct org_kde_plasma_window_management;

namespace ambrel {

class PlasmaWindows : public WindowList {
 public:
  // Null when the compositor does not have it, or not for us.
  static std::unique_ptr<WindowList> bind(WaylandConnection& connection);
  ~PlasmaWindows() override;

 private:
  explicit PlasmaWindows(org_kde_plasma_window_management* manager);
  void take(org_kde_plasma_window* handle);
  void bringForward(void* handle) override;

  org_kde_plasma_window_management* manager_;
};

}  // namespace ambrel
