#include <QTest>

#include "app/dock/ContextPeeker.h"
#include "tests/app/dock/BarFixture.h"

namespace ambrel {
namespace {

AgentSession session(std::string id, AgentStatus status) {
  return {.id = std::move(id), .title = "Mend the build", .status = status, .updatedAt = {}};
}

struct Fixture : ContextFixture {
  std::vector<Seconds> peeks;
  ContextPeeker peeker{agents, settings, [this](Seconds length) { peeks.push_back(length); }};

  int check() {
    now = advanced(now, ContextPeeker::interval);
    peeks.clear();
    peeker.check(now);
    return static_cast<int>(peeks.size());
  }
};

}  // namespace

class ContextPeekerTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void aSessionThatNeedsTheUserPeeksOnce();
  void whileOffReasonsAreRemembered();
  void whatOthersAddPeeksToo();
};

void ContextPeekerTests::aSessionThatNeedsTheUserPeeksOnce() {
  Fixture f;
  QCOMPARE(f.check(), 0);
  f.pollAgents({session("codex:a", AgentStatus::needsInput)});
  QCOMPARE(f.check(), 1);
  QVERIFY(f.peeks.front() == Seconds(6));
  f.pollAgents({session("codex:a", AgentStatus::needsInput), session("codex:b", AgentStatus::working),
                session("codex:c", AgentStatus::finished), session("codex:d", AgentStatus::idle)});
  QCOMPARE(f.check(), 0);
}

void ContextPeekerTests::whileOffReasonsAreRemembered() {
  Fixture f;
  f.settings.set(setting::barPeeksForContext, false);
  f.pollAgents({session("codex:a", AgentStatus::needsInput)});
  QCOMPARE(f.check(), 0);
  f.settings.set(setting::barPeeksForContext, true);
  QCOMPARE(f.check(), 0);
  f.pollAgents({session("codex:b", AgentStatus::needsInput)});
  QCOMPARE(f.check(), 1);
}

void ContextPeekerTests::whatOthersAddPeeksToo() {
  Fixture f;
  f.peeker.gatherMore = [&](PeekSignals& signals) { signals.waterDue = f.now; };
  QCOMPARE(f.check(), 1);
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::ContextPeekerTests)
#include "ContextPeekerTests.moc"
