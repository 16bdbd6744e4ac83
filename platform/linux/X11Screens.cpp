#include "platform/linux/X11Screens.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <unistd.h>

#include "core/base/Text.h"
#include "core/workspace/Struts.h"

namespace ambrel {
namespace {

// The struts of all managed windows but our own.
std::vector<Strut> othersStruts(X11Connection& connection) {
  const auto clients = connection.numbers(connection.root(), connection.atom("_NET_CLIENT_LIST"));
  const auto partial = connection.properties(clients, connection.atom("_NET_WM_STRUT_PARTIAL"));
  const auto simple = connection.properties(clients, connection.atom("_NET_WM_STRUT"));
  std::vector<Strut> struts;
  for (std::size_t i = 0; i < clients.size(); ++i) {
    const auto strut = parseStrut(numbersFromBytes(partial[i].empty() ? simple[i] : partial[i]));
    if (!strut || *strut == Strut{}) continue;
    const auto pid = connection.numbers(clients[i], connection.atom("_NET_WM_PID"));
    if (pid.empty() || pid.front() != static_cast<std::uint32_t>(getpid())) struts.push_back(*strut);
  }
  return struts;
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
    connection_->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
    const xcb_atom_t clients = connection_->atom("_NET_CLIENT_LIST");
    const xcb_atom_t workArea = connection_->atom("_NET_WORKAREA");
    watch_ = connection_->watch([this, clients, workArea](const xcb_generic_event_t& event) {
      if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return;
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      if (change.window == connection_->root() && (change.atom == clients || change.atom == workArea)) plan();
    });
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

std::vector<ScreenInfo> X11Screens::read() const {
  std::vector<ScreenInfo> list;
  QList<QScreen*> screens = QGuiApplication::screens();
  QScreen* main = QGuiApplication::primaryScreen();
  if (!main) return list;
  std::ranges::stable_partition(screens, [main](const QScreen* screen) { return screen == main; });

  std::vector<Strut> struts;
  if (connection_ && !connection_->isBroken()) struts = othersStruts(*connection_);
  const auto [desktopWidth, desktopHeight] = desktopSize(connection_);
  const double lowerEdge = lowerEdgeOf(main);
  for (const QScreen* screen : screens) {
    const QRect frame = screen->geometry();
    const double scale = screen->devicePixelRatio();
    Insets insets;
    if (desktopWidth > 0) {
      // The toolkit keeps the upper left corner of a screen in pixels and scales its size.
      const Rect pixels{double(frame.x()), double(frame.y()), frame.width() * scale, frame.height() * scale};
      insets = reservedEdges(pixels, desktopWidth, desktopHeight, struts);
    } else {
      const QRect free = screen->availableGeometry();
      insets = {(free.left() - frame.left()) * scale, (free.top() - frame.top()) * scale,
                (frame.right() - free.right()) * scale, (frame.bottom() - free.bottom()) * scale};
    }
    const Rect logical = rectOf(frame);
    const Rect visible{logical.x + insets.left / scale, logical.y + insets.top / scale,
                       logical.width - (insets.left + insets.right) / scale,
                       logical.height - (insets.top + insets.bottom) / scale};
    ScreenInfo info;
    info.name = screen->name().toStdString();
    info.frame = flipped(logical, lowerEdge);
    info.visibleFrame = flipped(visible, lowerEdge);
    info.isBuiltin = isBuiltinConnector(info.name);
    list.push_back(std::move(info));
  }
  return list;
}

}  // namespace ambrel
