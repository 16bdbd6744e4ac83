#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QSignalSpy>
#include <QTest>

#include "app/focus/AlarmClock.h"
#include "app/focus/BreakReminder.h"
#include "app/focus/BreathingExercise.h"
#include "app/focus/FocusArea.h"
#include "app/focus/HabitStore.h"
#include "app/focus/MoodLog.h"
#include "app/focus/PomodoroTimer.h"
#include "app/focus/QuickTimer.h"
#include "app/focus/Stopwatch.h"
#include "app/focus/WaterTracker.h"
#include "tests/Time.h"
#include "tests/app/focus/FocusRoom.h"
#include "tests/fakes/FakeShell.h"

namespace ambrel {
namespace {

bool always() { return true; }

// The models with the one timer that wakes them, as on the bar.
struct Together : FocusRoom {
  explicit Together(const char* start = "2026-11-20T09:00:00Z") : FocusRoom(start) {
    using enum DockWidget;
    shell.onBar = {water, alarm, eyeBreak, standUp};
  }

  // Goes from one wake-up to the next until the time has come.
  void runUntil(Instant end) {
    clock.runUntil(end, [] { QCoreApplication::processEvents(); });
  }

  DueTimer due{clock};
  FakeShell shell;
};

}  // namespace

// What the models store, tell and wait for, one by one and together. The rules are core's, and what is shown has tests
// of its own.
class FocusModelsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aPhaseThatEndsIsStoredSoundedAndTold() {
    FocusRoom room;
    PomodoroTimer timer(room.seams());
    QSignalSpy ended(&timer, &PomodoroTimer::phaseEnded), due(&timer, &TimedModel::dueChanged);
    timer.toggle();
    QCOMPARE(due.count(), 1);
    room.clock.pass(minutes(10));
    QSignalSpy week(&timer, &PomodoroTimer::weekChanged);
    timer.update();
    QCOMPARE(timer.face().remaining, QStringLiteral("15:00"));
    QVERIFY2(week.isEmpty(), "the bars of the week are not made again each second");

    passUntilDue(room, timer);
    QCOMPARE(room.clock.now(), *parseISO8601("2026-11-20T09:25:00Z"));
    QVERIFY(ended.takeFirst().at(0).value<PomodoroPhase>() == PomodoroPhase::focus);
    QVERIFY(room.sounds.heard == std::vector<std::string>{"play complete"});
    QVERIFY((room.notifications.posted ==
             std::vector{Notification{"pomodoro", "Focus session finished", "Take a break.", false}}));
    QCOMPARE(timer.face().phaseTitle, QStringLiteral("Break"));
    QCOMPARE(timer.week().total, 1);
    const UserDefaults stored = room.stored();
    QVERIFY(stored.integer("pomodoroDone") == 1);
    QVERIFY(stored.string("pomodoroDoneDay") == "2026-11-20");
    QVERIFY(stored.dictionary("pomodoroHistory")->at("2026-11-20") == DefaultsValue{std::int64_t{1}});

    timer.toggle();
    passUntilDue(room, timer);
    QCOMPARE(QString::fromStdString(room.notifications.posted[1].title), QStringLiteral("Break is over"));
    QVERIFY(ended.takeFirst().at(0).value<PomodoroPhase>() == PomodoroPhase::shortBreak);
  }

  void aRestartStopsThePhaseAndKeepsTheCounts() {
    FocusRoom room;
    {
      PomodoroTimer timer(room.seams());
      timer.toggle();
      passUntilDue(room, timer);
      timer.toggle();
    }
    PomodoroTimer timer(room.seams());
    QVERIFY(!timer.face().isRunning && timer.face().isFocus);
    QCOMPARE(timer.face().sessionsToday, 1);
    room.clock.pass(hours(24));
    PomodoroTimer tomorrow(room.seams());
    QCOMPARE(tomorrow.face().sessionsToday, 0);
    QCOMPARE(tomorrow.week().total, 1);
  }

