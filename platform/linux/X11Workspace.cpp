#include "platform/linux/X11Workspace.h"

#include <algorithm>
#include <array>
#include <unistd.h>

#include "core/base/Text.h"
#include "platform/linux/ProcessReader.h"
#include "platform/linux/ToolRun.h"

namespace ambrel {
namespace {

std::string hostName() {
  std::array<char, 256> name{};
  return gethostname(name.data(), name.size() - 1) == 0 ? std::string(name.data()) : std::string();
}

std::vector<int> pidsOf(const std::vector<WindowRecord>& windows) {
  std::vector<int> pids;
  for (const WindowRecord& window : windows)
    if (window.pid && std::ranges::find(pids, *window.pid) == pids.end()) pids.push_back(*window.pid);
  return pids;
}

}  // namespace

X11Workspace::X11Workspace(X11Connection* connection, std::filesystem::path proc, ProgramFolders folders,
                           int ownProcess)
    : connection_(connection), proc_(std::move(proc)), programs_(std::move(folders)), ownProcess_(ownProcess) {
  if (!connection_) return;
  connection_->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
  lastActive_ = activeWindow();
  if (!isOwn(lastActive_)) lastForeign_ = lastActive_;
  const xcb_atom_t active = connection_->atom("_NET_ACTIVE_WINDOW");
  watch_ = connection_->watch([this, active](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window != connection_->root() || change.atom != active) return;
    const xcb_window_t now = activeWindow();
    if (now == lastActive_) return;
    lastActive_ = now;
    if (now != XCB_WINDOW_NONE && !isOwn(now)) lastForeign_ = now;
    if (handler_) handler_();
  });
}

std::optional<X11Workspace::Front> X11Workspace::front(Ours ours) const {
  if (!isConnected()) return std::nullopt;
  xcb_window_t active = activeWindow();
  if (ours == Ours::passedOver && isOwn(active)) active = lastForeign_;
  std::vector<WindowRecord> all = windows();
  const auto window = std::ranges::find(all, active, &WindowRecord::id);
  if (active == XCB_WINDOW_NONE || window == all.end()) return std::nullopt;
  return Front{*window, std::move(all)};
}

std::vector<std::string> X11Workspace::frontmost() const {
  std::vector<std::string> found;
  const auto inFront = front(Ours::passedOver);
  if (!inFront) return found;
  const auto& [window, all] = *inFront;
  if (std::string own = applicationOf(window, programs_.entries()); !own.empty()) found.push_back(std::move(own));
  if (!window.pid) return found;
  for (std::string& agent : agentsIn(window, all, readProcesses(proc_, {*window.pid})))
    if (std::ranges::find(found, agent) == found.end()) found.push_back(std::move(agent));
  return found;
}

std::vector<std::string> X11Workspace::agentsInFront() const {
  const auto inFront = front(Ours::counted);
  if (!inFront) return {};
  const auto& [window, all] = *inFront;
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

std::string X11Workspace::answer(int server, std::vector<std::string> command) const {
  using namespace std::chrono_literals;
  constexpr std::chrono::milliseconds patience = 200ms, pause = 60s;
  const auto now = std::chrono::steady_clock::now();
  std::erase_if(silentUntil_, [&](const auto& entry) { return entry.second <= now; });
  if (silentUntil_.contains(server)) return {};
  const auto program = programs_.command(command.front());
  if (!program) return {};
  command.erase(command.begin());
  auto printed = outputOf({.program = program->string(), .arguments = std::move(command), .limit = patience});
  if (!printed) silentUntil_[server] = now + pause;
  return std::move(printed).value_or(std::string());
}

bool X11Workspace::isRunning(std::string_view bundleID) const { return findWindow(bundleID).has_value(); }

bool X11Workspace::activate(std::string_view bundleID) {
  const auto window = findWindow(bundleID);
  if (!window) return false;
  bringForward(*window);
  return true;
}

bool X11Workspace::activateProcess(int pid) {
  if (!isConnected()) return false;
  const auto all = windows();
  const auto processes = readProcesses(proc_, pidsOf(all));
  const auto pane = paneOf(pid, processes);
  const std::string said = pane && !pane->command.empty() ? answer(pane->server, pane->command) : std::string();
  const auto window = windowOfProcess(pid, pane, said, all, processes);
  if (window) bringForward(*window);
  return window.has_value();
}

void X11Workspace::activateLast() {
  if (!isConnected() || lastForeign_ == XCB_WINDOW_NONE) return;
  const auto all = windows();
  if (std::ranges::find(all, lastForeign_, &WindowRecord::id) != all.end()) bringForward(lastForeign_);
}

bool X11Workspace::isOwn(xcb_window_t window) const { return connection_->processOf(window) == ownProcess_; }

void X11Workspace::bringForward(xcb_window_t window) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = connection_->atom("_NET_ACTIVE_WINDOW");
  message.data.data32[0] = 2;  // at the user's wish, through a panel
  message.data.data32[1] = connection_->serverTime();
  message.data.data32[2] = activeWindow();
  xcb_send_event(connection_->xcb(), 0, connection_->root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));
  connection_->flush();
}

