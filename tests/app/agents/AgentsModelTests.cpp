#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/agents/AgentHooksModel.h"
#include "app/agents/AgentsModel.h"
#include "app/model/AppSettings.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/agents/Sessions.h"
#include "tests/fakes/FakeFolderWatch.h"
#include "tests/fakes/FakePlatform.h"
#include "tests/fakes/HeldWork.h"

namespace ambrel {
namespace {

using enum AgentStatus;

constexpr Instant start = Instant(std::chrono::seconds(1'800'000'000));

// What the tools' files would say, and what the reader was asked with.
struct Desk {
  std::vector<AgentSession> sessions;
  int reads = 0;
  std::filesystem::path home;
  Instant now;
};

class FakeReader : public AgentSessionReader {
 public:
  explicit FakeReader(Desk& desk) : desk_(desk) {}
  std::vector<AgentSession> sessions(const std::filesystem::path& home, Instant now) const override {
    ++desk_.reads;
    desk_.home = home;
    desk_.now = now;
    return desk_.sessions;
  }

 private:
  Desk& desk_;
};

AgentSession session(std::string id, AgentStatus status, double secondsAgo = 5) {
  AgentSession session = agentSession(std::move(id), AgentKind::codex, status);
  session.updatedAt = advanced(start, Seconds(-secondsAgo));
  return session;
}

// Which session was announced how: "codex:a: Codex finished / web-shop".
QStringList announced(FakeNotifications& notifications) {
  QStringList out;
  for (const Notification& each : std::exchange(notifications.posted, {}))
    out << QString::fromStdString(each.identifier + ": " + each.title + " / " + each.body);
  return out;
}

struct Fixture {
  TemporaryFolder folder;
  UserDefaults defaults{folder / "defaults.json"};
  AppSettings settings{defaults};
  Desk desk;
  HeldWork held;
  FakeNotifications notifications;
  FakeWorkspace workspace;
  FakeFolderWatch folders;
  std::vector<std::pair<Seconds, std::function<void()>>> steps;
  Instant now = start;
  int finished = 0;
  AgentsModel model{settings, readers(), folder.path(), Calendar("UTC", "en_US"), seams()};
  QAbstractItemModelTester tester{model.rows(), QAbstractItemModelTester::FailureReportingMode::QtTest};

  Fixture() {
    QObject::connect(&model, &AgentsModel::sessionFinished, [this] { ++finished; });
  }
  AgentReaders readers() {
    AgentReaders list;
    list.push_back(std::make_unique<FakeReader>(desk));
    return list;
  }
  AgentsModel::Seams seams() {
    return {.background = held.background(),
            .notifications = notifications,
            .workspace = workspace,
            .now = [this] { return now; },
            .icon = [this](std::string_view bundleID) { return QString::fromStdString(workspace.iconOf(bundleID)); },
            .folders = &folders,
            .later = [this](Seconds delay, auto step) { steps.emplace_back(delay, std::move(step)); }};
  }
  // A whole poll that finds these sessions.
  void poll(std::vector<AgentSession> sessions) {
    desk.sessions = std::move(sessions);
    model.refresh();
    held.letGo();
  }
  QString shown(int row, const char* what) {
    return model.rows()->index(row, 0).data(GadgetListModel<AgentFace>::role(what)).toString();
  }
  QStringList ids() {
    QStringList out;
    for (int row = 0; row < model.rows()->count(); ++row) out << shown(row, "sessionId");
    return out;
  }
};

}  // namespace

class AgentsModelTests : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void theFirstPollAnnouncesNothing() {
    Fixture f;
    f.poll({session("codex:a", finished)});
    QCOMPARE(announced(f.notifications), QStringList());
    QCOMPARE(f.finished, 0);
    QCOMPARE(f.ids(), QStringList("codex:a"));
  }

  void transitionsAreAnnounced() {
    Fixture f;
    f.poll({session("codex:a", working), session("codex:b", working)});
    f.poll({session("codex:a", needsInput), session("codex:b", AgentStatus::finished)});
    QVERIFY(f.notifications.posted.front().sound);
    QCOMPARE(announced(f.notifications),
             QStringList({"codex:a: Codex needs you / web-shop", "codex:b: Codex finished / web-shop"}));
    QCOMPARE(f.finished, 1);
    // What was announced once is not announced again.
    f.poll({session("codex:a", needsInput), session("codex:b", AgentStatus::finished)});
    QCOMPARE(announced(f.notifications), QStringList());
    QCOMPARE(f.finished, 1);
  }

  void withNotificationsOffTheFinishIsStillReported() {
    Fixture f;
    f.poll({session("codex:a", working)});
    f.settings.set(setting::agentNotifications, false);
    f.poll({session("codex:a", finished)});
    QCOMPARE(announced(f.notifications), QStringList());
    QCOMPARE(f.finished, 1);
    // Read at each transition: no restart is needed.
    f.settings.set(setting::agentNotifications, true);
    f.poll({session("codex:a", working)});
    f.poll({session("codex:a", finished)});
    QCOMPARE(announced(f.notifications).size(), 1);
  }

  void oneReadAtATimeIsOffTheMainThread() {
    Fixture f;
    f.now = advanced(start, Seconds(42));
    f.model.refresh();
    f.model.refresh();
    QCOMPARE(f.desk.reads, 0);
    QCOMPARE(f.held.waiting.size(), 1u);
    f.held.letGo();
    QCOMPARE(f.desk.reads, 1);
    QVERIFY(f.desk.home == f.folder.path());
    QVERIFY(f.desk.now == f.now);
    f.model.refresh();
    QCOMPARE(f.held.waiting.size(), 1u);
  }

  void anEqualListIsNotPublishedAgain() {
    Fixture f;
    QSignalSpy published(&f.model, &AgentsModel::sessionsChanged);
    QSignalSpy changed(f.model.rows(), &QAbstractItemModel::dataChanged),
        inserted(f.model.rows(), &QAbstractItemModel::rowsInserted);
    f.poll({session("codex:a", working), session("codex:b", idle)});
    QCOMPARE(published.count(), 1);
    f.poll({session("codex:a", working), session("codex:b", idle)});
    QCOMPARE(published.count(), 1);
    QCOMPARE(changed.count(), 0);
    QCOMPARE(inserted.count(), 1);  // both rows at once
    // One detail is a difference.
    auto next = session("codex:a", working);
    next.detail = "Bash";
    f.poll({next, session("codex:b", idle)});
    QCOMPARE(published.count(), 2);
    QCOMPARE(changed.count(), 1);
  }

  void switchedOffTheListIsEmpty() {
    Fixture f;
    f.poll({session("codex:a", working)});
    f.settings.set(setting::agentsEnabled, false);
    f.model.refresh();
    QCOMPARE(f.held.waiting.size(), 0u);
    QCOMPARE(f.ids(), QStringList());
    QCOMPARE(f.model.face().count, 0);
    QCOMPARE(f.model.face().working, 0);
    QCOMPARE(f.desk.reads, 1);
  }

  void switchedOffDuringAPollItsResultIsDropped() {
    Fixture f;
    f.poll({session("codex:a", working)});
    f.desk.sessions = {session("codex:a", finished)};
    f.model.refresh();
    f.settings.set(setting::agentsEnabled, false);
    f.model.refresh();
    QCOMPARE(f.ids(), QStringList());
    f.held.letGo();
    QCOMPARE(f.ids(), QStringList());
    QCOMPARE(announced(f.notifications), QStringList());
    // The poll that was dropped is over: the next one starts.
    f.settings.set(setting::agentsEnabled, true);
    f.poll({session("codex:a", finished)});
    QCOMPARE(f.ids(), QStringList("codex:a"));
  }

  void switchedOnAgainNothingOldIsAnnounced() {
    Fixture f;
    f.poll({session("codex:a", working)});
    f.settings.set(setting::agentsEnabled, false);
    f.model.refresh();
    f.settings.set(setting::agentsEnabled, true);
    f.poll({session("codex:a", needsInput)});
    QCOMPARE(announced(f.notifications), QStringList());
  }

  void agesChangeRowByRow() {
    Fixture f;
    const std::vector<AgentSession> sessions{session("codex:minutes", working, 130),
                                             session("codex:hours", working, 8000)};
    f.poll(sessions);
    QCOMPARE(f.shown(0, "age"), QString("2m ago"));
    const QString hours = f.shown(1, "age");
    QSignalSpy published(&f.model, &AgentsModel::sessionsChanged);
    QSignalSpy changed(f.model.rows(), &QAbstractItemModel::dataChanged);
    f.now = advanced(start, Seconds(60));
    f.poll(sessions);
    QCOMPARE(f.shown(0, "age"), QString("3m ago"));
    QCOMPARE(f.shown(1, "age"), hours);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.at(0).at(0).value<QModelIndex>().row(), 0);
    QCOMPARE(changed.at(0).at(1).value<QModelIndex>().row(), 0);
    QCOMPARE(published.count(), 0);
  }

