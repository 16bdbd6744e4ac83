#include "platform/linux/X11Panels.h"

#include <algorithm>
#include <array>
#include <unistd.h>
#include <utility>
#include <xcb/shape.h>

namespace ambrel {
namespace {

// Less is a dock that shows a line of itself while it hides.
constexpr std::uint32_t leastReserved = 5;

bool isAtLowerEdge(const Rect& dock, const Rect& screen) {
  return dock.width > dock.height && dock.height >= leastReserved && dock.height < screen.height / 2 &&
         dock.minX() < screen.maxX() && dock.maxX() > screen.minX() &&
         std::abs(dock.maxY() - screen.maxY()) <= leastReserved;
}

}  // namespace

X11Panels::X11Panels(X11Connection& connection, std::function<void()> onChange)
    : connection_(connection), onChange_(std::move(onChange)) {
  const auto* extension = xcb_get_extension_data(connection_.xcb(), &xcb_shape_id);
  if (extension && extension->present) shapeEvent_ = extension->first_event + XCB_SHAPE_NOTIFY;
  connection_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
  watch_ = connection_.watch([this](const xcb_generic_event_t& event) { handle(event); });
}

void X11Panels::handle(const xcb_generic_event_t& event) {
  const auto isDock = [this](xcb_window_t window) { return docks_.contains(window); };
  const int type = event.response_type & 0x7f;
  if (shapeEvent_ != 0 && type == shapeEvent_) {
    if (isDock(reinterpret_cast<const xcb_shape_notify_event_t&>(event).affected_window)) onChange_();
    return;
  }
  switch (type) {
    case XCB_PROPERTY_NOTIFY: {
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
      if (change.window != connection_.root()) return;
      for (const char* name : {"_NET_CLIENT_LIST", "_NET_WORKAREA", "_GTK_WORKAREAS_D0", "_NET_CURRENT_DESKTOP"})
        if (change.atom == connection_.atom(name)) return onChange_();
      return;
    }
    case XCB_CONFIGURE_NOTIFY:
      if (isDock(reinterpret_cast<const xcb_configure_notify_event_t&>(event).window)) onChange_();
      return;
    case XCB_MAP_NOTIFY:
      if (looksEverywhere_ || isDock(reinterpret_cast<const xcb_map_notify_event_t&>(event).window)) onChange_();
      return;
    case XCB_UNMAP_NOTIFY:
      if (looksEverywhere_ || isDock(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window)) onChange_();
      return;
    default:
      return;
  }
}

std::vector<xcb_window_t> X11Panels::childrenOf(const std::vector<xcb_window_t>& parents) {
  xcb_connection_t* xcb = connection_.xcb();
  std::vector<xcb_query_tree_cookie_t> asked;
  for (const xcb_window_t parent : parents) asked.push_back(xcb_query_tree(xcb, parent));
  std::vector<xcb_window_t> found;
  for (const auto& cookie : asked) {
    const XcbPtr<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(xcb, cookie, nullptr));
    if (!tree) continue;
    const xcb_window_t* first = xcb_query_tree_children(tree.get());
    found.insert(found.end(), first, first + xcb_query_tree_children_length(tree.get()));
  }
  connection_.repliesWereRead();
  return found;
}

// Some window managers list no panels, and tell no work area either. Those are found at the root window or in a frame.
std::vector<xcb_window_t> X11Panels::windows() {
  auto list = connection_.numbers(connection_.root(), connection_.atom("_NET_CLIENT_LIST"));
  looksEverywhere_ = connection_.numbers(connection_.root(), connection_.atom("_NET_WORKAREA")).empty();
  if (!looksEverywhere_) return list;
  connection_.selectRootEvents(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  const auto top = childrenOf({connection_.root()}), framed = childrenOf(top);
  list.insert(list.end(), top.begin(), top.end());
  list.insert(list.end(), framed.begin(), framed.end());
  std::ranges::sort(list);
  list.erase(std::ranges::unique(list).begin(), list.end());
  xcb_connection_t* xcb = connection_.xcb();
  std::vector<xcb_get_window_attributes_cookie_t> asked;
  for (const xcb_window_t window : list) asked.push_back(xcb_get_window_attributes(xcb, window));
  std::vector<xcb_window_t> shown;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(xcb, asked[i], nullptr));
    if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE) shown.push_back(list[i]);
  }
  connection_.repliesWereRead();
  return shown;
}

