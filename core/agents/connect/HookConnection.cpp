#include "core/agents/connect/HookConnection.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <vector>

#include "core/agents/connect/SettingsText.h"
#include "core/base/Files.h"
#include "core/base/JSON.h"
#include "core/base/StoredFile.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

using Node = SettingsText::Node;

constexpr std::uint64_t largestSettingsFile = 64 << 20;

struct WantedEvent {
  std::string_view name;
  std::string_view matcher = {};  // of tools' names; empty: all
};

// Tools pass over events of later versions, but for old ones of Claude Code, so that only those are here that all
// versions with a registry know.
const std::vector<WantedEvent>& wantedEvents(AgentKind kind) {
  static const std::vector<WantedEvent> claude{{"SessionStart"},
                                               {"SessionEnd"},
                                               {"UserPromptSubmit"},
                                               {"PreToolUse", "AskUserQuestion|ExitPlanMode"},
                                               {"PermissionRequest"},
                                               {"PostToolUse"},
                                               {"PostToolUseFailure"},
                                               {"Notification"},
                                               {"Stop"},
                                               {"SubagentStart"},
                                               {"SubagentStop"}};
  static const std::vector<WantedEvent> codex{{"SessionStart"},      {"SessionEnd"},  {"UserPromptSubmit"},
                                              {"PermissionRequest"}, {"PostToolUse"}, {"Stop"},
                                              {"Interrupt"}};
  return kind == AgentKind::codex ? codex : claude;
}

// Ours are known by this, wherever the program is installed.
std::string callOf(AgentKind kind) { return " agents hook " + std::string(nameOf(kind)); }

constexpr std::string_view ourTool = "tilebayctl";

bool isOurs(AgentKind kind, std::string_view command) {
  return command.find(ourTool) != command.npos && command.ends_with(callOf(kind));
}

std::string entryFor(const WantedEvent& event, const std::string& command) {
  const JSON hooks = JSON::array({{{"type", "command"}, {"command", command}, {"timeout", 5}}});
  std::string entry = "{";
  if (!event.matcher.empty()) entry += "\"matcher\":" + compactJSON(JSON(std::string(event.matcher))) + ",";
  return entry + "\"hooks\":" + compactJSON(hooks) + "}";
}

// The commands of one event: calls visit(group, handler, command) until it returns true.
template <typename Visit>
bool eachCommand(const SettingsText& text, const Node& event, Visit visit) {
  for (std::size_t group = 0; group < event.children.size(); ++group) {
    const Node* handlers = event.children[group].find("hooks");
    if (!handlers || handlers->kind != Node::Kind::array) continue;
    for (std::size_t i = 0; i < handlers->children.size(); ++i) {
      const Node* command = handlers->children[i].find("command");
      if (command && visit(group, i, text.value(*command))) return true;
    }
  }
  return false;
}

const Node* hooksOf(const SettingsText& text) {
  const Node* hooks = text.root().find("hooks");
  if (hooks && hooks->kind != Node::Kind::object) throw DecodingError("\"hooks\" is no object");
  return hooks;
}

bool has(AgentKind kind, const SettingsText& text, const WantedEvent& wanted, const std::string& command) {
  const Node* hooks = hooksOf(text);
  const Node* event = hooks ? hooks->find(wanted.name) : nullptr;
  if (event && event->kind != Node::Kind::array)
    throw DecodingError("the hooks of \"" + std::string(wanted.name) + "\" are no array");
  return event && eachCommand(text, *event, [&](std::size_t, std::size_t, const std::string& each) {
           return isOurs(kind, each) && each == command;
         });
}

// The first entry of ours, whatever its command; false when there is none.
bool removeOne(AgentKind kind, SettingsText& text, const std::string* but) {
  const Node* hooks = hooksOf(text);
  if (!hooks) return false;
  for (std::size_t index = 0; index < hooks->children.size(); ++index) {
    const Node& event = hooks->children[index];
    std::size_t group = 0, handler = 0;
    if (!eachCommand(text, event, [&](std::size_t g, std::size_t h, const std::string& command) {
          group = g;
          handler = h;
          return isOurs(kind, command) && (!but || command != *but);
        }))
      continue;
    const Node& handlers = *event.children[group].find("hooks");
    if (handlers.children.size() > 1)
      text.remove(handlers, handler);
    else if (event.children.size() > 1)
      text.remove(event, group);
    else if (hooks->children.size() > 1)
      text.remove(*hooks, index);
    else
      text.remove(text.root(),
                  static_cast<std::size_t>(std::find_if(text.root().children.begin(), text.root().children.end(),
                                                        [&](const Node& each) { return &each == hooks; }) -
                                           text.root().children.begin()));
    return true;
  }
  return false;
}

