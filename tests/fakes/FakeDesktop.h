#pragma once
// A whole desktop, played by the test.

#include "platform/Desktop.h"
#include "tests/fakes/FakeCalendarService.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDeveloperTools.h"
#include "tests/fakes/FakeFolderWatch.h"
#include "tests/fakes/FakeLauncher.h"
#include "tests/fakes/FakeMediaPlayers.h"
#include "tests/fakes/FakePasteboard.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/FakeReadings.h"
#include "tests/fakes/FakeTelemetry.h"
#include "tests/fakes/FakeTrash.h"
#include "tests/fakes/FakeTray.h"

namespace ambrel {

struct FakeDesktop {
  explicit FakeDesktop(Instant now) : clock(now) {}

  Desktop seams() {
    return {.pointer = pointer,
            .screens = screens,
            .windowStyle = windowStyle,
            .theme = theme,
            .workspace = workspace,
            .hotKeys = hotKeys,
            .notifications = notifications,
            .pasteboard = pasteboard,
            .readings = readings,
            .wallClock = clock,
            .timeZone = timeZone,
            .sounds = sounds,
            .telemetry = telemetry,
            .latency = latency,
            .soundControl = soundControl,
            .bluetooth = bluetooth,
            .volumes = volumes,
            .keepAwake = keepAwake,
            .screenCapture = screenCapture,
            .trash = trash,
            .tray = tray,
            .folderWatch = folderWatch,
            .tileFolder = tileFolder,
            .launcher = launcher,
            .calendarFolders = calendarFolders,
            .calendars = calendars,
            .downloads = downloads,
            .mediaPlayers = mediaPlayers,
            .repositoryFolders = repositoryFolders,
            .developerTools = developerTools};
  }

  FakePointer pointer;
  FakeScreens screens;
  FakeWindowStyle windowStyle;
  FakeDesktopTheme theme;
  FakeWorkspace workspace;
  FakeHotKeys hotKeys;
  FakeNotifications notifications;
  FakePasteboard pasteboard;
  FakeReadings readings;
  FakeClock clock;
  FakeTimeZone timeZone;
  FakeSounds sounds;
  FakeTelemetry telemetry;
  FakeLatencyProbe latency;
  FakeSoundControl soundControl;
  FakeBluetooth bluetooth;
  FakeVolumes volumes;
  FakeKeepAwake keepAwake;
  FakeScreenCapture screenCapture;
  FakeTrash trash;
  FakeTray tray;
  FakeFolderWatch folderWatch, tileFolder, calendarFolders, downloads, repositoryFolders;
  FakeLauncher launcher;
  FakeCalendarService calendars;
  FakeMediaPlayers mediaPlayers;
  std::shared_ptr<DeveloperTools> developerTools = std::make_shared<FakeDeveloperTools>();
};

}  // namespace ambrel
