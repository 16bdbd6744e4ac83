// How soon the shelf of the clipboard shows, and how evenly it moves: starts the bar, presses keys and turns the wheel
// as a user does, and watches from outside when the shelf's window is mapped and painted.
//
//   ClipShelf [--rounds N] PROGRAM...
//
// Needs a display of its own with a window manager, and a home with a clipboard history (ClipHome). Ends with 1 when a
// budget is missed.

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
#include <thread>
#include <unistd.h>
#include <vector>
#include <xcb/damage.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

namespace {

using Clock = std::chrono::steady_clock;
using Time = Clock::time_point;
using std::chrono::milliseconds;

double millisecondsBetween(Time from, Time to) { return std::chrono::duration<double, std::milli>(to - from).count(); }

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

namespace keysym {
constexpr xcb_keysym_t super = 0xFFEB, alt = 0xFFE9, escape = 0xFF1B, right = 0xFF53, pageDown = 0xFF56, home = 0xFF50,
                       end = 0xFF57, backspace = 0xFF08;
}

// Keys, the pointer, and the times at which one window is mapped and painted.
class Desk {
 public:
  Desk() : xcb_(xcb_connect(nullptr, nullptr)) {
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
  // Until the shelf has not been painted for that long.
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

  bool isShelf(xcb_window_t window) {
    constexpr std::string_view title = "Clipboard";
    const Reply<xcb_get_property_reply_t> name{
        xcb_get_property_reply(
            xcb_, xcb_get_property(xcb_, 0, window, XCB_ATOM_WM_NAME, XCB_GET_PROPERTY_TYPE_ANY, 0, 64), nullptr),
        &std::free};
    return name && std::string_view(static_cast<const char*>(xcb_get_property_value(name.get())),
                                    static_cast<std::size_t>(xcb_get_property_value_length(name.get()))) == title;
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
      if (window != shelf_ && !isShelf(window)) return;
      if (window != shelf_) {
        shelf_ = window;
        xcb_damage_create(xcb_, xcb_generate_id(xcb_), window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
        xcb_flush(xcb_);
      }
      mapped_ = now;
    } else if (type == XCB_UNMAP_NOTIFY) {
      if (reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window == shelf_) unmapped_ = now;
    } else if (type == damaged_) {
      if (reinterpret_cast<const xcb_damage_notify_event_t&>(event).drawable != shelf_) return;
      if (!frames_.empty() && now - lastDamage_ < milliseconds(2))
        lastDamage_ = now;
      else
        frames_.push_back(lastDamage_ = now);
    }
  }

  xcb_connection_t* xcb_;
  xcb_window_t root_ = 0, shelf_ = 0;
  int damaged_ = 0;
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

double at(std::vector<double> values, double share) {
  if (values.empty()) return 0;
  std::sort(values.begin(), values.end());
  return values[std::min(values.size() - 1, static_cast<std::size_t>(share * static_cast<double>(values.size())))];
}

struct Opening {
  double mapped = 0, painted = 0, rested = 0;  // milliseconds after the key
};

Opening open(Desk& desk) {
  desk.forget();
  const Time start = Clock::now();
  desk.press({keysym::super, keysym::alt, 'v'});
  const auto isPainted = [&] { return desk.mapped() && !desk.frames().empty(); };
  if (!desk.watch(start + std::chrono::seconds(10), isPainted)) throw std::runtime_error("the shelf does not open");
  desk.rest(milliseconds(300));
  return {millisecondsBetween(start, *desk.mapped()), millisecondsBetween(start, desk.frames().front()),
          millisecondsBetween(start, desk.frames().back())};
}

void close(Desk& desk) {
  desk.forget();
  desk.press({keysym::escape});
  if (!desk.watch(Clock::now() + std::chrono::seconds(5), [&] { return desk.unmapped().has_value(); }))
    throw std::runtime_error("the shelf does not close");
  desk.watch(Clock::now() + milliseconds(400));
}

bool isWithin(const char* what, double value, double budget, const char* unit) {
  std::printf("%-58s %7.1f %s, budget %.0f: %s\n", what, value, unit, budget, value <= budget ? "kept" : "MISSED");
  return value <= budget;
}

// Acts at a steady pace for a while; how far apart the frames were meanwhile.
std::vector<double> framesWhile(Desk& desk, milliseconds pace, milliseconds length, const std::function<void()>& act) {
  desk.forget();
  const Time start = Clock::now();
  for (Time next = start; next < start + length; next += pace) {
    act();
    desk.watch(next + pace);
  }
  std::vector<double> apart;
  for (std::size_t i = 1; i < desk.frames().size(); ++i)
    apart.push_back(millisecondsBetween(desk.frames()[i - 1], desk.frames()[i]));
  return apart;
}

// Between the frames while a key is held, from when the keyboard repeats it.
std::vector<double> framesWhileHeld(Desk& desk, xcb_keysym_t key, milliseconds length) {
  desk.hold(key, true);
  desk.watch(Clock::now() + milliseconds(1000));
  std::vector<double> apart = framesWhile(desk, length, length, [] {});
  desk.hold(key, false);
  return apart;
}

bool report(const char* what, const std::vector<double>& apart, double smooth = 34) {
  constexpr double longest = 100;
  std::printf("%s: %zu frames, median %.1f ms apart\n", what, apart.size(), at(apart, 0.5));
  const bool isSmooth = isWithin("  99 of 100 are at most this far apart", at(apart, 0.99), smooth, "ms");
  return isWithin("  the longest pause", at(apart, 1), longest, "ms") && isSmooth;
}

// From a key to the first frame that follows it.
double answer(Desk& desk, xcb_keysym_t key) {
  desk.rest(milliseconds(200));
  desk.forget();
  const Time start = Clock::now();
  desk.press({key});
  if (!desk.watch(start + std::chrono::seconds(5), [&] { return !desk.frames().empty(); })) return 5000;
  return millisecondsBetween(start, desk.frames().front());
}

int measure(Bar& bar, int rounds) {
  Desk desk;
  // The bar has to come up and to read its library.
  std::this_thread::sleep_for(std::chrono::seconds(6));
  desk.movePointer(8, 500);
  const double before = bar.proportionalSet();
  bool isKept = true;

  const Opening first = open(desk);
  std::printf("first opening: mapped after %.0f ms, painted after %.0f ms, at rest after %.0f ms\n", first.mapped,
              first.painted, first.rested);
  isKept = isWithin("the first opening is painted after", first.painted, 250, "ms") && isKept;
  close(desk);
  std::vector<double> mapped, painted, rested;
  for (int i = 0; i < rounds; ++i) {
    const Opening next = open(desk);
    mapped.push_back(next.mapped);
    painted.push_back(next.painted);
    rested.push_back(next.rested);
    close(desk);
  }
  std::printf("later openings: mapped after %.0f ms, painted after %.0f ms, at rest after %.0f ms\n", at(mapped, 0.5),
              at(painted, 0.5), at(rested, 0.5));
  isKept = isWithin("a later opening is painted after", at(painted, 0.5), 100, "ms") && isKept;

  open(desk);
  const double opened = bar.proportionalSet();
  desk.movePointer(static_cast<std::int16_t>(desk.width() / 2), 150);
  desk.rest(milliseconds(300));
  const auto wheel = [&](bool forward, int seconds) {
    const auto apart =
        framesWhile(desk, milliseconds(25), std::chrono::seconds(seconds), [&] { desk.turnWheel(forward); });
    desk.rest(milliseconds(300));
    return apart;
  };
  isKept = report("the wheel, 40 clicks a second", wheel(true, 6)) && isKept;
  isKept = report("the wheel back", wheel(false, 3)) && isKept;
  const auto keys = [&](xcb_keysym_t key) {
    const auto apart = framesWhile(desk, milliseconds(33), std::chrono::seconds(4), [&] { desk.press({key}); });
    desk.rest(milliseconds(300));
    return apart;
  };
  isKept = report("the arrow key, 30 times a second", keys(keysym::right)) && isKept;
  isKept = report("a page, 30 times a second", keys(keysym::pageDown)) && isKept;
  // The server repeats every 40 ms.
  constexpr double repeated = 60;
  const auto held = [&](xcb_keysym_t key) {
    const auto apart = framesWhileHeld(desk, key, std::chrono::seconds(3));
    desk.rest(milliseconds(300));
    return apart;
  };
  isKept = report("the arrow key held", held(keysym::right), repeated) && isKept;
  isKept = report("page down held", held(keysym::pageDown), repeated) && isKept;
  isKept = isWithin("the last clip is painted after", answer(desk, keysym::end), 100, "ms") && isKept;
  isKept = isWithin("the first clip is painted after", answer(desk, keysym::home), 100, "ms") && isKept;
  double letter = 0;
  for (const char key : {'t', 'h', 'u', 'r'}) letter = std::max(letter, answer(desk, static_cast<xcb_keysym_t>(key)));
  isKept = isWithin("a letter of a search is painted after", letter, 50, "ms") && isKept;
  for (int i = 0; i < 4; ++i) letter = std::max(letter, answer(desk, keysym::backspace));

  const double after = bar.proportionalSet();
  std::printf("proportional set: %.1f MiB before the first opening, %.1f open, %.1f after all of this; peak %.1f\n",
              before, opened, after, bar.peak());
  isKept = isWithin("the proportional set stays below", after, 128, "MiB") && isKept;
  desk.press({keysym::escape});
  return isKept ? 0 : 1;
}

}  // namespace

int main(int count, char** words) try {
  int rounds = 7, first = 1;
  if (count > 2 && std::strcmp(words[1], "--rounds") == 0) {
    rounds = std::max(1, std::atoi(words[2]));
    first = 3;
  }
  if (first >= count) return std::fputs("usage: ClipShelf [--rounds N] PROGRAM...\n", stderr), 2;
  Bar bar(words + first);
  return measure(bar, rounds);
} catch (const std::exception& error) {
  std::fprintf(stderr, "ClipShelf: %s\n", error.what());
  return 1;
}
