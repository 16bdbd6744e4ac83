#include "platform/linux/ToolkitScreens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>

#include "core/base/Text.h"

namespace ambrel {
namespace {

double lowerEdgeOf(const QScreen* main) { return main->geometry().y() + main->geometry().height(); }

}  // namespace

bool isBuiltinConnector(const std::string& name) {
  const std::string lower = asciiLower(name);
  return lower.starts_with("edp") || lower.starts_with("lvds") || lower.starts_with("dsi");
}

ToolkitScreens::ToolkitScreens() {
  for (QScreen* screen : QGuiApplication::screens()) follow(screen);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
    follow(screen);
    plan();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ToolkitScreens::plan);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &ToolkitScreens::plan);
}

double ToolkitScreens::mainHeight() const {
  const QScreen* main = QGuiApplication::primaryScreen();
  return main ? lowerEdgeOf(main) : 0;
}

void ToolkitScreens::follow(QScreen* screen) {
  connect(screen, &QScreen::geometryChanged, this, &ToolkitScreens::plan);
  connect(screen, &QScreen::availableGeometryChanged, this, &ToolkitScreens::plan);
  connect(screen, &QScreen::physicalDotsPerInchChanged, this, &ToolkitScreens::plan);
}

// Changes come in bursts, and while they are being announced the toolkit's list is half old.
void ToolkitScreens::plan() {
  if (std::exchange(isPlanned_, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { refresh(); }, Qt::QueuedConnection);
}

void ToolkitScreens::refresh() {
  isPlanned_ = false;
  auto list = read();
  if (list == list_) return;
  list_ = std::move(list);
  if (handler_) handler_();
}

std::vector<ScreenInfo> ToolkitScreens::read() {
  QList<QScreen*> screens = QGuiApplication::screens();
  QScreen* const main = QGuiApplication::primaryScreen();
  if (!main || !look(screens)) return {};
  std::ranges::stable_partition(screens, [main](const QScreen* screen) { return screen == main; });
  const double lowerEdge = lowerEdgeOf(main);
  std::vector<ScreenInfo> list;
  for (const QScreen* screen : screens) {
    ScreenInfo info;
    info.name = screen->name().toStdString();
    info.isBuiltin = isBuiltinConnector(info.name);
    const Insets kept = reservedOn(*screen, info);
    const QRectF frame = screen->geometry();
    info.frame = flipped({frame.x(), frame.y(), frame.width(), frame.height()}, lowerEdge);
    info.visibleFrame = flipped({frame.x() + kept.left, frame.y() + kept.top, frame.width() - kept.left - kept.right,
                                 frame.height() - kept.top - kept.bottom},
                                lowerEdge);
    list.push_back(std::move(info));
  }
  return list;
}

}  // namespace ambrel
