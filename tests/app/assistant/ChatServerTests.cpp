#include <QFile>
#include <QTest>

#include "app/assistant/ChatServerModel.h"
#include "app/base/StoredValue.h"
#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/ScriptedModelServer.h"

namespace ambrel {
namespace {

using Reply = ScriptedModelServer::Reply;
using End = Reply::End;

// What a server has sent, to the byte.
QByteArray recorded(const char* name) {
  QFile file(QStringLiteral(AMBREL_CASES "/assistant/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no such case: %s", name);
  return file.readAll();
}

struct Room {
  explicit Room(ChatServerLimits limits = {}) : limits(limits) { choose("modelServerURL", server.url()); }

  void choose(const char* key, const std::string& text) { defaults.set(key, DefaultsValue{text}); }
  std::optional<ModelAbsence> look() {
    bool isKnown = false;
    model.forget();
    model.check([&] { isKnown = true; });
    if (!QTest::qWaitFor([&] { return isKnown; }, 15000)) qFatal("nothing is known");
    return model.absence();
  }
  LanguageModel::Answer ask() {
    look();
    std::optional<LanguageModel::Answer> got;
    model.respond({.instructions = "Be Buddy.",
                   .prompt = "Hello",
                   .perform =
                       [this](const AssistantCall& call) {
                         performed.push_back(call);
                         return "Done.";
                       },
                   .grown = [this](const std::string& text) { grown.push_back(text); }},
                  stop.get_token(), [&](const LanguageModel::Answer& answer) { got = answer; });
    if (!QTest::qWaitFor([&] { return got.has_value(); }, 15000)) qFatal("no answer comes");
    return *got;
  }

  ScriptedModelServer server;
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  ChatServerLimits limits;
  ChatServerModel model{defaults, limits};
  std::stop_source stop;
  std::vector<AssistantCall> performed;
  std::vector<std::string> grown;
};

}  // namespace

class ChatServerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void toolsAreCarriedOutOnTheWayToTheAnswer() {
    Room room;
    room.server.script = {{.body = recorded("fragments.sse")}, {.body = recorded("text.sse")}};
    const auto answer = room.ask();
    QCOMPARE(answer.problem, "");
    QCOMPARE(answer.text, "Two agents are working.");
    QCOMPARE(room.performed,
             (std::vector<AssistantCall>{{AssistantAction::addWidget, "CPU"}, {AssistantAction::agentsStatus}}));
    QCOMPARE(room.grown.back(), answer.text);
    QCOMPARE(room.server.asked.size(), 2);
    const JSON first = parseJSON(room.server.asked[0].toStdString()).value();
    QCOMPARE(first["model"].get<std::string>(), "tiny:1b");
    QCOMPARE(first["tools"].size(), 4u);
    QCOMPARE(parseJSON(room.server.asked[1].toStdString()).value()["messages"].size(), 5u);
  }

  void aBadServerIsAProblemInWords_data() {
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("end");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const Reply& reply, const char* problem) {
      QTest::newRow(name) << reply.body << reply.status << static_cast<int>(reply.end) << QString::fromUtf8(problem);
    };
    const char* brokeOff = "The model server broke off in the middle of its answer.";
    row("an error in words", {.body = R"({"error":{"message":"no tools here"}})", .status = 400}, "no tools here");
    row("an error of another form", {.body = "<html>", .status = 502}, "The model server says 502.");
    row("an error within the stream", {.body = recorded("error-in-stream.sse")}, "out of memory");
    row("half an answer", {.body = recorded("cut.sse")}, brokeOff);
    row("half an answer, as the connection tells", {.body = recorded("cut.sse"), .end = End::cut}, brokeOff);
    row("silence", {.body = "", .end = End::open}, "The model took too long.");
    row("a stream that stands still", {.body = recorded("cut.sse"), .end = End::open}, "The model took too long.");
    row("something else", {.body = recorded("page.html")}, "The model server's answer is not understood.");
    row("a way to another server", {.body = "", .status = 307, .location = "/v1/models"}, "The model server says 307.");
  }

  void aBadServerIsAProblemInWords() {
    QFETCH(QByteArray, body);
    QFETCH(int, status);
    QFETCH(int, end);
    QFETCH(QString, problem);
    const bool isSlow = static_cast<End>(end) == End::open;
    ChatServerLimits limits;
    if (isSlow) limits.begin = limits.pause = std::chrono::milliseconds(150);
    Room room(limits);
    room.server.script = {{.body = body, .status = status, .end = static_cast<End>(end), .location = "/v1/models"}};
    const auto answer = room.ask();
    QCOMPARE(QString::fromStdString(answer.problem), problem);
    QCOMPARE(answer.text, "");
    QCOMPARE(room.server.looks, 1);
  }

  void whatIsMissingHasItsReason() {
    Room room;
    QVERIFY(!room.look());
    QCOMPARE(room.model.model(), "tiny:1b");
    room.choose("modelName", "huge");
    QCOMPARE(room.look(), ModelAbsence::noModel);
    room.choose("modelName", "");
    room.server.models = {.body = R"({"error":{"message":"Loading model"}})", .status = 503};
    QCOMPARE(room.look(), ModelAbsence::loading);
    room.server.models = {.body = "<html>a router</html>"};
    QCOMPARE(room.look(), ModelAbsence::notFound);
    room.server.close();
    QCOMPARE(room.look(), ModelAbsence::notFound);
    QCOMPARE(room.ask().problem, "The model server does not answer.");
    room.defaults.set("askUsesModel", DefaultsValue{false});
    QCOMPARE(room.look(), ModelAbsence::off);
  }

  void nothingLeavesTheComputerUnlessAllowed() {
    Room room;
    const std::string other = "http://0.0.0.0:" + std::to_string(room.server.serverPort());
    room.choose("modelServerURL", other);
    QCOMPARE(room.look(), ModelAbsence::notAllowed);
    QCOMPARE(room.server.looks, 0);
    room.choose("modelServerAllowedURL", "http://0.0.0.0:1");
    QCOMPARE(room.look(), ModelAbsence::notAllowed);
    room.choose("modelServerAllowedURL", other);
    QVERIFY(!room.look());
    QCOMPARE(room.server.looks, 1);
  }

  void whatWasSeenHoldsForAWhile() {
    ChatServerLimits limits;
    limits.seen = std::chrono::minutes(1);
    Room room(limits);
    room.look();
    bool isKnown = false;
    room.model.check([&] { isKnown = true; });
    QVERIFY(isKnown);
    QCOMPARE(room.server.looks, 1);
    // A failure says that something has changed.
    room.server.script = {{.body = "", .status = 500}};
    room.ask();
    room.model.check({});
    QVERIFY(QTest::qWaitFor([&] { return room.server.looks == 3; }, 15000));
  }

  void aStoppedQuestionIsLeft() {
    Room room;
    room.look();
    const QByteArray text = recorded("text.sse");
    room.server.script = {{.body = text, .end = End::open, .atFirst = text.indexOf("are working")}};
    bool isDone = false;
    room.model.respond(
        {.instructions = "", .prompt = "?", .grown = [&](const std::string&) { room.stop.request_stop(); }},
        room.stop.get_token(), [&](const auto&) { isDone = true; });
    QVERIFY(QTest::qWaitFor([&] { return room.server.left == 1; }, 15000));
    QVERIFY(!isDone);
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ChatServerTests)
#include "ChatServerTests.moc"
