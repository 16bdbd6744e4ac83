#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/focus/AlarmClock.h"
#include "app/focus/BreakReminder.h"
#include "app/focus/BreathingExercise.h"
#include "app/focus/HabitStore.h"
#include "app/focus/MoodLog.h"
#include "app/focus/PomodoroTimer.h"
#include "app/focus/QuickTimer.h"
#include "app/focus/Stopwatch.h"
#include "app/focus/WaterTracker.h"
#include "tests/app/focus/FocusRoom.h"

namespace ambrel {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

class FocusModelsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aPhaseThatEndsIsCountedStoredSoundedAndTold();
  void aRestartStopsThePhaseAndKeepsTheCounts();
  void theFocusTimerShowsANewDayAtMidnight();
  void lengthsAreStoredWithinTheirLimits();
  void aGlassMovesTheOneReminder();
  void aReminderThatWasDueComesAMinuteAfterTheStart();
  void aMetGoalIsRemindedOfAgainTheNextMorning();
  void aClockThatIsSetMovesTheLastGlassToo();
  void waterWithoutATileRemindsNobody();
  void theStopwatchShowsWholeSeconds();
  void theQuickTimerTellsOnce();
  void aBreakThatIsNotWantedIsPassedOver();
  void aDueBreakIsToldAndTakenBack();
  void anEyeBreakIsCountedAndStored();
  void theAlarmRingsUntilItIsSnoozed();
  void aMissedAlarmMakesNoSound();
  void anAlarmThatOnlyTheNewZoneHasPassedIsNotMissed();
  void breathingGoesStepByStep();
  void habitsAreKeptInTheirFile();
  void aDamagedHabitFileIsLogged();
  void moodsAreKeptByTheDay();
};

void FocusModelsTests::aPhaseThatEndsIsCountedStoredSoundedAndTold() {
  FocusRoom room;
  PomodoroTimer timer(room.seams());
  std::vector<PomodoroPhase> ended;
  timer.onPhaseEnded = [&](PomodoroPhase phase) { ended.push_back(phase); };
  QSignalSpy due(&timer, &TimedModel::dueChanged);
  timer.toggle();
  QCOMPARE(due.count(), 1);
  QCOMPARE(timer.remaining(), QStringLiteral("25:00"));
  room.clock.pass(minutes(10));
  timer.update();
  QCOMPARE(timer.remaining(), QStringLiteral("15:00"));
  QCOMPARE(timer.percentLeft(), 60.0);
  QVERIFY(timer.isFocusRunning());

  passUntilDue(room, timer);
  QCOMPARE(room.clock.now(), *parseISO8601("2026-11-20T09:25:00Z"));
  QVERIFY(ended == std::vector{PomodoroPhase::focus});
  QVERIFY(room.sounds.heard == std::vector<std::string>{"play complete"});
  QCOMPARE(room.notifications.posted.size(), 1u);
  QVERIFY(room.notifications.posted[0] == (Notification{"pomodoro", "Focus session finished", "Take a break.", false}));
  QVERIFY(!timer.isRunning());
  QCOMPARE(timer.phaseTitle(), QStringLiteral("Break"));
  QCOMPARE(timer.remaining(), QStringLiteral("5:00"));
  QCOMPARE(timer.sessionsToday(), 1);
  QCOMPARE(timer.weekTotal(), 1);
  QCOMPARE(timer.streak(), 1);

  const UserDefaults stored = room.stored();
  QVERIFY(stored.integer("pomodoroDone") == 1);
  QVERIFY(stored.string("pomodoroDoneDay") == "2026-11-20");
  QVERIFY(stored.dictionary("pomodoroHistory")->at("2026-11-20") == DefaultsValue{std::int64_t{1}});

  timer.toggle();
  passUntilDue(room, timer);
  QCOMPARE(QString::fromStdString(room.notifications.posted[1].title), QStringLiteral("Break is over"));
  QVERIFY(ended.back() == PomodoroPhase::shortBreak);
  QCOMPARE(timer.sessionsToday(), 1);
}

