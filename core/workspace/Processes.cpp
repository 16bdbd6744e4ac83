#include "core/workspace/Processes.h"

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <unordered_set>

#include "core/base/Text.h"

namespace ambrel {
namespace {

template <typename Number>
std::optional<Number> whole(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

std::optional<ProcessRecord> parseProcessStat(std::string_view text) {
  const auto open = text.find('(');
  const auto close = text.rfind(')');
  if (open == text.npos || close == text.npos || close < open) return std::nullopt;
  const auto pid = whole<int>(trimmed(text.substr(0, open)));
  const auto fields = split(trimmed(text.substr(close + 1)), ' ');
  if (!pid || fields.size() < 2 || fields[0].size() != 1) return std::nullopt;
  const auto parent = whole<int>(fields[1]);
  if (!parent) return std::nullopt;
  ProcessRecord record;
  record.pid = *pid;
  record.parent = *parent;
  record.state = fields[0].front();
  record.name = text.substr(open + 1, close - open - 1);
  return record;
}

std::vector<std::string> parseProcessArguments(std::string_view bytes) {
  // A program that writes its own title leaves a tail of NUL bytes.
  while (!bytes.empty() && bytes.back() == '\0') bytes.remove_suffix(1);
  std::vector<std::string> arguments;
  if (bytes.empty()) return arguments;
  for (std::string_view argument : split(bytes, '\0')) arguments.emplace_back(argument);
  return arguments;
}

std::optional<std::uint32_t> parseWindowID(std::string_view environment) {
  constexpr std::string_view key = "WINDOWID=";
  for (std::string_view entry : split(environment, '\0'))
    if (entry.starts_with(key)) return whole<std::uint32_t>(entry.substr(key.size()));
  return std::nullopt;
}

std::vector<const ProcessRecord*> processTree(const std::vector<ProcessRecord>& table, int root) {
  std::unordered_multimap<int, const ProcessRecord*> children;
  std::vector<const ProcessRecord*> tree;
  for (const ProcessRecord& process : table) {
    if (process.pid == root && tree.empty()) tree.push_back(&process);
    children.emplace(process.parent, &process);
  }
  std::unordered_set<int> seen{root};
  for (std::size_t i = 0; i < tree.size(); ++i) {
    const auto [first, last] = children.equal_range(tree[i]->pid);
    for (auto child = first; child != last; ++child)
      if (seen.insert(child->second->pid).second) tree.push_back(child->second);
  }
  return tree;
}

std::map<std::string, std::string, std::less<>> parseMultiplexerVariables(std::string_view environment) {
  std::map<std::string, std::string, std::less<>> variables;
  for (const std::string_view entry : split(environment, '\0')) {
    const auto equals = entry.find('=');
    if (equals == entry.npos) continue;
    const std::string_view name = entry.substr(0, equals);
    if (std::ranges::find(multiplexerVariables, name) != multiplexerVariables.end())
      variables.emplace(name, entry.substr(equals + 1));
  }
  return variables;
}

bool isMultiplexer(const ProcessRecord& process) {
  return process.name.starts_with("tmux: ") || process.name == "screen" || process.name == "zellij";
}

bool isMultiplexerServer(const ProcessRecord& process) {
  if (process.name == "tmux: server") return true;
  const auto& arguments = process.arguments;
  // A screen that has become the server names itself in capitals.
  if (process.name == "screen") return !arguments.empty() && arguments.front().ends_with("SCREEN");
  return process.name == "zellij" && std::ranges::find(arguments, "--server") != arguments.end();
}

}  // namespace ambrel
