#include "platform/linux/LinuxDesktop.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <cstdlib>
#include <unistd.h>

#include "core/settings/KeyBinding.h"
#include "platform/linux/CanberraSounds.h"
#include "platform/linux/DBusNotifications.h"
#include "platform/linux/DBusSessionService.h"
#include "platform/linux/DesktopLauncher.h"
#include "platform/linux/FreedesktopTrash.h"
#include "platform/linux/InotifyFolderWatch.h"
#include "platform/linux/InstalledPrograms.h"
#include "platform/linux/PortalKeys.h"
#include "platform/linux/PortalScreenCapture.h"
#include "platform/linux/ProcReadings.h"
#include "platform/linux/SessionBus.h"
#include "platform/linux/SystemTimeZone.h"
#include "platform/linux/TimerfdClock.h"
#include "platform/linux/X11Connection.h"
#include "platform/linux/X11DesktopTheme.h"
#include "platform/linux/X11HotKeys.h"
#include "platform/linux/X11Pointer.h"
#include "platform/linux/X11ScreenCapture.h"
#include "platform/linux/X11ScreenSaver.h"
#include "platform/linux/X11Screens.h"
#include "platform/linux/X11WindowStyle.h"
#include "platform/linux/X11Workspace.h"
#include "platform/linux/developer/LinuxDeveloperTools.h"
#include "platform/linux/pasteboard/X11Pasteboard.h"
#include "platform/linux/services/BlueZBluetooth.h"
#include "platform/linux/services/EvolutionCalendars.h"
#include "platform/linux/services/LinuxTray.h"
#include "platform/linux/services/MprisPlayers.h"
#include "platform/linux/services/PulseSoundControl.h"
#include "platform/linux/services/SystemKeepAwake.h"
#include "platform/linux/services/UDisksVolumes.h"
#include "platform/linux/services/UPowerSupplies.h"
#include "platform/linux/telemetry/LinuxTelemetry.h"
#include "platform/linux/telemetry/TCPLatencyProbe.h"
#include "platform/wayland/CompositorCapture.h"
#include "platform/wayland/IdleInhibitor.h"
#include "platform/wayland/WaylandPasteboard.h"
#include "platform/wayland/WaylandWindows.h"
#include "platform/wayland/WaylandWorkspace.h"

namespace ambrel {

namespace {

LinuxTelemetry::Sources telemetrySources(const QDBusConnection& systemBus) {
  LinuxTelemetry::Sources sources = LinuxTelemetry::runningSystem();
  sources.otherSupplies = [systemBus] { return readUPower(systemBus); };
  return sources;
}

// Where there is no window system, nothing is ever copied.
class NoPasteboard : public Pasteboard {
 public:
  std::int64_t changeCount() const override { return count_; }
  void setChangeHandler(std::function<void()>) override {}
  void setOwnerGoneHandler(std::function<void()>) override {}
  void read(ReadingWish, std::function<void(PasteboardReading)>) override {}
  std::int64_t write(std::vector<Representation>) override { return ++count_; }
  std::int64_t restore(std::vector<Representation>) override { return ++count_; }

 private:
  std::int64_t count_ = 0;
};

// Empty where this is no Wayland session.
std::string waylandDisplay() { return qgetenv("WAYLAND_DISPLAY").toStdString(); }

// The windows by X11 unless the toolkit runs on Wayland.
WaylandWindows openWindows(X11Connection* connection) {
  if (auto native = openWaylandWindows()) return std::move(*native);
  return {std::make_unique<X11Screens>(connection), std::make_unique<X11Pointer>(connection),
          std::make_unique<X11WindowStyle>(connection)};
}

bool isOnWayland() { return QGuiApplication::platformName() == QLatin1String("wayland"); }

std::unique_ptr<Pasteboard> openPasteboard(const std::string& display) {
  const auto post = [](std::function<void()> task) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task), Qt::QueuedConnection);
  };
  if (display.empty() && !isOnWayland()) return std::make_unique<NoPasteboard>();
  // In a Wayland session the X server is a guest: it hears of a copy only while one of its windows has the keyboard.
  if (const std::string compositor = waylandDisplay(); !compositor.empty()) {
    if (auto pasteboard = openWaylandPasteboard(compositor, post)) return pasteboard;
    qWarning("Ambrel: this compositor shows no copies; they are seen while a program of X11 has the keyboard");
  }
  if (auto pasteboard = display.empty() ? nullptr : openX11Pasteboard(display, post)) return pasteboard;
  return std::make_unique<NoPasteboard>();
}

std::unique_ptr<Workspace> openWorkspace(X11Connection* connection) {
  auto x11 = std::make_unique<X11Workspace>(connection, "/proc", ProgramFolders::ofThisSession());
  const std::string compositor = waylandDisplay();
  if ((!connection && !isOnWayland()) || compositor.empty()) return x11;
  return withWaylandWindows(compositor, std::move(x11), ProgramFolders::ofThisSession());
}

// The compositor has the keys of a Wayland session, and an X server that is its guest hears of few.
class KeptHotKeys : public HotKeys {
 public:
  explicit KeptHotKeys(std::unique_ptr<KeyKeeper> keeper) : keeper_(std::move(keeper)) {}
  HotKeyResult add(const KeyCombination&, std::function<void()>) override { return HotKeyResult::notAvailable; }
  KeyKeeper* keeper() const override { return keeper_.get(); }
  void remove(const KeyCombination&) override {}

 private:
  const std::unique_ptr<KeyKeeper> keeper_;
};

