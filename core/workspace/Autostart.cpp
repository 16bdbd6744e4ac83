#include "core/workspace/Autostart.h"

#include "core/base/Text.h"

namespace ambrel {
namespace {

// An argument of Exec is quoted first, and then escaped as every text of an entry is.
std::string execArgument(std::string_view text) {
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"' || c == '`' || c == '$') quoted += "\\\\";
    if (c == '\\') quoted += "\\\\\\";
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return quoted + '"';
}

}  // namespace

std::filesystem::path autostartFile(const std::filesystem::path& config) {
  return config / "autostart" / "tilebay.desktop";
}

std::filesystem::path installedAutostartFile() { return "/etc/xdg/autostart/tilebay.desktop"; }

std::string noAutostartEntry() { return "[Desktop Entry]\nType=Application\nName=Tilebay\nHidden=true\n"; }

std::string autostartEntry(const std::filesystem::path& program) {
  return "[Desktop Entry]\nType=Application\nName=Tilebay\nExec=" + execArgument(program.string()) +
         "\nTerminal=false\nX-GNOME-Autostart-enabled=true\n";
}

bool startsAtLogin(const std::optional<std::string>& entry) {
  if (!entry) return false;
  bool isMain = false;
  for (const std::string_view each : split(*entry, '\n')) {
    const std::string_view line = trimmed(each);
    if (line.starts_with('[')) isMain = line == "[Desktop Entry]";
    const auto equals = line.find('=');
    if (!isMain || equals == line.npos) continue;
    const std::string_view key = trimmed(line.substr(0, equals)), value = trimmed(line.substr(equals + 1));
    if ((key == "Hidden" && value == "true") || (key == "X-GNOME-Autostart-enabled" && value == "false")) return false;
  }
  return true;
}

}  // namespace ambrel
