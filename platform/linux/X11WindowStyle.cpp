#include "platform/linux/X11WindowStyle.h"

#include <QGuiApplication>
#include <QRegion>
#include <QVariant>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <functional>
#include <xcb/xfixes.h>

#include "platform/linux/ToolkitX11.h"
#include "platform/linux/X11Window.h"

namespace ambrel {
namespace {

// What the toolkit's X11 plug-in reads when it creates the window (_NET_WM_WINDOW_TYPE).
constexpr const char* windowTypeProperty = "_q_xcb_wm_window_type";
constexpr int normalType = 0x1;
constexpr int dockType = 0x4;
constexpr int utilityType = 0x20;
constexpr int notificationType = 0x800;

// xfwm4 draws a shadow about a dock that has no shape, and does not look whether its margin is clear. This one cuts
// nothing off, on any screen.
constexpr QRect shapeOfAll(0, 0, 10000, 10000);

int typeOf(WindowRole role) {
  switch (role) {
    case WindowRole::dock:
      return dockType;
    case WindowRole::panel:
      return utilityType;
    case WindowRole::window:
    case WindowRole::cover:
      return normalType;
    case WindowRole::bubble:
      return notificationType;
  }
  return dockType;
}

Qt::WindowFlags flagsOf(WindowRole role) {
  constexpr Qt::WindowFlags common = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::NoDropShadowWindowHint;
  switch (role) {
    case WindowRole::dock:
      return common | Qt::Window | Qt::WindowDoesNotAcceptFocus;
    case WindowRole::panel:
      // Not a tool window: that is tied to another one, and some window managers then keep it on one workspace.
      return common | Qt::Window;
    case WindowRole::window:
      return Qt::Window | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint;
    case WindowRole::bubble:
      // As notification daemons do: on every workspace, above full screens, in no list, and nothing to be focused.
      return common | Qt::Window | Qt::WindowDoesNotAcceptFocus | Qt::X11BypassWindowManagerHint;
    case WindowRole::cover:
      return common | Qt::Window | Qt::X11BypassWindowManagerHint;
  }
  return common;
}

void forEachWindow(const std::function<void(X11Window&)>& act) {
  const auto windows = QGuiApplication::allWindows();
  for (QWindow* window : windows)
    if (X11Window* ours = X11Window::of(*window)) act(*ours);
}

}  // namespace

X11WindowStyle::X11WindowStyle(X11Connection* connection) : connection_(connection), manager_(connection) {
  if (!connection_) return;
  manager_.setChangeHandler([] { forEachWindow([](X11Window& window) { window.managerChanged(); }); });
  const std::string name = "_NET_WM_CM_S" + std::to_string(connection_->screenNumber());
  selection_ = connection_->atom(name.c_str());
  isCompositing_ = askForCompositor();
  const auto* extension = xcb_get_extension_data(connection_->xcb(), &xcb_xfixes_id);
  if (!extension || !extension->present) return;
  firstEvent_ = extension->first_event;
  // The server serves no request of the extension before it has been asked for its version.
  const XcbPtr<xcb_xfixes_query_version_reply_t> version(
      xcb_xfixes_query_version_reply(connection_->xcb(), xcb_xfixes_query_version(connection_->xcb(), 5, 0), nullptr));
  xcb_xfixes_select_selection_input(connection_->xcb(), connection_->root(), selection_,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
  connection_->flush();
  connection_->repliesWereRead();
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != firstEvent_ + XCB_XFIXES_SELECTION_NOTIFY) return;
    const auto& notice = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
    if (notice.selection == selection_) refresh();
  });
}

void X11WindowStyle::prepare(QWindow& window, WindowRole role) {
  window.setProperty(windowTypeProperty, typeOf(role));
  window.setFlags(flagsOf(role));
  new X11Window(window, role, connection_, manager_);
}

void X11WindowStyle::place(QWindow& window, const QRect& frame) {
  if (!window.isVisible()) manager_.judgeEarly();
  if (X11Window* ours = X11Window::of(window))
    ours->place(frame);
  else
    window.setGeometry(frame);
}

void X11WindowStyle::setTakesKeys(QWindow& window, bool takesKeys) {
  if (X11Window* ours = X11Window::of(window)) ours->setTakesKeys(takesKeys);
}

