#pragma once
// A bar that is driven as a user does it, and watched from outside: made-up keys and pointer, and the times at which
// one of its windows is mapped and painted.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <poll.h>
#include <signal.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

using Clock = std::chrono::steady_clock;
using Time = Clock::time_point;
using std::chrono::milliseconds;

inline double millisecondsBetween(Time from, Time to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

namespace keysym {
constexpr xcb_keysym_t super = 0xFFEB, alt = 0xFFE9, escape = 0xFF1B, right = 0xFF53, pageDown = 0xFF56, home = 0xFF50,
                       end = 0xFF57, backspace = 0xFF08, tab = 0xFF09, enter = 0xFF0D, control = 0xFFE3;
}

// Keys, the pointer, and the times at which one window is mapped and painted.
class Desk {
 public:
  // `title`: of the window.
  explicit Desk(std::string title) : xcb_(xcb_connect(nullptr, nullptr)), title_(std::move(title)) {
    if (xcb_connection_has_error(xcb_)) throw std::runtime_error("no display");
    const xcb_setup_t* setup = xcb_get_setup(xcb_);
    root_ = xcb_setup_roots_iterator(setup).data->root;
    const auto* damage = xcb_get_extension_data(xcb_, &xcb_damage_id);
    const auto* test = xcb_get_extension_data(xcb_, &xcb_test_id);
    if (!damage || !damage->present || !test || !test->present)
      throw std::runtime_error("the display has no damage reports or no made-up input");
    damaged_ = damage->first_event + XCB_DAMAGE_NOTIFY;
    std::free(xcb_damage_query_version_reply(xcb_, xcb_damage_query_version(xcb_, 1, 1), nullptr));
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(xcb_, root_, XCB_CW_EVENT_MASK, &events);
    readKeys(setup);
    xcb_flush(xcb_);
  }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  ~Desk() { xcb_disconnect(xcb_); }

  void press(std::initializer_list<xcb_keysym_t> keys) {
    for (const auto key : keys) fake(XCB_KEY_PRESS, keys_.at(key));
    for (auto key = std::rbegin(keys); key != std::rend(keys); ++key) fake(XCB_KEY_RELEASE, keys_.at(*key));
    xcb_flush(xcb_);
  }
  void hold(xcb_keysym_t key, bool isDown) {
    fake(isDown ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keys_.at(key));
    xcb_flush(xcb_);
  }
  void turnWheel(bool forward) {
    const std::uint8_t button = forward ? 5 : 4;
    fake(XCB_BUTTON_PRESS, button);
    fake(XCB_BUTTON_RELEASE, button);
    xcb_flush(xcb_);
  }
  void movePointer(std::int16_t x, std::int16_t y) {
    xcb_test_fake_input(xcb_, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, root_, x, y, 0);
    xcb_flush(xcb_);
  }
  std::int16_t width() const {
    return static_cast<std::int16_t>(xcb_setup_roots_iterator(xcb_get_setup(xcb_)).data->width_in_pixels);
  }

  // Takes in what has happened until then, or until `isEnough`.
  bool watch(
      Time until, const std::function<bool()>& isEnough = [] { return false; }) {
    for (;;) {
      while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(xcb_), &std::free}) take(*event);
      if (isEnough()) return true;
      const auto left = std::chrono::ceil<milliseconds>(until - Clock::now()).count();
      if (left <= 0) return false;
      pollfd wait{xcb_get_file_descriptor(xcb_), POLLIN, 0};
      poll(&wait, 1, static_cast<int>(left));
    }
  }
  void forget() {
    watch(Clock::now());
    mapped_.reset();
    unmapped_.reset();
    frames_.clear();
  }
  // Until the window has not been painted for that long.
  void rest(milliseconds quiet) {
    while (true) {
      const std::size_t before = frames_.size();
      watch(Clock::now() + quiet);
      if (frames_.size() == before) return;
    }
  }

  const std::optional<Time>& mapped() const { return mapped_; }
  const std::optional<Time>& unmapped() const { return unmapped_; }
  // One for each picture that was put on the screen; what comes within two milliseconds belongs together.
  const std::vector<Time>& frames() const { return frames_; }

 private:
  void fake(std::uint8_t type, std::uint8_t detail) {
    xcb_test_fake_input(xcb_, type, detail, XCB_CURRENT_TIME, root_, 0, 0, 0);
  }

  void readKeys(const xcb_setup_t* setup) {
    const int count = setup->max_keycode - setup->min_keycode + 1;
    const Reply<xcb_get_keyboard_mapping_reply_t> map{
        xcb_get_keyboard_mapping_reply(
            xcb_, xcb_get_keyboard_mapping(xcb_, setup->min_keycode, static_cast<std::uint8_t>(count)), nullptr),
        &std::free};
    if (!map) throw std::runtime_error("the display has no keys");
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(map.get());
    for (int i = 0; i < count; ++i)
      keys_.emplace(symbols[i * map->keysyms_per_keycode], static_cast<std::uint8_t>(setup->min_keycode + i));
  }

  bool isWatched(xcb_window_t window) {
    const Reply<xcb_get_property_reply_t> name{
        xcb_get_property_reply(
            xcb_, xcb_get_property(xcb_, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 64), nullptr),
        &std::free};
    return name && std::string_view(static_cast<const char*>(xcb_get_property_value(name.get())),
                                    static_cast<std::size_t>(xcb_get_property_value_length(name.get()))) == title_;
  }

  void take(const xcb_generic_event_t& event) {
    const Time now = Clock::now();
    const int type = event.response_type & 0x7F;
    if (type == XCB_CREATE_NOTIFY) {
      // Window managers put it into a frame of theirs; the root window then tells nothing of it.
      const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
      const xcb_window_t window = reinterpret_cast<const xcb_create_notify_event_t&>(event).window;
      xcb_change_window_attributes(xcb_, window, XCB_CW_EVENT_MASK, &events);
      xcb_flush(xcb_);
    } else if (type == XCB_MAP_NOTIFY) {
      const xcb_window_t window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
      if (window != watched_ && !isWatched(window)) return;
      if (window != watched_) {
        watched_ = window;
        xcb_damage_create(xcb_, xcb_generate_id(xcb_), window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(xcb_);
      }
      mapped_ = now;
    } else if (type == XCB_UNMAP_NOTIFY) {
      if (reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window == watched_) unmapped_ = now;
    } else if (type == damaged_) {
      if (reinterpret_cast<const xcb_damage_notify_event_t&>(event).drawable != watched_) return;
      if (!frames_.empty() && now - lastDamage_ < milliseconds(2))
        lastDamage_ = now;
      else
        frames_.push_back(lastDamage_ = now);
    }
  }

  xcb_connection_t* xcb_;
  xcb_window_t root_ = 0, watched_ = 0;
  int damaged_ = 0;
  std::string title_;
  std::map<xcb_keysym_t, std::uint8_t> keys_;
  std::optional<Time> mapped_, unmapped_;
  std::vector<Time> frames_;
  Time lastDamage_;
};

