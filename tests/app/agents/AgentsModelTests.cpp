#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>

#include "app/agents/AgentsModel.h"
#include "app/model/AppSettings.h"
#include "tests/TemporaryFolder.h"
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
  return {.id = std::move(id),
          .kind = AgentKind::codex,
          .title = "Mend the build",
          .project = "web-shop",
          .detail = {},
          .status = status,
          .updatedAt = advanced(start, Seconds(-secondsAgo))};
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
            .icon = [this](std::string_view bundleID) { return QString::fromStdString(workspace.iconOf(bundleID)); }};
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
  void theFirstPollAnnouncesNothing_data();
  void theFirstPollAnnouncesNothing();
  void transitionsAreAnnounced_data();
  void transitionsAreAnnounced();
  void aSessionThatGoesAwayIsNotAnnounced();
  void withNotificationsOffTheFinishIsStillReported();
  void readsWithTheHomeFolderAndTheTimeOffTheMainThread();
  void anEqualListIsNotPublishedAgain();
  void refreshDuringARunningPollDoesNothing();
  void switchedOffTheListIsEmpty();
  void switchedOffDuringAPollItsResultIsDropped();
  void switchedOnAgainNothingOldIsAnnounced();
  void agesChangeRowByRow();
  void sessionsOfTheSameIdAreAllKept();
  void rowsSayWhatIsShown();
  void theSubtitleNamesTheToolWhenThereIsNothingElse_data();
  void theSubtitleNamesTheToolWhenThereIsNothingElse();
  void theIconComesWithTheProgram();
  void countsAndSummary();
  void openingBringsTheToolForwardOrOpensIt_data();
  void openingBringsTheToolForwardOrOpensIt();
};

void AgentsModelTests::theFirstPollAnnouncesNothing_data() {
  QTest::addColumn<AgentStatus>("status");
  for (const AgentStatus status : allCases<AgentStatus>()) QTest::newRow(std::string(nameOf(status)).c_str()) << status;
}

void AgentsModelTests::theFirstPollAnnouncesNothing() {
  QFETCH(AgentStatus, status);
  Fixture f;
  f.poll({session("codex:a", status)});
  QCOMPARE(announced(f.notifications), QStringList());
  QCOMPARE(f.finished, 0);
  QCOMPARE(f.ids(), QStringList("codex:a"));
}

void AgentsModelTests::transitionsAreAnnounced_data() {
  QTest::addColumn<AgentStatus>("before");
  QTest::addColumn<AgentStatus>("after");
  QTest::addColumn<QStringList>("news");
  QTest::addColumn<int>("finished");
  const QStringList done{"codex:a: Codex finished / web-shop"}, needs{"codex:a: Codex needs you / web-shop"};
  QTest::newRow("working, finished") << working << AgentStatus::finished << done << 1;
  QTest::newRow("working, needs input") << working << needsInput << needs << 0;
  QTest::newRow("working, idle") << working << idle << QStringList() << 0;
  QTest::newRow("working, working") << working << working << QStringList() << 0;
  QTest::newRow("idle, needs input") << idle << needsInput << QStringList() << 0;
  QTest::newRow("finished, needs input") << AgentStatus::finished << needsInput << QStringList() << 0;
  QTest::newRow("needs input, finished") << needsInput << AgentStatus::finished << QStringList() << 0;
}

void AgentsModelTests::transitionsAreAnnounced() {
  QFETCH(AgentStatus, before);
  QFETCH(AgentStatus, after);
  QFETCH(QStringList, news);
  QFETCH(int, finished);
  Fixture f;
  f.poll({session("codex:a", before), session("codex:b", working)});
  f.poll({session("codex:a", after), session("codex:b", working), session("codex:new", AgentStatus::finished)});
  if (!news.isEmpty()) QVERIFY(f.notifications.posted.front().sound);
  QCOMPARE(announced(f.notifications), news);
  QCOMPARE(f.finished, finished);
  // What was announced once is not announced again.
  f.poll({session("codex:a", after), session("codex:b", working)});
  QCOMPARE(announced(f.notifications), QStringList());
  QCOMPARE(f.finished, finished);
}

void AgentsModelTests::aSessionThatGoesAwayIsNotAnnounced() {
  Fixture f;
  f.poll({session("codex:a", working)});
  f.poll({});
  QCOMPARE(f.ids(), QStringList());
  // Nor is it when it comes back: nobody saw it working just before.
  f.poll({session("codex:a", finished)});
  QCOMPARE(announced(f.notifications), QStringList());
  QCOMPARE(f.finished, 0);
}

