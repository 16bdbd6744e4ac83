#include "platform/linux/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <xcb/randr.h>

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

}  // namespace

X11Screens::X11Screens(X11Connection* connection) : connection_(connection) {
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
  begin();
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

bool X11Screens::look(const QList<QScreen*>& screens) {
  if (!connection_ || connection_->isBroken()) return true;
  if (!hasMonitors()) return false;
  std::vector<X11Panels::Screen> frames;
  for (const QScreen* screen : screens) frames.push_back({screen->name().toStdString(), pixelsOf(*screen)});
  panels_->read(frames);
  workAreas_ = workAreas();
  filled_ = fullScreen_->frame();
  return true;
}

Insets X11Screens::reservedOn(const QScreen& screen, ScreenInfo& info) {
  const auto [desktopWidth, desktopHeight] = desktopSize(connection_);
  if (desktopWidth <= 0) {
    const QRect frame = screen.geometry(), free = screen.availableGeometry();
    return {double(free.left() - frame.left()), double(free.top() - frame.top()), double(frame.right() - free.right()),
            double(frame.bottom() - free.bottom())};
  }
  // Whole ones, up to which our windows are placed: half a point more would cover a pixel of the panel.
  const auto points = [scale = screen.devicePixelRatio()](double pixels) { return std::ceil(pixels / scale - 0.001); };
  const Rect pixels = pixelsOf(screen);
  info.isFilled = filled_ && pixels.contains({filled_->midX(), filled_->midY()});
  Insets insets = reservedEdges(pixels, desktopWidth, desktopHeight, panels_->struts());
  for (const Rect& area : workAreas_) insets = combined(insets, outsideWorkArea(pixels, area));
  if (const auto dock = panels_->dockAt(info.name)) {
    info.hidingDockHeight = points(dock->height);
    if (dock->isOut) insets.bottom = std::max(insets.bottom, dock->height);
  }
  return {points(insets.left), points(insets.top), points(insets.right), points(insets.bottom)};
}

}  // namespace ambrel