Rect X11Panels::extentOf(xcb_window_t window) {
  xcb_connection_t* xcb = connection_.xcb();
  const auto state = xcb_get_window_attributes(xcb, window);
  const auto shape = xcb_shape_get_rectangles(xcb, window, XCB_SHAPE_SK_INPUT);
  const auto place = xcb_translate_coordinates(xcb, window, connection_.root(), 0, 0);
  const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(xcb, state, nullptr));
  const XcbPtr<xcb_shape_get_rectangles_reply_t> shapes(xcb_shape_get_rectangles_reply(xcb, shape, nullptr));
  const XcbPtr<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(xcb, place, nullptr));
  connection_.repliesWereRead();
  if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE || !shapes || !corner) return {};
  const xcb_rectangle_t* rectangle = xcb_shape_get_rectangles_rectangles(shapes.get());
  const int count = xcb_shape_get_rectangles_rectangles_length(shapes.get());
  if (count == 0) return {};
  double left = rectangle->x, top = rectangle->y, right = left, bottom = top;
  for (int i = 0; i < count; ++i) {
    left = std::min<double>(left, rectangle[i].x);
    top = std::min<double>(top, rectangle[i].y);
    right = std::max<double>(right, rectangle[i].x + rectangle[i].width);
    bottom = std::max<double>(bottom, rectangle[i].y + rectangle[i].height);
  }
  return {corner->dst_x + left, corner->dst_y + top, right - left, bottom - top};
}

void X11Panels::read(const std::vector<Screen>& screens) {
  const auto found = windows();
  const auto partial = connection_.properties(found, connection_.atom("_NET_WM_STRUT_PARTIAL"));
  const auto simple = connection_.properties(found, connection_.atom("_NET_WM_STRUT"));
  const auto types = connection_.properties(found, connection_.atom("_NET_WM_WINDOW_TYPE"));
  const xcb_atom_t dockType = connection_.atom("_NET_WM_WINDOW_TYPE_DOCK");
  struts_.clear();
  std::map<xcb_window_t, Dock> docks;
  for (std::size_t i = 0; i < found.size(); ++i) {
    const auto strut = parseStrut(numbersFromBytes(partial[i].empty() ? simple[i] : partial[i])).value_or(Strut{});
    if (std::max({strut.left, strut.right, strut.top, strut.bottom}) >= leastReserved) {
      struts_.push_back(strut);
      continue;
    }
    const auto kinds = numbersFromBytes(types[i]);
    if (std::ranges::find(kinds, dockType) == kinds.end() || connection_.processOf(found[i]) == getpid()) continue;
    const auto known = docks_.find(found[i]);
    if (known == docks_.end()) {
      const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
      xcb_change_window_attributes(connection_.xcb(), found[i], XCB_CW_EVENT_MASK, &events);
      xcb_shape_select_input(connection_.xcb(), found[i], 1);
    }
    Dock& dock = docks[found[i]] = known == docks_.end() ? Dock{} : known->second;
    dock.isOut = false;
    const Rect extent = extentOf(found[i]);
    for (const Screen& screen : screens)
      if (isAtLowerEdge(extent, screen.frame)) dock = {screen.name, screen.frame.maxY() - extent.minY(), true};
  }
  docks_ = std::move(docks);
  connection_.flush();
}

std::optional<X11Panels::Dock> X11Panels::dockAt(const std::string& screen) const {
  std::optional<Dock> best;
  for (const auto& [window, dock] : docks_)
    if (dock.screen == screen && (!best || std::pair(dock.isOut, dock.height) > std::pair(best->isOut, best->height)))
      best = dock;
  return best;
}

}  // namespace ambrel
