#include "app/Environment.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <pwd.h>
#include <unistd.h>

#include "core/base/Text.h"

namespace ambrel {
namespace {

namespace fs = std::filesystem;

fs::path homeFolder(const std::string& home) {
  if (!home.empty() && home.front() == '/') return home;
  const passwd* entry = getpwuid(getuid());
  return entry && entry->pw_dir ? fs::path(entry->pw_dir) : fs::path("/");
}

fs::path folder(const std::string& configured, const fs::path& standard) {
  return !configured.empty() && configured.front() == '/' ? fs::path(configured) : standard;
}

// `names`: of the theme and of the desktop.
bool takesGTKTheme(const std::string& names) {
  constexpr std::array marks{"gtk", "gnome", "unity", "cinnamon", "mate", "xfce", "lxde", "pantheon", "budgie"};
  const std::string lower = asciiLower(names);
  return std::ranges::any_of(marks, [&](const char* mark) { return lower.find(mark) != std::string::npos; });
}

}  // namespace

fs::path toolOf(const fs::path& program, const std::string& searchPath) {
  const fs::path folder = program.parent_path();
  // Beside it where it is installed, in a folder of its own where it was built.
  std::vector<fs::path> places{folder, folder.parent_path() / "ctl"};
  for (const std::string_view each : split(searchPath, ':'))
    if (each.starts_with('/')) places.emplace_back(each);
  for (const fs::path& place : places) {
    std::error_code error;
    const fs::path tool = fs::canonical(place / "tilebayctl", error);
    if (!error && access(tool.c_str(), X_OK) == 0) return tool;
  }
  return {};
}

Environment environmentOf(const std::function<const char*(const char*)>& variable) {
  const auto text = [&](const char* name) {
    const char* value = variable(name);
    return std::string(value ? value : "");
  };
  const fs::path home = homeFolder(text("HOME"));
  std::string zone = text("TZ");
  if (zone.starts_with(':')) zone.erase(0, 1);
  const fs::path zoneFile = zone.empty()          ? fs::path("/etc/localtime")
                            : zone.front() == '/' ? fs::path(zone)
                                                  : fs::path();
  const std::string display = text("DISPLAY"), platform = text("QT_QPA_PLATFORM"),
                    waylandDisplay = text("WAYLAND_DISPLAY");
  return {.surroundings =
              {.home = home,
               .dataFolder = folder(text("XDG_DATA_HOME"), home / ".local/share") / "Ambrel",
               .defaultsFile = folder(text("XDG_CONFIG_HOME"), home / ".config") / "Ambrel/defaults.json",
               .calendar = Calendar::fromVariables(text("TZ"), text("LC_ALL"), text("LC_TIME"), text("LANG")),
               .now = [] { return std::chrono::floor<std::chrono::microseconds>(std::chrono::system_clock::now()); },
               .agentFolders = AgentFolders::of(variable),
               .userHome = {.home = home,
                            .data = folder(text("XDG_DATA_HOME"), home / ".local/share"),
                            .config = folder(text("XDG_CONFIG_HOME"), home / ".config"),
                            .cache = folder(text("XDG_CACHE_HOME"), home / ".cache")},
               .program = {},
               .tool = {}},
          .zoneFile = zoneFile,
          .display = display,
          .waylandDisplay = waylandDisplay,
          .hasDisplay = !display.empty() || !waylandDisplay.empty() || platform.starts_with("offscreen"),
          .choosesPlatform = !platform.empty() && !platform.starts_with("wayland"),
          .hasLongTexts = !text("TILEBAY_LONG_TEXTS").empty(),
          .choosesRenderer = !text("QT_QUICK_BACKEND").empty() || !text("QSG_RHI_BACKEND").empty(),
          .takesGTKTheme = takesGTKTheme(text("QT_QPA_PLATFORMTHEME") + ':' + text("XDG_CURRENT_DESKTOP") + ':' +
                                         text("DESKTOP_SESSION"))};
}

}  // namespace ambrel
