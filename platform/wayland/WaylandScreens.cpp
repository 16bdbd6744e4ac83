#include "platform/wayland/WaylandScreens.h"

#include <QGuiApplication>
#include <QList>
#include <QScreen>
#include <algorithm>

namespace ambrel {

WaylandScreens::WaylandScreens() : areas_([this] { plan(); }) { begin(); }

bool WaylandScreens::look(const QList<QScreen*>& screens) {
  areas_.follow(screens);
  // When the last screen goes, the toolkit keeps a stand-in for it.
  return std::ranges::any_of(
      screens, [](const QScreen* one) { return one->nativeInterface<QNativeInterface::QWaylandScreen>() != nullptr; });
}

QPoint WaylandScreens::kept(const QScreen& screen) const {
  const QSize whole = screen.geometry().size(), left = areas_.sizeOf(screen).value_or(whole);
  return {std::max(0, whole.width() - left.width()), std::max(0, whole.height() - left.height())};
}

QPoint WaylandScreens::freeOrigin(const QScreen& screen) const { return screen.geometry().topLeft() + kept(screen); }

Insets WaylandScreens::reservedOn(const QScreen& screen, ScreenInfo&) {
  const QPoint kept = this->kept(screen);
  return {.left = double(kept.x()), .top = double(kept.y()), .right = 0, .bottom = 0};
}

}  // namespace ambrel
