#include <QApplication>
#include <QTest>

#include "tests/Time.h"
#include "tests/app/delegate/Program.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

// The program with its bar, clicked and typed at.
struct Desk : Program {
  explicit Desk(const std::vector<std::string>& widgets, const std::string& weatherServer = unreachable)
      : Program(false, weatherServer) {
    delegate->launch();
    putOnBar(widgets);
  }

  // Beside what may be a button of its own, once it is in sight: the bar moves while it comes.
  void click(const char* widget, Qt::MouseButton button = Qt::LeftButton) const {
    QQuickItem* slot = slotOf(widget);
    const auto place = [slot] { return slot->mapToScene({slot->width() - 6, 6}).toPoint(); };
    QVERIFY(QTest::qWaitFor([&] { return QRect({0, 0}, slot->window()->size()).contains(place()); }));
    QTest::mouseClick(slot->window(), button, {}, place());
  }
  // What the panel shows that is open.
  QQuickItem* panel() const {
    for (QWindow* window : QGuiApplication::topLevelWindows()) {
      auto* view = qobject_cast<QQuickView*>(window);
      if (!view || !view->rootObject() || !view->rootObject()->property("content").isValid()) continue;
      auto* content = view->rootObject()->property("content").value<QQuickItem*>();
      if (content && content->property("open").toBool()) return content;
    }
    return nullptr;
  }
  // Lets time pass, with whoever asked for it being woken.
  void pass(Seconds span) {
    desktop.clock.runUntil(advanced(desktop.clock.now(), span), [] { QCoreApplication::processEvents(); });
  }
  FocusArea& focus() const { return delegate->areas().focus; }
};

}  // namespace

class FocusAndWeatherTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aClickOpensThePanelOfTheTile() {
    const std::pair<const char*, const char*> rows[] = {
        {"pomodoro", "Focus"},
        {"stopwatch", "Stopwatch"},
        {"water", "Drink Water"},
        {"timer", "Timer"},
        {"alarm", "Alarm"},
        {"eyeBreak", "Eye Break"},
        {"standUp", "Stand Up"},
        {"habits", "Habits"},
        {"mood", "How do you feel today?"},
        {"focusStats", "Focus Stats"},
        {"weather", "London, United Kingdom"},
        {"hourly", "London, United Kingdom"},
        {"sun", "London, United Kingdom"},
        {"wind", "London, United Kingdom"},
        {"rainSoon", "London, United Kingdom"},
        {"uvIndex", "London, United Kingdom"},
        {"airQuality", "London, United Kingdom"},
        {"dailyForecast", "London, United Kingdom"},
        {"feelsLike", "London, United Kingdom"},
        {"secondCity", "New York, United States"},
    };
    for (const auto& [widget, title] : rows) {
      Desk desk({widget});
      desk.click(widget);
      const auto first = desk.delegate->bar().panels().frames();
      QTRY_VERIFY2(desk.panel(), widget);
      QCOMPARE(desk.panel()->property("title").toString(), title);
      // The panel is as tall as what it shows.
      QCOMPARE(desk.panel()->height(), desk.panel()->implicitHeight());
      QCOMPARE(first, desk.delegate->bar().panels().frames());
      desk.click(widget);
      QTRY_VERIFY2(!desk.panel(), widget);
    }
  }

  void whatIsTypedGoesToTheField() {
    // The search for a place begins empty each time.
    const std::tuple<const char*, QString> rows[] = {
        {"weather", {}}, {"weather", {}}, {"habits", {}}, {"habits", QStringLiteral("Lon")}};
    Desk desk({"weather", "habits"});
    for (const auto& [widget, before] : rows) {
      desk.click(widget);
      QTRY_VERIFY(desk.panel());
      QVERIFY(QTest::qWaitForWindowActive(desk.panel()->window()));
      QTRY_VERIFY(desk.panel()->window()->activeFocusItem());
      QCOMPARE(desk.panel()->window()->activeFocusItem()->property("text").toString(), before);
      for (const char letter : {'L', 'o', 'n'}) QTest::keyClick(desk.panel()->window(), letter);
      QCOMPARE(desk.panel()->window()->activeFocusItem()->property("text").toString(), before + QStringLiteral("Lon"));
      desk.click(widget);
      QTRY_VERIFY(!desk.panel());
    }
  }

  void aChosenPlaceClosesThePanel() {
    Desk desk({"weather", "secondCity"});
    for (const char* widget : {"weather", "secondCity"}) {
      desk.click(widget);
      QTRY_VERIFY(desk.panel());
      auto* weather = &desk.delegate->areas().weather;
      (widget == std::string("weather") ? weather->main() : weather->second())
          ->choose(WeatherPlace{"Tokyo", "Japan", 35.7, 139.7});
      QTRY_VERIFY(!desk.panel());
    }
  }

  void theMenuHasTheTilesOwnCommand() {
    Desk desk({"eyeBreak", "mood", "water"});
    for (const char* text : {"Pause Eye Breaks", "Resume Eye Breaks"}) {
      desk.click("eyeBreak", Qt::RightButton);
      QTRY_VERIFY(desk.panel());
      QCOMPARE(desk.panel()->property("ownText").toString(), QLatin1String(text));
      QTest::mouseClick(desk.panel()->window(), Qt::LeftButton, {}, desk.panel()->mapToScene({100, 20}).toPoint());
      QTRY_VERIFY(!desk.panel());
    }
    QVERIFY(desk.focus().eyeBreak()->face().isOn);
    desk.click("water", Qt::RightButton);
    QTRY_VERIFY(desk.panel());
    QCOMPARE(desk.panel()->property("ownText").toString(), QString());
    desk.click("mood", Qt::RightButton);
    QTRY_COMPARE(desk.panel() ? desk.panel()->property("ownText").toString() : QString(),
                 QStringLiteral("Change Today's Mood"));
    QTest::mouseClick(desk.panel()->window(), Qt::LeftButton, {}, desk.panel()->mapToScene({100, 20}).toPoint());
    QTRY_COMPARE(desk.panel() ? desk.panel()->property("title").toString() : QString(),
                 QStringLiteral("How do you feel today?"));
  }

  void theAlarmIsAnsweredOnItsNotification() {
    Desk desk({"alarm"});
    desk.focus().alarm()->set(10, 0);
    desk.pass(minutes(20));
    QVERIFY(desk.focus().alarm()->face().isRinging);
    QVERIFY(desk.desktop.sounds.heard == std::vector<std::string>{"loop alarm-clock-elapsed"});
    desk.desktop.notifications.press("alarm", "snooze");
    QVERIFY(desk.focus().alarm()->face().isSnoozed);
    QCOMPARE(desk.desktop.sounds.heard.back(), std::string("stop"));
    desk.pass(minutes(10));
    QVERIFY(desk.focus().alarm()->face().isRinging);
    desk.desktop.notifications.click("alarm");
    QVERIFY(!desk.focus().alarm()->face().isRinging && !desk.focus().alarm()->face().isSnoozed);
    QCOMPARE(desk.desktop.sounds.heard.back(), std::string("stop"));
    QVERIFY(!desk.panel());
    // Another notification that is put away stops nothing; its own does.
    desk.focus().alarm()->set(11, 0);
    desk.pass(minutes(50));
    desk.desktop.notifications.dismiss("timer");
    QVERIFY(desk.focus().alarm()->face().isRinging);
    desk.desktop.notifications.dismiss("alarm");
    QVERIFY(!desk.focus().alarm()->face().isRinging && !desk.focus().alarm()->face().isSnoozed);
  }

  void theAlarmRingsWhateverProfileIsOnTheBar() {
    Desk desk({"clock"});
    desk.focus().alarm()->set(10, 0);
    desk.pass(hours(1));
    QVERIFY2(desk.desktop.notifications.told().empty(), "there is no tile to stop it at");
    Profile night = desk.delegate->model().profiles().front();
    night.id = UUID::random();
    night.items = {DockItem::holding("alarm")};
    auto profiles = desk.delegate->model().profiles();
    profiles.push_back(night);
    desk.delegate->model().setProfiles(profiles);
    desk.pass(hours(24));
    QVERIFY(desk.desktop.notifications.told() == std::vector<std::string>{"alarm"});
  }

  void aNotificationLeadsToItsTile() {
    Desk desk({"pomodoro", "eyeBreak"});
    desk.delegate->settings().set(setting::pomodoroFocus, 1);
    desk.focus().pomodoro()->toggle();
    desk.pass(minutes(20) + seconds(1));
    QVERIFY(desk.desktop.notifications.told() == (std::vector<std::string>{"pomodoro", "eyeBreak"}));
    desk.desktop.notifications.click("eyeBreak");
    QVERIFY(desk.focus().eyeBreak()->face().isOnBreak);
    desk.desktop.notifications.click("pomodoro");
    QTRY_VERIFY(desk.panel());
    QCOMPARE(desk.panel()->property("title").toString(), QStringLiteral("Break"));
  }

  // At 09:41 by Greenwich, on a Saturday.
  void aChangedZoneIsFollowed() {
    Desk desk({"clock", "alarm", "water", "mood"});
    desk.focus().alarm()->set(7, 30);
    desk.focus().water()->add();
    desk.focus().mood()->setToday(4);
    QCOMPARE(desk.focus().alarm()->face().detail, QStringLiteral("Tomorrow"));

    desk.desktop.timeZone.set("America/New_York");
    QCOMPARE(desk.delegate->areas().time.clock()->face().time, QStringLiteral("4:41\u202fAM"));
    QCOMPARE(desk.focus().alarm()->face().detail, QStringLiteral("Today"));
    QCOMPARE(desk.focus().water()->face().nextText, QStringLiteral("Next glass at 5:11\u202fAM"));

    desk.desktop.timeZone.set("Pacific/Kiritimati");
    QCOMPARE(desk.delegate->areas().time.clock()->face().weekday, QStringLiteral("Saturday"));
    desk.desktop.clock.pass(minutes(30));
    desk.desktop.timeZone.set("Pacific/Kiritimati");
    QCOMPARE(desk.focus().mood()->week().today, 0);
    QCOMPARE(desk.focus().water()->face().count, 0);
  }

  void theBarPeeksForWater() {
    Desk desk({"water"});
    desk.focus().water()->add();
    PeekSignals signals;
    desk.delegate->bar().peeker().gatherMore(signals);
    QVERIFY(signals.waterDue == desk.desktop.clock.now() + minutes(30));
  }

  void theWeatherOfATileIsAskedForWhileItIsOnTheBar() {
    LoopbackServer server;
    Desk desk({"clock"}, server.url().toString().toStdString());
    QTest::qWait(0);
    desk.putOnBar({"feelsLike", "clock"});
    QTRY_COMPARE(server.targets.size(), 2);
    QVERIFY(server.targets[0].startsWith("/v1/forecast?latitude=51.5074"));
    desk.putOnBar({"secondCity"});
    QTRY_COMPARE(server.targets.size(), 4);
    QVERIFY(server.targets[2].startsWith("/v1/forecast?latitude=40.7128"));
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::FocusAndWeatherTests)
#include "FocusAndWeatherTests.moc"
