#include <QSignalSpy>
#include <QTest>

#include "app/base/StoredValue.h"
#include "app/model/SettingValue.h"
#include "core/base/LocalText.h"
#include "tests/Time.h"
#include "tests/app/kit/TileBoard.h"
#include "tests/app/time/TimeRoom.h"

namespace ambrel {
namespace {

template <typename Row>
QStringList texts(RowList* rows, QString Row::*text) {
  QStringList list;
  for (const Row& row : static_cast<GadgetListModel<Row>*>(rows)->rows()) list << row.*text;
  return list;
}

}  // namespace

class TimeTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theClockHasTheUsersOwnForms() {
    const ClockFace face = clockFace(Calendar("America/New_York", "en_US"), at("2026-11-21T05:07:30Z"));
    QCOMPARE(face.time, QStringLiteral("12:07\u202fAM"));
    QCOMPARE(face.shortDate, QStringLiteral("Sat, Nov 21"));
    QCOMPARE(face.fullDate, QStringLiteral("Saturday, November 21, 2026"));
    QCOMPARE(face.hourText + u' ' + face.minuteText + u' ' + face.dayHalf, QStringLiteral("12 07 AM"));
    const ClockFace german = clockFace(Calendar("Europe/Berlin", "de_DE"), at("2026-11-21T23:30:00Z"));
    QCOMPARE(german.time, QStringLiteral("00:30"));
    QCOMPARE(german.weekday, QStringLiteral("Sonntag"));
    QCOMPARE(german.hourText + german.dayHalf, QStringLiteral("00"));
  }

  void eachWakeShowsSomethingNew() {
    using enum DockWidget;
    const struct {
      DockWidget widget;
      int most;  // wakes in the time that is looked at
      int span;  // in seconds
    } rows[] = {{unixTime, 60, 60},         {binaryClock, 60, 60},     {analogClock, 10, 600},
                {worldClock, 10, 600},      {dayProgress, 190, 86400}, {weekend, 24, 86400},
                {weekNumber, 7, 7 * 86400}, {countdown, 7, 7 * 86400}};
    for (const auto& [widget, most, span] : rows) {
      // From a Monday on, so that no weekend begins or ends.
      TimeRoom room("2026-11-23T00:00:30.5Z");
      int changes = 0;
      TimeArea& area = room.area;
      for (TimeModel* model : std::initializer_list<TimeModel*>{
               area.clock(), area.month(), area.worldClock(), area.countdown(), area.dayProgress(), area.weekProgress(),
               area.monthProgress(), area.yearProgress(), area.weekend(), area.binaryClock(), area.unixTime()})
        connect(model, &TimeModel::changed, this, [&] { ++changes; });
      room.show({widget});
      QVERIFY(room.clock.wakeTime.has_value());
      const Instant end = room.clock.now() + seconds(span);
      int wakes = 0;
      for (; *room.clock.wakeTime <= end; ++wakes) {
        const int before = changes;
        room.wake();
        QVERIFY2(changes > before, iso8601(room.clock.now()).c_str());
      }
      QVERIFY2(wakes > 0 && wakes <= most,
               qPrintable(QStringLiteral("%1: %2").arg(toQString(nameOf(widget))).arg(wakes)));
    }
  }

  void whatNobodySeesIsNotWoken() {
    TimeRoom room;
    room.show({DockWidget::unixTime, DockWidget::clock}, false);
    QVERIFY(!room.clock.wakeTime);
    room.show({DockWidget::clock});
    QCOMPARE(*room.clock.wakeTime, at("2026-11-22T13:31:00Z"));
    // It comes into sight an hour later.
    room.show({}, true);
    room.clock.pass(Seconds(3600));
    room.show({DockWidget::clock});
    QCOMPARE(room.area.clock()->face().time, QStringLiteral("15:30"));
  }

  void aChangeOfTheClockOrTheZoneIsFollowed() {
    TimeRoom room;
    room.show({DockWidget::clock, DockWidget::dayProgress, DockWidget::monthCalendar});
    room.clock.set(at("2026-12-31T22:59:59Z"));
    room.clock.ring();
    QCOMPARE(room.area.clock()->face().time, QStringLiteral("23:59"));
    QCOMPARE(room.area.month()->face().presentTitle, QStringLiteral("December 2026"));
    room.beIn("Asia/Tokyo");
    QCOMPARE(room.area.clock()->face().time, QStringLiteral("07:59"));
    QCOMPARE(room.area.dayProgress()->face().percent, 33);
    QCOMPARE(room.area.month()->face().presentTitle, QStringLiteral("January 2027"));
  }

