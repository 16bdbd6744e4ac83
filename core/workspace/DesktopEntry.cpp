#include "core/workspace/DesktopEntry.h"

#include <algorithm>

#include "core/base/Text.h"

namespace ambrel {
namespace {

// The escapes of string values: \s \n \t \r \\; others stay as they are.
std::string unescaped(std::string_view value) {
  std::string text;
  for (std::size_t i = 0; i < value.size(); ++i) {
    if (value[i] != '\\' || i + 1 == value.size()) {
      text += value[i];
      continue;
    }
    switch (value[++i]) {
      case 's':
        text += ' ';
        break;
      case 'n':
        text += '\n';
        break;
      case 't':
        text += '\t';
        break;
      case 'r':
        text += '\r';
        break;
      case '\\':
        text += '\\';
        break;
      default:
        text += '\\';
        text += value[i];
    }
  }
  return text;
}

// One argument as it grows. `isWritten` tells an empty one in quotes from none.
struct Argument {
  std::string text;
  bool isWritten = false;
};

void takeKey(DesktopEntry& entry, std::string& type, std::vector<std::string>& actions, std::string_view key,
             std::string value) {
  if (key == "Type") type = std::move(value);
  if (key == "Name") entry.name = std::move(value);
  if (key == "Icon") entry.icon = std::move(value);
  if (key == "Exec") entry.exec = std::move(value);
  if (key == "TryExec") entry.tryExec = std::move(value);
  if (key == "Path") entry.workingFolder = std::move(value);
  if (key == "StartupWMClass") entry.windowClass = std::move(value);
  if (key == "Terminal") entry.runsInTerminal = value == "true";
  if (key == "Hidden") entry.isHidden = value == "true";
  if (key == "NoDisplay") entry.isInMenus = value != "true";
  if (key == "DBusActivatable") entry.isActivatedByBus = value == "true";
  if (key == "Actions")
    for (const std::string_view action : split(value, ';')) actions.emplace_back(trimmed(action));
}

void takeKey(DesktopAction& action, std::string_view key, std::string value) {
  if (key == "Name") action.name = std::move(value);
  if (key == "Icon") action.icon = std::move(value);
  if (key == "Exec") action.exec = std::move(value);
}

// What a field code becomes inside an argument when no file is opened.
std::string_view replacement(char code, const DesktopEntry& entry, std::string_view file) {
  switch (code) {
    case '%':
      return "%";
    case 'c':
      return entry.name;
    case 'k':
      return file;
    default:
      return {};
  }
}

}  // namespace

std::optional<DesktopEntry> parseDesktopEntry(std::string_view id, std::string_view text) {
  constexpr std::string_view ofActions = "[Desktop Action ";
  DesktopEntry entry;
  entry.id = id;
  std::string type, group;
  std::vector<DesktopAction> found;
  std::vector<std::string> wanted;
  for (std::string_view line : split(text, '\n')) {
    line = trimmed(line);
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      group = line;
      if (line.starts_with(ofActions) && line.ends_with(']'))
        found.push_back({std::string(line.substr(ofActions.size(), line.size() - ofActions.size() - 1)), {}, {}, {}});
      continue;
    }
    const auto equals = line.find('=');
    if (equals == line.npos) continue;
    const std::string_view key = trimmed(line.substr(0, equals));
    std::string value = unescaped(trimmed(line.substr(equals + 1)));
    if (group == "[Desktop Entry]")
      takeKey(entry, type, wanted, key, std::move(value));
    else if (group.starts_with(ofActions) && !found.empty())
      takeKey(found.back(), key, std::move(value));
  }
  if (entry.isHidden) return entry;
  if (type != "Application" || (entry.exec.empty() && !entry.isActivatedByBus)) return std::nullopt;
  for (const std::string& action : wanted) {
    const auto one = std::ranges::find(found, action, &DesktopAction::id);
    if (one != found.end() && !one->name.empty() && (!one->exec.empty() || entry.isActivatedByBus))
      entry.actions.push_back(*one);
  }
  return entry;
}

std::optional<std::string> desktopEntryID(std::string_view relativePath) {
  constexpr std::string_view suffix = ".desktop";
  if (!relativePath.ends_with(suffix) || relativePath.size() == suffix.size()) return std::nullopt;
  std::string id(relativePath.substr(0, relativePath.size() - suffix.size()));
  for (char& c : id)
    if (c == '/') c = '-';
  return id;
}

std::optional<std::vector<std::string>> commandOf(const DesktopEntry& entry, const DesktopAction& action,
                                                  std::string_view file) {
  DesktopEntry whole = entry;
  whole.exec = action.exec;
  return commandOf(whole, file);
}

std::optional<std::vector<std::string>> commandOf(const DesktopEntry& entry, std::string_view file) {
  std::vector<std::string> command;
  Argument argument;
  const auto finish = [&] {
    if (argument.isWritten || !argument.text.empty()) command.push_back(std::move(argument.text));
    argument = {};
  };
  bool isQuoted = false;
  const std::string_view exec = entry.exec;
  for (std::size_t i = 0; i < exec.size(); ++i) {
    const char c = exec[i];
    if (c == '"') {
      isQuoted = !isQuoted;
      argument.isWritten = true;
    } else if (c == '\\' && isQuoted) {
      if (++i == exec.size()) return std::nullopt;
      if (std::string_view("\"`$\\").find(exec[i]) == std::string_view::npos) argument.text += '\\';
      argument.text += exec[i];
    } else if (!isQuoted && (c == ' ' || c == '\t' || c == '\n')) {
      finish();
    } else if (c == '%' && i + 1 < exec.size()) {
      if (exec[++i] == 'i' && !entry.icon.empty()) {
        finish();
        command.emplace_back("--icon");
        argument.text = entry.icon;
        finish();
      } else {
        argument.text += replacement(exec[i], entry, file);
      }
    } else {
      argument.text += c;
    }
  }
  if (isQuoted) return std::nullopt;
  finish();
  if (command.empty() || command.front().empty()) return std::nullopt;
  return command;
}

}  // namespace ambrel
