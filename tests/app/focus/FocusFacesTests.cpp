#include <QTest>

#include "app/focus/FocusFaces.h"
#include "tests/Time.h"

namespace ambrel {
namespace {

const Instant morning = *parseISO8601("2026-11-20T09:00:00Z");  // a Friday, 10:00 in Berlin
const Calendar berlin("Europe/Berlin", "en_GB");

}  // namespace

// What is shown of core's records, without a clock or an event loop.
class FocusFacesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theFocusTimerShowsWhatIsLeft() {
    Pomodoro timer;
    timer.completed = {3, "2026-11-20"};
    timer.start(morning);
    PomodoroFace face = pomodoroFace(timer, berlin, morning + minutes(10));
    QVERIFY(face.isFocus && face.isRunning && !face.isPaused);
    QCOMPARE(face.remaining, QStringLiteral("15:00"));
    QCOMPARE(face.lengthText, QStringLiteral("of 25 min"));
    QCOMPARE(face.percentLeft, 60.0);
    QCOMPARE(face.sessionsToday, 3);
    QCOMPARE(pomodoroFace(timer, berlin, morning + hours(24)).sessionsToday, 0);
    timer.pause(morning + minutes(10));
    face = pomodoroFace(timer, berlin, morning + hours(9));
    QVERIFY(!face.isRunning && face.isPaused);
    QCOMPARE(face.remaining, QStringLiteral("15:00"));
    timer.skip(morning);
    QCOMPARE(pomodoroFace(timer, berlin, morning).phaseTitle, QStringLiteral("Break"));
  }

  void theWeekHasSevenBarsAndASentence() {
    const FocusWeek week =
        focusWeek({{"2026-11-16", 2}, {"2026-11-19", 4}, {"2026-11-20", 1}, {"2026-11-02", 9}}, berlin, morning);
    QCOMPARE(week.total, 7);
    QCOMPARE(week.streak, 2);
    QCOMPARE(week.text, QStringLiteral("7 this week: Monday 2, Thursday 4, Friday 1"));
    QStringList bars;
    for (const QVariant& day : week.days) {
      const QVariantMap map = day.toMap();
      bars << map["day"].toString() + map["percent"].toString() + (map["isToday"].toBool() ? "!" : "");
    }
    QCOMPARE(bars, (QStringList{"M50", "T0", "W0", "T100", "F25!", "S0", "S0"}));
    QCOMPARE(focusWeek({}, berlin, morning).text, QStringLiteral("No focus sessions this week yet"));
  }

  void waterSaysWhenTheNextGlassComes() {
    Water water;
    QVERIFY(waterFace(water, berlin, morning).nextText.isEmpty());
    for (int i = 0; i < 7; ++i) water.add(morning, berlin);
    QCOMPARE(waterFace(water, berlin, morning).nextText, QStringLiteral("Next glass at 10:30"));
    QCOMPARE(waterFace(water, berlin, morning).percent, 87.5);
    water.add(morning, berlin);
    QVERIFY(waterFace(water, berlin, morning).isGoalMet);
    QVERIFY2(waterFace(water, berlin, morning).nextText.isEmpty(), "that of tomorrow is no news today");
    QCOMPARE(waterFace(water, berlin, morning + hours(14)).nextText, QStringLiteral("Next glass at 08:00"));
    QCOMPARE(waterFace(water, berlin, morning + hours(14)).count, 0);
  }

  void theQuickTimerSaysWhenItEnds() {
    QuickTimerValue timer;
    QCOMPARE(timerFace(timer, berlin, morning), TimerFace());
    timer.start(minutes(5), morning);
    TimerFace face = timerFace(timer, berlin, morning + minutes(4));
    QVERIFY(face.isRunning);
    QCOMPARE(face.remaining, QStringLiteral("1:00"));
    QCOMPARE(face.percentLeft, 20.0);
    QCOMPARE(face.detail, QStringLiteral("until 10:05"));
    timer.tick(morning + minutes(7));
    face = timerFace(timer, berlin, morning + minutes(7));
    QVERIFY(!face.isRunning && face.isFinished);
    QCOMPARE(face.remaining + ' ' + face.detail, QStringLiteral("0:00 finished at 10:05"));
  }

