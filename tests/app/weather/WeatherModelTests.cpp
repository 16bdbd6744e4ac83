#include <QSignalSpy>
#include <QTest>

#include "app/weather/WeatherArea.h"
#include "app/weather/WeatherService.h"
#include "tests/TemporaryFolder.h"
#include "tests/Time.h"
#include "tests/app/weather/WeatherSample.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

using Reply = LoopbackServer::Reply;

// A machine with a weather server on its loopback address, at 10:41 of a London summer's morning.
struct Room {
  Room() {
    server.answer = [this](const QByteArray& target) {
      if (target.startsWith("/v1/air-quality?")) return air;
      return target.startsWith("/v1/search?") ? places : forecast;
    };
    for (const char* key : {"weatherForecastURL", "weatherAirQualityURL", "weatherGeocodingURL"})
      defaults.set(key, DefaultsValue{server.url().toString().toStdString()});
  }

  WeatherModel make(WeatherModel::Setting setting = WeatherModel::mainSetting()) {
    return WeatherModel(std::move(setting), service, defaults, Calendar("Europe/Berlin", "en_GB"),
                        [this] { return clock.now(); });
  }
  // Both places, on the program's timer.
  WeatherArea makeArea() {
    return WeatherArea(
        fetcher, defaults, Calendar("Europe/Berlin", "en_GB"), [this] { return clock.now(); }, due);
  }
  // As in the panel.
  void choose(WeatherModel& model, const char* key, const DefaultsValue& value) {
    defaults.set(key, value);
    model.reload(false);
  }
  // Until that many requests have come and all their answers have been looked at.
  bool settled(int requests) {
    const bool came = QTest::qWaitFor([&] { return server.targets.size() >= requests; }, 15000);
    // Whatever is on its way arrives before the answer to a question that is asked now.
    bool answered = false;
    QObject receiver;
    service.get(WeatherService::Kind::geocoding, "/v1/search?name=settle", &receiver,
                [&](const auto&, const auto&) { answered = true; });
    const bool isAnswered = QTest::qWaitFor([&] { return answered; }, 15000);
    server.targets.removeAll("/v1/search?name=settle");
    return came && isAnswered && server.targets.size() == requests;
  }
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  FakeClock clock{*parseISO8601("2026-07-14T09:41:00Z")};
  DueTimer due{clock};
  LoopbackServer server;
  Fetcher fetcher;
  WeatherService service{fetcher, {server.url(), server.url(), server.url()}, {.time = seconds(10)}, 0};
  Reply forecast{.body = sample("london.json")};
  Reply air{.body = sample("air-london.json")};
  Reply places{.body = sample("places-springfield.json")};
};

bool until(WeatherModel& model, const std::function<bool()>& holds) {
  if (holds()) return true;
  QSignalSpy changed(&model, &WeatherModel::changed);
  return QTest::qWaitFor(holds, 15000);
}

}  // namespace

class WeatherModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void showsWhatTheServicesAnswer() {
    Room room;
    WeatherModel model = room.make();
    QCOMPARE(model.texts().problem, QStringLiteral("Waiting for data"));
    model.setWanted(true, room.clock.now());
    QVERIFY(until(model, [&] { return model.texts().problem.isEmpty() && !model.texts().airValue.isEmpty(); }));
    const WeatherTexts& texts = model.texts();
    QCOMPARE(texts.summary, QStringLiteral("London, United Kingdom, 22°, Partly cloudy, 25° / 14°, Updated 11:41"));
    QCOMPARE(texts.symbol, QStringLiteral("cloud.sun.fill"));
    // The place's own time, an hour behind the user's.
    QCOMPARE(texts.sunTitle + texts.sunTime + ' ' + texts.localTime, QStringLiteral("Sunset21:12 10:41"));
    QVERIFY(texts.isWet);
    QCOMPARE(texts.airSummary, QStringLiteral("US AQI 42, Good"));
    QCOMPARE(texts.hours.size() + texts.days.size(), 14);
    QCOMPARE(texts.days[1].value<ForecastEntry>().time, QStringLiteral("Wed"));
    QVERIFY(texts.staleSince.isEmpty());
  }

  void aBadAnswerLeavesTheOldValuesWithTheirAge() {
    const Reply answers[] = {{.status = 500, .body = "<html>"},
                             {.body = sample("error.json")},
                             {.body = sample("london.json").left(900)},
                             {.body = R"({"utc_offset_seconds":null,"current":null,"hourly":null,"daily":null})"}};
    for (const Reply& answer : answers) {
      Room room;
      WeatherModel model = room.make();
      model.setWanted(true, room.clock.now());
      QVERIFY(until(model, [&] { return model.texts().problem.isEmpty() && !model.texts().airValue.isEmpty(); }));
      const WeatherReading before = model.reading();
      room.forecast = room.air = answer;
      room.clock.pass(minutes(30));
      model.tick(room.clock.now());
      QVERIFY(room.settled(4));
      QVERIFY(model.reading().forecast == before.forecast && model.reading().airQuality == before.airQuality);
      QVERIFY2(model.due() == room.clock.now() + minutes(30), "the next regular request is soon enough");
      QVERIFY(model.texts().staleSince.isEmpty());
      room.clock.pass(minutes(20));
      model.update();
      QCOMPARE(model.texts().staleSince, QStringLiteral("50 min ago"));
      QVERIFY(model.texts().problem.isEmpty());

      room.forecast = {.body = sample("london.json")};
      room.clock.pass(minutes(10));
      model.tick(room.clock.now());
      QVERIFY(until(model, [&] { return model.reading().updatedAt == room.clock.now(); }));
      QVERIFY(model.texts().staleSince.isEmpty());
    }
  }

  void itAsksWhateverTheDesktopSaysOfTheNetwork() {
    Room room;
    WeatherModel model = room.make();
    // It says so at the start, and then never anything else; the server is on this machine.
    model.setOnline(false, room.clock.now());
    model.setWanted(true, room.clock.now());
    QVERIFY(until(model, [&] { return model.texts().problem.isEmpty(); }));

    // Nobody listens there. What was not reached is tried again, and at once when the network is back.
    LoopbackServer gone;
    const QUrl nowhere = gone.url();
    gone.close();
    WeatherService unreached(room.fetcher, {nowhere, nowhere, nowhere}, {.time = seconds(10)}, 0);
    WeatherModel other(WeatherModel::mainSetting(), unreached, room.defaults, Calendar("Europe/Berlin", "en_GB"),
                       [&] { return room.clock.now(); });
    other.setOnline(false, room.clock.now());
    other.setWanted(true, room.clock.now());
    QVERIFY(until(other, [&] { return other.texts().problem == QStringLiteral("Offline"); }));
    QVERIFY(QTest::qWaitFor([&] { return other.due() == room.clock.now() + seconds(60); }, 15000));
    other.setOnline(true, room.clock.now());
    QVERIFY(other.due() == room.clock.now());
  }

  void theAirHasAnAgeOfItsOwn() {
    const Instant now = *parseISO8601("2026-07-14T11:11:00Z");
    WeatherReading reading;
    reading.forecast = decodeForecast(sample("london.json").toStdString()).value;
    reading.updatedAt = now;
    reading.airQuality = decodeAirQuality(sample("air-gaps.json").toStdString()).value;
    reading.airUpdatedAt = now - minutes(90);
    reading.scale = AirQualityScale::european;
    WeatherTexts texts = weatherTexts(defaultPlace(), reading, Calendar("Europe/Berlin", "en_GB"), now);
    QCOMPARE(texts.staleSince, QString());
    QCOMPARE(texts.airStaleSince, QStringLiteral("1 hr ago"));
    QCOMPARE(texts.airValue + texts.airLabel, QStringLiteral("58Moderate"));
    reading.scale = AirQualityScale::us;
    texts = weatherTexts(defaultPlace(), reading, Calendar("Europe/Berlin", "en_GB"), now);
    QVERIFY2(texts.airValue.isEmpty(), "the US index is a gap in this answer");
  }

  void carriesOutWhatIsDue() {
    Room room;
    WeatherModel model = room.make();
    model.choose(WeatherPlace{"Springfield", std::nullopt, 42.1, -72.5});
    QVERIFY2(room.settled(0), "nobody looks");
    model.setWanted(true, room.clock.now());
    QVERIFY(room.settled(2));
    QVERIFY(room.server.targets[0].startsWith("/v1/forecast?latitude=42.1&longitude=-72.5&"));
    room.clock.sleep(hours(8));
    model.slept(hours(8), room.clock.now());
    QCOMPARE(model.texts().staleSince, QStringLiteral("8 hr ago"));
    room.clock.pass(seconds(10));
    model.tick(room.clock.now());
    QVERIFY(room.settled(4));
  }

  void aPlaceIsSearchedForAfterAPause() {
    Room room;
    WeatherModel model = room.make();
    for (const char* typed : {"S", "Sp", "Spri", "Spring field "}) model.search(QString::fromLatin1(typed));
    QVERIFY(model.due() == room.clock.now() + std::chrono::milliseconds(300));
    room.clock.pass(Seconds(0.3));
    model.tick(room.clock.now());
    QVERIFY(QTest::qWaitFor([&] { return model.searchResults().size() == 6; }, 15000));
    QCOMPARE(room.server.targets, QByteArrayList{"/v1/search?name=Spring%20field&count=6&language=en"});
    model.search(QStringLiteral(" x "));
    QCOMPARE(model.searchNote(), QStringLiteral("Type at least two letters"));
    QVERIFY(!model.due());
  }

  void returnTakesTheFirstPlaceForWhatIsTyped() {
    Room room;
    WeatherModel model = room.make();
    QSignalSpy chosen(&model, &WeatherModel::placeChosen);
    model.search(QStringLiteral("Spring"));
    QCOMPARE(model.searchNote(), QStringLiteral("Searching…"));
    model.chooseFirst();
    QCOMPARE(chosen.count(), 0);
    QVERIFY(chosen.wait(15000));
    QCOMPARE(model.texts().placeLabel, QStringLiteral("Springfield, United States"));
    QCOMPARE(model.searchResults().at(1).toMap().value(QStringLiteral("detail")).toString(),
             QStringLiteral("Massachusetts, United States"));

    // The results shown are for an older text.
    room.places = {.body = sample("places-none.json")};
    model.search(QStringLiteral("Springfielx"));
    QCOMPARE(model.searchResults().size(), 6);
    model.chooseFirst();
    QVERIFY(QTest::qWaitFor([&] { return model.searchResults().isEmpty(); }, 15000));
    QCOMPARE(model.searchNote(), QStringLiteral("No place of that name"));
    model.chooseFirst();
    room.places = {.status = 500, .body = {}};
    model.search(QStringLiteral("Springfield"));
    model.chooseFirst();
    QVERIFY(QTest::qWaitFor([&] { return model.searchNote() == QStringLiteral("The search does not answer"); }, 15000));
    model.search(QStringLiteral(""));
    model.chooseFirst();
    QCOMPARE(chosen.count(), 1);

    // Another profile is active when the answer comes.
    room.places = {.body = sample("places-springfield.json")};
    model.choose(WeatherPlace{"Tokyo", "Japan", 35.7, 139.7});
    int kept = 0;
    room.defaults.keeperFor = [&](const std::string&) { return [&](const DefaultsValue&) { ++kept; }; };
    model.search(QStringLiteral("Springfield"));
    model.chooseFirst();
    room.defaults.keeperFor = nullptr;
    QVERIFY(QTest::qWaitFor([&] { return kept == 1; }, 15000));
    QCOMPARE(model.place().name, "Tokyo");
    QCOMPARE(chosen.count(), 2);
  }

  void aChosenPlaceIsStoredAndAskedForAtOnce() {
    Room room;
    WeatherModel model = room.make();
    model.setWanted(true, room.clock.now());
    QVERIFY(until(model, [&] { return model.texts().problem.isEmpty(); }));
    QVERIFY(room.settled(2));
    model.search(QStringLiteral("Springfield"));
    room.clock.pass(Seconds(0.3));
    model.tick(room.clock.now());
    QVERIFY(QTest::qWaitFor([&] { return !model.searchResults().isEmpty(); }, 15000));
    model.choose(6);
    QCOMPARE(model.texts().placeLabel, QStringLiteral("London, United Kingdom"));
    model.choose(1);
    QCOMPARE(model.texts().placeLabel, QStringLiteral("Springfield, United States"));
    QVERIFY2(!model.texts().problem.isEmpty(), "London's weather is not Springfield's");
    QVERIFY(model.texts().airValue.isEmpty());
    QVERIFY(room.settled(5));
    QVERIFY(room.server.targets[3].startsWith("/v1/forecast?latitude=42.10148&longitude=-72.58981&"));
    QVERIFY(room.server.targets[4].startsWith("/v1/air-quality?latitude=42.10148"));

    const UserDefaults stored(room.folder / "defaults.json");
    QVERIFY(decodedPlace(stored.data("weatherPlace").value_or("")) == model.place());
    QCOMPARE(room.make().texts().placeLabel, QStringLiteral("Springfield, United States"));
  }

  void anOlderAnswerIsNotLookedAt() {
    Room room;
    WeatherModel model = room.make();
    room.server.answer = [](const QByteArray& target) {
      return target.startsWith("/v1/forecast?latitude=51.5074") ? Reply{.body = sample("london.json")}
                                                                : Reply{.status = 500, .body = {}};
    };
    model.setWanted(true, room.clock.now());
    model.choose(WeatherPlace{"Springfield", std::nullopt, 42.1, -72.5});
    QVERIFY(room.settled(4));
    QVERIFY2(!model.reading().forecast, "London's weather has come, and is not Springfield's");
  }

  void aStoredPlaceThatIsNoneIsPassedOver() {
    Room room;
    room.defaults.set("weatherPlace", DefaultsValue{DefaultsData{"{\"name\":\"X\"}"}});
    room.defaults.set("secondCityPlace", DefaultsValue{std::string("Paris")});
    QCOMPARE(room.make().texts().placeLabel, QStringLiteral("London, United Kingdom"));
    QCOMPARE(room.make(WeatherModel::secondCitySetting()).texts().placeLabel,
             QStringLiteral("New York, United States"));
  }

  void anotherUnitIsAskedForAndShownWhenItIsThere() {
    Room room;
    WeatherModel model = room.make();
    QCOMPARE(model.texts().airScale, QStringLiteral("US AQI"));
    room.choose(model, "airQualityScale", {std::string("european")});
    QCOMPARE(model.texts().airScale, QStringLiteral("EU AQI"));
    model.setWanted(true, room.clock.now());
    QVERIFY(room.settled(2));
    QVERIFY(until(model, [&] { return model.texts().problem.isEmpty(); }));
    room.forecast = {.status = 500, .body = {}};
    room.choose(model, "weatherFahrenheit", {true});
    QVERIFY(room.settled(3));
    QVERIFY(room.server.targets[2].endsWith("&temperature_unit=fahrenheit&wind_speed_unit=mph"));
    QCOMPARE(model.texts().temperature + model.texts().windUnit, QStringLiteral("22°km/h"));
    room.forecast = {.body = sample("london.json")};
    room.clock.pass(minutes(30));
    model.tick(room.clock.now());
    QVERIFY(until(model, [&] { return model.texts().windUnit == QStringLiteral("mph"); }));
  }

  void theTwoPlacesHaveOneUnit() {
    Room room;
    WeatherArea area = room.makeArea();
    area.setWanted(true, true);
    QVERIFY(room.settled(4));
    room.defaults.set("weatherFahrenheit", DefaultsValue{true});
    area.defaultsChanged({"weatherFahrenheit"});
    QVERIFY(room.settled(6));
    QVERIFY(room.server.targets[4].contains("fahrenheit") && room.server.targets[5].contains("fahrenheit"));
  }

  void theTimerBringsTheNextForecast() {
    Room room;
    WeatherArea area = room.makeArea();
    area.setWanted(true, false);
    QVERIFY(until(*area.main(), [&] { return !area.main()->texts().airValue.isEmpty(); }));
    QVERIFY(QTest::qWaitFor(
        [&] {
          const auto wake = room.clock.wakeTime;
          return wake && *wake >= room.clock.now() + minutes(30) && *wake < room.clock.now() + minutes(32);
        },
        15000));
    room.clock.pass(minutes(32));
    room.clock.ring();
    QVERIFY(room.settled(4));
  }

  void aBadAnswerIsNoAnswer() {
    using Manner = Reply::Manner;
    const Reply replies[] = {
        {.status = 400, .body = "{\"error\":true}"},
        {.status = 429, .body = "{}"},
        {.status = 503, .body = "busy"},
        {.status = 204, .body = ""},
        {.body = QByteArray(2000, '1'), .manner = Manner::half},
        {.body = {}, .manner = Manner::silent},
        {.body = {}, .manner = Manner::dripping},
        {.body = QByteArray(5 << 20, 'x')},
        {.status = 302, .body = {}, .location = "/v1/forecast?x=1"},  // in a circle
        {.status = 302, .body = {}, .location = "file:///etc/passwd"},
    };
    for (const Reply& reply : replies) {
      LoopbackServer server;
      server.answer = [&](const QByteArray&) { return reply; };
      const bool neverEnds = reply.manner == Manner::silent || reply.manner == Manner::dripping;
      const QString answer = get(server.url(), {.time = std::chrono::milliseconds(neverEnds ? 150 : 10000)});
      QVERIFY2(answer.startsWith(QLatin1Char('!')) && answer.size() > 1, qPrintable(answer.left(80)));
      QVERIFY2(server.targets.size() <= 4, "a circle is left after three turns");
      QCOMPARE(problem.kind == FetchFailure::refused, reply.status == 429);
      QCOMPARE(problem.kind == FetchFailure::unreached, reply.manner == Manner::silent);
      QCOMPARE(problem.wait.count(), reply.status == 429 ? 7200 : 0);
    }
  }

  void aRedirectionIsFollowed() {
    LoopbackServer server;
    server.answer = [](const QByteArray& target) {
      // Whatever its type says.
      return target == "/moved" ? Reply{.body = "here", .type = "text/html"}
                                : Reply{.status = 301, .body = {}, .location = "/moved"};
    };
    QCOMPARE(get(server.url()), QStringLiteral("here"));
    QCOMPARE(server.targets, (QByteArrayList{"/v1/forecast?x=1", "/moved"}));
  }

  void anAnswerForNobodyIsDropped() {
    LoopbackServer server;
    server.answer = [](const QByteArray&) { return Reply{.body = "{}"}; };
    Fetcher fetcher;
    WeatherService service(fetcher, {server.url(), server.url(), server.url()});
    auto receiver = std::make_unique<QObject>();
    bool called = false;
    service.get(WeatherService::Kind::geocoding, "/a", receiver.get(),
                [&](const auto&, const auto&) { called = true; });
    receiver.reset();
    bool second = false;
    QObject other;
    QVERIFY(QTest::qWaitFor([&] { return !server.targets.isEmpty(); }, 15000));
    service.get(WeatherService::Kind::geocoding, "/b", &other, [&](const auto&, const auto&) { second = true; });
    QVERIFY(QTest::qWaitFor([&] { return second; }, 15000));
    QVERIFY(!called);
  }

  void addressesComeFromTheDefaults() {
    TemporaryFolder folder;
    UserDefaults defaults(folder / "defaults.json");
    QVERIFY(weatherHosts(defaults) == WeatherHosts{});
    QCOMPARE(WeatherHosts{}.forecast.host(), QStringLiteral("api.open-meteo.com"));
    defaults.set("weatherForecastURL", DefaultsValue{std::string("http://weather.example:8080/meteo")});
    for (const char* bad : {"", "weather.example", "file:///etc", "ftp://x", "https://", "javascript:1"}) {
      defaults.set("weatherGeocodingURL", DefaultsValue{std::string(bad)});
      const WeatherHosts hosts = weatherHosts(defaults);
      QCOMPARE(hosts.geocoding, WeatherHosts{}.geocoding);
      QCOMPARE(hosts.forecast, QUrl(QStringLiteral("http://weather.example:8080/meteo")));
    }
  }

  void aServerOfOnesOwnMayHaveAPath() {
    LoopbackServer server;
    server.answer = [](const QByteArray&) { return Reply{.body = "{}"}; };
    get(QUrl(server.url().toString() + "/meteo/"), {}, "/v1/search?name=a%26b%2Fc&count=6");
    QCOMPARE(server.targets, QByteArrayList{"/meteo/v1/search?name=a%26b%2Fc&count=6"});
  }

 private:
  // The body, or the problem after a "!".
  QString get(const QUrl& base, DownloadLimits limits = {.time = seconds(10)},
              const char* target = "/v1/forecast?x=1") {
    Fetcher fetcher;
    WeatherService service(fetcher, {base, base, base}, limits);
    QObject receiver;
    std::optional<QString> answer;
    service.get(WeatherService::Kind::forecast, target, &receiver, [&](const auto& body, const auto& why) {
      answer = body ? QString::fromUtf8(*body) : QLatin1Char('!') + why.text;
      problem = why;
    });
    return QTest::qWaitFor([&] { return answer.has_value(); }, 15000) ? *answer : QStringLiteral("nothing came");
  }
  WeatherProblem problem;  // of the last
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::WeatherModelTests)
#include "WeatherModelTests.moc"
