#include <QAbstractItemModelTester>
#include <QTest>

#include "app/assistant/Assistant.h"
#include "tests/fakes/FakeLanguageModel.h"

namespace ambrel {
namespace {

struct Room {
  FakeLanguageModel model;
  Instant now{std::chrono::hours(1000)};
  Buddy buddy{[](Seconds, const std::function<void()>&) {}};  // his reactions last
  std::vector<std::string> performed;
  Assistant assistant{{.model = model,
                       .buddy = buddy,
                       .perform =
                           [this](const AssistantCall& call) {
                             performed.push_back(call.name);
                             return "Did " + call.name + ".";
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
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::AssistantTests)
#include "AssistantTests.moc"
