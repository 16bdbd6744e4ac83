#pragma once
// Screens from the toolkit; reserved edges from the struts of other programs' windows and from the work area that the
// window manager announces. Works without X11 too, with the toolkit's own visible frame.

#include <QObject>
#include <cstdint>
#include <map>
#include <string>

#include "platform/Screens.h"
#include "platform/linux/X11Connection.h"

class QScreen;

namespace ambrel {

class X11Screens : public QObject, public Screens {
 public:
  explicit X11Screens(X11Connection* connection);

  std::vector<ScreenInfo> list() const override { return list_; }
  double mainHeight() const override;
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

 private:
  void follow(QScreen* screen);
  void plan();
  void refresh();
  std::vector<ScreenInfo> read();
  bool hasMonitors() const;
  std::vector<Rect> workAreas() const;
  void findHidingDocks();

  X11Connection* connection_;
  std::vector<ScreenInfo> list_;
  bool asksForMonitors_ = false;
  // Docks that reserve nothing, and the screen at whose lower edge each was seen; "" as long as it was not. One that
  // hides may be anywhere.
  std::map<xcb_window_t, std::string> hidingDocks_;
  bool isPlanned_ = false;
  std::function<void()> handler_;
  X11Watch watch_;
};

// Whether a connector of this name belongs to a panel of the computer itself.
bool isBuiltinConnector(const std::string& name);

}  // namespace ambrel