  void rowsSayWhatIsShown() {
    Fixture f;
    AgentSession waiting{.id = "claude:1",
                         .kind = AgentKind::claudeCode,
                         .title = "Größe prüfen",
                         .project = "web-shop",
                         .detail = "Bash",
                         .status = needsInput,
                         .updatedAt = advanced(start, Seconds(-5))};
    f.poll({session("codex:a", idle), waiting, session("codex:b", finished), session("codex:c", working)});
    // The most urgent comes first.
    QCOMPARE(f.ids(), (QStringList{"claude:1", "codex:c", "codex:b", "codex:a"}));
    QCOMPARE(f.shown(0, "kind"), QString("Claude Code"));
    QCOMPARE(f.shown(0, "title"), QString::fromUtf8("Größe prüfen"));
    QCOMPARE(f.shown(0, "subtitle"), QString::fromUtf8("web-shop · Bash"));
    QCOMPARE(f.shown(0, "age"), QString("5s ago"));
    QCOMPARE(f.shown(0, "statusText") + f.shown(0, "status"), QString("Needs youneedsInput"));
  }

  void theSubtitleSaysTheProjectWhatIsDoneOrAskedAndWhere() {
    const auto subtitle = [](auto change) {
      Fixture f;
      AgentSession one = session("codex:a", working);
      change(one);
      f.poll({one});
      return f.shown(0, "subtitle");
    };
    QCOMPARE(subtitle([](AgentSession& s) { s.project.reset(); }), QString("Codex"));
    QCOMPARE(subtitle([](AgentSession&) {}), QString("web-shop"));
    // The title is the project.
    QCOMPARE(subtitle([](AgentSession& s) {
               s.title = "web-shop";
               s.detail = "Bash";
             }),
             QString::fromUtf8("Codex · Bash"));
    QCOMPARE(subtitle([](AgentSession& s) {
               s.detail = "Working";
               s.status = needsInput;
               s.wait = AgentWait{.reason = AgentWait::Reason::permission};
               s.place = AgentPlace::container;
             }),
             QString::fromUtf8("web-shop · Asks for a permission · in a container"));
  }

