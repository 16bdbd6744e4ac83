#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/calendar/CalendarArea.h"
#include "app/model/AppSettings.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeCalendarService.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeFolderWatch.h"
#include "tests/fakes/HeldWork.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

std::string entry(const std::string& title, const std::string& lines) {
  return "BEGIN:VEVENT\nUID:" + title + "\nSUMMARY:" + title + "\n" + lines + "\nEND:VEVENT\n";
}

// A Friday, ten in the morning in Berlin.
struct Room {
  Room() { defaults.set("calendarPlaces", DefaultsValue{DefaultsArray{}}); }

  CalendarModel::Seams seams() {
    return {.home = {folder.path(), folder / "data", folder / "config", folder / "cache"},
            .settings = settings,
            .folders = folders,
            .service = service,
            .fetcher = fetcher,
            .background = work.background(),
            .calendar = calendar,
            .now = [this] { return clock.now(); },
            .later = [this](Seconds, std::function<void()> step) { steps.push_back(std::move(step)); }};
  }
  void write(const std::string& file, const std::string& text) { folder.write(".calendars/work/" + file, text); }
  // The watch has told of a change, and the model has had its time to read.
  void settle() {
    for (const auto& step : std::exchange(steps, {})) step();
    while (!work.waiting.empty()) work.letGo();
  }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  FakeFolderWatch folders;
  Fetcher fetcher;
  FakeCalendarService service;
  HeldWork work;
  PresentCalendar calendar{Calendar("Europe/Berlin", "en_GB")};
  FakeClock clock{*parseISO8601("2026-11-20T09:00:00Z")};
  std::vector<std::function<void()>> steps;
};

QStringList titles(RowList* list) {
  QStringList titles;
  for (int i = 0; i < list->count(); ++i)
    titles << list->data(list->index(i), list->roleNames().key("title")).toString();
  return titles;
}

}  // namespace

class CalendarModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void saysWhatIsMissingAndFollowsWhatIsAdded() {
    Room room;
    CalendarModel model(room.seams());
    const QAbstractItemModelTester tester(model.agenda(), QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.start();
    QCOMPARE(model.face().problem, QString());
    QVERIFY2(room.folders.followed.empty(), "their disk may not answer");
    room.settle();
    QVERIFY(!room.folders.followed.empty());
    QCOMPARE(model.face().problem, QStringLiteral("No calendar found"));
    room.write("a.ics", entry("Review", "DTSTART:20261120T140000Z\nDURATION:PT1H") +
                            entry("Trip", "DTSTART;VALUE=DATE:20261121") + entry("Lunch", "DTSTART:20261120T110000Z") +
                            "BEGIN:VTODO\nUID:t\nSUMMARY:Call\nDUE:20261120T080000Z\nEND:VTODO\n");
    room.folders.change(0);
    room.settle();
    QCOMPARE(model.face().problem, QString());
    QCOMPARE(titles(model.agenda()), QStringList({"Lunch", "Review", "Trip"}));
    QCOMPARE(titles(model.today()), QStringList({"Lunch", "Review"}));
    QCOMPARE(model.face().next.title, QStringLiteral("Lunch"));
    QCOMPARE(model.face().next.when, QStringLiteral("at 12:00"));
    QCOMPARE(model.face().todaySummary, QStringLiteral("12:00 Lunch, 15:00 Review"));
    QCOMPARE(model.face().dueTasks, 1);
    QVERIFY(model.face().task.isOverdue);
    const QVariantList days = model.eventsOf("2026-11-21");
    QCOMPARE(days.size(), 1);
    QCOMPARE(days.first().value<EventRow>().time, QStringLiteral("All day"));
    // What is being written while it is read is read again.
    room.folders.change(0);
    for (const auto& step : std::exchange(room.steps, {})) step();
    room.write("a.ics", entry("Other", "DTSTART:20261120T110000Z"));
    room.folders.change(0);
    for (const auto& step : std::exchange(room.steps, {})) step();
    room.settle();
    room.settle();
    QCOMPARE(titles(model.agenda()), QStringList({"Other"}));
  }

  void countsTheMinutesOnlyWhileSomebodyLooks() {
    Room room;
    room.write("a.ics", entry("Stand-up", "DTSTART:20261120T093000Z\nDURATION:PT15M\nURL:https://meet.example/a"));
    CalendarModel model(room.seams());
    model.start();
    room.settle();
    const Instant midnight = *parseISO8601("2026-11-20T23:00:00Z");
    QCOMPARE(*model.due(), midnight);
    model.setSeen(true, room.clock.now());
    const auto pass = [&] {
      room.clock.set(*model.due());
      model.tick(room.clock.now());
      return model.face().next.when;
    };
    QCOMPARE(model.face().next.when, QStringLiteral("in 30 min"));
    QCOMPARE(pass(), QStringLiteral("in 29 min"));
    for (int left = 28; left > 5; --left) pass();
    QVERIFY(!model.face().next.isNear);
    QCOMPARE(pass(), QStringLiteral("in 5 min"));
    QVERIFY(model.face().next.isNear);
    for (int left = 4; left > 0; --left) pass();
    QCOMPARE(pass(), QStringLiteral("Now"));
    QSignalSpy asked(&model, &CalendarModel::linkAsked);
    model.join(model.face().next.id);
    QCOMPARE(asked.size(), 1);
    pass();
    QVERIFY(!model.face().next.isNear);
    pass();
    QCOMPARE(model.face().next.id, QString());
    QCOMPARE(*model.due(), midnight);
  }

