#pragma once
// The processes of the agents' tools, as /proc tells of them. `processes` is the root of /proc.

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "core/base/Instant.h"

namespace ambrel {

// Field 22 of /proc/<pid>/stat; absent for a process that has ended and waits for its parent.
std::optional<std::string_view> processStart(std::string_view stat);

// Whether the process runs, and began at that time.
bool isSameProcess(const std::filesystem::path& processes, int pid, std::string_view start);

struct ToolProcess {
  int pid = 0;             // 0: not known
  std::string start = {};  // when it began: field 22 of its stat, as it is written there
  std::int64_t ticks = 0;  // when its hook began, in the same unit; 0: not known
  std::string space = {};  // in which these numbers mean something: processSpace()
  friend bool operator==(const ToolProcess&, const ToolProcess&) = default;
};

// The tool that called the hook `self`: the nearest of its ancestors that is no shell.
ToolProcess toolProcess(const std::filesystem::path& processes, int self, int parent);

// Names the run of this computer and the set of processes that this one belongs to: numbers of processes mean nothing
// elsewhere. Empty when it cannot be told.
std::string processSpace(const std::filesystem::path& processes);

// The process of a container on this computer, by its number there and its start: its number here. It reads the whole
// table. Absent when there is none, or it may not be seen.
std::optional<int> containedProcess(const std::filesystem::path& processes, int number, std::string_view start);

// Whether the process belongs to a login from another computer.
bool isRemoteLogin(const std::filesystem::path& processes, int pid);

// When this computer was started, by its present clock.
std::optional<Instant> bootTime(const std::filesystem::path& processes);
// How long after that a process began. `start`: field 22 of its stat.
std::optional<Seconds> startAfterBoot(std::string_view start);

// Whether a process has a child that began more than a second after `ticks`. The hooks of one event begin together;
// what begins later is work that was allowed.
bool hasChildSince(const std::filesystem::path& processes, int pid, std::int64_t ticks);

}  // namespace ambrel
