#pragma once
// Time that stands still until the test moves it, and sounds that are written down.

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/Sounds.h"
#include "platform/TimeZone.h"
#include "platform/WallClock.h"
#include "tests/fakes/Told.h"

namespace ambrel {

class FakeTimeZone : public Told<TimeZone> {
 public:
  std::string name() const override { return zone_; }
  void set(std::string zone) {
    change([&] { zone_ = std::move(zone); });
  }

 private:
  std::string zone_ = "UTC";
};

class FakeClock : public WallClock {
 public:
  explicit FakeClock(Instant start) { reading_.now = start; }

  Reading read() const override { return reading_; }
  void wakeAt(std::optional<Instant> time, std::function<void()> handler) override {
    wakeTime = time;
    handler_ = std::move(handler);
  }

  Instant now() const { return reading_.now; }
  // Time passes; whoever asked to be woken within it is not, until `ring`.
  void pass(Seconds span) {
    reading_.now = advanced(reading_.now, span);
    reading_.sinceBoot += span;
  }
  void sleep(Seconds span) {
    pass(span);
    reading_.slept += span;
  }
  void set(Instant time) { reading_.now = time; }
  void ring() {
    if (auto handler = handler_) handler();
  }
  // Time passes until then, and whoever asked for it is woken. `settle` carries out what is queued before each look.
  void runUntil(Instant end, const std::function<void()>& settle) {
    for (settle(); wakeTime && *wakeTime <= end; settle()) {
      pass(std::max(Seconds(0), secondsBetween(now(), *wakeTime)));
      ring();
    }
    pass(secondsBetween(now(), end));
  }

  std::optional<Instant> wakeTime;

 private:
  Reading reading_;
  std::function<void()> handler_;
};

class FakeSounds : public Sounds {
 public:
  void play(std::string_view name) override { heard.emplace_back("play " + std::string(name)); }
  void loop(std::string_view name) override { heard.emplace_back("loop " + std::string(name)); }
  void stop() override { heard.emplace_back("stop"); }

  std::vector<std::string> heard;
};

}  // namespace ambrel
