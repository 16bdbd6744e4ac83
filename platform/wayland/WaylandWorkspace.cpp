#include "platform/wayland/WaylandWorkspace.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <algorithm>

#include "core/base/Text.h"
#include "platform/wayland/WindowList.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds openPatience{1000};

class WaylandWorkspace : public Workspace {
 public:
  WaylandWorkspace(std::unique_ptr<WaylandConnection> connection, std::unique_ptr<WindowList> windows,
                   std::unique_ptr<Workspace> x11, ProgramFolders folders)
      : connection_(std::move(connection)),
        windows_(std::move(windows)),
        x11_(std::move(x11)),
        programs_("/proc", std::move(folders)),
        arrival_(connection_->descriptor(), QSocketNotifier::Read) {
    windows_->activeChanged = [this] {
      if (handler_) handler_();
    };
    QObject::connect(&arrival_, &QSocketNotifier::activated, &arrival_, [this] { turn(); });
  }

  std::vector<std::string> frontmost() const override {
    const auto window = inFront(Ours::passedOver);
    if (!window) return {};
    auto known = programs_.programsOf(*window, windows_->windows());
    // Of a window of its own the X server knows more.
    auto guest = x11_->frontmost();
    return !known.empty() && !guest.empty() && guest.front() == known.front() ? guest : known;
  }
  std::vector<std::string> agentsInFront() const override {
    const auto window = inFront(Ours::counted);
    if (!window) return {};
    const auto guest = x11_->frontmost();
    if (!guest.empty() && guest.front() == applicationOf(*window, programs_.installed.entries()))
      return x11_->agentsInFront();
    return programs_.agentsSeenIn(*window, windows_->windows());
  }
  void setFrontmostHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

  bool isRunning(std::string_view bundleID) const override {
    return x11_->isRunning(bundleID) || programs_.windowOf(bundleID, windows_->windows());
  }
  bool activate(std::string_view bundleID) override {
    return x11_->activate(bundleID) || bringForward(programs_.windowOf(bundleID, windows_->windows()));
  }
  bool activateProcess(int pid) override {
    return x11_->activateProcess(pid) || bringForward(programs_.windowOfProcess(pid, windows_->windows()));
  }
  void activateLast() override {
    if (const auto window = lastForeign()) bringForward(window->id);
  }

  std::string nameOf(std::string_view bundleID) const override { return x11_->nameOf(bundleID); }
  std::string iconOf(std::string_view bundleID) const override { return x11_->iconOf(bundleID); }
  bool open(std::string_view bundleID) override { return x11_->open(bundleID); }

 private:
  enum class Ours { counted, passedOver };

  static bool isOwn(const WindowRecord& window) { return asciiLower(window.className) == "tilebay"; }

  std::optional<WindowRecord> lastForeign() const {
    const auto all = windows_->windows();
    const auto found = std::find_if_not(all.rbegin(), all.rend(), isOwn);
    return found == all.rend() ? std::nullopt : std::optional(*found);
  }

  std::optional<WindowRecord> inFront(Ours ours) const {
    const auto all = windows_->windows();
    const auto active = std::ranges::find(all, windows_->active(), &WindowRecord::id);
    // Some windows of ours are none that a compositor lists.
    const bool isOurs = active == all.end() ? QGuiApplication::focusWindow() != nullptr : isOwn(*active);
    if (isOurs) return ours == Ours::passedOver ? lastForeign() : std::nullopt;
    return active == all.end() ? std::nullopt : std::optional(*active);
  }

  bool bringForward(std::optional<std::uint32_t> window) {
    if (!window) return false;
    windows_->activate(*window);
    turn();
    return true;
  }

  void turn() {
    std::vector<pollfd> none;
    connection_->turn(none, std::chrono::steady_clock::now());
    if (connection_->isBroken()) arrival_.setEnabled(false);
  }

  std::unique_ptr<WaylandConnection> connection_;
  std::unique_ptr<WindowList> windows_;
  std::unique_ptr<Workspace> x11_;
  mutable ProgramsInWindows programs_;
  QSocketNotifier arrival_;
  std::function<void()> handler_;
};

}  // namespace

std::unique_ptr<Workspace> withWaylandWindows(const std::string& display, std::unique_ptr<Workspace> x11,
                                              ProgramFolders folders) {
  const SteadyTime until = std::chrono::steady_clock::now() + openPatience;
  auto connection = WaylandConnection::open(display, until);
  if (!connection) return x11;
  auto windows = WindowList::open(*connection, until);
  if (!windows) return x11;
  return std::make_unique<WaylandWorkspace>(std::move(connection), std::move(windows), std::move(x11),
                                            std::move(folders));
}

}  // namespace ambrel
