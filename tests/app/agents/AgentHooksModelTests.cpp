#include <QSignalSpy>
#include <QTest>

#include "app/agents/AgentHooksModel.h"
#include "tests/TemporaryFolder.h"

namespace ambrel {

class AgentHooksModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void connectsAndFollowsWhatIsChangedByHand() {
    TemporaryFolder home;
    const HookConnection::Places places{.home = home.path(), .data = home / "data", .tool = "/usr/bin/tilebayctl"};
    const HookConnection outside(AgentKind::claudeCode, places);
    AgentHooksModel hooks(AgentKind::claudeCode, places);
    QVERIFY(!hooks.isConnected());
    QSignalSpy connections(&hooks, &AgentHooksModel::connectionChanged);
    // At first there is not even a folder; later the file is replaced each time.
    for (int round = 0; round < 2; ++round) {
      outside.connect();
      QTRY_VERIFY(hooks.isConnected());
      outside.disconnect();
      QTRY_VERIFY(!hooks.isConnected());
    }
    QCOMPARE(connections.count(), 4);
    hooks.install();
    QVERIFY(hooks.isConnected() && outside.isConnected());
    hooks.remove();
    QVERIFY(!outside.isConnected());
    QCOMPARE(hooks.problem(), QString());
  }

  void saysWhyAChangeWasNotMade() {
    TemporaryFolder home;
    home.write(".codex/hooks.json", "[1]");
    AgentHooksModel hooks(AgentKind::codex,
                          {.home = home.path(), .data = home / "data", .tool = "/usr/bin/tilebayctl"});
    hooks.install();
    QVERIFY(!hooks.isConnected());
    QCOMPARE(hooks.problem(), QString("Could not change ~/.codex/hooks.json. Check that it is valid JSON."));
    home.write(".codex/hooks.json", "{}");
    hooks.install();
    QVERIFY(hooks.isConnected());
    QCOMPARE(hooks.problem(), QString());
    AgentHooksModel bare(AgentKind::claudeCode, {.home = home.path(), .data = home / "data", .tool = {}});
    bare.install();
    QVERIFY(!bare.problem().isEmpty());
  }
};

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::AgentHooksModelTests)
#include "AgentHooksModelTests.moc"
