#include <QSignalSpy>
#include <QTest>

#include "app/feeds/FeedsArea.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

using Reply = LoopbackServer::Reply;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

constexpr const char* rates =
    "<e><Cube><Cube time='2026-11-20'><Cube currency='USD' rate='1.25'/><Cube currency='JPY' "
    "rate='160'/></Cube></Cube></e>";

struct Room {
  Room() {
    server.answer = [this](const QByteArray& target) {
      if (!isWell) return Reply{.status = 503, .body = "busy"};
      if (target == "/v0/topstories.json") return Reply{.body = "[7,8,9]"};
      if (target == "/v0/item/8.json") return Reply{.body = "null"};
      if (target.startsWith("/v0/item/"))
        return Reply{.body = "{\"id\":" + target.mid(9, 1) + ",\"title\":\"Story " + target.mid(9, 1) +
                             "\",\"url\":\"https://a.example/\",\"score\":5,\"descendants\":1}"};
      return Reply{.body = rates};
    };
    defaults.set("hackerNewsURL", DefaultsValue{server.url().toString().toStdString()});
    defaults.set("currencyRatesURL", DefaultsValue{(server.url().toString() + "/rates.xml").toStdString()});
  }
  void start() {
    area.reset();
    area = std::make_unique<FeedsArea>(FeedSeams{.fetcher = fetcher,
                                                 .defaults = defaults,
                                                 .shell = shell,
                                                 .documents = folder / "Ambrel",
                                                 .calendar = calendar,
                                                 .now = [this] { return clock.now(); },
                                                 .open =
                                                     [this](const QUrl& url) {
                                                       opened << url;
                                                       return true;
                                                     },
                                                 .mostJitter = 0},
                                       due);
  }
  void look(bool areSeen = true) {
    area->widgetsChanged({DockWidget::hackerNews, DockWidget::currency, DockWidget::quote}, areSeen, clock.now());
  }
  StoriesModel& stories() { return *area->stories(); }
  CurrencyModel& currency() { return *area->currency(); }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  FakeClock clock{*parseISO8601("2026-11-22T09:00:00Z")};
  PresentCalendar calendar{Calendar("UTC", "en_US")};
  FakeShell shell;
  Fetcher fetcher;
  LoopbackServer server;
  DueTimer due{clock};
  bool isWell = true;
  QList<QUrl> opened;
  std::unique_ptr<FeedsArea> area;
};

}  // namespace

class FeedsTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void storiesAreFetchedWhileSeenAndKept() {
    Room room;
    room.start();
    QCOMPARE(room.stories().face().problem, QStringLiteral("Waiting for data"));
    QVERIFY(!room.stories().due());
    room.look();
    QTRY_COMPARE(room.stories().face().title, QStringLiteral("Story 7"));
    QCOMPARE(room.stories().rows()->count(), 2);
    QCOMPARE(room.stories().face().detail, QStringLiteral("5 points, 1 comment"));
    QVERIFY(room.stories().openTop());
    room.stories().openDiscussion(QStringLiteral("9"));
    QCOMPARE(room.opened, (QList<QUrl>{QUrl("https://a.example/"), QUrl("https://news.ycombinator.com/item?id=9")}));
    QVERIFY(room.stories().due() == room.clock.now() + minutes(15));

    // The next run shows them at once, and asks when they are old.
    QTRY_VERIFY(!room.currency().face().result.isEmpty());
    room.isWell = false;
    room.clock.pass(minutes(10));
    const auto asked = room.server.targets.size();
    room.start();
    room.look();
    QCOMPARE(room.stories().face().title, QStringLiteral("Story 7"));
    QCOMPARE(room.server.targets.size(), asked);
    room.clock.pass(minutes(25));
    room.stories().tick(room.clock.now());
    QTRY_VERIFY(!room.stories().face().staleSince.isEmpty());
    QCOMPARE(room.stories().face().title, QStringLiteral("Story 7"));
    room.look(false);
    QVERIFY(!room.stories().due());
  }

  void whatIsNoAnswerSaysSoAndComesLater() {
    Room room;
    room.isWell = false;
    room.start();
    room.look();
    QTRY_COMPARE(room.stories().face().problem, QStringLiteral("No answer yet"));
    QTRY_COMPARE(room.currency().face().problem, QStringLiteral("No answer yet"));
    QVERIFY(room.stories().due() == room.clock.now() + seconds(60));
    room.isWell = true;
    room.clock.pass(seconds(60));
    room.stories().tick(room.clock.now());
    QTRY_COMPARE(room.stories().face().title, QStringLiteral("Story 7"));
  }

  void onlySafeServersAreAsked() {
    Room room;
    room.server.answer = [](const QByteArray&) {
      return Reply{.status = 302, .body = {}, .location = "http://stories.invalid/"};
    };
    for (const QUrl& address : {QUrl("http://stories.invalid/"), room.server.url()}) {
      std::optional<Download> answer;
      room.fetcher.get(address, {}, &room.fetcher, [&](Download all) { answer = std::move(all); });
      QTRY_VERIFY(answer.has_value());
      QVERIFY(!answer->body);
      QVERIFY2(answer->failure == FetchFailure::bad, "nobody was looked for");
    }
  }

  void anAmountIsConvertedWithWhatThereIs() {
    Room room;
    room.start();
    room.look();
    QTRY_COMPARE(room.currency().face().result, QStringLiteral("€80.00"));
    QCOMPARE(room.currency().face().day, QStringLiteral("Rates of Nov 20"));
    room.currency().begin();
    room.currency().setAmount(QStringLiteral("10"));
    QVERIFY2(!room.defaults.object("currencyAmount"), "not for each key");
    room.currency().setTo(QStringLiteral("JPY"));
    QCOMPARE(room.currency().face().result, QStringLiteral("¥1,280"));
    room.currency().setFrom(QStringLiteral("JPY"));
    QCOMPARE(room.currency().face().to, QStringLiteral("USD"));
    room.currency().setAmount(QStringLiteral("ten"));
    QCOMPARE(room.currency().face().fault, QStringLiteral("This is not an amount"));
    room.currency().setAmount(QStringLiteral("160"));
    room.currency().end();
    // Offline, in the next run.
    room.server.close();
    room.clock.pass(hours(48));
    room.start();
    room.look();
    QCOMPARE(room.currency().face().result, QStringLiteral("$1.25"));
    room.currency().copy();
    QCOMPARE(room.shell.copied, QStringList{"$1.25"});
  }

  void theQuoteTurnsAtTheMidnightOfThePresentZone() {
    Room room;
    room.start();
    room.look();
    QuoteModel& quote = *room.area->quote();
    const QString first = quote.text();
    QVERIFY(quote.due() == parseISO8601("2026-11-23T00:00:00Z"));
    room.calendar.replace(Calendar("Pacific/Kiritimati", "en_US"));
    room.due.zoneChanged();
    QVERIFY(quote.due() == parseISO8601("2026-11-22T10:00:00Z"));
    room.clock.pass(hours(1));
    quote.tick(room.clock.now());
    QVERIFY(quote.text() != first);
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::FeedsTests)
#include "FeedsTests.moc"