void FocusModelsTests::aRestartStopsThePhaseAndKeepsTheCounts() {
  FocusRoom room;
  {
    PomodoroTimer timer(room.seams());
    timer.start();
    passUntilDue(room, timer);
    timer.start();
  }
  UserDefaults defaults = room.stored();
  FocusSeams seams{defaults, Calendar("Europe/Berlin", "en_GB"), room.notifications, room.sounds,
                   [&] { return room.clock.now(); }};
  PomodoroTimer timer(seams);
  QVERIFY(!timer.isRunning());
  QVERIFY(timer.isFocus());
  QCOMPARE(timer.sessionsToday(), 1);
  room.clock.pass(hours(24));
  PomodoroTimer tomorrow(seams);
  QCOMPARE(tomorrow.sessionsToday(), 0);
  QCOMPARE(tomorrow.weekTotal(), 1);
}

void FocusModelsTests::theFocusTimerShowsANewDayAtMidnight() {
  FocusRoom room("2026-11-20T22:00:00Z");  // 23:00 in Berlin
  PomodoroTimer timer(room.seams());
  timer.start();
  passUntilDue(room, timer);
  QCOMPARE(timer.sessionsToday(), 1);
  timer.setBreakMinutes(60);
  timer.start();
  passUntilDue(room, timer);
  QCOMPARE(room.clock.now(), *parseISO8601("2026-11-20T23:00:00Z"));
  QVERIFY2(timer.isRunning(), "midnight ends no phase");
  QCOMPARE(timer.sessionsToday(), 0);
  QVERIFY(timer.week().at(5).toMap().value(QStringLiteral("isToday")).toBool());
  QVERIFY(*timer.due() > room.clock.now());
}

void FocusModelsTests::lengthsAreStoredWithinTheirLimits() {
  FocusRoom room;
  room.defaults.set("pomodoroFocus", DefaultsValue{std::int64_t{-4}});
  room.defaults.set("pomodoroBreak", DefaultsValue{std::string("five")});
  PomodoroTimer timer(room.seams());
  QCOMPARE(timer.focusMinutes(), 1);
  QCOMPARE(timer.breakMinutes(), 5);
  QSignalSpy spy(&timer, &PomodoroTimer::settingsChanged);
  timer.setFocusMinutes(50);
  QCOMPARE(timer.remaining(), QStringLiteral("50:00"));
  timer.setFocusMinutes(50);
  QCOMPARE(spy.count(), 1);
  timer.setSessionsUntilLongBreak(0);
  timer.setStartsNextPhase(true);
  QVERIFY(room.stored().integer("pomodoroFocus") == 50);
  QVERIFY(room.stored().integer("pomodoroSessions") == 1);
  QVERIFY(room.stored().boolean("pomodoroAutoStart") == true);
  timer.start();
  passUntilDue(room, timer);
  QVERIFY(timer.isRunning());
}

void FocusModelsTests::aGlassMovesTheOneReminder() {
  FocusRoom room;
  WaterTracker water(room.seams(), nullptr);
  QVERIFY(water.nextText().isEmpty());
  water.add();
  QVERIFY(water.due() == room.clock.now() + minutes(30));
  room.clock.pass(minutes(20));
  water.add();
  water.add();
  QVERIFY(water.due() == room.clock.now() + minutes(30));
  QCOMPARE(water.nextText(), QStringLiteral("Next glass at 10:50"));
  passUntilDue(room, water);
  QCOMPARE(room.notifications.posted.size(), 1u);
  QVERIFY(room.notifications.posted[0] ==
          (Notification{"water", "Time for some water", "3 of 8 glasses today.", true}));
  QVERIFY2(*water.due() > room.clock.now() + hours(10), "it reminds once, until the next change");
  water.setIntervalMinutes(1);
  QCOMPARE(water.intervalMinutes(), 5);
  QVERIFY(water.due() == room.clock.now() + seconds(60));
  QCOMPARE(room.notifications.withdrawn.back(), std::string("water"));
  water.setGoal(3);
  QVERIFY(water.isGoalMet());
  QVERIFY(water.nextText().isEmpty());
  water.remove();
  QVERIFY(!water.isGoalMet());
  water.setRemindersOn(false);
  QVERIFY(water.nextText().isEmpty());

  const UserDefaults stored = room.stored();
  QVERIFY(stored.integer("waterCount") == 2);
  QVERIFY(stored.string("waterDay") == "2026-11-20");
  QVERIFY(stored.date("waterLastDrink") == *parseISO8601("2026-11-20T09:20:00Z"));
  QVERIFY(stored.boolean("waterReminders") == false);
}

