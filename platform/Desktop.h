#pragma once
// All that the program asks of a desktop, in one place.

#include "platform/HotKeys.h"
#include "platform/Notifications.h"
#include "platform/Pointer.h"
#include "platform/Screens.h"
#include "platform/Sounds.h"
#include "platform/SystemReadings.h"
#include "platform/WallClock.h"
#include "platform/WindowStyle.h"
#include "platform/Workspace.h"

namespace ambrel {

// References to what outlives its user.
struct Desktop {
  PointerMonitor& pointer;
  Screens& screens;
  WindowStyle& windowStyle;
  Workspace& workspace;
  HotKeys& hotKeys;
  Notifications& notifications;
  const SystemReadings& readings;
  WallClock& wallClock;
  Sounds& sounds;
};

}  // namespace ambrel