  void theIconComesWithTheProgram() {
    Fixture f;
    f.poll({session("codex:a", needsInput)});
    QCOMPARE(f.model.face().first.icon, QString());
    // It is installed while the bar runs; the next change of the list shows it.
    f.workspace.icons["com.openai.codex"] = "codex";
    f.poll({session("codex:b", needsInput, 1), session("codex:a", needsInput)});
    QCOMPARE(f.shown(1, "icon"), QStringLiteral("codex"));
    QCOMPARE(f.model.face().first.id, QStringLiteral("codex:b"));
  }

  void saysHowAStatusIsKnown() {
    Fixture f;
    AgentSession told = session("codex:a", working);
    told.word = AgentSession::Word{AgentWait::Source::hook, advanced(start, Seconds(-12))};
    f.poll({told, session("codex:b", working, 20)});
    QCOMPARE(f.model.origin("codex:a"), QString("Codex says so, 12s ago"));
    QCOMPARE(f.model.origin("codex:b"), QString("Its log says so, 20s ago"));
    QCOMPARE(f.model.origin("codex:gone"), QString());
  }

  void openingBringsTheToolForwardOrOpensIt() {
    Fixture f;
    f.poll({session("codex:a", working)});
    const std::string bundle(bundleIdentifier(AgentKind::codex));
    f.workspace.installed.insert(bundle);
    f.model.openSession("codex:unknown");
    QVERIFY(f.workspace.opened.empty());
    f.model.openSession("codex:a");
    QVERIFY(f.workspace.opened == std::vector{bundle});
    f.workspace.running.insert(bundle);
    f.model.openSession("codex:a");
    QVERIFY(f.workspace.activated == std::vector{bundle});
    QCOMPARE(f.workspace.opened.size(), 1u);
  }

