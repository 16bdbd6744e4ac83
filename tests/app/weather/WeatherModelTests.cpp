#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include "app/weather/WeatherModel.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {
namespace {

using Reply = LoopbackServer::Reply;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;

QByteArray sample(const char* name) {
  QFile file(QStringLiteral(AMBREL_CASES "/weather/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no sample %s", name);
  return file.readAll();
}

// A machine with a weather server on its loopback address, at 10:41 of a London summer's morning.
struct Room {
  Room() {
    server.answer = [this](const QByteArray& target) {
      if (target.startsWith("/v1/air-quality?")) return air;
      return target.startsWith("/v1/search?") ? places : forecast;
    };
  }

  WeatherModel make(WeatherModel::Setting setting = WeatherModel::mainSetting()) {
    return WeatherModel(std::move(setting), service, defaults, Calendar("Europe/Berlin", "en_GB"),
                        [this] { return clock.now(); });
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
  LoopbackServer server;
  WeatherService service{{server.url(), server.url(), server.url()}, {.time = std::chrono::seconds(10), .jitter = 0}};
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
  void showsWhatTheServicesAnswer();
  void aBadAnswerLeavesTheOldValuesWithTheirAge_data();
  void aBadAnswerLeavesTheOldValuesWithTheirAge();
  void itAsksWhateverTheDesktopSaysOfTheNetwork();
  void theAirHasAnAgeOfItsOwn();
  void carriesOutWhatIsDue();
  void aPlaceIsSearchedForAfterAPause();
  void returnTakesTheFirstPlaceForWhatIsTyped();
  void aChosenPlaceIsStoredAndAskedForAtOnce();
  void anOlderAnswerIsNotLookedAt();
  void aStoredPlaceThatIsNoneIsPassedOver();
  void theUnitIsAskedOfTheServiceForBothPlaces();
  void theScaleIsAChoiceOfItsOwn();
};

void WeatherModelTests::showsWhatTheServicesAnswer() {
  Room room;
  WeatherModel model = room.make();
  QCOMPARE(model.texts().problem, QStringLiteral("Waiting for data"));
  QCOMPARE(model.texts().rainTitle, QStringLiteral("No forecast"));
  model.setWanted(true, room.clock.now());
  QVERIFY(until(model, [&] { return model.texts().problem.isEmpty() && !model.texts().airValue.isEmpty(); }));
  const WeatherTexts& texts = model.texts();
  QCOMPARE(texts.place, QStringLiteral("London"));
  QCOMPARE(texts.temperature, QStringLiteral("22°"));
  QCOMPARE(texts.condition, QStringLiteral("Partly cloudy"));
  QCOMPARE(texts.symbol, QStringLiteral("cloud.sun.fill"));
  QCOMPARE(texts.highLow, QStringLiteral("25° / 14°"));
  QCOMPARE(texts.feelsLikeDetail, QStringLiteral("3° colder"));
  QCOMPARE(texts.wind + texts.windUnit + texts.windFrom, QStringLiteral("14km/hSW"));
  QCOMPARE(texts.uvIndex + texts.uvLabel, QStringLiteral("4Moderate"));
  // The place's own time, an hour behind the user's.
  QCOMPARE(texts.sunTitle + texts.sunTime, QStringLiteral("Sunset21:12"));
  QCOMPARE(texts.localTime, QStringLiteral("10:41"));
  QCOMPARE(texts.rainTitle, QStringLiteral("Rain in 20 min"));
  QVERIFY(texts.isWet);
  QCOMPARE(texts.airValue + texts.airLabel + texts.airScale, QStringLiteral("42GoodUS AQI"));
  QCOMPARE(texts.hours.size(), 7);
  QCOMPARE(texts.hours[0].toMap().value(QStringLiteral("time")).toString(), QStringLiteral("10"));
  QCOMPARE(texts.days.size(), 7);
  QCOMPARE(texts.days[1].toMap().value(QStringLiteral("day")).toString(), QStringLiteral("Wed"));
  QCOMPARE(texts.updated, QStringLiteral("Updated 11:41"));
  QVERIFY(texts.staleSince.isEmpty());
}

void WeatherModelTests::aBadAnswerLeavesTheOldValuesWithTheirAge_data() {
  QTest::addColumn<int>("status");
  QTest::addColumn<QByteArray>("body");
  QTest::newRow("an error") << 400 << sample("error.json");
  QTest::newRow("an error under a good status") << 200 << sample("error.json");
  QTest::newRow("a broken server") << 500 << QByteArray("<html>");
  QTest::newRow("nothing") << 200 << QByteArray();
  QTest::newRow("half a document") << 200 << sample("london.json").left(900);
  QTest::newRow("null") << 200 << QByteArray("null");
  QTest::newRow("nulls everywhere") << 200
                                    << QByteArray(
                                           R"({"utc_offset_seconds":null,"current":null,"hourly":null,"daily":null})");
  QTest::newRow("wrong types") << 200
                               << QByteArray(R"({"utc_offset_seconds":"0","current":[],"hourly":3,"daily":true})");
  QTest::newRow("junk") << 200 << QByteArray(5 << 20, '{');
}

void WeatherModelTests::aBadAnswerLeavesTheOldValuesWithTheirAge() {
  QFETCH(int, status);
  QFETCH(QByteArray, body);
  Room room;
  WeatherModel model = room.make();
  model.setWanted(true, room.clock.now());
  QVERIFY(until(model, [&] { return model.texts().problem.isEmpty() && !model.texts().airValue.isEmpty(); }));
  const WeatherReading before = model.reading();
  room.forecast = room.air = {.status = status, .body = body};
  room.clock.pass(minutes(30));
  model.tick(room.clock.now());
  QVERIFY(room.settled(4));
  QVERIFY(model.reading().forecast == before.forecast);
  QVERIFY(model.reading().airQuality == before.airQuality);
  QVERIFY(model.reading().updatedAt == before.updatedAt);
  QVERIFY(model.texts().staleSince.isEmpty());
  QVERIFY2(model.due() == room.clock.now() + minutes(30), "the next regular request is soon enough");
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

void WeatherModelTests::itAsksWhateverTheDesktopSaysOfTheNetwork() {
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
  WeatherService unreached({nowhere, nowhere, nowhere}, {.time = std::chrono::seconds(10), .jitter = 0});
  WeatherModel other(WeatherModel::mainSetting(), unreached, room.defaults, Calendar("Europe/Berlin", "en_GB"),
                     [&] { return room.clock.now(); });
  other.setOnline(false, room.clock.now());
  other.setWanted(true, room.clock.now());
  QVERIFY(until(other, [&] { return other.texts().problem == QStringLiteral("Offline"); }));
  QVERIFY(QTest::qWaitFor([&] { return other.due() == room.clock.now() + seconds(60); }, 15000));
  other.setOnline(true, room.clock.now());
  QVERIFY(other.due() == room.clock.now());
}

void WeatherModelTests::theAirHasAnAgeOfItsOwn() {
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

void WeatherModelTests::carriesOutWhatIsDue() {
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

void WeatherModelTests::aPlaceIsSearchedForAfterAPause() {
  Room room;
  WeatherModel model = room.make();
  for (const char* typed : {"S", "Sp", "Spri", "Spring field "}) model.search(QString::fromLatin1(typed));
  QVERIFY(model.due() == room.clock.now() + std::chrono::milliseconds(300));
  room.clock.pass(Seconds(0.3));
  model.tick(room.clock.now());
  QVERIFY(QTest::qWaitFor([&] { return !model.searchResults().isEmpty(); }, 15000));
  QCOMPARE(room.server.targets, QByteArrayList{"/v1/search?name=Spring%20field&count=6&language=en"});
  QCOMPARE(model.searchResults().size(), 6);

  room.places = {.body = sample("places-none.json")};
  model.search(QStringLiteral("Atlantis"));
  room.clock.pass(Seconds(0.3));
  model.tick(room.clock.now());
  QVERIFY(QTest::qWaitFor([&] { return model.searchResults().isEmpty(); }, 15000));
  QCOMPARE(model.searchNote(), QStringLiteral("No place of that name"));

  model.search(QStringLiteral(" x "));
  QCOMPARE(model.searchNote(), QStringLiteral("Type at least two letters"));
  QVERIFY(!model.due());
  QCOMPARE(room.server.targets.size(), 2);
}

void WeatherModelTests::returnTakesTheFirstPlaceForWhatIsTyped() {
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
  model.chooseFirst();
  room.places = {.status = 500, .body = {}};
  model.search(QStringLiteral("Springfield"));
  model.chooseFirst();
  QVERIFY(QTest::qWaitFor([&] { return model.searchNote() == QStringLiteral("The search does not answer"); }, 15000));
  model.search(QStringLiteral(""));
  model.chooseFirst();
  QCOMPARE(chosen.count(), 1);
}

void WeatherModelTests::aChosenPlaceIsStoredAndAskedForAtOnce() {
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

void WeatherModelTests::anOlderAnswerIsNotLookedAt() {
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

void WeatherModelTests::aStoredPlaceThatIsNoneIsPassedOver() {
  Room room;
  room.defaults.set("weatherPlace", DefaultsValue{DefaultsData{"{\"name\":\"X\"}"}});
  room.defaults.set("secondCityPlace", DefaultsValue{std::string("Paris")});
  QCOMPARE(room.make().texts().placeLabel, QStringLiteral("London, United Kingdom"));
  QCOMPARE(room.make(WeatherModel::secondCitySetting()).texts().placeLabel, QStringLiteral("New York, United States"));
}

void WeatherModelTests::theUnitIsAskedOfTheServiceForBothPlaces() {
  Room room;
  WeatherModel model = room.make();
  WeatherModel second = room.make(WeatherModel::secondCitySetting());
  second.followUnitOf(model);
  model.setWanted(true, room.clock.now());
  second.setWanted(true, room.clock.now());
  QVERIFY(room.settled(4));
  QVERIFY(until(model, [&] { return model.texts().problem.isEmpty(); }));
  room.forecast = {.status = 500, .body = {}};
  model.setUsesFahrenheit(true);
  QVERIFY(room.settled(6));
  QByteArrayList last = room.server.targets.mid(4);
  std::sort(last.begin(), last.end());
  QVERIFY(last[0].startsWith("/v1/forecast?latitude=40.7128") && last[1].startsWith("/v1/forecast?latitude=51.5074"));
  for (const QByteArray& target : last) QVERIFY(target.endsWith("&temperature_unit=fahrenheit&wind_speed_unit=mph"));
  QCOMPARE(model.texts().temperature + model.texts().windUnit, QStringLiteral("22°km/h"));
  room.forecast = {.body = sample("london.json")};
  room.clock.pass(minutes(30));
  model.tick(room.clock.now());
  QVERIFY(until(model, [&] { return model.texts().windUnit == QStringLiteral("mph"); }));
  QVERIFY(UserDefaults(room.folder / "defaults.json").boolean("weatherFahrenheit") == true);
  QVERIFY(room.make().usesFahrenheit());
}

void WeatherModelTests::theScaleIsAChoiceOfItsOwn() {
  Room room;
  WeatherModel model = room.make();
  QCOMPARE(model.airQualityScale(), QStringLiteral("us"));
  model.setAirQualityScale(QStringLiteral("martian"));
  QCOMPARE(model.airQualityScale(), QStringLiteral("us"));
  model.setAirQualityScale(QStringLiteral("european"));
  QVERIFY(UserDefaults(room.folder / "defaults.json").string("airQualityScale") == "european");
  QCOMPARE(room.make().airQualityScale(), QStringLiteral("european"));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::WeatherModelTests)
#include "WeatherModelTests.moc"
