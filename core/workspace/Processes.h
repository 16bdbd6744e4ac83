#pragma once
// The process table of Linux (/proc), as far as it takes to tell what runs in a window.

#include <cstdint>
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
  bool operator==(const ProcessRecord&) const = default;
};

// /proc/PID/stat: pid, parent, state and name. The name stands between the first '(' and the last ')'.
std::optional<ProcessRecord> parseProcessStat(std::string_view text);
// /proc/PID/cmdline: each argument ends with a NUL byte.
std::vector<std::string> parseProcessArguments(std::string_view bytes);
// The value of WINDOWID in /proc/PID/environ: entries end with a NUL byte.
std::optional<std::uint32_t> parseWindowID(std::string_view environment);

// The process and all its descendants, the process itself first; nothing when it is not in the table. A table that
// was read while processes came and went may hold circles; each process comes once.
std::vector<const ProcessRecord*> processTree(const std::vector<ProcessRecord>& table, int root);

// Whether the process is a terminal multiplexer's server, which no terminal is the parent of.
bool isMultiplexerServer(const ProcessRecord& process);

}  // namespace ambrel