std::unique_ptr<HotKeys> openHotKeys(X11Connection* connection) {
  if (waylandDisplay().empty()) return std::make_unique<X11HotKeys>(connection);
  return std::make_unique<KeptHotKeys>(
      openPortalKeys(desktopInUse([](const char* name) { return std::getenv(name); })));
}

// A Wayland session shows programs of its own alone what is on the screen, also where there is an X server.
std::unique_ptr<ScreenCapture> openScreenCapture(X11Connection* connection, const QDBusConnection& bus) {
  if (!connection || qEnvironmentVariable("XDG_SESSION_TYPE") == QLatin1String("wayland"))
    return std::make_unique<PortalScreenCapture>(bus, [] {
      const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
      if (!screen) screen = QGuiApplication::primaryScreen();
      return captureByCompositor(waylandDisplay(), screen ? screen->name().toStdString() : std::string());
    });
  return std::make_unique<X11ScreenCapture>(connection);
}

}  // namespace

struct LinuxDesktop::Parts {
  Parts(const std::string& display, const std::string& dataHome, const PresentCalendar& calendar,
        const std::filesystem::path& zoneFile)
      : connection(display.empty() ? nullptr : X11Connection::open(display)),
        bus(openSessionBus()),
        systemBus(openSystemBus()),
        windows(openWindows(connection.get())),
        theme(connection.get()),
        workspace(openWorkspace(connection.get())),
        hotKeys(openHotKeys(connection.get())),
        notifications(bus),
        pasteboard(openPasteboard(display)),
        timeZone(zoneFile, systemBus),
        telemetry(telemetrySources(systemBus)),
        bluetooth(systemBus),
        volumes(systemBus),
        screenSaver(connection.get()),
        idleInhibitor(waylandDisplay()),
        keepAwake(systemBus, bus,
                  [this](bool isHeld) {
                    const bool isSuspended = screenSaver.suspend(isHeld);
                    return idleInhibitor.hold(isHeld) || isSuspended;
                  }),
        screenCapture(openScreenCapture(connection.get(), bus)),
        trash(dataHome, getuid(), calendar),
        tray(bus, connection.get()),
        launcher(ProgramFolders::ofThisSession(), bus),
        calendars(bus, EvolutionCalendars::Pace{}),
        mediaPlayers(bus) {}

  std::unique_ptr<X11Connection> connection;
  QDBusConnection bus, systemBus;
  WaylandWindows windows;
  X11DesktopTheme theme;
  std::unique_ptr<Workspace> workspace;
  std::unique_ptr<HotKeys> hotKeys;
  DBusNotifications notifications;
  std::unique_ptr<Pasteboard> pasteboard;
  ProcReadings readings;
  TimerfdClock wallClock;
  SystemTimeZone timeZone;
  CanberraSounds sounds;
  LinuxTelemetry telemetry;
  TCPLatencyProbe latency;
  PulseSoundControl soundControl;
  BlueZBluetooth bluetooth;
  UDisksVolumes volumes;
  X11ScreenSaver screenSaver;
  IdleInhibitor idleInhibitor;
  SystemKeepAwake keepAwake;
  std::unique_ptr<ScreenCapture> screenCapture;
  FreedesktopTrash trash;
  LinuxTray tray;
  InotifyFolderWatch folderWatch, tileFolder, calendarFolders, downloads, repositoryFolders;
  DesktopLauncher launcher;
  EvolutionCalendars calendars;
  MprisPlayers mediaPlayers;
  std::shared_ptr<DeveloperTools> developerTools =
      std::make_shared<LinuxDeveloperTools>(LinuxDeveloperTools::runningSystem());
};

LinuxDesktop::LinuxDesktop(const std::string& display, const std::string& dataHome, const PresentCalendar& calendar,
                           const std::filesystem::path& zoneFile)
    : parts_(std::make_unique<Parts>(display, dataHome, calendar, zoneFile)) {}
LinuxDesktop::~LinuxDesktop() = default;

Desktop LinuxDesktop::seams() {
  return {.pointer = *parts_->windows.pointer,
          .screens = *parts_->windows.screens,
          .windowStyle = *parts_->windows.windowStyle,
          .theme = parts_->theme,
          .workspace = *parts_->workspace,
          .hotKeys = *parts_->hotKeys,
          .notifications = parts_->notifications,
          .pasteboard = *parts_->pasteboard,
          .readings = parts_->readings,
          .wallClock = parts_->wallClock,
          .timeZone = parts_->timeZone,
          .sounds = parts_->sounds,
          .telemetry = parts_->telemetry,
          .latency = parts_->latency,
          .soundControl = parts_->soundControl,
          .bluetooth = parts_->bluetooth,
          .volumes = parts_->volumes,
          .keepAwake = parts_->keepAwake,
          .screenCapture = *parts_->screenCapture,
          .trash = parts_->trash,
          .tray = parts_->tray,
          .folderWatch = parts_->folderWatch,
          .tileFolder = parts_->tileFolder,
          .launcher = parts_->launcher,
          .calendarFolders = parts_->calendarFolders,
          .calendars = parts_->calendars,
          .downloads = parts_->downloads,
          .mediaPlayers = parts_->mediaPlayers,
          .repositoryFolders = parts_->repositoryFolders,
          .developerTools = parts_->developerTools};
}

std::unique_ptr<SessionService> openSession() { return std::make_unique<DBusSessionService>(openSessionBus()); }

}  // namespace ambrel