  void theFocusTimerShowsANewDayAtMidnight() {
    FocusRoom room("2026-11-20T22:00:00Z");  // 23:00 in Berlin
    PomodoroTimer timer(room.seams());
    timer.toggle();
    passUntilDue(room, timer);
    room.choose(timer, "pomodoroBreak", 60);
    timer.toggle();
    passUntilDue(room, timer);
    QCOMPARE(room.clock.now(), *parseISO8601("2026-11-20T23:00:00Z"));
    QVERIFY2(timer.face().isRunning, "midnight ends no phase");
    QCOMPARE(timer.face().sessionsToday, 0);
    QVERIFY(timer.week().days.at(5).toMap().value(QStringLiteral("isToday")).toBool());
    QVERIFY(*timer.due() > room.clock.now());
  }

  void theReminderOfWaterIsOneAndIsTakenBack() {
    FocusRoom room;
    WaterTracker water(room.seams(), always);
    water.add();
    room.clock.pass(minutes(20));
    water.add();
    QVERIFY(water.due() == room.clock.now() + minutes(30));
    passUntilDue(room, water);
    QVERIFY((room.notifications.posted ==
             std::vector{Notification{"water", "Time for some water", "2 of 8 glasses today.", true}}));
    QVERIFY2(water.due() == *parseISO8601("2026-11-20T23:00:00Z"), "it reminds once; at midnight a new count begins");
    room.notifications.withdrawn.clear();
    room.choose(water, "waterInterval", 5);
    QVERIFY(water.due() == room.clock.now() + seconds(60));
    QVERIFY(room.notifications.withdrawn == std::vector<std::string>{"water"});
    room.choose(water, "waterGoal", 2);
    QVERIFY(water.face().isGoalMet);
    water.remove();
    QVERIFY(!water.face().isGoalMet);

    const UserDefaults stored = room.stored();
    QVERIFY(stored.integer("waterCount") == 1);
    QVERIFY(stored.string("waterDay") == "2026-11-20");
    QVERIFY(stored.date("waterLastDrink") == *parseISO8601("2026-11-20T09:20:00Z"));
  }

  void aClockThatIsSetMovesTheLastGlassToo() {
    FocusRoom room;
    WaterTracker water(room.seams(), always);
    water.add();
    room.clock.pass(-hours(5));
    water.clockMoved(-hours(5), room.clock.now());
    QVERIFY(water.due() == room.clock.now() + minutes(30));
    QVERIFY(room.stored().date("waterLastDrink") == room.clock.now());
    // The clock was set back while the program did not run.
    room.clock.pass(-hours(1000));
    QVERIFY(WaterTracker(room.seams(), always).due() == room.clock.now() + minutes(30));
  }

  void waterWithoutATileRemindsNobody() {
    FocusRoom room;
    room.defaults.set("waterLastDrink", DefaultsValue{room.clock.now() - hours(14)});
    bool isOnBar = false;
    WaterTracker water(room.seams(), [&] { return isOnBar; });
    passUntilDue(room, water);
    QVERIFY(room.notifications.posted.empty());
    QVERIFY(!water.waterDueAt(room.clock.now()));
    isOnBar = true;
    QVERIFY(water.waterDueAt(room.clock.now()).has_value());
    passUntilDue(room, water);
    QCOMPARE(room.notifications.posted.size(), 1u);
  }

  void theStopwatchAnnouncesWholeSeconds() {
    FocusRoom room;
    Stopwatch watch(room.seams());
    QSignalSpy spy(&watch, &FocusModel::changed);
    watch.toggle();
    room.clock.pass(Seconds(0.9));
    watch.update();
    QCOMPARE(spy.count(), 1);
    room.clock.pass(Seconds(3.2));
    watch.update();
    QCOMPARE(watch.face().elapsed, QStringLiteral("0:04"));
    room.clock.set(room.clock.now() - hours(2));
    watch.clockMoved(-hours(2), room.clock.now());
    watch.toggle();
    QCOMPARE(watch.face().elapsed, QStringLiteral("0:04"));
    QVERIFY(!watch.face().isRunning && !watch.face().isZero);
    watch.reset();
    QVERIFY(watch.face().isZero);
  }

