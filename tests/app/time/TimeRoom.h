#pragma once
// The area of time with a clock, a zone and choices that the test plays.

#include <QCoreApplication>

#include "app/time/TimeArea.h"
#include "tests/TemporaryFolder.h"
#include "tests/Time.h"
#include "tests/fakes/FakeClock.h"

namespace ambrel {

struct TimeRoom {
  explicit TimeRoom(const char* start = "2026-11-22T13:30:33Z", const char* locale = "en_GB")
      : clock(at(start)), calendar(Calendar("Europe/Berlin", locale)) {
    const auto widgets = allCases<DockWidget>();
    show({widgets.begin(), widgets.end()});
  }

  TimeSeams seams() {
    return {.defaults = defaults, .calendar = calendar, .now = [this] { return clock.now(); }};
  }
  void show(std::set<DockWidget> widgets, bool areSeen = true) {
    area.widgetsChanged(widgets, areSeen, clock.now());
    settle();
  }
  // Sleeps until the next wake.
  void wake() {
    clock.pass(secondsBetween(clock.now(), *clock.wakeTime));
    clock.set(*clock.wakeTime);
    clock.ring();
    settle();
  }
  void beIn(const char* zone) {
    calendar.replace(Calendar(zone, calendar().locale()));
    due.zoneChanged();
    settle();
  }
  // The timer waits for what is queued.
  static void settle() { QCoreApplication::processEvents(); }
  UserDefaults stored() const { return UserDefaults(folder / "defaults.json"); }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  FakeClock clock;
  PresentCalendar calendar;
  DueTimer due{clock};
  TimeArea area{seams(), due};
};

}  // namespace ambrel
