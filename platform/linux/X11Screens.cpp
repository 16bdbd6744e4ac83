#include "platform/linux/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <xcb/randr.h>

#include "core/base/Text.h"
#include "core/workspace/Struts.h"

namespace ambrel {
namespace {

// The toolkit keeps the upper left corner of a screen in pixels and scales its size.
Rect pixelsOf(const QScreen& screen) {
  const QRect frame = screen.geometry();
  const double scale = screen.devicePixelRatio();
  return {double(frame.x()), double(frame.y()), frame.width() * scale, frame.height() * scale};
}

// In pixels; nothing without a server.
std::pair<double, double> desktopSize(X11Connection* connection) {
  if (!connection || connection->isBroken()) return {0, 0};
  const XcbPtr<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(connection->xcb(), xcb_get_geometry(connection->xcb(), connection->root()), nullptr));
  connection->repliesWereRead();
  if (!geometry) return {0, 0};
  return {geometry->width, geometry->height};
}

double lowerEdgeOf(const QScreen* main) { return main->geometry().y() + main->geometry().height(); }

Rect rectOf(const QRect& rect) {
  return {double(rect.x()), double(rect.y()), double(rect.width()), double(rect.height())};
}

}  // namespace

double X11Screens::mainHeight() const {
  const QScreen* main = QGuiApplication::primaryScreen();
  return main ? lowerEdgeOf(main) : 0;
}

bool isBuiltinConnector(const std::string& name) {
  const std::string lower = asciiLower(name);
  return lower.starts_with("edp") || lower.starts_with("lvds") || lower.starts_with("dsi");
}

X11Screens::X11Screens(X11Connection* connection) : connection_(connection) {
  for (QScreen* screen : QGuiApplication::screens()) follow(screen);
  connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
    follow(screen);
    plan();
  });
  connect(qGuiApp, &QGuiApplication::screenRemoved, this, &X11Screens::plan);
  connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &X11Screens::plan);
  if (connection_) {
    const auto* extension = xcb_get_extension_data(connection_->xcb(), &xcb_randr_id);
    if (extension && extension->present) {
      const XcbPtr<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
          connection_->xcb(), xcb_randr_query_version(connection_->xcb(), 1, 5), nullptr));
      asksForMonitors_ = version && (version->major_version > 1 || version->minor_version >= 5);
    }
    panels_ = std::make_unique<X11Panels>(*connection_, [this] { plan(); });
    fullScreen_ = std::make_unique<X11FullScreen>(*connection_, [this] { plan(); });
  }
  list_ = read();
}

void X11Screens::follow(QScreen* screen) {
  connect(screen, &QScreen::geometryChanged, this, &X11Screens::plan);
  connect(screen, &QScreen::availableGeometryChanged, this, &X11Screens::plan);
  connect(screen, &QScreen::physicalDotsPerInchChanged, this, &X11Screens::plan);
}

// Changes come in bursts, and while they are being announced the toolkit's list is half old.
void X11Screens::plan() {
  if (std::exchange(isPlanned_, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { refresh(); }, Qt::QueuedConnection);
}

void X11Screens::refresh() {
  isPlanned_ = false;
  auto list = read();
  if (list == list_) return;
  list_ = std::move(list);
  if (handler_) handler_();
}

// When the last screen goes, the toolkit keeps a stand-in for it.
bool X11Screens::hasMonitors() const {
  if (!asksForMonitors_) return true;
  const XcbPtr<xcb_randr_get_monitors_reply_t> monitors(xcb_randr_get_monitors_reply(
      connection_->xcb(), xcb_randr_get_monitors(connection_->xcb(), connection_->root(), 1), nullptr));
  connection_->repliesWereRead();
  return !monitors || monitors->nMonitors > 0;
}

// Those of the present workspace, in pixels, y downwards. The standard's is one rectangle for all screens together,
// which says nothing of any one of several.
std::vector<Rect> X11Screens::workAreas() const {
  const auto desktop = connection_->numbers(connection_->root(), connection_->atom("_NET_CURRENT_DESKTOP"));
  const std::size_t current = desktop.empty() ? 0 : desktop.front();
  const std::string each = "_GTK_WORKAREAS_D" + std::to_string(current);
  auto numbers = connection_->numbers(connection_->root(), connection_->atom(each.c_str()));
  if (numbers.empty() && QGuiApplication::screens().size() == 1) {
    numbers = connection_->numbers(connection_->root(), connection_->atom("_NET_WORKAREA"));
    const std::size_t first = numbers.size() >= 4 * (current + 1) ? 4 * current : 0;
    numbers.erase(numbers.begin(), numbers.begin() + static_cast<std::ptrdiff_t>(first));
    if (numbers.size() > 4) numbers.resize(4);
  }
  std::vector<Rect> areas;
  for (std::size_t i = 0; i + 4 <= numbers.size(); i += 4)
    areas.push_back({double(numbers[i]), double(numbers[i + 1]), double(numbers[i + 2]), double(numbers[i + 3])});
  return areas;
}

std::vector<ScreenInfo> X11Screens::read() {
  std::vector<ScreenInfo> list;
  QList<QScreen*> screens = QGuiApplication::screens();
  QScreen* main = QGuiApplication::primaryScreen();
  const bool hasServer = connection_ && !connection_->isBroken();
  if (!main || (hasServer && !hasMonitors())) return list;
  std::ranges::stable_partition(screens, [main](const QScreen* screen) { return screen == main; });

  std::vector<Strut> struts;
  std::vector<Rect> areas;
  std::optional<Rect> filled;
  if (hasServer) {
    std::vector<X11Panels::Screen> frames;
    for (const QScreen* screen : screens) frames.push_back({screen->name().toStdString(), pixelsOf(*screen)});
    panels_->read(frames);
    struts = panels_->struts();
    areas = workAreas();
    filled = fullScreen_->frame();
  }
  const auto [desktopWidth, desktopHeight] = desktopSize(connection_);
  const double lowerEdge = lowerEdgeOf(main);
  for (const QScreen* screen : screens) {
    const QRect frame = screen->geometry();
    const double scale = screen->devicePixelRatio();
    ScreenInfo info;
    info.name = screen->name().toStdString();
    Insets insets;
    if (desktopWidth > 0) {
      const Rect pixels = pixelsOf(*screen);
      insets = reservedEdges(pixels, desktopWidth, desktopHeight, struts);
      for (const Rect& area : areas) insets = combined(insets, outsideWorkArea(pixels, area));
      if (const auto dock = panels_->dockAt(info.name)) {
        info.hidingDockHeight = dock->height / scale;
        if (dock->isOut) insets.bottom = std::max(insets.bottom, dock->height);
      }
    } else {
      const QRect free = screen->availableGeometry();
      insets = {(free.left() - frame.left()) * scale, (free.top() - frame.top()) * scale,
                (frame.right() - free.right()) * scale, (frame.bottom() - free.bottom()) * scale};
    }
    const Rect logical = rectOf(frame);
    const Rect visible{logical.x + insets.left / scale, logical.y + insets.top / scale,
                       logical.width - (insets.left + insets.right) / scale,
                       logical.height - (insets.top + insets.bottom) / scale};
    info.frame = flipped(logical, lowerEdge);
    info.visibleFrame = flipped(visible, lowerEdge);
    info.isFilled = filled && pixelsOf(*screen).contains({filled->midX(), filled->midY()});
    info.isBuiltin = isBuiltinConnector(info.name);
    list.push_back(std::move(info));
  }
  return list;
}

}  // namespace ambrel