void FocusModelsTests::aReminderThatWasDueComesAMinuteAfterTheStart() {
  FocusRoom room;
  room.defaults.set("waterLastDrink", DefaultsValue{room.clock.now() - hours(14)});
  room.defaults.set("waterCount", DefaultsValue{std::int64_t{8}});
  room.defaults.set("waterDay", DefaultsValue{std::string("2026-11-19")});
  WaterTracker water(room.seams(), nullptr);
  QCOMPARE(water.count(), 0);
  QVERIFY(water.due() == room.clock.now() + seconds(60));
}

void FocusModelsTests::aMetGoalIsRemindedOfAgainTheNextMorning() {
  FocusRoom room;
  WaterTracker water(room.seams(), nullptr);
  water.setGoal(1);
  water.add();
  passUntilDue(room, water);
  QVERIFY(room.clock.now() == *parseISO8601("2026-11-20T23:00:00Z"));
  QVERIFY(room.notifications.posted.empty());
  QVERIFY2(water.waterDueAt(room.clock.now()) > room.clock.now(), "whoever else reminds waits too");
  passUntilDue(room, water);
  QVERIFY(room.clock.now() == *parseISO8601("2026-11-21T07:00:00Z"));
  QCOMPARE(room.notifications.posted.size(), 1u);
  passUntilDue(room, water);
  QCOMPARE(room.notifications.posted.size(), 1u);
}

void FocusModelsTests::aClockThatIsSetMovesTheLastGlassToo() {
  FocusRoom room;
  WaterTracker water(room.seams(), nullptr);
  water.add();
  room.clock.pass(-hours(5));
  water.clockMoved(-hours(5), room.clock.now());
  QVERIFY(water.due() == room.clock.now() + minutes(30));
  QVERIFY(water.waterDueAt(room.clock.now()) == room.clock.now() + minutes(30));
  QVERIFY(room.stored().date("waterLastDrink") == room.clock.now());
  // The clock was set back while the program did not run.
  room.clock.pass(-hours(1000));
  const WaterTracker next(room.seams(), nullptr);
  QVERIFY(next.due() == room.clock.now() + minutes(30));
}

void FocusModelsTests::waterWithoutATileRemindsNobody() {
  FocusRoom room;
  room.defaults.set("waterLastDrink", DefaultsValue{room.clock.now() - hours(14)});
  bool isOnBar = false;
  WaterTracker water(room.seams(), [&] { return isOnBar; });
  passUntilDue(room, water);
  QVERIFY(room.notifications.posted.empty());
  QVERIFY(!water.waterDueAt(room.clock.now()));
  QVERIFY(water.due() == room.clock.now() + minutes(30));
  isOnBar = true;
  QVERIFY(water.waterDueAt(room.clock.now()).has_value());
  passUntilDue(room, water);
  QCOMPARE(room.notifications.posted.size(), 1u);
}

