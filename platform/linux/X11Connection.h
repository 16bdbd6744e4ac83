#pragma once
// Our own connection to the X server. It keeps our requests and events apart from the toolkit's, so a moving pointer
// or a property change wakes nobody who did not ask.

#include <QObject>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>
#include <xcb/xcb.h>

class QSocketNotifier;

namespace ambrel {

// What xcb hands out has to be freed with free().
struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using XcbPtr = std::unique_ptr<T, FreeDeleter>;

// A watch over the events of the connection; ends with its owner.
class X11Watch {
 public:
  X11Watch() = default;
  explicit X11Watch(std::shared_ptr<void> token) : token_(std::move(token)) {}

 private:
  std::shared_ptr<void> token_;
};

class X11Connection : public QObject {
 public:
  // `display` as in DISPLAY. Null when there is no such X server.
  static std::unique_ptr<X11Connection> open(const std::string& display);
  ~X11Connection() override;

  xcb_connection_t* xcb() const { return connection_; }
  xcb_window_t root() const { return screen_->root; }
  const xcb_screen_t& screen() const { return *screen_; }
  int screenNumber() const { return screenNumber_; }

  // The number of an atom, asked of the server once. XCB_ATOM_NONE only when the connection is lost.
  xcb_atom_t atom(const char* name);

  // The raw bytes of a property; empty when it is not there. At most a mebibyte.
  std::string property(xcb_window_t window, xcb_atom_t property);
  // The same for many windows in one round trip.
  std::vector<std::string> properties(const std::vector<xcb_window_t>& windows, xcb_atom_t property);
  // A property of 32-bit numbers.
  std::vector<std::uint32_t> numbers(xcb_window_t window, xcb_atom_t property);

  // The process that a window says it is of.
  std::optional<int> processOf(xcb_window_t window);

  // Whether it and all around it are mapped.
  bool isViewable(xcb_window_t window);

  // The window that has the keyboard, as the server knows it: also the root window, XCB_INPUT_FOCUS_POINTER_ROOT or
  // XCB_WINDOW_NONE.
  xcb_window_t focused();

  // Whether the server has its windows in a Wayland session (XWayland): of the pointer and the keyboard it knows no
  // more than what goes on in these.
  bool isGuestOfWayland();

  // The server's present time, by a round trip.
  xcb_timestamp_t serverTime();

  // Which changes of the root window the server reports; each call adds to the mask.
  void selectRootEvents(std::uint32_t mask);

  // `handler` sees every event, on the main thread.
  [[nodiscard]] X11Watch watch(std::function<void(const xcb_generic_event_t&)> handler);

  void flush();
  // To be called after waiting for a reply by plain xcb calls: events that came along with it are handed out soon.
  void repliesWereRead();
  bool isBroken() const { return xcb_connection_has_error(connection_) != 0; }

 private:
  using Handler = std::function<void(const xcb_generic_event_t&)>;

  X11Connection(xcb_connection_t* connection, int screenNumber);
  void handOutEvents();
  void dispatch(const xcb_generic_event_t& event);

  xcb_connection_t* connection_;
  xcb_screen_t* screen_ = nullptr;
  int screenNumber_;
  std::optional<bool> isGuest_;
  std::uint32_t rootMask_ = 0;
  xcb_window_t helperWindow_ = XCB_WINDOW_NONE;
  QSocketNotifier* notifier_ = nullptr;
  bool isHandOutPlanned_ = false;
  std::unordered_map<std::string, xcb_atom_t> atoms_;
  std::vector<std::weak_ptr<Handler>> handlers_;
  std::deque<XcbPtr<xcb_generic_event_t>> waiting_;  // read while looking for another one
};

std::vector<std::uint32_t> numbersFromBytes(const std::string& bytes);

}  // namespace ambrel
