#include <QSignalSpy>
#include <QTest>

#include "app/model/SettingValue.h"
#include "tests/app/kit/Looks.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/time/TimeRoom.h"

namespace ambrel {
namespace {

QStringList collisionsOfAll(Scene& scene) {
  QStringList found;
  visitShown(scene.root(), [&](QQuickItem* item) {
    if (item->property("span").isValid()) found += collisionsOf(item);
  });
  return found;
}

}  // namespace

class TimeTilesTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyTileFitsInEverySize_data() {
    QTest::addColumn<QString>("locale");
    for (const char* locale : {"en_US", "de_DE"}) QTest::newRow(locale) << QString::fromLatin1(locale);
  }

  // On a date with long names, at a wide time.
  void everyTileFitsInEverySize() {
    QFETCH(QString, locale);
    TimeRoom room("2026-09-23T20:58:00Z", qPrintable(locale));
    room.defaults.set("worldClockZones",
                      {"America/Argentina/Buenos_Aires", "Asia/Kathmandu", "America/Los_Angeles San Francisco"});
    room.defaults.set("countdownTitle", DefaultsValue{std::string("The move to the house by the lake")});
    room.defaults.set("countdownDate", DefaultsValue{4102444800.0});
    room.area.defaultsChanged({"worldClockZones"});
    Scene scene;
    auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&room.area});
    const auto widgets = board->widgets();
    QCOMPARE(widgets.size(), std::size_t(17));
    for (const DockWidget widget : widgets) board->addInEverySize(widget);
    QVERIFY(scene.show(std::move(board)));
    QCOMPARE(faultsInBothSchemes(scene, qPrintable(QStringLiteral("time-tiles-") + locale)) + collisionsOfAll(scene),
             QStringList());
  }

  void everyPanelCanBeUsedByKeyboard() {
    TimeRoom room;
    AppSettings settings(room.defaults);
    Scene scene;
    SettingValue::lend(scene.engine(), settings);
    auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&room.area});
    room.area.converter()->convert({});
    for (const char* panel : {"Month", "Progress", "WorldClock", "Countdown", "Moon", "UnixTime", "Meeting"})
      QVERIFY2(board->addPanel(QStringLiteral("Time/%1Panel.qml").arg(QLatin1String(panel))), panel);
    QVERIFY(scene.show(std::move(board)));
    const QStringList faults = faultsInBothSchemes(scene, "time-panels");
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    const QStringList names = namesByTab(scene);
    QCOMPARE(names.filter(QStringLiteral("nameless")), QStringList());
    for (const char* name : {"The next month", "Copy 2026-11-22", "Add a city", "Move London up", "Remove Tokyo",
                             "Copy Seconds, 1795354233", "Time of day, 15:00", "Copy these times"})
      QVERIFY2(names.contains(QLatin1String(name)),
               qPrintable(QLatin1String(name) + QStringLiteral(" is not among ") + names.join(u'|')));
  }

  void aClickCopiesTheUnixTime() {
    TimeRoom room;
    Scene scene;
    auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&room.area});
    QQuickItem* tile = board->add(DockWidget::unixTime, TileSize::medium);
    QVERIFY(scene.show(std::move(board)));
    QSignalSpy copied(tile, SIGNAL(copyAsked(QString)));
    tile->forceActiveFocus(Qt::TabFocusReason);
    QTest::keyClick(&scene.window(), Qt::Key_Return);
    QCOMPARE(copied.value(0).value(0).toString(), QStringLiteral("1795354233"));
  }

  void theCalendarIsWalkedByKeys() {
    TimeRoom room;
    AppSettings settings(room.defaults);
    Scene scene;
    SettingValue::lend(scene.engine(), settings);
    auto board = std::make_unique<TileBoard>(scene, std::vector<Area*>{&room.area});
    board->addPanel(QStringLiteral("Time/MonthPanel.qml"));
    QVERIFY(scene.show(std::move(board)));
    const auto press = [&](Qt::Key key, Qt::KeyboardModifiers with = {}) {
      QTest::keyClick(&scene.window(), key, with);
    };
    for (int i = 0; i < 20 && !spokenName(scene.window().activeFocusItem()).startsWith(QStringLiteral("Sunday")); ++i)
      press(Qt::Key_Tab);
    press(Qt::Key_Right);
    press(Qt::Key_Down);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageUp, Qt::ShiftModifier);
    QCOMPARE(room.area.month()->face().chosen, QStringLiteral("2025-12-30"));
    press(Qt::Key_Home);
    QVERIFY(room.area.month()->face().isAtToday);
  }
};

}  // namespace ambrel

QTEST_MAIN(ambrel::TimeTilesTests)
#include "TimeTilesTests.moc"
