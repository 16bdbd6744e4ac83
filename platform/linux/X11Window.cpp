#include "platform/linux/X11Window.h"

#include <QEvent>
#include <QGuiApplication>
#include <QVariant>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <utility>
#include <xcb/xfixes.h>

#include "platform/linux/ToolkitX11.h"
#include "platform/linux/X11FullScreen.h"
#include "platform/linux/X11WindowManager.h"

namespace ambrel {
namespace {

// By then a window manager that moves or frames a window has done so.
constexpr int placeCheckDelay = 150;
// Scales that are not whole numbers round.
constexpr int placeTolerance = 2;
constexpr int focusInterval = 25, focusTurns = 6, viewableTurns = 20;
// A window manager that is busy may do so long after what it answers.
constexpr int lateAnswers = 1000;
constexpr std::uint32_t everyDesktop = 0xffffffff, mostProtocols = 32;
// What the toolkit's X11 plug-in reads at each showing: the window does not ask for the keyboard.
constexpr const char* showsQuietly = "_q_showWithoutActivating";

void changeProperty(xcb_connection_t* xcb, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                    const std::vector<std::uint32_t>& values) {
  xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, property, type, 32, static_cast<std::uint32_t>(values.size()),
                      values.data());
}

}  // namespace

X11Window::X11Window(QWindow& window, WindowRole role, X11Connection* connection, X11WindowManager& manager)
    : QObject(&window),
      window_(window),
      role_(role),
      connection_(connection),
      manager_(manager),
      takesKeys_(role == WindowRole::panel || role == WindowRole::window || role == WindowRole::cover) {
  window_.setProperty(showsQuietly, !takesKeys_);
  window_.installEventFilter(this);
  placeTimer_.setSingleShot(true);
  placeTimer_.setInterval(placeCheckDelay);
  connect(&placeTimer_, &QTimer::timeout, this, &X11Window::checkPlace);
  // At once, so that no key that follows finds the window unprepared.
  connect(&window_, &QWindow::activeChanged, this, [this] {
    if (done_ && window_.isActive() && focused() == id()) finish(true);
  });
  if (!connection_) return;
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_FOCUS_OUT || !window_.handle()) return;
    const auto& loss = reinterpret_cast<const xcb_focus_out_event_t&>(event);
    if (loss.event == id() && loss.detail != XCB_NOTIFY_DETAIL_INFERIOR && loss.detail != XCB_NOTIFY_DETAIL_POINTER)
      keyboardLost();
  });
}

X11Window* X11Window::of(QWindow& window) {
  for (QObject* child : window.children())
    if (auto* found = dynamic_cast<X11Window*>(child)) return found;
  return nullptr;
}

X11Window* X11Window::ownWindow(xcb_window_t id) {
  for (QWindow* window : QGuiApplication::allWindows())
    if (window->handle() && static_cast<xcb_window_t>(window->winId()) == id) return of(*window);
  return nullptr;
}

xcb_window_t X11Window::id() const { return static_cast<xcb_window_t>(window_.winId()); }

bool X11Window::isBypassing() const { return window_.flags().testFlag(Qt::X11BypassWindowManagerHint); }

// A bar that is called over a window in full screen would be below it under some window managers, whatever it asks for.
bool X11Window::shouldBypass() const {
  return !manager_.leavesAlone(role_) ||
         (role_ == WindowRole::dock && canAsk() && isInFullScreen(*connection_, activeWindow(*connection_)));
}

void X11Window::place(const QRect& frame) {
  asked_ = frame;
  if (window_.geometry() != frame) window_.setGeometry(frame);
}

void X11Window::setInputRect(const QRectF& rect) {
  input_ = rect;
  if (window_.handle()) applyInputRect();
}

void X11Window::applyInputRect() {
  xcb_connection_t* xcb = toolkitConnection();
  if (!xcb || !input_) return;
  const auto* extension = xcb_get_extension_data(xcb, &xcb_xfixes_id);
  if (!extension || !extension->present) return;
  const double scale = window_.devicePixelRatio();
  const auto pixels = [scale](double points) { return std::lround(points * scale); };
  const xcb_rectangle_t rectangle{
      static_cast<std::int16_t>(pixels(input_->x())), static_cast<std::int16_t>(pixels(input_->y())),
      static_cast<std::uint16_t>(pixels(input_->width())), static_cast<std::uint16_t>(pixels(input_->height()))};
  const xcb_xfixes_region_t region = xcb_generate_id(xcb);
  xcb_xfixes_create_region(xcb, region, 1, &rectangle);
  xcb_xfixes_set_window_shape_region(xcb, id(), XCB_SHAPE_SK_INPUT, 0, 0, region);
  xcb_xfixes_destroy_region(xcb, region);
  xcb_flush(xcb);
}

