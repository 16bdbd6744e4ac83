#include "platform/wayland/WaylandWorkspace.h"

#include <QGuiApplication>
#include <QSocketNotifier>
#include <algorithm>

#include "core/base/Text.h"
#include "platform/wayland/ToplevelList.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds openPatience{1000};

class WaylandWorkspace : public Workspace {
 public:
  WaylandWorkspace(std::unique_ptr<WaylandConnection> connection, std::unique_ptr<ToplevelList> toplevels,
                   std::unique_ptr<Workspace> x11, ProgramFolders folders)
      : connection_(std::move(connection)),
        toplevels_(std::move(toplevels)),
        x11_(std::move(x11)),
        programs_(std::move(folders)),
        arrival_(connection_->descriptor(), QSocketNotifier::Read) {
    toplevels_->activeChanged = [this] {
      if (handler_) handler_();
    };
    QObject::connect(&arrival_, &QSocketNotifier::activated, &arrival_, [this] { turn(); });
  }

  std::vector<std::string> frontmost() const override {
    std::string program = inFront(Ours::passedOver);
    // Of a window of its own the X server knows more.
    auto known = x11_->frontmost();
    if (!known.empty() && known.front() == program) return known;
    return program.empty() ? std::vector<std::string>() : std::vector{std::move(program)};
  }
  std::vector<std::string> agentsInFront() const override {
    const std::string program = inFront(Ours::counted);
    if (const auto known = x11_->frontmost(); !known.empty() && known.front() == program) return x11_->agentsInFront();
    return findApplication(program) ? std::vector{program} : std::vector<std::string>();
  }
  void setFrontmostHandler(std::function<void()> handler) override { handler_ = std::move(handler); }

  bool isRunning(std::string_view bundleID) const override {
    return x11_->isRunning(bundleID) || windowOf(bundleID).has_value();
  }
  bool activate(std::string_view bundleID) override {
    if (x11_->activate(bundleID)) return true;
    const auto window = windowOf(bundleID);
    if (window) bringForward(*window);
    return window.has_value();
  }
  bool activateProcess(int pid) override { return x11_->activateProcess(pid); }
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
    const auto all = toplevels_->windows();
    const auto found = std::find_if_not(all.rbegin(), all.rend(), isOwn);
    return found == all.rend() ? std::nullopt : std::optional(*found);
  }

  // The program whose window is in front; empty when there is none.
  std::string inFront(Ours ours) const {
    const auto all = toplevels_->windows();
    const auto active = std::ranges::find(all, toplevels_->active(), &WindowRecord::id);
    // Some windows of ours are none that a compositor lists.
    const bool isOurs = active == all.end() ? QGuiApplication::focusWindow() != nullptr : isOwn(*active);
    std::optional<WindowRecord> window;
    if (isOurs && ours == Ours::passedOver)
      window = lastForeign();
    else if (!isOurs && active != all.end())
      window = *active;
    return window ? applicationOf(*window, programs_.entries()) : std::string();
  }

  std::optional<std::uint32_t> windowOf(std::string_view bundleID) const {
    return ambrel::windowOf(bundleID, toplevels_->windows(), {}, programs_.entries());
  }

  void bringForward(std::uint32_t window) {
    toplevels_->activate(window);
    turn();
  }

  void turn() {
    std::vector<pollfd> none;
    connection_->turn(none, std::chrono::steady_clock::now());
    if (connection_->isBroken()) arrival_.setEnabled(false);
  }

  std::unique_ptr<WaylandConnection> connection_;
  std::unique_ptr<ToplevelList> toplevels_;
  std::unique_ptr<Workspace> x11_;
  mutable InstalledPrograms programs_;
  QSocketNotifier arrival_;
  std::function<void()> handler_;
};

}  // namespace

std::unique_ptr<Workspace> withWaylandWindows(const std::string& display, std::unique_ptr<Workspace> x11,
                                              ProgramFolders folders) {
  const SteadyTime until = std::chrono::steady_clock::now() + openPatience;
  auto connection = WaylandConnection::open(display, until);
  if (!connection) return x11;
  auto toplevels = ToplevelList::open(*connection, until);
  if (!toplevels) return x11;
  return std::make_unique<WaylandWorkspace>(std::move(connection), std::move(toplevels), std::move(x11),
                                            std::move(folders));
}

}  // namespace ambrel
