#include <QAbstractItemModelTester>
#include <QFile>
#include <QTest>

#include "app/assistant/Assistant.h"
#include "app/assistant/ChatServerModel.h"
#include "app/base/StoredValue.h"
#include "core/base/JSON.h"
#include "tests/TemporaryFolder.h"
#include "tests/fakes/FakeLanguageModel.h"
#include "tests/fakes/ScriptedModelServer.h"

namespace ambrel {
namespace {

struct Room {
  FakeLanguageModel model;
  Instant now{std::chrono::hours(1000)};
  Buddy buddy{[](Seconds, const std::function<void()>&) {}};  // his reactions last
  std::vector<std::string> performed;
  Assistant assistant{{.model = model,
                       .buddy = buddy,
                       .performer =
                           [this] {
                             return [this](const AssistantCall& call) {
                               performed.push_back(call.name);
                               return "Did " + call.name + ".";
                             };
                           },
                       .now = [this] { return now; }}};
  QAbstractItemModelTester tester{assistant.turns()};

  AssistantTurn turn(int row) const {
    const auto* turns = const_cast<Assistant&>(assistant).turns();
    const auto at = [&](const char* name) {
      return turns->data(turns->index(row), GadgetListModel<AssistantTurn, &AssistantTurn::turn>::role(name));
    };
    return {.question = at("question").toString(),
            .answer = at("answer").toString(),
            .isThinking = at("isThinking").toBool(),
            .isWhole = at("isWhole").toBool()};
  }
  int count() { return assistant.turns()->count(); }
};

using Reply = ScriptedModelServer::Reply;
using End = Reply::End;

// What a server has sent, to the byte.
QByteArray recorded(const char* name) {
  QFile file(QStringLiteral(AMBREL_CASES "/assistant/") + QLatin1String(name));
  if (!file.open(QIODevice::ReadOnly)) qFatal("no such case: %s", name);
  return file.readAll();
}

struct Line {
  explicit Line(ChatServerLimits limits = {}) : limits(limits) { choose("modelServerURL", server.url()); }

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

class AssistantTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void withoutAModelTheGrammarAnswers() {
    Room room;
    room.model.missing = ModelAbsence::notFound;
    room.assistant.open();
    QCOMPARE(room.assistant.warning(), "No model server is running here. Simple commands still work.");
    room.assistant.ask(QStringLiteral(" add CPU and Clock\n"));
    QCOMPARE(room.turn(0).question, "add CPU and Clock");
    QCOMPARE(room.turn(0).answer, "Did CPU. Did Clock.");
    QVERIFY(room.turn(0).isWhole);
    QVERIFY(!room.assistant.isResponding());
    QCOMPARE(room.buddy.pose(), BuddyPose(BuddyTrigger::nod));
    QVERIFY(room.model.asked.empty());
    // Nothing is asked by a blank.
    room.assistant.ask(QStringLiteral("  "));
    QCOMPARE(room.count(), 1);
  }

  void theModelAnswersAndMayAct() {
    Room room;
    room.assistant.ask(QStringLiteral("Bring me the clock"));
    QCOMPARE(room.assistant.warning(), "");
    QVERIFY(room.turn(0).isThinking);
    QCOMPARE(room.buddy.pose(), BuddyPose(BuddyMood::thinking));
    const auto& request = room.model.asked.front().request;
    QCOMPARE(request.instructions, assistantInstructions());
    QCOMPARE(request.prompt, "Bring me the clock");
    QCOMPARE(request.perform({AssistantAction::addWidget, "Clock"}), "Did Clock.");
    request.grown("It is");
    QCOMPARE(room.turn(0).answer, "It is");
    QVERIFY(!room.turn(0).isThinking && !room.turn(0).isWhole);
    room.model.asked.front().done({"It is there."});
    QCOMPARE(room.turn(0).answer, "It is there.");
    QVERIFY(room.turn(0).isWhole && !room.assistant.isResponding());
    room.assistant.ask(QStringLiteral("Thanks"));
    QCOMPARE(room.model.asked.back().request.earlier, (std::vector<ChatTurn>{{"Bring me the clock", "It is there."}}));
  }

  void aFailureIsTheAnswer() {
    Room room;
    room.assistant.ask(QStringLiteral("One"));
    room.model.asked.back().request.grown("Half an");
    room.model.asked.back().done({.text = {}, .problem = "The model took too long."});
    QCOMPARE(room.turn(0).answer, "Sorry, I could not do that. The model took too long.");
    QCOMPARE(room.buddy.pose(), BuddyPose(BuddyTrigger::shake));
    // The model is not told of an answer that it has not given.
    room.assistant.ask(QStringLiteral("Two"));
    QVERIFY(room.model.asked.back().request.earlier.empty());
  }

