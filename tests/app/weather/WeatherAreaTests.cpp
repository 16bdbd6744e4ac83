#include <QTest>

#include "app/weather/WeatherArea.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/weather/WeatherSample.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

using std::chrono::minutes;

struct Room {
  Room() {
    server.answer = [](const QByteArray& target) -> LoopbackServer::Reply {
      return {.body = sample(target.startsWith("/v1/air-quality?") ? "air-london.json" : "london.json")};
    };
    for (const char* key : {"weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL"})
      defaults.set(key, DefaultsValue{server.url().toString().toStdString()});
  }
  // Until the forecasts of both places that somebody wants are there.
  bool until(int requests) {
    return QTest::qWaitFor([&] { return server.targets.size() >= requests; }, 15000) &&
           server.targets.size() == requests;
  }
  int about(const char* latitude) const {
    int found = 0;
    for (const QByteArray& target : server.targets) found += target.contains(latitude) ? 1 : 0;
    return found;
  }

  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  FakeClock clock{*parseISO8601("2026-07-14T09:41:00Z")};
  LoopbackServer server;
  DueTimer due{clock};
  std::function<Instant()> now = [this] { return clock.now(); };
};

}  // namespace

class WeatherAreaTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void eachPlaceIsAskedForWhileItIsWanted() {
    Room room;
    WeatherArea models(room.defaults, Calendar("Europe/Berlin", "en_GB"), room.now, room.due);
    models.setWanted(false, false);
    models.setWanted(true, false);
    QVERIFY(room.until(2));
    QCOMPARE(room.about("latitude=51.5074&"), 2);
    QCOMPARE(models.second()->texts().placeLabel, QStringLiteral("New York, United States"));
    models.setWanted(false, true);
    QVERIFY(room.until(4));
    QCOMPARE(room.about("latitude=40.7128&"), 2);
    QVERIFY(QTest::qWaitFor([&] { return models.second()->texts().problem.isEmpty(); }, 15000));
  }

  void theTwoHaveOneUnit() {
    Room room;
    WeatherArea models(room.defaults, Calendar("Europe/Berlin", "en_GB"), room.now, room.due);
    models.setWanted(true, true);
    QVERIFY(room.until(4));
    room.defaults.set("weatherFahrenheit", DefaultsValue{true});
    models.defaultsChanged({"weatherFahrenheit"});
    QVERIFY(room.until(6));
    QVERIFY(room.server.targets[4].contains("fahrenheit") && room.server.targets[5].contains("fahrenheit"));
  }

  void theTimerBringsTheNextForecast() {
    Room room;
    WeatherArea models(room.defaults, Calendar("Europe/Berlin", "en_GB"), room.now, room.due);
    models.setWanted(true, false);
    QVERIFY(QTest::qWaitFor(
        [&] { return models.main()->texts().problem.isEmpty() && !models.main()->texts().airValue.isEmpty(); }, 15000));
    QVERIFY(QTest::qWaitFor(
        [&] {
          const auto wake = room.clock.wakeTime;
          return wake && *wake >= room.clock.now() + minutes(30) && *wake < room.clock.now() + minutes(32);
        },
        15000));
    room.clock.pass(minutes(32));
    room.clock.ring();
    QVERIFY(room.until(4));
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::WeatherAreaTests)
#include "WeatherAreaTests.moc"
