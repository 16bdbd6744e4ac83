#pragma once
// Screens from the toolkit; reserved edges from the struts of other programs' windows and from the work area that the
// window manager announces. Works without X11 too, with the toolkit's own visible frame.

#include <memory>

#include "platform/linux/ToolkitScreens.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11FullScreen.h"
#include "platform/linux/X11Panels.h"

namespace ambrel {

class X11Screens : public ToolkitScreens {
 public:
  explicit X11Screens(X11Connection* connection);

 private:
  bool look(const QList<QScreen*>& screens) override;
  Insets reservedOn(const QScreen& screen, ScreenInfo& info) override;
  bool hasMonitors() const;
  std::vector<Rect> workAreas() const;

  X11Connection* connection_;
  bool asksForMonitors_ = false;
  // Null without a server.
  std::unique_ptr<X11Panels> panels_;
  std::unique_ptr<X11FullScreen> fullScreen_;
  // Of the last look.
  std::vector<Rect> workAreas_;
  std::optional<Rect> filled_;
};

}  // namespace ambrel
