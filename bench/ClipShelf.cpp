// How soon the shelf of the clipboard shows, and how evenly it moves: starts the bar, presses keys and turns the wheel
// as a user does, and watches from outside when the shelf's window is mapped and painted.
//
//   ClipShelf [--rounds N] PROGRAM...
//
// Needs a display of its own with a window manager, and a home with a clipboard history (ClipHome). Ends with 1 when a
// budget is missed.

#include <functional>
#include <thread>

#include "bench/WatchedDesk.h"

namespace {

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
  Desk desk("Clipboard");
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

int main(int count, char** words) { return measured("ClipShelf", count, words, measure); }