  void aKnownProcessLeadsToItsOwnWindowAndToNoOther() {
    Fixture f;
    const std::string bundle(bundleIdentifier(AgentKind::codex));
    f.workspace.running.insert(bundle);
    AgentSession here = session("codex:here", needsInput), there = session("codex:there", needsInput);
    here.process = 7;
    there.place = AgentPlace::otherComputer;
    f.poll({here, there});
    QSignalSpy problems(&f.model, &AgentsModel::problemFound);
    f.workspace.processesWithWindows = {7};
    f.model.openSession("codex:here");
    QVERIFY(f.workspace.activatedProcesses == std::vector{7});
    QCOMPARE(problems.count(), 0);
    f.workspace.processesWithWindows = {};
    f.model.openSession("codex:here");
    f.model.openSession("codex:there");
    QCOMPARE(problems.count(), 2);
    QCOMPARE(problems.at(0).at(0).toString(), QString("Codex has no window"));
    QCOMPARE(problems.at(1).at(0).toString(), QString("Codex runs elsewhere"));
    QVERIFY(f.workspace.activated.empty());
  }

  void aChangeIsLookedAtAtOnceAndSeveralTogether() {
    Fixture f;
    f.model.follow({{"hooks", 0, Seconds(0.05)}, {"logs", 1, Seconds(1)}});
    QCOMPARE(f.folders.followed.size(), 2u);
    f.poll({session("codex:a", idle)});
    f.now = advanced(start, Seconds(0.5));
    f.folders.change(1);
    f.folders.change(1);
    QCOMPARE(f.steps.size(), 1u);
    QCOMPARE(f.steps.back().first, Seconds(0.5));
    // A hook is more urgent than a log, and replaces the step that was planned.
    f.folders.change(0);
    QCOMPARE(f.steps.back().first, Seconds(0.05));
    for (const auto& [delay, step] : std::exchange(f.steps, {})) step();
    QCOMPARE(f.held.waiting.size(), 1u);
    // What changes during the poll is seen by the next one.
    f.folders.change(0);
    QCOMPARE(f.steps.size(), 0u);
    f.held.letGo();
    QCOMPARE(f.steps.size(), 1u);
    QCOMPARE(f.desk.reads, 2);
  }

  void restsWhileEveryChangeIsToldAndNothingRuns() {
    Fixture f;
    f.model.follow({{"logs", 1, Seconds(1)}});
    const auto polls = [&](double seconds) {
      f.now = advanced(start, Seconds(seconds));
      f.model.poll();
      const bool has = !f.held.waiting.empty();
      f.held.letGo();
      return has;
    };
    f.poll({session("codex:a", AgentStatus::finished, 50)});
    QVERIFY(!polls(3));
    QVERIFY(!polls(27));
    QCOMPARE(f.shown(0, "age"), QString("1m ago"));
    QVERIFY(polls(30));
    // What was told, and who works: that may end without a word.
    f.folders.change(0);
    QVERIFY(polls(33));
    f.folders.isWhole = false;
    QVERIFY(polls(36));
    f.folders.isWhole = true;
    QVERIFY(!polls(39));
    f.poll({session("codex:a", working, 50)});
    QVERIFY(polls(42));
  }

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

QTEST_GUILESS_MAIN(ambrel::AgentsModelTests)
#include "AgentsModelTests.moc"
