#include "platform/wayland/WaylandWindows.h"

#include <QGuiApplication>
#include <thread>

#include "platform/wayland/LayerWindowStyle.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandPointer.h"
#include "platform/wayland/WaylandScreens.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds openPatience{1000};
// KWin's socket stays while KWin is started again, which takes a second or two.
constexpr std::chrono::seconds restartPatience{10};

bool hasLayers(const WaylandConnection& connection) { return connection.offers("zwlr_layer_shell_v1"); }

}  // namespace

bool canHaveWaylandWindows(const std::string& display) {
  if (display.empty()) return false;
  const auto connection = WaylandConnection::open(display, std::chrono::steady_clock::now() + openPatience);
  return connection && hasLayers(*connection);
}

std::optional<WaylandWindows> openWaylandWindows() {
  if (!qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>()) return std::nullopt;
  auto screens = std::make_unique<WaylandScreens>();
  const auto originOf = [screens = screens.get()](const QScreen& screen) { return screens->freeOrigin(screen); };
  auto pointer = std::make_unique<WaylandPointer>(*screens, originOf);
  auto style = std::make_unique<LayerWindowStyle>(originOf);
  return WaylandWindows{std::move(screens), std::move(pointer), std::move(style)};
}

void whenCompositorEnds(std::function<void()> act) {
  const auto* const toolkit = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
  if (!toolkit) return;
  // The toolkit begins to reconnect by putting a screen of its own in the place of those that are lost.
  const auto look = [display = toolkit->display(), act = std::move(act)] {
    if (wl_display_get_error(display) != 0) act();
  };
  QObject::connect(qGuiApp, &QGuiApplication::screenAdded, qGuiApp, look);
}

bool waitForWaylandWindows(const std::string& display) {
  const SteadyTime until = std::chrono::steady_clock::now() + restartPatience;
  while (const auto connection = WaylandConnection::open(display, until)) {
    if (hasLayers(*connection)) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  }
  return false;
}

}  // namespace ambrel