  void aBreakCountsDown() {
    BreakTimer timer;
    timer.setInterval(20, morning);
    BreakFace face = breakFace(timer, berlin, morning + minutes(5));
    QCOMPARE(face.countdown, QStringLiteral("15:00"));
    QCOMPARE(face.percentLeft, 75.0);
    timer.takeBreak(morning, berlin);
    face = breakFace(timer, berlin, morning + seconds(5));
    QVERIFY(face.isOnBreak);
    QCOMPARE(face.countdown, QStringLiteral("0:15"));
    QCOMPARE(face.percentLeft, 75.0);
    timer.turn(false, morning);
    QCOMPARE(breakFace(timer, berlin, morning).countdown, QStringLiteral("0:20"));
    timer.endBreak(morning);
    QVERIFY2(breakFace(timer, berlin, morning).countdown.isEmpty(), "nothing is waited for");
  }

  void theAlarmSaysWhenItRings() {
    Alarm alarm;
    const auto said = [&](Instant now) {
      const AlarmFace face = alarmFace(alarm, berlin, now);
      return QStringList{face.time, face.detail, face.shortDetail};
    };
    QCOMPARE(said(morning), (QStringList{"07:30", "Off", "Off"}));
    alarm.turn(true, morning);
    QCOMPARE(said(morning), (QStringList{"07:30", "Tomorrow", "Tomorrow"}));
    alarm.set(10, 45, morning);
    QCOMPARE(said(morning), (QStringList{"10:45", "Today", "Today"}));
    alarm.tick(morning + minutes(45), berlin, true);
    QCOMPARE(said(morning + minutes(45)), (QStringList{"10:45", "Ringing", "Ringing"}));
    alarm.snooze(morning + minutes(45));
    QCOMPARE(said(morning + minutes(46)), (QStringList{"10:45", "Snoozed until 10:55", "Until 10:55"}));
  }

  void breathingSaysWhatToDo() {
    const auto said = [](const std::optional<BreathingStep>& step) {
      const BreathingFace face = breathingFace(step);
      return QStringLiteral("%1/%2 %3/%4 %5 %6")
          .arg(face.title, face.shortTitle, face.detail, face.shortDetail)
          .arg(face.target)
          .arg(face.stepMilliseconds);
    };
    QCOMPARE(said({}), QStringLiteral("Breathe/Breathe A minute of calm/1 minute 0 300"));
    QCOMPARE(said(breathingStep(Seconds(0))), QStringLiteral("Breathe in/In Round 1 of 5/1 of 5 1 4000"));
    QCOMPARE(said(breathingStep(Seconds(18))), QStringLiteral("Hold/Hold Round 2 of 5/2 of 5 1 4000"));
    QCOMPARE(said(breathingStep(Seconds(22.5))), QStringLiteral("Breathe out/Out Round 2 of 5/2 of 5 0 5500"));
    QCOMPARE(said(breathingStep(Seconds(70))), QStringLiteral("Well done/Done A minute of calm/1 minute 0 300"));
  }

  void habitsCountTodayAndTheLongestRun() {
    std::vector<Habit> habits{{UUID::random(), "Read", {"2026-11-20", "2026-11-19"}},
                              {UUID::random(), "Walk", {"2026-11-19", "2026-11-18", "2026-11-17"}}};
    QCOMPARE(habitsFace(habits, berlin, morning), (HabitsFace{.count = 2, .doneToday = 1, .bestStreak = 3}));
    habits.resize(mostHabits, habits.front());
    QVERIFY(habitsFace(habits, berlin, morning).isFull);
  }

  void moodsShowTheLastSevenDays() {
    const MoodWeek week = moodWeek({{"2026-11-13", 1}, {"2026-11-18", 2}, {"2026-11-20", 4}}, berlin, morning);
    QCOMPARE(week.today, 4);
    QCOMPARE(week.todayName, QStringLiteral("Good"));
    QCOMPARE(week.text, QStringLiteral("Wednesday: Low, Friday: Good"));
    QCOMPARE(week.days.size(), 7);
    QCOMPARE(week.days.at(4).toMap()["mood"].toInt(), 2);
    QCOMPARE(week.days.at(6).toMap()["day"].toString(), QStringLiteral("F"));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FocusFacesTests)
#include "FocusFacesTests.moc"