  void theQuickTimerTellsOnce() {
    FocusRoom room;
    QuickTimer timer(room.seams());
    timer.start(300);
    passUntilDue(room, timer);
    QVERIFY(timer.face().isFinished);
    QVERIFY(room.sounds.heard == std::vector<std::string>{"play alarm-clock-elapsed"});
    QVERIFY(
        (room.notifications.posted == std::vector{Notification{"timer", "Timer finished", "5:00 is over.", false}}));
    QVERIFY(!timer.due());
    room.notifications.withdrawn.clear();
    timer.cancel();
    QVERIFY(!timer.face().isFinished);
    QVERIFY(room.notifications.withdrawn == std::vector<std::string>{"timer"});
  }

  void aDueBreakIsToldAndTakenBack() {
    FocusRoom room;
    BreakReminder stand(BreakKind::stand, room.seams(), always);
    QVERIFY(stand.due() == room.clock.now() + minutes(45));
    passUntilDue(room, stand);
    QVERIFY(stand.face().isDue);
    QVERIFY((room.notifications.posted ==
             std::vector{Notification{"standUp", "Time to stand up", "Stretch your legs for a minute.", true}}));
    stand.takeBreak();
    QVERIFY(!stand.face().isDue);
    QVERIFY(room.notifications.withdrawn == std::vector<std::string>{"standUp"});
    stand.setIsOn(false);
    // Midnight is all that is left to wait for.
    QVERIFY(stand.due() == *parseISO8601("2026-11-20T23:00:00Z"));
    const UserDefaults stored = room.stored();
    QVERIFY(stored.integer("standUpCount") == 1);
    QVERIFY(stored.string("standUpDay") == "2026-11-20");
    QVERIFY(stored.boolean("standUpOn") == false);
    QCOMPARE(BreakReminder(BreakKind::stand, room.seams(), always).face(), stand.face());
    passUntilDue(room, stand);
    QCOMPARE(stand.face().countToday, 0);
  }

  void anEyeBreakIsCountedAndStored() {
    FocusRoom room;
    BreakReminder eyes(BreakKind::eyes, room.seams(), always);
    eyes.takeBreak();
    passUntilDue(room, eyes);
    QVERIFY(!eyes.face().isOnBreak);
    QCOMPARE(eyes.face().countToday, 1);
    QVERIFY(room.notifications.posted.empty());
    QVERIFY(room.stored().integer("eyeBreakCount") == 1);
  }

  void theAlarmRingsUntilItIsSnoozed() {
    FocusRoom room("2026-11-20T05:00:00Z");
    AlarmClock alarm(room.seams(), always);
    alarm.set(6, 45);
    passUntilDue(room, alarm);
    QVERIFY(room.sounds.heard == std::vector<std::string>{"loop alarm-clock-elapsed"});
    const Notification& posted = room.notifications.posted.back();
    QVERIFY(posted.isUrgent);
    QVERIFY((posted.actions == std::vector<NotificationAction>{{"snooze", "Snooze"}, {"stop", "Stop"}}));
    alarm.snooze();
    QCOMPARE(room.sounds.heard.back(), std::string("stop"));
    QCOMPARE(room.notifications.withdrawn.back(), std::string("alarm"));
    QVERIFY(alarm.face().isSnoozed);
    passUntilDue(room, alarm);
    QCOMPARE(room.notifications.posted.size(), 2u);
    passUntilDue(room, alarm);
    QVERIFY2(!alarm.face().isRinging, "it falls silent by itself");
    QCOMPARE(room.sounds.heard.back(), std::string("stop"));
    const UserDefaults stored = room.stored();
    QVERIFY(stored.integer("alarmHour") == 6);
    QVERIFY(stored.integer("alarmMinute") == 45);
    QVERIFY(stored.boolean("alarmOn") == true);
    QCOMPARE(AlarmClock(room.seams(), always).face(), alarm.face());
  }