  void citiesAreFoundKeptAndOrdered() {
    TimeRoom room;
    WorldClockModel& world = *room.area.worldClock();
    CityList& cities = *world.cities();
    QCOMPARE(texts(world.rows(), &CityTimeRow::name), (QStringList{"New York", "London", "Tokyo"}));
    cities.search(QStringLiteral("san fr"));
    QCOMPARE(texts(cities.results(), &FoundCityRow::name), QStringList{"San Francisco"});
    cities.addFirst();
    QVERIFY(static_cast<GadgetListModel<FoundCityRow>*>(cities.results())->rows().front().isChosen);
    cities.addFirst();
    cities.moveUp(QStringLiteral("America/Los_Angeles San Francisco"));
    cities.remove(QStringLiteral("Europe/London London"));
    QCOMPARE(texts(world.rows(), &CityTimeRow::name), (QStringList{"New York", "San Francisco", "Tokyo"}));
    QCOMPARE(texts(world.rows(), &CityTimeRow::detail), (QStringList{"−6 h", "−9 h", "+8 h"}));
    QCOMPARE(*room.stored().strings("worldClockZones"),
             (std::vector<std::string>{"America/New_York", "America/Los_Angeles San Francisco", "Asia/Tokyo"}));
    cities.search(QStringLiteral("nowhere at all"));
    QCOMPARE(cities.note(), QStringLiteral("No city or country of that name"));
  }

  void citiesThatAreEditedByHandAreTaken() {
    TimeRoom room;
    room.defaults.set("worldClockZones", {"Asia/Kathmandu", "Mars/Olympus", "Asia/Kathmandu", "Asia/Kolkata Mum"});
    room.area.defaultsChanged({"worldClockZones"});
    QCOMPARE(texts(room.area.worldClock()->rows(), &CityTimeRow::name), (QStringList{"Kathmandu", "Mum"}));
    QCOMPARE(texts(room.area.worldClock()->rows(), &CityTimeRow::difference), (QStringList{"+4:45 h", "+4:30 h"}));
    // None is a choice as well.
    room.defaults.set("worldClockZones", std::vector<std::string>{});
    room.area.defaultsChanged({"worldClockZones"});
    QCOMPARE(room.area.worldClock()->rows()->count(), 0);
  }

  void theCountdownKeepsWhatIsChosen() {
    TimeRoom room;
    CountdownModel& countdown = *room.area.countdown();
    QCOMPARE(countdown.face().title, QStringLiteral("New Year"));
    QCOMPARE(countdown.face().value + u' ' + countdown.face().unit, QStringLiteral("40 days"));
    QVERIFY(countdown.face().isUsual);
    countdown.showDate();
    QCOMPARE(countdown.month()->face().chosen, QStringLiteral("2027-01-01"));
    QVERIFY2(!room.stored().object("countdownDate"), "looking stores nothing");
    countdown.month()->moveMonths(2);
    countdown.month()->moveDays(13);
    countdown.month()->turnPage(5);
    QCOMPARE(countdown.month()->face().title, QStringLiteral("August 2027"));
    countdown.setTitle(QStringLiteral(" Trip "));
    QCOMPARE(countdown.face().title + u' ' + countdown.face().date, QStringLiteral("Trip Sunday, 14 March 2027"));
    QVERIFY2(!room.stored().object("countdownTitle"), "not for each key");
    countdown.finish();
    QCOMPARE(room.stored().string("countdownTitle"), std::optional<std::string>("Trip"));
    QCOMPARE(instantFromUnixSeconds(*room.stored().number("countdownDate")), at("2027-03-14T12:00:00Z"));
    countdown.reset();
    QVERIFY(countdown.face().isUsual && !room.stored().object("countdownTitle"));
  }

  void aCountdownReadsInDays() {
    const Calendar calendar("Europe/Berlin", "en_GB");
    const std::tuple<Date, const char*, const char*> rows[] = {{{2026, 11, 22}, "Today ", ""},
                                                               {{2026, 11, 23}, "1 day", ""},
                                                               {{2026, 11, 30}, "8 days", "1 week and 1 day"},
                                                               {{2026, 11, 21}, "1 day ago", ""},
                                                               {{2026, 11, 8}, "14 days ago", "2 weeks"}};
    for (const auto& [date, text, weeks] : rows) {
      const CountdownFace face = countdownFace({"Trip", date}, calendar, at("2026-11-22T22:59:00Z"));
      QCOMPARE(face.value + u' ' + face.unit, QString::fromUtf8(text));
      QCOMPARE(face.weeks, QString::fromUtf8(weeks));
    }
  }

