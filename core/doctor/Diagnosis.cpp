#include <algorithm>
#include <array>
#include <fmt/format.h>
#include <unistd.h>

#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/Text.h"
#include "core/doctor.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;
using enum DoctorState;

bool isThere(const fs::path& path) {
  std::error_code error;
  return fs::exists(path, error);
}

std::string shortened(const fs::path& path, const fs::path& home) {
  const fs::path below = path.lexically_relative(home);
  return below.empty() || *below.begin() == ".." ? path.string() : "~/" + below.string();
}

DoctorRow row(std::string what, bool isFound, std::string detail, std::string_view without, std::string_view advice) {
  if (isFound) return {std::move(what), found, std::move(detail), {}};
  return {std::move(what), missing, std::string(without), std::string(advice)};
}

DoctorRow program(const DoctorFacts& facts) {
  const std::string origin =
      facts.package ? fmt::format("package {} {}", facts.package->name, facts.package->version) : "built from source";
  return {"Tilebay", found, facts.version + ", " + origin, {}};
}

bool offers(const DoctorFacts& facts, const char* interface) {
  return facts.compositor && facts.compositor->contains(interface);
}

bool isNativeOnWayland(const DoctorFacts& facts) {
  return facts.canUseLayerShell && offers(facts, "zwlr_layer_shell_v1");
}

DoctorRow session(const DoctorFacts& facts) {
  const std::string desktop = facts.desktop.empty() ? "" : ", " + facts.desktop;
  if (isNativeOnWayland(facts)) return {"Session", found, "Wayland" + desktop, {}};
  if (facts.display.empty())
    return {"Session", missing, "no display" + desktop,
            "The bar needs an X server or XWayland: start it in a desktop session"};
  if (!facts.x11)
    return {"Session", missing, "the X server " + facts.display + " does not answer",
            "Look at DISPLAY and XAUTHORITY in the environment of this command"};
  if (facts.sessionType == "wayland") {
    if (offers(facts, "zwlr_layer_shell_v1"))
      return {"Session", limited, "Wayland, through XWayland: built without LayerShellQt" + desktop,
              "Debian 13 has LayerShellQt for Qt 6, and its package of Tilebay is built with it"};
    // GNOME's is one of them.
    return {"Session", limited,
            "Wayland, through XWayland: this compositor gives no program a place at its edges" + desktop, ""};
  }
  return {"Session", found, "X11" + desktop, {}};
}

void addCompositor(const DoctorFacts& facts, std::vector<DoctorRow>& rows) {
  if (!facts.compositor) return;
  const auto add = [&](std::string what, bool isOffered, std::string with, std::string without) {
    rows.push_back(
        {std::move(what), isOffered ? found : limited, isOffered ? std::move(with) : std::move(without), {}});
  };
  add("Copies", offers(facts, "ext_data_control_manager_v1") || offers(facts, "zwlr_data_control_manager_v1"),
      "the compositor tells of them", "seen only while a program of X11 has the keyboard");
  // KWin lists them to no program but the one that a desktop entry names, and that is not this one.
  if (offers(facts, "org_kde_plasma_shell"))
    add("Other windows", true, "KWin lists them to a bar that is installed", {});
  else
    add("Other windows", offers(facts, "zwlr_foreign_toplevel_manager_v1"), "the compositor lists them",
        "which of them is in front is not known, and none can be brought forward");
  rows.push_back({"Keys", limited, "the compositor owns them",
                  "Settings, General says which it has bound, and has a line for each where it binds none"});
}

void addWindowSystem(const DoctorFacts& facts, std::vector<DoctorRow>& rows) {
  addCompositor(facts, rows);
  if (!facts.x11 || isNativeOnWayland(facts)) return;
  rows.push_back(row("Window manager", !facts.x11->windowManager.empty(), facts.x11->windowManager,
                     "the keyboard goes back to the window under the pointer, and full screen is not known",
                     "Start one, such as openbox"));
  rows.push_back(row("Compositor", facts.x11->hasCompositor, "translucent windows",
                     "windows have no shadow, their corners are stepped, and nothing fades",
                     "Turn on the window manager's own, or install picom"));
}

bool hasName(const std::optional<DoctorFacts::Bus>& bus, const std::string& name) {
  return bus && (bus->owned.contains(name) || bus->startable.contains(name));
}

DoctorRow tray(const DoctorFacts& facts) {
  const bool isItemTray = hasName(facts.sessionBus, "org.kde.StatusNotifierWatcher");
  return row("Tray", isItemTray || (facts.x11 && facts.x11->hasTray), isItemTray ? "status items" : "embedded icons",
             "no icon; the right click on a tile has the same menu",
             "GNOME: gnome-shell-extension-appindicator; elsewhere a panel with a tray, such as tint2");
}

