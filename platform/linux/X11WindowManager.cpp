#include "platform/linux/X11WindowManager.h"

#include <algorithm>
#include <functional>
#include <utility>
#include <xcb/shape.h>

namespace ambrel {
namespace {

// Window managers move a window right after they have mapped it, if at all.
constexpr int settleInterval = 60;
// A window that is not on the screen by then never comes.
constexpr int mostTurns = 20;
constexpr std::uint16_t probeWidth = 64, probeHeight = 2;

bool isThere(const std::vector<std::uint32_t>& list, std::uint32_t value) {
  return value != 0 && std::ranges::find(list, value) != list.end();
}

}  // namespace

X11WindowManager::X11WindowManager(X11Connection* connection) : connection_(connection) {
  if (!connection_) return;
  timer_.setSingleShot(true);
  connect(&timer_, &QTimer::timeout, this, &X11WindowManager::lookAgain);
  connection_->selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) { handle(event); });
  refresh();
}

X11WindowManager::~X11WindowManager() {
  if (connection_ && !connection_->isBroken()) endProbes();
}

bool X11WindowManager::leavesAlone(WindowRole role) const {
  switch (role) {
    case WindowRole::dock:
      return leavesDocks_;
    case WindowRole::panel:
      return leavesPanels_;
    case WindowRole::window:
      return true;
    case WindowRole::bubble:
    case WindowRole::cover:
      return false;
  }
  return true;
}

void X11WindowManager::meddled(WindowRole role) { set(role, false); }

bool X11WindowManager::supports(const char* atom) const {
  return connection_ && isThere(supported_, connection_->atom(atom));
}

void X11WindowManager::set(WindowRole role, bool leavesAlone) {
  if (role != WindowRole::dock && role != WindowRole::panel) return;
  bool& known = role == WindowRole::dock ? leavesDocks_ : leavesPanels_;
  if (std::exchange(known, leavesAlone) != leavesAlone && handler_) handler_();
}

void X11WindowManager::refresh() {
  const auto check = connection_->numbers(connection_->root(), connection_->atom("_NET_SUPPORTING_WM_CHECK"));
  xcb_window_t manager = check.empty() ? xcb_window_t{XCB_WINDOW_NONE} : check.front();
  // One that has ended may leave the property on the root window behind.
  if (manager != XCB_WINDOW_NONE &&
      connection_->numbers(manager, connection_->atom("_NET_SUPPORTING_WM_CHECK")) != check)
    manager = XCB_WINDOW_NONE;
  auto supported = connection_->numbers(connection_->root(), connection_->atom("_NET_SUPPORTED"));
  if (manager == XCB_WINDOW_NONE) supported.clear();
  if (manager == manager_ && supported == supported_) return;
  manager_ = manager;
  supported_ = std::move(supported);
  endProbes();
  if (manager_ == XCB_WINDOW_NONE) {
    set(WindowRole::dock, true);
    set(WindowRole::panel, true);
  } else if (!supports("_NET_WM_STATE_ABOVE")) {
    // What it cannot keep above others it tiles or docks.
    set(WindowRole::dock, false);
    set(WindowRole::panel, false);
  } else {
    startProbes();
  }
}