  void aMissedAlarmMakesNoSound() {
    FocusRoom room("2026-11-20T05:00:00Z");
    AlarmClock alarm(room.seams(), always);
    alarm.setIsOn(true);
    room.clock.sleep(hours(5));
    alarm.tick(room.clock.now());
    QVERIFY(room.sounds.heard.empty());
    QCOMPARE(QString::fromStdString(room.notifications.posted.at(0).title), QStringLiteral("Missed alarm"));
  }

  void habitsAreKeptInTheirFile() {
    FocusRoom room;
    const auto file = room.folder / "Ambrel/habits.json";
    HabitStore store(file, room.seams());
    QAbstractItemModelTester tester(store.rows());
    QVERIFY(store.add(QStringLiteral(" Read ")));
    QVERIFY(store.add(QStringLiteral("Walk")));
    QVERIFY(!store.add(QStringLiteral("  ")));
    const QString read = QString::fromStdString(store.items()[0].id.text());
    QSignalSpy moved(store.rows(), &QAbstractItemModel::dataChanged);
    store.toggleToday(read);
    QCOMPARE(moved.count(), 1);
    QCOMPARE(store.face().doneToday, 1);
    room.clock.pass(hours(24));
    store.tick(room.clock.now());
    QCOMPARE(store.face().doneToday, 0);
    store.toggleToday(read);
    const int streak = GadgetListModel<HabitRow>::role("streakText");
    QCOMPARE(store.rows()->index(0, 0).data(streak).toString(), QStringLiteral("2 days in a row"));
    store.toggleToday(QStringLiteral("nobody"));

    HabitStore again(file, room.seams());
    QVERIFY(again.items() == store.items());
    again.remove(read);
    QCOMPARE(HabitStore(file, room.seams()).face().count, 1);
    // Another bar loses nothing of it, and shows it.
    QVERIFY(store.add(QStringLiteral("Swim")));
    QCOMPARE(store.face().count, 2);
    QTRY_COMPARE(again.face().count, 2);
  }

  void aHabitThatCannotBeWrittenIsKeptUntilItCan() {
    FocusRoom room;
    const auto folder = room.folder.write("Ambrel", "in the way");
    {
      HabitStore store(folder / "habits.json", room.seams());
      QSignalSpy told(&store, &HabitStore::problemFound);
      QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^Ambrel: cannot save habits: ")));
      QVERIFY(store.add(QStringLiteral("Read")));
      QTRY_COMPARE(told.count(), 1);
      std::filesystem::remove(folder);
    }
    QCOMPARE(HabitStore(folder / "habits.json", room.seams()).face().count, 1);
  }