void AgentsModelTests::withNotificationsOffTheFinishIsStillReported() {
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

void AgentsModelTests::readsWithTheHomeFolderAndTheTimeOffTheMainThread() {
  Fixture f;
  f.now = advanced(start, Seconds(42));
  f.model.refresh();
  QCOMPARE(f.desk.reads, 0);
  QCOMPARE(f.held.waiting.size(), 1u);
  f.held.letGo();
  QCOMPARE(f.desk.reads, 1);
  QVERIFY(f.desk.home == f.folder.path());
  QVERIFY(f.desk.now == f.now);
}

void AgentsModelTests::anEqualListIsNotPublishedAgain() {
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

void AgentsModelTests::refreshDuringARunningPollDoesNothing() {
  Fixture f;
  f.model.refresh();
  f.model.refresh();
  f.model.refresh();
  QCOMPARE(f.held.waiting.size(), 1u);
  f.held.letGo();
  QCOMPARE(f.desk.reads, 1);
  f.model.refresh();
  QCOMPARE(f.held.waiting.size(), 1u);
}

void AgentsModelTests::switchedOffTheListIsEmpty() {
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

void AgentsModelTests::switchedOffDuringAPollItsResultIsDropped() {
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

void AgentsModelTests::switchedOnAgainNothingOldIsAnnounced() {
  Fixture f;
  f.poll({session("codex:a", working)});
  f.settings.set(setting::agentsEnabled, false);
  f.model.refresh();
  f.settings.set(setting::agentsEnabled, true);
  f.poll({session("codex:a", needsInput)});
  QCOMPARE(announced(f.notifications), QStringList());
}

void AgentsModelTests::agesChangeRowByRow() {
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

void AgentsModelTests::sessionsOfTheSameIdAreAllKept() {
  Fixture f;
  auto second = session("codex:a", working, 50);
  second.title = "Another";
  f.poll({session("codex:a", working), second, session("codex:b", working, 60)});
  QCOMPARE(f.ids(), (QStringList{"codex:a", "codex:a", "codex:b"}));
  QCOMPARE(f.model.face().count, 3);
  f.poll({second, session("codex:b", working, 60)});
  QCOMPARE(f.ids(), (QStringList{"codex:a", "codex:b"}));
  QCOMPARE(f.shown(0, "title"), QString("Another"));
}

void AgentsModelTests::rowsSayWhatIsShown() {
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
  const QStringList texts{"Needs you", "Working", "Done", "Idle"}, names{"needsInput", "working", "finished", "idle"};
  for (int row = 0; row < 4; ++row) {
    QCOMPARE(f.shown(row, "statusText"), texts[row]);
    QCOMPARE(f.shown(row, "status"), names[row]);
  }
}

void AgentsModelTests::theSubtitleNamesTheToolWhenThereIsNothingElse_data() {
  QTest::addColumn<QString>("project");
  QTest::addColumn<QString>("detail");
  QTest::addColumn<QString>("subtitle");
  QTest::newRow("neither") << QString() << QString() << "Codex";
  QTest::newRow("project") << "web-shop" << QString() << "web-shop";
  QTest::newRow("detail") << QString() << "Thinking"
                          << "Thinking";
  QTest::newRow("the title is the project") << "Mend the build"
                                            << "Bash" << QString::fromUtf8("Codex · Bash");
}

void AgentsModelTests::theSubtitleNamesTheToolWhenThereIsNothingElse() {
  QFETCH(QString, project);
  QFETCH(QString, detail);
  QFETCH(QString, subtitle);
  Fixture f;
  AgentSession one = session("codex:a", working);
  one.project = project.isNull() ? std::nullopt : std::optional(project.toStdString());
  one.detail = detail.isNull() ? std::nullopt : std::optional(detail.toStdString());
  f.poll({one});
  QCOMPARE(f.shown(0, "subtitle"), subtitle);
}

void AgentsModelTests::theIconComesWithTheProgram() {
  Fixture f;
  f.poll({session("codex:a", needsInput)});
  QCOMPARE(f.model.face().first.icon, QString());
  // It is installed while the bar runs; the next change of the list shows it.
  f.workspace.icons["com.openai.codex"] = "codex";
  f.poll({session("codex:b", needsInput, 1), session("codex:a", needsInput)});
  QCOMPARE(f.shown(1, "icon"), QStringLiteral("codex"));
  QCOMPARE(f.model.face().first.id, QStringLiteral("codex:b"));
}

void AgentsModelTests::countsAndSummary() {
  Fixture f;
  QCOMPARE(f.model.face().summary, QString("No agent activity"));
  f.poll({session("codex:a", working), session("codex:b", working), session("codex:c", needsInput),
          session("codex:d", idle)});
  QCOMPARE(f.model.face().needsInput, 1);
  QCOMPARE(f.model.face().working, 2);
  QCOMPARE(f.model.face().finished, 0);
  QCOMPARE(f.model.face().count, 4);
  QCOMPARE(f.model.face().summary, QString("1 need you, 2 working, 1 idle"));
  f.poll({session("codex:d", finished)});
  QCOMPARE(f.model.face().summary, QString("1 done"));
}

void AgentsModelTests::openingBringsTheToolForwardOrOpensIt_data() {
  QTest::addColumn<bool>("isRunning");
  QTest::addColumn<bool>("isInstalled");
  QTest::addColumn<QString>("id");
  QTest::addColumn<int>("activated");
  QTest::addColumn<int>("opened");
  QTest::newRow("running") << true << true << "codex:a" << 1 << 0;
  QTest::newRow("not running") << false << true << "codex:a" << 0 << 1;
  QTest::newRow("not installed") << false << false << "codex:a" << 0 << 0;
  QTest::newRow("unknown session") << true << true << "codex:b" << 0 << 0;
}

void AgentsModelTests::openingBringsTheToolForwardOrOpensIt() {
  QFETCH(bool, isRunning);
  QFETCH(bool, isInstalled);
  QFETCH(QString, id);
  QFETCH(int, activated);
  QFETCH(int, opened);
  Fixture f;
  f.poll({session("codex:a", working)});
  const std::string bundle(bundleIdentifier(AgentKind::codex));
  if (isRunning) f.workspace.running.insert(bundle);
  if (isInstalled) f.workspace.installed.insert(bundle);
  f.model.openSession(id);
  QVERIFY(f.workspace.activated == std::vector<std::string>(static_cast<std::size_t>(activated), bundle));
  QVERIFY(f.workspace.opened == std::vector<std::string>(static_cast<std::size_t>(opened), bundle));
}

}  // namespace ambrel

QTEST_GUILESS_MAIN(ambrel::AgentsModelTests)
#include "AgentsModelTests.moc"
