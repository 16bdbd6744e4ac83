#include <QTest>

#include "app/weather/WeatherService.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/LoopbackServer.h"

namespace ambrel {

using Reply = LoopbackServer::Reply;

class WeatherServiceTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aBadAnswerIsNoAnswer();
  void aGoodAnswerIsGivenWhateverItsTypeSays();
  void aRedirectionIsFollowed();
  void anAnswerForNobodyIsDropped();
  void addressesComeFromTheDefaults();
  void aServerOfOnesOwnMayHaveAPath();

 private:
  // The body, or the problem after a "!".
  QString get(LoopbackServer& server, DownloadLimits limits = {.time = std::chrono::seconds(10)});
  WeatherProblem problem;  // of the last
};

QString WeatherServiceTests::get(LoopbackServer& server, DownloadLimits limits) {
  Fetcher fetcher;
  WeatherService service(fetcher, {server.url(), server.url(), server.url()}, limits);
  QObject receiver;
  std::optional<QString> answer;
  service.get(WeatherService::Kind::forecast, "/v1/forecast?x=1", &receiver, [&](const auto& body, const auto& why) {
    answer = body ? QString::fromUtf8(*body) : QLatin1Char('!') + why.text;
    problem = why;
  });
  return QTest::qWaitFor([&] { return answer.has_value(); }, 15000) ? *answer : QStringLiteral("nothing came");
}

void WeatherServiceTests::aBadAnswerIsNoAnswer() {
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
    const QString answer = get(server, {.time = std::chrono::milliseconds(neverEnds ? 150 : 10000)});
    QVERIFY2(answer.startsWith(QLatin1Char('!')) && answer.size() > 1, qPrintable(answer.left(80)));
    QVERIFY2(server.targets.size() <= 4, "a circle is left after three turns");
    QCOMPARE(problem.kind == FetchFailure::refused, reply.status == 429);
    QCOMPARE(problem.kind == FetchFailure::unreached, reply.manner == Manner::silent);
    QCOMPARE(problem.wait.count(), reply.status == 429 ? 7200 : 0);
  }
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
  Fetcher fetcher;
  WeatherService service(fetcher, {server.url(), server.url(), server.url()});
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
  Fetcher fetcher;
  WeatherService service(fetcher, {base, base, base});
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
