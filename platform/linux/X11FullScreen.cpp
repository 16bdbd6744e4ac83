#include "platform/linux/X11FullScreen.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

namespace ambrel {

xcb_window_t activeWindow(X11Connection& connection) {
  const auto list = connection.numbers(connection.root(), connection.atom("_NET_ACTIVE_WINDOW"));
  return list.empty() ? xcb_window_t{XCB_WINDOW_NONE} : list.front();
}

bool isInFullScreen(X11Connection& connection, xcb_window_t window) {
  if (window == XCB_WINDOW_NONE) return false;
  const auto states = connection.numbers(window, connection.atom("_NET_WM_STATE"));
  return std::ranges::find(states, connection.atom("_NET_WM_STATE_FULLSCREEN")) != states.end();
}

X11FullScreen::X11FullScreen(X11Connection& connection, std::function<void()> onChange)
    : connection_(connection), onChange_(std::move(onChange)) {
  connection_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
  watch_ = connection_.watch([this](const xcb_generic_event_t& event) { handle(event); });
}

void X11FullScreen::handle(const xcb_generic_event_t& event) {
  if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return;
  const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
  const auto is = [&](const char* name) { return change.atom == connection_.atom(name); };
  if (change.window == connection_.root() ? is("_NET_ACTIVE_WINDOW") : change.window == watched_ && is("_NET_WM_STATE"))
    onChange_();
}

void X11FullScreen::watch(xcb_window_t window) {
  const auto select = [this](xcb_window_t one, std::uint32_t events) {
    if (one != XCB_WINDOW_NONE) xcb_change_window_attributes(connection_.xcb(), one, XCB_CW_EVENT_MASK, &events);
  };
  if (window == watched_) return;
  select(std::exchange(watched_, window), XCB_EVENT_MASK_NO_EVENT);
  select(window, XCB_EVENT_MASK_PROPERTY_CHANGE);
  connection_.flush();
}

std::optional<Rect> X11FullScreen::frameOf(xcb_window_t window) {
  if (!connection_.isViewable(window)) return std::nullopt;
  xcb_connection_t* xcb = connection_.xcb();
  const auto asked = xcb_get_geometry(xcb, window);
  const auto place = xcb_translate_coordinates(xcb, window, connection_.root(), 0, 0);
  const XcbPtr<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(xcb, asked, nullptr));
  const XcbPtr<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(xcb, place, nullptr));
  connection_.repliesWereRead();
  if (!size || !corner) return std::nullopt;
  return Rect{double(corner->dst_x), double(corner->dst_y), double(size->width), double(size->height)};
}

std::optional<Rect> X11FullScreen::frame() {
  const xcb_window_t active = activeWindow(connection_);
  const bool isOthers = active != XCB_WINDOW_NONE && connection_.processOf(active) != getpid();
  if (isOthers) {
    watch(active);
    if (isInFullScreen(connection_, active)) filler_ = active;
  }
  if (filler_ == XCB_WINDOW_NONE) return std::nullopt;
  const auto filled = isInFullScreen(connection_, filler_) ? frameOf(filler_) : std::nullopt;
  if (!filled) {
    filler_ = XCB_WINDOW_NONE;
    return std::nullopt;
  }
  if (!isOthers || active == filler_) return filled;
  const auto above = frameOf(active);
  return above && filled->contains({above->midX(), above->midY()}) ? std::nullopt : filled;
}

}  // namespace ambrel