void X11WindowManager::startProbes() {
  xcb_connection_t* xcb = connection_->xcb();
  const auto setAtoms = [&](xcb_window_t window, const char* property, const std::vector<std::uint32_t>& values,
                            xcb_atom_t type) {
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window, connection_->atom(property), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
  };
  for (Probe& probe : probes_) {
    probe = {.role = probe.role, .window = xcb_generate_id(xcb)};
    // Both in one place, where a window manager that keeps windows apart would move them.
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, probe.window, connection_->root(),
                      static_cast<std::int16_t>(connection_->screen().width_in_pixels / 3),
                      static_cast<std::int16_t>(connection_->screen().height_in_pixels / 3), probeWidth, probeHeight, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    // Without a shape there is nothing to be seen or to be clicked.
    for (const auto kind : {XCB_SHAPE_SK_BOUNDING, XCB_SHAPE_SK_INPUT})
      xcb_shape_rectangles(xcb, XCB_SHAPE_SO_SET, kind, XCB_CLIP_ORDERING_UNSORTED, probe.window, 0, 0, 0, nullptr);
    const bool isDock = probe.role == WindowRole::dock;
    setAtoms(probe.window, "_NET_WM_WINDOW_TYPE",
             {connection_->atom(isDock ? "_NET_WM_WINDOW_TYPE_DOCK" : "_NET_WM_WINDOW_TYPE_UTILITY")}, XCB_ATOM_ATOM);
    setAtoms(probe.window, "_NET_WM_STATE",
             {connection_->atom("_NET_WM_STATE_ABOVE"), connection_->atom("_NET_WM_STATE_STICKY"),
              connection_->atom("_NET_WM_STATE_SKIP_TASKBAR"), connection_->atom("_NET_WM_STATE_SKIP_PAGER")},
             XCB_ATOM_ATOM);
    setAtoms(probe.window, "_NET_WM_USER_TIME", {0}, XCB_ATOM_CARDINAL);
    // Flags, functions, decorations: none. A frame is drawn by us.
    setAtoms(probe.window, "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0}, connection_->atom("_MOTIF_WM_HINTS"));
    // It gives the input field alone, and that it does not want the keyboard.
    setAtoms(probe.window, "WM_HINTS", {1, 0, 0, 0, 0, 0, 0, 0, 0}, XCB_ATOM_WM_HINTS);
    // Position and size as the user chose them.
    setAtoms(probe.window, "WM_NORMAL_HINTS", {3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
             XCB_ATOM_WM_SIZE_HINTS);
    const std::string name = "tilebay";
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, probe.window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(name.size()), name.data());
    xcb_map_window(xcb, probe.window);
  }
  turns_ = 0;
  sinceProbes_.start();
  timer_.start(settleInterval);
  connection_->flush();
}

void X11WindowManager::endProbes() {
  timer_.stop();
  for (Probe& probe : probes_)
    if (const auto window = std::exchange(probe.window, xcb_window_t{XCB_WINDOW_NONE}); window != XCB_WINDOW_NONE)
      xcb_destroy_window(connection_->xcb(), window);
  connection_->flush();
}

void X11WindowManager::handle(const xcb_generic_event_t& event) {
  if ((event.response_type & 0x7f) != XCB_PROPERTY_NOTIFY) return;
  const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
  if (change.window == connection_->root() && (change.atom == connection_->atom("_NET_SUPPORTING_WM_CHECK") ||
                                               change.atom == connection_->atom("_NET_SUPPORTED")))
    refresh();
}

bool X11WindowManager::areProbesShown() const {
  return std::ranges::all_of(probes_, [this](const Probe& probe) { return connection_->isViewable(probe.window); });
}

void X11WindowManager::lookAgain() {
  const bool areShown = areProbesShown();
  // Once more after both are there: the last one mapped has had its time to be moved.
  const bool isLastLook = turns_ >= mostTurns;
  turns_ = areShown ? mostTurns : turns_ + 1;
  if (isLastLook)
    judge();
  else
    timer_.start(settleInterval);
}

void X11WindowManager::judgeEarly() {
  if (timer_.isActive() && sinceProbes_.hasExpired(settleInterval) && areProbesShown()) judge();
}

void X11WindowManager::judge() {
  xcb_connection_t* xcb = connection_->xcb();
  // A frame may leave the window itself exactly where it was asked to be.
  const xcb_atom_t extents = connection_->atom("_NET_FRAME_EXTENTS");
  for (Probe& probe : probes_) {
    const XcbPtr<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, probe.window), nullptr));
    const XcbPtr<xcb_translate_coordinates_reply_t> corner(xcb_translate_coordinates_reply(
        xcb, xcb_translate_coordinates(xcb, probe.window, connection_->root(), 0, 0), nullptr));
    probe.isMisplaced = !connection_->isViewable(probe.window) || !geometry || !corner || geometry->border_width != 0 ||
                        geometry->width != probeWidth || geometry->height != probeHeight ||
                        corner->dst_x != connection_->screen().width_in_pixels / 3 ||
                        corner->dst_y != connection_->screen().height_in_pixels / 3 ||
                        std::ranges::any_of(connection_->numbers(probe.window, extents), std::identity());
  }
  connection_->repliesWereRead();
  const auto probes = probes_;
  endProbes();
  for (const Probe& probe : probes) set(probe.role, !probe.isMisplaced);
}

}  // namespace ambrel
