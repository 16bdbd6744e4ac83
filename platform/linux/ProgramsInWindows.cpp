#include "platform/linux/ProgramsInWindows.h"

#include <algorithm>
#include <utility>

#include "platform/linux/ProcessReader.h"
#include "platform/linux/ToolRun.h"

namespace ambrel {
namespace {

std::vector<int> pidsOf(const std::vector<WindowRecord>& windows) {
  std::vector<int> pids;
  for (const WindowRecord& window : windows)
    if (window.pid && std::ranges::find(pids, *window.pid) == pids.end()) pids.push_back(*window.pid);
  return pids;
}

}  // namespace

std::vector<std::string> ProgramsInWindows::programsOf(const WindowRecord& window,
                                                       const std::vector<WindowRecord>& all) {
  std::vector<std::string> found;
  if (std::string own = applicationOf(window, installed.entries()); !own.empty()) found.push_back(std::move(own));
  if (!window.pid) return found;
  for (std::string& agent : agentsIn(window, all, readProcesses(proc_, {*window.pid})))
    if (std::ranges::find(found, agent) == found.end()) found.push_back(std::move(agent));
  return found;
}

std::vector<std::string> ProgramsInWindows::agentsSeenIn(const WindowRecord& window,
                                                         const std::vector<WindowRecord>& all) {
  std::vector<std::string> found;
  if (window.pid) {
    const auto processes = readProcesses(proc_, {*window.pid});
    auto shown = processesIn(window, all, processes);
    for (const PaneQuestion& question : paneQuestions(window, all, processes)) {
      const auto inPanes = shownInPanes(question, answer(question.server, question.command), processes);
      shown.insert(shown.end(), inPanes.begin(), inPanes.end());
    }
    found = agentsAmong(shown);
  }
  if (std::string own = applicationOf(window, {}); findApplication(own)) found.push_back(std::move(own));
  return found;
}

std::optional<std::uint32_t> ProgramsInWindows::windowOf(std::string_view bundleID,
                                                         const std::vector<WindowRecord>& all) {
  return ambrel::windowOf(bundleID, all, readProcesses(proc_, pidsOf(all)), installed.entries());
}

std::optional<std::uint32_t> ProgramsInWindows::windowOfProcess(int pid, const std::vector<WindowRecord>& all) {
  const auto processes = readProcesses(proc_, pidsOf(all));
  const auto pane = paneOf(pid, processes);
  const std::string said = pane && !pane->command.empty() ? answer(pane->server, pane->command) : std::string();
  return ambrel::windowOfProcess(pid, pane, said, all, processes);
}

std::string ProgramsInWindows::answer(int server, std::vector<std::string> command) {
  using namespace std::chrono_literals;
  constexpr std::chrono::milliseconds patience = 200ms, pause = 60s;
  const auto now = std::chrono::steady_clock::now();
  std::erase_if(silentUntil_, [&](const auto& entry) { return entry.second <= now; });
  if (silentUntil_.contains(server)) return {};
  const auto program = installed.command(command.front());
  if (!program) return {};
  command.erase(command.begin());
  auto printed = outputOf({.program = program->string(), .arguments = std::move(command), .limit = patience});
  if (!printed) silentUntil_[server] = now + pause;
  return std::move(printed).value_or(std::string());
}

}  // namespace ambrel
