#pragma once
// What the program meets on this machine, found or missing and what to do about it; where the program came from, and
// whether a newer one is known.

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "core/agents/connect/HookConnection.h"
#include "core/base/EnumText.h"

namespace ambrel {

// A package of this system's package manager that holds one of our files.
struct InstalledPackage {
  std::string name, version;
  friend bool operator==(const InstalledPackage&, const InstalledPackage&) = default;
};

// The package `name`, if it is installed and `file` is in it. dpkg: the package manager's folder, /var/lib/dpkg.
// Absent for a program that was built from source.
std::optional<InstalledPackage> packageOf(const std::filesystem::path& file, std::string_view name,
                                          const std::filesystem::path& dpkg);

// What apt knows of a package from the lists that it has; nothing is fetched for it.
struct AptPolicy {
  std::string installed, candidate;  // versions; empty for none
  bool hasArchive = false;           // some archive has the package; otherwise it was installed from a file
  friend bool operator==(const AptPolicy&, const AptPolicy&) = default;
};
// From the output of `apt-cache policy NAME` in the locale C. Absent when it knows no such package.
std::optional<AptPolicy> parseAptPolicy(std::string_view output);

// The answer to "Check for Updates…".
struct UpdateAnswer {
  std::string title, detail;
  friend bool operator==(const UpdateAnswer&, const UpdateAnswer&) = default;
};
// version: of the program that runs. policy: absent when apt gave no answer.
UpdateAnswer updateAnswer(std::string_view version, const std::optional<InstalledPackage>& package,
                          const std::optional<AptPolicy>& policy);

// What the session and its services say. Everything else is read from files below the folders given.
struct DoctorFacts {
  std::string version;
  std::optional<InstalledPackage> package;
  std::string sessionType;  // XDG_SESSION_TYPE: "x11", "wayland", "tty" or empty
  std::string desktop;      // XDG_CURRENT_DESKTOP, as in "ubuntu:GNOME"
  std::string display;      // DISPLAY

  struct X11 {
    std::string windowManager;  // its name, empty for none
    bool hasCompositor = false;
    bool hasTray = false;  // of the older kind, which embeds windows
  };
  std::optional<X11> x11;  // absent when no server answers
  // What a Wayland compositor offers ("zwlr_layer_shell_v1"); absent when none answers.
  std::optional<std::set<std::string>> compositor;
  bool canUseLayerShell = false;  // this build can

  struct Bus {
    std::set<std::string> owned;      // names that somebody has
    std::set<std::string> startable;  // names that the bus gives to a program which it starts
  };
  std::optional<Bus> sessionBus, systemBus;  // absent when there is none

  HookConnection::Places places;       // the home folder, ours, tilebayctl, and those of the agents
  std::filesystem::path defaultsFile;  // ours
  std::filesystem::path runtime;       // $XDG_RUNTIME_DIR; empty for none
  std::filesystem::path root = "/";    // above /proc, /run and /usr
  std::filesystem::path calculator;    // the process that works out expressions, a package of its own
  std::filesystem::path fonts;         // the user's own: $XDG_DATA_HOME/fonts
  std::string modelServer;             // the address that was chosen; empty for none
  // Where a container engine may listen; absent when it is one of another computer.
  std::optional<std::vector<std::filesystem::path>> engines;
};

enum class DoctorState {
  found,
  limited,  // works, but not in full
  missing,
};

struct DoctorRow {
  std::string what;  // "Tray"
  DoctorState state = DoctorState::found;
  std::string detail;  // one line: what was found, or what goes without it
  std::string advice;  // one line: what to install or to do; empty when nothing needs to be done
  friend bool operator==(const DoctorRow&, const DoctorRow&) = default;
};

// In the order of the table: the program, the session, its services, the agents' tools.
std::vector<DoctorRow> diagnose(const DoctorFacts& facts);

}  // namespace ambrel