enum class On { session, system };
struct Service {
  std::string_view what, name;
  On bus;
  std::string_view without, advice;
};
constexpr std::array services{
    Service{"Notifications", "org.freedesktop.Notifications", On::session, "reminders and agents cannot call you",
            "Install a notification daemon, such as dunst"},
    Service{"Portal", "org.freedesktop.portal.Desktop", On::session,
            "the desktop's color scheme is not followed, and KWin and GNOME let nothing be captured under Wayland",
            "Install xdg-desktop-portal and the backend of your desktop, such as xdg-desktop-portal-gtk"},
    Service{"Online accounts", "org.gnome.evolution.dataserver.Sources5", On::session,
            "calendars of GNOME's accounts are not shown", "Install evolution-data-server if you keep some there"},
    Service{"Session manager", "org.freedesktop.login1", On::system, "Keep Awake holds the screen alone",
            "Install systemd or elogind"},
    Service{"UPower", "org.freedesktop.UPower", On::system, "batteries of mice and headsets are not shown",
            "Install upower"},
    Service{"BlueZ", "org.bluez", On::system, "the Bluetooth tile is empty", "Install bluez"},
    Service{"UDisks", "org.freedesktop.UDisks2", On::system, "drives cannot be ejected", "Install udisks2"},
};

void addServices(const DoctorFacts& facts, std::vector<DoctorRow>& rows) {
  const auto addBus = [&](std::string_view what, bool isFound, std::string_view advice) {
    if (!isFound) rows.push_back({std::string(what), missing, "no service of it can be asked", std::string(advice)});
  };
  addBus("Session bus", facts.sessionBus.has_value(),
         "Install dbus-user-session, or start the session with dbus-run-session");
  addBus("System bus", facts.systemBus.has_value(), "Install dbus");
  for (const Service& service : services) {
    const auto& bus = service.bus == On::session ? facts.sessionBus : facts.systemBus;
    if (!bus) continue;
    const std::string name(service.name);
    rows.push_back(row(std::string(service.what), hasName(bus, name),
                       bus->owned.contains(name) ? "runs" : "starts when it is asked", service.without,
                       service.advice));
  }
}

DoctorRow runningBar(const DoctorFacts& facts) {
  const bool runs = facts.sessionBus && facts.sessionBus->owned.contains("dev.qorvin.ambrel");
  return row("Running bar", runs, "in this session", "none in this session", "");
}

DoctorRow sound(const DoctorFacts& facts) {
  return row("Sound", !facts.runtime.empty() && isThere(facts.runtime / "pulse/native"), "PulseAudio or PipeWire",
             "no volume, no microphone, no sounds", "Install pipewire-pulse, or pulseaudio");
}

DoctorRow containers(const DoctorFacts& facts) {
  if (!facts.engines) return {"Containers", limited, "DOCKER_HOST names another computer, which is not asked", {}};
  std::string closed;
  for (const fs::path& socket : *facts.engines) {
    if (access(socket.c_str(), R_OK | W_OK) == 0) return {"Containers", found, socket.string(), {}};
    if (closed.empty() && isThere(socket)) closed = socket.string();
  }
  if (!closed.empty())
    return {"Containers", limited, "this user may not ask " + closed,
            "Add yourself to the group docker, if you trust it with root's rights"};
  return {"Containers", missing, "the Docker tile is empty", "Install podman or docker.io if you use containers"};
}

struct Font {
  std::string_view name, start;  // of its files, in small letters
  std::string_view package, without;
};
constexpr std::array fonts{
    Font{"Font Inter", "inter", "fonts-inter", "texts are in another font"},
    Font{"Font JetBrains Mono", "jetbrainsmono", "fonts-jetbrains-mono", "code is in another font"},
    Font{"Font Noto Color Emoji", "notocoloremoji", "fonts-noto-color-emoji", "emoji are without color"},
    Font{"Font Material Icons", "materialicons", "fonts-material-design-icons-iconfont", "symbols are empty boxes"},
};

void addFonts(const DoctorFacts& facts, std::vector<DoctorRow>& rows) {
  std::array<fs::path, fonts.size()> files;
  for (const fs::path& folder : {facts.fonts, facts.root / "usr/local/share/fonts", facts.root / "usr/share/fonts"}) {
    std::error_code error;
    for (fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error), end;
         !error && at != end; at.increment(error)) {
      const std::string name = asciiLower(at->path().filename().native());
      if (!name.ends_with(".ttf") && !name.ends_with(".otf")) continue;
      for (std::size_t i = 0; i < fonts.size(); ++i)
        if (files[i].empty() && name.starts_with(fonts[i].start)) files[i] = at->path();
    }
  }
  for (std::size_t i = 0; i < fonts.size(); ++i)
    rows.push_back(row(std::string(fonts[i].name), !files[i].empty(), files[i].parent_path().string(), fonts[i].without,
                       fmt::format("Install {}", fonts[i].package)));
}

