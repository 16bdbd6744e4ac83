#pragma once
// The theme's name from the XSETTINGS manager: the one way in which desktops without a settings portal tell it.

#include "platform/DesktopTheme.h"
#include "platform/linux/X11Connection.h"

namespace ambrel {

class X11DesktopTheme : public DesktopTheme {
 public:
  // Without a connection there is no name.
  explicit X11DesktopTheme(X11Connection* connection);

  std::string name() const override { return name_; }
  void setChangeHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

 private:
  void findManager();
  void refresh();

  X11Connection* connection_;
  xcb_window_t manager_ = XCB_WINDOW_NONE;
  std::string name_;
  std::function<void()> handler_;
  X11Watch watch_;
};

}  // namespace ambrel
