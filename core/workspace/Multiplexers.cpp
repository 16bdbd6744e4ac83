#include "core/workspace/Multiplexers.h"

#include <algorithm>
#include <charconv>
#include <set>

#include "core/base/Text.h"

namespace ambrel {
namespace {

using std::string_view;
using Kind = PaneQuestion::Kind;

std::optional<Kind> kindOf(const ProcessRecord& process) {
  if (process.name.starts_with("tmux: ")) return Kind::tmux;
  if (process.name == "screen") return Kind::screen;
  if (process.name == "zellij") return Kind::zellij;
  return std::nullopt;
}

int number(string_view text) {
  int value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

string_view variable(const ProcessRecord& process, string_view name) {
  const auto found = process.variables.find(name);
  return found == process.variables.end() ? string_view() : string_view(found->second);
}

// "/tmp/tmux-1000/default,1234,0": the socket, the server's process, the session.
struct TmuxVariable {
  string_view socket;
  int server = 0;
};
TmuxVariable tmuxVariable(const ProcessRecord& process) {
  const string_view text = variable(process, "TMUX");
  const auto last = text.rfind(',');
  if (last == text.npos || last == 0) return {};
  const auto middle = text.rfind(',', last - 1);
  if (middle == text.npos) return {};
  return {text.substr(0, middle), number(text.substr(middle + 1, last - middle - 1))};
}

// As those in its panes know it: tmux's socket, the name of a session of screen or zellij; empty while nothing runs in
// it.
std::string nameOfServer(const ProcessRecord& server, Kind kind, const std::vector<ProcessRecord>& processes) {
  for (const ProcessRecord* process : processTree(processes, server.pid)) {
    if (process->pid == server.pid) continue;
    if (kind == Kind::tmux) {
      if (const auto tmux = tmuxVariable(*process); tmux.server == server.pid) return std::string(tmux.socket);
    } else if (const auto name = variable(*process, kind == Kind::screen ? "STY" : "ZELLIJ_SESSION_NAME");
               !name.empty() && (kind == Kind::zellij || number(name) == server.pid)) {
      return std::string(name);
    }
  }
  return {};
}

// Whether an argument of the client ("-r work", "attach work") names the session: "work", or "1234.work" of screen.
bool isNamedBy(const ProcessRecord& client, string_view session) {
  const auto dot = session.find('.');
  for (std::size_t i = 1; i < client.arguments.size(); ++i) {
    const string_view argument = client.arguments[i];
    if (argument == session) return true;
    if (dot != session.npos && (argument == session.substr(0, dot) || argument == session.substr(dot + 1))) return true;
  }
  return false;
}

struct Server {
  const ProcessRecord* process;
  std::string name;
};

// A client of tmux need not be matched: the server names its clients by their processes. One of screen or zellij has
// started its server, or names the session, or there is but one.
std::vector<Server> serversFor(const ProcessRecord& client, Kind kind, const std::vector<ProcessRecord>& processes) {
  std::vector<Server> servers;
  for (const ProcessRecord& process : processes) {
    if (kindOf(process) != kind || !isMultiplexerServer(process)) continue;
    if (std::string name = nameOfServer(process, kind, processes); !name.empty())
      servers.push_back({&process, std::move(name)});
  }
  if (kind == Kind::tmux || servers.size() <= 1) return servers;
  const auto only = [&](auto matches) {
    std::vector<Server> found;
    std::ranges::copy_if(servers, std::back_inserter(found), matches);
    return found;
  };
  auto own = only([&](const Server& server) { return server.process->parent == client.pid; });
  if (own.size() == 1) return own;
  auto named = only([&](const Server& server) { return isNamedBy(client, server.name); });
  return named.size() == 1 ? named : std::vector<Server>();
}

std::vector<std::string> command(Kind kind, const std::string& name) {
  switch (kind) {
    case Kind::tmux:
      return {"tmux",
              "-S",
              name,
              "list-clients",
              "-F",
              "client #{client_pid} #{window_id}",
              ";",
              "list-panes",
              "-a",
              "-F",
              "pane #{window_id} #{pane_pid} #{?window_zoomed_flag,#{pane_active},1}"};
    case Kind::screen:
      return {"screen", "-S", name, "-Q", "number"};
    case Kind::zellij:
      return {"zellij", "--session", name, "action", "list-clients"};
  }
  return {};
}

std::set<int> tmuxPanes(int client, string_view answer) {
  string_view window;
  for (const string_view line : split(answer, '\n')) {
    const auto words = split(line, ' ');
    if (words.size() == 3 && words[0] == "client" && number(words[1]) == client) window = words[2];
  }
  std::set<int> panes;
  for (const string_view line : split(answer, '\n')) {
    const auto words = split(line, ' ');
    if (words.size() == 4 && words[0] == "pane" && words[1] == window && words[3] == "1")
      panes.insert(number(words[2]));
  }
  return panes;
}

// "0 (bash)"
std::set<std::string, std::less<>> screenWindows(string_view answer) {
  const string_view text = trimmed(answer);
  const string_view first = text.substr(0, text.find(' '));
  if (first.empty() || !std::ranges::all_of(first, [](char c) { return c >= '0' && c <= '9'; })) return {};
  return {std::string(first)};
}

// Lines of "1  terminal_3  vim" beneath a heading.
std::set<std::string, std::less<>> zellijPanes(string_view answer) {
  constexpr string_view prefix = "terminal_";
  std::set<std::string, std::less<>> panes;
  for (const string_view line : split(answer, '\n'))
    for (const string_view word : split(line, ' '))
      if (word.starts_with(prefix)) panes.emplace(word.substr(prefix.size()));
  return panes;
}

}  // namespace

std::vector<PaneQuestion> paneQuestions(const WindowRecord& window, const std::vector<WindowRecord>& windows,
                                        const std::vector<ProcessRecord>& processes) {
  std::vector<PaneQuestion> questions;
  for (const ProcessRecord* process : processesIn(window, windows, processes)) {
    const auto kind = kindOf(*process);
    if (!kind || isMultiplexerServer(*process)) continue;
    for (Server& server : serversFor(*process, *kind, processes)) {
      std::vector<std::string> words = command(*kind, server.name);
      questions.push_back({*kind, server.process->pid, process->pid, std::move(server.name), std::move(words)});
    }
  }
  return questions;
}

std::optional<PaneOfProcess> paneOf(int pid, const std::vector<ProcessRecord>& processes) {
  const auto isIn = [pid](const std::vector<const ProcessRecord*>& tree) {
    return std::ranges::find(tree, pid, &ProcessRecord::pid) != tree.end();
  };
  for (const ProcessRecord& server : processes) {
    const auto kind = kindOf(server);
    if (!kind || !isMultiplexerServer(server) || server.pid == pid) continue;
    const auto tree = processTree(processes, server.pid);
    if (!isIn(tree)) continue;
    const ProcessRecord& process = **std::ranges::find(tree, pid, &ProcessRecord::pid);
    PaneOfProcess pane{.kind = *kind, .server = server.pid};
    const std::string name = nameOfServer(server, *kind, processes);
    const std::string place(variable(process, *kind == Kind::tmux ? "TMUX_PANE" : "WINDOW"));
    if (name.empty() || place.empty() || *kind == Kind::zellij) return pane;
    if (*kind == Kind::tmux)
      pane.command = {"tmux", "-S",  name, "select-window", "-t", place, ";",  "select-pane",
                      "-t",   place, ";",  "list-clients",  "-t", place, "-F", "#{client_pid}"};
    else
      pane.command = {"screen", "-S", name, "-X", "select", place};
    return pane;
  }
  return std::nullopt;
}

std::optional<std::uint32_t> windowOfProcess(int pid, const std::optional<PaneOfProcess>& pane, string_view answer,
                                             const std::vector<WindowRecord>& windows,
                                             const std::vector<ProcessRecord>& processes) {
  std::set<int> wanted;
  if (!pane) wanted.insert(pid);
  if (pane && pane->kind == Kind::tmux)
    for (const string_view line : split(answer, '\n')) wanted.insert(number(trimmed(line)));
  for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
    const bool shows = std::ranges::any_of(processesIn(*window, windows, processes),
                                           [&](const ProcessRecord* each) { return wanted.contains(each->pid); });
    const auto isOfServer = [&](const PaneQuestion& question) { return question.server == pane->server; };
    if (shows || (pane && pane->kind != Kind::tmux &&
                  std::ranges::any_of(paneQuestions(*window, windows, processes), isOfServer)))
      return window->id;
  }
  return std::nullopt;
}

std::vector<const ProcessRecord*> shownInPanes(const PaneQuestion& question, string_view answer,
                                               const std::vector<ProcessRecord>& processes) {
  std::vector<const ProcessRecord*> shown;
  if (question.kind == Kind::tmux) {
    for (const int pane : tmuxPanes(question.client, answer)) {
      const auto tree = processTree(processes, pane);
      shown.insert(shown.end(), tree.begin(), tree.end());
    }
    return shown;
  }
  const bool isScreen = question.kind == Kind::screen;
  const auto panes = isScreen ? screenWindows(answer) : zellijPanes(answer);
  for (const ProcessRecord* process : processTree(processes, question.server))
    if (variable(*process, isScreen ? "STY" : "ZELLIJ_SESSION_NAME") == question.session &&
        panes.contains(variable(*process, isScreen ? "WINDOW" : "ZELLIJ_PANE_ID")))
      shown.push_back(process);
  return shown;
}

}  // namespace ambrel
