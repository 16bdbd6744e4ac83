#include "core/agents/attention/Processes.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <vector>

#include "core/base/Files.h"
#include "core/base/Text.h"

namespace ambrel {
namespace {

constexpr std::uint64_t largestFile = 64 << 10;
constexpr std::int64_t ticksPerSecond = 100;  // as the kernel reports them to programs, everywhere
constexpr int mostAncestors = 8;

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
  const auto stat = readFile(processes / std::to_string(pid) / "stat", largestFile);
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

ToolProcess toolProcess(const std::filesystem::path& processes, int self, int parent) {
  ToolProcess tool;
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
    const auto children = readFile(thread->path() / "children", largestFile);
    if (!children) continue;
    for (const std::string_view child : split(trimmed(*children), ' ')) {
      const auto process = child.empty() ? std::nullopt : processAt(processes, static_cast<int>(numberIn(child)));
      if (process && numberIn(process->start) > ticks + ticksPerSecond) return true;
    }
  }
  return false;
}

}  // namespace ambrel