  void tellsBuddyAndThePeekerOfMeetings() {
    Room room;
    room.write("a.ics", entry("Soon", "DTSTART:20261120T090200Z\nLOCATION:https://meet.example/a") +
                            entry("Begun", "DTSTART:20261120T085800Z\nDURATION:PT1H") +
                            entry("Long ago", "DTSTART:20261120T080000Z\nDURATION:PT5H") +
                            entry("Day", "DTSTART;VALUE=DATE:20261120"));
    DueTimer due(room.clock);
    CalendarArea area(room.seams(), due);
    area.calendar()->start();
    room.settle();
    BuddySignals signals;
    area.addSignals(signals, room.clock.now());
    QCOMPARE(signals.meetings.size(), 2U);
    QCOMPARE(signals.meetings[0].title, std::string("Begun"));
    QVERIFY(!signals.meetings[0].url);
    QCOMPARE(signals.meetings[1].url, std::optional<std::string>("https://meet.example/a"));
    PeekSignals peek;
    area.addPeeks(peek, room.clock.now());
    QCOMPARE(peekReasons(peek, room.clock.now()).size(), 1U);
  }

  void aZoneAndADayChange() {
    Room room;
    room.write("a.ics", entry("Floating", "DTSTART:20261120T150000") +
                            entry("Daily", "DTSTART:20261119T160000Z\nRRULE:FREQ=DAILY"));
    CalendarModel model(room.seams());
    model.start();
    room.settle();
    QCOMPARE(model.face().todaySummary, QStringLiteral("15:00 Floating, 17:00 Daily"));
    room.calendar.replace(Calendar("America/New_York", "en_GB"));
    model.zoneChanged(room.clock.now());
    room.settle();
    QCOMPARE(model.face().todaySummary, QStringLiteral("11:00 Daily, 15:00 Floating"));
    room.clock.set(*model.due());
    model.tick(room.clock.now());
    room.settle();
    QCOMPARE(model.face().todaySummary, QStringLiteral("11:00 Daily"));
  }

  void calendarsAreHiddenAndAdded() {
    Room room;
    room.write("a.ics", entry("Work", "DTSTART:20261120T100000Z"));
    room.folder.write("mine/private.ics", entry("Own", "DTSTART:20261120T110000Z"));
    CalendarModel model(room.seams());
    connect(&room.settings, &AppSettings::chosen, &model, &CalendarModel::reload);
    model.start();
    room.settle();
    QVERIFY(!model.addPlace(QStringLiteral("~/none.ics")).isEmpty());
    QCOMPARE(model.addPlace(QStringLiteral(" ~/mine/private.ics ")), QString());
    room.settle();
    QCOMPARE(titles(model.today()), QStringList({"Work", "Own"}));
    model.setShown(QStringLiteral("work"), false);
    room.settle();
    QCOMPARE(titles(model.today()), QStringList({"Own"}));
    QCOMPARE(model.sources()->count(), 2);
    model.removePlace(QStringLiteral("~/mine/private.ics"));
    room.settle();
    QCOMPARE(titles(model.today()), QStringList());
  }

  void anAddressIsAskedAgainAndKept() {
    QVERIFY(!subscriptionUrl("http://calendar.example/a.ics"));
    QVERIFY(!subscriptionUrl("file:///etc/passwd"));
    QCOMPARE(subscriptionUrl("webcal://calendar.example/a.ics")->toString(),
             QStringLiteral("https://calendar.example/a.ics"));
    Room room;
    LoopbackServer server;
    LoopbackServer::Reply reply{
        .body = ("BEGIN:VCALENDAR\n" + entry("Online", "DTSTART:20261120T100000Z") + "END:VCALENDAR\n").c_str()};
    server.answer = [&](const QByteArray&) { return reply; };
    QUrl url = server.url();
    url.setUserInfo("ada:secret");
    url.setPath("/private/a.ics");
    const std::string address = url.toString().toStdString();
    const std::filesystem::path kept = room.folder / "cache/Ambrel/calendars";
    room.folder.write("cache/Ambrel/calendars/left.ics", "of an address that was removed while no bar ran");
    room.settings.set(setting::calendarPlaces, {address});
    const auto answered = [&](int requests) {
      return QTest::qWaitFor([&] { return server.targets.size() == requests && !room.work.waiting.empty(); }, 15000);
    };
    const auto settle = [&] {
      while (!room.work.waiting.empty()) room.settle();
    };
    CalendarModel model(room.seams());
    model.start();
    settle();
    QVERIFY(!std::filesystem::exists(kept / "left.ics"));
    QVERIFY(answered(1));
    settle();
    QCOMPARE(titles(model.today()), QStringList({"Online"}));
    reply.status = 500;
    room.clock.set(room.clock.now() - std::chrono::hours(2));
    model.clockMoved(Seconds(-7200), room.clock.now());
    settle();
    room.clock.set(*model.due());
    QCOMPARE(room.clock.now(), *parseISO8601("2026-11-20T07:30:00Z"));
    model.tick(room.clock.now());
    QVERIFY(answered(2));
    settle();
    QCOMPARE(titles(model.today()), QStringList({"Online"}));
    const QVariant detail =
        model.sources()->data(model.sources()->index(0), model.sources()->roleNames().key("detail"));
    QCOMPARE(detail.toString(), server.url().toString() + "/… · Not updated: the server says 500");
    // Written in another way it has the same file.
    room.settings.set(setting::calendarPlaces, {address, "HTTP" + address.substr(4)});
    model.reload();
    settle();
    QVERIFY(answered(3));
    settle();
    room.settings.set(setting::calendarPlaces, {address});
    model.reload();
    settle();
    QVERIFY(!std::filesystem::is_empty(kept));
    room.settings.set(setting::calendarPlaces, {});
    model.reload();
    settle();
    QCOMPARE(model.sources()->count(), 0);
    QVERIFY(std::filesystem::is_empty(kept));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::CalendarModelTests)
#include "CalendarModelTests.moc"