  // Damaged, and a link to what is not mounted.
  void aHabitFileThatCannotBeReadIsKept() {
    for (const bool isLink : {false, true}) {
      FocusRoom room;
      const auto file = room.folder.write("Ambrel/habits.json", "{\"no\":\"array\"}");
      if (isLink) {
        std::filesystem::remove(file);
        std::filesystem::create_symlink(room.folder / "not mounted/habits.json", file);
      }
      for (const char* warning : {"^Ambrel: cannot read habits: ", "^Ambrel: the file is kept as "})
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QLatin1String(warning)));
      HabitStore store(file, room.seams());
      QCOMPARE(store.face().count, 0);
      QVERIFY(store.add(QStringLiteral("Read")));
      const std::string kept = file.string() + ".unreadable";
      QVERIFY(isLink ? std::filesystem::is_symlink(kept) : readFile(kept) == "{\"no\":\"array\"}");
    }
  }

  void moodsAreKeptByTheDay() {
    FocusRoom room;
    room.defaults.set("moodLog", DefaultsValue{DefaultsDictionary{{"2026-11-18", {std::int64_t{2}}},
                                                                  {"2026-11-19", {std::int64_t{9}}}}});
    MoodLog mood(room.seams());
    mood.setToday(4);
    mood.setToday(17);
    QCOMPARE(mood.week().text, QStringLiteral("Wednesday: Low, Friday: Good"));
    QVERIFY(room.stored().dictionary("moodLog")->at("2026-11-20") == DefaultsValue{std::int64_t{4}});
    mood.setToday(4);
    QCOMPARE(mood.week().today, 0);
    QVERIFY(!room.stored().dictionary("moodLog")->contains("2026-11-20"));
  }

  void oneTimerWakesThemAll() {
    Together room("2026-11-20T22:20:00Z");  // 23:20 in Berlin
    FocusArea models(room.seams(), room.folder / "Ambrel/habits.json", room.due, room.shell);
    models.eyeBreak()->setIsOn(false);
    models.standUp()->setIsOn(false);
    models.water()->add();
    models.timer()->start(300);
    models.alarm()->set(23, 40);
    models.pomodoro()->toggle();
    models.breathing()->toggle();
    models.habits()->add(QStringLiteral("Walk"));
    models.habits()->toggleToday(QString::fromStdString(models.habits()->items()[0].id.text()));
    models.mood()->setToday(4);
    room.runUntil(*parseISO8601("2026-11-20T22:59:00Z"));
    QVERIFY(room.notifications.told() == (std::vector<std::string>{"timer", "alarm", "pomodoro", "water"}));
    QVERIFY(!models.breathing()->face().isRunning);
    QCOMPARE(models.pomodoro()->face().sessionsToday, 1);
    room.runUntil(*parseISO8601("2026-11-20T23:00:01Z"));
    QCOMPARE(models.pomodoro()->face().sessionsToday + models.water()->face().count +
                 models.habits()->face().doneToday + models.mood()->week().today,
             0);
  }

  void onlyWhatHasATileDisturbs() {
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {"water", {"water"}}, {"alarm", {"alarm"}}, {"eyeBreak", {"eyeBreak"}}, {"standUp", {"standUp"}}};
    for (const auto& [present, told] : rows) {
      Together room;
      room.shell.onBar = {*fromName<DockWidget>(present)};
      FocusArea models(room.seams(), room.folder / "Ambrel/habits.json", room.due, room.shell);
      room.choose(*models.standUp(), "standUpInterval", 20);
      models.water()->add();
      models.alarm()->set(10, 25);  // 25 minutes from now in Berlin
      room.runUntil(room.clock.now() + minutes(31));
      QVERIFY2(room.notifications.told() == told, present);
    }
  }

  void sleepIsToldToAllOfThem() {
    Together room;
    FocusArea models(room.seams(), room.folder / "Ambrel/habits.json", room.due, room.shell);
    models.pomodoro()->toggle();
    models.timer()->start(3600);
    models.stopwatch()->toggle();
    models.breathing()->toggle();
    room.runUntil(room.clock.now() + seconds(2));
    room.clock.sleep(minutes(30));
    room.clock.ring();
    models.stopwatch()->update();
    models.timer()->update();
    QCOMPARE(models.pomodoro()->face().remaining, QStringLiteral("24:58"));
    QCOMPARE(models.eyeBreak()->face().countdown, QStringLiteral("20:00"));
    QCOMPARE(models.standUp()->face().countdown, QStringLiteral("45:00"));
    QCOMPARE(models.timer()->face().remaining, QStringLiteral("29:58"));
    QCOMPARE(models.stopwatch()->face().elapsed, QStringLiteral("30:02"));
    QVERIFY(!models.breathing()->face().isRunning);
    QVERIFY2(room.notifications.told().empty(), "nothing falls due in the moment of waking");
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FocusModelsTests)
#include "FocusModelsTests.moc"
