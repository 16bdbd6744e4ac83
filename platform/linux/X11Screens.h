#pragma once
// Screens from the toolkit; reserved edges from the struts of other programs' windows and from the work area that the
// window manager announces. Works without X11 too, with the toolkit's own visible frame.

#include <QObject>
#include <memory>
#include <string>

#include "platform/Screens.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11FullScreen.h"
#include "platform/linux/X11Panels.h"

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

  X11Connection* connection_;
  std::vector<ScreenInfo> list_;
  bool asksForMonitors_ = false;
  // Null without a server.
  std::unique_ptr<X11Panels> panels_;
  std::unique_ptr<X11FullScreen> fullScreen_;
  bool isPlanned_ = false;
  std::function<void()> handler_;
};

// Whether a connector of this name belongs to a panel of the computer itself.
bool isBuiltinConnector(const std::string& name);

}  // namespace ambrel