void FocusModelsTests::theStopwatchShowsWholeSeconds() {
  FocusRoom room;
  Stopwatch watch([&] { return room.clock.now(); });
  QSignalSpy spy(&watch, &Stopwatch::changed);
  watch.toggle();
  QVERIFY(watch.isRunning());
  room.clock.pass(Seconds(0.9));
  watch.update();
  QCOMPARE(spy.count(), 1);
  room.clock.pass(Seconds(3.2));
  watch.update();
  QCOMPARE(watch.elapsed(), QStringLiteral("0:04"));
  room.clock.set(room.clock.now() - hours(2));
  watch.clockMoved(-hours(2), room.clock.now());
  watch.toggle();
  QCOMPARE(watch.elapsed(), QStringLiteral("0:04"));
  QVERIFY(!watch.isZero());
  watch.reset();
  QVERIFY(watch.isZero());
  QCOMPARE(watch.elapsed(), QStringLiteral("0:00"));
}

void FocusModelsTests::theQuickTimerTellsOnce() {
  FocusRoom room;
  QuickTimer timer(room.seams());
  int done = 0;
  timer.onDone = [&] { ++done; };
  timer.start(300);
  QCOMPARE(timer.remaining(), QStringLiteral("5:00"));
  QCOMPARE(timer.detail(), QStringLiteral("until 10:05"));
  passUntilDue(room, timer);
  QCOMPARE(done, 1);
  QVERIFY(timer.isFinished());
  QCOMPARE(timer.detail(), QStringLiteral("finished at 10:05"));
  QVERIFY(room.sounds.heard == std::vector<std::string>{"play alarm-clock-elapsed"});
  QVERIFY(!timer.due());
  timer.cancel();
  QVERIFY(!timer.isFinished());
  QCOMPARE(room.notifications.withdrawn.back(), std::string("timer"));
}

void FocusModelsTests::aBreakThatIsNotWantedIsPassedOver() {
  FocusRoom room;
  int asked = 0;
  BreakReminder eyes(BreakKind::eyes, room.seams(), [&] {
    ++asked;
    return false;
  });
  passUntilDue(room, eyes);
  QCOMPARE(asked, 1);
  QVERIFY(!eyes.isDue());
  QVERIFY(room.notifications.posted.empty());
  QVERIFY(eyes.due() == room.clock.now() + minutes(20));
}

void FocusModelsTests::aDueBreakIsToldAndTakenBack() {
  FocusRoom room;
  BreakReminder stand(BreakKind::stand, room.seams(), [] { return true; });
  int told = 0;
  stand.onDue = [&] { ++told; };
  QCOMPARE(stand.intervalMinutes(), 45);
  passUntilDue(room, stand);
  QVERIFY(stand.isDue());
  QCOMPARE(told, 1);
  QCOMPARE(QString::fromStdString(room.notifications.posted.at(0).identifier), QStringLiteral("standUp"));
  stand.takeBreak();
  QVERIFY(!stand.isDue());
  QCOMPARE(room.notifications.withdrawn.back(), std::string("standUp"));
  QCOMPARE(stand.countToday(), 1);
  QVERIFY(room.stored().integer("standUpCount") == 1);
  QVERIFY(room.stored().string("standUpDay") == "2026-11-20");
  stand.setIsOn(false);
  QVERIFY(stand.countdown().isEmpty());
  QVERIFY(room.stored().boolean("standUpOn") == false);
  // Midnight is all that is left to wait for.
  QVERIFY(stand.due() == *parseISO8601("2026-11-20T23:00:00Z"));
  passUntilDue(room, stand);
  QCOMPARE(stand.countToday(), 0);
}

void FocusModelsTests::anEyeBreakIsCountedAndStored() {
  FocusRoom room;
  BreakReminder eyes(BreakKind::eyes, room.seams(), nullptr);
  eyes.takeBreak();
  QVERIFY(eyes.isOnBreak());
  QCOMPARE(eyes.countdown(), QStringLiteral("0:20"));
  room.clock.pass(seconds(5));
  eyes.update();
  QCOMPARE(eyes.percentLeft(), 75.0);
  passUntilDue(room, eyes);
  QVERIFY(!eyes.isOnBreak());
  QCOMPARE(eyes.countToday(), 1);
  QCOMPARE(eyes.countdown(), QStringLiteral("20:00"));
  QVERIFY(room.notifications.posted.empty());
  QVERIFY(room.stored().integer("eyeBreakCount") == 1);
}