bool X11Window::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
      if (changesHands()) {
        showAsAnother();
        return true;
      }
      beforeShow();
      break;
    case QEvent::Hide:
      afterHide();
      break;
    case QEvent::Expose:
      if (window_.isExposed() && !isBypassing()) placeTimer_.start();
      break;
    case QEvent::MouseButtonPress:
      // Nobody else gives the keyboard to a window that the window manager does not know.
      if (takesKeys_ && isBypassing() && !window_.isActive()) activate({});
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

bool X11Window::changesHands() const { return role_ != WindowRole::window && isBypassing() != shouldBypass(); }

// A window manager that has had a window puts it back where it had it a moment later, and its grabs of the buttons stay
// (awesome's keep every click from us). So the server gets another window, with the same content.
void X11Window::showAsAnother() {
  window_.destroy();
  window_.setFlag(Qt::X11BypassWindowManagerHint, shouldBypass());
  if (asked_) window_.setGeometry(*asked_);
  window_.show();
}

// The window exists and is not mapped yet.
void X11Window::beforeShow() {
  applyInputRect();
  if (role_ == WindowRole::window) return;
  xcb_connection_t* xcb = toolkitConnection();
  if (!xcb || !canAsk()) return;
  // It waits for an answer, so that the server knows the window after it.
  writeProtocols();
  const std::uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
  xcb_change_window_attributes(connection_->xcb(), id(), XCB_CW_EVENT_MASK, &mask);
  connection_->flush();
  // A window manager forgets both when the window is hidden. The toolkit adds its own states to these.
  changeProperty(xcb, id(), connection_->atom("_NET_WM_STATE"), XCB_ATOM_ATOM, wantedStates());
  changeProperty(xcb, id(), connection_->atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, {everyDesktop});
  xcb_flush(xcb);
}

std::vector<std::uint32_t> X11Window::wantedStates() const {
  return {connection_->atom("_NET_WM_STATE_STICKY"), connection_->atom("_NET_WM_STATE_SKIP_TASKBAR"),
          connection_->atom("_NET_WM_STATE_SKIP_PAGER"), connection_->atom("_NET_WM_STATE_ABOVE")};
}

void X11Window::tellManager(const char* what, const std::array<std::uint32_t, 5>& values) {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = id();
  message.type = connection_->atom(what);
  std::ranges::copy(values, message.data.data32);
  xcb_send_event(connection_->xcb(), 0, connection_->root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));
  connection_->flush();
}

// A window that is shown soon after it was hidden may be forgotten only then.
void X11Window::checkStates() {
  constexpr std::uint32_t add = 1, fromPanel = 2;
  const auto states = connection_->numbers(id(), connection_->atom("_NET_WM_STATE"));
  for (const std::uint32_t state : wantedStates())
    if (std::ranges::find(states, state) == states.end()) tellManager("_NET_WM_STATE", {add, state, 0, fromPanel, 0});
  const auto desktop = connection_->numbers(id(), connection_->atom("_NET_WM_DESKTOP"));
  if (!desktop.empty() && desktop.front() != everyDesktop)
    tellManager("_NET_WM_DESKTOP", {everyDesktop, fromPanel, 0, 0, 0});
}

void X11Window::afterHide() {
  placeTimer_.stop();
  if (done_) finish(false);
  if (previousFocus_ == XCB_WINDOW_NONE || !canAsk()) return;
  // The server gives the keyboard of a window that goes to the root window, where keys are lost.
  const xcb_window_t now = focused();
  if (now == XCB_WINDOW_NONE || now == XCB_INPUT_FOCUS_POINTER_ROOT || now == connection_->root() || now == id())
    giveBack();
  previousFocus_ = XCB_WINDOW_NONE;
}

void X11Window::setTakesKeys(bool takesKeys) {
  if (takesKeys == takesKeys_) return;
  takesKeys_ = takesKeys;
  window_.setProperty(showsQuietly, !takesKeys);
  window_.setFlag(Qt::WindowDoesNotAcceptFocus, !takesKeys);
  if (window_.handle()) writeProtocols();
}

