// How soon a capture of the screen is to be seen after the key, and what ten captures weigh.
//
//   NotesCapture [--rounds N] PROGRAM...
//
// Needs a display of its own with a window manager, as large as the screen that counts (3840x2160). Ends with 1 when a
// budget is missed.

#include <thread>

#include "bench/WatchedDesk.h"

namespace {

constexpr std::initializer_list<xcb_keysym_t> captureKeys = {keysym::control, keysym::super, keysym::alt, 'n'};
constexpr int captures = 10;

double capture(Desk& desk) {
  desk.forget();
  const Time start = Clock::now();
  desk.press(captureKeys);
  const auto isPainted = [&] { return desk.mapped() && !desk.frames().empty(); };
  if (!desk.watch(start + std::chrono::seconds(10), isPainted)) throw std::runtime_error("the review does not open");
  const double painted = millisecondsBetween(start, desk.frames().front());
  desk.rest(milliseconds(300));
  return painted;
}

// Escape asks, and the second button closes.
void close(Desk& desk) {
  desk.forget();
  for (const xcb_keysym_t key : {keysym::escape, keysym::tab, keysym::enter}) {
    desk.press({key});
    desk.rest(milliseconds(150));
  }
  if (!desk.watch(Clock::now() + std::chrono::seconds(5), [&] { return desk.unmapped().has_value(); }))
    throw std::runtime_error("the review does not close");
  desk.watch(Clock::now() + milliseconds(400));
}

int measure(Bar& bar, int rounds) {
  Desk desk("Screen Notes");
  std::this_thread::sleep_for(std::chrono::seconds(4));
  desk.movePointer(8, 500);
  const double before = bar.proportionalSet();
  std::vector<double> painted;
  for (int i = 0; i < rounds; ++i) {
    painted.push_back(capture(desk));
    close(desk);
  }
  bool isKept = isWithin("a capture is painted after", at(painted, 0.5), 150, "ms");
  capture(desk);
  for (int i = 1; i < captures; ++i) {
    desk.press(captureKeys);
    desk.rest(milliseconds(1500));
  }
  const double after = bar.proportionalSet();
  std::printf("proportional set: %.1f MiB before, %.1f with %d captures; peak %.1f\n", before, after, captures,
              bar.peak());
  isKept = isWithin("ten captures take", after - before, 200, "MiB") && isKept;
  return isKept ? 0 : 1;
}

}  // namespace

int main(int count, char** words) { return measured("NotesCapture", count, words, measure); }
