#pragma once
// Everything that the models of focus and wellbeing are given, in a test's own folder and time.

#include "app/focus/FocusModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakePlatform.h"

namespace ambrel {

struct FocusRoom {
  explicit FocusRoom(const char* start = "2026-11-20T09:00:00Z") : clock(*parseISO8601(start)) {}

  FocusSeams seams() {
    return {.defaults = defaults,
            .calendar = Calendar("Europe/Berlin", "en_GB"),
            .notifications = notifications,
            .sounds = sounds,
            .now = [this] { return clock.now(); }};
  }
  // As in the model's panel.
  void choose(FocusModel& model, const char* key, std::int64_t value) {
    defaults.set(key, DefaultsValue{value});
    model.reload();
  }
  // What a next start of the program would read.
  UserDefaults stored() const { return UserDefaults(folder / "defaults.json"); }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  FakeClock clock;
  FakeNotifications notifications;
  FakeSounds sounds;
};

// As DueTimer does, without its queue: the model acts when its time has come.
template <typename Model>
void passUntilDue(FocusRoom& room, Model& model) {
  room.clock.set(std::max(room.clock.now(), *model.due()));
  model.tick(room.clock.now());
}

}  // namespace ambrel
