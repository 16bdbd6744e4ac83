#include "platform/wayland/WaylandWindows.h"

#include <QGuiApplication>

#include "platform/wayland/LayerWindowStyle.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandPointer.h"
#include "platform/wayland/WaylandScreens.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds openPatience{1000};

}  // namespace

bool canHaveWaylandWindows(const std::string& display) {
  if (display.empty()) return false;
  const auto connection = WaylandConnection::open(display, std::chrono::steady_clock::now() + openPatience);
  return connection && connection->offers("zwlr_layer_shell_v1");
}

std::optional<WaylandWindows> openWaylandWindows() {
  if (!qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>()) return std::nullopt;
  auto screens = std::make_unique<WaylandScreens>();
  const auto originOf = [screens = screens.get()](const QScreen& screen) { return screens->freeOrigin(screen); };
  auto pointer = std::make_unique<WaylandPointer>(*screens, originOf);
  auto style = std::make_unique<LayerWindowStyle>(originOf);
  return WaylandWindows{std::move(screens), std::move(pointer), std::move(style)};
}

}  // namespace ambrel
