#include "platform/wayland/WaylandWindows.h"

#include <QGuiApplication>
#include <QWindow>

#include "platform/wayland/LayerWindowStyle.h"
#include "platform/wayland/WaylandConnection.h"
#include "platform/wayland/WaylandPointer.h"
#include "platform/wayland/WaylandScreens.h"

namespace ambrel {
namespace {

constexpr std::chrono::milliseconds openPatience{1000};

// The toolkit looks a tenth of a second after each frame whether the compositor has shown it, so as not to wait for a
// hidden window. Only drawing by the graphics stack waits. It reads the choice with its first window, and programs that
// we start are not to inherit it.
void leaveFramesAlone() {
  constexpr const char* choice = "QT_WAYLAND_FRAME_CALLBACK_TIMEOUT";
  if (qEnvironmentVariableIsSet(choice)) return;
  qputenv(choice, "0");
  QWindow first;
  first.create();
  qunsetenv(choice);
}

}  // namespace

bool canHaveWaylandWindows(const std::string& display) {
  if (display.empty()) return false;
  const auto connection = WaylandConnection::open(display, std::chrono::steady_clock::now() + openPatience);
  return connection && connection->offers("zwlr_layer_shell_v1");
}

std::optional<WaylandWindows> openWaylandWindows() {
  if (!qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>()) return std::nullopt;
  leaveFramesAlone();
  auto screens = std::make_unique<WaylandScreens>();
  const auto originOf = [screens = screens.get()](const QScreen& screen) { return screens->freeOrigin(screen); };
  auto pointer = std::make_unique<WaylandPointer>(*screens, originOf);
  auto style = std::make_unique<LayerWindowStyle>(originOf);
  return WaylandWindows{std::move(screens), std::move(pointer), std::move(style)};
}

}  // namespace ambrel
