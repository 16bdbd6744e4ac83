#pragma once
// Panels and docks of other programs: what they reserve of the desktop's edges, and those that hide by themselves.

#include <QObject>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/workspace/Struts.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class X11Panels : public QObject {
 public:
  // `onChange` is called on the main thread when `read` may say something else than before.
  X11Panels(X11Connection& connection, std::function<void()> onChange);

  struct Screen {
    std::string name;
    Rect frame;  // in pixels, y downwards
  };
  void read(const std::vector<Screen>& screens);

  // Those of the last `read`, one for each window that reserves something.
  const std::vector<Strut>& struts() const { return struts_; }
  // A dock that reserves nothing, at the lower edge of a screen. One that hides is known where it was seen once.
  struct Dock {
    std::string screen;  // "" as long as it was at no lower edge
    double height = 0;   // when it was seen last; in pixels
    bool isOut = false;
  };
  // The highest that is out, else any other one; nothing where none was seen.
  std::optional<Dock> dockAt(const std::string& screen) const;

 private:
  std::vector<xcb_window_t> windows();
  std::vector<xcb_window_t> childrenOf(const std::vector<xcb_window_t>& parents);
  // Where clicks on it are its own, which some docks alone change when they hide; empty while it is not on the screen.
  Rect extentOf(xcb_window_t window);
  void handle(const xcb_generic_event_t& event);

  X11Connection& connection_;
  std::function<void()> onChange_;
  std::vector<Strut> struts_;
  std::map<xcb_window_t, Dock> docks_;
  bool looksEverywhere_ = false;  // the window manager does not list panels
  int shapeEvent_ = 0;
  X11Watch watch_;
};

}  // namespace ambrel
