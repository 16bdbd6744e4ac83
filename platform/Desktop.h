#pragma once
// All that the program asks of a desktop, in one place.

#include <memory>

#include "platform/Bluetooth.h"
#include "platform/CalendarService.h"
#include "platform/DesktopTheme.h"
#include "platform/DeveloperTools.h"
#include "platform/FolderWatch.h"
#include "platform/HotKeys.h"
#include "platform/KeepAwake.h"
#include "platform/LatencyProbe.h"
#include "platform/Launcher.h"
#include "platform/MediaPlayers.h"
#include "platform/Notifications.h"
#include "platform/Pasteboard.h"
#include "platform/Pointer.h"
#include "platform/ScreenCapture.h"
#include "platform/Screens.h"
#include "platform/SoundControl.h"
#include "platform/Sounds.h"
#include "platform/SystemReadings.h"
#include "platform/Telemetry.h"
#include "platform/TimeZone.h"
#include "platform/Trash.h"
#include "platform/Tray.h"
#include "platform/Volumes.h"
#include "platform/WallClock.h"
#include "platform/WindowStyle.h"
#include "platform/Workspace.h"

namespace ambrel {

// References to what outlives its user.
struct Desktop {
  PointerMonitor& pointer;
  Screens& screens;
  WindowStyle& windowStyle;
  DesktopTheme& theme;
  Workspace& workspace;
  HotKeys& hotKeys;
  Notifications& notifications;
  Pasteboard& pasteboard;
  const SystemReadings& readings;
  WallClock& wallClock;
  TimeZone& timeZone;
  Sounds& sounds;
  Telemetry& telemetry;
  LatencyProbe& latency;
  SoundControl& soundControl;
  Bluetooth& bluetooth;
  Volumes& volumes;
  KeepAwake& keepAwake;
  ScreenCapture& screenCapture;
  Trash& trash;
  Tray& tray;
  FolderWatch& folderWatch;  // of the agents' folders
  FolderWatch& tileFolder;   // of the folder that a tile shows
  Launcher& launcher;
  FolderWatch& calendarFolders;
  CalendarService& calendars;
  FolderWatch& downloads;
  MediaPlayers& mediaPlayers;
  FolderWatch& repositoryFolders;
  // Work that hangs on a disk may outlive the program's other parts.
  std::shared_ptr<DeveloperTools> developerTools;
};

}  // namespace ambrel