  void oneQuestionRunsAtATime() {
    Room room;
    room.model.looksLater = true;
    room.assistant.ask(QStringLiteral("One"));
    room.assistant.ask(QStringLiteral("Two"));
    QCOMPARE(room.count(), 1);
    QCOMPARE(room.assistant.prompt(), "Two");
    room.model.waiting.front()();
    room.assistant.send();
    QCOMPARE(room.model.asked.size(), 1u);
    room.model.asked.front().done({"Yes."});
    room.assistant.send();
    QCOMPARE(room.count(), 2);
    QCOMPARE(room.assistant.prompt(), "");
  }

  void aConversationLivesForTenMinutes() {
    Room room;
    room.assistant.ask(QStringLiteral("One"));
    room.model.asked.back().done({"Yes."});
    room.assistant.setPrompt(QStringLiteral("half a que"));
    room.now += std::chrono::seconds(599);
    room.assistant.open();
    QCOMPARE(room.count(), 1);
    QCOMPARE(room.assistant.prompt(), "");
    // Opening does not lengthen its life.
    room.now += std::chrono::seconds(1);
    room.assistant.open();
    QCOMPARE(room.count(), 0);
    room.assistant.ask(QStringLiteral("Two"));
    QVERIFY(room.model.asked.back().request.earlier.empty());
  }

  void whatComesTooLateIsDropped() {
    Room room;
    room.assistant.ask(QStringLiteral("One"));
    const auto first = room.model.asked.front();
    room.assistant.newConversation();
    QVERIFY(first.stop.stop_requested());
    QVERIFY(!room.assistant.isResponding());
    QCOMPARE(room.buddy.pose(), BuddyPose(BuddyMood::idle));
    first.request.grown("Late");
    first.done({"Late"});
    QCOMPARE(room.count(), 0);
    room.model.looksLater = true;
    room.assistant.ask(QStringLiteral("Two"));
    room.assistant.newConversation();
    room.model.waiting.front()();
    QCOMPARE(room.model.asked.size(), 1u);
  }

  void whatHasComeStaysWhenItIsStopped() {
    Room room;
    room.assistant.ask(QStringLiteral("One"));
    room.assistant.stop();
    QCOMPARE(room.turn(0).answer, "Stopped.");
    room.assistant.ask(QStringLiteral("Two"));
    room.model.asked.back().request.grown("It is so");
    room.assistant.stop();
    QCOMPARE(room.turn(1).answer, "It is so");
    QVERIFY(room.turn(1).isWhole);
    QVERIFY(room.model.asked.back().stop.stop_requested());
  }

  void toolsAreCarriedOutOnTheWayToTheAnswer() {
    Line room;
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

  void aBadServerIsAProblemInWords() {
    const char* brokeOff = "The model server broke off in the middle of its answer.";
    const char* tookLong = "The model took too long.";
    const std::tuple<const char*, Reply, std::string> rows[] = {
        {"an error in words", {.body = R"({"error":{"message":"no tools here"}})", .status = 400}, "no tools here"},
        {"an error of another form", {.body = "<html>", .status = 502}, "The model server says 502."},
        {"an error within the stream", {.body = recorded("error-in-stream.sse")}, "out of memory"},
        {"half an answer", {.body = recorded("cut.sse")}, brokeOff},
        {"half an answer, as the connection tells", {.body = recorded("cut.sse"), .end = End::cut}, brokeOff},
        {"silence", {.body = "", .end = End::open}, tookLong},
        {"a stream that stops in the middle", {.body = recorded("cut.sse"), .end = End::open}, tookLong},
        {"a way to another server",
         {.body = "", .status = 307, .location = "/v1/models"},
         "The model server says 307."}};
    for (const auto& [what, reply, problem] : rows) {
      ChatServerLimits limits;
      if (reply.end == End::open) limits.begin = limits.pause = std::chrono::milliseconds(150);
      Line room(limits);
      room.server.script = {reply};
      const auto answer = room.ask();
      QVERIFY2(answer.problem == problem && answer.text.empty() && room.server.looks == 1, what);
    }
  }

  void whatIsMissingHasItsReason() {
    Line room;
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
    Line room;
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
    Line room(limits);
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
    Line room;
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

QTEST_GUILESS_MAIN(ambrel::AssistantTests)
#include "AssistantTests.moc"
