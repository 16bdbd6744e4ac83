#include "core/workspace/Applications.h"

#include <algorithm>
#include <array>
#include <set>
#include <utility>

#include "core/base/Text.h"

namespace ambrel {
namespace {

using std::string_view;

constexpr std::array claudeEntries{string_view("claude-desktop"), string_view("com.anthropic.Claude"),
                                   string_view("claude")};
constexpr std::array claudeClasses{string_view("claude"), string_view("claude-desktop"),
                                   string_view("com.anthropic.claude")};
constexpr std::array claudeCommands{string_view("claude")};
constexpr std::array claudeScripts{string_view("claude-code/cli.js"), string_view("claude-code/cli.mjs")};

constexpr std::array codexEntries{string_view("codex"), string_view("com.openai.codex"), string_view("codex-desktop")};
constexpr std::array codexClasses{string_view("codex"), string_view("com.openai.codex"), string_view("codex-desktop")};
constexpr std::array codexCommands{string_view("codex")};
constexpr std::array codexScripts{string_view("codex/bin/codex.js")};

constexpr std::array cursorEntries{string_view("cursor"), string_view("co.anysphere.cursor")};
constexpr std::array cursorClasses{string_view("cursor"), string_view("co.anysphere.cursor")};
constexpr std::array cursorCommands{string_view("cursor-agent")};

constexpr std::array antigravityEntries{string_view("antigravity"), string_view("com.google.antigravity"),
                                        string_view("google-antigravity"), string_view("antigravity-ide")};
constexpr std::array antigravityClasses{string_view("antigravity"), string_view("com.google.antigravity"),
                                        string_view("antigravity-ide")};
constexpr std::array antigravityCommands{string_view("agy")};

// The local counterparts of the programs that the clipboard passes over unless it is told otherwise.
constexpr std::array onePasswordEntries{string_view("1password"), string_view("com.onepassword.OnePassword")};
constexpr std::array onePasswordClasses{string_view("1password")};
constexpr std::array bitwardenEntries{string_view("bitwarden"), string_view("com.bitwarden.desktop")};
constexpr std::array bitwardenClasses{string_view("bitwarden"), string_view("com.bitwarden.desktop")};
constexpr std::array keyringEntries{string_view("org.gnome.seahorse.Application"),
                                    string_view("org.kde.kwalletmanager5"), string_view("org.kde.kwalletmanager")};
constexpr std::array keyringClasses{string_view("org.gnome.seahorse.application"),
                                    string_view("seahorse"),
                                    string_view("kwalletmanager5"),
                                    string_view("kwalletmanager"),
                                    string_view("org.kde.kwalletmanager5"),
                                    string_view("org.kde.kwalletmanager")};

constexpr std::array applications{
    KnownApplication{"com.anthropic.claudefordesktop", claudeEntries, claudeClasses, claudeCommands, claudeScripts},
    KnownApplication{"com.openai.codex", codexEntries, codexClasses, codexCommands, codexScripts},
    KnownApplication{"com.todesktop.230313mzl4w4u92", cursorEntries, cursorClasses, cursorCommands, {}},
    KnownApplication{"com.google.antigravity", antigravityEntries, antigravityClasses, antigravityCommands, {}},
    KnownApplication{"com.1password.1password", onePasswordEntries, onePasswordClasses, {}, {}},
    KnownApplication{"com.bitwarden.desktop", bitwardenEntries, bitwardenClasses, {}, {}},
    KnownApplication{"com.apple.keychainaccess", keyringEntries, keyringClasses, {}, {}},
};

// What a stored identifier is called where no desktop entry says it; its last part alone would mislead.
constexpr std::array<std::pair<string_view, string_view>, 4> storedNames{{
    {"com.1password.1password", "1Password"},
    {"com.agilebits.onepassword7", "1Password 7"},
    {"com.bitwarden.desktop", "Bitwarden"},
    {"com.apple.keychainaccess", "Passwords and keys"},
}};

constexpr std::array interpreters{string_view("node"), string_view("nodejs"), string_view("bun"),  string_view("deno"),
                                  string_view("sh"),   string_view("bash"),   string_view("dash"), string_view("zsh")};

bool holds(std::span<const string_view> list, string_view entry) {
  return std::ranges::find(list, entry) != list.end();
}

string_view baseName(string_view path) {
  const auto slash = path.rfind('/');
  return slash == path.npos ? path : path.substr(slash + 1);
}

// The script that an interpreter was started with; empty when it was given none.
string_view scriptOf(const ProcessRecord& process) {
  if (process.arguments.empty()) return {};
  string_view program = baseName(process.arguments.front());
  if (program.starts_with("-")) program.remove_prefix(1);  // a login shell
  if (!holds(interpreters, program)) return {};
  for (std::size_t i = 1; i < process.arguments.size(); ++i) {
    const string_view argument = process.arguments[i];
    if (argument == "-c" || argument == "-e") return {};
    if (argument == "run" && program != "node" && program != "nodejs") continue;
    if (!argument.starts_with("-")) return argument;
  }
  return {};
}

const KnownApplication* applicationByClass(const WindowRecord& window) {
  const std::string instance = asciiLower(window.instance);
  const std::string className = asciiLower(window.className);
  for (const KnownApplication& application : applications)
    if (holds(application.classes, className) || holds(application.classes, instance)) return &application;
  return nullptr;
}

// Whether a process below the window's program is in this window rather than in another one of the same program.
bool isInWindow(const ProcessRecord& process, const WindowRecord& window, const std::vector<WindowRecord>& windows) {
  if (!process.windowID || *process.windowID == window.id) return true;
  return std::ranges::none_of(
      windows, [&](const WindowRecord& other) { return other.id == *process.windowID && other.pid == window.pid; });
}

bool runs(string_view bundleID, const WindowRecord& window, const std::vector<WindowRecord>& windows,
          const std::vector<ProcessRecord>& processes) {
  return std::ranges::any_of(agentsIn(window, windows, processes),
                             [&](const std::string& agent) { return agent == bundleID; });
}

bool runsInMultiplexer(string_view bundleID, const std::vector<ProcessRecord>& processes) {
  for (const ProcessRecord& server : processes) {
    if (!isMultiplexerServer(server)) continue;
    for (const ProcessRecord* process : processTree(processes, server.pid)) {
      const KnownApplication* agent = agentOf(*process);
      if (agent && agent->bundleID == bundleID) return true;
    }
  }
  return false;
}

}  // namespace

const KnownApplication* findApplication(string_view bundleID) {
  const auto found = std::ranges::find(applications, bundleID, &KnownApplication::bundleID);
  return found == applications.end() ? nullptr : &*found;
}

const KnownApplication* agentOf(const ProcessRecord& process) {
  if (process.state == 'Z' || process.state == 'X') return nullptr;
  const string_view program = process.arguments.empty() ? string_view() : baseName(process.arguments.front());
  const string_view script = scriptOf(process);
  const string_view scriptName = baseName(script);
  for (const KnownApplication& application : applications) {
    if (holds(application.commands, process.name) || holds(application.commands, program)) return &application;
    if (script.empty()) continue;
    if (holds(application.commands, scriptName)) return &application;
    for (const string_view end : application.scripts)
      if (script.ends_with(end)) return &application;
  }
  return nullptr;
}

std::string applicationOf(const WindowRecord& window, const std::vector<DesktopEntry>& entries) {
  if (const KnownApplication* known = applicationByClass(window)) return std::string(known->bundleID);
  const std::string className = asciiLower(window.className);
  const std::string instance = asciiLower(window.instance);
  if (className.empty() && instance.empty()) return {};
  const auto isNamed = [&](const std::string& name) {
    const std::string lower = asciiLower(name);
    return !lower.empty() && (lower == className || lower == instance);
  };
  // What an entry says of its windows outweighs a likeness of names.
  for (const DesktopEntry& entry : entries)
    if (!entry.isHidden && isNamed(entry.windowClass)) return entry.id;
  for (const DesktopEntry& entry : entries) {
    const auto dot = entry.id.rfind('.');
    if (!entry.isHidden && (isNamed(entry.id) || (dot != std::string::npos && isNamed(entry.id.substr(dot + 1)))))
      return entry.id;
  }
  return className.empty() ? instance : className;
}

namespace {

// The first entry of the program that says it; empty when none does.
std::string saidByEntry(string_view bundleID, const std::vector<DesktopEntry>& entries,
                        std::string DesktopEntry::*field) {
  const auto said = [&](string_view id) {
    const auto entry = std::ranges::find_if(entries, [&](const DesktopEntry& one) { return one.id == id; });
    return entry == entries.end() || entry->isHidden ? std::string() : (*entry).*field;
  };
  if (std::string text = said(bundleID); !text.empty()) return text;
  if (const KnownApplication* known = findApplication(bundleID))
    for (const string_view id : known->entries)
      if (std::string text = said(id); !text.empty()) return text;
  return {};
}

}  // namespace

std::string applicationIcon(string_view bundleID, const std::vector<DesktopEntry>& entries) {
  return saidByEntry(bundleID, entries, &DesktopEntry::icon);
}

std::string applicationName(string_view bundleID, const std::vector<DesktopEntry>& entries) {
  if (std::string name = saidByEntry(bundleID, entries, &DesktopEntry::name); !name.empty()) return name;
  const auto stored = std::ranges::find(storedNames, bundleID, &std::pair<string_view, string_view>::first);
  if (stored != storedNames.end()) return std::string(stored->second);
  std::string name(bundleID.substr(bundleID.rfind('.') + 1));
  if (!name.empty() && name.front() >= 'a' && name.front() <= 'z') name.front() -= 'a' - 'A';
  return name;
}

std::vector<const ProcessRecord*> processesIn(const WindowRecord& window, const std::vector<WindowRecord>& windows,
                                              const std::vector<ProcessRecord>& processes) {
  std::vector<const ProcessRecord*> found;
  if (!window.pid) return found;
  std::set<int> hidden;
  for (const ProcessRecord* process : processTree(processes, *window.pid)) {
    // The tree comes with parents before their children.
    if (hidden.contains(process->parent) || (isMultiplexer(*process) && isMultiplexerServer(*process)))
      hidden.insert(process->pid);
    else if (isInWindow(*process, window, windows))
      found.push_back(process);
  }
  return found;
}

std::vector<std::string> agentsAmong(const std::vector<const ProcessRecord*>& processes) {
  std::set<const KnownApplication*> agents;
  for (const ProcessRecord* process : processes) agents.insert(agentOf(*process));
  std::vector<std::string> found;
  for (const KnownApplication& application : applications)
    if (agents.contains(&application)) found.emplace_back(application.bundleID);
  return found;
}

std::vector<std::string> agentsIn(const WindowRecord& window, const std::vector<WindowRecord>& windows,
                                  const std::vector<ProcessRecord>& processes) {
  return agentsAmong(processesIn(window, windows, processes));
}

std::optional<std::uint32_t> windowOf(string_view bundleID, const std::vector<WindowRecord>& windows,
                                      const std::vector<ProcessRecord>& processes,
                                      const std::vector<DesktopEntry>& entries) {
  for (auto window = windows.rbegin(); window != windows.rend(); ++window)
    if (applicationOf(*window, entries) == bundleID || runs(bundleID, *window, windows, processes)) return window->id;
  if (!runsInMultiplexer(bundleID, processes)) return std::nullopt;
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    const auto isClient = [](const ProcessRecord* process) { return isMultiplexer(*process); };
    if (std::ranges::any_of(processesIn(*window, windows, processes), isClient)) return window->id;
  }
  return std::nullopt;
}

}  // namespace ambrel
