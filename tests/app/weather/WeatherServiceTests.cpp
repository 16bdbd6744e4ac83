#include <QElapsedTimer>
#include <QTest>

#include "app/weather/WeatherService.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {

using Reply = LoopbackServer::Reply;

class WeatherServiceTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aBadAnswerIsNoAnswer_data();
  void aBadAnswerIsNoAnswer();
  void aGoodAnswerIsGivenWhateverItsTypeSays();
  void aRedirectionIsFollowed();
  void anAnswerForNobodyIsDropped();
  void addressesComeFromTheDefaults();
  void aServerOfOnesOwnMayHaveAPath();

 private:
  // The body, or the problem after a "!".
  QString get(LoopbackServer& server, WeatherLimits limits = {.time = std::chrono::seconds(10)});
  WeatherProblem problem;  // of the last
};

QString WeatherServiceTests::get(LoopbackServer& server, WeatherLimits limits) {
  WeatherService service({server.url(), server.url(), server.url()}, limits);
  QObject receiver;
  std::optional<QString> answer;
  service.get(WeatherService::Kind::forecast, "/v1/forecast?x=1", &receiver, [&](const auto& body, const auto& why) {
    answer = body ? QString::fromUtf8(*body) : QLatin1Char('!') + why.text;
    problem = why;
  });
  return QTest::qWaitFor([&] { return answer.has_value(); }, 15000) ? *answer : QStringLiteral("nothing came");
}

void WeatherServiceTests::aBadAnswerIsNoAnswer_data() {
  QTest::addColumn<int>("status");
  QTest::addColumn<QByteArray>("body");
  QTest::addColumn<int>("manner");
  QTest::addColumn<QByteArray>("location");
  using Manner = Reply::Manner;
  const auto row = [](const char* name, const Reply& reply) {
    QTest::newRow(name) << reply.status << reply.body << static_cast<int>(reply.manner) << reply.location;
  };
  row("an error of the service", {.status = 400, .body = "{\"error\":true}"});
  row("too many requests", {.status = 429, .body = "{}"});
  row("a broken server", {.status = 503, .body = "busy"});
  row("nothing there", {.status = 404, .body = ""});
  row("no content", {.status = 204, .body = ""});
  row("half an answer", {.body = QByteArray(2000, '1'), .manner = Manner::half});
  row("silence", {.body = {}, .manner = Manner::silent});
  row("a drip without end", {.body = {}, .manner = Manner::dripping});
  row("5 MB of junk", {.body = QByteArray(5 << 20, 'x')});
  row("a circle of redirections", {.status = 302, .body = {}, .location = "/v1/forecast?x=1"});
  row("a redirection to a file", {.status = 302, .body = {}, .location = "file:///etc/passwd"});
}

void WeatherServiceTests::aBadAnswerIsNoAnswer() {
  QFETCH(int, status);
  QFETCH(QByteArray, body);
  QFETCH(int, manner);
  QFETCH(QByteArray, location);
  LoopbackServer server;
  server.answer = [&](const QByteArray&) {
    return Reply{.status = status, .body = body, .location = location, .manner = static_cast<Reply::Manner>(manner)};
  };
  const bool neverEnds =
      manner == static_cast<int>(Reply::Manner::silent) || manner == static_cast<int>(Reply::Manner::dripping);
  const auto limit = neverEnds ? std::chrono::milliseconds(150) : std::chrono::milliseconds(10000);
  const QString answer = get(server, {.time = limit});
  QVERIFY2(answer.startsWith(QLatin1Char('!')) && answer.size() > 1, qPrintable(answer.left(80)));
  QVERIFY2(server.targets.size() <= 4, "a circle is left after three turns");
  QVERIFY((problem.kind == WeatherFailure::refused) == (status == 429));
  QVERIFY((problem.kind == WeatherFailure::unreached) == (manner == static_cast<int>(Reply::Manner::silent)));
  QCOMPARE(problem.wait.count(), status == 429 ? 7200 : 0);
}

void WeatherServiceTests::aGoodAnswerIsGivenWhateverItsTypeSays() {
  LoopbackServer server;
  server.answer = [](const QByteArray&) { return Reply{.body = "{\"a\":1}", .type = "text/html"}; };
  QCOMPARE(get(server), QStringLiteral("{\"a\":1}"));
  QCOMPARE(server.targets, QByteArrayList{"/v1/forecast?x=1"});
}

void WeatherServiceTests::aRedirectionIsFollowed() {
  LoopbackServer server;
  server.answer = [](const QByteArray& target) {
    return target == "/moved" ? Reply{.body = "here"} : Reply{.status = 301, .body = {}, .location = "/moved"};
  };
  QCOMPARE(get(server), QStringLiteral("here"));
}

void WeatherServiceTests::anAnswerForNobodyIsDropped() {
  LoopbackServer server;
  server.answer = [](const QByteArray&) { return Reply{.body = "{}"}; };
  WeatherService service({server.url(), server.url(), server.url()});
  auto receiver = std::make_unique<QObject>();
  bool called = false;
  service.get(WeatherService::Kind::geocoding, "/a", receiver.get(), [&](const auto&, const auto&) { called = true; });
  receiver.reset();
  bool second = false;
  QObject other;
  QVERIFY(QTest::qWaitFor([&] { return !server.targets.isEmpty(); }, 15000));
  service.get(WeatherService::Kind::geocoding, "/b", &other, [&](const auto&, const auto&) { second = true; });
  QVERIFY(QTest::qWaitFor([&] { return second; }, 15000));
  QVERIFY(!called);
}

void WeatherServiceTests::addressesComeFromTheDefaults() {
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

void WeatherServiceTests::aServerOfOnesOwnMayHaveAPath() {
  LoopbackServer server;
  server.answer = [](const QByteArray&) { return Reply{.body = "{}"}; };
  QUrl base = server.url();
  base.setPath(QStringLiteral("/meteo/"));
  WeatherService service({base, base, base});
  QObject receiver;
  bool answered = false;
  service.get(WeatherService::Kind::geocoding, "/v1/search?name=a%26b%2Fc&count=6", &receiver,
              [&](const auto&, const auto&) { answered = true; });
  QVERIFY(QTest::qWaitFor([&] { return answered; }, 15000));
  QCOMPARE(server.targets, QByteArrayList{"/meteo/v1/search?name=a%26b%2Fc&count=6"});
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::WeatherServiceTests)
#include "WeatherServiceTests.moc"