std::string X11Workspace::nameOf(std::string_view bundleID) const {
  return applicationName(bundleID, programs_.entries());
}

std::string X11Workspace::iconOf(std::string_view bundleID) const {
  return applicationIcon(bundleID, programs_.entries());
}

bool X11Workspace::open(std::string_view bundleID) {
  const KnownApplication* known = findApplication(bundleID);
  if (!known) {
    const auto program = programs_.find(bundleID);
    return program && openEntry(*program);
  }
  for (const std::string_view entry : known->entries)
    if (const auto program = programs_.find(entry)) return openEntry(*program);
  for (const std::string_view name : known->commands)
    if (const auto command = programs_.command(name))
      return startDetached(programs_.inTerminal({command->string()}), {});
  return false;
}

bool X11Workspace::openEntry(const InstalledProgram& program) {
  auto command = commandOf(program.entry, program.file.string());
  if (!command) return false;
  const auto executable = programs_.command(command->front());
  if (!executable) return false;
  command->front() = executable->string();
  if (program.entry.runsInTerminal) command = programs_.inTerminal(*command);
  return startDetached(*command, program.entry.workingFolder);
}

xcb_window_t X11Workspace::activeWindow() const {
  const auto active = connection_->numbers(connection_->root(), connection_->atom("_NET_ACTIVE_WINDOW"));
  return active.empty() ? xcb_window_t{XCB_WINDOW_NONE} : active.front();
}

std::vector<WindowRecord> X11Workspace::windows() const {
  auto ids = connection_->numbers(connection_->root(), connection_->atom("_NET_CLIENT_LIST_STACKING"));
  if (ids.empty()) ids = connection_->numbers(connection_->root(), connection_->atom("_NET_CLIENT_LIST"));
  const auto pids = connection_->properties(ids, connection_->atom("_NET_WM_PID"));
  const auto classes = connection_->properties(ids, XCB_ATOM_WM_CLASS);
  const auto machines = connection_->properties(ids, XCB_ATOM_WM_CLIENT_MACHINE);
  const std::string here = hostName();
  std::vector<WindowRecord> list;
  for (std::size_t i = 0; i < ids.size(); ++i) {
    WindowRecord window;
    window.id = ids[i];
    // A process number of another machine means nothing here.
    const bool isHere = machines[i].empty() || machines[i] == here;
    if (const auto pid = numbersFromBytes(pids[i]); isHere && !pid.empty() && pid.front() > 1)
      window.pid = static_cast<int>(pid.front());
    const auto names = split(classes[i], '\0');
    window.instance = names[0];
    if (names.size() > 1) window.className = names[1];
    list.push_back(std::move(window));
  }
  return list;
}

std::optional<std::uint32_t> X11Workspace::findWindow(std::string_view bundleID) const {
  if (!isConnected()) return std::nullopt;
  const auto all = windows();
  return windowOf(bundleID, all, readProcesses(proc_, pidsOf(all)), programs_.entries());
}

}  // namespace ambrel
