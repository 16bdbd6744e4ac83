#include "platform/linux/X11Connection.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSocketNotifier>
#include <cstring>
#include <string_view>

namespace ambrel {
namespace {

constexpr std::uint32_t longestProperty = 1u << 18;  // in units of four bytes

std::string bytesOf(const xcb_get_property_reply_t* reply) {
  if (!reply) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply)),
          static_cast<std::size_t>(xcb_get_property_value_length(reply))};
}

}  // namespace

std::vector<std::uint32_t> numbersFromBytes(const std::string& bytes) {
  std::vector<std::uint32_t> numbers(bytes.size() / 4);
  if (!numbers.empty()) std::memcpy(numbers.data(), bytes.data(), numbers.size() * 4);
  return numbers;
}

std::unique_ptr<X11Connection> X11Connection::open(const std::string& display) {
  if (display.empty()) return nullptr;
  int screenNumber = 0;
  xcb_connection_t* connection = xcb_connect(display.c_str(), &screenNumber);
  if (xcb_connection_has_error(connection)) {
    xcb_disconnect(connection);
    return nullptr;
  }
  return std::unique_ptr<X11Connection>(new X11Connection(connection, screenNumber));
}

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber)
    : connection_(connection), screenNumber_(screenNumber) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection_));
  for (int i = 0; i < screenNumber && screens.rem > 1; ++i) xcb_screen_next(&screens);
  screen_ = screens.data;
  notifier_ = new QSocketNotifier(xcb_get_file_descriptor(connection_), QSocketNotifier::Read, this);
  connect(notifier_, &QSocketNotifier::activated, this, [this] { handOutEvents(); });
}

X11Connection::~X11Connection() {
  delete notifier_;
  xcb_disconnect(connection_);
}

bool X11Connection::isGuestOfWayland() {
  if (isGuest_) return *isGuest_;
  constexpr std::string_view name = "XWAYLAND";
  const XcbPtr<xcb_query_extension_reply_t> reply(
      xcb_query_extension_reply(connection_, xcb_query_extension(connection_, name.size(), name.data()), nullptr));
  repliesWereRead();
  // Servers before 23.1 have no extension to say so; their outputs have its name.
  const QScreen* const screen = QGuiApplication::primaryScreen();
  isGuest_ =
      (reply && reply->present) || (screen && screen->name().startsWith(QLatin1String(name.data(), name.size())));
  return *isGuest_;
}

xcb_atom_t X11Connection::atom(const char* name) {
  const auto known = atoms_.find(name);
  if (known != atoms_.end()) return known->second;
  const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
  const XcbPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookie, nullptr));
  repliesWereRead();
  if (!reply) return XCB_ATOM_NONE;
  atoms_.emplace(name, reply->atom);
  return reply->atom;
}

std::string X11Connection::property(xcb_window_t window, xcb_atom_t property) {
  return properties({window}, property).front();
}

std::vector<std::string> X11Connection::properties(const std::vector<xcb_window_t>& windows, xcb_atom_t property) {
  std::vector<xcb_get_property_cookie_t> cookies;
  cookies.reserve(windows.size());
  for (const xcb_window_t window : windows)
    cookies.push_back(xcb_get_property(connection_, 0, window, property, XCB_ATOM_ANY, 0, longestProperty));
  std::vector<std::string> values;
  values.reserve(windows.size());
  for (const auto cookie : cookies) {
    // A window that was closed meanwhile gives an error instead of a reply.
    xcb_generic_error_t* error = nullptr;
    const XcbPtr<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, &error));
    std::free(error);
    values.push_back(bytesOf(reply.get()));
  }
  repliesWereRead();
  return values;
}

std::vector<std::uint32_t> X11Connection::numbers(xcb_window_t window, xcb_atom_t property) {
  return numbersFromBytes(this->property(window, property));
}

bool X11Connection::isViewable(xcb_window_t window) {
  const XcbPtr<xcb_get_window_attributes_reply_t> attributes(
      xcb_get_window_attributes_reply(connection_, xcb_get_window_attributes(connection_, window), nullptr));
  repliesWereRead();
  return attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t X11Connection::focused() {
  const XcbPtr<xcb_get_input_focus_reply_t> reply(
      xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  repliesWereRead();
  return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

std::optional<int> X11Connection::processOf(xcb_window_t window) {
  if (window == XCB_WINDOW_NONE) return std::nullopt;
  const auto pid = numbers(window, atom("_NET_WM_PID"));
  return pid.empty() ? std::nullopt : std::optional(static_cast<int>(pid.front()));
}

xcb_timestamp_t X11Connection::serverTime() {
  const xcb_atom_t stamp = atom("AMBREL_TIME");
  if (helperWindow_ == XCB_WINDOW_NONE) {
    helperWindow_ = xcb_generate_id(connection_);
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(connection_, 0, helperWindow_, root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &mask);
  }
  // Appending nothing to a property tells the time. The reply of a later request makes sure that the event is here.
  xcb_change_property(connection_, XCB_PROP_MODE_APPEND, helperWindow_, stamp, XCB_ATOM_STRING, 8, 0, nullptr);
  const XcbPtr<xcb_get_input_focus_reply_t> fence(
      xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
  xcb_timestamp_t time = XCB_CURRENT_TIME;
  while (XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
    if ((event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY) {
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
      if (change.window == helperWindow_) {
        time = change.time;
        continue;
      }
    }
    waiting_.push_back(std::move(event));
  }
  repliesWereRead();
  return time;
}

void X11Connection::selectRootEvents(std::uint32_t mask) {
  if ((rootMask_ | mask) == rootMask_) return;
  rootMask_ |= mask;
  xcb_change_window_attributes(connection_, root(), XCB_CW_EVENT_MASK, &rootMask_);
  flush();
}

X11Watch X11Connection::watch(Handler handler) {
  auto token = std::make_shared<Handler>(std::move(handler));
  // A place that became free is taken again; the others must not move while an event goes round.
  for (auto& place : handlers_) {
    if (place.expired()) {
      place = token;
      return X11Watch(token);
    }
  }
  handlers_.push_back(token);
  return X11Watch(token);
}

void X11Connection::flush() { xcb_flush(connection_); }

void X11Connection::repliesWereRead() {
  // Reading a reply may have taken events off the socket, which then has nothing more to report.
  if (isHandOutPlanned_) return;
  isHandOutPlanned_ = true;
  QMetaObject::invokeMethod(
      this, [this] { handOutEvents(); }, Qt::QueuedConnection);
}

void X11Connection::handOutEvents() {
  isHandOutPlanned_ = false;
  while (!waiting_.empty()) {
    const XcbPtr<xcb_generic_event_t> event = std::move(waiting_.front());
    waiting_.pop_front();
    dispatch(*event);
  }
  while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) dispatch(*event);
  // The socket of a lost server is readable for ever.
  if (isBroken()) notifier_->setEnabled(false);
}

void X11Connection::dispatch(const xcb_generic_event_t& event) {
  // By index: a handler may add another watch.
  for (std::size_t i = 0; i < handlers_.size(); ++i)
    if (const auto handler = handlers_[i].lock()) (*handler)(event);
}

}  // namespace ambrel