bool fileExists(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::exists(std::filesystem::status(path, error));
}

// Absent when there is no file.
std::optional<std::string> readWhole(const std::filesystem::path& path) {
  if (!fileExists(path)) return std::nullopt;
  errno = 0;
  auto bytes = readFile(path, largestSettingsFile);
  if (!bytes) throw FileError("cannot read", path, errno == 0 ? EINVAL : errno);
  return bytes;
}

void removeFile(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::remove(path, error);
  if (error) throw FileError("cannot delete", path, error.value());
}

std::filesystem::path settingsOf(AgentKind kind, const HookConnection::Places& places) {
  return kind == AgentKind::codex ? places.folders.codexIn(places.home) / "hooks.json"
                                  : places.folders.claudeIn(places.home) / "settings.json";
}

}  // namespace

std::string connectedSettings(AgentKind kind, std::string settings, const std::string& command) {
  SettingsText text(std::move(settings));
  // Those of another installation.
  while (removeOne(kind, text, &command)) {
  }
  for (const WantedEvent& wanted : wantedEvents(kind)) {
    if (has(kind, text, wanted, command)) continue;
    if (!hooksOf(text)) text.append(text.root(), "hooks", "{}");
    const std::string entry = entryFor(wanted, command);
    if (const Node* event = hooksOf(text)->find(wanted.name))
      text.append(*event, std::nullopt, entry);
    else
      text.append(*hooksOf(text), wanted.name, "[" + entry + "]");
  }
  return text.text();
}

std::string disconnectedSettings(AgentKind kind, std::string settings) {
  SettingsText text(settings);
  bool isChanged = false;
  while (removeOne(kind, text, nullptr)) isChanged = true;
  return isChanged ? text.text() : settings;
}

bool isConnected(AgentKind kind, const std::string& settings, const std::string& command) {
  const SettingsText text(settings);
  const auto& wanted = wantedEvents(kind);
  return std::all_of(wanted.begin(), wanted.end(),
                     [&](const WantedEvent& each) { return has(kind, text, each, command); });
}

HookConnection::HookConnection(AgentKind kind, const Places& places)
    : kind_(kind),
      home_(places.home),
      settings_(settingsOf(kind, places)),
      backup_(settings_.native() + ".ambrel-backup"),
      before_(places.data / ("agent-hooks-" + std::string(nameOf(kind)) + "-before.json")) {
  // A program that was taken away leaves no error behind in every turn of the agent.
  const std::string tool = shellQuoted(places.tool.string());
  const bool isUsualFolder = places.data == places.home / ".local/share/Ambrel";
  command_ = "[ ! -x " + tool + " ] || " + tool +
             (isUsualFolder ? "" : " --data " + shellQuoted(places.data.string())) + callOf(kind);
}

bool HookConnection::isConnected() const {
  try {
    const auto settings = readWhole(settings_);
    return settings && ambrel::isConnected(kind_, *settings, command_);
  } catch (const std::exception&) {
    return false;
  }
}

bool HookConnection::mayHaveOurs() const {
  try {
    const auto settings = readWhole(settings_);
    return settings && settings->find(ourTool) != settings->npos;
  } catch (const FileError&) {
    return true;
  }
}

void HookConnection::connect() const {
  const auto old = readWhole(settings_);
  const std::string connected = connectedSettings(kind_, old.value_or(""), command_);
  if (old == connected) return;
  makeFolders(before_.parent_path());
  if (old)
    writeAtomically(before_, *old);
  else
    removeFile(before_);
  makeFolders(settings_.parent_path());
  removeLeftovers(settings_);
  if (old && !std::filesystem::exists(std::filesystem::symlink_status(backup_)))
    writeAtomically(backup_, *old, static_cast<mode_t>(std::filesystem::status(settings_).permissions()) & 07777);
  rewriteAtomically(settings_, connected);
}

void HookConnection::disconnect() const {
  const auto present = readWhole(settings_);
  if (present) {
    const auto before = readFile(before_, largestSettingsFile);
    std::string restored = disconnectedSettings(kind_, *present);
    if (before && restored != *present && connectedSettings(kind_, *before, command_) == *present) restored = *before;
    // A file that we made, and nobody has written to.
    if (!before && !fileExists(backup_) && connectedSettings(kind_, "", command_) == *present)
      removeFile(settings_);
    else if (restored != *present)
      rewriteAtomically(settings_, restored);
  }
  removeFile(before_);
}

std::string HookConnection::cannotChange() const {
  std::string name = settings_.string();
  if (const std::string home = home_.string() + "/"; name.starts_with(home)) name.replace(0, home.size(), "~/");
  return "Could not change " + name + ". Check that it is valid JSON.";
}

}  // namespace ambrel
