#include "platform/linux/ProcessReader.h"

#include <algorithm>
#include <unordered_set>

#include "core/base/Files.h"

namespace ambrel {
namespace {

// These files have no size of their own, so they are read up to a limit. A command line or an environment of a
// megabyte says enough in its beginning.
std::string beginning(const std::filesystem::path& path, std::size_t limit) {
  const FileDescriptor file = openForReading(path);
  return file ? readAt(file, 0, limit).value_or(std::string()) : std::string();
}

bool isNumber(const std::string& name) {
  return !name.empty() && std::ranges::all_of(name, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

std::vector<ProcessRecord> readProcesses(const std::filesystem::path& proc, const std::vector<int>& roots) {
  std::vector<ProcessRecord> table;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(proc, error), end; !error && entry != end; entry.increment(error)) {
    if (!isNumber(entry->path().filename().string())) continue;
    if (auto process = parseProcessStat(beginning(entry->path() / "stat", 4096))) table.push_back(std::move(*process));
  }

  std::unordered_set<int> wanted;
  const auto want = [&](int root) {
    for (const ProcessRecord* process : processTree(table, root)) wanted.insert(process->pid);
  };
  for (const int root : roots)
    if (!wanted.contains(root)) want(root);
  for (const ProcessRecord& process : table)
    if (isMultiplexer(process)) want(process.pid);

  for (ProcessRecord& process : table) {
    if (!wanted.contains(process.pid)) continue;
    const auto folder = proc / std::to_string(process.pid);
    process.arguments = parseProcessArguments(beginning(folder / "cmdline", 64 * 1024));
    const std::string environment = beginning(folder / "environ", 256 * 1024);
    process.windowID = parseWindowID(environment);
    process.variables = parseMultiplexerVariables(environment);
  }
  return table;
}

}  // namespace ambrel