void FocusModelsTests::theAlarmRingsUntilItIsSnoozed() {
  FocusRoom room("2026-11-20T05:00:00Z");
  AlarmClock alarm(room.seams(), [] { return true; });
  QCOMPARE(alarm.detail(), QStringLiteral("Off"));
  QCOMPARE(alarm.time(), QStringLiteral("07:30"));
  int rang = 0;
  alarm.onRing = [&] { ++rang; };
  alarm.set(6, 45);
  QVERIFY(alarm.isOn());
  QCOMPARE(alarm.detail(), QStringLiteral("Today"));
  passUntilDue(room, alarm);
  QCOMPARE(rang, 1);
  QVERIFY(room.sounds.heard == std::vector<std::string>{"loop alarm-clock-elapsed"});
  QCOMPARE(alarm.detail(), QStringLiteral("Ringing"));
  room.clock.pass(seconds(30));
  alarm.snooze();
  QCOMPARE(room.sounds.heard.back(), std::string("stop"));
  QCOMPARE(room.notifications.withdrawn.back(), std::string("alarm"));
  QCOMPARE(alarm.detail(), QStringLiteral("Snoozed until 06:55"));
  QCOMPARE(alarm.shortDetail(), QStringLiteral("Until 06:55"));
  passUntilDue(room, alarm);
  QCOMPARE(rang, 2);
  const Notification& last = room.notifications.posted.back();
  QVERIFY(last.isUrgent);
  QVERIFY((last.actions == std::vector<NotificationAction>{{"snooze", "Snooze"}, {"stop", "Stop"}}));
  alarm.answer("snooze");
  QVERIFY(alarm.isSnoozed());
  passUntilDue(room, alarm);
  passUntilDue(room, alarm);
  QVERIFY2(!alarm.isRinging(), "it falls silent by itself");
  QCOMPARE(room.sounds.heard.back(), std::string("stop"));
  QCOMPARE(alarm.detail(), QStringLiteral("Tomorrow"));
  QVERIFY(room.stored().integer("alarmHour") == 6);
  QVERIFY(room.stored().boolean("alarmOn") == true);
}

void FocusModelsTests::aMissedAlarmMakesNoSound() {
  FocusRoom room("2026-11-20T05:00:00Z");
  AlarmClock alarm(room.seams(), nullptr);
  alarm.setIsOn(true);
  room.clock.sleep(hours(5));
  alarm.tick(room.clock.now());
  QVERIFY(room.sounds.heard.empty());
  QCOMPARE(QString::fromStdString(room.notifications.posted.at(0).title), QStringLiteral("Missed alarm"));
  QVERIFY(!alarm.isRinging());
}

void FocusModelsTests::anAlarmThatOnlyTheNewZoneHasPassedIsNotMissed() {
  FocusRoom room;
  FocusSeams seams = room.seams();
  AlarmClock alarm(seams, nullptr);
  alarm.set(7, 30);
  room.clock.set(*parseISO8601("2026-11-21T03:00:00Z"));
  seams.calendar.replace(Calendar("Asia/Tokyo", "en_GB"));
  alarm.zoneChanged(room.clock.now());
  alarm.tick(room.clock.now());
  QVERIFY(room.notifications.posted.empty());
  passUntilDue(room, alarm);  // midnight
  passUntilDue(room, alarm);
  QVERIFY(room.clock.now() == *parseISO8601("2026-11-21T22:30:00Z"));
  QVERIFY(alarm.isRinging());
}

void FocusModelsTests::breathingGoesStepByStep() {
  FocusRoom room;
  BreathingExercise breathing([&] { return room.clock.now(); });
  QVERIFY(!breathing.due());
  breathing.start();
  QCOMPARE(breathing.title(), QStringLiteral("Breathe in"));
  QCOMPARE(breathing.target(), 1.0);
  QCOMPARE(breathing.stepMilliseconds(), 4000);
  QStringList titles;
  while (breathing.isRunning()) {
    passUntilDue(room, breathing);
    titles.append(breathing.title());
  }
  QCOMPARE(titles.size(), 15);
  QCOMPARE(titles.mid(0, 4), (QStringList{"Hold", "Breathe out", "Breathe in", "Hold"}));
  QCOMPARE(titles.last(), QStringLiteral("Well done"));
  breathing.start();
  breathing.slept(seconds(5), room.clock.now());
  QVERIFY(!breathing.isRunning());
}

