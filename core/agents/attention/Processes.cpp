#include "core/agents/attention/Processes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <unistd.h>
#include <vector>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestProcFile = 64 << 10;
constexpr std::int64_t ticksPerSecond = 100;  // as the kernel reports them to programs, everywhere
constexpr int mostAncestors = 16;

std::int64_t numberIn(std::string_view text) {
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

struct Process {
  std::string name, start;
  int parent = 0;
};

// The name may hold blanks and brackets. Behind it comes field 3.
std::vector<std::string_view> fieldsBehindName(std::string_view stat) {
  const auto close = stat.rfind(')');
  return close == stat.npos ? std::vector<std::string_view>() : split(trimmed(stat.substr(close + 1)), ' ');
}

std::optional<Process> processAt(const std::filesystem::path& processes, int pid) {
  const auto stat = readFile(processes / std::to_string(pid) / "stat", largestProcFile);
  const auto start = stat ? processStart(*stat) : std::nullopt;
  if (!start) return std::nullopt;
  Process process;
  process.start = *start;
  process.parent = static_cast<int>(numberIn(fieldsBehindName(*stat)[1]));
  const auto open = stat->find('(');
  if (open != stat->npos) process.name = stat->substr(open + 1, stat->rfind(')') - open - 1);
  return process;
}

bool isShell(std::string_view name) {
  constexpr std::array<std::string_view, 8> shells{"sh", "bash", "dash", "zsh", "fish", "ksh", "env", "timeout"};
  return std::find(shells.begin(), shells.end(), name) != shells.end();
}

}  // namespace

std::optional<std::string_view> processStart(std::string_view stat) {
  const auto fields = fieldsBehindName(stat);
  constexpr std::size_t startField = 22 - 3;
  if (fields.size() <= startField || fields[0] == "Z" || fields[0] == "X") return std::nullopt;
  return fields[startField];
}

bool isSameProcess(const std::filesystem::path& processes, int pid, std::string_view start) {
  const auto process = processAt(processes, pid);
  return process && process->start == start;
}

std::string processSpace(const std::filesystem::path& processes) {
  constexpr std::size_t mostOfRun = 36;
  std::string space =
      readFile(processes / "sys/kernel/random/boot_id", largestProcFile).value_or("").substr(0, mostOfRun);
  std::array<char, 64> name;
  const ssize_t length = readlink((processes / "self/ns/pid").c_str(), name.data(), name.size());
  if (length > 0) space += " " + std::string(name.data(), static_cast<std::size_t>(length));
  return space;
}

std::optional<int> containedProcess(const std::filesystem::path& processes, int number, std::string_view start) {
  constexpr std::string_view key = "\nNSpid:";
  std::error_code error;
  std::filesystem::directory_iterator entry(processes, error), end;
  for (; !error && entry != end; entry.increment(error)) {
    const int pid = static_cast<int>(numberIn(entry->path().filename().native()));
    if (pid <= 0 || !isSameProcess(processes, pid, start)) continue;
    const std::string status = readFile(entry->path() / "status", largestProcFile).value_or("");
    const auto begin = status.find(key);
    if (begin == status.npos) continue;
    // Its numbers from the outermost space to its own.
    const std::string_view line = std::string_view(status).substr(begin + key.size());
    const auto numbers = split(trimmed(line.substr(0, line.find('\n'))), '\t');
    if (numbers.size() > 1 && numberIn(numbers.back()) == number) return pid;
  }
  return std::nullopt;
}

bool isRemoteLogin(const std::filesystem::path& processes, int pid) {
  constexpr std::array<std::string_view, 4> servers{"sshd", "sshd-session", "dropbear", "mosh-server"};
  for (int i = 0; i < mostAncestors && pid > 1; ++i) {
    const auto process = processAt(processes, pid);
    if (!process) return false;
    if (std::find(servers.begin(), servers.end(), process->name) != servers.end()) return true;
    pid = process->parent;
  }
  return false;
}

std::optional<Instant> bootTime(const std::filesystem::path& processes) {
  constexpr std::string_view key = "\nbtime ";
  const auto stat = readFile(processes / "stat", 16 << 20);
  const auto at = stat ? stat->find(key) : std::string::npos;
  if (at == std::string::npos) return std::nullopt;
  return Instant(std::chrono::seconds(numberIn(std::string_view(*stat).substr(at + key.size()))));
}

std::optional<Seconds> startAfterBoot(std::string_view start) {
  const std::int64_t ticks = numberIn(start);
  return ticks > 0 ? std::optional(Seconds(static_cast<double>(ticks) / ticksPerSecond)) : std::nullopt;
}

ToolProcess toolProcess(const std::filesystem::path& processes, int self, int parent) {
  ToolProcess tool;
  tool.space = processSpace(processes);
  if (const auto hook = processAt(processes, self)) tool.ticks = numberIn(hook->start);
  for (int i = 0; i < mostAncestors && parent > 1; ++i) {
    auto process = processAt(processes, parent);
    if (!process) break;
    if (!isShell(process->name)) {
      tool.pid = parent;
      tool.start = std::move(process->start);
      break;
    }
    parent = process->parent;
  }
  return tool;
}

bool hasChildSince(const std::filesystem::path& processes, int pid, std::int64_t ticks) {
  std::error_code error;
  std::filesystem::directory_iterator thread(processes / std::to_string(pid) / "task", error), end;
  for (; !error && thread != end; thread.increment(error)) {
    const auto children = readFile(thread->path() / "children", largestProcFile);
    if (!children) continue;
    for (const std::string_view child : split(trimmed(*children), ' ')) {
      const auto process = child.empty() ? std::nullopt : processAt(processes, static_cast<int>(numberIn(child)));
      if (process && numberIn(process->start) > ticks + ticksPerSecond) return true;
    }
  }
  return false;
}

}  // namespace ambrel
