#pragma once
// Screens from the toolkit; what others keep of their edges from the size that the compositor leaves of each.
//
// Which edge they keep is not told, and need not be: windows are placed from the corner of what is left (freeOrigin),
// so that any guess gives the same picture. All of it is taken to be at the upper edge, and at the left one.

#include <QPoint>

#include "platform/linux/ToolkitScreens.h"
#include "platform/wayland/UsableAreas.h"

namespace ambrel {

class WaylandScreens : public ToolkitScreens {
 public:
  WaylandScreens();

  // The upper left corner of what others leave of the screen, as `list` has it, in the toolkit's coordinates.
  QPoint freeOrigin(const QScreen& screen) const;

 private:
  bool look(const QList<QScreen*>& screens) override;
  Insets reservedOn(const QScreen& screen, ScreenInfo& info) override;
  QPoint kept(const QScreen& screen) const;

  UsableAreas areas_;
};

}  // namespace ambrel