// The toolkit offers every window for the keyboard, also those that do not accept it; some window managers then take
// it from the window that has it.
void X11Window::writeProtocols() {
  xcb_connection_t* xcb = toolkitConnection();
  if (!xcb || !canAsk()) return;
  const xcb_atom_t protocols = connection_->atom("WM_PROTOCOLS"), takeFocus = connection_->atom("WM_TAKE_FOCUS");
  const XcbPtr<xcb_get_property_reply_t> reply(
      xcb_get_property_reply(xcb, xcb_get_property(xcb, 0, id(), protocols, XCB_ATOM_ATOM, 0, mostProtocols), nullptr));
  std::vector<std::uint32_t> offered;
  if (reply) {
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    offered.assign(first, first + xcb_get_property_value_length(reply.get()) / 4);
  }
  std::erase(offered, takeFocus);
  if (takesKeys_) offered.push_back(takeFocus);
  changeProperty(xcb, id(), protocols, XCB_ATOM_ATOM, offered);
  xcb_flush(xcb);
}

void X11Window::writeUserTime(xcb_timestamp_t time) {
  xcb_connection_t* xcb = toolkitConnection();
  if (!xcb) return;
  const xcb_atom_t userTime = connection_->atom("_NET_WM_USER_TIME");
  changeProperty(xcb, id(), userTime, XCB_ATOM_CARDINAL, {time});
  const auto other = connection_->numbers(id(), connection_->atom("_NET_WM_USER_TIME_WINDOW"));
  if (!other.empty() && other.front() != XCB_WINDOW_NONE)
    changeProperty(xcb, other.front(), userTime, XCB_ATOM_CARDINAL, {time});
  xcb_flush(xcb);
}

bool X11Window::isFramed(const QWindow& window, X11Connection* connection) {
  if (!window.frameMargins().isNull()) return true;
  if (!connection || connection->isBroken() || !window.handle()) return false;
  const XcbPtr<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(
      connection->xcb(), xcb_get_geometry(connection->xcb(), static_cast<xcb_window_t>(window.winId())), nullptr));
  connection->repliesWereRead();
  return geometry && geometry->border_width != 0;
}

void X11Window::checkPlace() {
  if (!asked_ || !window_.isVisible() || isBypassing() || !canAsk()) return;
  const QRect now = window_.geometry();
  const bool isThere = std::abs(now.x() - asked_->x()) <= placeTolerance &&
                       std::abs(now.y() - asked_->y()) <= placeTolerance &&
                       std::abs(now.width() - asked_->width()) <= placeTolerance &&
                       std::abs(now.height() - asked_->height()) <= placeTolerance;
  if (!isThere || isFramed(window_, connection_))
    manager_.meddled(role_);
  else
    checkStates();
}

