#include <QCoreApplication>
#include <QTest>

#include "app/focus/FocusArea.h"
#include "tests/Time.h"
#include "tests/app/focus/FocusRoom.h"
#include "tests/fakes/FakeShell.h"

namespace ambrel {
namespace {

// The models with the one timer that wakes them, as on the bar.
struct Together : FocusRoom {
  explicit Together(const char* start = "2026-11-20T09:00:00Z") : FocusRoom(start) {
    using enum DockWidget;
    shell.onBar = {water, alarm, eyeBreak, standUp};
  }

  // Goes from one wake-up to the next until the time has come.
  void runUntil(Instant end) {
    for (;;) {
      QCoreApplication::processEvents();
      if (!clock.wakeTime || *clock.wakeTime > end) break;
      clock.pass(std::max(Seconds(0), secondsBetween(clock.now(), *clock.wakeTime)));
      clock.ring();
    }
    clock.pass(secondsBetween(clock.now(), end));
  }
  std::vector<std::string> told() const {
    std::vector<std::string> identifiers;
    for (const Notification& notification : notifications.posted) identifiers.push_back(notification.identifier);
    return identifiers;
  }

  DueTimer due{clock};
  FakeShell shell;
};

}  // namespace

class FocusTogetherTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
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
    QVERIFY(room.told() == (std::vector<std::string>{"timer", "alarm", "pomodoro", "water"}));
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
      QVERIFY2(room.told() == told, present);
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
    QVERIFY2(room.told().empty(), "nothing falls due in the moment of waking");
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FocusTogetherTests)
#include "FocusTogetherTests.moc"