class Bar {
 public:
  explicit Bar(char** command) : pid_(fork()) {
    if (pid_ != 0) return;
    execvp(command[0], command);
    _exit(127);
  }
  Bar(const Bar&) = delete;
  Bar& operator=(const Bar&) = delete;
  ~Bar() {
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
  }
  // MiB
  double proportionalSet() const { return field("smaps_rollup", "Pss:"); }
  double peak() const { return field("status", "VmHWM:"); }

 private:
  double field(const std::string& file, const std::string& key) const {
    std::ifstream in("/proc/" + std::to_string(pid_) + "/" + file);
    for (std::string line; std::getline(in, line);)
      if (line.starts_with(key)) return std::atof(line.c_str() + key.size()) / 1024;
    return 0;
  }
  pid_t pid_;
};

inline double at(std::vector<double> values, double share) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[std::min(values.size() - 1, static_cast<std::size_t>(share * static_cast<double>(values.size())))];
}

inline bool isWithin(const char* what, double value, double budget, const char* unit) {
  std::printf("%-58s %7.1f %s, budget %.0f: %s\n", what, value, unit, budget, value <= budget ? "kept" : "MISSED");
  return value <= budget;
}

// The main function of a measurement: "NAME [--rounds N] PROGRAM...". `measure` gives the status to end with.
inline int measured(const char* name, int count, char** words, int (*measure)(Bar& bar, int rounds)) try {
  int rounds = 7, first = 1;
  if (count > 2 && std::strcmp(words[1], "--rounds") == 0) {
    rounds = std::max(1, std::atoi(words[2]));
    first = 3;
  }
  if (first >= count) return std::fprintf(stderr, "usage: %s [--rounds N] PROGRAM...\n", name), 2;
  Bar bar(words + first);
  return measure(bar, rounds);
} catch (const std::exception& error) {
  std::fprintf(stderr, "%s: %s\n", name, error.what());
  return 1;
}
