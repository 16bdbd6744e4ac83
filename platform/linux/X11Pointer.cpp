#include "platform/linux/X11Pointer.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <utility>
#include <xcb/xinput.h>

#include "platform/linux/ClearStrip.h"

namespace ambrel {
namespace {

// XInput 2.1 and later reports raw motion even while another program has grabbed the pointer.
std::uint8_t rawMotionExtension(X11Connection& connection) {
  const auto* extension = xcb_get_extension_data(connection.xcb(), &xcb_input_id);
  if (!extension || !extension->present) return 0;
  xcb_generic_error_t* error = nullptr;
  const XcbPtr<xcb_input_xi_query_version_reply_t> version(
      xcb_input_xi_query_version_reply(connection.xcb(), xcb_input_xi_query_version(connection.xcb(), 2, 2), &error));
  std::free(error);
  connection.repliesWereRead();
  return version && version->major_version >= 2 ? extension->major_opcode : std::uint8_t{0};
}

double mainHeight() {
  const QRect frame = QGuiApplication::primaryScreen()->geometry();
  return frame.y() + frame.height();
}

QRect toQRect(const Rect& rect) { return QRectF(rect.x, rect.y, rect.width, rect.height).toAlignedRect(); }

}  // namespace

X11Pointer::X11Pointer(X11Connection* connection) : connection_(connection) {
  if (!connection_) return;
  extension_ = rawMotionExtension(*connection_);
  if (extension_ == 0) return;
  isGuest_ = connection_->isGuestOfWayland();
  watch_ = connection_->watch([this](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7f) != XCB_GE_GENERIC) return;
    const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
    if (generic.extension != extension_) return;
    if (generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
      const auto& press = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event);
      // Those after the third are the wheel's.
      const auto onPress = onPress_;
      if (onPress && press.detail <= 3) onPress();
      return;
    }
    // The root window is entered when the pointer leaves the windows of X11. When one of them is shown after that, the
    // server takes the pointer to be where it was last; it has come back only when it moves.
    if (generic.event_type != XCB_INPUT_RAW_MOTION && generic.event_type != XCB_INPUT_ENTER) return;
    isElsewhere_ = generic.event_type == XCB_INPUT_ENTER;
    // Those that were on their way when listening stopped find nobody waiting.
    auto onMove = std::exchange(onMove_, nullptr);
    if (!onMove) return;
    listen();
    onMove();
  });
  if (isGuest_) listen();
}

X11Pointer::~X11Pointer() = default;

std::optional<Point> X11Pointer::location() const {
  if (!connection_ || connection_->isBroken() || !QGuiApplication::primaryScreen()) return std::nullopt;
  if (isElsewhere_) return beyondAllScreens;
  const QPoint position = QCursor::pos();
  return flipped(Point{double(position.x()), double(position.y())}, mainHeight());
}

void X11Pointer::setStrips(std::vector<Rect> strips) {
  if (!isGuest_ || strips == strips_ || !QGuiApplication::primaryScreen()) return;
  strips_ = std::move(strips);
  windows_.clear();
  constexpr Qt::WindowFlags flags =
      Qt::ToolTip | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus;
  for (const Rect& strip : strips_) {
    windows_.push_back(std::make_unique<ClearStrip>(flags, toQRect(flipped(strip, mainHeight()))));
    windows_.back()->show();
  }
}

bool X11Pointer::isPressed() const {
  if (!connection_ || connection_->isBroken()) return false;
  const XcbPtr<xcb_query_pointer_reply_t> reply(
      xcb_query_pointer_reply(connection_->xcb(), xcb_query_pointer(connection_->xcb(), connection_->root()), nullptr));
  connection_->repliesWereRead();
  constexpr unsigned buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
  return reply && (reply->mask & buttons) != 0;
}

bool X11Pointer::wakeOnMove(std::function<void()> onMove) {
  if (extension_ == 0 || connection_->isBroken()) return false;
  if (!std::exchange(onMove_, std::move(onMove))) listen();
  return true;
}

void X11Pointer::stopWaiting() {
  if (std::exchange(onMove_, nullptr)) listen();
}

void X11Pointer::setPressHandler(std::function<void()> onPress) {
  onPress_ = std::move(onPress);
  if (extension_ != 0 && !connection_->isBroken()) listen();
}

void X11Pointer::listen() {
  // As a guest the server tells of little enough to hear all of it.
  const std::uint32_t leaving = isGuest_ ? XCB_INPUT_XI_EVENT_MASK_ENTER : 0,
                      motion = onMove_ || isGuest_ ? XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | leaving : 0,
                      press = onPress_ ? XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS : 0;
  struct {
    xcb_input_event_mask_t head;
    std::uint32_t mask;
  } request{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, motion | press};
  xcb_input_xi_select_events(connection_->xcb(), connection_->root(), 1, &request.head);
  connection_->flush();
}

}  // namespace ambrel