// Whether somebody listens on the port, by the kernel's table of connections:
// "  1: 0100007F:2CAA 00000000:0000 0A ...", in which 0A is a listener.
bool listensOn(std::string_view table, unsigned port) {
  const std::string end = fmt::format(":{:04X}", port);
  for (const std::string_view line : split(table, '\n')) {
    std::vector<std::string_view> fields = split(line, ' ');
    std::erase(fields, std::string_view());
    if (fields.size() > 3 && fields[3] == "0A" && fields[1].ends_with(end)) return true;
  }
  return false;
}

DoctorRow modelServer(const DoctorFacts& facts) {
  constexpr std::array usualPorts{11434u, 8080u};
  if (!facts.modelServer.empty()) return {"Language model", found, "asked at " + facts.modelServer, {}};
  for (const char* table : {"proc/net/tcp", "proc/net/tcp6"}) {
    const std::string text = readFile(facts.root / table).value_or("");
    for (const unsigned port : usualPorts)
      if (listensOn(text, port))
        return {"Language model", found, fmt::format("something listens on port {}", port), {}};
  }
  return {"Language model", missing, "Buddy answers typed commands alone",
          "Start Ollama or another server of the OpenAI chat API, or name one in Settings › Buddy"};
}

DoctorRow agent(const DoctorFacts& facts, AgentKind kind) {
  const fs::path& home = facts.places.home;
  std::vector<fs::path> places;
  switch (kind) {
    case AgentKind::claudeCode:
      places = {facts.places.folders.claudeIn(home) / "projects"};
      break;
    case AgentKind::codex:
      places = {facts.places.folders.codexIn(home) / "sessions"};
      break;
    case AgentKind::cursor:
      places = {home / ".config/Cursor/User/globalStorage/state.vscdb"};
      break;
    case AgentKind::antigravity:
      places = {home / ".gemini/antigravity/conversation_summaries.db",
                home / ".gemini/antigravity-cli/conversation_summaries.db"};
      break;
  }
  const std::string name(displayName(kind));
  const auto place = std::ranges::find_if(places, isThere);
  if (place == places.end()) return {name, missing, "no sessions in " + shortened(places.front(), home), {}};
  const std::string where = shortened(*place, home);
  if (access(place->c_str(), R_OK) != 0) return {name, limited, where + " cannot be read", "Look at its permissions"};
  if (kind != AgentKind::claudeCode && kind != AgentKind::codex) return {name, found, where, {}};
  if (HookConnection(kind, facts.places).isConnected()) return {name, found, where + ", connected", {}};
  return {name, found, where + ", not connected",
          fmt::format("tilebayctl agents connect {} lets it say at once that it waits", nameOf(kind))};
}

void addOwnFiles(const DoctorFacts& facts, std::vector<DoctorRow>& rows) {
  const fs::path& home = facts.places.home;
  const std::string settings = shortened(facts.defaultsFile, home);
  if (const auto text = readFile(facts.defaultsFile); !text)
    rows.push_back(isThere(facts.defaultsFile)
                       ? DoctorRow{"Settings", missing, settings + " cannot be read", "Look at its permissions"}
                       : DoctorRow{"Settings", found, "as they come; nothing is stored yet", {}});
  else if (!parseJSON(*text))
    rows.push_back({"Settings", missing, settings + " is no JSON", "Mend it; until then no change of it is taken"});
  else
    rows.push_back({"Settings", found, settings, {}});

  // Before the first start it is made below the nearest folder that is there.
  fs::path folder = facts.places.data;
  while (!isThere(folder) && folder.has_relative_path()) folder = folder.parent_path();
  const std::string data = shortened(facts.places.data, home);
  rows.push_back(
      access(folder.c_str(), W_OK | X_OK) == 0
          ? DoctorRow{"Data", found, data, {}}
          : DoctorRow{"Data", missing, data + " cannot be written to: nothing is kept", "Look at its permissions"});
}

}  // namespace

std::vector<DoctorRow> diagnose(const DoctorFacts& facts) {
  std::vector<DoctorRow> rows{program(facts), runningBar(facts)};
  addOwnFiles(facts, rows);
  rows.push_back(session(facts));
  addWindowSystem(facts, rows);
  rows.push_back(tray(facts));
  addServices(facts, rows);
  rows.push_back(sound(facts));
  rows.push_back(containers(facts));
  addFonts(facts, rows);
  rows.push_back(row("Calculator", isThere(facts.calculator), facts.calculator.string(),
                     "the calculator and the unit converter give no results", "Install tilebay-calculator"));
  for (const AgentKind kind : allCases<AgentKind>()) rows.push_back(agent(facts, kind));
  rows.push_back(modelServer(facts));
  return rows;
}

}  // namespace ambrel