void FocusModelsTests::habitsAreKeptInTheirFile() {
  FocusRoom room;
  const auto now = [&] { return room.clock.now(); };
  const auto file = room.folder / "Ambrel/habits.json";
  HabitStore store(file, Calendar("UTC", "en_US"), now);
  QAbstractItemModelTester tester(store.habits());
  QVERIFY(store.add(QStringLiteral(" Read ")));
  QVERIFY(store.add(QStringLiteral("Walk")));
  QVERIFY(!store.add(QStringLiteral("  ")));
  const QString read = QString::fromStdString(store.items()[0].id.text());
  QSignalSpy moved(store.habits(), &QAbstractItemModel::dataChanged);
  QSignalSpy reset(store.habits(), &QAbstractItemModel::modelReset);
  store.toggleToday(read);
  QCOMPARE(moved.count(), 1);
  QCOMPARE(reset.count(), 0);
  QCOMPARE(store.doneToday(), 1);
  room.clock.pass(hours(24));
  store.tick(room.clock.now());
  QCOMPARE(store.doneToday(), 0);
  QCOMPARE(store.bestStreak(), 1);
  store.toggleToday(read);
  QCOMPARE(store.bestStreak(), 2);
  store.toggleToday(QStringLiteral("nobody"));

  HabitStore again(file, Calendar("UTC", "en_US"), now);
  QVERIFY(again.items() == store.items());
  again.remove(read);
  QCOMPARE(again.count(), 1);
  QCOMPARE(HabitStore(file, Calendar("UTC", "en_US"), now).count(), 1);
}

void FocusModelsTests::aDamagedHabitFileIsLogged() {
  FocusRoom room;
  const auto file = room.folder.write("Ambrel/habits.json", "{\"no\":\"array\"}");
  QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Ambrel: cannot read habits: ")));
  HabitStore store(file, Calendar("UTC", "en_US"), [&] { return room.clock.now(); });
  QCOMPARE(store.count(), 0);
}

void FocusModelsTests::moodsAreKeptByTheDay() {
  FocusRoom room;
  const auto now = [&] { return room.clock.now(); };
  room.defaults.set("moodLog", DefaultsValue{DefaultsDictionary{{"2026-11-18", {std::int64_t{2}}},
                                                                {"2026-11-19", {std::int64_t{9}}}}});
  MoodLog mood(room.defaults, Calendar("UTC", "en_US"), now, true);
  QCOMPARE(mood.today(), 0);
  mood.setToday(4);
  mood.setToday(17);
  QCOMPARE(mood.todayName(), QStringLiteral("Good"));
  const auto week = mood.week();
  QCOMPARE(week.size(), 7);
  QCOMPARE(week.at(4).toMap().value(QStringLiteral("mood")).toInt(), 2);
  QCOMPARE(week.at(5).toMap().value(QStringLiteral("mood")).toInt(), 0);
  QCOMPARE(week.at(6).toMap().value(QStringLiteral("moodName")).toString(), QStringLiteral("Good"));
  QVERIFY(room.stored().dictionary("moodLog")->at("2026-11-20") == DefaultsValue{std::int64_t{4}});
  mood.setToday(4);
  QCOMPARE(mood.today(), 0);

  MoodLog forgetful(room.defaults, Calendar("UTC", "en_US"), now, false);
  forgetful.setToday(1);
  QCOMPARE(forgetful.today(), 1);
  QVERIFY(!room.stored().dictionary("moodLog")->contains("2026-11-20"));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FocusModelsTests)
#include "FocusModelsTests.moc"