void X11WindowStyle::activate(QWindow& window, std::function<void(bool)> done) {
  X11Window* const ours = X11Window::of(window);
  if (!ours) return;
  // One that still asks would take the keyboard back a moment later.
  forEachWindow([ours](X11Window& other) {
    if (&other != ours) other.stopAsking();
  });
  ours->activate(std::move(done));
}

void X11WindowStyle::giveBack(QWindow& window) {
  if (X11Window* ours = X11Window::of(window)) ours->giveBack();
}

void X11WindowStyle::setCompositingHandler(std::function<void(bool)> handler) { handler_ = std::move(handler); }

void X11WindowStyle::setRoundedMask(QWindow& window, double x, double y, double width, double height, double radius) {
  if (radius <= 0 || width <= 0 || height <= 0) {
    const X11Window* ours = X11Window::of(window);
    const bool isShadowed = isCompositing_ && ours && ours->role() == WindowRole::dock;
    window.setMask(isShadowed ? QRegion(shapeOfAll) : QRegion());
    return;
  }
  const int left = int(std::lround(x));
  const int top = int(std::lround(y));
  const int columns = int(std::lround(width));
  const int rows = int(std::lround(height));
  const double corner = std::min({radius, width / 2, height / 2});
  QRegion region;
  for (int row = 0; row < rows; ++row) {
    // From the middle of the row to the height at which the corner's arc begins.
    const double rise = std::max({corner - (row + 0.5), (row + 0.5) - (rows - corner), 0.0});
    const int inset = int(std::lround(corner - std::sqrt(std::max(0.0, corner * corner - rise * rise))));
    region += QRect(left + inset, top + row, columns - 2 * inset, 1);
  }
  window.setMask(region);
}

void X11WindowStyle::setInputRect(QWindow& window, double x, double y, double width, double height) {
  if (X11Window* ours = X11Window::of(window)) ours->setInputRect({x, y, width, height});
}

void X11WindowStyle::setShadowMargin(QWindow& window, double margin) {
  const auto* toolkit = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  xcb_connection_t* xcb = toolkit ? toolkit->connection() : nullptr;
  if (!xcb || !connection_) return;
  const auto pixels = static_cast<std::uint32_t>(std::lround(margin * window.devicePixelRatio()));
  const std::uint32_t extents[] = {pixels, pixels, pixels, pixels};
  xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()),
                      connection_->atom("_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL, 32, 4, extents);
  xcb_flush(xcb);
}

bool X11WindowStyle::isFramed(const QWindow& window) const { return X11Window::isFramed(window, connection_); }

bool X11WindowStyle::isPressed() const {
  if (!connection_ || connection_->isBroken()) return false;
  const XcbPtr<xcb_query_pointer_reply_t> reply(
      xcb_query_pointer_reply(connection_->xcb(), xcb_query_pointer(connection_->xcb(), connection_->root()), nullptr));
  connection_->repliesWereRead();
  return reply && (reply->mask & (XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3)) != 0;
}

void X11WindowStyle::endMove(QWindow& window) {
  // On the connection that asked for the move, so that this comes after it.
  xcb_connection_t* xcb = toolkitConnection();
  if (!xcb || !connection_) return;
  constexpr std::uint32_t cancel = 11;  // _NET_WM_MOVERESIZE_CANCEL
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = static_cast<xcb_window_t>(window.winId());
  message.type = connection_->atom("_NET_WM_MOVERESIZE");
  message.data.data32[2] = cancel;
  message.data.data32[3] = XCB_BUTTON_INDEX_1;
  message.data.data32[4] = 1;  // an ordinary program asks
  xcb_send_event(xcb, 0, connection_->root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));
  xcb_flush(xcb);
}

bool X11WindowStyle::askForCompositor() const {
  const XcbPtr<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
      connection_->xcb(), xcb_get_selection_owner(connection_->xcb(), selection_), nullptr));
  connection_->repliesWereRead();
  return owner && owner->owner != XCB_WINDOW_NONE;
}

void X11WindowStyle::refresh() {
  const bool is = askForCompositor();
  if (is == isCompositing_) return;
  isCompositing_ = is;
  if (handler_) handler_(is);
}

}  // namespace ambrel