  void theCalendarIsPaged() {
    TimeRoom room("2026-01-31T12:00:00Z");
    MonthModel& month = *room.area.month();
    room.show({DockWidget::monthCalendar});
    month.moveMonths(1);
    QCOMPARE(month.face().chosen, QStringLiteral("2026-02-28"));
    QCOMPARE(month.face().chosenDetail, QStringLiteral("In 28 days · week 9 · day 59"));
    month.choose(QStringLiteral("2026-03-01"));
    QCOMPARE(month.face().title, QStringLiteral("March 2026"));
    month.choose(QStringLiteral("2026-02-30"));
    QCOMPARE(month.face().chosen, QStringLiteral("2026-03-01"));
    // A day that was chosen stays, and the present one moves on.
    room.wake();
    QVERIFY(!month.face().isAtToday);
    QCOMPARE(month.face().presentDay, QStringLiteral("1"));
    month.goToToday();
    QCOMPARE(month.face().chosen, QStringLiteral("2026-02-01"));
    QCOMPARE(texts(month.week(), &DayCell::number), (QStringList{"26", "27", "28", "29", "30", "31", "1"}));
  }

  void aMeetingIsProposedInAllCities() {
    TimeRoom room("2026-11-23T08:00:00Z");
    room.defaults.set("worldClockZones", {"America/New_York", "Europe/London"});
    room.area.defaultsChanged({"worldClockZones"});
    MeetingModel& meeting = *room.area.meeting();
    QCOMPARE(meeting.face().best, QStringLiteral("15:00 – 17:00"));
    QCOMPARE(meeting.face().note, QStringLiteral("All 3 at work"));
    // "Monday, 23 November", as this release of ICU writes it.
    const auto day = formattedDate(room.calendar(), at("2026-11-23T08:00:00Z"), "EEEEMMMMd");
    QCOMPARE(meeting.proposal(), toQString(day) + "\nBerlin: 15:00\nNew York: 09:00\nLondon: 14:00");
    meeting.setPosition(4 * 20);
    QCOMPARE(texts(meeting.rows(), &MeetingRow::detail), (QStringList{"off work", "at work", "off work"}));
    // A choice of its own no longer follows the world clock.
    meeting.cities()->remove(QStringLiteral("Europe/London London"));
    QCOMPARE(room.stored().string("meetingZones"), std::optional<std::string>("America/New_York"));
    room.area.worldClock()->cities()->remove(QStringLiteral("America/New_York New York"));
    QCOMPARE(texts(meeting.rows(), &MeetingRow::name), (QStringList{"Berlin", "New York"}));
    room.defaults.set("meetingToHour", DefaultsValue{std::int64_t{15}});
    room.area.defaultsChanged({"meetingToHour"});
    QCOMPARE(meeting.face().note, QStringLiteral("No common hours"));
  }

  void aMomentIsConvertedBothWays() {
    TimeRoom room;
    TimeConverter& converter = *room.area.converter();
    converter.convert(QStringLiteral("1795354233"));
    QCOMPARE(texts(converter.rows(), &ConversionRow::value),
             (QStringList{"1795354233", "1795354233000", "Sun, 22 Nov 2026, 14:30:33", "2026-11-22T13:30:33Z"}));
    converter.convert(QStringLiteral("2026-11-22 14:30:33"));
    QCOMPARE(texts(converter.rows(), &ConversionRow::value).front(), QStringLiteral("1795354233"));
    converter.convert(QStringLiteral("soon"));
    QVERIFY(converter.isProblem() && converter.rows()->count() == 0);
    converter.convert({});
    QCOMPARE(converter.note(), QStringLiteral("Now"));
  }

  // On a date with long names, at a wide time.
  void everyTileFitsInEverySize() {
    for (const char* locale : {"en_US", "de_DE"}) {
      TimeRoom room("2026-09-23T20:58:00Z", locale);
      room.defaults.set("worldClockZones",
                        {"America/Argentina/Buenos_Aires", "Asia/Kathmandu", "America/Los_Angeles San Francisco"});
      room.defaults.set("countdownTitle", DefaultsValue{std::string("The move to the house by the lake")});
      room.defaults.set("countdownDate", DefaultsValue{4102444800.0});
      room.area.defaultsChanged({"worldClockZones"});
      Scene scene;
      QCOMPARE(showTiles(scene, {&room.area}), 17 * 4);
      QCOMPARE(
          faultsInBothSchemes(scene, qPrintable(QStringLiteral("time-tiles-") + locale)) + collisionsOfTiles(scene),
          QStringList());
    }
  }

  void everyPanelCanBeUsedByKeyboard() {
    TimeRoom room;
    AppSettings settings(room.defaults);
    Scene scene;
    SettingValue::lend(scene.engine(), settings);
    room.area.converter()->convert({});
    QVERIFY(
        showPanels(scene, room.area, {"Month", "Progress", "WorldClock", "Countdown", "Moon", "UnixTime", "Meeting"}));
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
    QVERIFY(showPanels(scene, room.area, {"Month"}));
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

QTEST_MAIN(ambrel::TimeTests)
#include "TimeTests.moc"
