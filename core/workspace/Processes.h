#pragma once
// The process table of Linux (/proc), as far as it takes to tell what runs in a window.

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ambrel {

struct ProcessRecord {
  int pid = 0;
  int parent = 0;
  char state = '?';                       // 'R', 'S', 'Z' ...
  std::string name;                       // of the thread group's leader; at most 15 bytes, which may be anything
  std::vector<std::string> arguments;     // empty for kernel threads, zombies and processes not looked into
  std::optional<std::uint32_t> windowID;  // what the terminal told it in WINDOWID
  // What a terminal multiplexer told it, by the names of multiplexerVariables.
  std::map<std::string, std::string, std::less<>> variables = {};
  bool operator==(const ProcessRecord&) const = default;
};

// /proc/PID/stat: pid, parent, state and name. The name is between the first '(' and the last ')'.
std::optional<ProcessRecord> parseProcessStat(std::string_view text);
// /proc/PID/cmdline: each argument ends with a NUL byte.
std::vector<std::string> parseProcessArguments(std::string_view bytes);
// The value of WINDOWID in /proc/PID/environ: entries end with a NUL byte.
std::optional<std::uint32_t> parseWindowID(std::string_view environment);

// By which a program in a pane knows its pane: tmux, screen (STY and WINDOW), zellij.
inline constexpr std::array<std::string_view, 6> multiplexerVariables{
    "TMUX", "TMUX_PANE", "STY", "WINDOW", "ZELLIJ_SESSION_NAME", "ZELLIJ_PANE_ID"};
// Those of them that /proc/PID/environ holds; nothing else of it is kept.
std::map<std::string, std::string, std::less<>> parseMultiplexerVariables(std::string_view environment);

// The process and all its descendants, the process itself first; nothing when it is not in the table. A table that
// was read while processes came and went may hold circles; each process comes once.
std::vector<const ProcessRecord*> processTree(const std::vector<ProcessRecord>& table, int root);

// Whether the process belongs to a terminal multiplexer, as its server or as a client.
bool isMultiplexer(const ProcessRecord& process);
// Whether it is the server, whose children are the panes. Its arguments have to be known.
bool isMultiplexerServer(const ProcessRecord& process);

}  // namespace ambrel