void X11Window::managerChanged() {
  if (!window_.isVisible() || !changesHands()) return;
  // One in use is left where it is, until it is shown again; a bar that is always out never is.
  if (window_.isActive()) {
    if (role_ == WindowRole::dock)
      connect(&window_, &QWindow::activeChanged, this, &X11Window::managerChanged,
              static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    return;
  }
  ++attempt_;
  auto asked = std::exchange(done_, nullptr);
  showAsAnother();
  window_.raise();
  if (asked) activate(std::move(asked));
}

void X11Window::later(int milliseconds, int attempt, std::function<void()> step) {
  QTimer::singleShot(milliseconds, this, [this, attempt, step = std::move(step)] {
    if (attempt == attempt_) step();
  });
}

void X11Window::activate(std::function<void(bool)> done) {
  // What is in front may be in full screen by now.
  managerChanged();
  const int attempt = ++attempt_;
  done_ = done ? std::move(done) : [](bool) {};
  setTakesKeys(true);
  if (toolkitConnection() && canAsk()) {
    askForFocus(attempt, 0);
    return;
  }
  window_.requestActivate();
  later(focusInterval, attempt, [this] { finish(window_.isActive()); });
}

void X11Window::askForFocus(int attempt, int turn) {
  if (!window_.isVisible() || turn > viewableTurns) {
    later(0, attempt, [this] { finish(false); });
    return;
  }
  if (!isViewable(id())) {
    later(focusInterval, attempt, [this, attempt, turn] { askForFocus(attempt, turn + 1); });
    return;
  }
  const xcb_timestamp_t time = connection_->serverTime();
  writeUserTime(time);
  if (const xcb_window_t before = focused(); before != id()) {
    const X11Window* ours = ownWindow(before);
    // The bar no longer wants the keyboard when a panel has opened from it.
    previousFocus_ = ours && ours->previousFocus_ != XCB_WINDOW_NONE ? ours->previousFocus_ : before;
  }
  if (isBypassing() || !manager_.supports("_NET_ACTIVE_WINDOW")) {
    takeFocus(attempt);
    return;
  }
  // 2: at the user's wish, through a panel.
  tellManager("_NET_ACTIVE_WINDOW", {2, time, 0, 0, 0});
  // Docks are refused by some; they may take the keyboard themselves.
  awaitFocus(attempt, 0, [this, attempt] { takeFocus(attempt); });
}

void X11Window::takeFocus(int attempt) {
  if (!isViewable(id())) {
    later(0, attempt, [this] { finish(false); });
    return;
  }
  // With the parent as its heir the keyboard would go to a frame, and be lost with that.
  xcb_set_input_focus(connection_->xcb(), XCB_INPUT_FOCUS_POINTER_ROOT, id(), connection_->serverTime());
  connection_->flush();
  awaitFocus(attempt, 0, [this] { finish(false); });
}

void X11Window::awaitFocus(int attempt, int turn, std::function<void()> otherwise) {
  later(focusInterval, attempt, [this, attempt, turn, otherwise = std::move(otherwise)] {
    // The toolkit hears of it a little later than the server says it.
    if (focused() == id() && window_.isActive())
      finish(true);
    else if (turn + 1 < focusTurns)
      awaitFocus(attempt, turn + 1, otherwise);
    else
      otherwise();
  });
}

// When the window that had the keyboard before has gone, the window manager gives it to nobody, and may do so only when
// this one has got it. The toolkit waits a moment before it says that a window has lost it. In a Wayland session nobody
// has it here while a window of Wayland has it.
void X11Window::keyboardLost() {
  if (connection_->isGuestOfWayland()) return;
  if (!sinceKeyboard_.isValid() || sinceKeyboard_.hasExpired(lateAnswers) || !takesKeys_ || !window_.isVisible())
    return;
  xcb_connection_t* xcb = connection_->xcb();
  // Nobody gets it between the question and the answer.
  xcb_grab_server(xcb);
  if (isNobody(focused())) xcb_set_input_focus(xcb, XCB_INPUT_FOCUS_POINTER_ROOT, id(), XCB_CURRENT_TIME);
  xcb_ungrab_server(xcb);
  connection_->flush();
}

// Window managers have a window for that, which is not to be seen.
bool X11Window::isNobody(xcb_window_t window) const {
  if (window == XCB_WINDOW_NONE || window == XCB_INPUT_FOCUS_POINTER_ROOT || window == connection_->root()) return true;
  const XcbPtr<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(connection_->xcb(), xcb_get_geometry(connection_->xcb(), window), nullptr));
  connection_->repliesWereRead();
  return !geometry || (geometry->width <= 1 && geometry->height <= 1);
}

void X11Window::finish(bool isActive) {
  ++attempt_;
  if (isActive) sinceKeyboard_.start();
  if (!isActive) previousFocus_ = XCB_WINDOW_NONE;
  if (const auto done = std::exchange(done_, nullptr)) done(isActive);
}

void X11Window::stopAsking() {
  // What had the keyboard before stays known: the window that asks next may give it back.
  ++attempt_;
  if (const auto done = std::exchange(done_, nullptr)) done(false);
}

void X11Window::giveBack() {
  ++attempt_;
  done_ = nullptr;
  const xcb_window_t to = std::exchange(previousFocus_, xcb_window_t{XCB_WINDOW_NONE});
  if (to == XCB_WINDOW_NONE || !canAsk()) return;
  if (connection_->isGuestOfWayland() && isNobody(to)) {
    leaveToCompositor();
    return;
  }
  // Or to whatever is under the pointer, as without a window manager.
  if (to != XCB_INPUT_FOCUS_POINTER_ROOT && !isViewable(to)) return;
  xcb_set_input_focus(connection_->xcb(), XCB_INPUT_FOCUS_POINTER_ROOT, to, connection_->serverTime());
  // Some window managers move the keyboard at the time of the last event that they have seen. The server refuses what
  // is earlier than this, so they get an event.
  xcb_change_property(connection_->xcb(), XCB_PROP_MODE_APPEND, connection_->root(), connection_->atom("AMBREL_TIME"),
                      XCB_ATOM_STRING, 8, 0, nullptr);
  connection_->flush();
}

// A window of Wayland had the keyboard, whose name X11 does not know. The compositor gives it back when ours goes.
void X11Window::leaveToCompositor() {
  if (!window_.isVisible() || focused() != id()) return;
  xcb_unmap_window(connection_->xcb(), id());
  writeUserTime(0);
  xcb_map_window(connection_->xcb(), id());
  connection_->flush();
}

}  // namespace ambrel
